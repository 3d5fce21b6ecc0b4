#pragma once

#include "doctypes/source/ParameterList.h"
#include "doctypes/source/SourceKind.h"
#include "doctypes/source/StringPool.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Where an entity stands. Lines count from 1; EndLine is at least Line.
struct SourcePlace {
    std::string_view File; ///< relative to the project's folder; empty when it stands nowhere
    std::uint32_t Line = 0;
    std::uint32_t EndLine = 0;
    bool IsForward = false; ///< a prototype or an extern declaration
};

/// Everything that a scan found, as a tree below the project. Read-only and self-contained: views
/// that it hands out live as long as the index.
///
/// An entity is a number; the project is number 0. A qualified name joins the steps from the
/// project down with "~", the first being the project's name: "leveldb~DB~Get". Each leading run of
/// steps is the qualified name of an entity. In a step the characters ~ : % / \ and control
/// characters are percent-encoded. Overloads have their parameter types behind the name,
/// "Get(const Slice&)", and what shares its name with something of another kind has its own kind
/// behind it, "size[Field]". No name depends on lines.
///
///     if (auto db = index.Find("leveldb~DB")) {
///         for (SourceIndex::Id member : index.Children(*db)) { ... index.Name(member) ... }
///     }
class SourceIndex {
public:
    using Id = std::uint32_t;
    static constexpr Id Root = 0;
    static constexpr Id Nothing = 0xFFFFFFFF;

    SourceIndex(SourceIndex&&) = default;
    SourceIndex& operator=(SourceIndex&&) = default;

    /// The same in memory of its own.
    SourceIndex Copy() const;

    std::size_t Size() const { return mEntities.size(); }

    /// In constant time, whatever the size of the index.
    std::optional<Id> Find(std::string_view qualifiedName) const;

    std::string QualifiedName(Id entity) const;

    std::string_view Name(Id entity) const { return mStrings.View(At(entity).name); }

    std::string_view Step(Id entity) const { return mStrings.View(At(entity).step); }

    SourceKind Kind(Id entity) const { return At(entity).kind; }

    std::string_view KindText(Id entity) const; ///< for Other the word that ctags has

    SourceLanguage Language(Id entity) const { return At(entity).language; }

    std::string_view LanguageName(Id entity) const {
        return mStrings.View(At(entity).languageName);
    }

    SourceAccess Access(Id entity) const { return At(entity).access; }

    std::string_view Signature(Id entity) const { return mStrings.View(At(entity).signature); }

    std::string_view Type(Id entity) const { return mStrings.View(At(entity).type); }

    std::string_view Inherits(Id entity) const { return mStrings.View(At(entity).inherits); }

    std::string_view Template(Id entity) const { return mStrings.View(At(entity).templateText); }

    std::string_view Trait(Id entity) const { return mStrings.View(At(entity).trait); }

    std::vector<SourceParameter> Parameters(Id entity) const;

    Id Parent(Id entity) const { return At(entity).parent; } ///< Nothing for the project

    /// In the order of the source.
    std::span<const Id> Children(Id entity) const;

    /// The place that stands for the entity: its declaration where there is one. An empty place for
    /// the project and for what only the scopes of others mention.
    SourcePlace Place(Id entity) const;
    /// All places, declarations before definitions.
    std::vector<SourcePlace> Places(Id entity) const;

private:
    friend class SourceIndexBuilder;
    friend class SourceIndexStorage;
    SourceIndex() = default;

    using Text = StringPool::Id;

    struct StoredPlace {
        std::uint32_t file;
        std::uint32_t line;
        std::uint32_t endLine : 31;
        std::uint32_t isForward : 1;
        std::uint32_t next; ///< in mPlaces, or Nothing
    };

    struct Entity {
        Text name = 0, step = 0, signature = 0, type = 0, inherits = 0, templateText = 0;
        Text trait = 0, otherKind = 0, languageName = 0;
        Id parent = Nothing;
        std::uint32_t firstChild = 0, childCount = 0; ///< in mChildren
        std::uint32_t firstPlace = Nothing;           ///< in mPlaces
        SourceKind kind = SourceKind::Other;
        SourceLanguage language = SourceLanguage::Other;
        SourceAccess access = SourceAccess::Public;
        std::uint8_t unused = 0; ///< no byte is left to chance, as entities are stored as they are
    };

    static std::uint64_t HashMore(std::uint64_t hash, std::string_view text);
    static std::uint64_t HashOf(std::string_view qualifiedName);

    const Entity& At(Id entity) const { return mEntities[entity]; }

    bool IsNamed(Id entity, std::string_view qualifiedName) const;
    SourcePlace PlaceOf(const StoredPlace& stored) const;

    StringPool mStrings;
    std::vector<Text> mFiles;
    std::vector<Entity> mEntities;
    std::vector<Id> mChildren;
    std::vector<StoredPlace> mPlaces;
    std::vector<Id> mNames; ///< open hash table over the qualified names, a power of two
};

} // namespace paperkite
