#include "doctypes/source/TypeRelations.h"

#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

/// No type of real code has as many namesakes; without a limit generated code could take long.
constexpr std::size_t kMostNamesakes = 64;

/// The name without template arguments, as steps.
std::vector<std::string> StepsOf(std::string_view name) {
    std::string bare;
    int depth = 0;
    for (const char character : name) {
        if (character == '<' || character == '[' || character == '(') ++depth;
        if (depth == 0) bare += character;
        if (character == '>' || character == ']' || character == ')') --depth;
    }
    bare = ReplaceAll(ReplaceAll(TrimWhiteSpace(bare), "::", "."), "\\", ".");
    auto steps = Split(bare, ".");
    std::erase(steps, std::string());
    return steps;
}

bool MayBeBase(SourceKind kind) {
    return IsType(kind) || kind == SourceKind::Typedef;
}

} // namespace

TypeRelations::TypeRelations(const SourceIndex& index) : mIndex(index) {
    for (Id entity = 1; entity < index.Size(); ++entity)
        if (MayBeBase(index.Kind(entity))) mByName[index.Name(entity)].push_back(entity);
    for (Id entity = 1; entity < index.Size(); ++entity) {
        if (!IsType(index.Kind(entity)) || index.Inherits(entity).empty()) continue;
        for (const std::string_view part : SplitTopLevel(index.Inherits(entity), ',')) {
            const std::string name(Trimmed(part));
            if (name.empty()) continue;
            const Id base = Find(entity, name);
            mBases[entity].push_back({name, base});
            if (base != SourceIndex::Nothing) mDerived[base].push_back(entity);
        }
    }
}

const std::vector<TypeRelations::Base>& TypeRelations::BasesOf(Id type) const {
    static const std::vector<Base> none;
    const auto found = mBases.find(type);
    return found == mBases.end() ? none : found->second;
}

const std::vector<TypeRelations::Id>& TypeRelations::DerivedFrom(Id type) const {
    static const std::vector<Id> none;
    const auto found = mDerived.find(type);
    return found == mDerived.end() ? none : found->second;
}

TypeRelations::Id TypeRelations::Find(Id type, std::string_view name) const {
    const auto steps = StepsOf(name);
    if (steps.empty()) return SourceIndex::Nothing;
    const auto found = mByName.find(steps.back());
    if (found == mByName.end()) return SourceIndex::Nothing;
    Id best = SourceIndex::Nothing;
    std::size_t most = 0;
    for (std::size_t at = 0; at < std::min(found->second.size(), kMostNamesakes); ++at) {
        const Id candidate = found->second[at];
        const std::size_t likeness = candidate == type ? 0 : Likeness(type, candidate, steps);
        if (likeness > most) {
            most = likeness;
            best = candidate;
        }
    }
    return best;
}

/// 0 for a candidate of another language.
std::size_t TypeRelations::Likeness(Id type, Id candidate,
                                    const std::vector<std::string>& steps) const {
    if (mIndex.Language(candidate) != mIndex.Language(type)) return 0;
    constexpr std::size_t kNamedStep = 1000;
    std::size_t likeness = 1;
    Id scope = mIndex.Parent(candidate);
    for (std::size_t step = steps.size() - 1; step-- > 0 && scope != SourceIndex::Nothing;) {
        if (mIndex.Name(scope) != steps[step]) break;
        likeness += kNamedStep;
        scope = mIndex.Parent(scope);
    }
    std::vector<Id> around;
    for (Id at = type; at != SourceIndex::Nothing; at = mIndex.Parent(at))
        around.push_back(at);
    for (Id at = mIndex.Parent(candidate); at != SourceIndex::Nothing; at = mIndex.Parent(at)) {
        const auto common = std::find(around.begin(), around.end(), at);
        if (common == around.end()) continue;
        return likeness + static_cast<std::size_t>(around.end() - common);
    }
    return likeness;
}

} // namespace paperkite
