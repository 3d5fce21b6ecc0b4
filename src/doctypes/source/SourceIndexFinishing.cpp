#include "doctypes/source/SourceIndexBuilder.h"

#include "foundation/Utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <numeric>
#include <set>

namespace paperkite {

namespace {

/// Of several things of one name, the one of the lowest rank bears it plainly.
int Rank(SourceKind kind) {
    return IsGroup(kind)                 ? 0
           : IsType(kind)                ? 1
           : kind == SourceKind::Typedef ? 2
           : IsCallable(kind)            ? 3
           : kind == SourceKind::Macro   ? 5
           : kind == SourceKind::Other   ? 6
                                         : 4;
}

bool IsEncoded(unsigned char byte) {
    return byte < 0x20 || byte == 0x7F || byte == '~' || byte == ':' || byte == '%' ||
           byte == '/' || byte == '\\';
}

/// Whether a name is its own step, as most are.
bool IsPlainStep(std::string_view name) {
    return std::all_of(name.begin(), name.end(), [](const char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte < 0x80 && !IsEncoded(byte);
    });
}

} // namespace

std::string EncodedStep(std::string_view name) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string step;
    step.reserve(name.size());
    const bool isText = IsValidUtf8(name);
    for (std::size_t i = 0; i < name.size();) {
        const unsigned char byte = static_cast<unsigned char>(name[i]);
        const std::size_t length = isText || byte < 0x80 ? 1 : Utf8CharacterLength(name.substr(i));
        if (length == 0 || IsEncoded(byte)) {
            step += '%';
            step += digits[byte >> 4];
            step += digits[byte & 15];
            ++i;
        } else {
            step += name.substr(i, length);
            i += length;
        }
    }
    return step;
}

std::optional<SourceIndex> SourceIndexBuilder::Finish(const KeepGoing& keepGoing) {
    using Step = void (SourceIndexBuilder::*)();
    using Self = SourceIndexBuilder;
    for (const Step step :
         {&Self::MatchDefinitions, &Self::SettleCallableKinds, &Self::Compact, &Self::NameSteps,
          &Self::SettleNames, &Self::OrderChildren, &Self::FillNameTable}) {
        if (keepGoing && !keepGoing()) {
            return std::nullopt;
        }
        (this->*step)();
    }
    return std::move(mIndex);
}

// Names of files may be no text. The steps keep them apart, what is shown has to be readable; what
// only helped with the building goes.
void SourceIndexBuilder::SettleNames() {
    for (SourceIndex::Entity& entity : mIndex.mEntities) {
        const std::string_view name = mIndex.mStrings.View(entity.name);
        if (!IsPrintableUtf8(name)) {
            entity.name = mIndex.mStrings.Intern(PrintableUtf8(name));
        }
    }
    mIndex.mStrings.Freeze();
    mDrafts = {};
    mFirstOfName = {};
}

void SourceIndexBuilder::MatchDefinitions() {
    for (const auto& [key, first] : mFirstOfName) {
        if (mDrafts[first].nextOfName != SourceIndex::Nothing) {
            MatchDefinitionsOf(first);
        }
    }
}

// A definition may spell its types otherwise than the declaration does: "Foo::Kind" for "Kind". It
// belongs to the one declaration that is left over with the same bare types, or else with as many
// parameters.
void SourceIndexBuilder::MatchDefinitionsOf(Id first) {
    std::vector<Id> declarations, definitions;
    for (Id id = first; id != SourceIndex::Nothing; id = mDrafts[id].nextOfName) {
        const SourceIndex::Entity& entity = mIndex.mEntities[id];
        if (entity.language == SourceLanguage::Cpp && IsCallable(entity.kind)) {
            const Draft& draft = mDrafts[id];
            if (draft.hasForward && !draft.hasDefinition) {
                declarations.push_back(id);
            } else if (draft.hasDefinition && !draft.hasForward) {
                definitions.push_back(id);
            }
        }
    }
    const auto list = [&](Id id) {
        return ParameterList(mIndex.Signature(id), SourceLanguage::Cpp);
    };
    const auto matchBy = [&](auto&& feature) {
        if (declarations.empty() || definitions.empty()) {
            return;
        }
        std::map<decltype(feature(first)), std::pair<std::vector<Id>, std::vector<Id>>> alike;
        for (const Id id : declarations) {
            alike[feature(id)].first.push_back(id);
        }
        for (const Id id : definitions) {
            alike[feature(id)].second.push_back(id);
        }
        for (const auto& [ignored, pair] : alike) {
            if (pair.first.size() == 1 && pair.second.size() == 1) {
                MergeInto(pair.first.front(), pair.second.front());
            }
        }
        std::erase_if(declarations, [&](Id id) { return mDrafts[id].hasDefinition; });
        std::erase_if(definitions, [&](Id id) { return mDrafts[id].isGone; });
    };
    matchBy([&](Id id) { return list(id).BareTypesText(); });
    matchBy([&](Id id) {
        return std::pair(list(id).Parameters().size(), mIndex.Signature(id).ends_with("const"));
    });
}

