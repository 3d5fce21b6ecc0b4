#include "host/window/MainWindow.h"

#include "foundation/GlobalConfig.h"
#include "platform/qt/Icons.h"

#include <QActionGroup>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace paperkite {

void MainWindow::MakeActions() {
    MakeFileMenu();
    MakeEditMenu();
    MakeViewMenu();
    MakeGoMenu();
    MakeHelpMenu();
    MakeToolbar();
}

QAction* MainWindow::AddAction(QMenu& menu, const char* name, const QString& text, const char* icon,
                               const QKeySequence& key, void (MainWindow::*slot)()) {
    auto* action = menu.addAction(text, this, slot);
    action->setObjectName(name);
    if (*icon != '\0') action->setIcon(Icons::ByName(icon));
    action->setShortcut(key);
    mActions.insert(name, action);
    return action;
}

QAction* MainWindow::GetAction(const QString& name) const {
    return mActions.value(name);
}

void MainWindow::MakeFileMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&File"));
    AddAction(menu, "New", tr("&New Project …"), "document-new", QKeySequence::New,
              &MainWindow::New);
    AddAction(menu, "Open", tr("&Open Project …"), "document-open", QKeySequence::Open,
              &MainWindow::Open);
    mRecentMenu = menu.addMenu(tr("Open &Recent"));
    connect(mRecentMenu, &QMenu::aboutToShow, this, [this] { FillRecentMenu(); });
    menu.addSeparator();
    AddAction(menu, "Save", tr("&Save"), "document-save", QKeySequence::Save,
              &MainWindow::SaveFromMenu);
    AddAction(menu, "SaveAs", tr("Save &As …"), "document-save-as", QKeySequence("Ctrl+Shift+S"),
              &MainWindow::SaveAsFromMenu);
    menu.addSeparator();
    AddAction(menu, "Rescan", tr("Read Source &Code Again"), "view-refresh", QKeySequence::Refresh,
              &MainWindow::Rescan);
    AddAction(menu, "Properties", tr("Project &Properties"), "document-properties", {},
              &MainWindow::ShowProperties);
    menu.addSeparator();
    AddAction(menu, "Close", tr("&Close Project"), "document-close", QKeySequence("Ctrl+W"),
              &MainWindow::CloseFromMenu);
    auto* quit =
        menu.addAction(Icons::ByName("application-exit"), tr("&Quit"), this, [this] { close(); });
    quit->setShortcut(QKeySequence("Ctrl+Q"));
}

void MainWindow::FillRecentMenu() {
    mRecentMenu->clear();
    for (const std::string& path : mRecent.Load()) {
        const QString file = QString::fromStdString(path);
        QAction* action = mRecentMenu->addAction(QFileInfo(file).completeBaseName());
        action->setToolTip(file);
        action->setStatusTip(file);
        connect(action, &QAction::triggered, this, [this, file] { OpenProject(file); });
    }
    mRecentMenu->setToolTipsVisible(true);
    if (mRecentMenu->isEmpty())
        mRecentMenu->addAction(tr("No project was opened yet"))->setEnabled(false);
}

