#pragma once

#include <string>

namespace paperkite {

class SpellEngine;

/// Has a word learnt as an author wants it. Where it cannot be kept the author is shown why, and it
/// is false.
bool LearnWord(SpellEngine& engine, const std::string& word);

} // namespace paperkite
