#include "host/window/MainWindow.h"

#include "host/window/BackgroundReading.h"
#include "host/window/CoverageStatus.h"
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
    if (answer.Cancelled) return;
    if (answer.Code)
        TakeCode(std::move(*answer.Code));
    else
        TellProblem(this, failure.empty() ? answer.Problem : failure);
}

void MainWindow::ReadInBackground() {
    mReading->Start(
        mWorkspace->GetSession().GetProject()->GetSources(), [this] { return !IsAuthorBusy(); },
        [this](SourceReading reading) { TakeReading(std::move(reading)); });
}

bool MainWindow::IsAuthorBusy() const {
    return mWorkspace->GetEditor().cEditor.prpTags->GetInEdit() ||
           QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           QApplication::mouseButtons() != Qt::NoButton || mKeyInTree;
}

void MainWindow::TakeReading(SourceReading reading) {
    ProjectSession& session = mWorkspace->GetSession();
    if (reading.Cancelled) return;
    if (reading.Problem.empty() && reading.Digests() == session.GetDigests()) {
        session.SetUpToDate();
        return;
    }
    ProjectSession::ScanAnswer answer = session.Code(std::move(reading));
    if (answer.Code)
        TakeCode(std::move(*answer.Code));
    else
        TellProblem(this, answer.Problem);
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
    if (!tree.GetSelectedItem()) MoveTo(tree.GetNodes().GetFirst());
    const auto selected = tree.GetSelectedItem();
    if (selected && selected->GetKey() == item) {
        mCoverage->SetItem(item);
        if (const auto again = list->Find(rowKey)) list->SetSelectedItem(again);
    }
    if (focus && focus->isVisible()) focus->setFocus();
    CountHomeless();
}

} // namespace paperkite
