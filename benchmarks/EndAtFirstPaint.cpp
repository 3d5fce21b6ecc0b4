// Compiled into a program, ends it when its first window has been painted.

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

namespace {

/// The exit code, which a program does not have otherwise.
constexpr int kPainted = 42;

class FirstPaint : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget && widget->isWindow())
            // The window's children are painted after it, in the same turn.
            QTimer::singleShot(0, [] { std::_Exit(kPainted); });
        return false;
    }
};

void Watch() {
    QCoreApplication::instance()->installEventFilter(new FirstPaint(QCoreApplication::instance()));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Watch)
