#include "doctypes/source/CtagsProcess.h"
#include "doctypes/FakeCtags.h"
#include "doctypes/source/CtagsConversation.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

using Event = CtagsConversation::Event;

/// What the next file is answered with, lines parted by "|"; the event that ended the wait.
Event Answer(CtagsConversation& talk, std::string& lines) {
    lines.clear();
    Event event = Event::Nothing;
    for (int round = 0; round < 500 && event == Event::Nothing; ++round) {
        event = talk.Wait(20, [&](std::string_view line) { lines.append(line).append("|"); });
    }
    return event;
}

} // namespace

TEST(CtagsProcess, AMissingProgramSaysWhatToInstall) {
    EXPECT_EQ(
        CtagsProcess("/nowhere/ctags").Check().Message,
        "The program \"/nowhere/ctags\" that reads source code cannot be run: No such file or "
        "directory. Install the package universal-ctags, or mend the path of the program.");
}

TEST(CtagsProcess, AnotherProgramOfThatNameSaysWhatToInstall) {
    EXPECT_NE(
        CtagsProcess("true").Check().Message.find("is not Universal Ctags. Install the package"),
        std::string::npos);
}

TEST(CtagsProcess, AProgramWithoutJsonSaysWhatToInstall) {
    SourceTree folder;
    folder.Write("plain", "#!/bin/sh\necho Universal Ctags 5.9 +wildcards\n");
    std::filesystem::permissions(folder.Folder() + "/plain", std::filesystem::perms::owner_all);
    EXPECT_NE(CtagsProcess(folder.Folder() + "/plain").Check().Message.find("without JSON output"),
              std::string::npos);
}

TEST(CtagsProcess, TellsItsVersion) {
    const FakeCtags fake("");
    CtagsProcess ctags(fake.Path());
    EXPECT_EQ(ctags.Check().Message, "");
    EXPECT_EQ(ctags.Version(), "Universal Ctags +json\n");
}

TEST(CtagsProcess, ACheckOfASilentProgramCanBeStopped) {
    const FakeCtags fake("exec sleep 600");
    int asked = 0;
    const ScanOutcome outcome =
        CtagsProcess(fake.Path()).CheckOptions("/", {}, [&] { return ++asked < 2; });
    EXPECT_EQ(outcome.Status, ScanStatus::Cancelled);
}

TEST(CtagsProcess, AFailingProgramTellsItsCodeAndWhatItSaid) {
    const FakeCtags fake("echo broken >&2; exit 3");
    const ScanOutcome outcome = CtagsProcess(fake.Path()).CheckOptions("/", {});
    EXPECT_EQ(outcome.Status, ScanStatus::Failed);
    EXPECT_NE(outcome.Message.find("ended with code 3: broken"), std::string::npos);
}

TEST(CtagsConversation, AnswersEachFileByItself) {
    SourceTree tree;
    tree.Write("a.c", "int a;\n").Write("b.c", "int b;\n").Write("empty.c", "");
    CtagsConversation talk("ctags", tree.Folder(), {"--options=NONE", "--_xformat=%N"});
    ASSERT_EQ(talk.Start(), 0);
    std::string lines;
    talk.Ask("./a.c");
    EXPECT_EQ(Answer(talk, lines), Event::FileDone);
    EXPECT_NE(lines.find("a"), std::string::npos);
    talk.Ask("./empty.c");
    talk.Ask("./b.c");
    EXPECT_EQ(Answer(talk, lines), Event::FileDone);
    EXPECT_EQ(lines, "");
    EXPECT_EQ(Answer(talk, lines), Event::FileDone);
    EXPECT_NE(lines.find("b"), std::string::npos);
}

TEST(CtagsConversation, TellsHowTheProgramEnded) {
    const FakeCtags fake("read name; kill -SEGV $$");
    CtagsConversation talk(fake.Path(), "/", {});
    ASSERT_EQ(talk.Start(), 0);
    talk.Ask("a.c");
    std::string lines;
    EXPECT_EQ(Answer(talk, lines), Event::Ended);
    EXPECT_EQ(talk.HowItEnded(), "was ended by signal 11");
    EXPECT_EQ(Answer(talk, lines), Event::Ended);
}

TEST(CtagsConversation, ManyFileNamesDoNotBlockAProgramThatDoesNotReadThem) {
    const FakeCtags fake("echo done");
    CtagsConversation talk(fake.Path(), "/", {});
    ASSERT_EQ(talk.Start(), 0);
    for (int i = 0; i < 100'000; ++i) {
        talk.Ask("some/file/name.c");
    }
    std::string lines;
    EXPECT_EQ(Answer(talk, lines), Event::Ended);
    EXPECT_EQ(lines, "done|");
}

TEST(CtagsConversation, NamesThatNoLineHoldsAreKnown) {
    EXPECT_TRUE(CtagsConversation::CanAsk("a b/\"c\" \xC3\xA9\xFF.c"));
    for (const char* name : {"a\nb.c", "a\rb.c", "a\tb.c", "a.c "}) {
        EXPECT_FALSE(CtagsConversation::CanAsk(name)) << name;
    }
}

} // namespace paperkite::test
