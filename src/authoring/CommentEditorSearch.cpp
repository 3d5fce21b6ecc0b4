#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include "authoring/CommentEditor.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Settings.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr const char* kTitle = "Spelling";
constexpr const char* kCancelled = "The spell check has been cancelled";
constexpr const char* kCompleted = "The spell check completed successfully";

} // namespace

void CommentEditor::DoFind(const std::string& SearchFor, bool WholeWord, bool CaseSensitive,
                           bool SearchInHTML) {
    DoFindReplace(SearchFor, {}, WholeWord, CaseSensitive, SearchInHTML, false);
}

void CommentEditor::DoReplace(const std::string& SearchFor, const std::string& ReplaceWith,
                              bool WholeWord, bool CaseSensitive, bool SearchInHTML) {
    DoFindReplace(SearchFor, ReplaceWith, WholeWord, CaseSensitive, SearchInHTML, true);
}

void CommentEditor::DoFindReplace(const std::string& SearchFor, const std::string& ReplaceWith,
                                  bool WholeWord, bool CaseSensitive, bool SearchInHTML,
                                  bool IsReplace) {
    Procedure(*this, "DoFindReplace", [&](Frame& frame) {
        Watch watchFor(frame, "SearchFor", SearchFor);
        Watch watchWith(frame, "ReplaceWith", ReplaceWith);
        if (zGoToPage()) {
            if (IsReplace)
                InPlaceEditor->DoReplace(SearchFor, ReplaceWith, WholeWord, CaseSensitive,
                                         SearchInHTML);
            else
                InPlaceEditor->DoFind(SearchFor, WholeWord, CaseSensitive, SearchInHTML);
            return;
        }
        for (const auto& item : zTabsInUse()) {
            item->SetSelected(true);
            if (!ActiveDesigner || !ActiveDesigner->QueryCapability("FindReplace")) continue;
            std::vector<Value> arguments;
            arguments.reserve(5);
            arguments.emplace_back(SearchFor);
            if (IsReplace) arguments.emplace_back(ReplaceWith);
            for (const bool option : {WholeWord, CaseSensitive, SearchInHTML})
                arguments.emplace_back(option);
            ActiveDesigner->Call(IsReplace ? "DoReplace" : "DoFind", arguments);
        }
    });
}

bool CommentEditor::zGoToPage() {
    const auto main = eb->GetGroup("main");
    if (main->Count() == 0) return false;
    const auto first = main->Item(1);
    if (eb->GetSelectedItem() == first) return true;
    {
        // The one call below opens the page, not the selection as well.
        mPopulating = true;
        const ScopeExit heedSelection([this] { mPopulating = false; });
        first->SetSelected(true);
    }
    eb_SelChange(first);
    return true;
}

std::vector<Ref<GroupItem>> CommentEditor::zTabsInUse() const {
    std::vector<Ref<GroupItem>> tabs;
    for (const auto& group : eb->GetGroups())
        for (const auto& item : *group)
            if (item->GetBold() && item->GetKey() != "other" && item->GetKey() != "flags")
                tabs.push_back(item);
    return tabs;
}

bool CommentEditor::SpellCheck(bool ShowCompletionMessage, const Ref<Object>& PassedSpell) {
    return Procedure<bool>(*this, "SpellCheck", [&](bool& result, Frame& frame) {
        Watch watchShow(frame, "ShowCompletionMessage", ShowCompletionMessage);
        Watch watchSpell(frame, "PassedSpell", PassedSpell);
        mSpellCheckCancelled = false;
        if (GetTaggedComments()->Count() == 0) {
            result = true;
            return;
        }
        if (zGoToPage())
            InPlaceEditor->DoSpellCheck(PassedSpell, mSpellCheckCancelled);
        else
            zCheckTabs(PassedSpell);
        if (ShowCompletionMessage)
            Required(CurrentServices().MessageBox)
                .Show(mSpellCheckCancelled ? kCancelled : kCompleted, kTitle,
                      mSpellCheckCancelled ? MessageIcon::Warning : MessageIcon::Information);
        result = !mSpellCheckCancelled;
    });
}

void CommentEditor::zCheckTabs(const Ref<Object>& PassedSpell) {
    for (const auto& item : zTabsInUse()) {
        item->SetSelected(true);
        if (ActiveDesigner && ActiveDesigner->QueryCapability("SpellCheck")) {
            if (CurrentServices().RunPendingEvents) CurrentServices().RunPendingEvents();
            ActiveDesigner->SpellCheck(PassedSpell, mSpellCheckCancelled);
        }
        if (mSpellCheckCancelled || CancelSpellCheck) return;
    }
}

void CommentEditor::spell_OptionBtnClick() {
    Procedure(*this, "spell_OptionBtnClick", [&](Frame&) {
        Events.SpellingOptionsRequested.Raise();
        ShowSpellingOptions();
    });
}

void CommentEditor::ShowSpellingOptions() {
    Procedure(*this, "ShowSpellingOptions", [&](Frame&) {
        const auto& show = CurrentServices().ShowPageDialog;
        if (!show)
            RaiseError(ErrorNumber::CannotCreateComponent, "This host shows no pages of settings");
        const int answer =
            show({"Spelling Options", "CommonPages.PageSpelling", "Common.PageSpelling",
                  "Software\\Brindlewick\\" + GetAppName() + "\\Spelling", this});
        if (answer == 1) zReloadSpelling();
    });
}

void CommentEditor::zReloadSpelling() {
    // A host that gave an engine of its own sees to its options.
    if (const auto& own = CurrentServices().Spelling) InitSpellingObject(*own);
}

void CommentEditor::SetSpellOptions(const SpellOptions& value) {
    Procedure(*this, "SetSpellOptions", [&](Frame&) {
        mSpellOptions = value;
        InPlaceEditor->SetSpellOptions(value);
        const auto fixed = zFixedDesigner();
        if (fixed && fixed->GetEditor()) fixed->GetEditor()->SetSpellOptions(value);
    });
}

void CommentEditor::AddIgnoreAll(const std::string& Word) {
    Procedure(*this, "AddIgnoreAll", [&](Frame& frame) {
        Watch watchWord(frame, "Word", Word);
        const auto fixed = zFixedDesigner();
        if (fixed && fixed->GetEditor()) fixed->GetEditor()->AddIgnoreAll(Word);
        InPlaceEditor->AddIgnoreAll(Word);
    });
}

bool CommentEditor::GetSpellCheckInProgress() const {
    return Procedure<bool>(*this, "SpellCheckInProgress", [&](bool& result, Frame&) {
        result = ActiveDesigner && ActiveDesigner->QueryCapability("spellcheckinprogress");
    });
}

} // namespace paperkite
