#include "platform/qt/HtmlEditView.h"

#include "platform/qt/LinkAddress.h"

#include "platform/qt/CodeArea.h"
#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/HtmlEditMenu.h"
#include "platform/qt/PagePoint.h"
#include "platform/qt/Theme.h"
#include "platform/qt/WebLibrary.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace paperkite {

namespace {

/// A style sheet for the head of a page. The light or dark scheme reaches only sheets that stand in
/// the page itself; one of another folder would look for its pictures in the wrong place there.
QString SheetOf(const QString& base, const QString& name) {
    constexpr qint64 kMostBytes = 1'000'000;
    QUrl address;
    address.setPath(name);
    QFile file(QUrl(base).resolved(address).toLocalFile());
    QString text;
    if (!name.contains('/') && file.size() <= kMostBytes && file.open(QIODevice::ReadOnly))
        text = QString::fromUtf8(file.readAll());
    if (text.isEmpty() || text.contains(QLatin1String("</style"), Qt::CaseInsensitive))
        return "<link rel=\"stylesheet\" href=\"" + name.toHtmlEscaped() + "\">";
    return "<style>" + text + "</style>";
}

constexpr int kMostLosses = 3;

std::vector<std::string> Texts(const QStringList& list) {
    std::vector<std::string> texts;
    for (const QString& text : list)
        texts.push_back(FromQString(text));
    return texts;
}

// An opening tag as it stands in the text of a document.
std::string OpeningOf(const std::string& outer, const std::string& inner) {
    const std::size_t end = outer.rfind("</");
    if (end == std::string::npos || end < inner.size()) return outer;
    return outer.substr(0, end - inner.size());
}

} // namespace

HtmlEditView::HtmlEditView(const Ref<HtmlEdit>& edit, QWidget* parent)
    : QWidget(parent), mEdit(edit), mColumn(new QVBoxLayout(this)), mNotice(new QLabel(this)) {
    mColumn->setContentsMargins(0, 0, 0, 0);
    mColumn->setSpacing(0);
    mNotice->setWordWrap(true);
    mNotice->setMargin(8);
    mNotice->hide();
    mColumn->addWidget(mNotice);
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    ControlView::Attach(edit, this);
    mTie = edit->Observe(*this);
    if (edit->GetDocument()) LoadSoon(false);
}

HtmlEditView::~HtmlEditView() {
    if (mSurface) mSurface->SetListener(nullptr);
}

QString HtmlEditView::GetNotice() const {
    return mNotice->isHidden() ? QString() : mNotice->text();
}

void HtmlEditView::Notice(const QString& text) {
    mNotice->setText(text);
    mNotice->setAccessibleName(text);
    mNotice->setVisible(!text.isEmpty());
}

// Loading

void HtmlEditView::LoadSoon(bool keepPosition) {
    mKeepPosition = keepPosition && (mKeepPosition || !mLoadPending);
    if (std::exchange(mLoadPending, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (mLoadPending && isVisible()) LoadNow();
        },
        Qt::QueuedConnection);
}

bool HtmlEditView::HaveSurface() {
    if (mSurface) return true;
    mSurface = WebLibrary::MakeSurface(this);
    if (!mSurface) {
        Notice(WebLibrary::GetProblem());
        return false;
    }
    mColumn->addWidget(mSurface, 1);
    mSurface->SetListener(this);
    setFocusProxy(mSurface);
    ApplyLook();
    mSurface->show();
    return true;
}

bool HtmlEditView::IsSource() const {
    return IsWhole() && mEdit->GetView() == HtmlView::Source;
}

void HtmlEditView::LoadSource() {
    mLoadPending = false;
    mReady = false;
    if (!mSource) {
        mSource = std::make_unique<HtmlSourceView>(mEdit, this);
        mSource->GetArea()->installEventFilter(this);
        mColumn->addWidget(mSource->GetArea(), 1);
    }
    if (mSurface) mSurface->hide();
    mSource->Load();
    mSource->GetArea()->show();
    setFocusProxy(mSource->GetArea());
    if (std::exchange(mFocusPending, false)) mSource->GetArea()->setFocus();
}

void HtmlEditView::LoadNow() {
    if (IsSource()) return LoadSource();
    const bool hasDocument = bool(mEdit->GetDocument());
    if (!hasDocument && !mSurface) {
        mLoadPending = false;
        return;
    }
    if (!HaveSurface()) return;
    if (mSource && !mSource->GetArea()->isHidden()) {
        mSource->GetArea()->hide();
        setFocusProxy(mSurface);
        mSurface->show();
    }
    mLoadPending = false;
    mReady = false;
    mChanged.clear();
    mPlaces = mEdit->GetPlaces();
    mSurface->Load(MakePage());
}

