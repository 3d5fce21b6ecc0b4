#include "links/LinkBuilder.h"

#include "foundation/PathIsURL.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr const char* kAnotherMember = "anothermember";
constexpr const char* kAnotherItem = "anotheritem";
constexpr const char* kAnotherHelpFile = "anotherhelpfile";
constexpr const char* kInternetURL = "interneturl";
constexpr const char* kExtension = ".html";
constexpr const char* kAuto = "Auto";
constexpr const char* kSettingsKey = "Software\\Brindlewick\\Paperkite4";
constexpr const char* kTickSetting = "LinkBuilderKiteLink";
constexpr const char* kFirstURL = "http://";
constexpr const char* kNoMember = "Please select a member to link to, or click Cancel";
constexpr const char* kNoURL = "Please provide a URL to link to, or click Cancel";
constexpr const char* kNoValidURL = "This link does not appear to be a valid URL. Test anyway?";
constexpr int kShowNormal = 1;
// Their captions are sentences.
constexpr double kRowsOfKind = 2;
constexpr std::size_t kPrefixLength = 3;

// Before a host sizes the panel, in pixels.
constexpr Bounds kPanel{0, 0, 560, 400};
constexpr Bounds kKinds{0, 0, 220, 400};
constexpr Bounds kCaption{228, 0, 332, 45};
constexpr Bounds kPage{228, 40, 332, 360};
constexpr int kCaptionGap = 5;

bool IsPage(const Control& control) {
    return control.GetName().starts_with("con") || control.GetName().starts_with("fra");
}

void Warn(const char* text) {
    Required(CurrentServices().MessageBox).Show(text, {}, MessageIcon::Warning);
}

} // namespace

LinkBuilder::LinkBuilder(std::string name, HostMode mode)
    : Container(std::move(name)), mMode(mode) {
    Procedure(*this, "UserControl_Initialize", [&](Frame&) {
        Move(kPanel);
        MakeKinds();
        MakePages();
        MakeCaption();
        LayOut();
        eb->GetGroup(1)->Item(1)->SetSelected(true);
        zConnect();
        UpdateFrameVisibility();
        zReadTick();
    });
}

void LinkBuilder::DumpVariables(VariableDump& dump) const {
    dump.Add("mNamespaceProfile", mNamespaceProfile)
        .Add("mDotNetXMLFormat", mDotNetXMLFormat)
        .Add("mAddHTMLExtension", mAddHTMLExtension);
}

void LinkBuilder::MakeKinds() {
    eb = Controls.Make<ExplorerBar>("eb");
    eb->SetAccessibleName("Kinds of links");
    eb->Move(kKinds);
    const auto inside = eb->AddGroup("paperkitelink", "Paperkite Link");
    inside->Add(kAnotherMember, "Link to another member in the same item")
        ->SetToolTipText(
            "Use this page to build a link to a topic for another member in this same item");
    inside->Add(kAnotherItem, "Link to a member in a different item but in the same help file")
        ->SetToolTipText("Use this page to build a link to a member contained in a different item");
    inside->Add(kAnotherHelpFile, "Link to a topic in another help file");
    const auto other = eb->AddGroup(kInternetURL, "Other");
    other->Add("netframework", ".NET Framework docs")->SetVisible(false);
    other->Add(kInternetURL, "Link to an Internet or other URL");
    for (const auto& group : eb->GetGroups())
        for (const auto& item : *group)
            item->SetHeight(kRowsOfKind);
}

