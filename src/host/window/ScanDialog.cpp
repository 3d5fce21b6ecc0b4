#include "host/window/ScanDialog.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>

#include <atomic>
#include <mutex>
#include <thread>

namespace paperkite {

namespace {

constexpr int kRefreshMilliseconds = 50;
constexpr int kShowAfterMilliseconds = 300;

/// What the scan tells and the window shows.
struct SharedProgress {
    std::atomic<bool> Cancelled = false;
    std::atomic<bool> Finished = false;
    std::atomic<std::size_t> FilesDone = 0;
    std::atomic<std::size_t> FilesTotal = 0;
    std::atomic<ScanPhase> Phase = ScanPhase::FindingFiles;
};

QString PhaseText(const SharedProgress& progress) {
    const auto done = static_cast<qulonglong>(progress.FilesDone.load());
    const auto total = static_cast<qulonglong>(progress.FilesTotal.load());
    switch (progress.Phase.load()) {
    case ScanPhase::FindingFiles:
        return QObject::tr("Looking for source files … %1").arg(done);
    case ScanPhase::SurveyingFiles:
        return QObject::tr("Looking at %1 of %2 source files").arg(done).arg(total);
    case ScanPhase::ReadingFiles:
        return QObject::tr("Reading %1 of %2 source files").arg(done).arg(total);
    case ScanPhase::BuildingIndex:
        return QObject::tr("Putting the items in order");
    }
    return {};
}

void ShowProgress(QProgressDialog& dialog, const SharedProgress& progress) {
    const auto total = static_cast<int>(progress.FilesTotal.load());
    dialog.setMaximum(total);
    dialog.setLabelText(PhaseText(progress));
    // A bar that reaches its end would close the dialog while the index is still being built.
    if (total > 0)
        dialog.setValue(std::min(static_cast<int>(progress.FilesDone.load()), total - 1));
}

} // namespace

std::string ScanDialog::Run(QWidget* parent, const Work& work) {
    SharedProgress progress;
    std::string failure;
    std::thread scan([&] {
        try {
            work([&](const ScanProgress& now) {
                progress.Phase = now.Phase;
                progress.FilesDone = now.FilesDone;
                progress.FilesTotal = now.FilesTotal;
                return !progress.Cancelled;
            });
        } catch (const std::exception& exception) {
            failure = exception.what();
        }
        progress.Finished = true;
    });
    QProgressDialog dialog(QObject::tr("Looking for source files …"), QObject::tr("Cancel"), 0, 0,
                           parent);
    dialog.setWindowTitle(QObject::tr("Reading source code"));
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setMinimumDuration(kShowAfterMilliseconds);
    dialog.setAutoClose(false);
    dialog.setAutoReset(false);
    dialog.setMinimumWidth(420);
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&dialog, &QProgressDialog::canceled, &loop,
                     [&] { progress.Cancelled = true; });
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (progress.Finished)
            loop.quit();
        else
            ShowProgress(dialog, progress);
    });
    timer.start(kRefreshMilliseconds);
    loop.exec();
    scan.join();
    return failure;
}

} // namespace paperkite
