#include "widgets/HtmlEdit.h"

#include "foundation/MemberTable.h"
#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

#include <algorithm>
#include <array>

namespace paperkite {

namespace {

constexpr std::array<const char*, 24> kTools{
    "bold",
    "italic",
    "underline",
    "code",
    "indent",
    "removeformat",
    "insertorderedlist",
    "insertunorderedlist",
    "outdent",
    "createlink",
    "unlink",
    "insertimage",
    "undo",
    "redo",
    "cut",
    "copy",
    "paste",
    "pasteplain",
    "selectall",
    "insertrow",
    "deleterow",
    "insertcolumn",
    "deletecolumn",
    "deletetable",
};
constexpr int kMostCells = 100;

bool IsTool(const std::string& name) {
    return std::find(kTools.begin(), kTools.end(), name) != kTools.end();
}

bool Holds(const std::vector<std::string>& names, const std::string& name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const auto& entry) { return EqualIgnoringCase(entry, name); });
}

bool IsEditable(const HTMLElement& element) {
    return EqualIgnoringCase(element.GetAttribute("contenteditable").value_or(""), "true");
}

// What stands where a late-bound caller left an argument out.
Value At(const std::vector<Value>& arguments, std::size_t index) {
    return index < arguments.size() ? arguments[index] : Value();
}

using Arguments = std::vector<Value>;

const MemberTable<HtmlEdit>& Members() {
    using E = HtmlEdit;
    static const MemberTable<HtmlEdit> members{
        {"DocumentHTML", [](const E& e) { return Value(e.GetDocumentHTML()); },
         [](E& e, const Value& v) { e.SetDocumentHTML(v.ToText()); }},
        {"BaseURL", [](const E& e) { return Value(e.GetBaseURL()); },
         [](E& e, const Value& v) { e.SetBaseURL(v.ToText()); }},
        {"Dirty", [](const E& e) { return Value(e.GetDirty()); },
         [](E& e, const Value& v) { e.SetDirty(v.ToBoolean()); }},
        {"ApplicationName", [](const E& e) { return Value(e.GetApplicationName()); },
         [](E& e, const Value& v) { e.SetApplicationName(v.ToText()); }},
        {"ContextToolbarStyle", [](const E& e) { return Value(e.GetContextToolbarStyle()); },
         [](E& e, const Value& v) { e.SetContextToolbarStyle(v.ToInteger()); }},
        {"SpellAsYouType", [](const E& e) { return Value(e.GetSpellAsYouType()); },
         [](E& e, const Value& v) { e.SetSpellAsYouType(v.ToBoolean()); }},
        {"Document", [](const E& e) { return Value(e.GetDocument()); }},
        {"ResourcePath", [](const E& e) { return Value(e.GetResourcePath()); }},
        {"ForeColorName", [](const E& e) { return Value(e.GetForeColorName()); }},
        {"FillColorName", [](const E& e) { return Value(e.GetFillColorName()); }},
        {"SpellCheckInProgress", [](const E& e) { return Value(e.GetSpellCheckInProgress()); }},
        {"CommitEdit", nullptr, nullptr,
         [](E& e, const Arguments&) { return e.CommitEdit(), Value(); }},
        {"ClearUndo", nullptr, nullptr,
         [](E& e, const Arguments&) { return e.ClearUndo(), Value(); }},
        {"Terminate", nullptr, nullptr,
         [](E& e, const Arguments&) { return e.Terminate(), Value(); }},
        {"SetEditFocus", nullptr, nullptr,
         [](E& e, const Arguments&) { return e.SetEditFocus(), Value(); }},
        {"SetEditFocusQueued", nullptr, nullptr,
         [](E& e, const Arguments&) { return e.SetEditFocusQueued(), Value(); }},
        {"ClickEditTool", nullptr, nullptr,
         [](E& e, const Arguments& a) { return e.ClickEditTool(At(a, 0).ToText()), Value(); }},
        {"InsertHTML", nullptr, nullptr,
         [](E& e, const Arguments& a) { return e.InsertHTML(At(a, 0).ToText()), Value(); }},
        {"InsertTable", nullptr, nullptr,
         [](E& e, const Arguments& a) {
             return e.InsertTable(At(a, 0).ToInteger(), At(a, 1).ToInteger()), Value();
         }},
        {"SetForeColorByName", nullptr, nullptr,
         [](E& e, const Arguments& a) { return e.SetForeColorByName(At(a, 0).ToText()), Value(); }},
        {"SetFillColorByName", nullptr, nullptr,
         [](E& e, const Arguments& a) { return e.SetFillColorByName(At(a, 0).ToText()), Value(); }},
        {"AddIgnoreAll", nullptr, nullptr,
         [](E& e, const Arguments& a) { return e.AddIgnoreAll(At(a, 0).ToText()), Value(); }},
        {"DoFind", nullptr, nullptr,
         [](E& e, const Arguments& a) {
             return Value(e.DoFind(At(a, 0).ToText(), At(a, 1).ToBoolean(), At(a, 2).ToBoolean(),
                                   At(a, 3).ToBoolean()));
         }},
        {"DoReplace", nullptr, nullptr,
         [](E& e, const Arguments& a) {
             const std::size_t count =
                 e.DoReplace(At(a, 0).ToText(), At(a, 1).ToText(), At(a, 2).ToBoolean(),
                             At(a, 3).ToBoolean(), At(a, 4).ToBoolean());
             return Value(static_cast<std::int32_t>(count));
         }},
    };
    return members;
}

} // namespace