void LinkBuilder::MakePages() {
    const auto page = [this](const char* name) {
        auto made = Controls.Make<Container>(name);
        made->Move(kPage);
        made->SetVisible(false);
        return made;
    };
    conAnotherMember = page("conAnotherMember");
    MemberExplorerPlace = conAnotherMember->Controls.Make<Container>("MemberExplorerPlace");
    chkKiteLink = conAnotherMember->Controls.Make<CheckBox>("chkKiteLink");
    chkKiteLink->SetCaption(
        "Create as a Paperkite Link, converted during generation to a hyperlink");
    chkKiteLink->SetChecked(true);
    conanotheritem = page("conanotheritem");
    MemberLinkDesigner =
        conanotheritem->Controls.Make<paperkite::MemberLinkDesigner>("MemberLinkDesigner");
    conAnotherHelpFile = page("conAnotherHelpFile");
    HelpTopicLinkDesigner =
        conAnotherHelpFile->Controls.Make<HelpLinkDesigner>("HelpTopicLinkDesigner");
    conInternetURL = page("conInternetURL");
    lblURL = conInternetURL->Controls.Make<Label>("lblURL");
    lblURL->SetCaption("&URL:");
    txtURL = conInternetURL->Controls.Make<TextBox>("txtURL");
    txtURL->SetText(kFirstURL);
    txtURL->SetAccessibleName("URL");
    cmdTest = conInternetURL->Controls.Make<Button>("cmdTest");
    cmdTest->SetCaption("&Test");
}

void LinkBuilder::MakeCaption() {
    conCaption = Controls.Make<Container>("conCaption");
    conCaption->Move(kCaption);
    Label1 = conCaption->Controls.Make<Label>("Label1");
    Label1->SetCaption("Link &Caption:");
    txtCaption = conCaption->Controls.Make<TextBox>("txtCaption");
    txtCaption->SetAccessibleName("Link Caption");
}

void LinkBuilder::LayOut() {
    conAnotherMember->SetLayout(FormLayout::Column(
        {FormLayout::Item(MemberExplorerPlace, 1), FormLayout::Item(chkKiteLink)}));
    conInternetURL->SetLayout(FormLayout::Column({
        FormLayout::Row(
            {FormLayout::Column({FormLayout::Item(lblURL), FormLayout::Item(txtURL)}, 1),
             FormLayout::Column({FormLayout::Stretch(), FormLayout::Item(cmdTest)})}),
        FormLayout::Stretch(),
    }));
    conCaption->SetLayout(
        FormLayout::Column({FormLayout::Item(Label1), FormLayout::Item(txtCaption)}));
    SetLayout(FormLayout::Row({
        FormLayout::Item(eb, 2),
        FormLayout::Column(
            {FormLayout::Item(conCaption),
             FormLayout::Stack(
                 {FormLayout::Item(conAnotherMember), FormLayout::Item(conanotheritem),
                  FormLayout::Item(conAnotherHelpFile), FormLayout::Item(conInternetURL)})},
            3),
    }));
}

void LinkBuilder::zConnect() {
    mConnections.push_back(eb->Events.SelChange.Connect(
        [this](const auto&, const auto&, const auto&) { eb_SelChange(); }));
    mConnections.push_back(txtCaption->Events.Change.Connect([this] { txtCaption_Change(); }));
    mConnections.push_back(chkKiteLink->Events.Click.Connect([this] { chkKiteLink_Click(); }));
    mConnections.push_back(cmdTest->Events.Click.Connect([this] { cmdTest_Click(); }));
}

void LinkBuilder::Initialize(bool GetCaption, bool EnableKiteLink, bool ShowExternalLinkTypes,
                             const std::string& DialogCaption, const std::string& TipPrefix,
                             bool AddHTMLExtension, const std::string& Caption) {
    Procedure(*this, "Initialize", [&](Frame& frame) {
        Watch watchGetCaption(frame, "GetCaption", GetCaption);
        Watch watchKiteLink(frame, "EnableKiteLink", EnableKiteLink);
        Watch watchExternal(frame, "ShowExternalLinkTypes", ShowExternalLinkTypes);
        Watch watchDialogCaption(frame, "DialogCaption", DialogCaption);
        Watch watchTip(frame, "TipPrefix", TipPrefix);
        Watch watchExtension(frame, "AddHTMLExtension", AddHTMLExtension);
        Watch watchCaption(frame, "Caption", Caption);
        if (!ShowExternalLinkTypes) zHideExternalLinkTypes();
        MemberLinkDesigner->TipPrefix = TipPrefix;
        if (!DialogCaption.empty()) zReplaceInCaptions(DialogCaption);
        eb->SuspendPainting();
        eb->ResumePainting();
        mAddHTMLExtension = AddHTMLExtension;
        chkKiteLink->SetVisible(EnableKiteLink);
        if (!EnableKiteLink) chkKiteLink->SetChecked(false);
        if (GetCaption)
            txtCaption->SetText(Caption);
        else
            zGiveBackCaptionRoom();
        if (Caption.empty()) txtCaption->SetTag(kAuto);
        UpdateFrameVisibility();
    });
}

