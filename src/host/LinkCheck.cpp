#include "host/LinkCheck.h"

#include "authoring/PageName.h"
#include "commenttexts/CommentLinks.h"
#include "commenttexts/CommentProse.h"
#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "host/TagName.h"

#include <algorithm>
#include <filesystem>
#include <unordered_map>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPageEnding = ".html";
/// Pages make links of these comments where they hold just a name.
constexpr std::string_view kSeeAlsoTag = "##seealso";
/// So begins what authors take for an address outside.
constexpr std::string_view kWeb = "www.";
/// Longer ones are cut in sentences.
constexpr std::size_t kLongestShown = 120;

std::string Shown(const std::string& text) {
    return Shortened(text, kLongestShown);
}

std::string LastPart(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

bool IsFile(const std::string& path, const std::string& folder) {
    // Systems refuse such names, some of them by an exception.
    if (path.find('\0') != std::string::npos) return false;
    std::error_code problem;
    return fs::exists(fs::path(folder) / path, problem) && !problem;
}

/// Whether a text that names no item was meant to: a sentence has blanks before its first step, and
/// a name blanks between parameters at most, or in operators.
bool LooksLikeAnItem(std::string_view text) {
    const std::size_t step = text.find('~');
    return step != 0 && step != std::string_view::npos && step + 1 < text.size() &&
           text.substr(0, step).find_first_of(" \t(") == std::string_view::npos &&
           text.find_first_of("\r\n") == std::string_view::npos;
}

void MissItem(LinkCheck::Link& link, const std::string& name) {
    link.MissingItem = name;
    link.Problem = "There is no item \"" + Shown(name) +
                   "\" in this project. It may have been renamed or removed: link to another item, "
                   "or take the link away.";
}

/// The callables of one name that take parameters.
struct Overloads {
    std::size_t Count = 0;
    std::string First;
};

std::string NeedsParameters(const std::string& name, const Overloads& overloads) {
    const std::string which =
        overloads.Count == 1
            ? std::string("Link to the one that takes them: ")
            : "Link to one of the " + std::to_string(overloads.Count) + " that take them, such as ";
    return "There is no item \"" + Shown(name) + "\" without parameters in this project. " + which +
           "\"" + Shown(overloads.First) + "\".";
}

} // namespace

std::vector<LinkCheck::Link> LinkCheck::Check(const CommentStore& store) const {
    std::vector<Link> links;
    store.ForEach([&](const std::string& item, const TaggedComment& comment) {
        AddLinks(item, comment, store.GetFolder(), links);
    });
    std::stable_sort(links.begin(), links.end(),
                     [](const Link& left, const Link& right) { return left.Item < right.Item; });
    NameOverloads(links);
    return links;
}

void LinkCheck::NameOverloads(std::vector<Link>& links) const {
    std::unordered_map<std::string, Overloads> overloads;
    for (const Link& link : links)
        if (!link.MissingItem.empty()) overloads.try_emplace(link.MissingItem);
    if (overloads.empty()) return;
    mItems.ForEach([&](const CoverageRow& row) {
        const std::size_t open = row.QualifiedName.find('(');
        if (open == std::string::npos) return;
        const auto known = overloads.find(row.QualifiedName.substr(0, open));
        if (known != overloads.end() && known->second.Count++ == 0)
            known->second.First = row.QualifiedName;
    });
    for (Link& link : links) {
        const auto known = overloads.find(link.MissingItem);
        if (known != overloads.end() && known->second.Count > 0)
            link.Problem = NeedsParameters(link.MissingItem, known->second);
    }
}

void LinkCheck::AddLinks(const std::string& item, const TaggedComment& comment,
                         const std::string& folder, std::vector<Link>& links) const {
    const std::string& text = comment.GetWrittenText();
    const auto add = [&](std::string target, std::string caption) {
        links.push_back({item,
                         comment.GetId(),
                         comment.GetTagIdentifier(),
                         TagNameOf(comment),
                         std::move(target),
                         std::move(caption),
                         Goal::Nowhere,
                         {},
                         {},
                         {}});
    };
    // Most comments are over with this: HTML without links, which is no name of an item either.
    const bool mayHoldLinks = CommentLinks::MayHoldLinks(text);
    if (!mayHoldLinks && text.find('<') != std::string::npos) return;
    const auto definition = comment.GetTaggedCommentDef();
    const CommentForm form = CommentProse::FormOfText(definition.get(), text);
    if (form == CommentForm::CommentsFrom) {
        add(TrimWhiteSpace(text), {});
        JudgeItem(links.back());
        return;
    }
    if (EqualIgnoringCase(comment.GetTagIdentifier(), kSeeAlsoTag) && text.find('<') == text.npos) {
        const std::string name = TrimWhiteSpace(text);
        const bool isThere = mItems.Exists(name);
        if (!isThere && !LooksLikeAnItem(name)) return;
        add(name, {});
        if (!Lead(links.back(), isThere ? name : std::string())) MissItem(links.back(), name);
        return;
    }
    if (!mayHoldLinks || !CommentProse::IsHtml(form)) return;
    for (CommentLinks::Link& found : CommentLinks::Find(text)) {
        add(std::move(found.Address), std::move(found.Caption));
        Judge(links.back(), folder);
    }
}

