#include "foundation/TaggedComment.h"

#include "foundation/GlobalConfig.h"
#include "foundation/KeyGenerator.h"
#include "foundation/MemberTable.h"

namespace paperkite {

namespace {

const MemberTable<TaggedComment>& Members() {
    using C = TaggedComment;
    static const MemberTable<C> members{
        {"Id", [](const C& c) { return Value(c.GetId()); }},
        {"TagIdentifier", [](const C& c) { return Value(c.GetTagIdentifier()); },
         [](C& c, const Value& v) { c.SetTagIdentifier(v.ToText()); }},
        {"Qualifier", [](const C& c) { return Value(c.GetQualifier()); },
         [](C& c, const Value& v) { c.SetQualifier(v.ToText()); }},
        {"Text", [](const C& c) { return Value(c.GetText()); },
         [](C& c, const Value& v) { c.SetText(v.ToText()); }},
        {"ResolvedText", [](const C& c) { return Value(c.GetResolvedText()); },
         [](C& c, const Value& v) { c.SetResolvedText(v.ToText()); }},
        {"XMLCommentType", [](const C& c) { return Value(c.GetXMLCommentType()); },
         [](C& c, const Value& v) { c.SetXMLCommentType(v.ToText()); }},
        {"State", [](const C& c) { return Value(c.GetState()); },
         [](C& c, const Value& v) { c.SetState(v.ToInteger()); }},
        {"Item", [](const C& c) { return Value(c.GetItem()); },
         [](C& c, const Value& v) { c.SetItem(v.ToObject()); }},
        {"TaggedCommentDef", [](const C& c) { return Value(c.GetTaggedCommentDef()); }},
    };
    return members;
}

} // namespace

TaggedComment::TaggedComment(std::string id)
    : mId(id.empty() ? KeyGenerator().Generate() : std::move(id)) {}

Value TaggedComment::Get(std::string_view member) const {
    const auto get = Members().FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

void TaggedComment::Set(std::string_view member, const Value& value) {
    if (!Members().Set(*this, member, value)) Object::Set(member, value);
}

void TaggedComment::SetText(std::string value) {
    if (value == mText) return;
    mText = std::move(value);
    mWrittenText.reset();
}

void TaggedComment::SetNormalisedText(std::string value) {
    if (value == mText) return;
    if (!mWrittenText) mWrittenText = std::make_unique<const std::string>(mText);
    mText = std::move(value);
}

Ref<TaggedCommentDef> TaggedComment::GetTaggedCommentDef() const {
    return GlobalConfig().TaggedCommentDefs->Find(mTagIdentifier);
}

} // namespace paperkite
