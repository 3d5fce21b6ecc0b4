#pragma once

#include <QEventLoop>
#include <QObject>
#include <QTimer>

#include <functional>

namespace paperkite::test {

/// Runs the events until the condition holds, and tells whether it does; gives up after some time.
/// The web engine passes its work on in many small steps, which the pauses of QTest make slow.
inline bool WaitUntil(const std::function<bool()>& done, int milliseconds = 20'000) {
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (done()) loop.quit();
    });
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    look.start(1);
    if (!done()) loop.exec();
    return done();
}

} // namespace paperkite::test
