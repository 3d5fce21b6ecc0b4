#include "host/window/MainWindow.h"

#include "doctypes/source/ParameterStep.h"
#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "host/CommentHistory.h"
#include "host/ProjectSpellCheck.h"
#include "host/window/CoverageStatus.h"
#include "host/window/FindDialog.h"
#include "host/window/SafeKeeping.h"
#include "widgets/DesignerControl.h"

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
    // What was said of the one before.
    statusBar()->clearMessage();
    if (!mWorkspace->GetSession().GetProvider()->Exists(item)) {
        statusBar()->showMessage(tr("This item is gone from the code; its comments are under "
                                    "Homeless Comments."),
                                 kTellMilliseconds);
        return;
    }
    // Parameters are written on where their callables are.
    const std::string shown = IsParameterName(item) ? item.substr(0, item.rfind('~')) : item;
    CommentEditor& editor = mWorkspace->GetEditor().cEditor;
    const auto current = editor.GetCurrentCodeElement();
    if (!current || current->Get("QualifiedName").ToText() != shown)
        if (!GoTo(shown)) return;
    if (options.SearchFor.empty()) return;
    ShowNormalViews();
    editor.DoFind(options.SearchFor, options.WholeWord, options.CaseSensitive,
                  options.SearchInHTML);
}

void MainWindow::ShowNormalViews() {
    CommentEditor& editor = mWorkspace->GetEditor().cEditor;
    // The first tab is the page to write on; a click on it does nothing where it is selected.
    editor.InPlaceEditor->FlatStrip->UserClick(1);
    for (const auto& control : editor.DesignerContainer->Controls)
        if (const auto designer = control.As<DesignerControl>())
            if (const auto text = designer->GetEditor()) text->SetView(HtmlView::Normal);
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

bool MainWindow::CanCheckSpelling() {
    const auto& engine = CurrentServices().Spelling;
    if (!engine) return false;
    const std::string problem = engine->GetProblem();
    if (!problem.empty())
        QMessageBox::warning(this, tr("Spelling"), QString::fromStdString(problem));
    return problem.empty();
}

void MainWindow::TellWordsProblem() {
    const std::string& problem = mWorkspace->GetSpelling()->GetProblem();
    if (!problem.empty())
        QMessageBox::warning(this, tr("Spelling"), QString::fromStdString(problem));
}

void MainWindow::CheckSpelling() {
    if (!CanCheckSpelling()) return;
    mWorkspace->GetEditor().CommitEdit();
    ShowNormalViews();
    mHistory->BeginStep("Spelling");
    ScopeExit step([this] { mHistory->EndStep(); });
    mWorkspace->GetEditor().cEditor.SpellCheck(true);
    step.Run();
    ShowHistory();
}

void MainWindow::ShowSpellingOptions() {
    mWorkspace->GetEditor().cEditor.ShowSpellingOptions();
    CanCheckSpelling();
}

// The whole check is one step to take back, like the words of one item.
void MainWindow::CheckSpellingOfProject() {
    const auto& engine = CurrentServices().Spelling;
    const auto& ask = CurrentServices().AskSpelling;
    if (!engine || !ask || !CanCheckSpelling()) return;
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
    ScopeExit step([this] { mHistory->EndStep(); });
    ProjectSpellCheck check(
        *engine, {ask,
                  [&](const SpellCheckWork::Finding& finding, const std::string& replacement) {
                      ChangeTexts(SpellCheckWork::Plan(store, finding, replacement), "Spelling");
                  },
                  [&](const std::string& word) {
                      engine->AddIgnoreAll(word);
                      mWorkspace->GetEditor().Events.SpellIgnoreWordAdded.Raise(word);
                  }});
    const bool isComplete = check.Run(findings);
    step.Run();
    ShowHistory();
    QMessageBox::information(this, tr("Spelling"),
                             isComplete ? tr("The spell check completed successfully")
                                        : tr("The spell check has been cancelled"));
}

} // namespace paperkite
