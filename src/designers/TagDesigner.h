#pragma once

#include "foundation/CommentDesigner.h"

namespace paperkite {

class TagDesignerControl;

/// The designer behind a control of this folder: passes on what the comment editor asks. When the
/// control is gone, it answers nothing.
class TagDesigner : public CommentDesigner {
public:
    explicit TagDesigner(TagDesignerControl& control) : mControl(&control) {}

    Value Get(std::string_view member) const override;
    Value Call(std::string_view member, const std::vector<Value>& arguments) override;

    void SetActive(bool value) override;
    void Initialize(ICommentDesignerHost& host, const Ref<Object>& codeElement,
                    const Ref<TaggedCommentCollection>& comments, const std::string& tagIdentifier,
                    const std::string& reserved, const Ref<DataCells>& cells) override;
    void Refresh(const Ref<Object>& codeElement, const Ref<TaggedCommentCollection>& comments,
                 const std::string& tagIdentifier, const std::string& reserved) override;
    void Detach(const Ref<DataCells>& cells) override;
    void CommitEdit() override;
    void SpellCheck(const Ref<Object>& spell, bool& cancel) override;
    void SetSpellObject(const Ref<Object>& spell) override;
    bool QueryCapability(const std::string& name) override;
    void BindToWrapper(const Ref<Object>& wrapper) override;
    void Deactivate() override;

private:
    friend class TagDesignerControl;

    TagDesignerControl* mControl;
};

} // namespace paperkite
