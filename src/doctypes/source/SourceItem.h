#pragma once

#include "doctypes/source/SourceIndex.h"
#include "foundation/Object.h"
#include "foundation/ObjectCollection.h"
#include "foundation/TaggedCommentCollection.h"

#include <string>

namespace paperkite {

class SourceNamespaceProvider;

/// One item of scanned source code, made when somebody asks for it and kept by its provider.
///
/// It holds only what an author changes; the rest is answered from the index. Members by name:
/// Name, QualifiedName, Access, Kind, Language, Signature, Type, Inherits, File, Line, Description
/// (the comment in the source), TaggedDescription, Examples, TaggedComments, Parent, RootFlag,
/// IncludeFlag, ExcludeFlag, HasOverloads, HasOverloadsInProject, Overload (its parameter types
/// where overloads must be told apart), HasItems, Items (all that stand below it, in the order of
/// the source), ImageKey (a name of the icon theme), ProjectFolder (what paths in comments are
/// relative to).
class SourceItem : public Object {
public:
    /// The provider outlives its items.
    SourceItem(SourceNamespaceProvider& provider, std::size_t root, SourceIndex::Id entity)
        : mProvider(provider), mRoot(root), mEntity(entity) {}

    /// The kind as a type name, "ClassElement".
    std::string TypeName() const override;
    bool IsOfType(std::string_view typeName) const override;
    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;

    SourceNamespaceProvider& GetProvider() const { return mProvider; }
    const SourceIndex& GetIndex() const;
    SourceIndex::Id GetEntity() const { return mEntity; }
    std::size_t GetRoot() const { return mRoot; }
    /// Valid until the name of another item is asked for.
    const std::string& GetQualifiedName() const;
    Ref<TaggedCommentCollection> GetTaggedComments() const;
    void SetTaggedComments(const Ref<TaggedCommentCollection>& value);
    /// The comment that stands at the item in the source, as plain lines; empty when there is none.
    std::string GetDescription() const;
    /// The item around this one, or nothing for a root.
    Ref<Object> GetParent() const;
    bool HasItems() const;
    Ref<ObjectCollection> GetItems() const;
    /// "(int, const Slice&)" where others share its name, otherwise empty.
    std::string GetOverload() const;

private:
    friend struct SourceItemMembers;

    SourceNamespaceProvider& mProvider;
    std::size_t mRoot;
    SourceIndex::Id mEntity;
    bool mRootFlag = false;
    bool mIncludeFlag = true;
    bool mExcludeFlag = false;
    std::string mTaggedDescription;
    Ref<ObjectCollection> mExamples;
};

} // namespace paperkite
