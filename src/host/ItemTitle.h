#pragma once

#include "foundation/Object.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace paperkite {

/// What authors are shown of an item: its name as the tree shows it, with the parameters where
/// others share it, "spell(const std::string&, int*)".
std::string ItemCaption(const Object& item);

/// The captions of what stands around an item, outermost first: "hunspell ~ Hunspell". Empty for a
/// root.
std::string ItemScope(const Object& item);

/// The captions from the root to the item: "hunspell ~ Hunspell ~ spell(const char*)".
std::string ItemPath(const Object& item);

/// A text that is longer than `most` bytes with "…" for its middle: names and addresses differ at
/// their ends. Cut between characters. `most` is at least 8.
std::string ShortenedInMiddle(std::string_view text, std::size_t most);

} // namespace paperkite
