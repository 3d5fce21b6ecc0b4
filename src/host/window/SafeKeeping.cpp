#include "host/window/SafeKeeping.h"

#include "host/StateFolder.h"
#include "host/TagName.h"
#include "host/window/VersionsDialog.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace paperkite {

namespace {

/// Well below the quarter of a minute that may be lost at most.
constexpr int kKeepEveryMilliseconds = 5000;

QString FromText(const std::string& text) {
    return QString::fromStdString(text);
}

std::optional<QString> FromText(const std::optional<std::string>& text) {
    return text ? std::optional(QString::fromStdString(*text)) : std::nullopt;
}

QString StateOf(const RecoverableComment& comment) {
    if (comment.ChangedMeanwhile && (comment.Present || comment.Entry.Stored))
        return QObject::tr("Changed in the file since");
    if (!comment.Entry.Text) return QObject::tr("Deleted");
    return comment.Present ? QObject::tr("Changed") : QObject::tr("New");
}

VersionsDialog::Row RowOf(const RecoverableComment& comment) {
    VersionsDialog::Row row;
    row.Item = FromText(comment.Entry.Item);
    row.Tag = FromText(TagName(comment.Entry.Tag));
    row.State = StateOf(comment);
    row.Ours = FromText(comment.Entry.Text);
    if (comment.Present) row.Theirs = FromText(comment.Present->GetText());
    if (comment.ChangedMeanwhile) row.Base = FromText(comment.Entry.Stored);
    row.MayKeepBoth = comment.Present && comment.Entry.Text;
    row.Choice = comment.Suggested;
    return row;
}

VersionsDialog::Words RecoveryWords(const std::vector<CommentJournal::Contents>& journals,
                                    std::size_t damaged) {
    VersionsDialog::Words words;
    words.Title = QObject::tr("Recover Unsaved Comments");
    words.Introduction =
        QObject::tr("The program did not come to its end the last time that this project was open "
                    "(since %1, on %2). These comments were not saved.")
            .arg(FromText(journals.front().Writer.Begun), FromText(journals.front().Writer.Host));
    if (damaged > 0)
        words.Introduction +=
            " " + (damaged == 1 ? QObject::tr("One line of what was kept is damaged and could not "
                                              "be read.")
                                : QObject::tr("%1 lines of what was kept are damaged and could not "
                                              "be read.")
                                      .arg(damaged));
    words.Ours = QObject::tr("Unsaved");
    words.Theirs = QObject::tr("In the file");
    words.Base = QObject::tr("In the file then");
    words.NoOurs = QObject::tr("The comment was deleted.");
    words.NoTheirs = QObject::tr("There is no such comment in the file.");
    words.NoBase = QObject::tr("There was no such comment, or it is not known.");
    words.Accept = QObject::tr("&Recover");
    words.Discard = QObject::tr("&Discard Them");
    words.Later = QObject::tr("&Ask Again Later");
    return words;
}

std::size_t DamagedLinesIn(const std::vector<CommentJournal::Contents>& journals) {
    std::size_t lines = 0;
    for (const auto& journal : journals)
        lines += journal.DamagedLines;
    return lines;
}

} // namespace

SafeKeeping::SafeKeeping(const std::string& project)
    : mProject(project), mWork(JournalFolder(), project) {
    connect(&mTimer, &QTimer::timeout, this, [this] { Keep(); });
}

std::unique_ptr<SafeKeeping> SafeKeeping::Begin(ProjectSession& session, QWidget* window) {
    std::unique_ptr<SafeKeeping> keeping(new SafeKeeping(session.GetProject()->GetPath()));
    if (!keeping->TakeLock(window)) return nullptr;
    keeping->OfferLeftWork(*session.GetProject(), window);
    return keeping;
}

std::unique_ptr<SafeKeeping> SafeKeeping::BeginAnew(const std::string& project) {
    std::unique_ptr<SafeKeeping> keeping(new SafeKeeping(project));
    std::optional<ProjectLock::Holder> other;
    keeping->mLock = ProjectLock::Take(project, ProjectLock::Purpose::Open, other);
    return keeping;
}

bool SafeKeeping::TakeLock(QWidget* window) {
    std::optional<ProjectLock::Holder> other;
    mLock = ProjectLock::Take(mProject, ProjectLock::Purpose::Open, other);
    if (!other) return true;
    QMessageBox box(
        QMessageBox::Warning, tr("Project Is in Use"),
        tr("“%1” is open in another window.").arg(QFileInfo(FromText(mProject)).fileName()),
        QMessageBox::Cancel, window);
    box.setInformativeText(
        tr("%1 has had it open since %2 (process %3 on %4).\n\nRead-only, you can look at it and "
           "save under another name. When both save here, changes of the same comment are shown "
           "side by side.")
            .arg(FromText(other->User), FromText(other->Since), FromText(other->Process),
                 FromText(other->Host)));
    QPushButton* readOnly = box.addButton(tr("Open &Read-Only"), QMessageBox::AcceptRole);
    QPushButton* anyway = box.addButton(tr("Open &Anyway"), QMessageBox::DestructiveRole);
    box.setDefaultButton(readOnly);
    box.exec();
    mReadOnly = box.clickedButton() == readOnly;
    return mReadOnly || box.clickedButton() == anyway;
}

void SafeKeeping::OfferLeftWork(ProjectDocument& project, QWidget* window) {
    auto journals = CommentJournal::FindLeftOver(JournalFolder(), mProject);
    if (journals.empty()) return;
    const auto comments = CommentRecovery::Compare(journals, *project.GetComments());
    const std::size_t damaged = DamagedLinesIn(journals);
    if (comments.empty()) {
        if (damaged > 0)
            QMessageBox::warning(
                window, tr("Recover Unsaved Comments"),
                tr("Unsaved comments were kept, and all that could be read of them is saved. "
                   "Damaged lines: %1; they are in a file beside %2.")
                    .arg(damaged)
                    .arg(FromText(journals.front().Path)));
        mDealtWith = std::move(journals);
        return;
    }
    std::vector<VersionsDialog::Row> rows;
    for (const RecoverableComment& comment : comments)
        rows.push_back(RowOf(comment));
    VersionsDialog dialog(RecoveryWords(journals, damaged), std::move(rows), window);
    const auto answer = dialog.Ask();
    if (answer == VersionsDialog::Answer::Later) return;
    mDealtWith = std::move(journals);
    if (answer == VersionsDialog::Answer::Discarded) return;
    mRecovered = CommentRecovery::Apply(comments, dialog.GetChoices(), *project.GetComments());
    if (!mRecovered.empty()) project.SetDirty(true);
}

void SafeKeeping::Pause() {
    mTimer.stop();
    mWork.SetWorkspace(nullptr);
}

void SafeKeeping::Watch(Workspace& workspace) {
    mWork.SetWorkspace(&workspace);
    if (const auto item = workspace.GetEditor().cEditor.GetCurrentCodeElement())
        mWork.ItemShown(item->Get("QualifiedName").ToText());
    mWork.TakeOver(mRecovered);
    Keep();
    // What was recovered stands in two places until it stands in the new journal.
    const bool isSafe = mRecovered.empty() || !mWork.GetJournalPath().empty();
    for (const auto& journal : mDealtWith)
        if (isSafe) CommentJournal::Discard(journal);
    mDealtWith.clear();
    mRecovered.clear();
    mTimer.start(kKeepEveryMilliseconds);
}

void SafeKeeping::Keep() {
    const auto problem = mWork.Keep();
    if (problem && Failed) Failed(*problem);
}

} // namespace paperkite
