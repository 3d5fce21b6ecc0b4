#pragma once

#include "doctypes/source/SourceItem.h"

#include <string>

namespace paperkite {

/// A parameter of a callable, with comments of its own. No tree shows it and no coverage counts it.
///
/// Members by name: Name, QualifiedName, Access, Kind ("Parameter"), Language, Type, Default,
/// Signature, Inherits, Overload (empty), File, Line, Description, TaggedDescription, Examples,
/// TaggedComments, Parent (the callable), RootFlag, IncludeFlag, ExcludeFlag.
class ParameterItem : public Object {
public:
    ParameterItem(Ref<SourceItem> callable, std::size_t position, std::string qualifiedName);

    std::string TypeName() const override { return "ParameterElement"; }
    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;

    const Ref<SourceItem>& GetCallable() const { return mCallable; }
    const std::string& GetQualifiedName() const { return mQualifiedName; }
    Ref<TaggedCommentCollection> GetTaggedComments() const;

private:
    friend struct ParameterItemMembers;

    Ref<SourceItem> mCallable;
    SourceParameter mParameter;
    std::string mQualifiedName;
    std::string mTaggedDescription;
    Ref<ObjectCollection> mExamples;
};

} // namespace paperkite
