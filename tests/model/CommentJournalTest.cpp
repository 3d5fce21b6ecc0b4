#include "model/CommentJournal.h"

#include "model/CommentRecovery.h"
#include "model/JournalLine.h"
#include "model/ProcessIdentity.h"
#include "support/NarrowWorld.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <sys/wait.h>
#include <unistd.h>

namespace paperkite {

namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

constexpr const char* kProject = "/home/me/zoo.kiteproject";

JournalEntry Entry(const std::string& item, const std::string& id,
                   const std::optional<std::string>& text,
                   const std::optional<std::string>& stored = {}) {
    return {item, id, "##", {}, {}, text, stored};
}

std::string Text(const std::vector<JournalEntry>& entries) {
    std::string result;
    for (const JournalEntry& entry : entries)
        result += "[" + entry.Item + "#" + entry.Id + " " + entry.Stored.value_or("-") + " > " +
                  entry.Text.value_or("-") + "]";
    return result;
}

/// What a program that was killed behind these writes leaves.
std::string LeaveBehind(const TemporaryFolder& folder,
                        const std::vector<std::vector<JournalEntry>>& writes) {
    CommentJournal journal(folder / "state", kProject);
    for (const auto& entries : writes)
        EXPECT_FALSE(journal.Write(entries));
    return journal.GetPath();
}

std::vector<CommentJournal::Contents> LeftIn(const TemporaryFolder& folder) {
    return CommentJournal::FindLeftOver(folder / "state", kProject);
}

std::string BytesOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

void SetBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void Add(CommentStore& store, const std::string& item, const std::string& id,
         const std::string& text) {
    auto comment = MakeRef<TaggedComment>(id);
    comment->SetTagIdentifier("##");
    comment->SetText(text);
    store.Load(item, comment, {});
}

std::string TextIn(const CommentStore& store, const std::string& item) {
    std::string result;
    if (const auto comments = store.Find(item))
        for (const auto& comment : *comments)
            if (comment->GetState() != kTaggedCommentTombstone) result += comment->GetText() + ";";
    return result;
}

} // namespace

// Writing

TEST(CommentJournal, WithoutAnythingUnsavedThereIsNoFile) {
    const TemporaryFolder folder;
    CommentJournal journal(folder / "state", kProject);
    EXPECT_FALSE(journal.Write({}));
    EXPECT_EQ(journal.GetPath(), "");
    EXPECT_FALSE(fs::exists(folder / "state"));
}

TEST(CommentJournal, WhatWasWrittenIsLeftOverWithWhoWroteIt) {
    const TemporaryFolder folder;
    ProcessIdentity::Clock = [] { return 1772269500LL; };
    const std::string odd = "line\r\n\t\"<b>&\x01\xFF\\ end ";
    LeaveBehind(folder, {{Entry("a", "1", odd, "old"), Entry("b", "2", {}, "gone")}});
    const std::string now = ProcessIdentity::Now();
    ProcessIdentity::Clock = {};
    const auto left = LeftIn(folder);
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(Text(left[0].Entries), "[a#1 old > " + odd + "][b#2 gone > -]");
    EXPECT_EQ(left[0].DamagedLines, 0u);
    EXPECT_EQ(left[0].Writer.Project, kProject);
    EXPECT_EQ(left[0].Writer.Begun, now);
    EXPECT_EQ(left[0].Writer.Process, ProcessIdentity::Process());
    EXPECT_TRUE(CommentJournal::HasLeftOver(folder / "state", kProject));
    EXPECT_FALSE(CommentJournal::HasLeftOver(folder / "state", "/home/me/other.kiteproject"));
    CommentJournal::Discard(left[0]);
    EXPECT_TRUE(LeftIn(folder).empty());
}

TEST(CommentJournal, OnlyWhatChangedIsAdded) {
    const TemporaryFolder folder;
    CommentJournal journal(folder / "state", kProject);
    ASSERT_FALSE(journal.Write({Entry("a", "1", std::string(5000, 'x')), Entry("b", "2", "x")}));
    const auto first = fs::file_size(journal.GetPath());
    ASSERT_FALSE(journal.Write({Entry("a", "1", std::string(5000, 'x')), Entry("b", "2", "y")}));
    const auto second = fs::file_size(journal.GetPath());
    EXPECT_GT(second, first);
    EXPECT_LT(second, first + 200);
    ASSERT_FALSE(journal.Write({Entry("a", "1", std::string(5000, 'x')), Entry("b", "2", "y")}));
    EXPECT_EQ(fs::file_size(journal.GetPath()), second);
}

