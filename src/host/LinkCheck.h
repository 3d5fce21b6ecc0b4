#pragma once

#include "commenttexts/LinkTarget.h"
#include "model/CommentStore.h"
#include "model/CoverageSource.h"

#include <cstddef>
#include <string>
#include <vector>

namespace paperkite {

/// Lists the links in all comments of a project, and says which of them lead nowhere: to an item or
/// a file that is not there, or because their form is none. Addresses outside are not looked up.
/// Changes nothing.
///
///     const LinkCheck check(*session.GetProvider());
///     for (const auto& link : check.Check(store)) if (link.LeadsNowhere()) … link.Problem …
class LinkCheck {
public:
    enum class Goal { Item, File, Bookmark, HelpTopic, Outside, Nowhere };

    struct Link {
        std::string Item;      ///< the qualified name of the comment's item
        std::string CommentId; ///< of the comment
        std::string Tag;       ///< "##remarks"
        std::string Name;      ///< "Remarks"
        /// The address as it is written, entities decoded.
        std::string Target;
        /// What a reader clicks on; may be empty.
        std::string Caption;
        Goal LeadsTo = Goal::Nowhere;
        /// The qualified name of the item that it leads to; empty for others.
        std::string LeadsToItem;
        /// The qualified name that no item bears, where the link was meant for one.
        std::string MissingItem;
        /// For one that leads nowhere: why, and how to mend it, in whole sentences.
        std::string Problem;

        bool LeadsNowhere() const { return LeadsTo == Goal::Nowhere; }
    };

    /// The items outlive it.
    explicit LinkCheck(const CoverageSource& items) : mItems(items) {}

    /// Sorted by item, in an item in the order of its comments; links in comments whose item is
    /// gone too.
    std::vector<Link> Check(const CommentStore& store) const;

    /// The qualified name of the item to whose page an address leads once pages are made, or of the
    /// item that it names outright; empty for none. What stands behind "?" or "#" must be cut off.
    std::string ItemOf(const std::string& address) const;
    /// The same of a link as it is written in a comment or typed by an author.
    std::string ItemOfLink(const std::string& link) const;

private:
    void AddLinks(const std::string& item, const TaggedComment& comment, const std::string& folder,
                  std::vector<Link>& links) const;
    void Judge(Link& link, const std::string& folder) const;
    void JudgeFile(Link& link, const LinkTarget& target, const std::string& folder) const;
    void JudgeItem(Link& link) const;
    bool Lead(Link& link, std::string item) const;
    /// Says of links to callables that lack their parameters which ones there are.
    void NameOverloads(std::vector<Link>& links) const;

    const CoverageSource& mItems;
};

/// How many of them lead nowhere.
std::size_t CountNowhere(const std::vector<LinkCheck::Link>& links);

/// "12 links, 3 of them lead nowhere."
std::string LinkSummary(const std::vector<LinkCheck::Link>& links);

} // namespace paperkite
