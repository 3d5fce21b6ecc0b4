#include "doctypes/source/SourceIndexStorage.h"

#include "doctypes/source/ContentHash.h"

#include <algorithm>
#include <bit>
#include <string_view>
#include <type_traits>

namespace paperkite {

struct SourceIndexStorage::Counts {
    std::uint64_t textBytes = 0, texts = 0, files = 0, entities = 0, children = 0, places = 0,
                  names = 0;

    /// Of all that follows; nothing when the numbers are beyond all measure.
    std::optional<std::uint64_t> Size() const {
        constexpr std::uint64_t most = 0xFFFFFFF0;
        for (const std::uint64_t count :
             {textBytes, texts, files, entities, children, places, names}) {
            if (count > most) {
                return std::nullopt;
            }
        }
        return sizeof(Counts) + textBytes + 4 * (texts + files + children + names) +
               entities * sizeof(SourceIndex::Entity) + places * sizeof(SourceIndex::StoredPlace);
    }
};

namespace {

template <typename Element>
void StoreArray(const std::vector<Element>& elements, const SourceIndexStorage::Write& write) {
    static_assert(std::is_trivially_copyable_v<Element>);
    write(elements.data(), elements.size() * sizeof(Element));
}

template <typename Element>
bool LoadArray(std::vector<Element>& elements, std::uint64_t count,
               const SourceIndexStorage::Read& read) {
    elements.resize(count);
    return count == 0 || read(elements.data(), count * sizeof(Element));
}

} // namespace

void SourceIndexStorage::Store(const SourceIndex& index, const Write& write) {
    static_assert(std::has_unique_object_representations_v<SourceIndex::Entity>);
    static_assert(std::has_unique_object_representations_v<SourceIndex::StoredPlace>);
    std::vector<std::uint32_t> ends;
    std::uint64_t textBytes = 0;
    for (StringPool::Id id = 0; id < index.mStrings.Size(); ++id) {
        textBytes += index.mStrings.View(id).size();
        ends.push_back(static_cast<std::uint32_t>(textBytes));
    }
    const Counts counts = {textBytes,
                           index.mStrings.Size(),
                           index.mFiles.size(),
                           index.mEntities.size(),
                           index.mChildren.size(),
                           index.mPlaces.size(),
                           index.mNames.size()};
    write(&counts, sizeof counts);
    StoreArray(ends, write);
    for (StringPool::Id id = 0; id < index.mStrings.Size(); ++id) {
        const std::string_view text = index.mStrings.View(id);
        write(text.data(), text.size());
    }
    StoreArray(index.mFiles, write);
    StoreArray(index.mEntities, write);
    StoreArray(index.mChildren, write);
    StoreArray(index.mPlaces, write);
    StoreArray(index.mNames, write);
}

std::uint64_t SourceIndexStorage::DigestOf(const SourceIndex& index) {
    ContentHash hash;
    Store(index, [&](const void* bytes, std::size_t size) {
        hash.Add({static_cast<const char*>(bytes), size});
    });
    return hash.Value();
}

bool SourceIndexStorage::LoadTexts(const Counts& counts, const Read& read, SourceIndex& index) {
    std::vector<std::uint32_t> ends;
    if (!LoadArray(ends, counts.texts, read) || ends.empty() || ends.front() != 0 ||
        ends.back() != counts.textBytes || !std::is_sorted(ends.begin(), ends.end())) {
        return false;
    }
    auto block = std::make_unique_for_overwrite<char[]>(counts.textBytes);
    const bool isRead = counts.textBytes == 0 || read(block.get(), counts.textBytes);
    index.mStrings = StringPool::Frozen(std::move(block), ends);
    return isRead;
}

std::optional<SourceIndex> SourceIndexStorage::Load(std::uint64_t size, const Read& read) {
    Counts counts;
    if (size < sizeof counts || !read(&counts, sizeof counts) || counts.Size() != size) {
        return std::nullopt;
    }
    SourceIndex index;
    const bool isRead = LoadTexts(counts, read, index) &&
                        LoadArray(index.mFiles, counts.files, read) &&
                        LoadArray(index.mEntities, counts.entities, read) &&
                        LoadArray(index.mChildren, counts.children, read) &&
                        LoadArray(index.mPlaces, counts.places, read) &&
                        LoadArray(index.mNames, counts.names, read);
    if (!isRead || !IsSound(index)) {
        return std::nullopt;
    }
    return index;
}

bool SourceIndexStorage::IsSound(const SourceIndex& index) {
    const auto isText = [&](StringPool::Id id) { return id < index.mStrings.Size(); };
    return std::all_of(index.mFiles.begin(), index.mFiles.end(), isText) &&
           AreEntitiesSound(index) && AreChildrenSound(index) && ArePlacesSound(index) &&
           AreNamesSound(index);
}

// a parent comes before its children: so there is no circle
bool SourceIndexStorage::AreEntitiesSound(const SourceIndex& index) {
    if (index.mEntities.empty() || index.mEntities[0].parent != SourceIndex::Nothing) {
        return false;
    }
    const std::size_t textCount = index.mStrings.Size();
    for (SourceIndex::Id id = 0; id < index.mEntities.size(); ++id) {
        const SourceIndex::Entity& entity = index.mEntities[id];
        for (const StringPool::Id text :
             {entity.name, entity.step, entity.signature, entity.type, entity.inherits,
              entity.templateText, entity.trait, entity.otherKind, entity.languageName}) {
            if (text >= textCount) {
                return false;
            }
        }
        if ((id > 0 && entity.parent >= id) || entity.kind > SourceKind::Other ||
            entity.language > SourceLanguage::Other || entity.access > SourceAccess::Private) {
            return false;
        }
    }
    return true;
}

bool SourceIndexStorage::AreChildrenSound(const SourceIndex& index) {
    std::uint64_t count = 0;
    for (SourceIndex::Id id = 0; id < index.mEntities.size(); ++id) {
        const SourceIndex::Entity& entity = index.mEntities[id];
        count += entity.childCount;
        if (std::uint64_t{entity.firstChild} + entity.childCount > index.mChildren.size()) {
            return false;
        }
        for (const SourceIndex::Id child : index.Children(id)) {
            if (child >= index.mEntities.size() || index.mEntities[child].parent != id) {
                return false;
            }
        }
    }
    return count == index.mEntities.size() - 1 && count == index.mChildren.size();
}

// each place belongs to one chain only: so there is no circle
bool SourceIndexStorage::ArePlacesSound(const SourceIndex& index) {
    std::vector<bool> isSeen(index.mPlaces.size());
    for (const SourceIndex::Entity& entity : index.mEntities) {
        for (std::uint32_t at = entity.firstPlace; at != SourceIndex::Nothing;
             at = index.mPlaces[at].next) {
            if (at >= index.mPlaces.size() || isSeen[at] ||
                index.mPlaces[at].file >= index.mFiles.size()) {
                return false;
            }
            isSeen[at] = true;
        }
    }
    return true;
}

// a search ends at a free slot: there must be one
bool SourceIndexStorage::AreNamesSound(const SourceIndex& index) {
    return std::has_single_bit(index.mNames.size()) &&
           std::all_of(index.mNames.begin(), index.mNames.end(),
                       [&](SourceIndex::Id id) {
                           return id == SourceIndex::Nothing || id < index.mEntities.size();
                       }) &&
           std::find(index.mNames.begin(), index.mNames.end(), SourceIndex::Nothing) !=
               index.mNames.end();
}

} // namespace paperkite
