#include "platform/qt/FileFollower.h"
#include "support/TemporaryFolder.h"
#include "support/Waiting.h"

#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>

namespace paperkite::test {
namespace {

class FileFollowerTest : public testing::Test {
protected:
    void Follow() {
        mFollowed = FollowFile(mFolder / "a.cpp", [this] { ++mChanges; });
    }
    /// Whether a change is told.
    bool Told() {
        const bool told = WaitUntil([this] { return mChanges > 0; }, 5000);
        mChanges = 0;
        return told;
    }

    TemporaryFolder mFolder;
    std::shared_ptr<void> mFollowed;
    int mChanges = 0;
};

TEST_F(FileFollowerTest, AFileIsFollowedThroughItsLives) {
    Follow();
    mFolder.Write("a.cpp", "one");
    EXPECT_TRUE(Told()) << "it came";
    mFolder.Write("a.cpp", "longer");
    EXPECT_TRUE(Told()) << "it was written";
    mFolder.Write("b.cpp", "replaced by another");
    std::filesystem::rename(mFolder / "b.cpp", mFolder / "a.cpp");
    EXPECT_TRUE(Told()) << "it was replaced";
    std::filesystem::remove(mFolder / "a.cpp");
    EXPECT_TRUE(Told()) << "it went";
}

TEST_F(FileFollowerTest, OtherFilesAreNotTold) {
    mFolder.Write("a.cpp", "one");
    Follow();
    mFolder.Write("b.cpp", "two");
    QTest::qWait(400);
    EXPECT_EQ(mChanges, 0);
}

TEST_F(FileFollowerTest, NothingIsToldOnceItWasLetGo) {
    Follow();
    mFolder.Write("a.cpp", "one");
    mFollowed.reset();
    QTest::qWait(400);
    EXPECT_EQ(mChanges, 0);
}

} // namespace
} // namespace paperkite::test
