#include "host/window/MainWindow.h"

#include "host/TagName.h"
#include "host/window/SafeKeeping.h"
#include "host/window/VersionsDialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>

// What keeps the author's work when the program, the disk or somebody else comes in between.

namespace paperkite {

namespace {

constexpr int kTellMilliseconds = 15000;
constexpr int kWaitForWriterMilliseconds = 3000;

bool SameSources(const ProjectDocument& left, const ProjectDocument& right) {
    const auto same = [](const SourceSettings& one, const SourceSettings& other) {
        return one.Folder == other.Folder && one.RootName == other.RootName &&
               one.Excludes == other.Excludes && one.Moniker == other.Moniker;
    };
    return std::equal(left.GetSources().begin(), left.GetSources().end(),
                      right.GetSources().begin(), right.GetSources().end(), same);
}

QString NamesOf(const std::vector<std::string>& files) {
    QStringList names;
    for (const std::string& file : files)
        names << QFileInfo(QString::fromStdString(file)).fileName();
    return names.join(", ");
}

std::optional<QString> ShownText(const std::optional<std::string>& text) {
    return text ? std::optional(QString::fromStdString(*text)) : std::nullopt;
}

VersionsDialog::Words ConflictWords() {
    VersionsDialog::Words words;
    words.Title = QObject::tr("Changed on Both Sides");
    words.Introduction =
        QObject::tr("These were changed here and by somebody else. Choose what is kept; until then "
                    "both versions are in the file, and nothing is lost.");
    words.Ours = QObject::tr("Mine");
    words.Theirs = QObject::tr("Theirs");
    words.Base = QObject::tr("Before");
    words.NoOurs = QObject::tr("Deleted here.");
    words.NoTheirs = QObject::tr("Deleted by them.");
    words.NoBase = QObject::tr("There was none.");
    words.Accept = QObject::tr("&Keep What Is Chosen");
    words.Later = QObject::tr("&Decide Later");
    return words;
}

VersionsDialog::Row RowOf(const MergeConflict& conflict) {
    VersionsDialog::Row row;
    row.Item = QString::fromStdString(conflict.Item);
    row.Tag = QString::fromStdString(TagName(conflict.Tag));
    row.State = !conflict.Ours     ? QObject::tr("Deleted here, changed by them")
                : !conflict.Theirs ? QObject::tr("Changed here, deleted by them")
                                   : QObject::tr("Changed on both sides");
    row.Base = ShownText(conflict.Base);
    row.Ours = ShownText(conflict.Ours);
    row.Theirs = ShownText(conflict.Theirs);
    row.MayKeepBoth = conflict.MayKeepBoth && conflict.Ours && conflict.Theirs;
    row.Choice = row.MayKeepBoth ? Keeping::Both : conflict.Ours ? Keeping::Ours : Keeping::Theirs;
    return row;
}

} // namespace

void MainWindow::BeginKeeping(std::unique_ptr<SafeKeeping> keeping) {
    mKeeping = std::move(keeping);
    mKeeping->Failed = [this](const FileProblem& problem) {
        statusBar()->showMessage(QString::fromStdString(problem.Message()), kTellMilliseconds);
    };
    mKeeping->Watch(*mWorkspace);
    ShowTitle();
}

void MainWindow::BeginKeepingAnew() {
    mKeeping->GetWork().Settle();
    BeginKeeping(SafeKeeping::BeginAnew(mWorkspace->GetSession().GetProject()->GetPath()));
}

void MainWindow::TellMissingFiles() {
    QString text;
    for (const FileProblem& problem : mWorkspace->GetSession().GetProject()->GetMissingFiles())
        text += (text.isEmpty() ? "" : "\n\n") + QString::fromStdString(problem.Message());
    if (text.isEmpty()) return;
    QMessageBox box(QMessageBox::Warning, tr("Open Project"), text, QMessageBox::Ok, this);
    box.setInformativeText(tr("Its place in the project is kept, and nothing is written there. New "
                              "comments go to another Content File."));
    box.exec();
}

bool MainWindow::ReadFilesAgain(const ProjectDocument::FileBytes& inPlace,
                                const ProjectDocument::FileBytes* seen) {
    const auto old = mWorkspace->GetSession().GetProject();
    auto opened = ProjectDocument::Open(old->GetPath(), inPlace, seen);
    if (opened.Problem) {
        QMessageBox::warning(this, tr("Open Project"),
                             QString::fromStdString(opened.Problem->Message()));
        return false;
    }
    const bool sameSources = SameSources(*old, *opened.Project);
    const std::string treePath = mWorkspace->GetEditor().Project.GetTreePath();
    auto keeping = std::move(mKeeping);
    keeping->Pause();
    auto session = mWorkspace->Release();
    session->Replace(opened.Project);
    ShowProject(std::move(session));
    mWorkspace->GetEditor().Project.SetTreePath(treePath);
    if (inPlace.empty()) keeping->GetWork().Settle();
    BeginKeeping(std::move(keeping));
    if (!sameSources) Rescan();
    return true;
}

bool MainWindow::MergeWithDisk() {
    mWorkspace->GetEditor().CommitEdit();
    const auto merged = mWorkspace->GetSession().GetProject()->MergeWithDisk();
    if (merged.Problem) {
        QMessageBox::warning(this, tr("Merge"), QString::fromStdString(merged.Problem->Message()));
        return false;
    }
    mKeeping->Keep();
    if (!ReadFilesAgain(merged.Bytes, &merged.Seen)) return false;
    if (merged.Conflicts > 0) ResolveConflicts();
    return true;
}

void MainWindow::ResolveConflicts() {
    mWorkspace->GetEditor().CommitEdit();
    auto files = mWorkspace->GetSession().GetProject()->PresentBytes();
    // Somebody may save while the author is choosing.
    const auto seen = mWorkspace->GetSession().GetProject()->StoredBytes();
    std::vector<VersionsDialog::Row> rows;
    std::vector<std::pair<std::string, std::size_t>> counts;
    for (const auto& [path, bytes] : files) {
        const auto conflicts = MergeConflicts::Find(bytes);
        if (!conflicts.empty()) counts.emplace_back(path, conflicts.size());
        for (const MergeConflict& conflict : conflicts)
            rows.push_back(RowOf(conflict));
    }
    if (rows.empty()) {
        statusBar()->showMessage(tr("There is nothing that was changed on both sides."), 5000);
        return;
    }
    VersionsDialog dialog(ConflictWords(), rows, this);
    if (dialog.Ask() != VersionsDialog::Answer::Accepted) return;
    const std::vector<Keeping> choices = dialog.GetChoices();
    auto next = choices.begin();
    for (const auto& [path, count] : counts) {
        const auto end = next + static_cast<std::ptrdiff_t>(count);
        files[path] = MergeConflicts::Resolve(files[path], {next, end});
        next = end;
    }
    for (const VersionsDialog::Row& row : rows)
        mKeeping->GetWork().ItemChanged(row.Item.toStdString());
    ReadFilesAgain(files, &seen);
}

void MainWindow::OfferConflicts() {
    if (!mWorkspace->GetSession().GetProject()->MayHoldConflicts()) return;
    for (const auto& [path, bytes] : mWorkspace->GetSession().GetProject()->PresentBytes()) {
        if (MergeConflicts::Find(bytes).empty()) continue;
        ResolveConflicts();
        return;
    }
}

void MainWindow::LookAtDisk() {
    if (!mWorkspace || !mKeeping || mLooking || QApplication::activeModalWidget()) return;
    if (mWorkspace->GetSpelling()->LookAtWords()) TellWordsProblem();
    const auto changed = mWorkspace->GetSession().GetProject()->ChangedOnDisk();
    if (changed.empty()) mNotMerged.clear();
    if (changed.empty() || changed == mNotMerged) return;
    mLooking = true;
    mWorkspace->GetEditor().CommitEdit();
    const bool isUnsaved =
        mWorkspace->GetSession().GetProject()->GetDirty() || !mKeeping->GetWork().Entries().empty();
    mNotMerged = changed;
    if (!isUnsaved) {
        if (ReadFilesAgain({})) {
            statusBar()->showMessage(
                tr("Somebody else changed %1; it was read again.").arg(NamesOf(changed)),
                kTellMilliseconds);
            OfferConflicts();
        }
    } else {
        QMessageBox box(QMessageBox::Question, tr("Changed by Another Program"),
                        tr("Another program has changed %1.").arg(NamesOf(changed)),
                        QMessageBox::NoButton, this);
        box.setInformativeText(tr("Your unsaved comments can be put together with that now. Where "
                                  "both changed the same comment, you are shown both."));
        QPushButton* merge = box.addButton(tr("&Merge"), QMessageBox::AcceptRole);
        box.addButton(tr("&Not Now"), QMessageBox::RejectRole);
        box.setDefaultButton(merge);
        box.exec();
        if (box.clickedButton() == merge) MergeWithDisk();
    }
    mLooking = false;
}

bool MainWindow::SaveOverOthers(const FileProblem& problem) {
    QMessageBox box(QMessageBox::Warning, tr("Save Project"),
                    QString::fromStdString(problem.Message()), QMessageBox::Cancel, this);
    QPushButton* merge = nullptr;
    if (problem.Reason == FileProblem::ReasonCode::ChangedOnDisk) {
        merge = box.addButton(tr("&Merge"), QMessageBox::AcceptRole);
        box.setInformativeText(tr("Merging keeps both: where the same comment was changed on both "
                                  "sides, you are shown both versions."));
    }
    QAbstractButton* overwrite = box.addButton(tr("&Overwrite"), QMessageBox::DestructiveRole);
    if (merge)
        box.setDefaultButton(merge);
    else
        box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    mMayOverwrite = box.clickedButton() == overwrite;
    mNotMerged = mWorkspace->GetSession().GetProject()->ChangedOnDisk();
    if (merge && box.clickedButton() == merge) return MergeWithDisk();
    return mMayOverwrite;
}

std::unique_ptr<ProjectLock> MainWindow::WaitForWriters(const std::string& path) {
    std::optional<ProjectLock::Holder> other;
    return ProjectLock::TakeForWriting(path, kWaitForWriterMilliseconds, other);
}

bool MainWindow::SaveReadOnly() {
    QMessageBox box(QMessageBox::Information, tr("Save Project"),
                    tr("The project was opened read-only, because it is in use elsewhere."),
                    QMessageBox::Cancel, this);
    box.setInformativeText(tr("Save it under another name to keep your comments."));
    QPushButton* saveAs = box.addButton(tr("Save &As …"), QMessageBox::AcceptRole);
    box.setDefaultButton(saveAs);
    box.exec();
    return box.clickedButton() == saveAs && SaveAs();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        QTimer::singleShot(0, this, [this] { LookAtDisk(); });
}

} // namespace paperkite
