#pragma once

#include "model/XmlElement.h"
#include "model/XmlWriter.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace paperkite {

/// The name of the element that holds the other side's version of the element before it.
inline constexpr const char* kConflictElement = "conflict";
/// The attributes of a conflict element: the side that it is from, and "true" where that side has
/// deleted what stands before it.
inline constexpr const char* kConflictSide = "side";
inline constexpr const char* kConflictDeleted = "deleted";

/// The three versions of something; `Base` and one of the others may be nullptr.
template <class T>
struct ThreeVersions {
    const T* Base = nullptr;
    const T* Ours = nullptr;
    const T* Theirs = nullptr;
};

/// Merges XML elements by what a vocabulary knows of them. Known elements are told apart by their
/// keys and merged attribute by attribute; others, and XML comments, are kept or left out as a
/// whole, so that a changed one counts as a new one.
class XmlTreeMerge {
public:
    /// Merges one element that both sides have. Versions that cannot be put together go to
    /// `behind`, which belongs behind the result.
    XmlElement Merge(const ThreeVersions<XmlElement>& versions, const XmlVocabulary& vocabulary,
                     std::vector<XmlElement>& behind);
    /// Merges lists of nodes.
    std::vector<XmlElement> MergeNodes(const ThreeVersions<std::vector<XmlElement>>& versions,
                                       const XmlVocabulary& vocabulary);
    /// Lists of nodes of which nothing is known.
    static std::vector<XmlElement>
    MergeUnknown(const ThreeVersions<std::vector<XmlElement>>& versions);

    /// Merges attributes; false when both sides wrote another value for one, which is ours then.
    static bool MergeAttributes(const ThreeVersions<XmlElement>& versions, XmlElement& result);
    /// Which of three values stands; nothing where both sides changed it in different ways.
    template <class T>
    static std::optional<T> Choose(const T& base, const T& ours, const T& theirs) {
        if (ours == theirs || theirs == base) return ours;
        if (ours == base) return theirs;
        return {};
    }

    /// The bytes of an element, for comparing.
    static std::string BytesOf(const XmlElement& element);

    std::size_t GetConflicts() const { return mConflicts; }

private:
    std::size_t mConflicts = 0;
};

} // namespace paperkite
