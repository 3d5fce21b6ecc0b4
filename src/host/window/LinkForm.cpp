#include "host/window/LinkForm.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "host/ItemTitle.h"
#include "host/LinkCheck.h"
#include "host/LinkHazard.h"
#include "widgets/DialogButtons.h"

namespace paperkite {

namespace {

constexpr std::string_view kPageEnding = ".html";
constexpr const char* kTitle = "Link";
/// Long enough for any address that people read.
constexpr std::size_t kMostShown = 200;
constexpr int kWidth = 760;
constexpr int kHeight = 540;

} // namespace

LinkForm::LinkForm(ProjectSession& session, const LinkRequest& request, const std::string& item)
    : Form("LinkForm"), mSession(session) {
    SetCaption(request.DialogCaption.empty() ? kTitle : request.DialogCaption);
    Move(0, 0, kWidth, kHeight);
    lblExisting = Controls.Make<Label>("lblExisting");
    lblExisting->SetWordWrap(true);
    lblExisting->SetVisible(!request.ExistingLink.empty());
    Links = Controls.Make<LinkBuilder>("Links");
    Members = MakeRef<MemberChooser>("Members", session);
    Links->MemberExplorerPlace->Controls.Add(Members);
    const DialogButtons buttons = MakeDialogButtons(Controls);
    cmdOK = buttons.OK;
    cmdCancel = buttons.Cancel;
    LayOut();
    ConnectPanel();
    Links->SetNamespaceProfile(session.GetDefinitions()->GetName());
    Members->SetTipPrefix(request.TipPrefix);
    // Nobody tells whether a bare name would be converted when the pages are made, and a link to
    // the page works either way. What stands before a name in a tip reads well before the kinds
    // too, a window's title not.
    Links->Initialize(request.GetCaption, false, request.ShowExternalLinkTypes, request.TipPrefix,
                      request.TipPrefix, request.AddHTMLExtension, request.Caption);
    const std::string target = LinkCheck(*session.GetProvider()).ItemOfLink(request.ExistingLink);
    const auto led = target.empty() ? Ref<Object>() : session.GetProvider()->GetItem(target);
    lblExisting->SetCaption(
        "The link leads to “" +
        ShortenedInMiddle(led ? ItemPath(*led) : request.ExistingLink, kMostShown) + "” now.");
    Members->Choose(target.empty() ? item : target);
}

void LinkForm::LayOut() {
    SetLayout(FormLayout::Column({
        FormLayout::Item(lblExisting),
        FormLayout::Item(Links, 1),
        FormLayout::Buttons({cmdOK, cmdCancel}),
    }));
}

void LinkForm::ConnectPanel() {
    const auto keep = [this](Connection connection) {
        mConnections.push_back(std::move(connection));
    };
    keep(Links->Events.ShowMemberExplorer.Connect([this] { Members->SetVisible(true); }));
    keep(Links->Events.HideMemberExplorer.Connect([this] { Members->SetVisible(false); }));
    keep(Links->Events.GetSelectedMember.Connect(
        [this](std::string& name) { name = Members->GetChosen(); }));
    keep(Links->Events.MoveMemberExplorer.Connect([this](int left, int top, int width, int height) {
        Members->Move(left, top, width, height);
    }));
    keep(Members->Events.Changed.Connect([this] { ProposeCaption(); }));
    keep(cmdOK->Events.Click.Connect([this] { cmdOK_Click(); }));
    keep(cmdCancel->Events.Click.Connect([this] { Hide(); }));
    keep(Events.Shown.Connect([this] { mLink.clear(); }));
}

void LinkForm::ProposeCaption() {
    if (const std::string name = Members->GetChosenName(); !name.empty())
        Links->SetAutoCaption(name);
}

void LinkForm::cmdOK_Click() {
    Procedure(*this, "cmdOK_Click", [&](Frame&) {
        if (!Links->Validate()) return;
        const std::string link = AsAddress(Links->GetLinkhRef());
        if (!IsWanted(link)) return;
        mLink = link;
        mLinkCaption = Links->GetLinkCaption();
        Hide();
    });
}

// Behind "?" and "#" an address names something else than its page.
std::string LinkForm::AsAddress(const std::string& link) const {
    if (!link.ends_with(kPageEnding)) return link;
    const std::string name = link.substr(0, link.size() - kPageEnding.size());
    if (!mSession.GetProvider()->Exists(name)) return link;
    return ReplaceAll(ReplaceAll(link, "?", "%3F"), "#", "%23");
}

// A link that is not what it seems goes into a comment only when the author knows.
bool LinkForm::IsWanted(const std::string& link) const {
    const std::string hazard = LinkHazard(link);
    return hazard.empty() ||
           Required(CurrentServices().MessageBox)
                   .Show(hazard + "\n\nInsert it as it stands?", kTitle, MessageIcon::Warning,
                         MessageButtons::YesNo) == MessageAnswer::Yes;
}

} // namespace paperkite
