#include "web/SurfaceTest.h"

namespace paperkite::test {
namespace {

class CommandsTest : public SurfaceTest {
protected:
    /// What becomes of a text when all of it is selected and the command works on it.
    std::string AllOf(const QString& text, const QString& command, const QStringList& given = {}) {
        Load({text});
        Focus();
        Press(Qt::Key_A, Qt::ControlModifier);
        EXPECT_TRUE(WaitUntil([&] { return !mLog.Selection.Text.isEmpty(); }));
        Do(command, given);
        EXPECT_TRUE(WaitUntil([&] { return mLog.Reports > 0 || !Settled().empty(); }))
            << mLog.Typed;
        mLog.Reports = 0;
        return Settled();
    }
    /// The same with the caret behind the text.
    std::string Behind(const QString& text, const QString& command, const QStringList& given = {}) {
        Load({text});
        Focus();
        Do(command, given);
        return Settled();
    }
};

TEST_F(CommandsTest, EmphasisIsWrittenInPlainElements) {
    EXPECT_EQ(AllOf("word", "bold"), "<b>word</b>");
    EXPECT_EQ(AllOf("word", "italic"), "<i>word</i>");
    EXPECT_EQ(AllOf("word", "underline"), "<u>word</u>");
    EXPECT_EQ(AllOf("<b>word</b>", "bold"), "word");
    EXPECT_EQ(AllOf("<b>w</b><i>o</i><code>rd</code>", "removeformat"), "word");
}

TEST_F(CommandsTest, CodeIsTurnedOnAndOff) {
    EXPECT_EQ(AllOf("word", "code"), "<code>word</code>");
    EXPECT_EQ(AllOf("<code>word</code>", "code"), "word");
    Load({"a"});
    Focus();
    Do("code", {});
    ASSERT_TRUE(WaitUntil([&] { return mLog.Selection.On.contains("code"); }));
    Type("x");
    Do("code", {});
    ASSERT_TRUE(WaitUntil([&] { return !mLog.Selection.On.contains("code"); }));
    Type("y");
    EXPECT_TRUE(WaitUntil([&] { return Settled().find("<code>x</code>y") != std::string::npos; }))
        << mLog.Last;
}

TEST_F(CommandsTest, ListsAreMadeAndTakenBack) {
    EXPECT_EQ(AllOf("<p>a</p><p>b</p>", "insertunorderedlist"), "<ul><li>a</li><li>b</li></ul>");
    EXPECT_EQ(AllOf("a", "insertorderedlist"), "<ol><li>a</li></ol>");
    EXPECT_EQ(AllOf("<ul><li>a</li></ul>", "insertunorderedlist"), "a");
}

TEST_F(CommandsTest, LinksAndPicturesTakeTheirAddress) {
    EXPECT_EQ(AllOf("word", "createlink", {"item.html", ""}), "<a href=\"item.html\">word</a>");
    EXPECT_EQ(AllOf("<a href=\"x\">word</a>", "unlink"), "word");
    EXPECT_EQ(Behind("see", "createlink", {"a&b.html", "<here>"}),
              "see<a href=\"a&amp;b.html\">&lt;here&gt;</a>");
    EXPECT_EQ(Behind("see", "insertimage", {"p.png", ""}), "see<img src=\"p.png\" alt=\"\">");
    EXPECT_EQ(Behind("<a href=\"old\">here</a>", "createlink", {"new", ""}),
              "<a href=\"new\">here</a>");
}

TEST_F(CommandsTest, ColoursAreKeptByName) {
    EXPECT_EQ(AllOf("word", "forecolor", {"red"}), "<span style=\"color: red;\">word</span>");
    EXPECT_EQ(AllOf("word", "fillcolor", {"yellow"}),
              "<span style=\"background-color: yellow;\">word</span>");
}

TEST_F(CommandsTest, TablesGrowAndShrink) {
    Load({""});
    Focus();
    Do("inserttable", {"1", "2"});
    Type("a");
    Press(Qt::Key_Tab);
    Type("b");
    EXPECT_TRUE(WaitUntil([&] {
        return Settled() == "<table><tbody><tr><td>a</td><td>b</td></tr></tbody></table>";
    })) << mLog.Last;
    Do("insertrow", {});
    EXPECT_TRUE(WaitUntil([&] {
        return Settled().find("<td><br></td></tr></tbody>") != std::string::npos;
    })) << mLog.Last;
    Type("c");
    EXPECT_TRUE(WaitUntil([&] {
        return Settled().find("c</td></tr></tbody>") != std::string::npos;
    })) << mLog.Last;
    Do("deletecolumn", {});
    EXPECT_TRUE(WaitUntil([&] {
        return Settled() ==
               "<table><tbody><tr><td>a</td></tr><tr><td><br></td></tr></tbody></table>";
    })) << mLog.Last;
    Do("undo", {});
    EXPECT_TRUE(WaitUntil([&] { return Settled().find("b</td></tr>") != std::string::npos; }))
        << mLog.Last;
    Do("deletetable");
    EXPECT_TRUE(WaitUntil([&] { return Settled().empty(); })) << mLog.Last;
}

TEST_F(CommandsTest, TabBehindTheLastCellAddsARowAndEscapeLetsTabLeave) {
    Load({"<table><tbody><tr><td>a</td></tr></tbody></table>", "next"});
    Focus();
    Press(Qt::Key_Tab);
    Type("b");
    EXPECT_TRUE(WaitUntil([&] {
        return Settled() == "<table><tbody><tr><td>a</td></tr><tr><td>b</td></tr></tbody></table>";
    })) << mLog.Last;
    Press(Qt::Key_Escape);
    Press(Qt::Key_Tab);
    Type("z");
    EXPECT_TRUE(WaitUntil([&] {
        Settled();
        return mLog.Typed.find("1:") != std::string::npos;
    })) << mLog.Typed;
}

TEST_F(CommandsTest, PagesFollowTheSchemeOfTheProgram) {
    WebColours colours{false,         Qt::white, Qt::black,   Qt::gray,
                       Qt::lightGray, Qt::blue,  Qt::darkBlue};
    const auto hasGround = [&](const QColor& colour) {
        return WaitUntil([&] { return mSurface->grab().toImage().pixelColor(300, 300) == colour; });
    };
    WebPage page;
    page.Html = "<html><head><style>body { background: #ffeedd; }"
                "@media screen and (prefers-color-scheme: dark) { body { background: #102030; } }"
                "</style></head><body></body></html>";
    Load(page);
    EXPECT_TRUE(hasGround(QColor(0xff, 0xee, 0xdd)));
    colours.Dark = true;
    mSurface->SetColours(colours);
    EXPECT_TRUE(hasGround(QColor(0x10, 0x20, 0x30)));
    Load(page);
    EXPECT_TRUE(hasGround(QColor(0x10, 0x20, 0x30)));
    colours.Dark = false;
    mSurface->SetColours(colours);
    EXPECT_TRUE(hasGround(QColor(0xff, 0xee, 0xdd)));
}

TEST_F(CommandsTest, TheSelectionTellsWhatIsInForce) {
    Load({"<p><b>bold</b></p><p><a href=\"there\">link</a></p>"});
    Focus();
    EXPECT_TRUE(WaitUntil([&] { return mLog.Selection.Link == "there"; }));
    EXPECT_TRUE(mLog.Selection.Enabled.contains("unlink"));
    EXPECT_FALSE(mLog.Selection.Enabled.contains("undo"));
    Press(Qt::Key_Up);
    EXPECT_TRUE(WaitUntil([&] { return mLog.Selection.On.contains("bold"); }));
    EXPECT_EQ(mLog.Selection.Link, "");
    Type("x");
    EXPECT_TRUE(WaitUntil([&] { return mLog.Selection.Enabled.contains("undo"); }));
}

} // namespace
} // namespace paperkite::test
