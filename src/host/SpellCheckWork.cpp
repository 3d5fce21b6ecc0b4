#include "host/SpellCheckWork.h"

#include "foundation/HtmlText.h"
#include "foundation/SpellWords.h"
#include "host/TagName.h"

namespace paperkite {

namespace {

bool IsAtOrBelow(const std::string& name, const std::string& item) {
    return item.empty() || name == item || name.starts_with(item + "~");
}

} // namespace

void SpellCheckWork::CheckComment(const std::string& item, const TaggedComment& comment,
                                  std::vector<Finding>& findings) {
    const HtmlText text(comment.GetWrittenText());
    for (const auto& word : SpellWords::FindMisspelt(text, mEngine))
        findings.push_back({item, comment.GetId(), comment.GetTagIdentifier(), TagNameOf(comment),
                            word.Word, TextContext::Of(text.GetText(), word.From, word.To),
                            word.From, word.To});
}

std::vector<SpellCheckWork::Finding>
SpellCheckWork::Check(const CommentStore& store, const std::string& item, const GoOn& goOn) {
    std::vector<Finding> findings;
    const std::vector<std::string> names = store.QualifiedNames();
    std::size_t done = 0;
    for (const std::string& name : names) {
        if (goOn && !goOn(done, names.size())) return {};
        ++done;
        if (!IsAtOrBelow(name, item)) continue;
        for (const auto& comment : *store.Find(name))
            if (comment->GetState() != kTaggedCommentTombstone)
                CheckComment(name, *comment, findings);
    }
    return findings;
}

TextChanges::Changes SpellCheckWork::Plan(const CommentStore& store, const Finding& finding,
                                          const std::string& replacement) {
    const auto comments = store.Find(finding.Item);
    if (!comments || !comments->Contains(finding.CommentId)) return {};
    const std::string& html = comments->Item(finding.CommentId)->GetText();
    const HtmlText text(html);
    for (const auto& word : SpellWords::FindMisspelt(text, mEngine))
        if (word.From == finding.From && word.Word == finding.Word)
            return {{finding.Item, finding.CommentId, html,
                     text.Replaced({{word.From, word.To}}, replacement)}};
    return {};
}

} // namespace paperkite
