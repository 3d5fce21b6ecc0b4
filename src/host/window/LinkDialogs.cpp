#include "host/window/LinkDialogs.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "host/window/TopicForm.h"
#include "platform/qt/FormView.h"

#include <QApplication>

namespace paperkite {

namespace {

// As the surfaces ask where there is no selection.
constexpr const char* kDialogCaption = "Get URL";
constexpr const char* kTipPrefix = "Link to";

} // namespace

LinkDialogs::LinkDialogs(Workspace& workspace, ViewFactory& factory, QWidget& window)
    : mWorkspace(workspace), mFactory(factory), mWindow(window),
      mHelper(std::dynamic_pointer_cast<ModelControlHelper>(CurrentServices().ControlHelper)) {
    auto& events = mWorkspace.GetEditor().Events;
    mConnections.push_back(events.BuildLinkRequest.Connect(
        [this](const std::string& existing, bool getCaption, std::string& caption,
               std::string& newLink, bool showExternal, const std::string& dialogCaption,
               const std::string& tipPrefix, bool addExtension) {
            LinkRequest request{existing,      getCaption, caption,     showExternal,
                                dialogCaption, tipPrefix,  addExtension};
            newLink = Compose(request);
            if (!newLink.empty()) caption = request.Caption;
        }));
    mConnections.push_back(events.InsertHyperLinkRequest.Connect(
        [this](const std::string& selected, std::string& link, bool& cancel) {
            // Without words to link a caption is needed, for which the surface asks next.
            if (selected.empty()) return;
            const auto editor = mWorkspace.GetEditor().cEditor.GetActiveHTMLEditor(false);
            LinkRequest request{editor ? editor->GetSelectedLink() : std::string(),
                                false,
                                selected,
                                true,
                                kDialogCaption,
                                kTipPrefix,
                                true};
            link = Compose(request);
            cancel = link.empty();
        }));
    if (mHelper)
        mHelper->ChooseTopic = [this](const auto& request) { return ChooseTopic(request); };
}

LinkDialogs::~LinkDialogs() {
    if (mHelper) mHelper->ChooseTopic = {};
}

bool LinkDialogs::InsertLink() {
    const auto editor = mWorkspace.GetEditor().cEditor.GetActiveHTMLEditor(false);
    if (!editor || !editor->IsCommandEnabled("createlink")) return false;
    editor->ClickEditTool("createlink");
    return true;
}

std::string LinkDialogs::OpenItem() const {
    const auto item = mWorkspace.GetEditor().cEditor.GetCurrentCodeElement();
    return item ? item->Get("QualifiedName").ToText() : std::string();
}

std::string LinkDialogs::Compose(LinkRequest& request) {
    if (mComposing) return {};
    mComposing = true;
    const ScopeExit composed([this] { mComposing = false; });
    LinkForm form(mWorkspace.GetSession(), request, OpenItem());
    Run(form, *form.Members->finder);
    if (!form.GetLink().empty() && request.GetCaption) request.Caption = form.GetLinkCaption();
    return form.GetLink();
}

std::string LinkDialogs::ChooseTopic(const ModelControlHelper::TopicRequest& request) {
    TopicForm form(mWorkspace.GetSession(), request);
    Run(form, *form.Members->finder);
    return form.GetTopic();
}

void LinkDialogs::Run(Form& form, Control& first) {
    form.SetRunner([&](Form& shown, FormMode) {
        QWidget* above = QApplication::activeModalWidget();
        FormView view(mFactory, shown, above ? above : &mWindow);
        view.setObjectName(QString::fromStdString(shown.GetName()));
        first.SetFocus();
        view.exec();
    });
    form.Show(FormMode::Modal);
}

} // namespace paperkite
