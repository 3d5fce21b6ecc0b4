#include "platform/qt/DockView.h"

#include "foundation/Text.h"
#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"

#include <QAction>
#include <QEvent>
#include <QFrame>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace paperkite {

namespace {

Qt::ToolButtonStyle ButtonStyle(ToolbarStyle style) {
    switch (style) {
    case ToolbarStyle::TextOnly:
        return Qt::ToolButtonTextOnly;
    case ToolbarStyle::TextUnderIcons:
        return Qt::ToolButtonTextUnderIcon;
    case ToolbarStyle::TextBesideIcons:
        return Qt::ToolButtonTextBesideIcon;
    case ToolbarStyle::IconsOnly:
        break;
    }
    return Qt::ToolButtonIconOnly;
}

// Without a caption the name is read as words: "ShowProtected" as "Show Protected".
QString CaptionOf(const DockCommand& command) {
    if (!command.GetCaption().empty()) return ToQString(command.GetCaption());
    QString words;
    for (const QChar letter : ToQString(command.GetName())) {
        if (letter.isUpper() && !words.isEmpty() && words.back().isLower())
            words += QLatin1Char(' ');
        words += letter;
    }
    return words;
}

} // namespace

DockView::DockView(ViewFactory& factory, const Ref<DockHost>& dock, QWidget* parent)
    : QWidget(parent), mFactory(factory), mDock(dock), mColumn(new QVBoxLayout(this)),
      mClient(new QWidget(this)) {
    mColumn->setContentsMargins(0, 0, 0, 0);
    mColumn->setSpacing(0);
    mColumn->addWidget(mClient, 1);
    ControlView::Attach(dock, this);
    mTie = dock->Observe(*this);
    Rebuild();
}

QAction* DockView::ActionOf(const std::string& command) const {
    for (auto action = mActions.begin(); action != mActions.end(); ++action)
        if (EqualIgnoringCase(action.key()->GetName(), command)) return action.value();
    return nullptr;
}

void DockView::ControlChanged(Control&) {
    ShowClient();
    RebuildSoon();
}

void DockView::ToolbarsChanged() {
    RebuildSoon();
}

void DockView::CommandChanged(DockCommand& command) {
    if (QAction* action = mActions.value(&command)) ShowCommand(*action, command);
}

// Later, since the change may come out of a button that is being pressed.
void DockView::RebuildSoon() {
    if (std::exchange(mRebuildPending, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (mRebuildPending) Rebuild();
        },
        Qt::QueuedConnection);
}

void DockView::Rebuild() {
    mRebuildPending = false;
    mActions.clear();
    auto* before = mBars;
    mBars = new QWidget(this);
    auto* rows = new QVBoxLayout(mBars);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    bool any = false;
    for (std::size_t index = 1; index <= mDock->GetToolbarCount(); ++index) {
        const auto toolbar = mDock->GetToolbar(index);
        if (!toolbar->GetVisible()) continue;
        rows->addWidget(MakeToolbar(*toolbar));
        any = true;
    }
    mBars->setVisible(any);
    mColumn->insertWidget(0, mBars);
    if (!before) return;
    mColumn->removeWidget(before);
    before->hide();
    before->deleteLater();
}

QToolBar* DockView::MakeToolbar(const DockToolbar& toolbar) {
    auto* bar = new QToolBar(ToQString(toolbar.GetName()), mBars);
    bar->setMovable(false);
    Icons::SizeWithText(*bar);
    bar->setToolButtonStyle(ButtonStyle(mDock->GetToolbarStyle()));
    bar->setAccessibleName(ToQString(toolbar.GetName()));
    for (const auto& control : toolbar)
        AddButton(*bar, control);
    return bar;
}

