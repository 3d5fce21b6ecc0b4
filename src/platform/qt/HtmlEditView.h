#pragma once

#include "platform/qt/HtmlSourceView.h"
#include "platform/qt/WebSurface.h"
#include "widgets/HtmlEdit.h"

#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace paperkite {

/// Shows an HtmlEdit as a page of the web engine, and reports what the author does there. The
/// engine is started when the first document is to be seen. While a page cannot be shown, a
/// sentence says why.
///
/// Keys: Ctrl+B, Ctrl+I, Ctrl+U for emphasis, Ctrl+K for a link, Ctrl+] and Ctrl+[ to indent,
/// Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z to undo and redo; Ctrl with a click follows a link. Tab goes to
/// the next place and then out of the page; inside a table it goes to the next cell, and leaves the
/// table after Escape.
class HtmlEditView : public QWidget, private HtmlEditObserver, private WebSurfaceListener {
public:
    HtmlEditView(const Ref<HtmlEdit>& edit, QWidget* parent);
    ~HtmlEditView() override;

    /// Nothing before the first page.
    WebSurface* GetSurface() const { return mSurface; }
    /// Nothing before the first source that may be written on.
    CodeArea* GetSourceArea() const { return mSource ? mSource->GetArea() : nullptr; }
    /// Whether the page stands and shows the document's present state.
    bool IsReady() const { return mReady && !mLoadPending; }
    /// The sentence that is shown above the page or in its place; empty for none.
    QString GetNotice() const;

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // from the widget
    void ControlChanged(Control& control) override;
    void FocusWanted(Control& control) override;
    void DocumentReplaced() override;
    void ElementChanged(const Ref<HTMLElement>& element) override;
    bool IsShowingPage() const override { return IsReady() && !IsSource(); }
    void FlushWanted() override;
    void SourceMarkChanged() override;
    void ClearUndoWanted() override;
    void CommandWanted(const std::string& name, const std::vector<std::string>& arguments) override;
    void QueuedFocusWanted() override;
    void MarksChanged() override;
    void SelectionWanted(const HtmlSelection& selection) override;

    // from the page
    void PageReady() override;
    void PlaceTyped(const WebReport& report) override;
    void PageTouched(bool canUndo) override { mEdit->UserDocumentTouched(canUndo); }
    void ElementEvent(const WebElementEvent& event) override { TellElementEvent(event); }
    void SelectionMoved(const WebSelection& selection) override;
    void LinkClicked(const QString& href) override;
    void MenuWanted(const WebMenuRequest& request) override;
    void CommandPressed(const QString& name) override;
    void PictureRefused() override;
    void PartCopied(const QString& key, const QString& html) override;
    void PartPasted(const QString& key, const QString& html) override;
    void PageLost(WebLoss loss) override;
    QList<WebMark> MisspeltWords(const QString& text) override;

    void LoadSoon(bool keepPosition);
    void LoadNow();
    /// Whether the text itself is what the author writes on.
    bool IsSource() const;
    bool IsWhole() const { return mEdit->GetScope() == HtmlEditScope::Document; }
    void LoadSource();
    /// True where nothing else is to happen.
    bool TellElementEvent(const WebElementEvent& event);
    Ref<HTMLElement> Current(const WebPath& path);
    bool HaveSurface();
    /// The address of the page, which ends with "/", or nothing.
    QString BaseAddress() const;
    WebPage MakePage() const;
    QString PageText() const;
    QString WithLooks(const QString& html) const;
    void UpdatePlaces();
    void ApplyLook();
    void Notice(const QString& text);
    bool AskForAddress(const std::string& command, QStringList& arguments);

    Ref<HtmlEdit> mEdit;
    QVBoxLayout* mColumn;
    QLabel* mNotice;
    WebSurface* mSurface = nullptr;
    std::unique_ptr<HtmlSourceView> mSource;
    /// The places of the page that is shown, in its order.
    std::vector<Ref<HTMLElement>> mPlaces;
    /// Those whose text code has changed since.
    std::vector<Ref<HTMLElement>> mChanged;
    bool mReady = false;
    bool mLoadPending = false;
    bool mKeepPosition = false;
    bool mFocusPending = false;
    bool mUpdatePending = false;
    /// To be selected as soon as the page stands.
    std::optional<HtmlSelection> mWantedSelection;
    bool mFlushing = false;
    int mLosses = 0;
    Connection mTie;
};

} // namespace paperkite
