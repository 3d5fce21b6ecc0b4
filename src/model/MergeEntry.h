#pragma once

#include "model/XmlElement.h"

#include <string>
#include <vector>

namespace paperkite {

/// A comment of a Content File that is merged. What it is known by is decoded once.
struct MergeEntry {
    /// Which side has it and nobody else; Both also for what the base has.
    enum class Side { Both, Ours, Theirs };

    MergeEntry() = default;
    MergeEntry(XmlElement comment, std::vector<XmlElement> before);

    /// Says the same, however it is written.
    bool Says(const MergeEntry& other) const;
    /// What stands in it and is no text.
    std::vector<XmlElement> UnknownChildren() const;
    /// Writes an attribute anew, at its place.
    void SetAttribute(const std::string& name, const std::string& value);
    void SetId(const std::string& value);
    void SortAttributes();

    XmlElement Comment;
    /// The XML comments that stand before it and belong to it.
    std::vector<XmlElement> Before;
    std::string Item;
    std::string Tag;
    std::string Id;
    Side AddedBy = Side::Both;
    /// Another comment says what it says.
    bool IsNeedless = false;
};

} // namespace paperkite
