#include "foundation/MemberTable.h"

#include "foundation/TaggedComment.h"
#include "support/EventLog.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

constexpr int kNoSuchMember = 438;

/// An object with one member of each sort.
struct Sample : Object {
    std::string TypeName() const override { return "Sample"; }
    Value Get(std::string_view member) const override {
        const auto get = Members().FindGetter(member);
        return get ? get(*this) : Object::Get(member);
    }
    void Set(std::string_view member, const Value& value) override {
        if (!Members().Set(*this, member, value)) Object::Set(member, value);
    }
    Value Call(std::string_view member, const std::vector<Value>& arguments) override {
        Value result;
        return Members().Call(*this, member, arguments, result) ? result
                                                                : Object::Call(member, arguments);
    }
    static const MemberTable<Sample>& Members() {
        static const MemberTable<Sample> members{
            {"Length", [](const Sample& s) { return Value(s.mLength); }},
            {"Width", [](const Sample& s) { return Value(s.mWidth); },
             [](Sample& s, const Value& v) { s.mWidth = v.ToInteger(); }},
            {"Grow", nullptr, nullptr,
             [](Sample& s, const std::vector<Value>& a) {
                 s.mLength += a.at(0).ToInteger();
                 return Value(s.mLength);
             }},
        };
        return members;
    }

private:
    std::int32_t mLength = 3;
    std::int32_t mWidth = 0;
};

TEST(MemberTable, MembersAreReachedByName) {
    const Ref<Object> sample = MakeRef<Sample>();
    sample->Set("Width", "12");
    EXPECT_EQ(sample->Get("Width").ToInteger(), 12);
    EXPECT_EQ(sample->Call("Grow", {Value(4)}).ToInteger(), 7);
    EXPECT_EQ(sample->Get("Length").ToInteger(), 7);
}

TEST(MemberTable, AnUnknownMemberIsError438AndNamesTypeAndMember) {
    const Ref<Object> sample = MakeRef<Sample>();
    EXPECT_EQ(ErrorNumberOf([&] { sample->Get("Height"); }), kNoSuchMember);
    EXPECT_EQ(ErrorNumberOf([&] { sample->Set("Height", 1); }), kNoSuchMember);
    EXPECT_EQ(ErrorNumberOf([&] { sample->Call("Shrink", {}); }), kNoSuchMember);
    try {
        sample->Get("Height");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_NE(error.GetDescription().find("Sample"), std::string::npos);
        EXPECT_NE(error.GetDescription().find("\"Height\""), std::string::npos);
    }
}

TEST(MemberTable, AMemberUsedInAnotherWayIsUnknown) {
    const Ref<Object> sample = MakeRef<Sample>();
    EXPECT_EQ(ErrorNumberOf([&] { sample->Set("Length", 1); }), kNoSuchMember);
    EXPECT_EQ(ErrorNumberOf([&] { sample->Get("Grow"); }), kNoSuchMember);
    EXPECT_EQ(ErrorNumberOf([&] { sample->Call("Width", {}); }), kNoSuchMember);
    EXPECT_EQ(sample->Get("Length").ToInteger(), 3);
}

TEST(MemberTable, AFailingSetterLeavesTheValue) {
    const Ref<Object> sample = MakeRef<Sample>();
    sample->Set("Width", 5);
    EXPECT_NE(ErrorNumberOf([&] { sample->Set("Width", Value(Value::Null())); }), 0);
    EXPECT_EQ(sample->Get("Width").ToInteger(), 5);
}

TEST(Object, AClassWithoutMembersAnswersWith438) {
    struct Bare : Object {
        std::string TypeName() const override { return "Bare"; }
    };
    const Ref<Object> bare = MakeRef<Bare>();
    EXPECT_EQ(ErrorNumberOf([&] { bare->Get("Name"); }), kNoSuchMember);
    EXPECT_FALSE(bare->IsEnumerable());
    EXPECT_TRUE(IsType(bare, "BARE"));
    EXPECT_FALSE(IsType(bare, "Bar"));
    EXPECT_FALSE(IsType({}, "Bare"));
}

TEST(Object, ACommentsIdentityCannotBeWritten) {
    const Ref<Object> comment = MakeRef<TaggedComment>("c1");
    EXPECT_EQ(ErrorNumberOf([&] { comment->Set("Id", "c2"); }), kNoSuchMember);
    EXPECT_EQ(comment->Get("Id").ToText(), "c1");
    comment->Set("Text", "new");
    EXPECT_EQ(comment->Get("Text").ToText(), "new");
}

} // namespace
} // namespace paperkite
