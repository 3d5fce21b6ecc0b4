#pragma once

#include "support/Waiting.h"

#include <QPoint>
#include <QTest>
#include <QWidget>

#include <functional>

namespace paperkite::test {

/// Clicks into a page until what the click does is seen, and tells whether it is. The engine passes
/// over clicks until it has drawn the page, and does not say when.
inline bool ClickUntil(QWidget* input, const QPoint& at, const std::function<bool()>& isSeen) {
    constexpr int kAttempts = 20;
    constexpr int kMilliseconds = 1000;
    for (int attempt = 0; attempt < kAttempts && !isSeen(); ++attempt) {
        QTest::mouseClick(input, Qt::LeftButton, {}, at);
        WaitUntil(isSeen, kMilliseconds);
    }
    return isSeen();
}

} // namespace paperkite::test
