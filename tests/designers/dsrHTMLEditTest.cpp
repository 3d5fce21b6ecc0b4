#include "designers/dsrHTMLEdit.h"
#include "support/DesignerTest.h"
#include "support/HtmlFixtures.h"

namespace paperkite::test {
namespace {

class dsrHTMLEditTest : public DesignerTest<dsrHTMLEdit> {
protected:
    dsrHTMLEditTest() : DesignerTest("dsrHTMLEdit") {}
    void Type(const std::string& html) { mControl->ed->UserSpanChanged(0, html); }
    std::string Placed() { return mControl->ed->GetDocument()->All("comment")->GetInnerHTML(); }
    void Click(const char* command) {
        mControl->Dock->UserClick(mControl->Dock->Commands.Item(command));
    }
};

TEST_F(dsrHTMLEditTest, ShowingAndLeavingChangesNothing) {
    for (const HtmlFixture& fixture : HtmlFixtures()) {
        SCOPED_TRACE(fixture.Name);
        EXPECT_EQ(AfterLookingAt(fixture.Source), fixture.Source + ";");
    }
}

TEST_F(dsrHTMLEditTest, TheFirstWordAddsAComment) {
    Show({});
    Type("<p>Barks.</p>");
    EXPECT_EQ(mHost.Take(), "+<p>Barks.</p>;");
    const auto comment = TestHost::Of(mDog)->Item(std::size_t(1));
    EXPECT_EQ(comment->GetTagIdentifier(), "##tag");
    EXPECT_EQ(comment->GetItem(), Ref<Object>(mDog));
    Type("<p>Barks loudly.</p>");
    EXPECT_EQ(mHost.Take(), "=<p>Barks loudly.</p>;");
    EXPECT_EQ(TestHost::Of(mDog)->Count(), 1u);
}

TEST_F(dsrHTMLEditTest, AnEmptiedTextDeletesTheComment) {
    Show({"Barks."});
    Type("");
    EXPECT_EQ(mHost.Take(), "-Barks.;");
    Type("Howls.");
    EXPECT_EQ(mHost.Take(), "+Howls.;");
}

TEST_F(dsrHTMLEditTest, ATextTypedBackIsTheStoredOne) {
    Show({"a <b>bold</B> word"});
    const std::string before = Placed();
    Type(before + "x");
    Type(before);
    EXPECT_EQ(Texts(), "a <b>bold</B> word;");
}

TEST_F(dsrHTMLEditTest, SeveralCommentsAreGoneThrough) {
    Show({"one", "two"});
    EXPECT_TRUE(mControl->Dock->GetToolbar("Comments")->GetVisible());
    EXPECT_EQ(mControl->lblPosition->GetCaption(), "1 of 2");
    EXPECT_EQ(Placed(), "one");
    Click("NextComment");
    EXPECT_EQ(mControl->lblPosition->GetCaption(), "2 of 2");
    EXPECT_EQ(Placed(), "two");
    Type("TWO");
    EXPECT_EQ(mHost.Take(), "=TWO;");
    Click("DeleteComment");
    EXPECT_EQ(mHost.Take(), "-TWO;");
    EXPECT_EQ(Placed(), "one");
    EXPECT_FALSE(mControl->Dock->GetToolbar("Comments")->GetVisible());
}

TEST_F(dsrHTMLEditTest, AnotherCommentIsAddedWhenItIsWritten) {
    Show({"one"});
    Click("AddComment");
    EXPECT_EQ(mHost.Take(), "");
    EXPECT_FALSE(mControl->Dock->Commands.Item("AddComment")->GetEnabled());
    Type("two");
    EXPECT_EQ(mHost.Take(), "+two;");
    EXPECT_EQ(Texts(), "one;two;");
}

TEST_F(dsrHTMLEditTest, AGeneralCommentIsTheOnlyOne) {
    mDefinition->IsGeneral = true;
    Show({"one"});
    EXPECT_FALSE(mControl->Dock->Commands.Item("AddComment")->GetVisible());
}

TEST_F(dsrHTMLEditTest, ARefreshStaysAtTheComment) {
    Show({"one", "two"});
    Click("NextComment");
    Refresh();
    EXPECT_EQ(Placed(), "two");
}

TEST_F(dsrHTMLEditTest, ADesignerWithoutAControlAnswersNothing) {
    Show({"one"});
    mDesigner->Detach({});
    mControl = {};
    mDesigner->CommitEdit();
    EXPECT_FALSE(mDesigner->QueryCapability("FindReplace"));
    EXPECT_TRUE(mDesigner->Get("Editor").IsEmpty());
    EXPECT_EQ(mHost.Take(), "");
}

} // namespace
} // namespace paperkite::test
