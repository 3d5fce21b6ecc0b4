#include "doctypes/source/SourceIndex.h"

#include <algorithm>

namespace paperkite {

SourceIndex SourceIndex::Copy() const {
    SourceIndex copy;
    copy.mStrings = mStrings.Copy();
    copy.mFiles = mFiles;
    copy.mEntities = mEntities;
    copy.mChildren = mChildren;
    copy.mPlaces = mPlaces;
    copy.mNames = mNames;
    return copy;
}

// FNV-1a, because a child's hash goes on from its parent's
std::uint64_t SourceIndex::HashMore(std::uint64_t hash, std::string_view text) {
    for (const unsigned char c : text) {
        hash = (hash ^ c) * 0x100000001B3ull;
    }
    return hash;
}

std::uint64_t SourceIndex::HashOf(std::string_view qualifiedName) {
    return HashMore(0xCBF29CE484222325ull, qualifiedName);
}

std::optional<SourceIndex::Id> SourceIndex::Find(std::string_view qualifiedName) const {
    const std::size_t mask = mNames.size() - 1;
    const std::uint64_t hash = HashOf(qualifiedName);
    for (std::size_t slot = (hash ^ (hash >> 32)) & mask; mNames[slot] != Nothing;
         slot = (slot + 1) & mask) {
        if (IsNamed(mNames[slot], qualifiedName)) {
            return mNames[slot];
        }
    }
    return std::nullopt;
}

bool SourceIndex::IsNamed(Id entity, std::string_view qualifiedName) const {
    for (;; entity = At(entity).parent) {
        const std::string_view step = Step(entity);
        if (!qualifiedName.ends_with(step)) {
            return false;
        }
        qualifiedName.remove_suffix(step.size());
        if (entity == Root) {
            return qualifiedName.empty();
        }
        if (!qualifiedName.ends_with('~')) {
            return false;
        }
        qualifiedName.remove_suffix(1);
    }
}

std::string SourceIndex::QualifiedName(Id entity) const {
    std::size_t length = Step(entity).size();
    for (Id above = At(entity).parent; above != Nothing; above = At(above).parent) {
        length += Step(above).size() + 1;
    }
    // filled from its end
    std::string name(length, '~');
    for (; entity != Nothing; entity = At(entity).parent) {
        const std::string_view step = Step(entity);
        length -= step.size();
        step.copy(name.data() + length, step.size());
        length -= length > 0;
    }
    return name;
}

std::string_view SourceIndex::KindText(Id entity) const {
    return At(entity).kind == SourceKind::Other ? mStrings.View(At(entity).otherKind)
                                                : paperkite::KindText(At(entity).kind);
}

std::vector<SourceParameter> SourceIndex::Parameters(Id entity) const {
    return ParameterList(Signature(entity), Language(entity)).Parameters();
}

std::span<const SourceIndex::Id> SourceIndex::Children(Id entity) const {
    return {mChildren.data() + At(entity).firstChild, At(entity).childCount};
}

SourcePlace SourceIndex::PlaceOf(const StoredPlace& stored) const {
    return {mStrings.View(mFiles[stored.file]), stored.line,
            std::max<std::uint32_t>(stored.line, stored.endLine), stored.isForward != 0};
}

SourcePlace SourceIndex::Place(Id entity) const {
    const std::uint32_t first = At(entity).firstPlace;
    return first == Nothing ? SourcePlace() : PlaceOf(mPlaces[first]);
}

std::vector<SourcePlace> SourceIndex::Places(Id entity) const {
    std::vector<SourcePlace> places;
    for (std::uint32_t at = At(entity).firstPlace; at != Nothing; at = mPlaces[at].next) {
        places.push_back(PlaceOf(mPlaces[at]));
    }
    return places;
}

} // namespace paperkite
