#include "links/MemberLinkDesigner.h"

#include "links/LinksFixture.h"

namespace paperkite::test {
namespace {

class MemberLinkDesignerTest : public LinksFixture {
protected:
    Ref<MemberLinkDesigner> mPanel = MakeRef<MemberLinkDesigner>("panel");
};

TEST_F(MemberLinkDesignerTest, BearsItsTextsAndBeginsEmpty) {
    EXPECT_EQ(mPanel->lblTopic->GetCaption(), "&Topic Name:");
    EXPECT_EQ(mPanel->cmdBuild->GetCaption(), "Build ...");
    EXPECT_EQ(mPanel->GethRef(), "");
    EXPECT_EQ(mPanel->NamespaceProfile + mPanel->TipPrefix, "");
    EXPECT_FALSE(mPanel->DotNetXMLFormat);
    EXPECT_EQ(mPanel->GetLayout().AllControls().size(), mPanel->Controls.Count());
}

TEST_F(MemberLinkDesignerTest, TheLinkIsTheTopicAsItStands) {
    for (const std::string& topic :
         {std::string("zoo~Dog"), std::string("  zoo ~ Dog "), std::string("a.htm"),
          std::string("javascript:alert(1)"), std::string("a\x01\nb"), std::string(100'000, 't')}) {
        mPanel->txtTopic->UserType(topic);
        EXPECT_EQ(mPanel->GethRef(), topic);
        EXPECT_TRUE(mPanel->Validate(false));
    }
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(MemberLinkDesignerTest, WithoutATopicItDoesNotValidate) {
    for (const char* topic : {"", "   "}) {
        mPanel->txtTopic->SetText(topic);
        EXPECT_FALSE(mPanel->Validate(true));
        EXPECT_EQ(TakeMessages(), "");
        EXPECT_FALSE(mPanel->Validate(false));
        EXPECT_EQ(TakeMessages(), " [warning] Please specify the Topic filename you wish to link "
                                  "to, or click Cancel\n");
    }
}

TEST_F(MemberLinkDesignerTest, BuildAsksForAnyTopicWithoutAProfile) {
    mPanel->TipPrefix = "Link to";
    mPanel->DotNetXMLFormat = true;
    mPanel->txtTopic->UserType("old");
    mPicker->Topic = "new";
    mPanel->cmdBuild->UserClick();
    EXPECT_EQ(mPicker->Take(), "any,old,xml,Link to;");
    EXPECT_EQ(mPanel->GethRef(), "new");
}

TEST_F(MemberLinkDesignerTest, BuildAsksForTheItemsOfTheProfile) {
    for (const auto& [profile, type] :
         std::initializer_list<std::pair<const char*, const char*>>{{"kite.net", "0"},
                                                                    {"kite.core", "1"},
                                                                    {"kite.db", "2"},
                                                                    {"kite.xsd", "3"},
                                                                    {"KITE.DB", "2"},
                                                                    {"Kite.Xsd", "3"},
                                                                    {"kite.source", "0"},
                                                                    {"kite.db ", "0"}}) {
        mPanel->NamespaceProfile = profile;
        mPanel->cmdBuild->UserClick();
        EXPECT_EQ(mPicker->Take(), "type " + std::string(type) + ",,plain,;") << profile;
    }
}

TEST_F(MemberLinkDesignerTest, ACancelledPickerLeavesTheTopic) {
    mPanel->txtTopic->UserType("old");
    mPanel->cmdBuild->UserClick();
    EXPECT_EQ(mPanel->GethRef(), "old");
    CurrentServices().ControlHelper = nullptr;
    EXPECT_NO_THROW(mPanel->cmdBuild->UserClick());
    EXPECT_NE(TakeMessages().find("Module: MemberLinkDesigner\nProcedure: cmdBuild_Click\n"),
              std::string::npos);
    EXPECT_EQ(mPanel->GethRef(), "old");
}

} // namespace
} // namespace paperkite::test
