#pragma once

#include "foundation/Collection.h"

#include <string>

namespace paperkite {

/// A picture by where it comes from: the name of an icon of the icon theme, or the path of a file.
/// A view loads and draws it.
struct Picture {
    /// Name in the icon theme, such as "code-class"; empty when Path says where the picture is.
    std::string Name;
    /// File of the picture; empty when it is a themed one.
    std::string Path;
    /// What a screen reader says for it, such as "class".
    std::string AccessibleName;

    bool IsEmpty() const { return Name.empty() && Path.empty(); }

    bool operator==(const Picture&) const = default;
};

/// The type face of a control; an empty name and a size of 0 stand for the ambient font.
struct FontDescription {
    std::string Name;
    /// In points.
    double Size = 0;
    bool Bold = false;
    bool Italic = false;

    bool operator==(const FontDescription&) const = default;
};

/// Pictures by key, ignoring case, and by position from 1. Several widgets may share one list.
class ImageList {
public:
    /// A key that is already there gets the new picture.
    void Add(const std::string& key, Picture picture);
    /// A key or position that is not there raises error 5 or 9.
    const Picture& Item(const std::string& key) const;
    const Picture& Item(std::size_t position) const;
    /// Replaces the picture at a position from 1; its key stays.
    void Replace(std::size_t position, Picture picture);
    /// The picture of a key, or nullptr.
    const Picture* Find(const std::string& key) const;
    bool Contains(const std::string& key) const;
    std::size_t Count() const;

private:
    Collection<Picture> mPictures{KeyComparison::IgnoringCase};
};

} // namespace paperkite
