#include "model/CommentJournal.h"
#include "model/CommentRecovery.h"
#include "model/MergeConflicts.h"
#include "model/ProjectDocument.h"
#include "model/SafeFile.h"
#include "support/NarrowWorld.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include <sys/wait.h>
#include <unistd.h>

namespace paperkite {

namespace {

namespace fs = std::filesystem;
using test::FullDisk;
using test::TemporaryFolder;

std::string MessageOf(const std::optional<FileProblem>& problem) {
    return problem ? problem->Message() : "no problem";
}

Ref<ProjectDocument> Opened(const std::string& path, const ProjectDocument::FileBytes& inPlace = {},
                            const ProjectDocument::FileBytes* seen = nullptr) {
    const auto result = ProjectDocument::Open(path, inPlace, seen);
    EXPECT_FALSE(result.Problem) << result.Problem->Message();
    return result.Project;
}

Ref<TaggedComment> Comment(ProjectDocument& project, const std::string& item,
                           const std::string& text) {
    auto comment = MakeRef<TaggedComment>();
    comment->SetTagIdentifier("##");
    comment->SetText(text);
    comment->SetState(kTaggedCommentNew);
    project.GetComments()->CommentsOf({}, item)->Add(comment, comment->GetId());
    project.SetDirty(true);
    return comment;
}

void Change(ProjectDocument& project, const std::string& item, const std::string& text) {
    project.GetComments()->Find(item)->Item(1)->SetText(text);
    project.SetDirty(true);
}

std::string TextOf(ProjectDocument& project, const std::string& item) {
    std::string result;
    if (const auto comments = project.GetComments()->Find(item))
        for (const auto& comment : *comments)
            result += comment->GetText() + ";";
    return result.empty() ? "none" : result;
}

std::string Content(const std::string& comments) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contentfile version=\"1\">\n" + comments +
           "</contentfile>\n";
}

std::string Said(const std::string& item, const std::string& text) {
    return "  <comment item=\"" + item + "\" tag=\"##\" id=\"" + item + "1\"><![CDATA[\n" + text +
           "\n]]></comment>\n";
}

std::string Project(const std::string& inside) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kiteproject version=\"1\">\n" + inside +
           "</kiteproject>\n";
}

/// A project with the Content Files a.ktc (items a, b) and c.ktc (item c).
std::string MakeTwoFiles(const TemporaryFolder& folder) {
    folder.Write("a.ktc", Content(Said("a", "one") + Said("b", "two")));
    folder.Write("c.ktc", Content(Said("c", "three")));
    return folder.Write("p.kiteproject", Project("  <contentfile path=\"a.ktc\"/>\n"
                                                 "  <contentfile path=\"c.ktc\"/>\n"));
}

/// Long enough to be written in parts. With the sanitizers, under which every character takes its
/// time, only just.
std::string LargeText() {
#ifdef __SANITIZE_ADDRESS__
    return std::string((2 << 20) + 1, 'A');
#else
    return std::string(3 << 20, 'A');
#endif
}

/// With the sanitizers less: they would take minutes.
constexpr std::size_t LargeFile() {
#ifdef __SANITIZE_ADDRESS__
    return 10u << 20;
#else
    return 200u << 20;
#endif
}

} // namespace

// Saving that ends anywhere

