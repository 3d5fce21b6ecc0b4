#include "host/window/BackgroundReading.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include <exception>
#include <utility>

namespace paperkite {

namespace {

constexpr int kLookMilliseconds = 50;

} // namespace

BackgroundReading::BackgroundReading(QWidget* parent) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 8, 0);
    mText = new QLabel(this);
    mText->setForegroundRole(QPalette::PlaceholderText);
    mCancel = new QToolButton(this);
    mCancel->setObjectName("CancelReading");
    mCancel->setText(tr("Cancel"));
    mCancel->setAutoRaise(true);
    mCancel->setFocusPolicy(Qt::NoFocus); // the author may be typing
    mCancel->setToolTip(tr("Go on with the source code as it was read the last time"));
    row->addWidget(mText);
    row->addWidget(mCancel);
    connect(mCancel, &QToolButton::clicked, this, [this] { mCancelled = true; });
    connect(&mTimer, &QTimer::timeout, this, [this] { Look(); });
    setVisible(false);
}

BackgroundReading::~BackgroundReading() {
    Stop();
}

void BackgroundReading::Start(std::vector<SourceSettings> sources, Suits suits, Deliver deliver) {
    Stop();
    mSuits = std::move(suits);
    mDeliver = std::move(deliver);
    mCancelled = false;
    mFinished = false;
    mPhase = ScanPhase::FindingFiles;
    mThread = std::thread([this, given = std::move(sources)] { Read(given); });
    ShowProgress();
    setVisible(true);
    mTimer.start(kLookMilliseconds);
}

void BackgroundReading::Stop() {
    mCancelled = true;
    mTimer.stop();
    if (mThread.joinable()) mThread.join();
    mReading = {};
    mDeliver = {};
    mText->clear();
    setVisible(false);
}

void BackgroundReading::Read(const std::vector<SourceSettings>& sources) {
    try {
        mReading = ReadSources(sources, [this](const ScanProgress& now) {
            mPhase = now.Phase;
            mDone = now.FilesDone;
            mTotal = now.FilesTotal;
            return !mCancelled;
        });
    } catch (const std::exception& exception) {
        mReading = {{}, exception.what(), false};
    }
    mFinished = true;
}

void BackgroundReading::Look() {
    if (!mFinished) {
        ShowProgress();
        return;
    }
    if (!mSuits()) {
        mCancel->setVisible(false);
        mText->setText(tr("The source code was read; it is shown when the edit ends"));
        return;
    }
    mThread.join();
    SourceReading reading = std::move(mReading);
    const Deliver deliver = std::move(mDeliver);
    Stop();
    deliver(std::move(reading));
}

void BackgroundReading::ShowProgress() {
    mCancel->setVisible(true);
    const auto count = [](std::size_t value) { return QString::number(qulonglong(value)); };
    mText->setText(mPhase == ScanPhase::ReadingFiles
                       ? tr("Reading source code, %1 of %2 files").arg(count(mDone), count(mTotal))
                       : tr("Looking for changed source code …"));
}

} // namespace paperkite
