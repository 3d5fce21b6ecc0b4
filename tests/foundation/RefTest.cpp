#include "foundation/Ref.h"

#include "foundation/Object.h"
#include "support/EventLog.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

struct Named : Object {
    explicit Named(std::string name = {}) : Name(std::move(name)) {}
    std::string TypeName() const override { return "Named"; }
    std::string Name;
};

struct Other : Object {
    std::string TypeName() const override { return "Other"; }
};

constexpr int kObjectNotSet = 91;

TEST(Ref, UsingNothingIsError91) {
    const Ref<Named> none;
    EXPECT_FALSE(none);
    EXPECT_EQ(ErrorNumberOf([&] { (void)none->Name.size(); }), kObjectNotSet);
    EXPECT_EQ(ErrorNumberOf([&] { (void)(*none).Name.size(); }), kObjectNotSet);
    EXPECT_EQ(none.get(), nullptr);
}

TEST(Ref, EqualityIsIdentity) {
    const auto first = MakeRef<Named>("a");
    const auto second = MakeRef<Named>("a");
    const Ref<Object> same = first;
    EXPECT_TRUE(first == same);
    EXPECT_FALSE(first == second);
    EXPECT_TRUE(Ref<Named>() == nullptr);
    EXPECT_TRUE(Ref<Named>() == Ref<Object>());
    EXPECT_FALSE(first == nullptr);
}

TEST(Ref, TheSameObjectIsSeenAsAnotherTypeOrAsNothing) {
    const Ref<Object> object = MakeRef<Named>("a");
    ASSERT_TRUE(object.As<Named>());
    EXPECT_EQ(object.As<Named>()->Name, "a");
    EXPECT_FALSE(object.As<Other>());
    EXPECT_FALSE(Ref<Object>().As<Named>());
}

TEST(Ref, AnObjectFindsItsOwnReference) {
    const auto named = MakeRef<Named>("a");
    EXPECT_TRUE(RefTo(*named) == named);
}

TEST(WeakRef, GivesNothingOnceTheObjectIsGone) {
    auto named = MakeRef<Named>("a");
    const WeakRef<Named> weak = named;
    EXPECT_TRUE(weak.Lock() == named);
    named = nullptr;
    EXPECT_FALSE(weak.Lock());
    EXPECT_EQ(ErrorNumberOf([&] { (void)weak.Lock()->Name.size(); }), kObjectNotSet);
}

TEST(WeakRef, AReferenceThatWasTakenKeepsTheObject) {
    auto named = MakeRef<Named>("a");
    const WeakRef<Named> weak = named;
    const auto kept = weak.Lock();
    named = nullptr;
    ASSERT_TRUE(weak.Lock());
    EXPECT_EQ(kept->Name, "a");
}

TEST(ObjectHolder, DoesNotKeepWhatItHolds) {
    ObjectHolder<Named> holder;
    EXPECT_FALSE(holder.GetObject());
    auto named = MakeRef<Named>("a");
    holder.SetObject(named);
    EXPECT_TRUE(holder.GetObject() == named);
    named = nullptr;
    EXPECT_FALSE(holder.GetObject());
    const auto next = MakeRef<Named>("b");
    holder.SetObject(next);
    EXPECT_TRUE(holder.GetObject() == next);
    holder.SetObject(nullptr);
    EXPECT_FALSE(holder.GetObject());
}

} // namespace
} // namespace paperkite