TEST(ProjectSafety, ASaveThatIsKilledAtAnyStepLosesNothing) {
    int killed = 0;
    for (int step = 1;; ++step) {
        const TemporaryFolder folder;
        const std::string path = MakeTwoFiles(folder);
        const std::string oldA = folder.Read("a.ktc");
        const std::string oldC = folder.Read("c.ktc");
        const std::string oldProject = folder.Read("p.kiteproject");
        const auto work = [&](int killAt) {
            const auto project = ProjectDocument::Open(path).Project;
            Change(*project, "a", LargeText());
            Change(*project, "c", "THREE");
            project->SetTitle("New title");
            CommentJournal journal(folder / "state", path);
            journal.Write({{"a", "a1", "##", {}, {}, LargeText(), "one"},
                           {"c", "c1", "##", {}, {}, "THREE", "three"}});
            int steps = 0;
            SafeFile::StepDone = [&steps, killAt](SafeFile::Step) {
                if (++steps == killAt) ::kill(::getpid(), SIGKILL);
            };
            const bool isSaved = !project->Save();
            if (isSaved) journal.Remove();
            ::_exit(isSaved ? 0 : 1);
        };
        const pid_t child = ::fork();
        if (child == 0) work(step);
        int status = 0;
        ::waitpid(child, &status, 0);
        const bool isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        if (!isKilled) {
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
            EXPECT_FALSE(CommentJournal::HasLeftOver(folder / "state", path));
            break;
        }
        ++killed;
        const auto project = Opened(path);
        ASSERT_TRUE(project) << step;
        EXPECT_EQ(folder.Names(), "a.ktc c.ktc p.kiteproject state") << step;
        const std::string a = TextOf(*project, "a");
        EXPECT_TRUE(folder.Read("a.ktc") == oldA || a == LargeText() + ";") << step;
        EXPECT_TRUE(folder.Read("c.ktc") == oldC || TextOf(*project, "c") == "THREE;") << step;
        EXPECT_TRUE(folder.Read("p.kiteproject") == oldProject ||
                    project->GetTitle() == "New title")
            << step;
        EXPECT_EQ(TextOf(*project, "b"), "two;") << step;
        // What the files do not say yet is in the journal.
        const auto left = CommentJournal::FindLeftOver(folder / "state", path);
        const auto comments = CommentRecovery::Compare(left, *project->GetComments());
        CommentRecovery::Apply(comments, std::vector<Keeping>(comments.size(), Keeping::Ours),
                               *project->GetComments());
        EXPECT_EQ(TextOf(*project, "a"), LargeText() + ";") << step;
        EXPECT_EQ(TextOf(*project, "c"), "THREE;") << step;
    }
    // Three files of six steps at least, and the large one in parts.
    EXPECT_GE(killed, 20);
}

TEST(ProjectSafety, ATemporaryFileThatSomebodyIsWritingIsLeftAlone) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.ktc", "old");
    SafeFile::StepDone = [&](SafeFile::Step step) {
        if (step == SafeFile::Step::Closed) SafeFile::CleanUp(path);
    };
    EXPECT_EQ(MessageOf(SafeFile::Write(path, "new")), "no problem");
    SafeFile::StepDone = {};
    EXPECT_EQ(folder.Read("a.ktc"), "new");
    folder.Write("a.ktc.12345678.tmp", "left by a program that was killed");
    folder.Write("a.ktc.tmp", "somebody's own");
    folder.Write("b.ktc.12345678.tmp", "of another file");
    SafeFile::CleanUp(path);
    EXPECT_EQ(folder.Names(), "a.ktc a.ktc.tmp b.ktc.12345678.tmp");
}

TEST(ProjectSafety, AFullDiskLeavesTheOldFilesAndTheProjectUnsaved) {
    const TemporaryFolder folder;
    const auto project = Opened(MakeTwoFiles(folder));
    const std::string old = folder.Read("a.ktc");
    Change(*project, "a", std::string(100000, 'x'));
    {
        const FullDisk disk(4096);
        const auto problem = project->Save();
        ASSERT_TRUE(problem);
        EXPECT_EQ(problem->Reason, FileProblem::ReasonCode::CannotWrite);
        EXPECT_NE(problem->Message().find("Make room"), std::string::npos) << problem->Message();
    }
    EXPECT_EQ(folder.Read("a.ktc"), old);
    EXPECT_EQ(folder.Names(), "a.ktc c.ktc p.kiteproject");
    EXPECT_TRUE(project->GetDirty());
    EXPECT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_FALSE(project->GetDirty());
}

