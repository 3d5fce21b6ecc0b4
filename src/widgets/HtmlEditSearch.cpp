#include "foundation/HtmlSearch.h"
#include "foundation/Text.h"
#include "widgets/HtmlEdit.h"

#include <algorithm>
#include <utility>

namespace paperkite {

bool HtmlEdit::CanFind() const {
    return mDocument && mView == HtmlView::Normal;
}

// Where the search goes on in the place of the selection, in bytes of its source.
std::size_t HtmlEdit::FindFrom(std::size_t place) const {
    if (!mSelection) return 0;
    if (mFound.Selection == mSelection) return mFound.SourceEnd;
    return HtmlText::OffsetBehind(mPlaces[place]->GetInnerHTML(), mSelection->End);
}

bool HtmlEdit::FindIn(std::size_t place, const HtmlSearch& search, std::size_t from) {
    const std::string html = mPlaces[place]->GetInnerHTML();
    if (!search.MayBeIn(html)) return false;
    const HtmlText text(html);
    for (const auto& hit : search.Find(text)) {
        const auto source = search.SourceOf(text, hit);
        if (source.From < from) continue;
        SelectSource(place, html, source.From, source.To);
        mFound = {mSelection, source.To};
        return true;
    }
    return false;
}

void HtmlEdit::SelectSource(std::size_t place, const std::string& html, std::size_t from,
                            std::size_t to) {
    const HtmlSelection selection{place, HtmlText::CharactersBefore(html, from),
                                  HtmlText::CharactersBefore(html, to)};
    mSelection = selection;
    Tell<HtmlEditObserver>(
        [&](HtmlEditObserver& observer) { observer.SelectionWanted(selection); });
}

bool HtmlEdit::DoFind(const std::string& searchFor, bool wholeWord, bool caseSensitive,
                      bool searchInHTML) {
    if (!CanFind()) return false;
    CommitEdit();
    const HtmlSearch search({searchFor, wholeWord, caseSensitive, searchInHTML});
    const std::size_t count = GetPlaces().size();
    if (count == 0) return false;
    if (mSelection && mSelection->Place >= count) mSelection = {};
    const std::size_t first = mSelection ? mSelection->Place : 0;
    if (FindIn(first, search, FindFrom(first))) return true;
    for (std::size_t step = 1; step <= count; ++step)
        if (FindIn((first + step) % count, search, 0)) return true;
    return false;
}

std::size_t HtmlEdit::DoReplace(const std::string& searchFor, const std::string& replaceWith,
                                bool wholeWord, bool caseSensitive, bool searchInHTML) {
    if (!CanFind()) return 0;
    CommitEdit();
    const HtmlSearch search({searchFor, wholeWord, caseSensitive, searchInHTML});
    std::size_t total = 0;
    PlaceStep step;
    // A handler may exchange the places.
    const std::vector<Ref<HTMLElement>> places = GetPlaces();
    for (const auto& place : places) {
        const std::string html = place->GetInnerHTML();
        std::size_t count = 0;
        const std::string replaced = search.ReplaceAll(html, replaceWith, &count);
        if (count == 0 || !IsPlace(place)) continue;
        ChangePlace(place, replaced, step);
        total += count;
    }
    KeepStep(std::move(step));
    return total;
}

bool HtmlEdit::IsPlace(const Ref<HTMLElement>& element) const {
    const auto& places = GetPlaces();
    return std::find(places.begin(), places.end(), element) != places.end();
}

void HtmlEdit::ChangePlace(const Ref<HTMLElement>& place, const std::string& html,
                           PlaceStep& step) {
    const std::string before = place->GetInnerHTML();
    if (before == html) return;
    place->SetInnerHTML(html);
    const std::string after = place->GetInnerHTML();
    if (after == before) return;
    mDirty = true;
    const auto known = std::find_if(step.Changes.begin(), step.Changes.end(),
                                    [&](const auto& change) { return change.Place == place; });
    if (known == step.Changes.end())
        step.Changes.push_back({place, before, after});
    else
        known->After = after;
    Events.EditableSpanChanged.Raise(place);
}

// The history of the view knows nothing of such steps, and would take back what is not there any
// more: it begins anew behind them.
void HtmlEdit::KeepStep(PlaceStep step) {
    if (step.Changes.empty()) return;
    mSteps.resize(mStepsDone);
    mSteps.push_back(std::move(step));
    mStepsDone = mSteps.size();
    std::erase(mCommandsEnabled, "undo");
    std::erase(mCommandsEnabled, "redo");
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.ClearUndoWanted(); });
    Events.ToolsRefreshed.Raise();
}

// What the author typed since comes first.
bool HtmlEdit::CanStep(const std::string& tool) const {
    const bool isUndo = tool == "undo";
    if (!isUndo && tool != "redo") return false;
    if (!CanFind() || (isUndo ? mStepsDone == 0 : mStepsDone == mSteps.size())) return false;
    if (std::find(mCommandsEnabled.begin(), mCommandsEnabled.end(), tool) != mCommandsEnabled.end())
        return false;
    const PlaceStep& step = mSteps[isUndo ? mStepsDone - 1 : mStepsDone];
    return std::all_of(step.Changes.begin(), step.Changes.end(), [&](const auto& change) {
        return IsPlace(change.Place) &&
               change.Place->GetInnerHTML() == (isUndo ? change.After : change.Before);
    });
}

bool HtmlEdit::Step(const std::string& tool) {
    if (tool != "undo" && tool != "redo") return false;
    CommitEdit();
    if (!CanStep(tool)) return false;
    const bool isUndo = tool == "undo";
    const PlaceStep step = mSteps[isUndo ? --mStepsDone : mStepsDone++];
    PlaceStep reverse;
    for (const auto& change : step.Changes)
        ChangePlace(change.Place, isUndo ? change.Before : change.After, reverse);
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.ClearUndoWanted(); });
    Events.ToolsRefreshed.Raise();
    return true;
}

} // namespace paperkite
