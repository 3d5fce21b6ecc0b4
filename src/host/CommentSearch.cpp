#include "host/CommentSearch.h"

#include "commenttexts/CommentProse.h"
#include "host/TagName.h"

#include <algorithm>

namespace paperkite {

namespace {

SearchOptions InSource(SearchOptions options) {
    options.SearchInHTML = true;
    return options;
}

} // namespace

CommentSearch::CommentSearch(const SearchOptions& options)
    : mSearch(options), mPlainSearch(InSource(options)) {}

const HtmlSearch& CommentSearch::SearchIn(const TaggedComment& comment) const {
    const CommentForm form =
        CommentProse::FormOfText(comment.GetTaggedCommentDef().get(), comment.GetWrittenText());
    return CommentProse::IsHtml(form) ? mSearch : mPlainSearch;
}

void CommentSearch::Add(const std::string& item, const TaggedComment& comment,
                        std::vector<Hit>& hits) const {
    const HtmlSearch& search = SearchIn(comment);
    const HtmlText text(comment.GetWrittenText());
    const bool isSource = search.GetOptions().SearchInHTML;
    const std::string& shown = isSource ? comment.GetWrittenText() : text.GetText();
    for (const HtmlSearch::Hit& place : search.Find(text))
        hits.push_back({item, comment.GetId(), comment.GetTagIdentifier(), TagNameOf(comment),
                        TextContext::Of(shown, place.From, place.To), place});
}

std::vector<CommentSearch::Hit> CommentSearch::Find(const CommentStore& store) const {
    std::vector<Hit> hits;
    store.ForEach([&](const std::string& item, const TaggedComment& comment) {
        if (mSearch.MayBeIn(comment.GetWrittenText())) Add(item, comment, hits);
    });
    std::stable_sort(hits.begin(), hits.end(),
                     [](const Hit& left, const Hit& right) { return left.Item < right.Item; });
    return hits;
}

TextChanges::Changes CommentSearch::Plan(const CommentStore& store, const std::vector<Hit>& hits,
                                         const std::string& replacement) const {
    TextChanges::Changes changes;
    for (auto hit = hits.begin(); hit != hits.end();) {
        auto behind = hit;
        std::vector<HtmlSearch::Hit> wanted;
        for (; behind != hits.end() && behind->Item == hit->Item &&
               behind->CommentId == hit->CommentId;
             ++behind)
            wanted.push_back(behind->Place);
        const auto comments = store.Find(hit->Item);
        if (comments && comments->Contains(hit->CommentId)) {
            const auto comment = comments->Item(hit->CommentId);
            const HtmlSearch& search = SearchIn(*comment);
            const std::string& text = comment->GetWrittenText();
            const auto present = search.Find(std::string_view(text));
            std::erase_if(wanted, [&](const HtmlSearch::Hit& place) {
                return std::find(present.begin(), present.end(), place) == present.end();
            });
            std::string after = search.Replace(text, wanted, replacement);
            if (after != text)
                changes.push_back({hit->Item, hit->CommentId, text, std::move(after)});
        }
        hit = behind;
    }
    return changes;
}

} // namespace paperkite
