#pragma once

#include "foundation/CommentType.h"
#include "foundation/NamespaceDefs.h"
#include "foundation/Object.h"
#include "foundation/PageTemplate.h"
#include "foundation/TaggedComment.h"

#include <string>
#include <vector>

namespace paperkite {

/// What a comment designer and the page surface may ask of the editor that holds them, and how they
/// report what the author did. Every comment that they add, change or delete goes through here.
class ICommentDesignerHost {
public:
    virtual ~ICommentDesignerHost() = default;

    virtual void
    ICommentDesignerHost_TaggedCommentAdded(const Ref<Object>& Item,
                                            const Ref<TaggedComment>& TaggedComment) = 0;
    virtual void
    ICommentDesignerHost_TaggedCommentChanged(const Ref<Object>& Item,
                                              const Ref<TaggedComment>& TaggedComment) = 0;
    virtual void
    ICommentDesignerHost_TaggedCommentDeleted(const Ref<Object>& Item,
                                              const Ref<TaggedComment>& TaggedComment) = 0;
    virtual std::string ICommentDesignerHost_AppName() const = 0;
    /// The modules of the host, whatever project is named.
    virtual std::vector<std::string>
    ICommentDesignerHost_ModuleNames(const std::string& ProjectName) const = 0;
    virtual std::vector<std::string> ICommentDesignerHost_ProjectNames() const = 0;
    /// The template of the page, or nothing.
    virtual Ref<PageTemplate> ICommentDesignerHost_Template() = 0;
    virtual Ref<NamespaceDef> ICommentDesignerHost_NamespaceDef() const = 0;
    /// Always nothing, whatever the element has for a parent.
    virtual Ref<Object> ICommentDesignerHost_CurrentParentItem() const = 0;
    virtual Ref<Object> ICommentDesignerHost_CurrentItem() const = 0;
    virtual Ref<Object> ICommentDesignerHost_CurrentRootItem() const = 0;
    /// Nothing without a project or namespace definition, or where there is no such item.
    virtual Ref<Object>
    ICommentDesignerHost_GetObjectFromQualifiedName(const std::string& QualifiedName) = 0;
    virtual CommentType ICommentDesignerHost_CommentType() const = 0;
    virtual bool ICommentDesignerHost_IsDotNet() const = 0;
    /// Has the host compose a link; empty when nobody does.
    virtual std::string ICommentDesignerHost_BuildLink(const std::string& ExistingLink,
                                                       bool GetCaption, std::string& Caption,
                                                       bool ShowExternalLinkTypes,
                                                       const std::string& DialogCaption,
                                                       const std::string& TipPrefix,
                                                       bool AddHTMLExtension) = 0;
    virtual std::string ICommentDesignerHost_BaseURL() const = 0;
};

/// What pages and designers may ask of any host.
class ISimplePageHost {
public:
    virtual ~ISimplePageHost() = default;
    /// Any index; always an empty value.
    virtual Value ISimplePageHost_GetDataCell(const Value& CellIndex) = 0;
};

} // namespace paperkite
