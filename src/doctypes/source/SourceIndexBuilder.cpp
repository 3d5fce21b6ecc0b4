#include "doctypes/source/SourceIndexBuilder.h"

#include <algorithm>
#include <tuple>

namespace paperkite {

namespace {

bool HasOverloads(SourceLanguage language) {
    return language == SourceLanguage::Cpp || language == SourceLanguage::CSharp ||
           language == SourceLanguage::Java || language == SourceLanguage::TypeScript ||
           language == SourceLanguage::Other;
}

bool IsClassLike(SourceKind kind) {
    return kind == SourceKind::Class || kind == SourceKind::Struct;
}

// Go's types may be named numbers and have methods all the same
bool IsContainer(SourceKind kind) {
    return IsGroup(kind) || IsType(kind) || kind == SourceKind::Typedef;
}

} // namespace

SourceIndexBuilder::SourceIndexBuilder(std::string_view projectName) {
    Create(SourceIndex::Nothing, mIndex.mStrings.Intern(projectName), SourceKind::Project);
}

std::uint32_t SourceIndexBuilder::AddFile(std::string_view relativePath) {
    mIndex.mFiles.push_back(mIndex.mStrings.Intern(relativePath));
    return static_cast<std::uint32_t>(mIndex.mFiles.size() - 1);
}

SourceIndexBuilder::Id SourceIndexBuilder::Create(Id parent, Text name, SourceKind kind) {
    const Id id = static_cast<Id>(mIndex.mEntities.size());
    SourceIndex::Entity entity;
    entity.name = name;
    entity.parent = parent;
    entity.kind = kind;
    mIndex.mEntities.push_back(entity);
    mDrafts.emplace_back();
    // behind the first one, so that the first of a name is always the oldest
    const auto [at, isNew] = mFirstOfName.try_emplace(Key(parent, name), id);
    if (!isNew) {
        mDrafts[id].nextOfName = mDrafts[at->second].nextOfName;
        mDrafts[at->second].nextOfName = id;
    }
    return id;
}

SourceIndexBuilder::Id SourceIndexBuilder::FirstOfName(Id parent, Text name) const {
    const auto at = mFirstOfName.find(Key(parent, name));
    return at == mFirstOfName.end() ? SourceIndex::Nothing : at->second;
}

bool SourceIndexBuilder::IsOfFile(Id entity, std::uint32_t file) const {
    return mDrafts[entity].localFile == SourceIndex::Nothing || mDrafts[entity].localFile == file;
}

SourceIndexBuilder::Id SourceIndexBuilder::Container(const SourceDeclaration& declaration) {
    Id at = SourceIndex::Root;
    for (const ScopeStep& step : declaration.Scope) {
        at = ContainerStep(at, step, declaration);
    }
    return at;
}

SourceIndexBuilder::Id SourceIndexBuilder::ContainerStep(Id parent, const ScopeStep& step,
                                                         const SourceDeclaration& declaration) {
    const Text name = mIndex.mStrings.Intern(step.Name);
    Id other = SourceIndex::Nothing;
    for (Id id = FirstOfName(parent, name); id != SourceIndex::Nothing;
         id = mDrafts[id].nextOfName) {
        const SourceKind kind = mIndex.mEntities[id].kind;
        if (kind == step.Kind && IsOfFile(id, declaration.File)) {
            return id;
        }
        if (IsContainer(kind) && IsOfFile(id, declaration.File)) {
            other = id;
        }
    }
    if (other != SourceIndex::Nothing) {
        return other;
    }
    const Id id = Create(parent, name, step.Kind);
    mDrafts[id].isImplied = true;
    mIndex.mEntities[id].language = declaration.Language;
    mIndex.mEntities[id].languageName = mIndex.mStrings.Intern(declaration.LanguageName);
    return id;
}

bool SourceIndexBuilder::IsSameCallable(Id entity, const SourceDeclaration& declaration,
                                        Text types) const {
    const SourceIndex::Entity& known = mIndex.mEntities[entity];
    if (known.language == SourceLanguage::Rust) {
        return mIndex.mStrings.View(known.trait) == declaration.Trait;
    }
    if (!HasOverloads(declaration.Language)) {
        return true;
    }
    if (mDrafts[entity].types != types) {
        return false;
    }
    const bool isAnotherOfItsKind =
        declaration.IsForward ? mDrafts[entity].hasForward : mDrafts[entity].hasDefinition;
    return !isAnotherOfItsKind || mIndex.mStrings.View(known.templateText) == declaration.Template;
}

SourceIndexBuilder::Id SourceIndexBuilder::FindSame(Id parent, Text name,
                                                    const SourceDeclaration& declaration,
                                                    Text types) const {
    for (Id id = FirstOfName(parent, name); id != SourceIndex::Nothing;
         id = mDrafts[id].nextOfName) {
        const SourceIndex::Entity& known = mIndex.mEntities[id];
        const bool isLocal = mDrafts[id].localFile != SourceIndex::Nothing;
        if ((isLocal || declaration.IsFileLocal) &&
            !(mDrafts[id].localFile == declaration.File ||
              (known.firstPlace != SourceIndex::Nothing &&
               mIndex.mPlaces[known.firstPlace].file == declaration.File))) {
            continue;
        }
        if (IsCallable(known.kind) && IsCallable(declaration.Kind)) {
            if (IsSameCallable(id, declaration, types)) {
                return id;
            }
        } else if ((mDrafts[id].isImplied && IsContainer(declaration.Kind)) ||
                   (IsGroup(known.kind) && IsGroup(declaration.Kind)) ||
                   (IsClassLike(known.kind) && IsClassLike(declaration.Kind)) ||
                   (known.kind == declaration.Kind &&
                    mIndex.mStrings.View(known.otherKind) == declaration.OtherKind)) {
            return id;
        }
    }
    return SourceIndex::Nothing;
}

SourceIndexBuilder::Text SourceIndexBuilder::TypesOf(const SourceDeclaration& declaration) {
    if (!IsCallable(declaration.Kind)) {
        return 0;
    }
    return mIndex.mStrings.Intern(
        declaration.Types.empty()
            ? ParameterList(declaration.Signature, declaration.Language).TypesText()
            : declaration.Types);
}

void SourceIndexBuilder::Add(const SourceDeclaration& declaration) {
    StringPool& strings = mIndex.mStrings;
    const Id parent = Container(declaration);
    const Text name = strings.Intern(declaration.Name);
    const Text types = TypesOf(declaration);
    Id id = FindSame(parent, name, declaration, types);
    const bool isNew = id == SourceIndex::Nothing;
    if (isNew) {
        id = Create(parent, name, declaration.Kind);
        mDrafts[id].types = types;
        mDrafts[id].localFile = declaration.IsFileLocal ? declaration.File : SourceIndex::Nothing;
    }
    const bool isBetter = declaration.IsForward && !mDrafts[id].hasForward;
    if (isNew || isBetter || mDrafts[id].isImplied) {
        TakeFacts(id, declaration);
    }
    SourceIndex::Entity& entity = mIndex.mEntities[id];
    const auto fillIn = [&](Text& text, const std::string& value) {
        text = text == 0 ? strings.Intern(value) : text;
    };
    fillIn(entity.type, declaration.Type);
    fillIn(entity.inherits, declaration.Inherits);
    fillIn(entity.templateText, declaration.Template);
    AddPlace(id, declaration);
}

void SourceIndexBuilder::TakeFacts(Id id, const SourceDeclaration& declaration) {
    StringPool& strings = mIndex.mStrings;
    SourceIndex::Entity& entity = mIndex.mEntities[id];
    const bool knowsAccess = entity.firstPlace == SourceIndex::Nothing || declaration.HasAccess;
    entity.access = knowsAccess ? declaration.Access : entity.access;
    entity.kind = declaration.Kind;
    entity.language = declaration.Language;
    entity.languageName = strings.Intern(declaration.LanguageName);
    entity.otherKind = strings.Intern(declaration.OtherKind);
    entity.signature = strings.Intern(declaration.Signature);
    entity.type = strings.Intern(declaration.Type);
    entity.trait = strings.Intern(declaration.Trait);
    mDrafts[id].isImplied = false;
    mDrafts[id].types = TypesOf(declaration);
}

void SourceIndexBuilder::AddPlace(Id id, const SourceDeclaration& declaration) {
    auto& places = mIndex.mPlaces;
    SourceIndex::Entity& entity = mIndex.mEntities[id];
    bool& hasPlace = declaration.IsForward ? mDrafts[id].hasForward : mDrafts[id].hasDefinition;
    hasPlace = true;
    const std::uint32_t added = static_cast<std::uint32_t>(places.size());
    SourceIndex::StoredPlace place = {};
    place.file = declaration.File;
    place.line = declaration.Line;
    place.endLine = declaration.EndLine & 0x7FFFFFFF;
    place.isForward = declaration.IsForward;
    place.next = SourceIndex::Nothing;
    // declarations stand before definitions, each in the order of the files
    const auto isBefore = [](const auto& a, const auto& b) {
        return std::tuple(!a.isForward, a.file, a.line) < std::tuple(!b.isForward, b.file, b.line);
    };
    // files come in order, so that most places go to the end: no walk through a group's thousands
    std::uint32_t& last = mDrafts[id].lastPlace;
    if (last != SourceIndex::Nothing && places[last].file == place.file &&
        places[last].line == place.line) {
        return;
    }
    const bool goesLast = last != SourceIndex::Nothing && !isBefore(place, places[last]);
    std::uint32_t* link = goesLast ? &places[last].next : &entity.firstPlace;
    while (*link != SourceIndex::Nothing && !isBefore(place, places[*link])) {
        link = &places[*link].next;
    }
    place.next = *link;
    *link = added;
    last = place.next == SourceIndex::Nothing ? added : last;
    places.push_back(place);
}

} // namespace paperkite
