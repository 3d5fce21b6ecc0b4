#pragma once

#include "foundation/CommentDesigner.h"

namespace paperkite {

class dsrHTMLEdit;

/// What the comment editor knows of a dsrHTMLEdit. It may outlive its control, and does nothing
/// then.
class HTMLEditDesigner : public CommentDesigner {
public:
    explicit HTMLEditDesigner(dsrHTMLEdit& control) : mControl(&control) {}

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
    friend class dsrHTMLEdit;

    dsrHTMLEdit* mControl;
};

} // namespace paperkite
