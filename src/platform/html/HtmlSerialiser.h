#pragma once

#include "platform/html/HtmlNode.h"

#include <string>

namespace paperkite {

/// A node with all that is below it, by the rules of the HTML standard.
std::string SerialiseNode(const HtmlNode& node);
std::string SerialiseChildren(const HtmlParent& parent);

} // namespace paperkite