TEST(CommentJournal, TheLastWordOnACommentCounts) {
    const TemporaryFolder folder;
    LeaveBehind(folder, {{Entry("a", "1", "o"), Entry("b", "2", "two")},
                         {Entry("a", "1", "on"), Entry("b", "2", "two")},
                         {Entry("a", "1", "one")}});
    ASSERT_EQ(LeftIn(folder).size(), 1u);
    EXPECT_EQ(Text(LeftIn(folder)[0].Entries), "[a#1 - > one]");
}

TEST(CommentJournal, WhatWasTakenBackAndWhatWasSavedLeavesNoFile) {
    const TemporaryFolder folder;
    CommentJournal journal(folder / "state", kProject);
    ASSERT_FALSE(journal.Write({Entry("a", "1", "x")}));
    ASSERT_FALSE(journal.Write({}));
    EXPECT_TRUE(fs::is_empty(folder / "state"));
    ASSERT_FALSE(journal.Write({Entry("a", "1", "x")}));
    journal.Remove();
    EXPECT_TRUE(fs::is_empty(folder / "state"));
    ASSERT_FALSE(journal.Write({Entry("a", "1", "y")}));
    EXPECT_FALSE(fs::is_empty(folder / "state"));
}

TEST(CommentJournal, AJournalThatIsBeingWrittenIsNotLeftOver) {
    const TemporaryFolder folder;
    CommentJournal journal(folder / "state", kProject);
    ASSERT_FALSE(journal.Write({Entry("a", "1", "x")}));
    EXPECT_TRUE(LeftIn(folder).empty());
    EXPECT_FALSE(CommentJournal::HasLeftOver(folder / "state", kProject));
}

TEST(CommentJournal, AKilledProcessLeavesItsJournal) {
    const TemporaryFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
        CommentJournal journal(folder / "state", kProject);
        journal.Write({Entry("a", "1", "typed")});
        ::kill(::getpid(), SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(LeftIn(folder).size(), 1u);
    EXPECT_EQ(Text(LeftIn(folder)[0].Entries), "[a#1 - > typed]");
    EXPECT_EQ(LeftIn(folder)[0].Writer.Process, std::to_string(child));
}

TEST(CommentJournal, AFolderThatCannotBeMadeIsAProblemAndNothingElse) {
    const TemporaryFolder folder;
    folder.Write("state", "a file");
    CommentJournal journal(folder / "state", kProject);
    const auto problem = journal.Write({Entry("a", "1", "x")});
    ASSERT_TRUE(problem);
    EXPECT_NE(problem->Message().find("Unsaved comments cannot be kept"), std::string::npos);
    fs::remove(folder / "state");
    ASSERT_FALSE(journal.Write({Entry("a", "1", "x")}));
    EXPECT_TRUE(fs::exists(journal.GetPath()));
}

TEST(CommentJournal, MuchTypingDoesNotMakeItGrowForEver) {
    const TemporaryFolder folder;
    CommentJournal journal(folder / "state", kProject);
    std::string text(200000, 'x');
    for (int second = 0; second < 60; ++second) {
        text[0] = static_cast<char>('a' + second % 26);
        ASSERT_FALSE(journal.Write({Entry("a", "1", text), Entry("b", "2", "short")}));
    }
    EXPECT_LT(fs::file_size(journal.GetPath()), 6u << 20);
    EXPECT_EQ(CommentJournal::Read(BytesOf(journal.GetPath())).Entries.size(), 2u);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "state"), fs::directory_iterator()), 1);
}

TEST(CommentJournal, AFullDiskKeepsWhatIsThereAndTheNextWriteLosesNothing) {
    const TemporaryFolder folder;
    std::string path;
    {
        CommentJournal journal(folder / "state", kProject);
        ASSERT_FALSE(journal.Write({Entry("a", "1", "one"), Entry("b", "2", "two")}));
        path = journal.GetPath();
        const auto size = fs::file_size(path);
        const std::vector<JournalEntry> more = {Entry("a", "1", std::string(3000, 'x')),
                                                Entry("b", "2", "TWO")};
        {
            const test::FullDisk disk(size + 50);
            const auto problem = journal.Write(more);
            ASSERT_TRUE(problem);
            EXPECT_NE(problem->Message().find("make room"), std::string::npos);
            EXPECT_TRUE(journal.Write(more));
        }
        EXPECT_EQ(Text(CommentJournal::Read(BytesOf(path)).Entries), "[a#1 - > one][b#2 - > two]");
        ASSERT_FALSE(journal.Write({Entry("a", "1", "ONE"), Entry("b", "2", "TWO")}));
    }
    ASSERT_EQ(LeftIn(folder).size(), 1u);
    EXPECT_EQ(Text(LeftIn(folder)[0].Entries), "[a#1 - > ONE][b#2 - > TWO]");
    EXPECT_EQ(LeftIn(folder)[0].DamagedLines, 0u);
}

