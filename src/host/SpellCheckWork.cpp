#include "host/SpellCheckWork.h"

#include "commenttexts/CommentProse.h"
#include "foundation/HtmlText.h"
#include "foundation/SpellWords.h"
#include "host/TagName.h"

#include <utility>

namespace paperkite {

namespace {

bool IsAtOrBelow(const std::string& name, const std::string& item) {
    return item.empty() || name == item || name.starts_with(item + "~");
}

CommentForm FormOfComment(const TaggedComment& comment) {
    return CommentProse::FormOfText(comment.GetTaggedCommentDef().get(), comment.GetWrittenText());
}

bool IsThere(const std::string& text, const SpellCheckWork::Finding& finding) {
    return finding.To <= text.size() &&
           text.compare(finding.From, finding.To - finding.From, finding.Found) == 0;
}

} // namespace

void SpellCheckWork::CheckComment(const std::string& item, const TaggedComment& comment,
                                  std::vector<Finding>& findings) {
    const std::string& written = comment.GetWrittenText();
    const auto add = [&](const std::string& text, std::size_t from, std::size_t to,
                         const std::string& word) {
        findings.push_back({item, comment.GetId(), comment.GetTagIdentifier(), TagNameOf(comment),
                            word, TextContext::Of(text, from, to), from, to,
                            text.substr(from, to - from)});
    };
    const CommentForm form = FormOfComment(comment);
    if (CommentProse::IsHtml(form)) {
        const HtmlText text(written);
        for (const auto& word : SpellWords::FindMisspelt(text, mEngine))
            add(text.GetText(), word.From, word.To, word.Word);
        return;
    }
    for (const auto& prose : CommentProse::StretchesOf(form, written)) {
        const auto part = std::string_view(written).substr(prose.From, prose.To - prose.From);
        for (const auto& word : SpellWords::FindMisspelt(part, mEngine))
            add(written, prose.From + word.From, prose.From + word.To, word.Word);
    }
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
    const auto comment = comments->Item(finding.CommentId);
    const std::string& written = comment->GetWrittenText();
    std::string after;
    if (CommentProse::IsHtml(FormOfComment(*comment))) {
        const HtmlText text(written);
        if (!IsThere(text.GetText(), finding)) return {};
        after = text.Replaced({{finding.From, finding.To}}, replacement);
    } else {
        if (!IsThere(written, finding)) return {};
        after = std::string(written).replace(finding.From, finding.Found.size(), replacement);
    }
    return {{finding.Item, finding.CommentId, written, std::move(after)}};
}

} // namespace paperkite