void LinkBuilder::zHideExternalLinkTypes() {
    eb->GetGroup(2)->SetVisible(false);
    eb->GetGroup(1)->Item(3)->SetVisible(false);
}

void LinkBuilder::zReplaceInCaptions(const std::string& DialogCaption) {
    for (const auto& group : eb->GetGroups())
        for (const auto& item : *group)
            item->SetCaption(ReplaceAll(item->GetCaption(), "Link to", DialogCaption));
}

void LinkBuilder::zGiveBackCaptionRoom() {
    conCaption->SetVisible(false);
    // The caption is one of the controls that grow; its own height counts as it was.
    const int room = conCaption->GetHeight();
    for (const auto& control : Controls) {
        if (!control->GetName().starts_with("con")) continue;
        control->SetTop(0);
        control->SetHeight(control->GetHeight() + room - kCaptionGap);
    }
    Events.MoveMemberExplorer.Raise(conCaption->GetLeft(), 0, conCaption->GetWidth(),
                                    GetHeight() - room - kCaptionGap);
}

void LinkBuilder::UpdateFrameVisibility() {
    Procedure(*this, "UpdateFrameVisibility", [&](Frame&) {
        if (!eb->GetSelectedItem()) eb->GetGroup(1)->Item(1)->SetSelected(true);
        const std::string key = zSelectedKind();
        // Bringing one to the front must not change what is walked through.
        std::vector<Ref<Control>> pages;
        for (const auto& control : Controls)
            if (control != conCaption && IsPage(*control)) pages.push_back(control);
        for (const auto& page : pages) {
            const bool isWanted = EqualIgnoringCase(page->GetName().substr(kPrefixLength), key);
            if (page->GetVisible() == isWanted) continue;
            page->SetVisible(isWanted);
            if (isWanted) page->BringToFront();
        }
        if (key == kAnotherMember)
            Events.ShowMemberExplorer.Raise();
        else
            Events.HideMemberExplorer.Raise();
    });
}

std::string LinkBuilder::zSelectedKind() const {
    const auto item = eb->GetSelectedItem();
    return item ? item->GetKey() : std::string();
}

std::string LinkBuilder::zSelectedMember() {
    std::string QualifiedName;
    Events.GetSelectedMember.Raise(QualifiedName);
    return QualifiedName;
}

std::string LinkBuilder::zWithExtension(const std::string& topic) const {
    return mAddHTMLExtension ? topic + kExtension : topic;
}

std::string LinkBuilder::GetLinkhRef() {
    return Procedure<std::string>(*this, "LinkhRef", [&](std::string& result, Frame&) {
        const std::string key = zSelectedKind();
        if (key == kAnotherMember)
            result = GetKiteLink() ? zSelectedMember() : zWithExtension(zSelectedMember());
        else if (key == kAnotherItem)
            result = zWithExtension(MemberLinkDesigner->GethRef());
        else if (key == kAnotherHelpFile)
            result = zWithExtension(HelpTopicLinkDesigner->GethRef());
        else if (key == kInternetURL)
            result = txtURL->GetText();
    });
}

bool LinkBuilder::GetKiteLink() const {
    return Procedure<bool>(*this, "KiteLink", [&](bool& result, Frame&) {
        result = zSelectedKind() == kAnotherMember && chkKiteLink->GetChecked();
    });
}

