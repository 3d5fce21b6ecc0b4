#include "host/window/MainWindow.h"

#include "foundation/Text.h"
#include "foundation/Utilities.h"
#include "host/CommentHistory.h"
#include "host/window/CoverageStatus.h"
#include "host/window/FindDialog.h"
#include "host/window/LinkDialogs.h"
#include "host/window/SafeKeeping.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QTimer>

namespace paperkite {

namespace {

/// A signature as people write it: "(int a, const T& b)".
std::string Spaced(const std::string& signature) {
    std::string text = ReplaceAll(ReplaceAll(signature, ", ", ","), ",", ", ");
    for (const char* mark : {"&&", "&", "*"})
        text = ReplaceAll(text, std::string(" ") + mark, mark);
    return text;
}

/// An item in one line, as far as the scan knows it: "class Dog : Animal", "int Bark(int times)".
std::string DeclarationOf(const Object& item) {
    const std::string type = item.Get("Type").ToText();
    const std::string signature = item.Get("Signature").ToText();
    const std::string inherits = item.Get("Inherits").ToText();
    const std::string name = item.Get("Name").ToText();
    if (type.empty() && signature.empty())
        return LowerCase(item.Get("Kind").ToText()) + " " + name +
               (inherits.empty() ? "" : " : " + Spaced(inherits));
    return (type.empty() ? "" : type + " ") + name + Spaced(signature);
}

} // namespace

void MainWindow::ShowItem(const Ref<TreeNode>& node) {
    const Ref<Object> item = mWorkspace->GetEditor().cEditor.GetCurrentCodeElement();
    mWorkspace->GetEditor().cEditor.UserControl->SetVisible(static_cast<bool>(item));
    mNoItem->SetVisible(!item);
    mSourcePane->SetVisible(static_cast<bool>(item));
    if (item) ShowSource(item);
    const std::string name = node->GetKey();
    NoteChangeable();
    if (mFindDialog && item) mFindDialog->SetItem(name);
    mPath->setText(item ? QString::fromStdString(ReplaceAll(name, "~", " ~ "))
                        : QString::fromStdString(node->GetText()));
    mPath->setToolTip(mPath->text());
    mCoverage->SetItem(item ? name : std::string());
    UpdateActions();
    // The editor takes the focus of every item; who walks the tree by keys goes on walking.
    if (mKeyInTree) mWorkspace->GetEditor().Project.tvwProject->SetFocus();
}

void MainWindow::NoteKeyInTree() {
    mKeyInTree = true;
    QTimer::singleShot(0, this, [this] { mKeyInTree = false; });
}

void MainWindow::ShowSource(const Ref<Object>& item) {
    std::string place = item->Get("File").ToText();
    if (!place.empty()) place += ":" + item->Get("Line").ToText();
    mSourcePane->Show(place, DeclarationOf(*item), item->Get("Description").ToText());
}

void MainWindow::CommentsChanged(const Ref<Object>& item) {
    const auto& project = mWorkspace->GetSession().GetProject();
    project->SetDirty(true);
    const std::string name = item->Get("QualifiedName").ToText();
    if (mKeeping) mKeeping->GetWork().ItemChanged(name);
    mHistory->ItemChanged(name);
    ShowHistory();
    const bool documented = project->GetComments()->IsDocumented(name);
    mCoverage->SetDocumented(name, documented);
    ShowTitle();
}

// An author may write on whatever has a place on the page: members, parameters.
void MainWindow::NoteChangeable() {
    const auto& editor = mWorkspace->GetEditor().cEditor;
    const auto item = editor.GetCurrentCodeElement();
    if (!item) return;
    std::vector<std::string> names{item->Get("QualifiedName").ToText()};
    const auto& page = editor.InPlaceEditor->GetEditControl();
    if (page->GetDocument())
        for (const auto& place : page->GetPlaces())
            names.push_back(ReplaceAll(Utilities::Token(place->GetId(), "|", 2), "%7C", "|"));
    mHistory->ItemsShown(names);
    if (!mKeeping) return;
    for (const std::string& name : names)
        mKeeping->GetWork().ItemShown(name);
}

void MainWindow::Undo() {
    AfterHistory(mHistory->Undo());
}

void MainWindow::Redo() {
    AfterHistory(mHistory->Redo());
}

void MainWindow::AfterHistory(const std::vector<std::string>& items) {
    const auto& comments = mWorkspace->GetSession().GetProject()->GetComments();
    for (const std::string& name : items) {
        if (mKeeping) mKeeping->GetWork().ItemChanged(name);
        mCoverage->SetDocumented(name, comments->IsDocumented(name));
    }
    ShowTitle();
    ShowHistory();
    CountHomeless();
    // What was taken back is to be seen.
    const auto current = mWorkspace->GetEditor().cEditor.GetCurrentCodeElement();
    if (items.size() == 1 && (!current || current->Get("QualifiedName").ToText() != items.front()))
        mWorkspace->Select(items.front());
}

void MainWindow::ShowHistory() {
    const auto show = [this](const char* name, const QString& text, const std::string& caption) {
        QAction* action = GetAction(name);
        action->setEnabled(!caption.empty());
        action->setText(caption.empty() ? text : text + ' ' + QString::fromStdString(caption));
    };
    show("Undo", tr("&Undo"), mHistory ? mHistory->UndoCaption() : std::string());
    show("Redo", tr("&Redo"), mHistory ? mHistory->RedoCaption() : std::string());
}

std::string MainWindow::StateOf(const TreeNode& node) const {
    if (IsGroupNode(node) || IsPlaceholderKey(node.GetKey())) return {};
    std::vector<std::string> states;
    if (node.GetBold()) states.push_back("documented");
    const auto item = mWorkspace->GetSession().GetProvider()->GetItem(node.GetKey());
    const std::string access = item ? LowerCase(item->Get("Access").ToText()) : std::string();
    if (!access.empty() && access != "public") states.push_back(access);
    return Join(states, ", ");
}

void MainWindow::ClickTreeCommand(const char* name) {
    mWorkspace->GetEditor().Project.Dock->UserClick(name);
    UpdateActions();
}

void MainWindow::NextSibling() {
    ClickTreeCommand("Next");
}

void MainWindow::PreviousSibling() {
    ClickTreeCommand("Previous");
}

void MainWindow::CopyComments() {
    ClickTreeCommand("Copy");
}

void MainWindow::PasteComments() {
    ClickTreeCommand("Paste");
}

void MainWindow::NextUndocumented() {
    const auto selected = mWorkspace->GetEditor().Project.GetSelectedItem();
    const auto next = mWorkspace->NextUndocumented(selected);
    if (next)
        MoveTo(next);
    else
        statusBar()->showMessage(
            mWorkspace->GetSession().IsPart()
                ? tr("Every item from here on that was read so far is documented.")
                : tr("Every item from here on is documented."),
            5000);
}

void MainWindow::PreviousUndocumented() {
    const auto selected = mWorkspace->GetEditor().Project.GetSelectedItem();
    const auto previous = mWorkspace->PreviousUndocumented(selected);
    if (previous)
        MoveTo(previous);
    else
        statusBar()->showMessage(
            mWorkspace->GetSession().IsPart()
                ? tr("Every item before this one that was read so far is documented.")
                : tr("Every item before this one is documented."),
            5000);
}

void MainWindow::MoveTo(const Ref<TreeNode>& node) {
    if (!node) return;
    node->EnsureVisible();
    mWorkspace->GetEditor().Project.SetSelectedItem(node);
}

void MainWindow::InsertLink() {
    if (mLinks->InsertLink()) return;
    statusBar()->showMessage(
        tr("A link stands in a text: click where it is to be on the page, or select its words."),
        8000);
}

void MainWindow::FocusFinder() {
    mFinder->SetFocus();
}

bool MainWindow::GoTo(const std::string& qualifiedName) {
    if (mWorkspace->Select(qualifiedName)) return true;
    statusBar()->showMessage(
        tr("The tree does not show this item now: private and protected members can be shown by "
           "the View menu."),
        8000);
    return false;
}

} // namespace paperkite