void SourceIndexBuilder::MergeInto(Id entity, Id definition) {
    std::uint32_t* link = &mIndex.mEntities[entity].firstPlace;
    while (*link != SourceIndex::Nothing) {
        link = &mIndex.mPlaces[*link].next;
    }
    *link = mIndex.mEntities[definition].firstPlace;
    mDrafts[entity].hasDefinition = true;
    mDrafts[definition].isGone = true;
}

// Whether "void a::f() {}" is a method or a function shows only when a is known.
void SourceIndexBuilder::SettleCallableKinds() {
    for (SourceIndex::Entity& entity : mIndex.mEntities) {
        if (entity.language != SourceLanguage::Cpp ||
            (entity.kind != SourceKind::Function && entity.kind != SourceKind::Method)) {
            continue;
        }
        const SourceIndex::Entity& parent = mIndex.mEntities[entity.parent];
        const std::string_view parentName = mIndex.mStrings.View(parent.name);
        const std::string_view bareParent = parentName.substr(0, parentName.find('<'));
        if (!IsType(parent.kind)) {
            entity.kind = SourceKind::Function;
        } else {
            entity.kind = mIndex.mStrings.View(entity.name) == bareParent ? SourceKind::Constructor
                                                                          : SourceKind::Method;
        }
    }
}

void SourceIndexBuilder::Compact() {
    std::vector<Id> moved(mIndex.mEntities.size(), SourceIndex::Nothing);
    Id next = 0;
    for (Id id = 0; id < moved.size(); ++id) {
        if (!mDrafts[id].isGone) {
            moved[id] = next++;
        }
    }
    if (next == moved.size()) {
        return;
    }
    std::vector<Id> following(moved.size(), SourceIndex::Nothing);
    for (Id id = 0; id < moved.size(); ++id) {
        Id other = mDrafts[id].nextOfName;
        while (other != SourceIndex::Nothing && mDrafts[other].isGone) {
            other = mDrafts[other].nextOfName;
        }
        following[id] = other == SourceIndex::Nothing ? other : moved[other];
    }
    for (auto& [key, first] : mFirstOfName) {
        first = mDrafts[first].isGone ? following[first] : moved[first];
    }
    for (Id id = 0; id < moved.size(); ++id) {
        if (moved[id] != SourceIndex::Nothing) {
            SourceIndex::Entity& entity = mIndex.mEntities[moved[id]] = mIndex.mEntities[id];
            entity.parent =
                entity.parent == SourceIndex::Nothing ? entity.parent : moved[entity.parent];
            mDrafts[moved[id]] = mDrafts[id];
            mDrafts[moved[id]].nextOfName = following[id];
        }
    }
    mIndex.mEntities.resize(next);
    mDrafts.resize(next);
}

void SourceIndexBuilder::NameSteps() {
    for (const auto& [key, first] : mFirstOfName) {
        if (first == SourceIndex::Nothing) {
            continue;
        }
        if (mDrafts[first].nextOfName == SourceIndex::Nothing) {
            SourceIndex::Entity& entity = mIndex.mEntities[first];
            const std::string_view name = mIndex.Name(first);
            entity.step =
                IsPlainStep(name) ? entity.name : mIndex.mStrings.Intern(EncodedStep(name));
        } else {
            NameStepsOf(first);
        }
    }
}

std::string SourceIndexBuilder::Discriminator(Id id) const {
    const std::string_view trait = mIndex.Trait(id);
    return trait.empty() ? std::string(mIndex.mStrings.View(mDrafts[id].types))
                         : std::string("(").append(trait).append(")");
}

