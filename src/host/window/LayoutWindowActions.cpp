#include "host/window/LayoutWindow.h"

#include "platform/qt/Icons.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

// The menus and the bar of the layout window.

namespace paperkite {

QAction* LayoutWindow::AddAction(QMenu& menu, const char* name, const QString& text,
                                 const char* icon, const QKeySequence& key,
                                 std::function<void()> run) {
    auto* action = menu.addAction(text);
    action->setObjectName(name);
    if (*icon != '\0') action->setIcon(Icons::ByName(icon));
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [run = std::move(run)] { run(); });
    mActions.insert(name, action);
    return action;
}

void LayoutWindow::AddEditTool(QMenu& menu, const char* tool, const QString& text, const char* icon,
                               const QKeySequence& key) {
    AddAction(menu, tool, text, icon, key,
              [this, tool] { mEdit->dedDocument->ClickEditTool(tool); });
}

void LayoutWindow::AddElementAction(QMenu& menu, const char* name, const char* command,
                                    const QString& text, const char* icon,
                                    const QKeySequence& key) {
    const auto known = mEdit->dksUI->Commands.Item(command);
    QAction* action = AddAction(menu, name, text, icon, key,
                                [this, command] { mEdit->dksUI->UserClick(command); });
    action->setToolTip(QString::fromStdString(known->GetToolTipText()) +
                       (key.isEmpty() ? QString() : " (" + key.toString() + ")"));
    action->setStatusTip(QString::fromStdString(known->GetStatusText()));
}

void LayoutWindow::MakeActions() {
    QMenu& file = *menuBar()->addMenu(tr("&File"));
    AddAction(file, "Save", tr("&Save"), "document-save", QKeySequence::Save, [this] { Save(); });
    AddAction(file, "SaveCopy", tr("Save a &Copy …"), "document-save-as",
              QKeySequence("Ctrl+Shift+S"), [this] { SaveCopy(); });
    file.addSeparator();
    AddAction(file, "Close", tr("&Close"), "window-close", QKeySequence::Close,
              [this] { close(); });

    QMenu& edit = *menuBar()->addMenu(tr("&Edit"));
    AddEditTool(edit, "undo", tr("&Undo"), "edit-undo", QKeySequence::Undo);
    AddEditTool(edit, "redo", tr("&Redo"), "edit-redo", QKeySequence::Redo);
    edit.addSeparator();
    AddEditTool(edit, "cut", tr("Cu&t"), "edit-cut", QKeySequence::Cut);
    AddEditTool(edit, "copy", tr("&Copy"), "edit-copy", QKeySequence::Copy);
    AddEditTool(edit, "paste", tr("&Paste"), "edit-paste", QKeySequence::Paste);
    edit.addSeparator();
    AddEditTool(edit, "bold", tr("&Bold"), "format-text-bold", QKeySequence::Bold);
    AddEditTool(edit, "italic", tr("&Italic"), "format-text-italic", QKeySequence::Italic);
    AddAction(edit, "inserttable", tr("Insert T&able"), "insert-table", {},
              [this] { mEdit->dedDocument->InsertTable(2, 2); });
    AddEditTool(edit, "createlink", tr("&Link …"), "insert-link", QKeySequence("Ctrl+K"));

    QMenu& view = *menuBar()->addMenu(tr("&View"));
    const auto addView = [&](const char* name, const QString& text, int key, std::size_t tab) {
        AddAction(view, name, text, "", QKeySequence(Qt::ALT | key),
                  [this, tab] { mEdit->fstView->UserClick(tab); });
    };
    addView("ViewNormal", tr("&Normal"), Qt::Key_1, 1);
    addView("ViewSource", tr("&HTML"), Qt::Key_2, 2);
    addView("ViewPreview", tr("&Preview"), Qt::Key_3, 3);
    view.addSeparator();
    AddAction(view, "PreviewItem", tr("Preview &on Item …"), "document-preview",
              QKeySequence("Ctrl+P"), [this] { ChoosePreviewItem(); });

    QMenu& element = *menuBar()->addMenu(tr("E&lement"));
    AddElementAction(element, "AddElement", "btnMetaAdd", tr("&Add Element …"), "list-add",
                     QKeySequence("Ctrl+Shift+E"));
    AddElementAction(element, "EditElement", "btnMetaEdit", tr("&Edit Element …"),
                     "document-properties", QKeySequence("Ctrl+E"));
    AddElementAction(element, "DeleteElement", "btnMetaDelete", tr("&Delete Element"),
                     "edit-delete", QKeySequence("Ctrl+Del"));
    AddAction(element, "ElementHelp", tr("&Help on This Element"), "help-contents",
              QKeySequence::HelpContents, [this] { mEdit->dksUI->UserClick("btnMetaHelp"); });
    mConnections.push_back(mEdit->dksUI->Events.CommandClick.Connect([this](const auto& command) {
        if (command->GetName() == "btnMetaHelp") ShowHelp();
    }));
    MakeToolbar();
}

