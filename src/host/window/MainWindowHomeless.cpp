#include "host/window/MainWindow.h"

#include "host/CommentHistory.h"
#include "host/window/CoverageStatus.h"
#include "host/window/HomelessDialog.h"
#include "host/window/HomelessStatus.h"
#include "host/window/HomelessTexts.h"
#include "host/window/SafeKeeping.h"

#include <QAction>
#include <QStatusBar>

// What the window does with comments whose item is gone from the code.

namespace paperkite {

void MainWindow::MakeHomelessStatus() {
    mHomeless = new HomelessStatus(this);
    connect(mHomeless, &QPushButton::clicked, this, &MainWindow::ShowHomeless);
    statusBar()->addPermanentWidget(mHomeless);
}

void MainWindow::CountHomeless() {
    // What is missing while only a part is read may still come.
    mHomelessCount = mWorkspace && !mWorkspace->GetSession().IsPart()
                         ? HomelessWork(*mWorkspace, nullptr).Names().size()
                         : std::size_t{0};
    mHomeless->SetCount(mHomelessCount);
    const QString key = GetAction("Homeless")->shortcut().toString(QKeySequence::NativeText);
    mHomeless->setToolTip(
        tr("%1: find new homes for their comments (%2)").arg(GoneText(mHomelessCount), key));
    UpdateActions();
}

void MainWindow::ShowHomeless() {
    if (mHomelessCount == 0) return;
    HomelessWork work(*mWorkspace, mKeeping ? &mKeeping->GetWork() : nullptr, mHistory.get());
    const Connection changes =
        work.Events.Changed.Connect([this](const std::string& item) { NoteHomelessChange(item); });
    HomelessDialog dialog(work, this);
    dialog.Choose(mLastHomeless);
    dialog.exec();
    ShowHistory();
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
