#include "host/window/WindowProgram.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "host/Commands.h"
#include "host/window/DesktopServices.h"
#include "host/window/MainWindow.h"
#include "host/window/PictureSettings.h"
#include "platform/qt/HtmlEditView.h"
#include "platform/qt/WebLibrary.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <iostream>

namespace paperkite {

namespace {

constexpr int kPageMilliseconds = 20000;
constexpr int kPaintMilliseconds = 700;

bool ArePagesReady(const QWidget& window) {
    const auto children = window.findChildren<QWidget*>();
    return std::all_of(children.begin(), children.end(), [](const QWidget* child) {
        const auto* page = dynamic_cast<const HtmlEditView*>(child);
        return !page || !page->isVisible() || page->IsReady() || !page->GetNotice().isEmpty();
    });
}

void LetWindowSettle(const QWidget& window) {
    // Sizes are reported back and forth until nothing changes any more.
    for (int round = 0; round < 5; ++round)
        QApplication::processEvents();
    if (!WebLibrary::IsLoaded()) return;
    QElapsedTimer waited;
    waited.start();
    while (!ArePagesReady(window) && waited.elapsed() < kPageMilliseconds)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    // The engine paints in a process of its own, and does not say when.
    waited.start();
    while (waited.elapsed() < kPaintMilliseconds)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
}

/// Without a screen, Qt warns about what a picture does not need.
void TellOnlyFailures(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << text.toStdString() << '\n';
}

bool SelectForPicture(MainWindow& window, const std::string& item) {
    Workspace& workspace = *window.GetWorkspace();
    const ProjectSession& session = workspace.GetSession();
    const auto matches = session.Matches(item);
    if (matches.size() != 1) {
        std::cerr << UnclearItem(item, matches, session.Nearest(item)) << '\n';
        return false;
    }
    if (workspace.Select(matches.front())) return true;
    std::cerr << "The tree does not show \"" << matches.front() << "\" with the present options.\n";
    return false;
}

} // namespace

void QuietenWindowSystem() {
    qInstallMessageHandler(TellOnlyFailures);
}

int RunWindow(QApplication& application, ModelControlHelper& helper, const std::string& project) {
    InstallDesktopServices(helper);
    Theme theme(application);
    MainWindow window(theme);
    window.show();
    if (!project.empty()) window.OpenPath(QString::fromStdString(project));
    return application.exec() == 0 ? kExitDone : kExitBadInput;
}

int WriteScreenshot(QApplication& application, ModelControlHelper& helper,
                    const ScreenshotRequest& request) {
    auto opened = ProjectSession::Open(request.Project);
    if (!opened.Session) {
        std::cerr << opened.Problem << '\n';
        return kExitBadInput;
    }
    for (const FileProblem& problem : opened.Session->GetProject()->GetMissingFiles())
        std::cerr << problem.Message() << '\n';
    InstallDesktopServices(helper);
    CurrentServices().Registry = std::make_shared<PictureSettings>();
    Theme theme(application);
    theme.SetScheme(request.Dark ? ColourScheme::Dark : ColourScheme::Light);
    MainWindow window(theme);
    theme.SetTextScale(request.TextSize);
    window.resize(request.Width, request.Height);
    window.show();
    window.Present(std::move(opened.Session));
    LetWindowSettle(window);
    if (!request.Item.empty() && !SelectForPicture(window, request.Item)) return kExitBadInput;
    LetWindowSettle(window);
    if (!window.grab().save(QString::fromStdString(request.Out), "PNG")) {
        std::cerr << "The picture cannot be written to " << request.Out
                  << ". Name a file in a folder that can be written to.\n";
        return kExitBadInput;
    }
    return kExitDone;
}

} // namespace paperkite