void SourceIndexBuilder::NameStepsOf(Id first) {
    std::vector<Id> ids;
    for (Id id = first; id != SourceIndex::Nothing; id = mDrafts[id].nextOfName) {
        ids.push_back(id);
    }
    const auto rank = [&](Id id) { return Rank(mIndex.Kind(id)); };
    std::stable_sort(ids.begin(), ids.end(), [&](Id a, Id b) {
        return std::pair(rank(a), mIndex.Kind(a)) < std::pair(rank(b), mIndex.Kind(b));
    });
    const auto callables =
        std::count_if(ids.begin(), ids.end(), [&](Id id) { return IsCallable(mIndex.Kind(id)); });
    std::vector<std::string> names;
    for (const Id id : ids) {
        std::string name(mIndex.Name(id));
        name += callables > 1 && IsCallable(mIndex.Kind(id)) ? Discriminator(id) : "";
        const bool isSameSort =
            rank(id) == rank(ids[0]) && (rank(id) == 3 || mIndex.Kind(id) == mIndex.Kind(ids[0]));
        if (!isSameSort) {
            name.append("[").append(mIndex.KindText(id)).append("]");
        }
        names.push_back(std::move(name));
    }
    // what is still alike differs in its template head, or is known to its own file only
    const auto addToDoubles = [&](auto&& addition) {
        std::map<std::string, int> counts;
        for (const std::string& name : names) {
            ++counts[name];
        }
        for (std::size_t i = 0; i < ids.size(); ++i) {
            if (counts[names[i]] > 1) {
                names[i] += addition(ids[i]);
            }
        }
    };
    addToDoubles([&](Id id) { return std::string(mIndex.Template(id)); });
    addToDoubles([&](Id id) {
        return mDrafts[id].localFile == SourceIndex::Nothing
                   ? std::string()
                   : std::string("@").append(
                         mIndex.mStrings.View(mIndex.mFiles[mDrafts[id].localFile]));
    });
    std::set<std::string> taken;
    std::map<std::string, int> numbers; ///< the last one that was tried
    for (std::size_t i = 0; i < ids.size(); ++i) {
        std::string name = names[i];
        for (int& number = numbers.try_emplace(name, 1).first->second;
             !taken.insert(name).second;) {
            name = names[i] + "[" + std::to_string(++number) + "]";
        }
        mIndex.mEntities[ids[i]].step = mIndex.mStrings.Intern(EncodedStep(name));
    }
}

void SourceIndexBuilder::OrderChildren() {
    auto& entities = mIndex.mEntities;
    using Position = std::tuple<std::uint32_t, std::uint32_t>;
    std::vector<Position> positions(entities.size(), Position(SourceIndex::Nothing, 0));
    for (Id id = 0; id < entities.size(); ++id) {
        if (entities[id].firstPlace == SourceIndex::Nothing) {
            continue;
        }
        const auto& place = mIndex.mPlaces[entities[id].firstPlace];
        const Position own(place.file, place.line);
        positions[id] = std::min(positions[id], own);
        // what has no place of its own stands where its first content stands
        for (Id up = entities[id].parent;
             up != SourceIndex::Nothing && entities[up].firstPlace == SourceIndex::Nothing &&
             own < positions[up];
             up = entities[up].parent) {
            positions[up] = own;
        }
    }
    std::vector<Id> ids(entities.size() - 1);
    std::iota(ids.begin(), ids.end(), Id{1});
    std::sort(ids.begin(), ids.end(), [&](Id a, Id b) {
        return std::tuple(entities[a].parent, positions[a], a) <
               std::tuple(entities[b].parent, positions[b], b);
    });
    for (std::uint32_t i = 0; i < ids.size(); ++i) {
        SourceIndex::Entity& parent = entities[entities[ids[i]].parent];
        parent.firstChild = parent.childCount++ == 0 ? i : parent.firstChild;
    }
    mIndex.mChildren = std::move(ids);
}

void SourceIndexBuilder::FillNameTable() {
    auto& entities = mIndex.mEntities;
    mIndex.mNames.assign(std::bit_ceil(entities.size() * 2), SourceIndex::Nothing);
    const std::size_t mask = mIndex.mNames.size() - 1;
    std::vector<std::uint64_t> hashes(entities.size());
    std::vector<Id> pending = {SourceIndex::Root};
    while (!pending.empty()) {
        const Id id = pending.back();
        pending.pop_back();
        const Id parent = entities[id].parent;
        hashes[id] = parent == SourceIndex::Nothing
                         ? SourceIndex::HashOf(mIndex.Step(id))
                         : SourceIndex::HashMore(SourceIndex::HashMore(hashes[parent], "~"),
                                                 mIndex.Step(id));
        std::size_t slot = (hashes[id] ^ (hashes[id] >> 32)) & mask;
        while (mIndex.mNames[slot] != SourceIndex::Nothing) {
            slot = (slot + 1) & mask;
        }
        mIndex.mNames[slot] = id;
        const auto children = mIndex.Children(id);
        pending.insert(pending.end(), children.begin(), children.end());
    }
}

} // namespace paperkite
