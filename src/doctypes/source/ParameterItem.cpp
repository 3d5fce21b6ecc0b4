#include "doctypes/source/ParameterItem.h"

#include "doctypes/source/SourceNamespaceProvider.h"
#include "foundation/MemberTable.h"

namespace paperkite {

struct ParameterItemMembers {
    using P = ParameterItem;

    static const MemberTable<P>& Table() {
        static const MemberTable<P> members{
            {"Name", [](const P& p) { return Value(p.mParameter.Name); }},
            {"QualifiedName", [](const P& p) { return Value(p.mQualifiedName); }},
            {"Access", [](const P&) { return Value("PUBLIC"); }},
            {"Kind", [](const P&) { return Value("Parameter"); }},
            {"Type", [](const P& p) { return Value(p.mParameter.Type); }},
            {"Default", [](const P& p) { return Value(p.mParameter.Default); }},
            {"Signature", [](const P&) { return Value(""); }},
            {"Inherits", [](const P&) { return Value(""); }},
            {"Overload", [](const P&) { return Value(""); }},
            {"Description", [](const P&) { return Value(""); }},
            {"Language", [](const P& p) { return p.mCallable->Get("Language"); }},
            {"File", [](const P& p) { return p.mCallable->Get("File"); }},
            {"Line", [](const P& p) { return p.mCallable->Get("Line"); }},
            {"TaggedDescription", [](const P& p) { return Value(p.mTaggedDescription); },
             [](P& p, const Value& v) { p.mTaggedDescription = v.ToText(); }},
            {"Examples", [](const P& p) { return Value(p.mExamples); },
             [](P& p, const Value& v) { p.mExamples = v.ToObjectOf<ObjectCollection>(); }},
            {"TaggedComments", [](const P& p) { return Value(p.GetTaggedComments()); },
             [](P& p, const Value& v) {
                 p.mCallable->GetProvider().GetComments()->SetComments(
                     p.mQualifiedName, v.ToObjectOf<TaggedCommentCollection>());
             }},
            {"Parent", [](const P& p) { return Value(p.mCallable); }},
            {"RootFlag", [](const P&) { return Value(false); }},
            {"IncludeFlag", [](const P&) { return Value(true); }},
            {"ExcludeFlag", [](const P&) { return Value(false); }},
        };
        return members;
    }
};

ParameterItem::ParameterItem(Ref<SourceItem> callable, std::size_t position,
                             std::string qualifiedName)
    : mCallable(std::move(callable)),
      mParameter(mCallable->GetIndex().Parameters(mCallable->GetEntity()).at(position)),
      mQualifiedName(std::move(qualifiedName)) {}

Value ParameterItem::Get(std::string_view member) const {
    const auto get = ParameterItemMembers::Table().FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

void ParameterItem::Set(std::string_view member, const Value& value) {
    if (!ParameterItemMembers::Table().Set(*this, member, value)) Object::Set(member, value);
}

Ref<TaggedCommentCollection> ParameterItem::GetTaggedComments() const {
    // Comments refer to their item, so that they must be given one that can be changed.
    return mCallable->GetProvider().GetComments()->CommentsOf(
        RefTo(const_cast<ParameterItem&>(*this)), mQualifiedName);
}

} // namespace paperkite
