#include "host/window/MainWindow.h"

#include "foundation/Services.h"
#include "host/CommentHistory.h"
#include "host/ProjectSpellCheck.h"
#include "host/window/CoverageStatus.h"
#include "host/window/FindDialog.h"
#include "host/window/SafeKeeping.h"

#include <QAction>
#include <QMessageBox>
#include <QProgressDialog>
#include <QStatusBar>

// What the window finds, replaces and checks in comments.

namespace paperkite {

namespace {

constexpr int kTellMilliseconds = 8000;
constexpr int kProgressAfterMilliseconds = 500;

} // namespace

FindDialog& MainWindow::Finding() {
    if (mFindDialog) return *mFindDialog;
    mFindDialog = new FindDialog(*mWorkspace, this);
    mFindDialog->ShowHit = [this](const std::string& item, const SearchOptions& options) {
        ShowHit(item, options);
    };
    mFindDialog->Apply = [this](const TextChanges::Changes& changes, const std::string& caption) {
        return ChangeTexts(changes, caption);
    };
    const auto item = mWorkspace->GetEditor().cEditor.GetCurrentCodeElement();
    if (item) mFindDialog->SetItem(item->Get("QualifiedName").ToText());
    return *mFindDialog;
}

void MainWindow::FindInComments() {
    FindDialog& dialog = Finding();
    const auto editor = mWorkspace->GetEditor().cEditor.GetActiveHTMLEditor(false);
    const QString selected =
        editor ? QString::fromStdString(editor->GetSelectedText()).simplified() : QString();
    dialog.Begin(selected);
    dialog.show();
    dialog.raise();
    dialog.activateWindow();
}

void MainWindow::FindNextInComments() {
    if (!mFindDialog) return FindInComments();
    mFindDialog->FindNext();
}

void MainWindow::ShowHit(const std::string& item, const SearchOptions& options) {
    CommentEditor& editor = mWorkspace->GetEditor().cEditor;
    const auto current = editor.GetCurrentCodeElement();
    if (!current || current->Get("QualifiedName").ToText() != item) {
        if (!mWorkspace->GetSession().GetProvider()->Exists(item)) {
            statusBar()->showMessage(tr("This item is gone from the code; its comments are under "
                                        "Homeless Comments."),
                                     kTellMilliseconds);
            return;
        }
        GoTo(item);
    }
    editor.DoFind(options.SearchFor, options.WholeWord, options.CaseSensitive,
                  options.SearchInHTML);
}

std::size_t MainWindow::ChangeTexts(const TextChanges::Changes& changes,
                                    const std::string& caption) {
    TextChanges work(*mWorkspace, mKeeping ? &mKeeping->GetWork() : nullptr, mHistory.get());
    const Connection changed = work.Events.Changed.Connect([this](const std::string& item) {
        mCoverage->SetDocumented(
            item, mWorkspace->GetSession().GetProject()->GetComments()->IsDocumented(item));
    });
    const std::size_t leftAlone = work.Apply(changes, caption);
    ShowTitle();
    ShowHistory();
    return leftAlone;
}

void MainWindow::CheckSpelling() {
    mWorkspace->GetEditor().CommitEdit();
    mHistory->BeginStep("Spelling");
    mWorkspace->GetEditor().cEditor.SpellCheck(true);
    mHistory->EndStep();
    ShowHistory();
}

void MainWindow::ShowSpellingOptions() {
    mWorkspace->GetEditor().cEditor.ShowSpellingOptions();
}

// The whole check is one step to take back, like the words of one item.
void MainWindow::CheckSpellingOfProject() {
    const auto& engine = CurrentServices().Spelling;
    const auto& ask = CurrentServices().AskSpelling;
    if (!engine || !ask) return;
    if (const std::string problem = engine->GetProblem(); !problem.empty()) {
        QMessageBox::warning(this, tr("Spelling"), QString::fromStdString(problem));
        return;
    }
    mWorkspace->GetEditor().CommitEdit();
    const CommentStore& store = *mWorkspace->GetSession().GetProject()->GetComments();
    QProgressDialog progress(tr("Checking the words of all comments …"), tr("Cancel"), 0, 0, this);
    progress.setWindowTitle(tr("Spelling"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(kProgressAfterMilliseconds);
    SpellCheckWork work(*engine);
    const auto findings = work.Check(store, {}, [&](std::size_t done, std::size_t total) {
        progress.setMaximum(static_cast<int>(total));
        progress.setValue(static_cast<int>(done));
        return !progress.wasCanceled();
    });
    const bool isCancelled = progress.wasCanceled();
    progress.close();
    if (isCancelled) return;
    mHistory->BeginStep("Spelling");
    ProjectSpellCheck check(
        *engine, {ask,
                  [&](const SpellCheckWork::Finding& finding, const std::string& replacement) {
                      ChangeTexts(work.Plan(store, finding, replacement), "Spelling");
                  },
                  [&](const std::string& word) {
                      engine->AddIgnoreAll(word);
                      mWorkspace->GetEditor().Events.SpellIgnoreWordAdded.Raise(word);
                  }});
    const bool isComplete = check.Run(findings);
    mHistory->EndStep();
    ShowHistory();
    QMessageBox::information(this, tr("Spelling"),
                             isComplete ? tr("The spell check completed successfully")
                                        : tr("The spell check has been cancelled"));
}

} // namespace paperkite
