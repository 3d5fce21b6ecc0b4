#include "model/CommentPipeModel.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace paperkite {

namespace {

std::unordered_map<std::string, std::size_t> DefinitionRanks() {
    std::unordered_map<std::string, std::size_t> ranks;
    std::size_t rank = 1;
    for (const auto& definition : *GlobalConfig().TaggedCommentDefs)
        ranks.emplace(LowerCase(definition->TagIdentifier), definition->IsGeneral ? 0 : rank++);
    return ranks;
}

template <class KeyOf>
Ref<TaggedCommentCollection> Ordered(const TaggedCommentCollection& comments, const KeyOf& keyOf) {
    std::vector<Ref<TaggedComment>> sorted(comments.begin(), comments.end());
    std::stable_sort(sorted.begin(), sorted.end(), [&](const auto& left, const auto& right) {
        return keyOf(*left) < keyOf(*right);
    });
    auto result = MakeRef<TaggedCommentCollection>();
    for (const auto& comment : sorted)
        result->Add(comment, comment->GetId());
    return result;
}

} // namespace

Ref<TaggedCommentCollection>
CommentPipeModel::Consolidate(const Ref<TaggedCommentCollection>& comments) {
    const auto ranks = DefinitionRanks();
    const auto rankOf = [&ranks](const TaggedComment& comment) {
        if (comment.GetTagIdentifier() == "##") return std::size_t{0};
        const auto found = ranks.find(LowerCase(comment.GetTagIdentifier()));
        return found == ranks.end() ? ranks.size() + 1 : found->second;
    };
    auto result = Ordered(*comments, rankOf);
    result->SetConsolidated(true);
    return result;
}

Ref<TaggedCommentCollection>
CommentPipeModel::Separate(const Ref<TaggedCommentCollection>& comments) {
    return Ordered(*comments,
                   [](const TaggedComment& comment) { return comment.GetTagIdentifier(); });
}

} // namespace paperkite