TEST(ProjectSafety, ADiskThatIsFullAtTheSecondFileLeavesEachOldOrNewAndTheNextSaveEndsIt) {
    const TemporaryFolder folder;
    const auto project = Opened(MakeTwoFiles(folder));
    const std::string oldC = folder.Read("c.ktc");
    const std::string oldProject = folder.Read("p.kiteproject");
    Change(*project, "a", "changed");
    project->GetComments()->Find("b")->Item(1)->SetState(kTaggedCommentTombstone);
    Change(*project, "c", std::string(100000, 'x'));
    project->SetTitle("New title");
    {
        const FullDisk disk(4096);
        const auto problem = project->Save();
        ASSERT_TRUE(problem);
        EXPECT_EQ(problem->File, folder / "c.ktc");
    }
    EXPECT_EQ(folder.Read("c.ktc"), oldC);
    EXPECT_EQ(folder.Read("p.kiteproject"), oldProject);
    EXPECT_EQ(folder.Names(), "a.ktc c.ktc p.kiteproject");
    EXPECT_TRUE(project->GetDirty());
    const auto between = Opened(folder / "p.kiteproject");
    EXPECT_EQ(TextOf(*between, "a"), "changed;");
    EXPECT_EQ(TextOf(*between, "b"), "none");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    const auto again = Opened(folder / "p.kiteproject");
    EXPECT_EQ(TextOf(*again, "a"), "changed;");
    EXPECT_EQ(TextOf(*again, "b"), "none");
    EXPECT_EQ(TextOf(*again, "c"), std::string(100000, 'x') + ";");
    EXPECT_EQ(again->GetTitle(), "New title");
}

TEST(ProjectSafety, AFolderThatMayNotBeWrittenLeavesTheOldFilesAndTheProjectUnsaved) {
    const TemporaryFolder folder;
    const auto project = Opened(MakeTwoFiles(folder));
    const std::string old = folder.Read("a.ktc");
    Change(*project, "a", "changed");
    for (const char* name : {"a.ktc", "c.ktc", "p.kiteproject"})
        fs::permissions(folder / name, fs::perms(0666));
    fs::permissions(folder.Path(), fs::perms(0555));
    std::optional<FileProblem> problem;
    {
        const test::OrdinaryUser user;
        problem = project->Save();
    }
    fs::permissions(folder.Path(), fs::perms(0755));
    EXPECT_EQ(MessageOf(problem), (folder / "a.ktc") +
                                      ": The file cannot be saved: Permission denied. The old "
                                      "file is as it was. Ask for the permission to write in \"" +
                                      folder.Path() + "\", or save to another folder.");
    EXPECT_EQ(folder.Read("a.ktc"), old);
    EXPECT_EQ(folder.Names(), "a.ktc c.ktc p.kiteproject");
    EXPECT_TRUE(project->GetDirty());
    EXPECT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(TextOf(*Opened(folder / "p.kiteproject"), "a"), "changed;");
}

TEST(ProjectSafety, SaveAsThatFailsHalfWayLeavesNoStrayFiles) {
    const TemporaryFolder folder;
    const auto project = Opened(MakeTwoFiles(folder));
    Change(*project, "a", "changed");
    fs::create_directories(folder / "copy/q.kiteproject");
    folder.Write("copy/c.ktc", "theirs");
    ASSERT_TRUE(
        project->SaveAs(folder / "copy/q.kiteproject", ProjectDocument::Overwriting::Allowed));
    EXPECT_FALSE(fs::exists(folder / "copy/a.ktc"));
    EXPECT_EQ(folder.Read("copy/c.ktc"), "theirs");
    EXPECT_EQ(project->GetPath(), folder / "p.kiteproject");
    EXPECT_TRUE(project->GetDirty());
    EXPECT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(TextOf(*Opened(folder / "p.kiteproject"), "a"), "changed;");
    EXPECT_EQ(TextOf(*Opened(folder / "p.kiteproject"), "c"), "three;");
}

// Content Files that are missing