TEST(CommentJournal, WhatIsTakenBackOnAFullDiskLeavesNoFile) {
    const TemporaryFolder folder;
    CommentJournal journal(folder / "state", kProject);
    {
        const test::FullDisk disk(600);
        EXPECT_TRUE(journal.Write({Entry("a", "1", std::string(3000, 'x'))}));
    }
    ASSERT_FALSE(journal.Write({}));
    EXPECT_TRUE(fs::is_empty(folder / "state"));
    EXPECT_TRUE(LeftIn(folder).empty());
}

TEST(CommentJournal, AJournalThatCannotBeWrittenAnewOnAFullDiskStays) {
    const TemporaryFolder folder;
    std::string text(200000, 'x');
    {
        CommentJournal journal(folder / "state", kProject);
        int second = 0;
        const auto type = [&] {
            text[0] = static_cast<char>('a' + second++ % 26);
            return journal.Write({Entry("a", "1", text)});
        };
        // Until the next line would make it waste more than it may.
        do
            ASSERT_FALSE(type());
        while (fs::file_size(journal.GetPath()) < (4u << 20) + 201000);
        const std::string kept = text;
        {
            const test::FullDisk disk(100000);
            EXPECT_TRUE(type());
            EXPECT_TRUE(type());
        }
        const auto contents = CommentJournal::Read(BytesOf(journal.GetPath()));
        EXPECT_EQ(Text(contents.Entries), "[a#1 - > " + kept + "]");
        ASSERT_FALSE(type());
    }
    ASSERT_EQ(LeftIn(folder).size(), 1u);
    EXPECT_EQ(Text(LeftIn(folder)[0].Entries), "[a#1 - > " + text + "]");
}

// Damage

TEST(CommentJournal, ATruncatedJournalGivesWhatIsWhole) {
    const TemporaryFolder folder;
    const std::string path = LeaveBehind(
        folder, {{Entry("a", "1", "one")}, {Entry("a", "1", "one"), Entry("b", "2", "two")}});
    const std::string bytes = BytesOf(path);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const auto contents = CommentJournal::Read(bytes.substr(0, size));
        const std::string text = Text(contents.Entries);
        EXPECT_TRUE(text.empty() || text == "[a#1 - > one]" || text == "[a#1 - > one][b#2 - > two]")
            << text;
        EXPECT_LE(contents.DamagedLines, 1u);
    }
    SetBytes(path, bytes.substr(0, bytes.size() - 5));
    ASSERT_EQ(LeftIn(folder).size(), 1u);
    EXPECT_EQ(Text(LeftIn(folder)[0].Entries), "[a#1 - > one]");
    EXPECT_EQ(LeftIn(folder)[0].DamagedLines, 1u);
}

TEST(CommentJournal, GarbageInTheMiddleCostsItsLinesOnly) {
    const TemporaryFolder folder;
    const std::string path = LeaveBehind(
        folder, {{Entry("a", "1", "one"), Entry("b", "2", "two"), Entry("c", "3", "three")}});
    std::string bytes = BytesOf(path);
    bytes[bytes.find("two")] = 'T';
    SetBytes(path, bytes);
    ASSERT_EQ(LeftIn(folder).size(), 1u);
    const auto left = LeftIn(folder)[0];
    EXPECT_EQ(Text(left.Entries), "[a#1 - > one][c#3 - > three]");
    EXPECT_EQ(left.DamagedLines, 1u);
    CommentJournal::Discard(left);
    EXPECT_TRUE(LeftIn(folder).empty());
    EXPECT_TRUE(fs::exists(path + ".damaged"));
}

TEST(CommentJournal, ATailOfZerosIsNoComment) {
    const auto contents = CommentJournal::Read(std::string(4096, '\0'));
    EXPECT_TRUE(contents.Entries.empty());
    EXPECT_EQ(contents.DamagedLines, 1u);
    const TemporaryFolder folder;
    const std::string path = LeaveBehind(folder, {{Entry("a", "1", "one")}});
    SetBytes(path, BytesOf(path) + std::string(4096, '\0'));
    EXPECT_EQ(Text(LeftIn(folder).at(0).Entries), "[a#1 - > one]");
}

