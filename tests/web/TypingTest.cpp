#include "web/SurfaceTest.h"

namespace paperkite::test {
namespace {

class TypingTest : public SurfaceTest {};

TEST_F(TypingTest, KeysReachTheProgramAtOnce) {
    Load({"Text"});
    Focus();
    Type("s here");
    EXPECT_TRUE(WaitUntil([&] { return mLog.Last == "Texts here"; })) << mLog.Typed;
}

TEST_F(TypingTest, AFlushBringsWhatWasTypedLast) {
    Load({"a", "b"});
    Focus();
    Type("xyz");
    EXPECT_EQ(Settled(), "axyz");
    EXPECT_TRUE(mSurface->Flush().isEmpty()) << "there is nothing more to tell";
}

TEST_F(TypingTest, FocusAloneReportsNothing) {
    Load({"One <b>two</b> &amp; three&nbsp;"});
    Focus();
    Press(Qt::Key_Left);
    Press(Qt::Key_End);
    Settled();
    EXPECT_EQ(mLog.Typed, "");
}

TEST_F(TypingTest, ALetterTypedAndTakenBackLeavesTheTextAsItWas) {
    const QStringList texts{"Text",
                            "",
                            "Ends with a blank ",
                            "<p>One</p><p>Two</p>",
                            "<ul><li>a</li><li>b</li></ul>",
                            "x&nbsp;",
                            "<b>bold</b>"};
    for (const QString& text : texts) {
        mLog.Last = "not told";
        Load({text});
        Focus();
        Type("q");
        ASSERT_TRUE(WaitUntil([&] { return mLog.Last != "not told"; })) << text.toStdString();
        Press(Qt::Key_Backspace);
        EXPECT_TRUE(WaitUntil([&] { return Settled() == text.toStdString(); }))
            << text.toStdString() << " became " << mLog.Last;
    }
}

TEST_F(TypingTest, AnEmptiedPlaceHasAnEmptyText) {
    Load({"ab"});
    Focus();
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    EXPECT_TRUE(WaitUntil([&] { return mLog.Reports > 0 && mLog.Last.empty(); })) << mLog.Typed;
    Type("  ");
    EXPECT_EQ(Settled(), "");
}

TEST_F(TypingTest, EnterMakesParagraphs) {
    Load({"one"});
    Focus();
    Press(Qt::Key_Return);
    Type("two");
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "<p>one</p><p>two</p>"; })) << mLog.Last;
}

TEST_F(TypingTest, JoinedLinesKeepNoStylesOfTheEngine) {
    Load({"<h2>Head</h2><p>tail</p>"});
    Focus();
    Press(Qt::Key_Home);
    Press(Qt::Key_Backspace);
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "<h2>Headtail</h2>"; })) << mLog.Last;
}

TEST_F(TypingTest, DeletingAtTheEdgesStaysInThePlace) {
    Load({"a", "b"});
    Focus();
    for (int count = 0; count < 5; ++count)
        Press(Qt::Key_Backspace);
    for (int count = 0; count < 5; ++count)
        Press(Qt::Key_Delete);
    Type("z");
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "z"; })) << mLog.Typed;
    EXPECT_EQ(mLog.Typed.find("1:"), std::string::npos);
}

TEST_F(TypingTest, NothingDeletesThePageAroundAPlace) {
    Load({"a", "b"});
    Focus();
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    Type("new");
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "new"; })) << mLog.Typed;
    Press(Qt::Key_Tab);
    Type("2");
    EXPECT_TRUE(WaitUntil([&] { return mLog.Typed.find("1:") != std::string::npos; }))
        << mLog.Typed;
}

TEST_F(TypingTest, KeysOfEmphasisWorkBetweenLetters) {
    Load({"a"});
    Focus();
    Press(Qt::Key_B, Qt::ControlModifier);
    Type("b");
    Press(Qt::Key_B, Qt::ControlModifier);
    Type("c");
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "a<b>b</b>c"; })) << mLog.Last;
    Press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] { return mLog.Commands == "createlink;"; }));
}

TEST_F(TypingTest, UndoTakesBackAndRedoBringsAgain) {
    Load({"a"});
    Focus();
    Type("b");
    ASSERT_TRUE(WaitUntil([&] { return mLog.Last == "ab"; }));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] { return mLog.Last == "a"; })) << mLog.Typed;
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] { return mLog.Last == "ab"; })) << mLog.Typed;
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "ab"; })) << mLog.Typed;
}

TEST_F(TypingTest, ATextThatCodeWritesComesUnderTheCaret) {
    Load({"one two"});
    Focus();
    mSurface->SetPlace(0, "one <i>three</i>");
    mSurface->Run("nothing", {});
    EXPECT_TRUE(mSurface->Flush().isEmpty()) << "what code wrote is not reported";
    Type("!");
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "one <i>thr!ee</i>"; }))
        << "the caret stays where it was: " << mLog.Last;
}

} // namespace
} // namespace paperkite::test
