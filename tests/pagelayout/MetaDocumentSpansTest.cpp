#include "pagelayout/MetaDocumentEditFixture.h"

// What stands for elements in the page that an author writes on, and what is pasted into it.

namespace paperkite::test {
namespace {

class MetaDocumentSpansTest : public MetaDocumentEditFixture {};

TEST_F(MetaDocumentSpansTest, ACommentLikeThoseOfTheEditorStaysTheAuthors) {
    const std::string head = "<!--KITEMETADATA start type=\"a\"-->x<!--KITEMETADATA end-->";
    mEdit.SetDocumentHTML(
        "<html><head>" + head +
        "</head><body><p><!--kiteelement1-->a<!--kiteelementx1--></p></body></html>");
    const std::string html = mEdit.GetDocumentHTML();
    EXPECT_NE(html.find("<p><!--kiteelement1-->a<!--kiteelementx1--></p>"), std::string::npos)
        << html;
    EXPECT_NE(html.find(head), std::string::npos) << html;
}

TEST_F(MetaDocumentSpansTest, BlocksInTheTextOfAnElementStayInIt) {
    for (const char* text : {"<p>block</p>", "<div>d</div> t", "a</span>x", "<a href=\"#b\">c</a>",
                             "&quot;\"<b>x</b>"}) {
        const std::string element =
            "<!--KITEMETADATA start type=\"if\"-->" + std::string(text) + "<!--KITEMETADATA end-->";
        Open("<p>A " + element + " b " + kNameTag + "</p>");
        EXPECT_EQ(Body(), "<p>A " + element + " b " + kNameTag + "</p>");
        mEdit.dedDocument->UserDocumentTouched(true);
        EXPECT_EQ(Body(), "<p>A " + element + " b " + kNameTag + "</p>");
    }
}

TEST_F(MetaDocumentSpansTest, WhatStandsAroundTheRootIsReadBackAndShownInTheSourceView) {
    const std::string front = "<!DOCTYPE html>\n<!-- ours -->\n";
    mEdit.SetDocumentHTML(front + Page("<p>a</p>") + "\n<!-- end -->");
    EXPECT_TRUE(mEdit.GetDocumentHTML().starts_with(front + "<html>"));
    EXPECT_TRUE(mEdit.GetDocumentHTML().ends_with("</html>\n<!-- end -->"));
    mEdit.fstView->UserClick(2);
    EXPECT_TRUE(Shown().starts_with(front + "<html>")) << Shown();
    mEdit.dedDocument->UserSourceChanged("<!-- mine -->\n" + Page("<p>b</p>") + "\n<!-- tail -->",
                                         true);
    mEdit.fstView->UserClick(1);
    EXPECT_EQ(mEdit.GetView(), 0);
    EXPECT_TRUE(mEdit.GetDocumentHTML().starts_with("<!-- mine -->\n<html>"));
    EXPECT_TRUE(mEdit.GetDocumentHTML().ends_with("</html>\n<!-- tail -->"));
}

TEST_F(MetaDocumentSpansTest, ALayoutWithSpansOfItsOwnIsRefusedWithAWayOut) {
    Open("<p>" + kNameTag + "</p>");
    EXPECT_FALSE(mEdit.SetDocumentHTML(Page("<p><span id=\"metaspanstart1\">x</span></p>")));
    EXPECT_NE(Messages().find("give it another id"), std::string::npos);
    Reports();
    EXPECT_EQ(Body(), "<p>" + kNameTag + "</p>");
    mEdit.fstView->UserClick(2);
    EXPECT_TRUE(mEdit.SetDocumentHTML(Page("<p><span id='metaspanstart1'>x</span></p>")));
    mEdit.fstView->UserClick(1);
    EXPECT_EQ(mEdit.GetView(), 1) << "it can be mended there";
    Messages();
    Reports();
}

TEST_F(MetaDocumentSpansTest, WhatIsPastedFromAnotherLayoutBringsItsElements) {
    Open("<p>" + kKindTag + "</p>");
    const std::string copied = "<p>K <span id=\"metaspanstart1\"></span>!</p>";
    mEdit.dedDocument->UserPartCopied("first", copied);
    Open("<p>" + kNameTag + "</p>");
    mEdit.dedDocument->UserPartPasted("first", copied);
    EXPECT_EQ(Numbers(Shown()), "1 2 ");
    EXPECT_NE(Body().find("<p>K " + kKindTag + "!</p>"), std::string::npos) << Body();
    EXPECT_NE(Body().find(kNameTag), std::string::npos) << Body();
    EXPECT_TRUE(mEdit.GetDirty());
    EXPECT_EQ(Messages(), "");
    mEdit.dedDocument->UserPartPasted("another program", copied);
    EXPECT_NE(Messages().find("its elements are not known here and were left out"),
              std::string::npos);
    EXPECT_EQ(Numbers(Shown()), "1 2 ");
}

} // namespace
} // namespace paperkite::test
