#include "host/CommandWrapper.h"

#include "foundation/Error.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

class CommandWrapperTest : public testing::Test {
protected:
    CommandWrapperTest() {
        mWrapper->Unlocked = [this] { ++mUnlocked; };
    }

    Ref<CommandWrapper> mWrapper = MakeRef<CommandWrapper>();
    int mUnlocked = 0;
};

TEST_F(CommandWrapperTest, TheLastUnlockOpens) {
    mWrapper->Call("lockrefresh", {});
    mWrapper->Call("lockrefresh", {});
    mWrapper->Call("unlockrefresh", {});
    EXPECT_TRUE(mWrapper->IsLocked());
    EXPECT_EQ(mUnlocked, 0);
    mWrapper->Call("unlockrefresh", {});
    EXPECT_FALSE(mWrapper->IsLocked());
    EXPECT_EQ(mUnlocked, 1);
}

TEST_F(CommandWrapperTest, TheAbsoluteUnlockOpensAllAtOnce) {
    mWrapper->Call("lockrefresh", {});
    mWrapper->Call("lockrefresh", {});
    mWrapper->Call("unlockrefreshabsolute", {});
    EXPECT_FALSE(mWrapper->IsLocked());
    EXPECT_EQ(mUnlocked, 1);
}

TEST_F(CommandWrapperTest, UnlockingWhatIsOpenTellsNothing) {
    mWrapper->Call("unlockrefresh", {});
    mWrapper->Call("unlockrefreshabsolute", {});
    EXPECT_EQ(mUnlocked, 0);
    mWrapper->Call("lockrefresh", {});
    EXPECT_TRUE(mWrapper->IsLocked());
}

TEST_F(CommandWrapperTest, LetterCaseOfTheCallsDoesNotCount) {
    mWrapper->Call("LockRefresh", {});
    EXPECT_TRUE(mWrapper->IsLocked());
    mWrapper->Call("UNLOCKREFRESH", {});
    EXPECT_FALSE(mWrapper->IsLocked());
}

TEST_F(CommandWrapperTest, BindToIsTakenAndAnotherCallIsAnError) {
    EXPECT_NO_THROW(mWrapper->Call("BindTo", {}));
    EXPECT_THROW(mWrapper->Call("Repaint", {}), Error);
}

} // namespace

} // namespace paperkite
