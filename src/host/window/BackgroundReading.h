#pragma once

#include "host/SourceReading.h"

#include <QTimer>
#include <QWidget>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

class QLabel;
class QToolButton;

namespace paperkite {

/// Reads source code beside the window and says so in the status bar, where it can be cancelled.
/// What it brings is handed over in the window's thread, and not before that suits the window.
class BackgroundReading : public QWidget {
public:
    using Suits = std::function<bool()>;
    using Deliver = std::function<void(SourceReading reading)>;

    explicit BackgroundReading(QWidget* parent);
    ~BackgroundReading() override;

    /// Begins to read; one that is under way is stopped first. `suits` is asked again and again
    /// when all is read. A reading that the author cancels is delivered as cancelled.
    void Start(std::vector<SourceSettings> sources, Suits suits, Deliver deliver);
    /// Ends a reading and waits for its thread; nothing is delivered then.
    void Stop();
    bool IsUnderWay() const { return mThread.joinable(); }

private:
    void Read(const std::vector<SourceSettings>& sources);
    void Look();
    void ShowProgress();

    QLabel* mText;
    QToolButton* mCancel;
    QTimer mTimer;
    Suits mSuits;
    Deliver mDeliver;
    std::thread mThread;
    /// The thread's, until mFinished is set.
    SourceReading mReading;
    std::atomic<bool> mCancelled = false;
    std::atomic<bool> mFinished = false;
    std::atomic<ScanPhase> mPhase = ScanPhase::FindingFiles;
    std::atomic<std::size_t> mDone = 0;
    std::atomic<std::size_t> mTotal = 0;
};

} // namespace paperkite
