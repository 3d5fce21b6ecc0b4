#pragma once

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace paperkite {

enum class WebPageKind { Editable, Source, Preview };

/// What a WebSurface is to show.
struct WebPage {
    WebPageKind Kind = WebPageKind::Editable;
    /// The whole page; its places are empty, their texts stand in Places. For Source the text that
    /// is shown as such.
    QString Html;
    /// What stands in the places, in document order.
    QStringList Places;
    /// Where relative addresses begin; empty for nowhere.
    QString BaseUrl;
    /// Folders that the page may read files from.
    QStringList Folders;
    /// The one place is the body of the page. What is typed in it is not told with each key, only
    /// that something was.
    bool IsWhole = false;
    /// The same page as before: scroll position and caret stay.
    bool KeepPosition = false;
};

/// An element of the page, and what it stands in.
struct WebElement {
    QString Tag;
    QString Id;
};
/// From the inside outwards.
using WebPath = QList<WebElement>;

/// Something that happened to an element of a page that is written on as a whole.
struct WebElementEvent {
    int Id = 0;
    WebPath Source;
    /// The element that the page's commands work on now.
    WebPath Current;
    QPoint Position; ///< in the surface
};

/// Where the author stands in the page.
struct WebSelection {
    QString Text;
    QStringList On;
    QStringList Enabled;
    QString ForeColor;
    QString FillColor;
    QString Link;
    /// The selection in the text of a place, in UTF-16 units; no place outside them.
    int Place = -1;
    int Start = 0;
    int End = 0;
    /// Of a page that is written on as a whole: the element that the author stands in.
    WebPath Current;
};

/// What the author pointed at when the menu key or button was pressed.
struct WebMenuRequest {
    QPoint Position; ///< in the surface
    int Place = -1;  ///< -1 outside the places
    QString Link;
    QString Image;
    QString Word; ///< a word that is marked as misspelt
    bool InTable = false;
    bool InField = false;
    bool HasText = false; ///< something is selected
    /// Of a page that is written on as a whole.
    WebElementEvent Element;
};

/// A stretch of a text, in UTF-16 units.
struct WebMark {
    int Start = 0;
    int Length = 0;
};

/// One report of a place: later ones of the same place have higher numbers.
struct WebReport {
    int Place = 0;
    qint64 Number = 0;
    QString Html;
};

/// Why the page is not there any more.
enum class WebLoss { Ended, Crashed, Killed };

/// What a WebSurface tells whoever shows it.
class WebSurfaceListener {
public:
    virtual ~WebSurfaceListener() = default;

    virtual void PageReady() = 0;
    virtual void PlaceTyped(const WebReport& report) = 0;
    /// Something was typed in a page that is written on as a whole.
    virtual void PageTouched(bool canUndo) = 0;
    virtual void ElementEvent(const WebElementEvent& event) = 0;
    virtual void SelectionMoved(const WebSelection& selection) = 0;
    virtual void LinkClicked(const QString& href) = 0;
    virtual void MenuWanted(const WebMenuRequest& request) = 0;
    /// The author pressed the key of a command that the page cannot do alone: "createlink", and
    /// "undo" or "redo" where its own history is at its end.
    virtual void CommandPressed(const QString& name) = 0;
    /// The author pasted or dropped picture data, which the page does not take.
    virtual void PictureRefused() = 0;
    /// Part of a page that is written on as a whole was copied. The spans in it mean something on
    /// that page alone, which the key names.
    virtual void PartCopied(const QString& key, const QString& html) = 0;
    /// A part of another page is to be put in.
    virtual void PartPasted(const QString& key, const QString& html) = 0;
    /// The engine's process is gone; the page has to be loaded again.
    virtual void PageLost(WebLoss loss) = 0;
    /// Where the words stand that are to be marked as misspelt.
    virtual QList<WebMark> MisspeltWords(const QString& text) = 0;
};

/// The colours of what the surface draws itself.
struct WebColours {
    bool Dark = false;
    QColor Base;
    QColor Text;
    QColor QuietText;
    QColor Lines;
    QColor Highlight;
    QColor Link;
};

/// A page of the web engine that may be written on. It lives in a library of its own, which is
/// loaded when the first page is shown; this interface is all that the program knows of it.
/// Scripts of the page never run, nothing is read but the named folders, nothing is fetched.
class WebSurface : public QWidget {
public:
    using QWidget::QWidget;

    /// Nothing to tell from then on, with nullptr.
    virtual void SetListener(WebSurfaceListener* listener) = 0;
    virtual void Load(const WebPage& page) = 0;
    /// Code changed the text of a place.
    virtual void SetPlace(int place, const QString& html) = 0;
    /// What was typed and not reported yet. Waits for the page at most two seconds.
    virtual QList<WebReport> Flush() = 0;
    /// False when nothing was typed since the page was loaded.
    virtual bool WasTouched() const = 0;
    /// Works on the selection.
    virtual void Run(const QString& command, const QStringList& arguments) = 0;
    /// Puts the caret into the text, where it was last.
    virtual void FocusText() = 0;
    /// Asks again which words are misspelt, or takes all marks away.
    virtual void RefreshMarks(bool wanted) = 0;
    /// Replaces the marked word that the menu was last asked for at.
    virtual void ReplaceWord(const QString& replacement) = 0;
    /// Selects a stretch of the text of a place and brings it into sight.
    virtual void Select(int place, int start, int length) = 0;
    virtual void SetColours(const WebColours& colours) = 0;
    virtual void SetZoom(double factor) = 0;
    /// The widget that takes keys and mouse.
    virtual QWidget* InputWidget() const = 0;
    /// The number of the process that shows the page; 0 for none.
    virtual qint64 ProcessNumber() const = 0;
};

/// The one symbol of the library.
using MakeWebSurfaceFunction = WebSurface* (*)(QWidget* parent);
inline constexpr const char* kMakeWebSurface = "MakePaperkiteWebSurface";

} // namespace paperkite