void MainWindow::MakeEditMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&Edit"));
    AddAction(menu, "Undo", tr("&Undo"), "edit-undo", QKeySequence::Undo, &MainWindow::Undo);
    AddAction(menu, "Redo", tr("&Redo"), "edit-redo", QKeySequence::Redo, &MainWindow::Redo);
    menu.addSeparator();
    AddAction(menu, "CopyComments", tr("&Copy the Item's Comments"), "edit-copy",
              QKeySequence("Ctrl+Shift+C"), &MainWindow::CopyComments);
    AddAction(menu, "PasteComments", tr("&Paste Comments to the Item"), "edit-paste",
              QKeySequence("Ctrl+Shift+V"), &MainWindow::PasteComments);
    AddAction(menu, "Link", tr("&Link …"), "insert-link", QKeySequence("Ctrl+K"),
              &MainWindow::InsertLink);
    menu.addSeparator();
    AddAction(menu, "FindInComments", tr("Fi&nd and Replace in Comments …"), "edit-find-replace",
              QKeySequence("Ctrl+Shift+F"), &MainWindow::FindInComments);
    AddAction(menu, "FindNextInComments", tr("Find Ne&xt in Comments"), "", QKeySequence::FindNext,
              &MainWindow::FindNextInComments);
    AddAction(menu, "CheckSpelling", tr("Check &Spelling of the Item"), "tools-check-spelling",
              QKeySequence("F7"), &MainWindow::CheckSpelling);
    AddAction(menu, "CheckSpellingOfProject", tr("Check Spelling of the Pro&ject"), "",
              QKeySequence("Shift+F7"), &MainWindow::CheckSpellingOfProject);
    AddAction(menu, "SpellingOptions", tr("Spelling &Options …"), "", {},
              &MainWindow::ShowSpellingOptions);
    AddAction(menu, "CheckLinks", tr("Check &Links …"), "", QKeySequence("Ctrl+Shift+K"),
              &MainWindow::CheckLinks);
    menu.addSeparator();
    AddAction(menu, "ResolveConflicts", tr("&Choose Between Versions …"), "", {},
              &MainWindow::ResolveConflicts);
    AddAction(menu, "Homeless", tr("&Homeless Comments …"), "", QKeySequence("Ctrl+Shift+H"),
              &MainWindow::ShowHomeless);
    AddAction(menu, "FindItem", tr("&Find an Item …"), "edit-find", QKeySequence::Find,
              &MainWindow::FocusFinder);
}

void MainWindow::AddTreeOption(QMenu& menu, const char* command, const QString& text) {
    auto* action = menu.addAction(text, this, [this, command] { ClickTreeCommand(command); });
    action->setCheckable(true);
    action->setObjectName(command);
    mActions.insert(command, action);
}

void MainWindow::AddScheme(QMenu& menu, QActionGroup& group, const QString& text,
                           ColourScheme scheme) {
    auto* action = menu.addAction(text, this, [this, scheme] { SetScheme(scheme); });
    action->setCheckable(true);
    action->setChecked(mTheme.GetScheme() == scheme);
    group.addAction(action);
}

void MainWindow::MakeViewMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&View"));
    AddTreeOption(menu, "ShowProtected", tr("Show P&rotected Members"));
    AddTreeOption(menu, "ShowFriend", tr("Show &Friend Members"));
    AddTreeOption(menu, "ShowPrivate", tr("Show &Private Members"));
    AddTreeOption(menu, "Grouped", tr("&Group Members"));
    AddTreeOption(menu, "AutoExpand", tr("&Expand Items When Clicked"));
    menu.addSeparator();
    auto* types = menu.addAction(tr("Kinds of Comments as a &Toolbar"), this,
                                 [this](bool value) { ShowTypesAsToolbar(value); });
    types->setCheckable(true);
    types->setObjectName("TypesToolbar");
    mActions.insert("TypesToolbar", types);
    mTemplateMenu = menu.addMenu(tr("Page &Template"));
    connect(mTemplateMenu, &QMenu::aboutToShow, this, [this] { FillTemplateMenu(); });
    AddAction(menu, "PageLayouts", tr("Page La&youts …"), "text-html", QKeySequence("Ctrl+Shift+L"),
              &MainWindow::ShowLayouts);
    QMenu& colours = *menu.addMenu(tr("&Colours"));
    auto* group = new QActionGroup(this);
    AddScheme(colours, *group, tr("As the &System"), ColourScheme::System);
    AddScheme(colours, *group, tr("&Light"), ColourScheme::Light);
    AddScheme(colours, *group, tr("&Dark"), ColourScheme::Dark);
    AddAction(menu, "LargerText", tr("&Larger Text"), "zoom-in", QKeySequence::ZoomIn,
              &MainWindow::LargerText);
    AddAction(menu, "SmallerText", tr("&Smaller Text"), "zoom-out", QKeySequence::ZoomOut,
              &MainWindow::SmallerText);
}

