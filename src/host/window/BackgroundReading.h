#pragma once

#include "host/RunningReading.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

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

    /// Goes on with a reading that was begun; one that is under way is stopped first. `suits` is
    /// asked again and again when a part or all is read; a part that is outdone by the next one
    /// meanwhile is not delivered. A reading that the author cancels is delivered as cancelled.
    void Start(std::unique_ptr<RunningReading> reading, Suits suits, Deliver deliver);
    /// Ends a reading and waits for its thread; nothing is delivered then, and nothing shown.
    void Stop();
    bool IsUnderWay() const { return mReading != nullptr; }
    /// Says that only a part was read, and offers to read again, until something is started.
    void ShowPartOnly(std::function<void()> readAgain);

private:
    QToolButton* AddButton(const char* name, const QString& text);
    void Look();
    void ShowProgress();

    QLabel* mText;
    QToolButton* mCancel;
    QToolButton* mAgain;
    QTimer mTimer;
    Suits mSuits;
    Deliver mDeliver;
    std::function<void()> mReadAgain;
    std::unique_ptr<RunningReading> mReading;
};

} // namespace paperkite
