#pragma once

#include "foundation/DataCells.h"
#include "foundation/Object.h"
#include "foundation/TaggedCommentCollection.h"

#include <string>

namespace paperkite {

class ICommentDesignerHost;

/// A control that edits the comments of one tag. The comment editor creates it by class name and
/// tells it what to show; it answers through its host. What the host calls late by name
/// ("SetEditFocus", "DoFind", "DoReplace", "Editor") goes through Call and Get.
class CommentDesigner : public Object {
public:
    std::string TypeName() const override { return "CommentDesigner"; }

    /// Its tab is shown again, or hidden.
    virtual void SetActive(bool value) = 0;
    /// The first call. The host outlives the designer.
    virtual void Initialize(ICommentDesignerHost& host, const Ref<Object>& codeElement,
                            const Ref<TaggedCommentCollection>& comments,
                            const std::string& tagIdentifier, const std::string& reserved,
                            const Ref<DataCells>& cells) = 0;
    /// Shows the comments of another element or tab.
    virtual void Refresh(const Ref<Object>& codeElement,
                         const Ref<TaggedCommentCollection>& comments,
                         const std::string& tagIdentifier, const std::string& reserved) = 0;
    /// The last call.
    virtual void Detach(const Ref<DataCells>& cells) = 0;
    /// Stores through the host what is being edited.
    virtual void CommitEdit() = 0;
    virtual void SpellCheck(const Ref<Object>& spell, bool& cancel) = 0;
    virtual void SetSpellObject(const Ref<Object>& spell) = 0;
    /// "FindReplace", "SpellCheck", "spellcheckinprogress".
    virtual bool QueryCapability(const std::string& name) = 0;
    virtual void BindToWrapper(const Ref<Object>& wrapper) = 0;
    /// Its tab is left.
    virtual void Deactivate() = 0;
};

} // namespace paperkite