TEST(ProjectSafety, AMissingContentFileIsToldAndTheOthersAreThere) {
    const TemporaryFolder folder;
    const std::string path = MakeTwoFiles(folder);
    fs::remove(folder / "a.ktc");
    const auto project = Opened(path);
    ASSERT_EQ(project->GetMissingFiles().size(), 1u);
    EXPECT_EQ(project->GetMissingFiles()[0].Message(),
              (folder / "a.ktc") +
                  ": This Content File of the project is missing; its comments are not shown. Put "
                  "it back, or remove it from the project's list of Content Files.");
    EXPECT_EQ(TextOf(*project, "c"), "three;");
    const std::string bytes = folder.Read("p.kiteproject");
    Comment(*project, "new", "goes to the other");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(folder.Names(), "c.ktc p.kiteproject");
    EXPECT_EQ(folder.Read("p.kiteproject"), bytes);
    folder.Write("a.ktc", Content(Said("a", "one")));
    EXPECT_EQ(project->ChangedOnDisk(), std::vector<std::string>{folder / "a.ktc"});
    const auto again = Opened(path);
    EXPECT_TRUE(again->GetMissingFiles().empty());
    EXPECT_EQ(TextOf(*again, "a"), "one;");
    EXPECT_EQ(TextOf(*again, "new"), "goes to the other;");
}

TEST(ProjectSafety, WhereTheOnlyContentFileIsMissingNewCommentsGetAFileOfTheirOwn) {
    const TemporaryFolder folder;
    const std::string path =
        folder.Write("p.kiteproject", Project("  <contentfile path=\"p.ktc\"/>\n"));
    const auto project = Opened(path);
    Comment(*project, "new", "text");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(folder.Names(), "p-2.ktc p.kiteproject");
    EXPECT_NE(folder.Read("p.kiteproject").find("path=\"p.ktc\""), std::string::npos);
    folder.Write("p.ktc", Content(Said("a", "is back")));
    const auto again = Opened(path);
    EXPECT_EQ(TextOf(*again, "a"), "is back;");
    EXPECT_EQ(TextOf(*again, "new"), "text;");
}

TEST(ProjectSafety, ASaveUnderAnotherNameKeepsThePlaceOfAMissingFile) {
    const TemporaryFolder folder;
    const std::string path = MakeTwoFiles(folder);
    fs::remove(folder / "a.ktc");
    const auto project = Opened(path);
    fs::create_directories(folder / "copy");
    ASSERT_EQ(MessageOf(project->SaveAs(folder / "copy/q.kiteproject")), "no problem");
    EXPECT_NE(folder.Read("copy/q.kiteproject").find("path=\"../a.ktc\""), std::string::npos);
    EXPECT_FALSE(fs::exists(folder / "copy/a.ktc"));
}

// Somebody else writes

TEST(ProjectSafety, WhatSomebodyElseWroteIsNoticedAndNotWhatIsTheSame) {
    const TemporaryFolder folder;
    const auto project = Opened(MakeTwoFiles(folder));
    EXPECT_TRUE(project->ChangedOnDisk().empty());
    folder.Write("a.ktc", folder.Read("a.ktc"));
    EXPECT_TRUE(project->ChangedOnDisk().empty());
    folder.Write("c.ktc", Content(Said("c", "theirs")));
    EXPECT_EQ(project->ChangedOnDisk(), std::vector<std::string>{folder / "c.ktc"});
}

TEST(ProjectSafety, UnsavedWorkMergesWithWhatIsOnTheDisk) {
    const TemporaryFolder folder;
    const std::string path = MakeTwoFiles(folder);
    const auto project = Opened(path);
    Change(*project, "a", "mine");
    Comment(*project, "new", "mine too");
    folder.Write("a.ktc", Content(Said("a", "one") + Said("b", "theirs") + "  <extra/>\n"));
    folder.Write("p.kiteproject", Project("  <title>Theirs</title>\n"
                                          "  <contentfile path=\"a.ktc\"/>\n"
                                          "  <contentfile path=\"c.ktc\"/>\n"));
    const auto merged = project->MergeWithDisk();
    EXPECT_EQ(MessageOf(merged.Problem), "no problem");
    EXPECT_EQ(merged.Conflicts, 0u);
    ASSERT_EQ(merged.Bytes.size(), 1u);
    const auto again = Opened(path, merged.Bytes);
    EXPECT_TRUE(again->GetDirty());
    EXPECT_EQ(again->GetTitle(), "Theirs");
    const Ref<CommentStore> store = project->GetComments();
    again->TakeStoreOf(*project);
    EXPECT_EQ(store->Find("b")->Item(1)->GetText(), "theirs");
    EXPECT_EQ(again->GetComments(), store);
    ASSERT_EQ(MessageOf(again->Save()), "no problem");
    const auto saved = Opened(path);
    EXPECT_EQ(TextOf(*saved, "a"), "mine;");
    EXPECT_EQ(TextOf(*saved, "b"), "theirs;");
    EXPECT_EQ(TextOf(*saved, "new"), "mine too;");
    EXPECT_NE(folder.Read("a.ktc").find("<extra/>"), std::string::npos);
}

