#include "doctypes/source/NameQuestion.h"

#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

std::string WithoutBlanks(std::string_view text) {
    std::string out = LowerCase(text);
    std::erase_if(out, [](char letter) { return letter == ' ' || letter == '\t'; });
    return out;
}

/// The length of a separator that stands there; 0 for none.
std::size_t SeparatorAt(std::string_view text, std::size_t at) {
    if (text.substr(at).starts_with("::")) return 2;
    return text[at] == '~' || text[at] == '.' ? 1 : 0;
}

std::string Spelt(std::string_view step) {
    return ReplaceAllIgnoringCase(std::string(step), "%3A", ":");
}

/// Answers for one entity after the other; those of one scope stand together.
class QuestionFilter {
public:
    QuestionFilter(const NameQuestion& question,
                   const std::function<const SourceIndex&(std::size_t)>& indexes)
        : mQuestion(question), mIndexes(indexes) {}

    bool operator()(const NameSearch::Place& place) {
        if (!mIndex || place.Root != mRoot) {
            mIndex = &mIndexes(place.Root);
            mRoot = place.Root;
            mScope = SourceIndex::Nothing;
        }
        if (!mQuestion.Scopes.empty() && !IsInScope(place.Entity)) return false;
        return mQuestion.Parameters.empty() || mQuestion.HasParameters(*mIndex, place.Entity);
    }

private:
    bool IsInScope(SourceIndex::Id entity) {
        const SourceIndex::Id scope = mIndex->Parent(entity);
        if (scope == SourceIndex::Nothing) return false;
        if (scope != mScope) mIsMeant = mQuestion.IsIn(*mIndex, entity);
        mScope = scope;
        return mIsMeant;
    }

    const NameQuestion& mQuestion;
    const std::function<const SourceIndex&(std::size_t)>& mIndexes;
    const SourceIndex* mIndex = nullptr;
    std::size_t mRoot = 0;
    SourceIndex::Id mScope = SourceIndex::Nothing;
    bool mIsMeant = false;
};

} // namespace

NameQuestion NameQuestion::Of(std::string_view text) {
    NameQuestion question;
    const std::size_t open = std::min(text.find('('), text.size());
    question.Parameters = WithoutBlanks(text.substr(open));
    // So people write of a callable, whatever it takes.
    if (question.Parameters == "(" || question.Parameters == "()") question.Parameters.clear();
    std::size_t from = 0;
    for (std::size_t at = 0; at < open;) {
        const std::size_t length = SeparatorAt(text.substr(0, open), at);
        if (length > 0 && at > from)
            question.Scopes.push_back(LowerCase(TrimWhiteSpace(text.substr(from, at - from))));
        if (length > 0) from = at + length;
        at += std::max<std::size_t>(length, 1);
    }
    question.Name = TrimWhiteSpace(text.substr(from, open - from));
    return question;
}

bool NameQuestion::IsIn(const SourceIndex& index, SourceIndex::Id entity) const {
    std::size_t left = Scopes.size();
    for (SourceIndex::Id scope = index.Parent(entity); left > 0 && scope != SourceIndex::Nothing;
         scope = index.Parent(scope))
        if (FindIgnoringCase(index.Name(scope), Scopes[left - 1]) != std::string::npos) --left;
    return left == 0;
}

bool NameQuestion::HasParameters(const SourceIndex& index, SourceIndex::Id entity) const {
    if (WithoutBlanks(index.Signature(entity)).starts_with(Parameters)) return true;
    // As the tree shows overloads: types alone.
    const std::string_view step = index.Step(entity);
    const std::size_t open = step.find('(');
    return open != std::string_view::npos &&
           WithoutBlanks(Spelt(step.substr(open))).starts_with(Parameters);
}

std::vector<NameSearch::Place>
FindByQuestion(const NameSearch& names,
               const std::function<const SourceIndex&(std::size_t root)>& indexes,
               std::string_view text, std::size_t most) {
    std::vector<NameSearch::Place> found = names.Find(text, most);
    const NameQuestion question = NameQuestion::Of(text);
    if (found.size() >= most || question.IsEmpty() || question.Name == text) return found;
    // Scopes that nothing bears would have each name looked at for nothing.
    for (const std::string& scope : question.Scopes)
        if (!names.Holds(scope)) return found;
    for (const NameSearch::Place& place :
         names.Find(question.Name, most, QuestionFilter(question, indexes)))
        if (found.size() < most && std::find(found.begin(), found.end(), place) == found.end())
            found.push_back(place);
    return found;
}

} // namespace paperkite
