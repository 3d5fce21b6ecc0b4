#include "designers/TagDesigner.h"

#include "designers/TagDesignerControl.h"
#include "foundation/CommentDesignerHost.h"
#include "foundation/Text.h"

namespace paperkite {

Value TagDesigner::Get(std::string_view member) const {
    if (member == "Editor") {
        const auto editor = mControl ? mControl->GetEditor() : Ref<HtmlEdit>();
        return editor ? Value(Ref<Object>(editor)) : Value();
    }
    return CommentDesigner::Get(member);
}

Value TagDesigner::Call(std::string_view member, const std::vector<Value>& arguments) {
    if (!mControl) return {};
    // What is about a text is its editor's own; a member that it does not have is its error.
    if (const auto editor = mControl->GetEditor()) return editor->Call(member, arguments);
    if (member != "SetEditFocus" && member != "SetEditFocusQueued")
        return CommentDesigner::Call(member, arguments);
    mControl->FocusFields();
    return {};
}

void TagDesigner::SetActive(bool value) {
    if (mControl) mControl->Activated(value);
}

void TagDesigner::Initialize(ICommentDesignerHost& host, const Ref<Object>& codeElement,
                             const Ref<TaggedCommentCollection>& comments,
                             const std::string& tagIdentifier, const std::string&,
                             const Ref<DataCells>&) {
    if (!mControl) return;
    mControl->mHost = &host;
    mControl->HostCame(host);
    mControl->Show(codeElement, comments, tagIdentifier);
}

void TagDesigner::Refresh(const Ref<Object>& codeElement,
                          const Ref<TaggedCommentCollection>& comments,
                          const std::string& tagIdentifier, const std::string&) {
    if (mControl && mControl->mHost) mControl->Show(codeElement, comments, tagIdentifier);
}

void TagDesigner::Detach(const Ref<DataCells>&) {
    if (mControl) mControl->Forget();
}

void TagDesigner::CommitEdit() {
    if (mControl) mControl->CommitFields();
}

void TagDesigner::SpellCheck(const Ref<Object>& spell, bool& cancel) {
    const auto editor = mControl ? mControl->GetEditor() : Ref<HtmlEdit>();
    if (editor) editor->DoSpellCheck(spell, cancel);
}

void TagDesigner::SetSpellObject(const Ref<Object>& spell) {
    const auto editor = mControl ? mControl->GetEditor() : Ref<HtmlEdit>();
    if (editor) editor->SetSpellObject(spell.As<SpellEngine>());
}

bool TagDesigner::QueryCapability(const std::string& name) {
    const auto editor = mControl ? mControl->GetEditor() : Ref<HtmlEdit>();
    if (!editor) return false;
    if (EqualIgnoringCase(name, "spellcheckinprogress")) return editor->GetSpellCheckInProgress();
    if (EqualIgnoringCase(name, "FindReplace")) return editor->CanFind();
    if (EqualIgnoringCase(name, "SpellCheck")) return editor->CanCheckSpelling();
    return false;
}

void TagDesigner::BindToWrapper(const Ref<Object>& wrapper) {
    if (mControl && wrapper)
        wrapper->Call("BindTo", {Value(true), Value(Ref<Object>(mControl->GetEditor()))});
}

void TagDesigner::Deactivate() {
    CommitEdit();
}

} // namespace paperkite