TEST(CommentJournal, WhatANewerProgramKeptIsToldAndNotThrownAway) {
    const TemporaryFolder folder;
    const std::string path = LeaveBehind(folder, {{Entry("a", "1", "one")}});
    XmlElement later = XmlElement::Named("unsavedpage");
    later.With("item", "b");
    const std::string header = BytesOf(path).substr(0, BytesOf(path).find('\n') + 1);
    SetBytes(path, header + JournalLine::Write(later));
    EXPECT_TRUE(CommentJournal::HasLeftOver(folder / "state", kProject));
    ASSERT_EQ(LeftIn(folder).size(), 1u);
    EXPECT_EQ(LeftIn(folder)[0].DamagedLines, 1u);
    CommentJournal::Discard(LeftIn(folder)[0]);
    EXPECT_TRUE(fs::exists(path + ".damaged"));
}

// Recovering

TEST(CommentRecovery, WhatIsThereAlreadyIsNotOffered) {
    CommentStore store;
    Add(store, "a", "1", "saved");
    CommentJournal::Contents journal;
    journal.Entries = {Entry("a", "1", "saved", "old"), Entry("b", "2", {}, "deleted")};
    EXPECT_TRUE(CommentRecovery::Compare({journal}, store).empty());
}

TEST(CommentRecovery, AChangeANewCommentAndADeletionComeBack) {
    CommentStore store;
    Add(store, "a", "1", "old");
    Add(store, "c", "3", "to go");
    CommentJournal::Contents journal;
    journal.Entries = {Entry("a", "1", "new", "old"), Entry("b", "2", "fresh"),
                       Entry("c", "3", {}, "to go")};
    const auto found = CommentRecovery::Compare({journal}, store);
    ASSERT_EQ(found.size(), 3u);
    for (const auto& comment : found) {
        EXPECT_FALSE(comment.ChangedMeanwhile);
        EXPECT_EQ(comment.Suggested, Keeping::Ours);
    }
    const auto unsaved =
        CommentRecovery::Apply(found, {Keeping::Ours, Keeping::Ours, Keeping::Ours}, store);
    EXPECT_EQ(Text(unsaved), "[a#1 old > new][b#2 - > fresh][c#3 to go > -]");
    EXPECT_EQ(TextIn(store, "a"), "new;");
    EXPECT_EQ(TextIn(store, "b"), "fresh;");
    EXPECT_EQ(TextIn(store, "c"), "");
}

TEST(CommentRecovery, ACommentThatChangedMeanwhileIsNeverPushedOutUnasked) {
    CommentStore store;
    Add(store, "a", "1", "theirs");
    CommentJournal::Contents journal;
    journal.Entries = {Entry("a", "1", "mine", "old")};
    const auto found = CommentRecovery::Compare({journal}, store);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].ChangedMeanwhile);
    EXPECT_EQ(found[0].Suggested, Keeping::Both);
    CommentRecovery::Apply(found, {Keeping::Both}, store);
    EXPECT_EQ(TextIn(store, "a"), "theirs;mine;");
    CommentStore other;
    Add(other, "a", "1", "theirs");
    CommentRecovery::Apply(CommentRecovery::Compare({journal}, other), {Keeping::Theirs}, other);
    EXPECT_EQ(TextIn(other, "a"), "theirs;");
}

TEST(CommentRecovery, ADeletedCommentThatSomebodyChangedStays) {
    CommentStore store;
    Add(store, "a", "1", "theirs");
    CommentJournal::Contents journal;
    journal.Entries = {Entry("a", "1", {}, "old")};
    const auto found = CommentRecovery::Compare({journal}, store);
    ASSERT_EQ(found.size(), 1u);
    CommentRecovery::Apply(found, {found[0].Suggested}, store);
    EXPECT_EQ(TextIn(store, "a"), "theirs;");
}

TEST(CommentRecovery, ACommentWithoutAnIdOfItsOwnIsKnownByWhatWasStored) {
    CommentStore store;
    Add(store, "a", "made when it was read", "old");
    CommentJournal::Contents journal;
    journal.Entries = {Entry("a", "made another time", "new", "old")};
    const auto found = CommentRecovery::Compare({journal}, store);
    CommentRecovery::Apply(found, {Keeping::Ours}, store);
    EXPECT_EQ(TextIn(store, "a"), "new;");
}

TEST(CommentRecovery, TwoJournalsOfOneCommentLoseNeitherText) {
    CommentStore store;
    Add(store, "a", "1", "old");
    CommentJournal::Contents first, second;
    first.Entries = {Entry("a", "1", "earlier", "old")};
    second.Entries = {Entry("a", "1", "later", "old")};
    const auto found = CommentRecovery::Compare({first, second}, store);
    ASSERT_EQ(found.size(), 2u);
    CommentRecovery::Apply(found, {found[0].Suggested, found[1].Suggested}, store);
    EXPECT_EQ(TextIn(store, "a"), "later;earlier;");
}

} // namespace paperkite
