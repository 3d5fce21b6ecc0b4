#include "widgets/HtmlEdit.h"

#include "foundation/ScopeExit.h"

#include <algorithm>

// Writing on a whole document.

namespace paperkite {

namespace {

constexpr const char* kUndo = "undo";

} // namespace

bool HtmlEdit::IsPageShown() const {
    bool isShown = false;
    const_cast<HtmlEdit*>(this)->Tell<HtmlEditObserver>(
        [&](HtmlEditObserver& observer) { isShown = isShown || observer.IsShowingPage(); });
    return isShown;
}

void HtmlEdit::SetSelectedHTML(const std::string& html) {
    if (mTerminated || IsText()) return;
    if (IsPageShown()) return InsertHTML(html);
    const auto body = mDocument ? mDocument->GetBody() : Ref<HTMLElement>();
    if (!body) return;
    const bool isInBody = mCurrentElement && mCurrentElement != body && PlaceOf(mCurrentElement);
    if (isInBody)
        mCurrentElement->InsertAdjacentHTML(InsertPosition::AfterEnd, html);
    else
        body->InsertAdjacentHTML(InsertPosition::BeforeEnd, html);
}

void HtmlEdit::SetSourceMark(int line, int column) {
    if (mMarkedLine == line && mMarkedColumn == column) return;
    mMarkedLine = line;
    mMarkedColumn = column;
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.SourceMarkChanged(); });
}

void HtmlEdit::NoteUndo(bool canUndo) {
    std::erase(mCommandsEnabled, kUndo);
    if (canUndo) mCommandsEnabled.emplace_back(kUndo);
}

void HtmlEdit::UserDocumentTouched(bool canUndo) {
    if (mTerminated || mScope != HtmlEditScope::Document || mView != HtmlView::Normal) return;
    mDirty = true;
    NoteUndo(canUndo);
    Events.Change.Raise();
}

void HtmlEdit::UserPartCopied(const std::string& key, const std::string& html) {
    if (!mTerminated && mScope == HtmlEditScope::Document) Events.PartCopied.Raise(key, html);
}

void HtmlEdit::UserPartPasted(const std::string& key, const std::string& html) {
    if (mTerminated || mScope != HtmlEditScope::Document || mView != HtmlView::Normal) return;
    bool isHandled = false;
    Events.PartPasted.Raise(key, html, isHandled);
    if (!isHandled) SetSelectedHTML(html);
}

void HtmlEdit::UserSourceChanged(const std::string& text, bool canUndo) {
    if (mTerminated || !IsText() || mText == text) return;
    mText = text;
    mDirty = true;
    NoteUndo(canUndo);
    Events.Change.Raise();
}

void HtmlEdit::UserPoint(const Ref<HTMLElement>& element) {
    if (!mTerminated) mCurrentElement = element;
}

bool HtmlEdit::UserElementEvent(int eventId, const Ref<HtmlElementEvent>& info) {
    bool cancelDefault = false;
    if (!mTerminated) Events.ElementEvent.Raise(eventId, info, cancelDefault);
    return cancelDefault;
}

} // namespace paperkite
