#pragma once

#include "foundation/Object.h"
#include "foundation/ObjectCollection.h"
#include "foundation/TaggedCommentCollection.h"
#include "model/CommentStore.h"

#include <cstdint>
#include <string>

namespace paperkite {

/// An item of a documented code base: what a provider makes for a class, a method, a file …
///
/// Its members are reached by name. Providers fill the fields or derive from it; whoever derives
/// answers further members in Get and falls back to this class. Comments are not held here: they
/// are the store's, under the qualified name, and the collection that TaggedComments gives is the
/// store's own.
class CodeItem : public Object {
public:
    /// `typeName` is the run-time kind, as components test it ("CodeModule", "MemberElement" …).
    /// Without a store the item has no TaggedComments member.
    CodeItem(std::string typeName, std::string qualifiedName, Ref<CommentStore> store = {});

    std::string TypeName() const override { return mTypeName; }
    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;

    const std::string& GetQualifiedName() const { return mQualifiedName; }

    Ref<TaggedCommentCollection> GetTaggedComments() const;
    void SetTaggedComments(const Ref<TaggedCommentCollection>& value);

    /// Nothing for a root item, and when the parent is gone: items are kept by their provider.
    Ref<Object> GetParent() const { return mParent.Lock(); }
    void SetParent(const Ref<Object>& value) { mParent = value; }

    std::string Name;
    /// "PUBLIC", "PROTECTED", "FRIEND", "PRIVATE"; empty where the language has none.
    std::string Access;
    /// The word for what it is ("Class", "Method"), as coverage counts it.
    std::string KindName;
    std::string Language;
    std::string Signature;
    /// Relative to the source folder; lines count from 1, 0 for none.
    std::string File;
    std::int32_t Line = 0;
    /// What the source itself says about the item; never stored.
    std::string Description;
    /// What the author's comments make of the description; kept in step by SyncGeneralComment.
    std::string TaggedDescription;
    /// Nothing until somebody collects them.
    Ref<ObjectCollection> Examples;
    bool RootFlag = false;
    bool IncludeFlag = true;
    bool ExcludeFlag = false;
    bool HasOverloads = false;
    bool HasOverloadsInProject = false;

private:
    std::string mTypeName;
    std::string mQualifiedName;
    Ref<CommentStore> mStore;
    WeakRef<Object> mParent;
};

} // namespace paperkite
