#include "platform/qt/web/KitePage.h"

#include <QWebEngineProfile>
#include <QWebEngineSettings>

namespace paperkite {

namespace {

void Restrict(QWebEngineSettings& settings) {
    using S = QWebEngineSettings;
    for (const auto off :
         {S::JavascriptEnabled, S::JavascriptCanOpenWindows, S::JavascriptCanAccessClipboard,
          S::LocalStorageEnabled, S::LocalContentCanAccessRemoteUrls, S::PluginsEnabled,
          S::FullScreenSupportEnabled, S::HyperlinkAuditingEnabled, S::ScreenCaptureEnabled,
          S::WebGLEnabled, S::AutoLoadIconsForPage, S::AllowRunningInsecureContent,
          S::AllowGeolocationOnInsecureOrigins, S::DnsPrefetchEnabled, S::PdfViewerEnabled,
          S::NavigateOnDropEnabled, S::ErrorPageEnabled})
        settings.setAttribute(off, false);
    settings.setAttribute(S::LocalContentCanAccessFileUrls, true);
    settings.setAttribute(S::FocusOnNavigationEnabled, false);
    settings.setAttribute(S::PlaybackRequiresUserGesture, true);
    settings.setUnknownUrlSchemePolicy(S::DisallowUnknownUrlSchemes);
}

} // namespace

KitePage::KitePage(QWebEngineProfile* profile, QObject* parent) : QWebEnginePage(profile, parent) {
    Restrict(*settings());
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
}

void KitePage::Show(const QUrl& url) {
    mOwn = url;
    load(url);
}

bool KitePage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    if (isMainFrame && url == mOwn) return true;
    if (isMainFrame && type == NavigationTypeLinkClicked && LinkClicked)
        LinkClicked(url.toString(QUrl::FullyEncoded));
    return false;
}

QWebEnginePage* KitePage::createWindow(WebWindowType) {
    return nullptr;
}

QStringList KitePage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) {
    return {};
}

void KitePage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                        int line, const QString& source) {
    // Pages cannot run scripts; only a failure of our own is worth a word.
    if (level == ErrorMessageLevel && source.contains(QLatin1String("paperkite")))
        qWarning("%s:%d: %s", qPrintable(source), line, qPrintable(message));
}

} // namespace paperkite
