#pragma once

#include <functional>
#include <memory>
#include <string>

namespace paperkite {

/// Calls `changed` in the window's thread when the file at that path is written, replaced, made or
/// deleted, until the result is let go. Several changes in a row are told once.
std::shared_ptr<void> FollowFile(const std::string& path, std::function<void()> changed);

} // namespace paperkite
