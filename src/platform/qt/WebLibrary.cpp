#include "platform/qt/WebLibrary.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <unistd.h>

namespace paperkite {

namespace {

struct Loading {
    MakeWebSurfaceFunction Make = nullptr;
    QString Problem;
};

// Beside the program while it is being built, in a folder of its own once it is installed.
QStringList Places() {
    const QDir program(QCoreApplication::applicationDirPath());
    return {program.filePath("paperkite_web.so"),
            program.filePath("../lib/paperkite/paperkite_web.so"),
            program.filePath("paperkite_web")};
}

Loading& State() {
    static Loading state;
    return state;
}

constexpr const char* kNoSandbox = "QTWEBENGINE_DISABLE_SANDBOX";

// The engine ends the whole program when the sandbox that it works in refuses this user.
bool IsRefused() {
    return geteuid() == 0 && qEnvironmentVariableIntValue(kNoSandbox) == 0;
}

void Load() {
    Loading& state = State();
    if (IsRefused()) {
        state.Problem = QStringLiteral("Pages are not shown to the user root, whom the web engine "
                                       "does not protect. Work as another user, or set %1=1 "
                                       "before the program starts. All other editors work.")
                            .arg(kNoSandbox);
        return;
    }
    QString reason = QStringLiteral("it is not beside the program");
    for (const QString& place : Places()) {
        if (!QFileInfo::exists(place)) continue;
        QLibrary library(place);
        state.Make = reinterpret_cast<MakeWebSurfaceFunction>(library.resolve(kMakeWebSurface));
        if (state.Make) return state.Problem.clear();
        reason = library.errorString();
    }
    state.Problem = QStringLiteral("Pages cannot be shown: the library paperkite_web could not be "
                                   "loaded (%1). Install the package libqt6webenginewidgets6 and "
                                   "start the program again. All other editors work without it.")
                        .arg(reason);
}

} // namespace

void WebLibrary::PrepareApplication() {
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    // Pages are read from memory and from named folders. Whatever else they point at goes to a
    // closed door of this machine: nothing of what an author writes leaves it.
    const char* name = "QTWEBENGINE_CHROMIUM_FLAGS";
    QByteArray flags = qgetenv(name);
    if (flags.contains("--proxy-server")) return;
    if (!flags.isEmpty()) flags += ' ';
    qputenv(name, flags + "--proxy-server=127.0.0.1:9 --proxy-bypass-list=<-loopback> "
                          "--disable-background-networking");
}

WebSurface* WebLibrary::MakeSurface(QWidget* parent) {
    if (!State().Make) Load();
    return State().Make ? State().Make(parent) : nullptr;
}

bool WebLibrary::IsLoaded() {
    return State().Make != nullptr;
}

QString WebLibrary::GetProblem() {
    return State().Problem;
}

} // namespace paperkite