void LinkCheck::Judge(Link& link, const std::string& folder) const {
    const LinkTarget target = LinkTarget::Of(link.Target);
    switch (target.What) {
    case LinkTarget::Kind::File:
    case LinkTarget::Kind::LocalFile:
        return JudgeFile(link, target, folder);
    case LinkTarget::Kind::Bookmark:
        link.LeadsTo = Goal::Bookmark;
        return;
    case LinkTarget::Kind::HelpTopic:
        link.LeadsTo = Goal::HelpTopic;
        return;
    case LinkTarget::Kind::Outside:
        link.LeadsTo = Goal::Outside;
        return;
    case LinkTarget::Kind::Malformed:
        link.Problem = target.Problem;
    }
}

void LinkCheck::JudgeFile(Link& link, const LinkTarget& target, const std::string& folder) const {
    if (Lead(link, ItemOf(target.File))) return;
    const std::string path = PercentDecoded(target.File);
    if (IsFile(target.File, folder) || IsFile(path, folder)) {
        link.LeadsTo = Goal::File;
        return;
    }
    const std::string name = LastPart(PageName::Decoded(target.File));
    const bool isPage = EndsWithIgnoringCase(name, kPageEnding);
    if (isPage || name.find('~') != std::string::npos || name.find("::") != std::string::npos)
        MissItem(link, isPage ? PageName::OfAddress(name) : name);
    else if (EqualIgnoringCase(path.substr(0, kWeb.size()), kWeb))
        link.Problem = "There is no file \"" + Shown(path) +
                       "\" beside the project file. If an address outside is meant, write "
                       "\"https://\" before it.";
    else
        link.Problem =
            "There is no file \"" + Shown(path) +
            (target.What == LinkTarget::Kind::File ? "\" beside the project file. Put it there"
                                                   : "\". Put it there") +
            ", or link to another one.";
}

void LinkCheck::JudgeItem(Link& link) const {
    if (!Lead(link, mItems.Exists(link.Target) ? link.Target : std::string()))
        link.Problem = "There is no item \"" + Shown(link.Target) +
                       "\" in this project to take comments from. Choose another one.";
}

bool LinkCheck::Lead(Link& link, std::string item) const {
    if (item.empty()) return false;
    link.LeadsTo = Goal::Item;
    link.LeadsToItem = std::move(item);
    return true;
}

std::string LinkCheck::ItemOf(const std::string& address) const {
    if (address.empty()) return {};
    for (const std::string& written : {PageName::Decoded(address), PercentDecoded(address)}) {
        // A link to be converted when the pages are made is its item's name.
        if (mItems.Exists(written)) return written;
        if (!EndsWithIgnoringCase(written, kPageEnding)) continue;
        std::string page = PageName::OfAddress(written);
        if (mItems.Exists(page)) return page;
        if (!PageName::CutLayoutSuffix(page).empty() && mItems.Exists(page)) return page;
    }
    return {};
}

std::string LinkCheck::ItemOfLink(const std::string& link) const {
    return ItemOf(LinkTarget::Of(link).File);
}

std::size_t CountNowhere(const std::vector<LinkCheck::Link>& links) {
    return static_cast<std::size_t>(std::count_if(
        links.begin(), links.end(), [](const auto& link) { return link.LeadsNowhere(); }));
}

std::string LinkSummary(const std::vector<LinkCheck::Link>& links) {
    if (links.empty()) return "The comments hold no links.";
    const std::size_t nowhere = CountNowhere(links);
    const std::string all = std::to_string(links.size()) + (links.size() == 1 ? " link" : " links");
    if (nowhere == 0) return all + ", none leads nowhere.";
    return all + ", " + std::to_string(nowhere) +
           (nowhere == 1 ? " of them leads nowhere." : " of them lead nowhere.");
}

} // namespace paperkite
