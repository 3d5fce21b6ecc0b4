#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <functional>
#include <string>

namespace paperkite::test {

/// Answers the dialogs that open while a test runs, in the order in which it expects them. One that
/// nobody expects fails the test and is closed, so that the test ends.
class DialogAnswers : public QObject {
public:
    using Answer = std::function<void(QDialog& dialog)>;

    DialogAnswers();

    void Expect(Answer answer) { mAnswers.push_back({std::move(answer), false}); }
    /// The same; progress that is shown on the way, on a slow machine, is let pass.
    void ExpectBehindProgress(Answer answer) { mAnswers.push_back({std::move(answer), true}); }
    /// Clicks the button with that text ("&" left out) in a message box, whose texts are kept.
    void ExpectBox(const std::string& button);

    /// Whether every expected dialog has come.
    bool AreDone() const { return mAnswers.empty(); }
    /// "title: text informative text" of the last box.
    const std::string& GetText() const { return mText; }

private:
    struct Expected {
        Answer Give;
        bool LetsProgressPass;
    };

    void Look();

    QTimer mTimer;
    std::deque<Expected> mAnswers;
    std::string mText;
    QPointer<QDialog> mAnswered;
};

} // namespace paperkite::test
