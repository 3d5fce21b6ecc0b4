#pragma once

#include "platform/qt/WebSurface.h"
#include "platform/qt/web/PageBridge.h"

#include <QHash>
#include <QJsonObject>
#include <QTimer>
#include <QUrl>
#include <QWebEngineView>

#include <memory>

class QWebEngineProfile;

namespace paperkite {

class KitePage;
class PageGuard;
class PageSource;

/// The surface on the real engine: one view with one page, and a profile of its own that keeps
/// nothing.
class PageSurface : public WebSurface {
public:
    explicit PageSurface(QWidget* parent);
    ~PageSurface() override;

    void SetListener(WebSurfaceListener* listener) override { mListener = listener; }
    void Load(const WebPage& page) override;
    void SetPlace(int place, const QString& html) override;
    QList<WebReport> Flush() override;
    bool WasTouched() const override { return mTouched; }
    void Run(const QString& command, const QStringList& arguments) override;
    void FocusText() override;
    void RefreshMarks(bool wanted) override;
    void ReplaceWord(const QString& replacement) override;
    void Select(int place, int start, int length) override;
    void SetColours(const WebColours& colours) override;
    void SetZoom(double factor) override;
    QWidget* InputWidget() const override;
    qint64 ProcessNumber() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakePage();
    void TieBridge();
    /// The script's answer; empty when the page does not answer in time.
    QString Ask(const QString& code, int milliseconds);
    QString AskForReports();
    void WatchInput();
    void Script(const QString& code);
    /// Now, or when the page is ready.
    void WhenReady(const QString& code);
    void Ready();
    void Loaded(bool ok);
    void SelectionTold(const QString& json);
    void MenuTold(const QString& json);
    QPoint PointIn(const QJsonObject& told) const;
    WebElementEvent EventTold(const QJsonObject& told) const;
    QJsonObject ColourTexts() const;
    void ApplyColours();

    WebSurfaceListener* mListener = nullptr;
    std::unique_ptr<QWebEngineProfile> mProfile;
    std::unique_ptr<PageGuard> mGuard;
    std::unique_ptr<PageSource> mSource;
    QWebEngineView* mView;
    KitePage* mPage = nullptr;
    PageBridge mBridge;
    WebColours mColours;
    WebPage mShown;
    QUrl mUrl;
    QJsonObject mPosition;
    QStringList mPending;
    /// The highest number of a report that was passed on, for each place.
    QHash<int, qint64> mNumbers;
    /// Keys that were passed to the page.
    int mKeys = 0;
    bool mReady = false;
    bool mTouched = false;
    /// Something was typed or done that may not have been reported.
    bool mUnflushed = false;
    bool mMarksWanted = false;
    double mZoom = 1;
};

} // namespace paperkite
