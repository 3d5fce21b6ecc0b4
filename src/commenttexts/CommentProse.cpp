#include "commenttexts/CommentProse.h"

#include "commenttexts/ExampleNote.h"
#include "commenttexts/ExampleReference.h"
#include "commenttexts/MenuPath.h"
#include "commenttexts/PlainText.h"

#include <algorithm>

namespace paperkite::CommentProse {

namespace {

bool IsIn(CommentForm form, std::string_view text) {
    switch (form) {
    case CommentForm::Html:
    case CommentForm::SubItems:
    case CommentForm::Xml:
        return true;
    case CommentForm::Keywords:
    case CommentForm::IsNew:
    case CommentForm::CommentsFrom:
        return PlainText::IsPlain(text);
    case CommentForm::IsExample:
        return ExampleNote::Read(text).has_value();
    case CommentForm::ExampleSource:
        return ExampleReference::Read(text).has_value();
    case CommentForm::MenuItem:
        return MenuPath::Read(text).has_value();
    }
    return false;
}

/// The lines that do not begin with a word that says what else stands there.
std::vector<Stretch> LinesWithout(std::string_view mark, std::string_view text) {
    std::vector<Stretch> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string_view line = text.substr(at, end - at);
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (!line.empty() && !line.starts_with(mark)) lines.push_back({end - line.size(), end});
        at = end + 1;
    }
    return lines;
}

std::vector<Stretch> BehindFirstLine(std::string_view text) {
    const std::size_t end = text.find('\n');
    if (end == text.npos || end + 1 == text.size()) return {};
    return {{end + 1, text.size()}};
}

} // namespace

CommentForm FormOfText(const TaggedCommentDef* definition, std::string_view text) {
    const CommentForm form = FormOf(definition);
    return IsIn(form, text) ? form : CommentForm::Html;
}

bool IsHtml(CommentForm form) {
    return form == CommentForm::Html || form == CommentForm::SubItems;
}

std::vector<Stretch> StretchesOf(CommentForm form, std::string_view text) {
    switch (form) {
    case CommentForm::Keywords:
        return text.empty() ? std::vector<Stretch>() : std::vector<Stretch>{{0, text.size()}};
    case CommentForm::IsExample:
        return LinesWithout("of: ", text);
    case CommentForm::MenuItem:
        return LinesWithout("keys: ", text);
    case CommentForm::ExampleSource:
        return BehindFirstLine(text);
    default:
        return {};
    }
}

} // namespace paperkite::CommentProse
