#include "host/window/MainWindow.h"

#include "host/window/BackgroundReading.h"
#include "host/window/CoverageStatus.h"
#include "host/window/LinksDialog.h"
#include "host/window/ScanDialog.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

namespace paperkite {

namespace {

void TellProblem(QWidget* parent, const std::string& problem) {
    QMessageBox::warning(parent, QObject::tr("Read Source Code Again"),
                         QString::fromStdString(problem));
}

} // namespace

void MainWindow::Rescan() {
    if (!mWorkspace) return;
    mReading->Stop();
    const ProjectSession& session = mWorkspace->GetSession();
    ProjectSession::ScanAnswer answer;
    const std::string failure = ScanDialog::Run(
        this, [&](const ProjectSession::Progress& progress) { answer = session.Scan(progress); });
    if (answer.Code) {
        TakeCode(std::move(*answer.Code));
        return;
    }
    if (!answer.Cancelled) TellProblem(this, failure.empty() ? answer.Problem : failure);
    SayIfPartOnly();
}

void MainWindow::ReadInBackground(std::unique_ptr<RunningReading> begun) {
    const ProjectSession& session = mWorkspace->GetSession();
    if (!begun)
        begun = std::make_unique<RunningReading>(
            session.GetProject()->GetSources(),
            session.IsPart() ? RunningReading::Parts::Wanted : RunningReading::Parts::Unwanted);
    mReading->Start(
        std::move(begun), [this] { return !IsAuthorBusy(); },
        [this](SourceReading reading) { TakeReading(std::move(reading)); });
}

void MainWindow::SayIfPartOnly() {
    if (mWorkspace->GetSession().IsPart()) mReading->ShowPartOnly([this] { ReadInBackground(); });
}

bool MainWindow::IsAuthorBusy() const {
    return mWorkspace->GetEditor().cEditor.prpTags->GetInEdit() ||
           QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           QApplication::mouseButtons() != Qt::NoButton || mKeyInTree;
}

void MainWindow::TakeReading(SourceReading reading) {
    ProjectSession& session = mWorkspace->GetSession();
    if (reading.Cancelled) {
        SayIfPartOnly();
        return;
    }
    // What is read once more begins with less than is known already.
    if (reading.IsPart && (!session.IsPart() || reading.FileCount() <= session.GetFileCount()))
        return;
    if (!reading.IsPart && reading.Problem.empty() && reading.Digests() == session.GetDigests()) {
        session.SetUpToDate();
        return;
    }
    ProjectSession::ScanAnswer answer = session.Code(std::move(reading));
    if (answer.Code) {
        TakeCode(std::move(*answer.Code));
        return;
    }
    SayIfPartOnly();
    TellProblem(this, answer.Problem);
}

void MainWindow::ShowWhetherAll() {
    mFinder->SetNote(mWorkspace->GetSession().IsPart()
                         ? "Not all source code was read yet; there may be more"
                         : "");
}

void MainWindow::TakeCode(ProjectSession::ScannedCode code) {
    ProjectView& tree = mWorkspace->GetEditor().Project;
    const auto list = mWorkspace->GetEditor().cEditor.prpTags;
    const QPointer<QWidget> focus = QApplication::focusWidget();
    const auto row = list->GetSelectedItem();
    const std::string rowKey = row ? row->GetKey() : std::string();
    const auto before = tree.GetSelectedItem();
    const std::string item = before ? before->GetKey() : std::string();
    mWorkspace->Adopt(std::move(code));
    mCoverage->SetSession(&mWorkspace->GetSession());
    ShowWhetherAll();
    if (!tree.GetSelectedItem()) MoveTo(tree.GetNodes().GetFirst());
    const auto selected = tree.GetSelectedItem();
    if (selected && selected->GetKey() == item) {
        mCoverage->SetItem(item);
        if (const auto again = list->Find(rowKey)) list->SetSelectedItem(again);
    }
    if (focus && focus->isVisible()) focus->setFocus();
    CountHomeless();
    if (mLinksDialog && mLinksDialog->isVisible()) mLinksDialog->Check();
}

} // namespace paperkite
