#include "host/window/BackgroundReading.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include <utility>

namespace paperkite {

namespace {

constexpr int kLookMilliseconds = 50;

QString ProgressText(const RunningReading& reading) {
    const ScanProgress now = reading.Now();
    const auto count = [](std::size_t value) { return QString::number(qulonglong(value)); };
    if (now.Phase == ScanPhase::ReadingFiles)
        return QObject::tr("Reading source code, %1 of %2 files")
            .arg(count(now.FilesDone), count(now.FilesTotal));
    if (!reading.WantsParts()) return QObject::tr("Looking for changed source code …");
    return now.Phase == ScanPhase::BuildingIndex ? QObject::tr("Putting the items in order …")
                                                 : QObject::tr("Looking for source files …");
}

} // namespace

BackgroundReading::BackgroundReading(QWidget* parent) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 8, 0);
    mText = new QLabel(this);
    mText->setForegroundRole(QPalette::PlaceholderText);
    row->addWidget(mText);
    mCancel = AddButton("CancelReading", tr("Cancel"));
    mAgain = AddButton("ReadAgain", tr("Read Again"));
    mAgain->setToolTip(tr("Read all source code of the project"));
    connect(mCancel, &QToolButton::clicked, this, [this] {
        if (mReading) mReading->Cancel();
    });
    connect(mAgain, &QToolButton::clicked, this, [this] {
        if (const auto readAgain = mReadAgain) readAgain();
    });
    connect(&mTimer, &QTimer::timeout, this, [this] { Look(); });
    setVisible(false);
}

BackgroundReading::~BackgroundReading() {
    Stop();
}

QToolButton* BackgroundReading::AddButton(const char* name, const QString& text) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus); // the author may be typing
    button->setVisible(false);
    layout()->addWidget(button);
    return button;
}

void BackgroundReading::Start(std::unique_ptr<RunningReading> reading, Suits suits,
                              Deliver deliver) {
    Stop();
    mSuits = std::move(suits);
    mDeliver = std::move(deliver);
    mReading = std::move(reading);
    mCancel->setToolTip(mReading->WantsParts()
                            ? tr("Go on with the part of the source code that is read by then")
                            : tr("Go on with the source code as it was read the last time"));
    ShowProgress();
    setVisible(true);
    mTimer.start(kLookMilliseconds);
}

void BackgroundReading::Stop() {
    mTimer.stop();
    mReading.reset();
    mDeliver = {};
    mReadAgain = {};
    mText->clear();
    mAgain->setVisible(false);
    setVisible(false);
}

void BackgroundReading::ShowPartOnly(std::function<void()> readAgain) {
    Stop();
    mReadAgain = std::move(readAgain);
    mText->setText(tr("Only a part of the source code was read"));
    mCancel->setVisible(false);
    mAgain->setVisible(true);
    setVisible(true);
}

void BackgroundReading::Look() {
    const bool isFinished = mReading->IsFinished();
    if (!isFinished) ShowProgress();
    if (!isFinished && !mReading->HasPart()) return;
    if (!mSuits()) {
        if (!isFinished) return;
        mCancel->setVisible(false);
        mText->setText(tr("The source code was read; it is shown when the edit ends"));
        return;
    }
    const Deliver deliver = mDeliver; // which may stop or start a reading
    if (!isFinished) {
        if (auto part = mReading->TakePart()) deliver(std::move(*part));
        return;
    }
    SourceReading reading = mReading->TakeResult();
    Stop();
    deliver(std::move(reading));
}

void BackgroundReading::ShowProgress() {
    mCancel->setVisible(true);
    mText->setText(ProgressText(*mReading));
}

} // namespace paperkite