HtmlEdit::HtmlEdit(std::string name) : Control(std::move(name)) {}

HtmlEdit::~HtmlEdit() = default;

Value HtmlEdit::Get(std::string_view member) const {
    const auto getter = Members().FindGetter(member);
    return getter ? getter(*this) : Object::Get(member);
}

void HtmlEdit::Set(std::string_view member, const Value& value) {
    if (!Members().Set(*this, member, value)) Object::Set(member, value);
}

Value HtmlEdit::Call(std::string_view member, const std::vector<Value>& arguments) {
    Value result;
    return Members().Call(*this, member, arguments, result) ? result
                                                            : Object::Call(member, arguments);
}

void HtmlEdit::SetDocumentHTML(const std::string& html) {
    if (mTerminated) return;
    CommitEdit();
    ++mLoading;
    const ScopeExit loaded([this] { --mLoading; });
    if (!IsText()) MakeDocument(html);
    if (mScope == HtmlEditScope::Document) mText = html;
    mSteps.clear();
    mStepsDone = 0;
    mDirty = false;
    mMarkedLine = 0;
    ForgetSelection();
    {
        ++mQuiet;
        const ScopeExit loud([this] { --mQuiet; });
        Events.DocumentComplete.Raise();
    }
    Events.ToolsRefreshed.Raise();
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.DocumentReplaced(); });
    if (mScope == HtmlEditScope::Document) Events.Change.Raise();
}

void HtmlEdit::MakeDocument(const std::string& html) {
    const auto document = Required(CurrentServices().HTMLDOMFactory).CreateFromString(html);
    mDocument = document;
    mPlacesKnown = false;
    mDocumentChanged = document->Events.Changed.Connect(
        [this](const Ref<HTMLElement>& element) { DocumentChanged(element); });
}

std::string HtmlEdit::GetDocumentHTML() const {
    if (mText) return *mText;
    return mDocument ? mDocument->Serialise() : std::string();
}

void HtmlEdit::ForgetSelection() {
    mSelection = {};
    mFound = {};
    mSelectedText.clear();
    mSelectedLink.clear();
    mForeColorName.clear();
    mFillColorName.clear();
    mCommandsOn.clear();
    mCommandsEnabled.clear();
    mCurrentElement = {};
}

void HtmlEdit::SetReadableFolders(std::vector<std::string> value) {
    Assign(mReadableFolders, value);
}

std::string HtmlEdit::GetResourcePath() const {
    return CurrentServices().ApplicationFolder + "/config/htmledit";
}

