#include "platform/qt/web/PageSurface.h"

#include "platform/qt/web/KitePage.h"
#include "platform/qt/web/PageGuard.h"
#include "platform/qt/web/PageScripts.h"
#include "platform/qt/web/PageSource.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <QWebChannel>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineScriptCollection>

namespace paperkite {

namespace {

// Milliseconds.
constexpr int kLongestWait = 2000;
constexpr int kLongestWaitForKeys = 100;

// A text as it stands in a script.
QString Quoted(const QString& text) {
    const QString list =
        QString::fromUtf8(QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact));
    return list.mid(1, list.size() - 2);
}

QJsonObject ObjectOf(const QString& json) {
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

QStringList TextsOf(const QJsonValue& list) {
    QStringList texts;
    for (const auto entry : list.toArray())
        texts += entry.toString();
    return texts;
}

WebPath PathOf(const QJsonValue& list) {
    WebPath path;
    for (const auto entry : list.toArray())
        path += {entry.toArray().at(0).toString(), entry.toArray().at(1).toString()};
    return path;
}

// A ground of that colour that text can be read on.
QColor Mixed(const QColor& colour, const QColor& ground) {
    constexpr double kShare = 0.18;
    const auto mixed = [](int a, int b) { return qRound(a * kShare + b * (1 - kShare)); };
    return {mixed(colour.red(), ground.red()), mixed(colour.green(), ground.green()),
            mixed(colour.blue(), ground.blue())};
}

const char* NameOf(WebPageKind kind) {
    if (kind == WebPageKind::Editable) return "editable";
    return kind == WebPageKind::Preview ? "preview" : "source";
}

// The engine reads what the page needs on its way: where addresses begin, and that nothing of the
// page runs or is fetched, whatever else fails.
QString OnItsWay(const WebPage& page) {
    QString head = QStringLiteral(
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
        "img-src file: data:; style-src file: 'unsafe-inline'; font-src file: data:; "
        "media-src file:\">");
    if (!page.BaseUrl.isEmpty()) head += "<base href=\"" + page.BaseUrl.toHtmlEscaped() + "\">";
    const qsizetype found = page.Html.indexOf(QLatin1String("<head"), 0, Qt::CaseInsensitive);
    const qsizetype end = found < 0 ? -1 : page.Html.indexOf('>', found);
    return end < 0 ? head + page.Html : page.Html.left(end + 1) + head + page.Html.mid(end + 1);
}

} // namespace

PageSurface::PageSurface(QWidget* parent)
    : WebSurface(parent), mProfile(std::make_unique<QWebEngineProfile>()),
      mGuard(std::make_unique<PageGuard>()), mSource(std::make_unique<PageSource>()),
      mView(new QWebEngineView(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(mView);
    mView->setContextMenuPolicy(Qt::NoContextMenu);
    mProfile->setUrlRequestInterceptor(mGuard.get());
    mProfile->installUrlSchemeHandler(PageSource::Scheme(), mSource.get());
    connect(mProfile.get(), &QWebEngineProfile::downloadRequested, this,
            [](QWebEngineDownloadRequest* request) { request->cancel(); });
    TieBridge();
    MakePage();
    setFocusProxy(mView);
}

PageSurface::~PageSurface() {
    mListener = nullptr;
    // The page must not outlive its profile.
    delete mPage;
}

void PageSurface::MakePage() {
    mPage = new KitePage(mProfile.get(), mView);
    mPage->LinkClicked = [this](const QString& href) { mBridge.link(mBridge.Generation, href); };
    auto* channel = new QWebChannel(mPage);
    channel->registerObject(QStringLiteral("kite"), &mBridge);
    mPage->setWebChannel(channel, kPageWorld);
    mView->setPage(mPage);
    connect(mPage, &QWebEnginePage::loadFinished, this, [this](bool ok) { Loaded(ok); });
    connect(mPage, &QWebEnginePage::renderProcessTerminated, this,
            [this](QWebEnginePage::RenderProcessTerminationStatus status, int) {
                mReady = false;
                mUnflushed = false;
                const bool isKilled = status == QWebEnginePage::KilledTerminationStatus;
                const bool isCrash = status == QWebEnginePage::CrashedTerminationStatus ||
                                     status == QWebEnginePage::AbnormalTerminationStatus;
                if (mListener)
                    mListener->PageLost(isKilled  ? WebLoss::Killed
                                        : isCrash ? WebLoss::Crashed
                                                  : WebLoss::Ended);
            });
}

void PageSurface::TieBridge() {
    mBridge.Ready = [this] { Ready(); };
    mBridge.Typed = [this](int place, double number, const QString& html) {
        const auto count = static_cast<qint64>(number);
        mTouched = true;
        if (count <= mNumbers.value(place) || !mListener) return;
        mNumbers[place] = count;
        mListener->PlaceTyped({place, count, html});
    };
    mBridge.Touched = [this](bool canUndo) {
        mTouched = mUnflushed = true;
        if (mListener) mListener->PageTouched(canUndo);
    };
    mBridge.Element = [this](const QString& json) {
        if (mListener) mListener->ElementEvent(EventTold(ObjectOf(json)));
    };
    mBridge.Selection = [this](const QString& json) { SelectionTold(json); };
    mBridge.Link = [this](const QString& href) {
        if (mListener) mListener->LinkClicked(href);
    };
    mBridge.Menu = [this](const QString& json) { MenuTold(json); };
    mBridge.Command = [this](const QString& name) {
        if (mListener) mListener->CommandPressed(name);
    };
    mBridge.Picture = [this] {
        if (mListener) mListener->PictureRefused();
    };
    mBridge.Copied = [this](const QString& layout, const QString& html) {
        if (mListener) mListener->PartCopied(layout, html);
    };
    mBridge.Pasted = [this](const QString& layout, const QString& html) {
        if (mListener) mListener->PartPasted(layout, html);
    };
    mBridge.Misspelt = [this](const QString& text) {
        QVariantList numbers;
        if (!mListener) return numbers;
        for (const WebMark& mark : mListener->MisspeltWords(text))
            numbers << mark.Start << mark.Length;
        return numbers;
    };
}

void PageSurface::Load(const WebPage& page) {
    const bool isFocused = InputWidget() && InputWidget()->hasFocus();
    mShown = page;
    mReady = false;
    mTouched = false;
    mUnflushed = false;
    mPending.clear();
    mNumbers.clear();
    if (!page.KeepPosition) mPosition = {};
    mPosition[QStringLiteral("focus")] = isFocused;
    ++mBridge.Generation;
    QStringList folders = page.Folders;
    if (const QUrl base(page.BaseUrl); base.isLocalFile()) folders += base.toLocalFile();
    mGuard->SetFolders(folders);
    QJsonObject given{{"generation", mBridge.Generation},
                      {"kind", QLatin1String(NameOf(page.Kind))},
                      {"whole", page.IsWhole},
                      {"places", QJsonArray::fromStringList(page.Places)},
                      {"colours", ColourTexts()},
                      {"position", mPosition}};
    auto& scripts = mPage->scripts();
    scripts.clear();
    scripts.insert(EditingScript());
    scripts.insert(StartingScript(given));
    if (!mUrl.isEmpty()) mSource->Drop(mUrl);
    mUrl = mSource->Keep(
        (page.Kind == WebPageKind::Source ? SourcePage(page.Html) : OnItsWay(page)).toUtf8());
    mPage->Show(mUrl);
}

void PageSurface::Loaded(bool ok) {
    WatchInput();
    mPage->setZoomFactor(mZoom);
    if (ok && mShown.Kind == WebPageKind::Source) Script(SourceScript());
}

void PageSurface::Ready() {
    mReady = true;
    mKeys = 0;
    WatchInput();
    for (const QString& code : std::exchange(mPending, {}))
        Script(code);
    if (mMarksWanted) Script(QStringLiteral("kite.marks.refresh(true)"));
    if (mListener) mListener->PageReady();
}

void PageSurface::WatchInput() {
    if (QWidget* input = InputWidget()) {
        input->removeEventFilter(this);
        input->installEventFilter(this);
    }
}

void PageSurface::Script(const QString& code) {
    mPage->runJavaScript(code, kPageWorld);
}

void PageSurface::WhenReady(const QString& code) {
    if (mReady)
        Script(code);
    else
        mPending += code;
}

void PageSurface::SetPlace(int place, const QString& html) {
    if (place >= 0 && place < mShown.Places.size()) mShown.Places[place] = html;
    WhenReady(QStringLiteral("kite.setPlace(%1, %2)").arg(place).arg(Quoted(html)));
}

QString PageSurface::Ask(const QString& code, int milliseconds) {
    QEventLoop loop;
    // The answer may come when nobody waits for it any more.
    auto answer = std::make_shared<QString>();
    auto waiting = std::make_shared<QEventLoop*>(&loop);
    mPage->runJavaScript(code, kPageWorld, [answer, waiting](const QVariant& result) {
        *answer = result.toString();
        if (*waiting) (*waiting)->quit();
    });
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    connect(mPage, &QWebEnginePage::renderProcessTerminated, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    *waiting = nullptr;
    return *answer;
}

// A key that the engine keeps to itself is never seen by the page, so that the wait for keys is a
// short one.
QString PageSurface::AskForReports() {
    QElapsedTimer time;
    time.start();
    const QString hasSeen = QStringLiteral("kite.hasSeen(%1)").arg(mKeys);
    while (mReady && time.elapsed() < kLongestWaitForKeys)
        if (!Ask(hasSeen, kLongestWait).isEmpty()) break;
    // What a key does follows the key itself by one step, and so does this question.
    return mReady ? Ask(QStringLiteral("kite.flush()"), kLongestWait) : QString();
}

QList<WebReport> PageSurface::Flush() {
    QList<WebReport> reports;
    if (!mReady || !mUnflushed) return reports;
    mUnflushed = false;
    for (const auto entry : QJsonDocument::fromJson(AskForReports().toUtf8()).array()) {
        const QJsonArray report = entry.toArray();
        const int place = report.at(0).toInt();
        const auto number = static_cast<qint64>(report.at(1).toDouble());
        if (number <= mNumbers.value(place)) continue;
        mNumbers[place] = number;
        reports += {place, number, report.at(2).toString()};
    }
    return reports;
}

void PageSurface::Run(const QString& command, const QStringList& arguments) {
    using Page = QWebEnginePage;
    static const QHash<QString, Page::WebAction> ofTheEngine{
        {"cut", Page::Cut},
        {"copy", Page::Copy},
        {"paste", Page::Paste},
        {"pasteplain", Page::PasteAndMatchStyle},
        {"selectall", Page::SelectAll}};
    mTouched = mUnflushed = true;
    if (const auto action = ofTheEngine.constFind(command); action != ofTheEngine.cend())
        return mPage->triggerAction(*action);
    const QString list = QString::fromUtf8(
        QJsonDocument(QJsonArray::fromStringList(arguments)).toJson(QJsonDocument::Compact));
    WhenReady(QStringLiteral("kite.runBehind(%1, %2, %3)").arg(mKeys).arg(Quoted(command), list));
}

void PageSurface::FocusText() {
    mView->setFocus(Qt::OtherFocusReason);
    WhenReady(QStringLiteral("kite.focusText()"));
}

void PageSurface::RefreshMarks(bool wanted) {
    mMarksWanted = wanted;
    if (mReady) Script(QStringLiteral("kite.marks.refresh(%1)").arg(wanted ? "true" : "false"));
}

void PageSurface::ReplaceWord(const QString& replacement) {
    mTouched = mUnflushed = true;
    Script(QStringLiteral("kite.marks.replace(%1)").arg(Quoted(replacement)));
}

void PageSurface::Select(int place, int start, int length) {
    WhenReady(QStringLiteral("kite.select(%1, %2, %3)").arg(place).arg(start).arg(start + length));
}

QJsonObject PageSurface::ColourTexts() const {
    return {{"base", mColours.Base.name()},
            {"text", mColours.Text.name()},
            {"quiet", mColours.QuietText.name()},
            {"lines", mColours.Lines.name()},
            {"link", mColours.Link.name()},
            {"highlight", mColours.Highlight.name()},
            {"tint", Mixed(mColours.Highlight, mColours.Base).name()},
            {"dark", mColours.Dark ? "1" : "0"}};
}

void PageSurface::SetColours(const WebColours& colours) {
    mColours = colours;
    mPage->setBackgroundColor(colours.Base);
    const QString json =
        QString::fromUtf8(QJsonDocument(ColourTexts()).toJson(QJsonDocument::Compact));
    if (mReady) Script("kite.setColours(" + json + ");");
}

void PageSurface::SetZoom(double factor) {
    mZoom = factor;
    mPage->setZoomFactor(factor);
}

QWidget* PageSurface::InputWidget() const {
    return mView->focusProxy();
}

qint64 PageSurface::ProcessNumber() const {
    return mPage->renderProcessPid();
}

void PageSurface::SelectionTold(const QString& json) {
    const QJsonObject state = ObjectOf(json);
    mPosition = state["position"].toObject();
    if (!mListener) return;
    const QJsonObject caret = mPosition["caret"].toObject();
    mListener->SelectionMoved({state["text"].toString(), TextsOf(state["on"]),
                               TextsOf(state["enabled"]), state["fore"].toString(),
                               state["fill"].toString(), state["link"].toString(),
                               caret["place"].toInt(-1), caret["start"].toInt(),
                               caret["end"].toInt(), PathOf(state["current"])});
}

QPoint PageSurface::PointIn(const QJsonObject& told) const {
    const QPointF at(told["x"].toDouble() * mZoom, told["y"].toDouble() * mZoom);
    return mView->mapTo(this, at.toPoint());
}

WebElementEvent PageSurface::EventTold(const QJsonObject& told) const {
    return {told["event"].toInt(), PathOf(told["path"]), PathOf(told["current"]), PointIn(told)};
}

void PageSurface::MenuTold(const QString& json) {
    if (!mListener) return;
    const QJsonObject told = ObjectOf(json);
    WebMenuRequest request;
    request.Position = PointIn(told);
    request.Element = EventTold(told);
    request.Place = told["place"].toInt(-1);
    request.Link = told["link"].toString();
    request.Image = told["image"].toString();
    request.Word = told["word"].toString();
    request.InTable = told["table"].toBool();
    request.InField = told["field"].toBool();
    request.HasText = told["text"].toBool();
    mListener->MenuWanted(request);
}

// Which keys the page wants for itself although the window has a command for them.
bool PageSurface::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        const auto& key = static_cast<QKeyEvent&>(*event);
        const bool isOurs =
            key.modifiers().testFlag(Qt::ControlModifier) &&
            !key.modifiers().testFlag(Qt::AltModifier) &&
            QList<int>{Qt::Key_B, Qt::Key_I, Qt::Key_U,           Qt::Key_Z,
                       Qt::Key_Y, Qt::Key_K, Qt::Key_BracketLeft, Qt::Key_BracketRight}
                .contains(key.key());
        if (isOurs && mShown.Kind == WebPageKind::Editable) {
            event->accept();
            return true;
        }
        break;
    }
    case QEvent::KeyPress:
        ++mKeys;
        [[fallthrough]];
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::Drop:
        mUnflushed = true;
        mTouched = true;
        break;
    default:
        break;
    }
    return WebSurface::eventFilter(watched, event);
}

} // namespace paperkite
