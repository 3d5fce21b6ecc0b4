#include "doctypes/source/SourceItem.h"

#include "doctypes/source/SourceNamespaceDefs.h"
#include "doctypes/source/SourceNamespaceProvider.h"
#include "foundation/MemberTable.h"
#include "foundation/Text.h"
#include "foundation/Utf8.h"

namespace paperkite {

namespace {

constexpr std::string_view kTypeEnding = "Element";

} // namespace

struct SourceItemMembers {
    using I = SourceItem;

    template <auto Field>
    static MemberTable<I>::Member Flag(const char* name) {
        return {name, [](const I& i) { return Value(i.*Field); },
                [](I& i, const Value& v) { i.*Field = v.ToBoolean(); }};
    }

    template <auto Text>
    static MemberTable<I>::Member FromIndex(const char* name) {
        return {name, [](const I& i) { return Value((i.GetIndex().*Text)(i.GetEntity())); }};
    }

    static const MemberTable<I>& Table() {
        static const MemberTable<I> members{
            FromIndex<&SourceIndex::Name>("Name"),
            {"QualifiedName", [](const I& i) { return Value(i.GetQualifiedName()); }},
            {"Access",
             [](const I& i) { return Value(AccessText(i.GetIndex().Access(i.GetEntity()))); }},
            FromIndex<&SourceIndex::KindText>("Kind"),
            FromIndex<&SourceIndex::LanguageName>("Language"),
            FromIndex<&SourceIndex::Signature>("Signature"),
            FromIndex<&SourceIndex::Type>("Type"),
            FromIndex<&SourceIndex::Inherits>("Inherits"),
            {"File",
             [](const I& i) {
                 return Value(PrintableUtf8(i.GetIndex().Place(i.GetEntity()).File));
             }},
            {"Line",
             [](const I& i) {
                 const auto line = i.GetIndex().Place(i.GetEntity()).Line;
                 return Value(static_cast<std::int32_t>(line));
             }},
            {"Description", [](const I& i) { return Value(i.GetDescription()); }},
            {"TaggedDescription", [](const I& i) { return Value(i.mTaggedDescription); },
             [](I& i, const Value& v) { i.mTaggedDescription = v.ToText(); }},
            {"Examples", [](const I& i) { return Value(i.mExamples); },
             [](I& i, const Value& v) { i.mExamples = v.ToObjectOf<ObjectCollection>(); }},
            {"TaggedComments", [](const I& i) { return Value(i.GetTaggedComments()); },
             [](I& i, const Value& v) {
                 i.SetTaggedComments(v.ToObjectOf<TaggedCommentCollection>());
             }},
            {"Parent", [](const I& i) { return Value(i.GetParent()); }},
            {"HasItems", [](const I& i) { return Value(i.HasItems()); }},
            {"Items", [](const I& i) { return Value(i.GetItems()); }},
            {"ImageKey",
             [](const I& i) {
                 return Value(std::string(IconText(i.GetIndex().Kind(i.GetEntity()))));
             }},
            {"ProjectFolder",
             [](const I& i) { return Value(i.mProvider.GetComments()->GetFolder()); }},
            Flag<&I::mRootFlag>("RootFlag"),
            Flag<&I::mIncludeFlag>("IncludeFlag"),
            Flag<&I::mExcludeFlag>("ExcludeFlag"),
            {"HasOverloads", [](const I& i) { return Value(!i.GetOverload().empty()); }},
            {"HasOverloadsInProject", [](const I& i) { return Value(!i.GetOverload().empty()); }},
            {"Overload", [](const I& i) { return Value(i.GetOverload()); }},
        };
        return members;
    }
};

std::string SourceItem::TypeName() const {
    return std::string(KindText(GetIndex().Kind(mEntity))).append(kTypeEnding);
}

bool SourceItem::IsOfType(std::string_view typeName) const {
    if (typeName.size() <= kTypeEnding.size()) return false;
    const std::size_t kind = typeName.size() - kTypeEnding.size();
    return EqualIgnoringCase(typeName.substr(kind), kTypeEnding) &&
           EqualIgnoringCase(typeName.substr(0, kind), KindText(GetIndex().Kind(mEntity)));
}

Value SourceItem::Get(std::string_view member) const {
    const auto get = SourceItemMembers::Table().FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

void SourceItem::Set(std::string_view member, const Value& value) {
    if (!SourceItemMembers::Table().Set(*this, member, value)) Object::Set(member, value);
}

const SourceIndex& SourceItem::GetIndex() const {
    return mProvider.GetIndex(mRoot);
}

const std::string& SourceItem::GetQualifiedName() const {
    return mProvider.NameOf(mRoot, mEntity);
}

Ref<TaggedCommentCollection> SourceItem::GetTaggedComments() const {
    // Comments refer to their item, so that they must be given one that can be changed.
    return mProvider.GetComments()->CommentsOf(RefTo(const_cast<SourceItem&>(*this)),
                                               GetQualifiedName());
}

void SourceItem::SetTaggedComments(const Ref<TaggedCommentCollection>& value) {
    mProvider.GetComments()->SetComments(GetQualifiedName(), value);
}

std::string SourceItem::GetDescription() const {
    const auto comment = mProvider.CommentInSource(*this);
    std::string text;
    if (!comment) return text;
    for (const std::string& line : comment->Lines)
        text += (text.empty() ? "" : "\n") + line;
    return text;
}

Ref<Object> SourceItem::GetParent() const {
    const SourceIndex::Id parent = GetIndex().Parent(mEntity);
    return parent == SourceIndex::Nothing ? Ref<Object>() : mProvider.ItemOf(mRoot, parent);
}

bool SourceItem::HasItems() const {
    const auto children = GetIndex().Children(mEntity);
    return children.begin() != children.end();
}

Ref<ObjectCollection> SourceItem::GetItems() const {
    auto items = MakeRef<ObjectCollection>();
    for (const SourceIndex::Id child : GetIndex().Children(mEntity))
        items->Add(mProvider.ItemOf(mRoot, child));
    return items;
}

std::string SourceItem::GetOverload() const {
    const std::string_view step = GetIndex().Step(mEntity);
    const std::size_t open = step.find('(');
    if (!IsCallable(GetIndex().Kind(mEntity)) || open == std::string_view::npos) return {};
    std::string types;
    for (const SourceParameter& parameter : GetIndex().Parameters(mEntity))
        types += (types.empty() ? "" : ", ") +
                 (parameter.Type.empty() ? parameter.Name : parameter.Type);
    // What stands behind the parameters tells overloads apart too: "const", "&&".
    return "(" + types + ")" + std::string(step.substr(step.rfind(')') + 1));
}

} // namespace paperkite