TEST(ProjectSafety, AConflictIsSavedBothWaysAndOpens) {
    const TemporaryFolder folder;
    const std::string path = MakeTwoFiles(folder);
    const auto project = Opened(path);
    Change(*project, "a", "mine");
    folder.Write("a.ktc", Content(Said("a", "theirs") + Said("b", "two")));
    const auto merged = project->MergeWithDisk();
    EXPECT_EQ(merged.Conflicts, 1u);
    ASSERT_EQ(MessageOf(Opened(path, merged.Bytes)->Save()), "no problem");
    const auto again = Opened(path);
    EXPECT_EQ(TextOf(*again, "a"), "mine;theirs;");
    EXPECT_TRUE(again->MayHoldConflicts());
    EXPECT_EQ(MergeConflicts::Find(again->PresentBytes()[folder / "a.ktc"]).size(), 1u);
    EXPECT_FALSE(Opened(MakeTwoFiles(folder))->MayHoldConflicts());
}

TEST(ProjectSafety, WhatSomebodyWritesWhileTheAuthorChoosesIsNotReplaced) {
    const TemporaryFolder folder;
    const std::string path = MakeTwoFiles(folder);
    const auto project = Opened(path);
    auto chosen = project->PresentBytes();
    const auto seen = project->StoredBytes();
    chosen[folder / "a.ktc"] = Content(Said("a", "chosen") + Said("b", "two"));
    folder.Write("a.ktc", Content(Said("a", "one") + Said("b", "somebody else's")));
    const auto again = Opened(path, chosen, &seen);
    const auto problem = again->Save();
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Reason, FileProblem::ReasonCode::ChangedOnDisk);
    const auto merged = again->MergeWithDisk();
    EXPECT_EQ(merged.Conflicts, 0u);
    ASSERT_EQ(MessageOf(Opened(path, merged.Bytes, &merged.Seen)->Save()), "no problem");
    EXPECT_EQ(TextOf(*Opened(path), "a"), "chosen;");
    EXPECT_EQ(TextOf(*Opened(path), "b"), "somebody else's;");
}

TEST(ProjectSafety, WhatIsBrokenOnTheDiskIsNotMerged) {
    const TemporaryFolder folder;
    const auto project = Opened(MakeTwoFiles(folder));
    Change(*project, "a", "mine");
    folder.Write("a.ktc", "<<<<<<< HEAD\n" + Content(Said("a", "theirs")));
    EXPECT_NE(MessageOf(project->MergeWithDisk().Problem).find("finish the merge"),
              std::string::npos);
}

TEST(ProjectSafety, AContentFileWithUnsavedCommentsDoesNotGoWithSomebodysEntry) {
    const TemporaryFolder folder;
    const auto project = Opened(MakeTwoFiles(folder));
    Change(*project, "c", "mine");
    folder.Write("p.kiteproject", Project("  <contentfile path=\"a.ktc\"/>\n"));
    EXPECT_NE(MessageOf(project->MergeWithDisk().Problem).find("took this Content File out"),
              std::string::npos);
}

// Odd files

TEST(ProjectSafety, AFileOfTwoHundredMegabytesOpensAndSaves) {
    const TemporaryFolder folder;
    const std::string text(99000, 'x');
    std::string bytes;
    bytes.reserve(LargeFile() + (5u << 20));
    for (int item = 0; bytes.size() < LargeFile(); ++item)
        bytes += Said("i" + std::to_string(100000 + item), text);
    folder.Write("a.ktc", Content(bytes));
    bytes.clear();
    bytes.shrink_to_fit();
    const std::string path =
        folder.Write("p.kiteproject", Project("  <contentfile path=\"a.ktc\"/>\n"));
    const auto project = Opened(path);
    EXPECT_GT(project->GetComments()->Count(), LargeFile() / 100000);
    Change(*project, "i100001", "short");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(TextOf(*Opened(path), "i100001"), "short;");
}