void LayoutWindow::MakeToolbar() {
    auto* bar = addToolBar(tr("Layout"));
    bar->setObjectName("layoutBar");
    bar->setMovable(false);
    Icons::SizeWithText(*bar);
    const auto add = [&](std::initializer_list<const char*> names, Qt::ToolButtonStyle style) {
        if (!bar->actions().isEmpty()) bar->addSeparator();
        for (const char* name : names) {
            bar->addAction(mActions[name]);
            auto* button = bar->widgetForAction(mActions[name]);
            button->setProperty("toolButtonStyle", style);
            button->setFocusPolicy(Qt::TabFocus);
        }
    };
    add({"Save"}, Qt::ToolButtonIconOnly);
    add({"undo", "redo"}, Qt::ToolButtonIconOnly);
    add({"AddElement", "EditElement", "DeleteElement"}, Qt::ToolButtonTextBesideIcon);
    add({"bold", "italic", "inserttable", "createlink"}, Qt::ToolButtonIconOnly);
    add({"PreviewItem"}, Qt::ToolButtonTextBesideIcon);
}

void LayoutWindow::UpdateActions() {
    const HtmlEdit& editor = *mEdit->dedDocument;
    const bool isOpen = mFile != nullptr;
    const int view = mEdit->GetView();
    for (const char* name : {"Save", "SaveCopy", "ViewNormal", "ViewSource", "ViewPreview"})
        mActions[name]->setEnabled(isOpen);
    for (const char* name : {"bold", "italic", "inserttable", "createlink"})
        mActions[name]->setEnabled(isOpen && view == 0 && editor.IsCommandEnabled(name));
    for (const char* name : {"undo", "redo", "cut", "copy", "paste"})
        mActions[name]->setEnabled(isOpen && editor.IsCommandEnabled(name));
    if (isOpen && mEdit->CanUndoElementEdit()) mActions["undo"]->setEnabled(true);
    if (isOpen && mEdit->CanRedoElementEdit()) mActions["redo"]->setEnabled(true);
    const auto& commands = mEdit->dksUI->Commands;
    const std::pair<const char*, const char*> elements[] = {{"AddElement", "btnMetaAdd"},
                                                            {"EditElement", "btnMetaEdit"},
                                                            {"DeleteElement", "btnMetaDelete"},
                                                            {"ElementHelp", "btnMetaHelp"}};
    for (const auto& [action, command] : elements)
        mActions[action]->setEnabled(isOpen && commands.Item(command)->GetEnabled());
    mActions["PreviewItem"]->setEnabled(isOpen && mWorkspace);
    const std::string item = mPreviewItem.substr(mPreviewItem.rfind('~') + 1);
    mActions["PreviewItem"]->setText(
        item.empty() ? tr("Preview &on Item …")
                     : tr("Preview &on %1 …").arg(QString::fromStdString(item)));
}

} // namespace paperkite