void DockView::AddButton(QToolBar& bar, const DockToolbarControl& control) {
    if (control.BeginGroup && !bar.actions().isEmpty()) bar.addSeparator();
    if (control.Hosted) {
        bar.addWidget(mFactory.MakeView(control.Hosted, &bar));
        return;
    }
    const Ref<DockCommand> command = control.Command;
    QAction* action = MakeAction(command, &bar);
    bar.addAction(action);
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
    if (!button) return;
    // The keyboard reaches every button with Tab and the arrow keys.
    button->setFocusPolicy(Qt::TabFocus);
    button->setMinimumSize(28, 24);
    if (action->icon().isNull()) button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    if (command->GetIsPopup()) {
        button->setMenu(MakeMenu(*command, button));
        button->setPopupMode(QToolButton::InstantPopup);
    }
}

QAction* DockView::MakeAction(const Ref<DockCommand>& command, QObject* parent) {
    auto* action = new QAction(parent);
    action->setCheckable(bool(command.As<DockCheckCommand>()));
    action->setShortcut(mFactory.GetShortcut(command->GetName()));
    action->setShortcutContext(Qt::WindowShortcut);
    mActions[command.get()] = action;
    ShowCommand(*action, *command);
    connect(action, &QAction::triggered, this, [this, command] { Trigger(command); });
    return action;
}

void DockView::ShowCommand(QAction& action, const DockCommand& command) {
    const std::string& image = command.GetImage();
    action.setText(CaptionOf(command));
    action.setIcon(Icons::InList(mDock->GetImageList(), image.empty() ? command.GetName() : image));
    const std::string& tip = command.GetToolTipText();
    action.setToolTip(tip.empty() ? CaptionOf(command) : ToQString(tip));
    action.setStatusTip(ToQString(command.GetStatusText()));
    action.setEnabled(command.GetEnabled());
    action.setVisible(command.GetVisible());
    if (const auto* check = dynamic_cast<const DockCheckCommand*>(&command))
        action.setChecked(check->GetChecked() == 1);
}

void DockView::Trigger(const Ref<DockCommand>& command) {
    // The native button has turned itself; the command's state is what counts.
    CommandChanged(*command);
    mDock->UserClick(command);
    if (mDock->HasPopupWindow(command->GetName())) OpenWindow(command);
}

QMenu* DockView::MakeMenu(DockCommand& popup, QWidget* parent) {
    auto* menu = new QMenu(parent);
    for (const auto& command : popup.GetPopupCommands())
        menu->addAction(MakeAction(command, menu));
    return menu;
}

// Its actions are its own: those of the bars, with their keys, stay where they are.
void DockView::MenuWanted(DockCommand& popup, int x, int y) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& command : popup.GetPopupCommands()) {
        auto* action = new QAction(menu);
        ShowCommand(*action, *command);
        connect(action, &QAction::triggered, this, [this, command] { mDock->UserClick(command); });
        menu->addAction(action);
    }
    menu->popup(QPoint(x, y));
}

void DockView::OpenWindow(const Ref<DockCommand>& command) {
    const DockPopupWindow& window = mDock->PopupWindow(command->GetName());
    if (!window.Content) return;
    auto* frame = new QFrame(this, Qt::Popup);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setFrameShape(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(8, 8, 8, 8);
    QWidget* content = mFactory.MakeView(window.Content, frame);
    content->show();
    column->addWidget(content);
    frame->resize(frame->sizeHint().expandedTo(QSize(window.Width, window.Height)));
    frame->move(mBars->mapToGlobal(mBars->rect().bottomLeft()));
    frame->show();
}

void DockView::ShowClient() {
    if (mShownClient == mDock->GetClient()) return;
    mShownClient = mDock->GetClient();
    QWidget* view = mShownClient ? mFactory.MakeView(mShownClient, this) : new QWidget(this);
    delete mColumn->replaceWidget(mClient, view);
    mClient->hide();
    mClient->deleteLater();
    mClient = view;
    mColumn->setStretchFactor(mClient, 1);
}

void DockView::ReportClientRectangle() {
    const int top = mBars && !mBars->isHidden() ? mBars->geometry().bottom() + 1 : 0;
    mDock->UserClientResize({0, top, width(), height() - top});
}

void DockView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    mColumn->activate();
    ReportClientRectangle();
}

bool DockView::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) ReportClientRectangle();
    if (event->type() == QEvent::FontChange) RebuildSoon();
    return handled;
}

} // namespace paperkite
