#include "host/window/MainWindow.h"

#include "host/CommentHistory.h"
#include "host/ItemTitle.h"
#include "host/window/BackgroundReading.h"
#include "host/window/CoverageStatus.h"
#include "host/window/FindDialog.h"
#include "host/window/LayoutWindow.h"
#include "host/window/LinkDialogs.h"
#include "host/window/LinksDialog.h"
#include "host/window/NewProjectDialog.h"
#include "host/window/SafeKeeping.h"
#include "host/window/ScanDialog.h"
#include "platform/qt/TreeItemModel.h"
#include "widgets/Container.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>

namespace paperkite {

namespace {

constexpr const char* kNoItemText =
    "Choose an item in the tree to write its comments, or press F8 to go to the next one without "
    "comments.";

void Warn(QWidget* parent, const QString& title, const std::string& message) {
    QMessageBox::warning(parent, title, QString::fromStdString(message));
}

QStringList ProjectsIn(const QDir& folder) {
    return folder.entryList({QString("*") + kProjectEnding}, QDir::Files);
}

} // namespace

bool MainWindow::OpenPath(const QString& path) {
    if (!QFileInfo(path).isDir() || ProjectsIn(QDir(path)).size() == 1) return OpenProject(path);
    NewProjectDialog dialog(this);
    dialog.SetSourceFolder(path);
    return dialog.exec() == QDialog::Accepted && CreateProject(dialog.GetNewProject());
}

void MainWindow::New() {
    NewProjectDialog dialog(this);
    if (dialog.exec() == QDialog::Accepted) CreateProject(dialog.GetNewProject());
}

void MainWindow::Open() {
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open Project"), {}, tr("Projects (*%1);;All files (*)").arg(kProjectEnding));
    if (!path.isEmpty()) OpenProject(path);
}

bool MainWindow::CreateProject(const ProjectSession::NewProject& wanted) {
    if (!SavedOrGivenUp()) return false;
    ProjectSession::OpenResult made;
    const std::string failure =
        ScanDialog::Run(this, [&](const ProjectSession::Progress& progress) {
            made = ProjectSession::CreateSoon(wanted, progress);
        });
    return ShowOpened(std::move(made), failure, tr("New Project"));
}

bool MainWindow::OpenProject(const QString& path) {
    if (!SavedOrGivenUp()) return false;
    ProjectSession::OpenResult opened;
    const std::string failure =
        ScanDialog::Run(this, [&](const ProjectSession::Progress& progress) {
            opened = ProjectSession::OpenSoon(path.toStdString(), progress);
        });
    if (!QFileInfo::exists(path)) mRecent.Remove(path.toStdString());
    return ShowOpened(std::move(opened), failure, tr("Open Project"));
}

bool MainWindow::ShowOpened(ProjectSession::OpenResult opened, const std::string& failure,
                            const QString& title) {
    if (opened.Cancelled) return false;
    if (!opened.Session) {
        Warn(this, title, failure.empty() ? opened.Problem : failure);
        return false;
    }
    // The window's own lock must not keep it from opening a project again.
    if (mKeeping && mKeeping->GetProject() == opened.Session->GetProject()->GetPath())
        mKeeping->GiveLockBack();
    auto keeping = SafeKeeping::Begin(*opened.Session, this);
    if (!keeping) return false;
    ShowProject(std::move(opened.Session), std::move(opened.Rest));
    BeginKeeping(std::move(keeping));
    TellMissingFiles();
    TellWordsProblem();
    OfferConflicts();
    return true;
}

void MainWindow::ShowProject(std::unique_ptr<ProjectSession> session,
                             std::unique_ptr<RunningReading> rest) {
    HideProject();
    mWorkspace = std::make_unique<Workspace>(std::move(session));
    mHistory = std::make_unique<CommentHistory>(*mWorkspace);
    ProjectEditor& editor = mWorkspace->GetEditor();
    editor.SetUserMode(true);
    RestoreTemplate();
    TreeItemModel::SetStateText([this](const TreeNode& node) { return StateOf(node); });
    ConnectEditor();
    mLinks = std::make_unique<LinkDialogs>(*mWorkspace, mFactory, *this);
    mSourcePane = MakeRef<SourcePane>("sourcePane");
    mNoItem = MakeRef<Label>("lblNoItem");
    mNoItem->SetCaption(kNoItemText);
    mNoItem->SetWordWrap(true);
    const auto right = MakeRef<Container>("right");
    for (const Ref<Control>& control :
         std::initializer_list<Ref<Control>>{editor.cEditor.UserControl, mNoItem, mSourcePane})
        right->Controls.Add(control);
    right->SetLayout(
        FormLayout::Column({FormLayout::Item(editor.cEditor.UserControl, 1),
                            FormLayout::Item(mNoItem, 1), FormLayout::Item(mSourcePane)}));
    editor.splitMain->SetSecondPane(right);
    AddFinder();
    mAuthoring = mFactory.MakeView(editor.splitMain, mPages);
    mPages->addWidget(mAuthoring);
    mPages->setCurrentWidget(mAuthoring);
    editor.cEditor.UserControl_Show();
    mCoverage->SetSession(&mWorkspace->GetSession());
    mRecent.Add(mWorkspace->GetSession().GetProject()->GetPath());
    ShowTitle();
    MoveTo(editor.Project.GetNodes().GetFirst());
    CountHomeless();
    if (!mWorkspace->GetSession().IsUpToDate()) ReadInBackground(std::move(rest));
}

void MainWindow::AddFinder() {
    ProjectView& tree = mWorkspace->GetEditor().Project;
    mFinder = MakeRef<ItemFinder>("finder");
    mFinder->SetAccessibleName("Find an item");
    mFinder->SetSearch([this](const std::string& text, std::size_t most) {
        const ProjectSession& session = mWorkspace->GetSession();
        std::vector<ItemFinder::Match> matches;
        for (const std::string& name : session.FindByName(text, most)) {
            const auto item = session.GetProvider()->GetItem(name);
            matches.push_back({ItemCaption(*item), ItemScope(*item), name});
        }
        return matches;
    });
    ShowWhetherAll();
    mConnections.push_back(
        mFinder->Events.Chosen.Connect([this](const auto& name) { GoTo(name); }));
    const auto client = MakeRef<Container>("treeWithFinder");
    client->Controls.Add(mFinder);
    client->Controls.Add(tree.tvwProject);
    client->SetLayout(
        FormLayout::Column({FormLayout::Item(mFinder), FormLayout::Item(tree.tvwProject, 1)}));
    tree.Dock->SetClient(client);
}

void MainWindow::HideProject() {
    if (!mWorkspace) return;
    mReading->Stop();
    if (mLayoutWindow) mLayoutWindow->SetWorkspace(nullptr);
    mLinks.reset();
    mKeeping.reset();
    mNotMerged.clear();
    mConnections.clear();
    TreeItemModel::SetStateText({});
    mCoverage->SetSession(nullptr);
    mPages->removeWidget(mAuthoring);
    delete mAuthoring;
    mAuthoring = nullptr;
    mSourcePane = nullptr;
    mNoItem = nullptr;
    mFinder = nullptr;
    delete std::exchange(mFindDialog, nullptr);
    delete std::exchange(mLinksDialog, nullptr);
    mHistory.reset();
    mWorkspace.reset();
    mPath->clear();
    ShowTitle();
    mLastHomeless.clear();
    CountHomeless();
}

void MainWindow::ConnectEditor() {
    ProjectEditor& editor = mWorkspace->GetEditor();
    const auto keep = [this](Connection connection) {
        mConnections.push_back(std::move(connection));
    };
    keep(editor.Project.Events.NodeClick.Connect([this](const auto& node) { ShowItem(node); }));
    keep(editor.Project.Events.AfterCommand.Connect([this] { UpdateActions(); }));
    // The editor has pasted by now, and tells nobody of the single comments.
    keep(editor.Project.Events.PasteCommentsRequested.Connect([this] {
        const auto item = mWorkspace->GetEditor().cEditor.GetCurrentCodeElement();
        if (item) CommentsChanged(item);
    }));
    keep(editor.Project.Events.KeyDown.Connect([this](int&, int) { NoteKeyInTree(); }));
    keep(editor.Project.Events.KeyPress.Connect([this](int&) { NoteKeyInTree(); }));
    keep(editor.Events.TaggedCommentAdded.Connect(
        [this](const auto& item, const auto&) { CommentsChanged(item); }));
    keep(editor.Events.TaggedCommentDeleted.Connect(
        [this](const auto& item, const auto&, const auto&) { CommentsChanged(item); }));
    keep(editor.Events.TaggedCommentChanged.Connect(
        [this](const auto& item, const auto&, const auto&) { CommentsChanged(item); }));
    keep(editor.cEditor.InPlaceEditor->Events.DocumentComplete.Connect([this] {
        NoteChangeable();
        // The page itself leaves this to whoever shows it.
        mWorkspace->GetEditor().cEditor.InPlaceEditor->GetEditControl()->SetSpellAsYouType(true);
    }));
    keep(editor.Events.PropertiesRequested.Connect([this] { ShowProperties(); }));
    keep(mWorkspace->GetSession().GetProject()->Document.DirtyStateChanged.Connect(
        [this](bool) { ShowTitle(); }));
}

bool MainWindow::SavedOrGivenUp() {
    if (!mWorkspace) return true;
    mWorkspace->GetEditor().CommitEdit();
    const auto& project = mWorkspace->GetSession().GetProject();
    if (!project->GetDirty()) return true;
    QMessageBox box(
        QMessageBox::Question, tr("Unsaved Comments"),
        tr("Save the changes to “%1”?").arg(QString::fromStdString(project->GetTitle())),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setInformativeText(tr("Comments that are not saved are lost."));
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    if (answer == QMessageBox::Save) return Save();
    if (answer != QMessageBox::Discard) return false;
    if (mKeeping) mKeeping->GetWork().Settle();
    return true;
}

bool MainWindow::CloseProject() {
    if (!SavedOrGivenUp()) return false;
    HideProject();
    mPages->setCurrentIndex(0);
    return true;
}

bool MainWindow::Save() {
    if (!mWorkspace) return true;
    if (mKeeping && mKeeping->IsReadOnly()) return SaveReadOnly();
    return StoreOrAsk(false, {});
}

bool MainWindow::SaveAs() {
    if (!mWorkspace) return true;
    mWorkspace->GetEditor().CommitEdit();
    const auto& project = mWorkspace->GetSession().GetProject();
    QString path = QFileDialog::getSaveFileName(this, tr("Save Project As"),
                                                QString::fromStdString(project->GetPath()),
                                                tr("Projects (*%1)").arg(kProjectEnding));
    if (path.isEmpty()) return false;
    if (!path.endsWith(kProjectEnding)) path += kProjectEnding;
    if (!StoreOrAsk(true, path)) return false;
    mWorkspace->GetSpelling()->LookAtWords();
    mRecent.Add(project->GetPath());
    return true;
}

bool MainWindow::StoreOrAsk(bool asNew, const QString& path) {
    mWorkspace->GetEditor().CommitEdit();
    mMayOverwrite = false;
    const auto store = [&] {
        const auto& project = mWorkspace->GetSession().GetProject();
        const auto overwriting = mMayOverwrite ? ProjectDocument::Overwriting::Allowed
                                               : ProjectDocument::Overwriting::Refused;
        const auto lock = WaitForWriters(asNew ? path.toStdString() : project->GetPath());
        return asNew ? project->SaveAs(path.toStdString(), overwriting)
                     : project->Save(overwriting);
    };
    auto problem = store();
    if (problem && (problem->Reason == FileProblem::ReasonCode::ChangedOnDisk ||
                    problem->Reason == FileProblem::ReasonCode::AlreadyExists)) {
        if (!SaveOverOthers(*problem)) return false;
        problem = store();
    }
    if (problem)
        Warn(this, tr("Save Project"), problem->Message());
    else if (mKeeping && asNew)
        BeginKeepingAnew();
    else if (mKeeping)
        mKeeping->GetWork().Settle();
    ShowTitle();
    return !problem;
}

void MainWindow::ShowProperties() {
    const ProjectSession& session = mWorkspace->GetSession();
    const auto& project = session.GetProject();
    QString sources;
    for (const SourceSettings& source : project->GetSources())
        sources += QString::fromStdString(source.Folder).toHtmlEscaped() + "<br>";
    const auto row = [](const QString& name, const QString& value) {
        return QString("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>").arg(name, value);
    };
    const auto count = [](std::size_t value) { return QString::number(qulonglong(value)); };
    QMessageBox box(QMessageBox::NoIcon, tr("Project Properties"), {}, QMessageBox::Close, this);
    box.setTextFormat(Qt::RichText);
    box.setText(
        "<table>" + row(tr("Title"), QString::fromStdString(project->GetTitle()).toHtmlEscaped()) +
        row(tr("Project file"), QString::fromStdString(project->GetPath()).toHtmlEscaped()) +
        row(tr("Source folders"), sources) +
        row(tr("Source files"), session.IsPart()
                                    ? tr("%1 read so far").arg(count(session.GetFileCount()))
                                    : count(session.GetFileCount())) +
        row(tr("Comments"), count(project->GetComments()->Count())) + "</table>");
    box.exec();
}

} // namespace paperkite
