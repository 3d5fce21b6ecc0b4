#include "designers/TagDesignerControl.h"

#include "designers/TagDesigner.h"
#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"

#include <algorithm>
#include <utility>

namespace paperkite {

TagDesignerControl::TagDesignerControl(std::string name, Several several)
    : DesignerControl(std::move(name)), Dock(MakeRef<DockHost>("Dock")),
      lblPosition(MakeRef<Label>("lblPosition")), mDesigner(MakeRef<TagDesigner>(*this)),
      mSeveral(several) {
    Controls.Add(Dock);
    SetLayout(FormLayout::Column({FormLayout::Item(Dock, 1)}));
    On(Dock->Events.CommandClick, "Dock_CommandClick", [this](const Ref<DockCommand>& command) {
        if (EndsWithIgnoringCase(command->GetName(), "Comment"))
            ChooseComment(command->GetName());
        else
            Dock_CommandClick(*command);
    });
}

TagDesignerControl::~TagDesignerControl() {
    mDesigner->mControl = nullptr;
}

Ref<CommentDesigner> TagDesignerControl::GetObject() {
    return mDesigner;
}

void TagDesignerControl::MakeChooser() {
    const auto bar = Dock->AddToolbar("Comments");
    const auto add = [&](const char* name, const char* caption, const char* icon) {
        const auto command = Dock->Commands.Add(name, caption, icon);
        command->SetToolTipText(caption);
        bar->Add(command);
    };
    add("PreviousComment", "Previous comment of this kind", "go-previous");
    bar->AddControl(lblPosition);
    add("NextComment", "Next comment of this kind", "go-next");
    add("DeleteComment", "Delete this comment", "edit-delete");
    bar->SetVisible(false);
    mAddsElsewhere = Dock->Commands.Contains("AddComment");
    if (!mAddsElsewhere) add("AddComment", "Add another comment of this kind", "list-add");
}

Ref<TaggedCommentDef> TagDesignerControl::GetDefinition() const {
    return GlobalConfig().TaggedCommentDefs->Find(mTag);
}

void TagDesignerControl::Show(const Ref<Object>& element,
                              const Ref<TaggedCommentCollection>& comments,
                              const std::string& tag) {
    CommitFields();
    const Ref<TaggedComment> before =
        mPosition < mComments.size() ? mComments[mPosition] : Ref<TaggedComment>();
    mElement = element;
    mTag = tag;
    mComments.clear();
    if (comments)
        for (const auto& comment : *comments)
            if (EqualIgnoringCase(comment->GetTagIdentifier(), tag)) mComments.push_back(comment);
    const auto place =
        before ? std::find(mComments.begin(), mComments.end(), before) : mComments.end();
    ShowAt(place == mComments.end() ? 0 : static_cast<std::size_t>(place - mComments.begin()));
}

void TagDesignerControl::ShowAt(std::size_t position) {
    if (mComments.empty()) mComments.emplace_back();
    mPosition = std::min(position, mComments.size() - 1);
    ShowChooser();
    ShowComment();
}

std::optional<std::string> TagDesignerControl::StoredText() const {
    const bool isThere = mPosition < mComments.size() && mComments[mPosition];
    return isThere ? std::optional(mComments[mPosition]->GetText()) : std::nullopt;
}

void TagDesignerControl::Store(const std::optional<std::string>& text) {
    if (!mHost || !mElement || text == StoredText()) return;
    Ref<TaggedComment>& comment = mComments[mPosition];
    if (!text) {
        const Ref<TaggedComment> deleted = std::exchange(comment, {});
        mHost->ICommentDesignerHost_TaggedCommentDeleted(mElement, deleted);
    } else if (comment) {
        comment->SetText(*text);
        const Ref<TaggedComment> changed = comment;
        mHost->ICommentDesignerHost_TaggedCommentChanged(mElement, changed);
    } else {
        comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(mTag);
        comment->SetText(*text);
        comment->SetItem(mElement);
        comment->SetState(kTaggedCommentNew);
        const Ref<TaggedComment> added = comment;
        mHost->ICommentDesignerHost_TaggedCommentAdded(mElement, added);
    }
    ShowChooser();
}

void TagDesignerControl::ShowChooser() {
    const std::size_t count = mComments.size();
    lblPosition->SetCaption(std::to_string(mPosition + 1) + " of " + std::to_string(count));
    Dock->Commands.Item("PreviousComment")->SetEnabled(mPosition > 0);
    Dock->Commands.Item("NextComment")->SetEnabled(mPosition + 1 < count);
    for (const char* command : {"PreviousComment", "NextComment", "DeleteComment"})
        Dock->Commands.Item(command)->SetVisible(count > 1);
    lblPosition->SetVisible(count > 1);
    const auto definition = GetDefinition();
    const bool mayAdd = mSeveral == Several::Offered && (!definition || !definition->IsGeneral);
    const auto add = Dock->Commands.Item("AddComment");
    add->SetVisible(mayAdd);
    add->SetEnabled(std::all_of(mComments.begin(), mComments.end(),
                                [](const auto& comment) { return bool(comment); }));
    // A bar of its own for one comment says too much, unless it is the only place to add another.
    Dock->GetToolbar("Comments")->SetVisible(count > 1 || (mayAdd && !mAddsElsewhere));
}

void TagDesignerControl::ChooseComment(const std::string& command) {
    CommitFields();
    if (command == "DeleteComment") return DeleteComment();
    if (command == "AddComment") {
        mComments.emplace_back();
        ShowAt(mComments.size() - 1);
    } else {
        const std::size_t next = command == "NextComment" ? mPosition + 1 : mPosition - 1;
        if (next < mComments.size()) ShowAt(next);
    }
    mDesigner->Call("SetEditFocusQueued", {});
}

void TagDesignerControl::DeleteComment() {
    const Ref<TaggedComment> comment = mComments[mPosition];
    mComments.erase(mComments.begin() + static_cast<std::ptrdiff_t>(mPosition));
    if (comment && mHost) mHost->ICommentDesignerHost_TaggedCommentDeleted(mElement, comment);
    ShowAt(mPosition);
    mDesigner->Call("SetEditFocusQueued", {});
}

void TagDesignerControl::Forget() {
    CommitFields();
    mHost = nullptr;
    mElement = {};
    mComments.clear();
    Ended();
}

} // namespace paperkite
