#include "host/window/TopicForm.h"

#include "host/LinkCheck.h"
#include "links/MemberLinkDesigner.h"
#include "widgets/DialogButtons.h"

namespace paperkite {

namespace {

constexpr int kWidth = 520;
constexpr int kHeight = 480;

bool HasItemsOf(const ProjectSession& session, const std::string& itemType) {
    const int type = MemberLinkDesigner::ItemTypeOf(session.GetDefinitions()->GetName());
    return itemType.empty() || itemType == std::to_string(type);
}

} // namespace

TopicForm::TopicForm(ProjectSession& session, const ModelControlHelper::TopicRequest& request)
    : Form("TopicForm") {
    SetCaption("Choose a Topic");
    Move(0, 0, kWidth, kHeight);
    lblTopic = Controls.Make<Label>("lblTopic");
    lblTopic->SetWordWrap(true);
    lblTopic->SetCaption("Each item of the project has a topic of its name.");
    Members = MakeRef<MemberChooser>("Members", session, HasItemsOf(session, request.ItemType));
    Controls.Add(Members);
    Members->SetTipPrefix(request.TipPrefix);
    const DialogButtons buttons = MakeDialogButtons(Controls);
    cmdOK = buttons.OK;
    cmdCancel = buttons.Cancel;
    SetLayout(FormLayout::Column({FormLayout::Item(lblTopic), FormLayout::Item(Members, 1),
                                  FormLayout::Buttons({cmdOK, cmdCancel})}));
    const auto enable = [this] { cmdOK->SetEnabled(!Members->GetChosen().empty()); };
    mConnections.push_back(Members->Events.Changed.Connect(enable));
    mConnections.push_back(cmdOK->Events.Click.Connect([this] { cmdOK_Click(); }));
    mConnections.push_back(cmdCancel->Events.Click.Connect([this] { Hide(); }));
    mConnections.push_back(Events.Shown.Connect([this] { mTopic.clear(); }));
    Members->Choose(LinkCheck(*session.GetProvider()).ItemOfLink(request.Topic));
    enable();
}

void TopicForm::cmdOK_Click() {
    mTopic = Members->GetChosen();
    Hide();
}

} // namespace paperkite
