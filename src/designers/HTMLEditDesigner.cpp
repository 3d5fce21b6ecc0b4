#include "designers/HTMLEditDesigner.h"

#include "designers/dsrHTMLEdit.h"
#include "foundation/CommentDesignerHost.h"
#include "foundation/Text.h"

namespace paperkite {

Value HTMLEditDesigner::Get(std::string_view member) const {
    if (member == "Editor") return mControl ? Value(Ref<Object>(mControl->ed)) : Value();
    return CommentDesigner::Get(member);
}

// What is about the text is the editor's own; a member that it does not have is its error.
Value HTMLEditDesigner::Call(std::string_view member, const std::vector<Value>& arguments) {
    return mControl ? mControl->ed->Call(member, arguments) : Value();
}

void HTMLEditDesigner::SetActive(bool) {}

void HTMLEditDesigner::Initialize(ICommentDesignerHost& host, const Ref<Object>& codeElement,
                                  const Ref<TaggedCommentCollection>& comments,
                                  const std::string& tagIdentifier, const std::string&,
                                  const Ref<DataCells>&) {
    if (!mControl) return;
    mControl->mHost = &host;
    mControl->ed->SetApplicationName(host.ICommentDesignerHost_AppName());
    mControl->ed->SetBaseURL(host.ICommentDesignerHost_BaseURL());
    mControl->Show(codeElement, comments, tagIdentifier);
}

void HTMLEditDesigner::Refresh(const Ref<Object>& codeElement,
                               const Ref<TaggedCommentCollection>& comments,
                               const std::string& tagIdentifier, const std::string&) {
    if (mControl && mControl->mHost) mControl->Show(codeElement, comments, tagIdentifier);
}

void HTMLEditDesigner::Detach(const Ref<DataCells>&) {
    if (mControl) mControl->Forget();
}

void HTMLEditDesigner::CommitEdit() {
    if (mControl) mControl->ed->CommitEdit();
}

void HTMLEditDesigner::SpellCheck(const Ref<Object>& spell, bool& cancel) {
    if (mControl) mControl->ed->DoSpellCheck(spell, cancel);
}

void HTMLEditDesigner::SetSpellObject(const Ref<Object>& spell) {
    if (mControl) mControl->ed->SetSpellObject(spell.As<SpellEngine>());
}

bool HTMLEditDesigner::QueryCapability(const std::string& name) {
    if (!mControl) return false;
    if (EqualIgnoringCase(name, "spellcheckinprogress"))
        return mControl->ed->GetSpellCheckInProgress();
    if (EqualIgnoringCase(name, "FindReplace")) return mControl->ed->CanFind();
    if (EqualIgnoringCase(name, "SpellCheck")) return mControl->ed->CanCheckSpelling();
    return false;
}

void HTMLEditDesigner::BindToWrapper(const Ref<Object>& wrapper) {
    if (mControl && wrapper)
        wrapper->Call("BindTo", {Value(true), Value(Ref<Object>(mControl->ed))});
}

void HTMLEditDesigner::Deactivate() {
    CommitEdit();
}

} // namespace paperkite