void HtmlEdit::SetView(HtmlView value) {
    if (mView == value) return;
    CommitEdit();
    if (mScope == HtmlEditScope::Document) {
        if (value == HtmlView::Source)
            mText = GetDocumentHTML();
        else if (IsText())
            MakeDocument(GetDocumentHTML());
    }
    mView = value;
    ForgetSelection();
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.DocumentReplaced(); });
}

const std::vector<Ref<HTMLElement>>& HtmlEdit::GetPlaces() const {
    if (mPlacesKnown) return mPlaces;
    mPlaces.clear();
    mPlacesKnown = true;
    if (!mDocument) return mPlaces;
    if (mScope == HtmlEditScope::Document) {
        if (const auto body = mDocument->GetBody()) mPlaces.push_back(body);
        return mPlaces;
    }
    for (const auto& element : mDocument->Tags("*"))
        if (IsEditable(*element) && !PlaceOf(element->GetParentElement()))
            mPlaces.push_back(element);
    return mPlaces;
}

Ref<HTMLElement> HtmlEdit::PlaceOf(const Ref<HTMLElement>& element) const {
    Ref<HTMLElement> outermost;
    if (mScope == HtmlEditScope::Document) {
        const auto body = mDocument ? mDocument->GetBody() : Ref<HTMLElement>();
        for (auto at = element; body && at; at = at->GetParentElement())
            if (at == body) return body;
        return {};
    }
    for (auto at = element; at; at = at->GetParentElement())
        if (IsEditable(*at)) outermost = at;
    return outermost;
}

void HtmlEdit::DocumentChanged(const Ref<HTMLElement>& element) {
    const Ref<HTMLElement> place = PlaceOf(element);
    const bool isKnown = std::find(mPlaces.begin(), mPlaces.end(), place) != mPlaces.end();
    if (!place || !isKnown) mPlacesKnown = false;
    mText.reset();
    if (mQuiet > 0) return;
    Tell<HtmlEditObserver>([&](HtmlEditObserver& observer) { observer.ElementChanged(element); });
}

void HtmlEdit::RemoveElementKeepContents(const Ref<HTMLElement>& element) {
    element->RemoveKeepingContents();
}

void HtmlEdit::CommitEdit() {
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.FlushWanted(); });
}

void HtmlEdit::ClearUndo() {
    mSteps.clear();
    mStepsDone = 0;
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.ClearUndoWanted(); });
}

void HtmlEdit::Terminate() {
    if (mTerminated) return;
    mTerminated = true;
    mDocumentChanged.Disconnect();
    mWordsChanged.Disconnect();
    mDocument = {};
    mText.reset();
    mExternal = nullptr;
    mPlaces.clear();
    mPlacesKnown = false;
    mSteps.clear();
    mStepsDone = 0;
    mSpell = {};
    ForgetSelection();
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.DocumentReplaced(); });
}

void HtmlEdit::SetEditFocus() {
    SetFocus();
}

void HtmlEdit::SetEditFocusQueued() {
    if (mTerminated) return;
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.QueuedFocusWanted(); });
}

void HtmlEdit::ClickEditTool(const std::string& name) {
    const std::string tool = LowerCase(name);
    const bool isView = tool == "viewnormal" || tool == "viewsource" || tool == "viewpreview";
    if (!isView && !IsTool(tool))
        RaiseError(ErrorNumber::InvalidCall, "The editor has no tool named \"" + name + "\"");
    bool ignore = false;
    Events.CommandClick.Raise(name, ignore);
    if (ignore || mTerminated) return;
    if (tool == "viewnormal")
        SetView(HtmlView::Normal);
    else if (tool == "viewsource")
        SetView(HtmlView::Source);
    else if (tool == "viewpreview")
        SetView(HtmlView::Preview);
    else if (tool == "createlink")
        CreateLink();
    else if (!Step(tool))
        TellCommand(tool);
}

