#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
#include "foundation/PropertyBag.h"
#include "links/HelpLinkDesigner.h"
#include "links/MemberLinkDesigner.h"
#include "widgets/Button.h"
#include "widgets/CheckBox.h"
#include "widgets/Container.h"
#include "widgets/ExplorerBar.h"
#include "widgets/Label.h"
#include "widgets/TextBox.h"

#include <cstdint>
#include <string>
#include <vector>

namespace paperkite {

/// The panel with which an author composes one link: a list of link kinds, a page for each kind,
/// and a caption.
///
/// The host shows it in a form of its own, calls Initialize once, and keeps the member tree that
/// the events ask for. When the author is done it calls Validate and reads the link.
///
///     auto panel = MakeRef<LinkBuilder>("panel");
///     panel->Initialize(true, false, true, "", "Link to", true, caption);
///     …
///     if (panel->Validate()) use(panel->GetLinkhRef(), panel->GetLinkCaption());
class LinkBuilder : public Container, public Shielded {
public:
    /// Whether the panel runs in a program or in a form designer, which keeps no settings.
    enum class HostMode { Design, User };

    explicit LinkBuilder(std::string name = {}, HostMode mode = HostMode::User);

    const char* ModuleName() const override { return "LinkBuilder"; }
    void DumpVariables(VariableDump& dump) const override;

    /// Called once, before the panel is used. Without GetCaption there is no caption field, and the
    /// member tree gets its room; DialogCaption takes the place of "Link to" in the captions of the
    /// kinds; AddHTMLExtension has ".html" put behind topics, whether or not it is there.
    void Initialize(bool GetCaption, bool EnableKiteLink, bool ShowExternalLinkTypes,
                    const std::string& DialogCaption, const std::string& TipPrefix,
                    bool AddHTMLExtension, const std::string& Caption);
    /// Whether the page of the chosen kind is complete; tells the author what is missing.
    bool Validate();
    /// The target, in the form of the chosen kind; of whatever is missing there.
    std::string GetLinkhRef();
    const std::string& GetLinkCaption() const { return txtCaption->GetText(); }
    /// Whether the link is one that the generator converts; only links to members of the same item
    /// can be.
    bool GetKiteLink() const;
    /// Proposes a caption; one that the author typed stays.
    void SetAutoCaption(const std::string& Text);
    /// Whether a text has the form of an address with a scheme.
    bool IsPathAURL(const std::string& sPath) const;

    const std::string& GetNamespaceProfile() const { return mNamespaceProfile; }
    void SetNamespaceProfile(const std::string& value);
    bool GetDotNetXMLFormat() const { return mDotNetXMLFormat; }
    void SetDotNetXMLFormat(bool value);

    /// Reads the remembered tick anew.
    void UserControl_ReadProperties(const PropertyBag& PropBag);

    struct {
        Event<> ShowMemberExplorer;
        Event<> HideMemberExplorer;
        /// Takes the qualified name of the member that is selected in the host's tree.
        Event<std::string&> GetSelectedMember;
        Event<std::int32_t, std::int32_t, std::int32_t, std::int32_t>
            MoveMemberExplorer; ///< Left, Top, Width, Height in pixels of the panel
    } Events;

    // The controls. A page bears the key of its kind behind "con".

    Ref<ExplorerBar> eb;
    Ref<Container> conAnotherMember;
    Ref<CheckBox> chkKiteLink;
    Ref<Container> conanotheritem;
    Ref<paperkite::MemberLinkDesigner> MemberLinkDesigner;
    Ref<Container> conAnotherHelpFile;
    Ref<HelpLinkDesigner> HelpTopicLinkDesigner;
    Ref<Container> conInternetURL;
    Ref<Label> lblURL;
    Ref<TextBox> txtURL;
    Ref<Button> cmdTest;
    Ref<Container> conCaption;
    Ref<Label> Label1;
    Ref<TextBox> txtCaption;
    /// An empty place above the box of the first page: a host that lays out by forms, not pixels,
    /// puts its member tree there.
    Ref<Container> MemberExplorerPlace;

private:
    void MakeKinds();
    void MakePages();
    void MakeCaption();
    void LayOut();
    void zConnect();
    std::string zSelectedKind() const;
    std::string zSelectedMember();
    std::string zWithExtension(const std::string& topic) const;
    void zHideExternalLinkTypes();
    void zReplaceInCaptions(const std::string& DialogCaption);
    void zGiveBackCaptionRoom();
    void zReadTick();
    void UpdateFrameVisibility();
    void eb_SelChange();
    void txtCaption_Change();
    void chkKiteLink_Click();
    void cmdTest_Click();

    InstanceCount mInstanceCount{"LinkBuilder", ComponentType::Control};
    std::string mNamespaceProfile;
    bool mDotNetXMLFormat = false;
    bool mAddHTMLExtension = false;
    HostMode mMode;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
