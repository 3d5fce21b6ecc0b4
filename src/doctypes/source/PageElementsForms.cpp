#include "commenttexts/CommentForm.h"
#include "commenttexts/CommentsFromChain.h"
#include "commenttexts/KeywordList.h"
#include "commenttexts/MenuPath.h"
#include "commenttexts/PlainText.h"
#include "doctypes/source/PageElements.h"
#include "doctypes/source/PageHtml.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

using PageHtml::Escaped;

/// Comments of a form on an item, tombstones left out.
std::vector<Ref<TaggedComment>> OfForm(const SourceNamespaceProvider& provider,
                                       const std::string& qualifiedName, CommentForm form) {
    std::vector<Ref<TaggedComment>> found;
    const auto all = provider.GetComments()->Find(qualifiedName);
    if (!all) return found;
    for (const auto& comment : *all)
        if (comment->GetState() != kTaggedCommentTombstone &&
            FormOf(comment->GetTaggedCommentDef()) == form)
            found.push_back(comment);
    return found;
}

std::string MenuText(const TaggedComment& comment) {
    const auto path = MenuPath::Read(comment.GetText());
    if (!path) return comment.GetText();
    std::string out = "<p class=\"menupath\">" + Escaped(Join(path->Steps, " › "));
    if (!path->Keys.empty())
        out += (path->Steps.empty() ? "<kbd>" : " <kbd>") + Escaped(path->Keys) + "</kbd>";
    return out + "</p>";
}

} // namespace

/// What a page shows of a comment whose text is no HTML. A text that is not in its form goes out as
/// it is.
std::string PageElements::FormText(const TaggedComment& comment) const {
    const std::string& text = comment.GetText();
    switch (FormOf(comment.GetTaggedCommentDef())) {
    case CommentForm::IsNew: {
        const std::string version = PlainText::OneLine(text);
        return Escaped(version.empty() ? Phrase("New") : Phrase("New in") + " " + version);
    }
    case CommentForm::IsExample:
        return ExampleNoteText(comment);
    case CommentForm::ExampleSource:
        return ExampleText(comment);
    case CommentForm::MenuItem:
        return MenuText(comment);
    case CommentForm::Xml:
        return "<pre class=\"xml\"><code>" + Escaped(text) + "</code></pre>";
    case CommentForm::Html:
    case CommentForm::Keywords:
    case CommentForm::CommentsFrom:
    case CommentForm::SubItems:
        break;
    }
    return text;
}

/// For the head of a page.
std::string PageElements::KeywordsOf(const std::string& qualifiedName) const {
    std::vector<std::string> all;
    for (const auto& comment : CommentsOf(qualifiedName, "##keywords")) {
        const auto list = KeywordList::Read(comment->GetText());
        if (!list) continue;
        for (const std::string& keyword : list->GetKeywords())
            all.push_back(Join(KeywordList::Levels(keyword), " "));
    }
    return Join(all, ", ");
}

/// The name of the item whose comments count for this one too, or an empty text.
std::string PageElements::TakenFrom(const std::string& qualifiedName) const {
    const auto found = OfForm(*mProvider, qualifiedName, CommentForm::CommentsFrom);
    return found.empty() ? std::string() : PlainText::OneLine(found.front()->GetText());
}

std::vector<std::string> PageElements::SourcesOf(const std::string& qualifiedName) const {
    return CommentsFromChain::Follow(qualifiedName, TakenFrom(qualifiedName),
                                     [this](const std::string& name) { return TakenFrom(name); })
        .Names;
}

} // namespace paperkite