QString HtmlEditView::BaseAddress() const {
    const QString base = ToQString(mEdit->GetBaseURL());
    return base.isEmpty() || base.endsWith('/') ? base : base + '/';
}

WebPage HtmlEditView::MakePage() const {
    WebPage page;
    page.KeepPosition = mKeepPosition;
    page.IsWhole = IsWhole();
    page.BaseUrl = BaseAddress();
    for (const std::string& folder : mEdit->GetReadableFolders())
        page.Folders += ToQString(folder);
    switch (mEdit->GetView()) {
    case HtmlView::Normal:
        page.Kind = WebPageKind::Editable;
        break;
    case HtmlView::Source:
        page.Kind = WebPageKind::Source;
        page.Html = ToQString(mEdit->GetDocumentHTML());
        return page;
    case HtmlView::Preview:
        page.Kind = WebPageKind::Preview;
        break;
    }
    for (const auto& place : mPlaces)
        page.Places += ToQString(place->GetInnerHTML());
    page.Html = PageText();
    return page;
}

// The page without the texts of its places: the page gets those one by one, so that each is parsed
// as what it is, a fragment of its place, whatever stands around it.
QString HtmlEditView::PageText() const {
    const std::string text = mEdit->GetDocumentHTML();
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    for (const auto& place : mPlaces) {
        const std::string inner = place->GetInnerHTML();
        const std::string outer = place->GetOuterHTML();
        const std::size_t found = text.find(outer, from);
        if (found == std::string::npos) continue;
        const std::size_t inside = found + OpeningOf(outer, inner).size();
        result.append(text, from, inside - from);
        from = inside + inner.size();
    }
    result.append(text, from);
    return IsWhole() ? WithLooks(ToQString(result)) : ToQString(result);
}

// As pages are shown: by the rules of the standard, and with the styles that their makers give
// them.
QString HtmlEditView::WithLooks(const QString& html) const {
    QString sheets;
    for (const std::string& sheet : mEdit->GetStyleSheets())
        sheets += SheetOf(ToQString(mEdit->GetBaseURL()), ToQString(sheet));
    const qsizetype head = html.indexOf(QLatin1String("<head"), 0, Qt::CaseInsensitive);
    const qsizetype end = head < 0 ? -1 : html.indexOf('>', head);
    const QString page = end < 0 ? html : html.left(end + 1) + sheets + html.mid(end + 1);
    const bool hasType = page.trimmed().startsWith(QLatin1String("<!doctype"), Qt::CaseInsensitive);
    return hasType ? page : "<!DOCTYPE html>" + page;
}

void HtmlEditView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (mLoadPending) LoadNow();
}

void HtmlEditView::PageReady() {
    mReady = true;
    if (QWidget* input = mSurface->InputWidget()) {
        input->removeEventFilter(this);
        input->installEventFilter(this);
        const std::string& name = mEdit->GetAccessibleName();
        input->setAccessibleName(name.empty() ? tr("Page") : ToQString(name));
    }
    UpdatePlaces();
    MarksChanged();
    if (std::exchange(mFocusPending, false)) mSurface->FocusText();
    if (const auto wanted = std::exchange(mWantedSelection, std::nullopt)) SelectionWanted(*wanted);
}

void HtmlEditView::PageLost(WebLoss) {
    mReady = false;
    // Nothing is selected any more, and no tool can do anything.
    mEdit->UserSelection({}, {}, {}, {}, {}, {});
    if (++mLosses > kMostLosses) {
        Notice(tr("The page has ended several times and is not shown any more. What was written "
                  "is kept; choose the item again to try once more."));
        return;
    }
    Notice(tr("The page had to be started again. What was written is kept."));
    LoadSoon(true);
}

// What code changed

void HtmlEditView::ControlChanged(Control&) {}

void HtmlEditView::DocumentReplaced() {
    mWantedSelection.reset();
    mLosses = 0;
    Notice({});
    LoadSoon(false);
}

