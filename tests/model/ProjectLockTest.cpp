#include "model/ProjectLock.h"

#include "model/ProcessIdentity.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace paperkite {

namespace {

using test::TemporaryFolder;
using Purpose = ProjectLock::Purpose;

} // namespace

TEST(ProjectLock, TheSecondIsToldWhoHasItOpen) {
    const TemporaryFolder folder;
    std::optional<ProjectLock::Holder> other;
    auto lock = ProjectLock::Take(folder / "p.kiteproject", Purpose::Open, other);
    ASSERT_TRUE(lock);
    EXPECT_FALSE(other);
    EXPECT_FALSE(ProjectLock::Take(folder / "p.kiteproject", Purpose::Open, other));
    ASSERT_TRUE(other);
    EXPECT_EQ(other->Process, ProcessIdentity::Process());
    EXPECT_EQ(other->Host, ProcessIdentity::Host());
    EXPECT_EQ(other->User, ProcessIdentity::User());
    EXPECT_EQ(other->Since.size(), std::string("2026-02-28 09:05:00").size());
    EXPECT_EQ(ProjectLock::WhoHasOpen(folder / "p.kiteproject")->Process, other->Process);
    lock.reset();
    EXPECT_FALSE(ProjectLock::WhoHasOpen(folder / "p.kiteproject"));
    EXPECT_TRUE(ProjectLock::Take(folder / "p.kiteproject", Purpose::Open, other));
    EXPECT_EQ(folder.Names(), "");
}

TEST(ProjectLock, WritingIsPossibleWhileAWindowHasItOpen) {
    const TemporaryFolder folder;
    std::optional<ProjectLock::Holder> other;
    const auto open = ProjectLock::Take(folder / "p.kiteproject", Purpose::Open, other);
    auto write = ProjectLock::TakeForWriting(folder / "p.kiteproject", 0, other);
    EXPECT_TRUE(write);
    EXPECT_FALSE(ProjectLock::TakeForWriting(folder / "p.kiteproject", 0, other));
    EXPECT_TRUE(other);
    write.reset();
    EXPECT_EQ(folder.Names(), ".p.kiteproject.lock");
    EXPECT_TRUE(ProjectLock::WhoHasOpen(folder / "p.kiteproject"));
    EXPECT_TRUE(ProjectLock::TakeForWriting(folder / "p.kiteproject", 0, other));
}

TEST(ProjectLock, AKilledProcessBlocksNobody) {
    const TemporaryFolder folder;
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        std::optional<ProjectLock::Holder> none;
        const auto lock = ProjectLock::Take(folder / "p.kiteproject", Purpose::Open, none);
        const char mark = lock ? 'y' : 'n';
        static_cast<void>(!::write(ready[1], &mark, 1));
        ::pause();
        ::_exit(0);
    }
    char mark = 0;
    ASSERT_EQ(::read(ready[0], &mark, 1), 1);
    EXPECT_EQ(mark, 'y');
    std::optional<ProjectLock::Holder> other;
    EXPECT_FALSE(ProjectLock::Take(folder / "p.kiteproject", Purpose::Open, other));
    ASSERT_TRUE(other);
    EXPECT_EQ(other->Process, std::to_string(child));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(folder.Names(), ".p.kiteproject.lock");
    EXPECT_FALSE(ProjectLock::WhoHasOpen(folder / "p.kiteproject"));
    EXPECT_TRUE(ProjectLock::Take(folder / "p.kiteproject", Purpose::Open, other));
    EXPECT_EQ(folder.Names(), "");
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST(ProjectLock, WhereNoLockCanBeMadeNobodyIsKeptOut) {
    const TemporaryFolder folder;
    std::optional<ProjectLock::Holder> other;
    EXPECT_FALSE(ProjectLock::Take(folder / "nowhere/p.kiteproject", Purpose::Open, other));
    EXPECT_FALSE(other);
}

} // namespace paperkite