TEST(ProjectSafety, ElementsNestedWithoutEndAreAClearProblem) {
    const TemporaryFolder folder;
    std::string deep;
    for (int level = 0; level < 100000; ++level)
        deep += "<a>";
    for (int level = 0; level < 100000; ++level)
        deep += "</a>";
    const std::string path = folder.Write("p.kiteproject", Project(deep));
    EXPECT_NE(MessageOf(ProjectDocument::Open(path).Problem).find("nested too deeply"),
              std::string::npos);
}

TEST(ProjectSafety, ACommentMayBeNestedAsDeeplyAsItLikes) {
    const TemporaryFolder folder;
    std::string deep;
    for (int level = 0; level < 100000; ++level)
        deep += "<ul><li>";
    deep += "text";
    for (int level = 0; level < 100000; ++level)
        deep += "</li></ul>";
    const std::string path = MakeTwoFiles(folder);
    const auto project = Opened(path);
    Change(*project, "a", deep);
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_TRUE(TextOf(*Opened(path), "a") == deep + ";");
    // Another author's change meets it.
    const auto mine = Opened(path);
    Change(*mine, "b", deep + "mine");
    folder.Write("a.ktc", Content(Said("a", "theirs") + Said("b", "two")));
    const auto merged = mine->MergeWithDisk();
    EXPECT_EQ(MessageOf(merged.Problem), "no problem");
    const auto both = Opened(path, merged.Bytes);
    EXPECT_EQ(TextOf(*both, "a"), "theirs;");
    EXPECT_TRUE(TextOf(*both, "b") == deep + "mine;");
}

TEST(ProjectSafety, UnknownPartsTwinsAndCommentsOfGoneItemsAreThereAfterAChange) {
    const TemporaryFolder folder;
    folder.Write("a.ktc",
                 Content(Said("gone~item", "kept") + Said("twin", "first") +
                         Said("twin", "second") +
                         "  <comment item=\"u\" tag=\"##\" id=\"9\" later=\"yes\"><![CDATA[\n"
                         "text\n]]><history by=\"me\"/></comment>\n"
                         "  <future/>\n"));
    const std::string path = folder.Write(
        "p.kiteproject", Project("  <contentfile path=\"a.ktc\"/>\n  <newer x=\"1\"/>\n"));
    const auto project = Opened(path);
    EXPECT_EQ(TextOf(*project, "twin"), "first;second;");
    Change(*project, "u", "changed");
    project->SetTitle("T");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    const auto again = Opened(path);
    EXPECT_EQ(TextOf(*again, "gone~item"), "kept;");
    EXPECT_EQ(TextOf(*again, "twin"), "first;second;");
    for (const char* part : {"later=\"yes\"", "<history by=\"me\"/>", "<future/>"})
        EXPECT_NE(folder.Read("a.ktc").find(part), std::string::npos) << part;
    EXPECT_NE(folder.Read("p.kiteproject").find("<newer x=\"1\"/>"), std::string::npos);
}

TEST(ProjectSafety, OfTwoCommentsOfOneIdTheOneThatIsMeantChangesAndGoes) {
    const TemporaryFolder folder;
    folder.Write("a.ktc",
                 Content(Said("twin", "first") + Said("twin", "second") + Said("twin", "third")));
    const std::string path =
        folder.Write("p.kiteproject", Project("  <contentfile path=\"a.ktc\"/>\n"));
    const std::string bytes = folder.Read("a.ktc");
    const auto project = Opened(path);
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(folder.Read("a.ktc"), bytes);
    const auto comments = project->GetComments()->Find("twin");
    ASSERT_EQ(comments->Count(), 3u);
    comments->Item(2)->SetText("SECOND");
    comments->Item(3)->SetState(kTaggedCommentTombstone);
    project->SetDirty(true);
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(TextOf(*Opened(path), "twin"), "first;SECOND;");
}

} // namespace paperkite
