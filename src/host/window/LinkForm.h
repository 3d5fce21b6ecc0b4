#pragma once

#include "foundation/Procedure.h"
#include "host/window/MemberChooser.h"
#include "links/LinkBuilder.h"
#include "widgets/Form.h"

#include <string>
#include <vector>

namespace paperkite {

/// What is asked of the author when a link is to be composed.
struct LinkRequest {
    /// The link that is to be changed, as the comment has it; empty for a new one.
    std::string ExistingLink;
    bool GetCaption = false;
    std::string Caption;
    bool ShowExternalLinkTypes = true;
    std::string DialogCaption;
    std::string TipPrefix;
    bool AddHTMLExtension = true;
};

/// The dialog with which an author composes a link: the panel for it, with the project's items in
/// its place for the member tree. OK keeps it open until the link is complete.
class LinkForm : public Form, public Shielded {
public:
    /// The session must outlive the form. `item` is the open item, from which the tree starts where
    /// the request names no item.
    LinkForm(ProjectSession& session, const LinkRequest& request, const std::string& item);

    const char* ModuleName() const override { return "LinkForm"; }

    /// The link of the last OK; empty when the author left the dialog in another way.
    const std::string& GetLink() const { return mLink; }
    const std::string& GetLinkCaption() const { return mLinkCaption; }

    Ref<Label> lblExisting;
    Ref<LinkBuilder> Links;
    Ref<MemberChooser> Members;
    Ref<Button> cmdOK;
    Ref<Button> cmdCancel;

private:
    void ConnectPanel();
    void LayOut();
    void ProposeCaption();
    void cmdOK_Click();
    /// The address of a page whose name may hold what ends a path.
    std::string AsAddress(const std::string& link) const;
    bool IsWanted(const std::string& link) const;

    ProjectSession& mSession;
    std::string mLink;
    std::string mLinkCaption;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
