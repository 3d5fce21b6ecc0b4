#pragma once

#include "foundation/SpellEngine.h"
#include "platform/spelling/SpellingPlaces.h"

namespace paperkite {

/// An engine on the dictionaries of Hunspell. It reads a dictionary when the first word is checked,
/// so that making one costs nothing, and remembers what it has checked. At first it has the user's
/// own words as its custom dictionary.
///
/// By name it takes the members that InitSpellingObject sets: OptionBtnCaption, Suggest,
/// IgnoreInUpperCase, IgnoreWithNumbers, IgnoreInMixedCase, MainDictFile and CustomDictFile. A
/// MainDictFile that is no ".dic" file stands for the language of the system, and a CustomDictFile
/// that is no absolute path for the user's own words.
Ref<SpellEngine> MakeSpelling(SpellingPlaces places = SpellingPlaces::OfSystem());

} // namespace paperkite