void MainWindow::FillTemplateMenu() {
    mTemplateMenu->clear();
    const auto present =
        mWorkspace ? mWorkspace->GetEditor().cEditor.GetInPlaceTemplate() : Ref<PageTemplate>();
    for (const auto& known : GlobalConfig().Templates) {
        QAction* action = mTemplateMenu->addAction(QString::fromStdString(known->Name));
        action->setCheckable(true);
        action->setChecked(known == present);
        action->setEnabled(mWorkspace != nullptr);
        connect(action, &QAction::triggered, this, [this, known] { SetTemplate(known); });
    }
    if (mTemplateMenu->isEmpty())
        mTemplateMenu->addAction(tr("The program has no page template"))->setEnabled(false);
}

// The tree's own toolbar has buttons for the siblings; a key may belong to one action only, and the
// menu is where people look for it.
void MainWindow::MakeGoMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&Go"));
    AddAction(menu, "NextSibling", tr("&Next Undocumented Sibling"), "go-next",
              QKeySequence("Ctrl+Shift+N"), &MainWindow::NextSibling);
    AddAction(menu, "PreviousSibling", tr("&Previous Undocumented Sibling"), "go-previous",
              QKeySequence("Ctrl+Shift+P"), &MainWindow::PreviousSibling);
    AddAction(menu, "NextUndocumented", tr("Next Undocumented in the Pro&ject"), "go-down",
              QKeySequence("F8"), &MainWindow::NextUndocumented);
    AddAction(menu, "PreviousUndocumented", tr("Previous &Undocumented in the Project"), "go-up",
              QKeySequence("Shift+F8"), &MainWindow::PreviousUndocumented);
}

void MainWindow::MakeHelpMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&Help"));
    AddAction(menu, "About", tr("&About Paperkite"), "help-about", {}, &MainWindow::About);
}

void MainWindow::MakeToolbar() {
    auto* bar = addToolBar(tr("Project"));
    bar->setObjectName("ProjectToolbar");
    bar->setMovable(false);
    Icons::SizeWithText(*bar);
    for (const char* name : {"New", "Open", "Save"})
        bar->addAction(GetAction(name));
    bar->addSeparator();
    for (const char* name : {"PreviousUndocumented", "NextUndocumented"})
        bar->addAction(GetAction(name));
    bar->addSeparator();
    bar->addAction(GetAction("Rescan"));
    for (QAction* action : bar->actions()) {
        const QString key = action->shortcut().toString(QKeySequence::NativeText);
        if (action->isSeparator()) continue;
        QString text = action->text().remove('&').remove(" …");
        action->setToolTip(key.isEmpty() ? text : tr("%1 (%2)").arg(text, key));
    }
}

void MainWindow::UpdateActions() {
    const bool open = mWorkspace != nullptr;
    ShowHistory();
    for (const char* name :
         {"TypesToolbar", "Link", "FindInComments", "FindNextInComments", "CheckSpellingOfProject",
          "SpellingOptions", "CheckLinks", "FindItem", "ResolveConflicts", "Save", "SaveAs",
          "Rescan", "Properties", "Close", "NextSibling", "PreviousSibling", "NextUndocumented",
          "PreviousUndocumented"})
        GetAction(name)->setEnabled(open);
    GetAction("Homeless")->setEnabled(mHomelessCount > 0);
    GetAction("Homeless")
        ->setText(open && mWorkspace->GetSession().IsPart()
                      ? tr("&Homeless Comments (Not All Code Was Read Yet)")
                  : open && mHomelessCount == 0 ? tr("No &Homeless Comments")
                                                : tr("&Homeless Comments …"));
    GetAction("CheckSpelling")
        ->setEnabled(open && mWorkspace->GetEditor().cEditor.GetCurrentCodeElement());
    GetAction("CopyComments")
        ->setEnabled(open && mWorkspace->GetEditor().cEditor.GetCurrentCodeElement());
    GetAction("PasteComments")
        ->setEnabled(open && mWorkspace->GetEditor().Project.GetPasteCommentsEnabled());
    for (const char* name :
         {"ShowProtected", "ShowFriend", "ShowPrivate", "Grouped", "AutoExpand"}) {
        QAction* action = GetAction(name);
        action->setEnabled(open);
        if (!open) continue;
        const auto command = mWorkspace->GetEditor().Project.Dock->Commands.CheckItem(name);
        action->setVisible(command->GetVisible());
        action->setChecked(command->GetChecked() != 0);
    }
}

} // namespace paperkite