void HtmlEditView::ElementChanged(const Ref<HTMLElement>& element) {
    const Ref<HTMLElement> place = mEdit->PlaceOf(element);
    const bool isShown = std::find(mPlaces.begin(), mPlaces.end(), place) != mPlaces.end();
    if (!place || !isShown || IsWhole() || mEdit->GetView() != HtmlView::Normal)
        return LoadSoon(true);
    if (std::find(mChanged.begin(), mChanged.end(), place) == mChanged.end())
        mChanged.push_back(place);
    if (std::exchange(mUpdatePending, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { UpdatePlaces(); }, Qt::QueuedConnection);
}

void HtmlEditView::UpdatePlaces() {
    mUpdatePending = false;
    if (!mSurface || mLoadPending) return;
    for (const auto& place : std::exchange(mChanged, {})) {
        const auto found = std::find(mPlaces.begin(), mPlaces.end(), place);
        if (found == mPlaces.end()) continue;
        mSurface->SetPlace(static_cast<int>(found - mPlaces.begin()),
                           ToQString(place->GetInnerHTML()));
    }
}

void HtmlEditView::FlushWanted() {
    if (!mSurface || mFlushing || IsSource()) return;
    mFlushing = true;
    for (const WebReport& report : mSurface->Flush())
        PlaceTyped(report);
    mFlushing = false;
}

// The engine keeps the history with its page, so that a page that was touched is loaded again.
void HtmlEditView::ClearUndoWanted() {
    if (!mSurface || mLoadPending || IsSource() || !mSurface->WasTouched()) return;
    FlushWanted();
    LoadSoon(true);
}

void HtmlEditView::CommandWanted(const std::string& name,
                                 const std::vector<std::string>& arguments) {
    if (IsSource() && mSource && mSource->Run(name)) return;
    if (!mSurface || !mReady) return;
    QStringList texts;
    for (const std::string& argument : arguments)
        texts += ToQString(argument);
    if (AskForAddress(name, texts)) mSurface->Run(ToQString(name), texts);
}

// Links and pictures that nobody gave an address for; false when the author changed his mind.
bool HtmlEditView::AskForAddress(const std::string& command, QStringList& arguments) {
    if ((command != "createlink" && command != "insertimage") || !arguments.isEmpty()) return true;
    const bool isLink = command == "createlink";
    bool isDone = false;
    const QString address = QInputDialog::getText(
        this, isLink ? tr("Link") : tr("Picture"),
        isLink ? tr("&Address that the link leads to:") : tr("&Address of the picture:"),
        QLineEdit::Normal, isLink ? ToQString(mEdit->GetSelectedLink()) : QString(), &isDone);
    arguments = QStringList{address.trimmed(), QString()};
    return isDone && !arguments.first().isEmpty();
}

void HtmlEditView::FocusWanted(Control&) {
    if (IsSource() && mSource && !mLoadPending) return mSource->GetArea()->setFocus();
    if (mSurface && mReady && !mLoadPending)
        mSurface->FocusText();
    else
        mFocusPending = true;
}

void HtmlEditView::QueuedFocusWanted() {
    QMetaObject::invokeMethod(
        this, [this] { FocusWanted(*mEdit); }, Qt::QueuedConnection);
}

void HtmlEditView::MarksChanged() {
    if (mSurface) mSurface->RefreshMarks(mEdit->GetSpellAsYouType());
}

void HtmlEditView::SelectionWanted(const HtmlSelection& selection) {
    if (mEdit->GetView() != HtmlView::Normal) return;
    if (!IsReady()) {
        mWantedSelection = selection;
        return;
    }
    UpdatePlaces();
    mSurface->Select(static_cast<int>(selection.Place), static_cast<int>(selection.Start),
                     static_cast<int>(selection.End - selection.Start));
}

// What the author did

void HtmlEditView::PlaceTyped(const WebReport& report) {
    const auto index = static_cast<std::size_t>(report.Place);
    if (index >= mPlaces.size()) return;
    const auto& places = mEdit->GetPlaces();
    const bool isThere = index < places.size() && places[index] == mPlaces[index];
    const auto found = isThere ? places.begin() + static_cast<std::ptrdiff_t>(index)
                               : std::find(places.begin(), places.end(), mPlaces[index]);
    if (found == places.end()) return;
    mEdit->UserSpanChanged(static_cast<std::size_t>(found - places.begin()),
                           FromQString(report.Html));
}

void HtmlEditView::SourceMarkChanged() {
    if (mSource && IsSource() && !mLoadPending) mSource->ShowMark();
}

Ref<HTMLElement> HtmlEditView::Current(const WebPath& path) {
    return PagePoint::Of(path, [view = QPointer(this)](const std::string& html) {
        if (view && view->mSurface)
            view->mSurface->Run(QStringLiteral("replaceelement"), {ToQString(html)});
    });
}

bool HtmlEditView::TellElementEvent(const WebElementEvent& event) {
    const QPoint at = mSurface->mapToGlobal(event.Position);
    const auto info = MakeRef<HtmlElementEvent>();
    info->SourceElement = PagePoint::Of(event.Source);
    info->ScreenX = at.x();
    info->ScreenY = at.y();
    mEdit->UserPoint(Current(event.Current));
    return mEdit->UserElementEvent(event.Id, info);
}

void HtmlEditView::SelectionMoved(const WebSelection& selection) {
    if (IsWhole()) mEdit->UserPoint(Current(selection.Current));
    if (selection.Place >= 0)
        mEdit->UserSelectionMoved({static_cast<std::size_t>(selection.Place),
                                   static_cast<std::size_t>(selection.Start),
                                   static_cast<std::size_t>(selection.End)});
    mEdit->UserSelection(FromQString(selection.Text), Texts(selection.On), Texts(selection.Enabled),
                         FromQString(selection.ForeColor), FromQString(selection.FillColor),
                         FromQString(selection.Link));
}

void HtmlEditView::LinkClicked(const QString& href) {
    mEdit->UserHyperlinkClick(FromQString(ResolvedLink(BaseAddress(), href)));
}

void HtmlEditView::CommandPressed(const QString& name) {
    mEdit->ClickEditTool(FromQString(name));
}

void HtmlEditView::PictureRefused() {
    Notice(tr("Pictures are put in by their address: save the picture as a file, and use Picture… "
              "in the menu."));
}

void HtmlEditView::PartCopied(const QString& key, const QString& html) {
    mEdit->UserPartCopied(FromQString(key), FromQString(html));
}

void HtmlEditView::PartPasted(const QString& key, const QString& html) {
    mEdit->UserPartPasted(FromQString(key), FromQString(html));
}

void HtmlEditView::MenuWanted(const WebMenuRequest& request) {
    if (IsWhole() && TellElementEvent(request.Element)) return;
    const auto index = static_cast<std::size_t>(request.Place);
    const Ref<HTMLElement> place = index < mPlaces.size() ? mPlaces[index] : Ref<HTMLElement>();
    const auto type = !request.Image.isEmpty()  ? HtmlMenuType::Image
                      : !request.Link.isEmpty() ? HtmlMenuType::Anchor
                      : request.InTable         ? HtmlMenuType::Table
                      : request.InField         ? HtmlMenuType::Control
                      : request.HasText         ? HtmlMenuType::Text
                                                : HtmlMenuType::Default;
    const auto answer =
        mEdit->UserContextMenu(request.Position.x(), request.Position.y(), place, type);
    if (answer == HtmlMenuAnswer::None) return;
    WebMenuRequest resolved = request;
    if (!request.Link.isEmpty()) resolved.Link = ResolvedLink(BaseAddress(), request.Link);
    auto* menu =
        new HtmlEditMenu(mEdit, *mSurface, resolved, answer == HtmlMenuAnswer::DefaultOnly, this);
    menu->popup(mSurface->mapToGlobal(request.Position));
}

QList<WebMark> HtmlEditView::MisspeltWords(const QString& text) {
    QList<WebMark> marks;
    const std::string bytes = FromQString(text);
    std::size_t counted = 0; // bytes
    qsizetype units = 0;
    const auto unitsBefore = [&](std::size_t offset) {
        units += QString::fromUtf8(bytes.data() + counted, static_cast<qsizetype>(offset - counted))
                     .size();
        counted = offset;
        return static_cast<int>(units);
    };
    for (const TextRange& range : mEdit->FindMisspelt(bytes)) {
        const int start = unitsBefore(range.Start);
        marks += {start, unitsBefore(range.Start + range.Length) - start};
    }
    return marks;
}

// The look

void HtmlEditView::ApplyLook() {
    if (mSource) mSource->ApplyLook();
    if (!mSurface) return;
    const QPalette& colours = QApplication::palette();
    mSurface->SetColours({colours.color(QPalette::Base).lightness() < 128,
                          colours.color(QPalette::Base), colours.color(QPalette::Text),
                          colours.color(QPalette::PlaceholderText), colours.color(QPalette::Mid),
                          colours.color(QPalette::Highlight), colours.color(QPalette::Link)});
    const double scale = QApplication::instance()->property(Theme::kTextScaleProperty).toDouble();
    mSurface->SetZoom(scale > 0 ? scale / 100 : 1);
}

void HtmlEditView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) ApplyLook();
}

void HtmlEditView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (mSurface && mReady) mSurface->FocusText();
}

bool HtmlEditView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        mEdit->UserFocus(event->type() == QEvent::FocusIn);
    return QWidget::eventFilter(watched, event);
}

} // namespace paperkite
