#include "model/CodeItem.h"

#include "foundation/MemberTable.h"

namespace paperkite {

namespace {

using Item = CodeItem;

template <auto Field>
MemberTable<Item>::Member TextMember(const char* name) {
    return {name, [](const Item& item) { return Value(item.*Field); },
            [](Item& item, const Value& value) { item.*Field = value.ToText(); }};
}

template <auto Field>
MemberTable<Item>::Member BooleanMember(const char* name) {
    return {name, [](const Item& item) { return Value(item.*Field); },
            [](Item& item, const Value& value) { item.*Field = value.ToBoolean(); }};
}

const MemberTable<Item>& Members() {
    static const MemberTable<Item> members{
        TextMember<&Item::Name>("Name"),
        {"QualifiedName", [](const Item& item) { return Value(item.GetQualifiedName()); }},
        TextMember<&Item::Access>("Access"),
        TextMember<&Item::KindName>("Kind"),
        TextMember<&Item::Language>("Language"),
        TextMember<&Item::Signature>("Signature"),
        TextMember<&Item::File>("File"),
        {"Line", [](const Item& item) { return Value(item.Line); },
         [](Item& item, const Value& value) { item.Line = value.ToInteger(); }},
        TextMember<&Item::Description>("Description"),
        TextMember<&Item::TaggedDescription>("TaggedDescription"),
        {"Examples", [](const Item& item) { return Value(item.Examples); },
         [](Item& item, const Value& v) { item.Examples = v.ToObjectOf<ObjectCollection>(); }},
        BooleanMember<&Item::RootFlag>("RootFlag"),
        BooleanMember<&Item::IncludeFlag>("IncludeFlag"),
        BooleanMember<&Item::ExcludeFlag>("ExcludeFlag"),
        BooleanMember<&Item::HasOverloads>("HasOverloads"),
        BooleanMember<&Item::HasOverloadsInProject>("HasOverloadsInProject"),
        {"Parent", [](const Item& item) { return Value(item.GetParent()); },
         [](Item& item, const Value& value) { item.SetParent(value.ToObject()); }},
    };
    return members;
}

} // namespace

CodeItem::CodeItem(std::string typeName, std::string qualifiedName, Ref<CommentStore> store)
    : mTypeName(std::move(typeName)), mQualifiedName(std::move(qualifiedName)),
      mStore(std::move(store)) {}

Value CodeItem::Get(std::string_view member) const {
    if (const auto get = Members().FindGetter(member)) return get(*this);
    if (member == "TaggedComments" && mStore) return Value(GetTaggedComments());
    return Object::Get(member);
}

void CodeItem::Set(std::string_view member, const Value& value) {
    if (Members().Set(*this, member, value)) return;
    if (member == "TaggedComments" && mStore)
        SetTaggedComments(value.ToObjectOf<TaggedCommentCollection>());
    else
        Object::Set(member, value);
}

Ref<TaggedCommentCollection> CodeItem::GetTaggedComments() const {
    // Comments refer to their item, so that they must be given one that can be changed.
    return mStore->CommentsOf(RefTo(const_cast<CodeItem&>(*this)), mQualifiedName);
}

void CodeItem::SetTaggedComments(const Ref<TaggedCommentCollection>& value) {
    mStore->SetComments(mQualifiedName, value);
}

} // namespace paperkite
