#include "host/window/MainWindow.h"

#include "host/window/CoverageStatus.h"
#include "host/window/HomelessDialog.h"
#include "host/window/HomelessTexts.h"
#include "host/window/SafeKeeping.h"

#include <QAction>
#include <QPushButton>
#include <QStatusBar>

// What the window does with comments whose item is gone from the code.

namespace paperkite {

void MainWindow::MakeHomelessStatus() {
    mHomeless = new QPushButton(this);
    mHomeless->setObjectName("HomelessStatus");
    mHomeless->setFlat(true);
    mHomeless->setFocusPolicy(Qt::TabFocus);
    mHomeless->setVisible(false);
    connect(mHomeless, &QPushButton::clicked, this, &MainWindow::ShowHomeless);
    statusBar()->addPermanentWidget(mHomeless);
}

void MainWindow::CountHomeless() {
    mHomelessCount =
        mWorkspace ? HomelessWork(*mWorkspace, nullptr).Names().size() : std::size_t{0};
    mHomeless->setText(GoneText(mHomelessCount));
    const QString key = GetAction("Homeless")->shortcut().toString(QKeySequence::NativeText);
    mHomeless->setToolTip(tr("Find new homes for their comments (%1)").arg(key));
    mHomeless->setVisible(mHomelessCount > 0);
    UpdateActions();
}

void MainWindow::ShowHomeless() {
    if (mHomelessCount == 0) return;
    HomelessWork work(*mWorkspace, mKeeping ? &mKeeping->GetWork() : nullptr);
    const Connection changes =
        work.Events.Changed.Connect([this](const std::string& item) { NoteHomelessChange(item); });
    HomelessDialog dialog(work, this);
    dialog.Choose(mLastHomeless);
    dialog.exec();
    CountHomeless();
    mLastHomeless = dialog.GetChosen();
    if (!dialog.GetDestination().empty()) GoTo(dialog.GetDestination());
}

void MainWindow::NoteHomelessChange(const std::string& item) {
    const auto& session = mWorkspace->GetSession();
    // Coverage knows nothing of items that are gone.
    if (session.GetProvider()->Exists(item))
        mCoverage->SetDocumented(item, session.GetProject()->GetComments()->IsDocumented(item));
    ShowTitle();
}

} // namespace paperkite