void HtmlEdit::CreateLink() {
    bool cancel = false;
    std::string url = mSelectedLink;
    std::string link;
    Events.InsertHyperLinkRequest.Raise(mSelectedText, link, cancel);
    if (cancel) return;
    if (!link.empty()) return TellCommand("createlink", {link, {}});
    bool removeLink = false;
    bool isAnswered = false;
    std::string caption = mSelectedText;
    const bool needsCaption = mSelectedText.empty() && mSelectedLink.empty();
    Events.GetURL.Raise(url, caption, removeLink, !mSelectedLink.empty(), needsCaption, true,
                        isAnswered);
    if (!isAnswered) return TellCommand("createlink");
    if (removeLink) return TellCommand("unlink");
    if (!url.empty()) TellCommand("createlink", {url, needsCaption ? caption : std::string()});
}

void HtmlEdit::TellCommand(const std::string& name, const std::vector<std::string>& arguments) {
    Tell<HtmlEditObserver>(
        [&](HtmlEditObserver& observer) { observer.CommandWanted(name, arguments); });
}

void HtmlEdit::InsertTable(int rows, int columns) {
    if (rows < 1 || columns < 1 || rows > kMostCells || columns > kMostCells)
        RaiseError(ErrorNumber::InvalidCall, "A table has from 1 to 100 rows and columns");
    TellCommand("inserttable", {std::to_string(rows), std::to_string(columns)});
}

void HtmlEdit::InsertHTML(const std::string& html) {
    TellCommand("inserthtml", {html});
}

void HtmlEdit::SetForeColorByName(const std::string& colourName) {
    mForeColorName = colourName;
    TellCommand("forecolor", {colourName});
}

void HtmlEdit::SetFillColorByName(const std::string& colourName) {
    mFillColorName = colourName;
    TellCommand("fillcolor", {colourName});
}

bool HtmlEdit::IsCommandOn(const std::string& name) const {
    return Holds(mCommandsOn, name);
}

bool HtmlEdit::IsCommandEnabled(const std::string& name) const {
    constexpr std::string_view kMenu = "edit";
    const std::string lower = LowerCase(name);
    const std::string tool = lower.starts_with(kMenu) ? lower.substr(kMenu.size()) : lower;
    return Holds(mCommandsEnabled, tool) || CanStep(tool);
}

void HtmlEdit::UserSpanChanged(std::size_t place, const std::string& html) {
    const bool isWritable = mView == HtmlView::Normal && !mTerminated;
    if (!isWritable || place >= GetPlaces().size()) return;
    const Ref<HTMLElement> span = mPlaces[place];
    const std::string before = span->GetInnerHTML();
    if (before == html) return;
    {
        ++mQuiet;
        const ScopeExit loud([this] { --mQuiet; });
        span->SetInnerHTML(html);
    }
    if (span->GetInnerHTML() == before) return;
    mText.reset();
    mDirty = true;
    Events.EditableSpanChanged.Raise(span);
}

void HtmlEdit::UserHyperlinkClick(const std::string& href) {
    if (!mTerminated) Events.HyperlinkClick.Raise(href);
}

void HtmlEdit::UserSelection(const std::string& text, std::vector<std::string> on,
                             std::vector<std::string> enabled, const std::string& foreColor,
                             const std::string& fillColor, const std::string& link) {
    if (mTerminated) return;
    mSelectedText = text;
    mSelectedLink = link;
    mCommandsOn = std::move(on);
    mCommandsEnabled = std::move(enabled);
    mForeColorName = foreColor;
    mFillColorName = fillColor;
    Events.ToolsRefreshed.Raise();
}

HtmlMenuAnswer HtmlEdit::UserContextMenu(int x, int y, const Ref<HTMLElement>& objectAtPoint,
                                         HtmlMenuType type) {
    bool cancelDefault = false;
    bool showDefault = false;
    Events.BeforeShowContextMenuEx.Raise(x, y, objectAtPoint, cancelDefault, showDefault, type);
    if (!cancelDefault) return HtmlMenuAnswer::Full;
    return showDefault ? HtmlMenuAnswer::DefaultOnly : HtmlMenuAnswer::None;
}

} // namespace paperkite