bool LinkBuilder::Validate() {
    return Procedure<bool>(*this, "Validate", [&](bool& result, Frame&) {
        const std::string key = zSelectedKind();
        if (key == kAnotherMember) {
            result = !zSelectedMember().empty();
            if (!result) Warn(kNoMember);
        } else if (key == kAnotherItem) {
            result = MemberLinkDesigner->Validate(false);
        } else if (key == kAnotherHelpFile) {
            result = HelpTopicLinkDesigner->Validate(false);
        } else if (key == kInternetURL) {
            result = !TrimBlanks(txtURL->GetText()).empty();
            if (!result) Warn(kNoURL);
        } else {
            result = true;
        }
    });
}

void LinkBuilder::SetAutoCaption(const std::string& Text) {
    Procedure(*this, "SetAutoCaption", [&](Frame& frame) {
        Watch watchText(frame, "Text", Text);
        if (txtCaption->GetTag() != kAuto) return;
        txtCaption->SetText(Text);
        txtCaption->SetTag(kAuto);
    });
}

bool LinkBuilder::IsPathAURL(const std::string& sPath) const {
    return Procedure<bool>(*this, "IsPathAURL", [&](bool& result, Frame& frame) {
        Watch watchPath(frame, "sPath", sPath);
        result = PathIsURL(sPath) == 1;
    });
}

void LinkBuilder::SetNamespaceProfile(const std::string& value) {
    Procedure(*this, "NamespaceProfile", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        mNamespaceProfile = value;
        MemberLinkDesigner->NamespaceProfile = value;
    });
}

void LinkBuilder::SetDotNetXMLFormat(bool value) {
    Procedure(*this, "DotNetXMLFormat", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        mDotNetXMLFormat = value;
        MemberLinkDesigner->DotNetXMLFormat = value;
        HelpTopicLinkDesigner->DotNetXMLFormat = value;
    });
}

void LinkBuilder::UserControl_ReadProperties(const PropertyBag&) {
    Procedure(*this, "UserControl_ReadProperties", [&](Frame&) { zReadTick(); });
}

void LinkBuilder::zReadTick() {
    if (mMode != HostMode::User) return;
    const Value kept = Required(CurrentServices().Registry)
                           .ReadValue(HKEY_CURRENT_USER, kSettingsKey, kTickSetting);
    chkKiteLink->SetChecked(kept.ToText() != "False");
}

void LinkBuilder::eb_SelChange() {
    Procedure(*this, "eb_SelChange", [&](Frame&) { UpdateFrameVisibility(); });
}

void LinkBuilder::txtCaption_Change() {
    Procedure(*this, "txtCaption_Change", [&](Frame&) { txtCaption->SetTag({}); });
}

void LinkBuilder::chkKiteLink_Click() {
    Procedure(*this, "chkKiteLink_Click", [&](Frame&) {
        if (mMode != HostMode::User || !chkKiteLink->GetVisible()) return;
        RegistryHelper& registry = Required(CurrentServices().Registry);
        registry.CreateKey(HKEY_CURRENT_USER, kSettingsKey);
        registry.WriteValue(HKEY_CURRENT_USER, kSettingsKey, kTickSetting, kRegistryString,
                            chkKiteLink->GetChecked() ? "True" : "False");
    });
}

void LinkBuilder::cmdTest_Click() {
    Procedure(*this, "cmdTest_Click", [&](Frame&) {
        const std::string link = txtURL->GetText();
        if (!IsPathAURL(link) && Required(CurrentServices().MessageBox)
                                         .Show(kNoValidURL, "Link test", MessageIcon::Question,
                                               MessageButtons::YesNo) != MessageAnswer::Yes)
            return;
        Required(CurrentServices().Shell)
            .ShellExecute(static_cast<std::intptr_t>(GetHWnd()), "open", link, {}, {}, kShowNormal);
    });
}

} // namespace paperkite
