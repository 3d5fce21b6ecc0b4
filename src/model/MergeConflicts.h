#pragma once

#include "model/XmlReader.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace paperkite {

/// What becomes of two versions of one thing.
enum class Keeping { Ours, Theirs, Both };

/// Two versions of one thing that a merge could not put together, as a file holds them.
struct MergeConflict {
    /// The qualified name of the item; of a project the name of the element.
    std::string Item;
    /// The comment's tag; of a project's element what tells it from others.
    std::string Tag;
    /// The text before both, where it is known.
    std::optional<std::string> Base;
    /// Nothing: that side deleted it.
    std::optional<std::string> Ours;
    std::optional<std::string> Theirs;
    /// Whether both versions can stay; elements of a project there is only one of.
    bool MayKeepBoth = true;
};

/// Finds and resolves the conflicts that ThreeWayMerge marked in a file. The bytes must be those of
/// a file that can be read; others hold none.
class MergeConflicts {
public:
    /// Whether it is worth looking; quick.
    static bool MayBeIn(const std::string& bytes);
    /// In the order of the file.
    static std::vector<MergeConflict> Find(const std::string& bytes);
    /// The file with what was chosen for each conflict that Find gives, in its order; what is
    /// missing at the end stays as it is. With both, comments lose their marks and stay, two of
    /// them.
    static std::string Resolve(const std::string& bytes, const std::vector<Keeping>& choices);
};

} // namespace paperkite
