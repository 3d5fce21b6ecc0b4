#pragma once

#include <QWebEnginePage>

#include <functional>

namespace paperkite {

/// A page that goes nowhere by itself: it loads what it is told to, links are reported, and
/// whatever a page may ask the author's machine for is denied.
class KitePage : public QWebEnginePage {
public:
    KitePage(QWebEngineProfile* profile, QObject* parent);

    /// Loads this address, the only one that it may go to.
    void Show(const QUrl& url);
    std::function<void(const QString& href)> LinkClicked;

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                  int line, const QString& source) override;

private:
    QUrl mOwn;
};

} // namespace paperkite
