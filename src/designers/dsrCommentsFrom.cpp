#include "designers/dsrCommentsFrom.h"

#include "commenttexts/CommentForm.h"
#include "commenttexts/CommentsFromChain.h"
#include "commenttexts/PlainText.h"
#include "foundation/Text.h"
#include "widgets/Keys.h"

#include <set>

namespace paperkite {

namespace {

constexpr const char* kPage =
    "<!DOCTYPE html><html><head><style>"
    "body { margin: 8px 12px; font: 14px/1.5 sans-serif; background: var(--kite-base); "
    "color: var(--kite-text); } h2 { font-size: 14px; margin: 1em 0 .2em; } "
    "h2:first-child { margin-top: 0; } p { margin: 0 0 .6em; } a { color: var(--kite-link); } "
    "code, pre { font-family: monospace; font-size: 13px; } "
    "table { border-collapse: collapse; } td, th { border: 1px solid var(--kite-lines); "
    "padding: 3px 8px; } .quiet { color: var(--kite-quiet); }"
    "</style></head><body>";

Ref<TaggedCommentCollection> CommentsOf(const Ref<Object>& item) {
    Ref<TaggedCommentCollection> comments;
    Ignoring([&] { comments = item->Get("TaggedComments").ToObjectOf<TaggedCommentCollection>(); });
    return comments ? comments->UnDeletedTaggedComments() : MakeRef<TaggedCommentCollection>();
}

std::string NameOfTag(const TaggedComment& comment) {
    const auto definition = comment.GetTaggedCommentDef();
    return definition ? definition->DisplayName : comment.GetTagIdentifier();
}

/// A comment as a page shows it, or near enough to know it by.
std::string ShownText(const TaggedComment& comment) {
    const bool isHtml = FormOf(comment.GetTaggedCommentDef()) == CommentForm::Html ||
                        FormOf(comment.GetTaggedCommentDef()) == CommentForm::SubItems;
    return isHtml ? comment.GetText() : "<pre>" + PlainText::Escaped(comment.GetText()) + "</pre>";
}

} // namespace

dsrCommentsFrom::dsrCommentsFrom(std::string name)
    : FieldsDesigner(std::move(name), Several::OnlyShown), txtItem(Field<TextBox>("txtItem")),
      lblMessage(Field<Label>("lblMessage")), split(Field<SplitPanel>("split")),
      tvwItems(MakeRef<TreeControl>("tvwItems")), cmdTake(Field<Button>("cmdTake")),
      lblComments(MakeRef<Label>("lblComments")), edComments(MakeRef<HtmlEdit>("edComments")),
      mTree(tvwItems) {
    txtItem->SetPlaceholderText("Choose an item below, or type its qualified name");
    tvwItems->SetAccessibleName("All items");
    tvwItems->SetEmptyText("There is no code to choose from. Read the sources first.");
    cmdTake->SetCaption("&Take These Comments");
    cmdTake->SetToolTipText("Take the comments of the item that is selected in the tree (Enter)");
    lblMessage->SetWordWrap(true);
    lblComments->SetWordWrap(true);
    edComments->SetAccessibleName("The comments of the other item");
    MakeLayout();
    Connect();
}

void dsrCommentsFrom::MakeLayout() {
    const auto lblItem = Field<Label>("lblItem");
    lblItem->SetCaption("&Item:");
    const auto right = MakeRef<Container>("pnlComments");
    right->Controls.Add(lblComments);
    right->Controls.Add(edComments);
    right->SetLayout(
        FormLayout::Column({FormLayout::Item(lblComments), FormLayout::Item(edComments, 1)}, 1));
    split->SetFirstPane(tvwItems);
    split->SetSecondPane(right);
    split->SetPercentage(45);
    SetFields(FormLayout::Column(
        {FormLayout::Row(
             {FormLayout::Item(lblItem), FormLayout::Item(txtItem, 1), FormLayout::Item(cmdTake)}),
         FormLayout::Item(lblMessage), FormLayout::Item(split, 1)},
        1));
}

void dsrCommentsFrom::Connect() {
    On(txtItem->Events.Change, "txtItem_Change", [this] {
        if (IsShowing()) return;
        const std::string name = PlainText::OneLine(txtItem->GetText());
        Judge();
        // Half a name is kept back until the author has gone on.
        if (!name.empty() && (!ObjectionTo(name).empty() || !Find(name))) return;
        mName = name;
        ShowCommentsOf(name);
        FieldsChanged();
    });
    On(cmdTake->Events.Click, "cmdTake_Click", [this] { TakeChosen(); });
    On(tvwItems->Events.NodeDblClick, "tvwItems_NodeDblClick",
       [this](const Ref<TreeNode>&) { TakeChosen(); });
    On(tvwItems->Events.KeyDown, "tvwItems_KeyDown", [this](int& keyCode, int) {
        if (keyCode != KeyReturn) return;
        keyCode = 0;
        TakeChosen();
    });
    On(tvwItems->Events.SelectionChange, "tvwItems_SelectionChange", [this] {
        cmdTake->SetEnabled(!mTree.GetChosen().empty());
        if (!IsShowing()) ShowCommentsOf(mTree.GetChosen());
    });
}

void dsrCommentsFrom::HostCame(ICommentDesignerHost& host) {
    edComments->SetBaseURL(host.ICommentDesignerHost_BaseURL());
}

bool dsrCommentsFrom::ShowFields(const std::optional<std::string>& text) {
    const std::string name = text.value_or(std::string());
    if (!PlainText::IsPlain(name) || PlainText::FilledLines(name).size() > 1) return false;
    mName = PlainText::OneLine(name);
    txtItem->SetText(mName);
    mTree.ShowAround(GetElement());
    if (!mName.empty()) mTree.Reveal(mName);
    cmdTake->SetEnabled(!mTree.GetChosen().empty());
    mShownComments.clear();
    ShowCommentsOf(mName);
    Judge();
    return true;
}

std::optional<std::string> dsrCommentsFrom::FieldsText() const {
    return mName.empty() ? std::nullopt : std::optional(mName);
}

void dsrCommentsFrom::CommitFields() {
    const std::string name = PlainText::OneLine(txtItem->GetText());
    if (!pnlFields->GetVisible() || name == mName || !ObjectionTo(name).empty()) return;
    // The code may be read again, and then there may be such an item.
    mName = name;
    FieldsChanged();
}

void dsrCommentsFrom::TakeChosen() {
    const std::string chosen = mTree.GetChosen();
    if (chosen.empty()) return;
    const std::string objection = ObjectionTo(chosen);
    if (!objection.empty()) return lblMessage->SetCaption(objection);
    txtItem->SetText(chosen);
}

Ref<Object> dsrCommentsFrom::Find(const std::string& name) const {
    return GetHost() ? GetHost()->ICommentDesignerHost_GetObjectFromQualifiedName(name)
                     : Ref<Object>();
}

std::string dsrCommentsFrom::Referred(const std::string& name) const {
    const auto item = Find(name);
    if (!item) return {};
    const auto comments = CommentsOf(item);
    for (const auto& comment : *comments)
        if (EqualIgnoringCase(comment->GetTagIdentifier(), GetTag()))
            return PlainText::OneLine(comment->GetText());
    return {};
}

std::string dsrCommentsFrom::ObjectionTo(const std::string& name) const {
    if (name.empty() || !GetElement()) return {};
    const std::string own = TextOfItem(GetElement(), "QualifiedName");
    if (name == own) return "An item cannot take its own comments. Choose another one.";
    const auto chain = CommentsFromChain::Follow(
        own, name, [this](const std::string& other) { return Referred(other); });
    if (!chain.IsCircle) return {};
    return "\"" + chain.Names.back() +
           "\" takes its comments from an item that comes before it here: they would go round in a "
           "circle. Choose another item.";
}

std::vector<Ref<Object>> dsrCommentsFrom::Sources(const std::string& name) const {
    const std::string own = GetElement() ? TextOfItem(GetElement(), "QualifiedName") : "";
    std::vector<Ref<Object>> items;
    const auto chain = CommentsFromChain::Follow(
        own, name, [this](const std::string& other) { return Referred(other); });
    for (const std::string& other : chain.Names)
        if (const auto item = Find(other)) items.push_back(item);
    return items;
}

void dsrCommentsFrom::ShowCommentsOf(const std::string& name) {
    std::string html;
    std::set<std::string> shownTags;
    for (const auto& item : Sources(name)) {
        std::set<std::string> tags;
        const auto comments = CommentsOf(item);
        for (const auto& comment : *comments) {
            const std::string tag = LowerCase(comment->GetTagIdentifier());
            if (shownTags.contains(tag) || EqualIgnoringCase(tag, GetTag())) continue;
            if (tags.insert(tag).second)
                html += "<h2>" + PlainText::Escaped(NameOfTag(*comment)) + "</h2>";
            html += "<div>" + ShownText(*comment) + "</div>";
        }
        shownTags.merge(tags);
    }
    lblComments->SetCaption(name.empty() ? "Comments of the selected item:"
                                         : "Comments of " + name + ":");
    if (html.empty())
        html = name.empty() ? "<p class=quiet>Select an item to see its comments.</p>"
                            : "<p class=quiet>This item has no comments.</p>";
    if (html == mShownComments) return;
    mShownComments = html;
    edComments->SetDocumentHTML(kPage + html + "</body></html>");
}

void dsrCommentsFrom::Judge() {
    const std::string name = PlainText::OneLine(txtItem->GetText());
    const std::string objection = ObjectionTo(name);
    if (!objection.empty())
        lblMessage->SetCaption(objection);
    else if (name.empty())
        lblMessage->SetCaption("Where this item has no comment of its own, pages show that of the "
                               "item named here.");
    else if (!Find(name))
        lblMessage->SetCaption("There is no item \"" + name +
                               "\". Choose one below; what is stored stays.");
    else
        lblMessage->SetCaption("Pages show these comments wherever this item has none of its own.");
}

} // namespace paperkite
