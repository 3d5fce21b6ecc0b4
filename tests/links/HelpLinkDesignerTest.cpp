#include "links/HelpLinkDesigner.h"

#include "links/LinksFixture.h"

#include <vector>

namespace paperkite::test {
namespace {

constexpr const char* kIncompleteHelp1 =
    " [warning] You must provide a filename and topic name to create a valid link to a HTML Help "
    "1.x topic\n";
constexpr const char* kIncompleteHelp2 =
    " [warning] You must provide a Namespace, Identifier (File ID) and topic name to create a "
    "valid link to a Help 2.0 topic\n";

class HelpLinkDesignerTest : public LinksFixture {
protected:
    int Type() const { return mPanel->optHelpFileType[1]->GetValue() ? 1 : 0; }
    /// The chosen type and every field.
    std::string Fields() const {
        return std::to_string(Type()) + "|" + mPanel->txtFileName->GetText() + "|" +
               mPanel->txtTopic[0]->GetText() + "|" + mPanel->txtHHNamespace->GetText() + "|" +
               mPanel->txtHHIdentifier->GetText() + "|" + mPanel->txtTopic[1]->GetText();
    }
    std::string Taken(const std::string& link) {
        mPanel->SethRef(link);
        return Fields();
    }
    std::string Visible() const {
        std::string names;
        for (const auto& control : mPanel->Controls)
            if (control->GetVisible()) names += control->GetName() + " ";
        return names;
    }

    Ref<HelpLinkDesigner> mPanel = MakeRef<HelpLinkDesigner>("panel");
};

constexpr const char* kControlsOfHelp1 =
    "optHelpFileType(0) optHelpFileType(1) lblFileName txtFileName lblTopic(0) txtTopic(0) "
    "cmdBuild(0) ";
constexpr const char* kControlsOfHelp2 =
    "optHelpFileType(0) optHelpFileType(1) lblHHNamespace txtHHNamespace lblHHIdentifier "
    "txtHHIdentifier lblTopic(1) txtTopic(1) cmdBuild(1) ";

TEST_F(HelpLinkDesignerTest, BearsItsTexts) {
    EXPECT_EQ(mPanel->optHelpFileType[0]->GetCaption(), "HTML Help 1.x file (.chm)");
    EXPECT_EQ(mPanel->optHelpFileType[1]->GetCaption(), "Help &2.0 file (.hxs)");
    EXPECT_EQ(mPanel->lblFileName->GetCaption(), "&File Name (without path):");
    EXPECT_EQ(mPanel->lblHHNamespace->GetCaption(), "&Namespace:");
    EXPECT_EQ(mPanel->lblHHIdentifier->GetCaption(), "Identifier (File &ID):");
    for (std::size_t type : {0u, 1u}) {
        EXPECT_EQ(mPanel->lblTopic[type]->GetCaption(), "&Topic Name:");
        EXPECT_EQ(mPanel->cmdBuild[type]->GetCaption(), "Build ...");
    }
    EXPECT_EQ(mPanel->GetLayout().AllControls().size(), mPanel->Controls.Count());
}

TEST_F(HelpLinkDesignerTest, BeginsEmptyWithTheFirstType) {
    EXPECT_EQ(Fields(), "0|||||");
    EXPECT_EQ(Visible(), kControlsOfHelp1);
    EXPECT_FALSE(mPanel->GetHideBuildButtons());
    EXPECT_FALSE(mPanel->DotNetXMLFormat);
    EXPECT_EQ(mPanel->GethRef(), "ms-its:::/");
}

TEST_F(HelpLinkDesignerTest, LinksOfBothFormsAreTakenApartAndReadBackUnchanged) {
    EXPECT_EQ(Taken("ms-its:help.chm::/pages/a.htm"), "0|help.chm|pages/a.htm|||");
    EXPECT_EQ(mPanel->GethRef(), "ms-its:help.chm::/pages/a.htm");
    EXPECT_EQ(Taken("ms-help://NS/ID/topic.htm"), "1|||NS|ID|topic.htm");
    EXPECT_EQ(mPanel->GethRef(), "ms-help://NS/ID/topic.htm");
}

TEST_F(HelpLinkDesignerTest, LetterCaseOfTheSchemeCounts) {
    EXPECT_EQ(Taken("MS-ITS:help.chm::/a.htm"), "0|||||");
    EXPECT_EQ(mPanel->GethRef(), "ms-its:::/");
    EXPECT_EQ(Taken("Ms-help://NS/ID/topic"), "0|||||");
    EXPECT_EQ(Taken("ms-HELP://NS/ID/topic"), "0|||||");
}

TEST_F(HelpLinkDesignerTest, AKnownFormWithTheWrongNumberOfPiecesHasEmptyFieldsOfItsType) {
    EXPECT_EQ(Taken("ms-its:help.chm"), "0|||||");
    EXPECT_EQ(Taken("ms-its:a::/b::/c"), "0|||||");
    EXPECT_EQ(Taken("ms-its:"), "0|||||");
    EXPECT_EQ(Taken("ms-help://NS/ID/sub/topic.htm"), "1|||||");
    EXPECT_EQ(mPanel->GethRef(), "ms-help:////");
    EXPECT_EQ(Taken("ms-help://"), "1|||||");
    EXPECT_EQ(Taken("ms-help://NS/ID"), "1|||||");
}

TEST_F(HelpLinkDesignerTest, EmptyPiecesCountAsPieces) {
    EXPECT_EQ(Taken("ms-its:::/"), "0|||||");
    EXPECT_EQ(Taken("ms-its:::/a.htm"), "0||a.htm|||");
    EXPECT_EQ(Taken("ms-its:help.chm::/"), "0|help.chm||||");
    EXPECT_EQ(Taken("ms-help://///"), "1|||||");
    EXPECT_EQ(Taken("ms-help:////topic"), "1|||||topic");
    EXPECT_EQ(Taken("ms-help://NS//topic"), "1|||NS||topic");
    EXPECT_EQ(Taken("ms-help://NS/ID/"), "1|||NS|ID|");
}

TEST_F(HelpLinkDesignerTest, WhatIsNoLinkOfTheseFormsClearsThePanel) {
    for (const char* link : {"", " ", "zoo~Dog.html", "http://example.org/", "ms-it", "ms-its",
                             "ms-help:/NS/ID/topic", "ms-help:", " ms-its:a::/b", "javascript:x"}) {
        mPanel->SethRef("ms-help://NS/ID/topic.htm");
        EXPECT_EQ(Taken(link), "0|||||") << link;
        EXPECT_EQ(Visible(), kControlsOfHelp1) << link;
    }
}

TEST_F(HelpLinkDesignerTest, BlanksAndOddCharactersArePiecesAsTheyWereTyped) {
    EXPECT_EQ(Taken("ms-its: help.chm ::/ a b.htm "), "0| help.chm | a b.htm |||");
    EXPECT_EQ(mPanel->GethRef(), "ms-its: help.chm ::/ a b.htm ");
    EXPECT_EQ(Taken("ms-its:a:::/b"), "0|a:|b|||");
    EXPECT_EQ(Taken("ms-its:%20::/\x01\"<>&"), "0|%20|\x01\"<>&|||");
    EXPECT_EQ(mPanel->GethRef(), "ms-its:%20::/\x01\"<>&");
    EXPECT_EQ(Taken(std::string("ms-its:a\0b::/c", 14)), std::string("0|a\0b|c|||", 10));
}

TEST_F(HelpLinkDesignerTest, LongLinksAreTakenApartLikeShortOnes) {
    const std::string longName(100'000, 'n');
    EXPECT_EQ(Taken("ms-its:" + longName + "::/" + longName),
              "0|" + longName + "|" + longName + "|||");
    std::string slashes = "ms-help://" + std::string(100'000, '/');
    EXPECT_EQ(Taken(slashes), "1|||||");
    std::string separators = "ms-its:";
    for (int count = 0; count < 33'000; ++count)
        separators += "::/";
    EXPECT_EQ(Taken(separators), "0|||||");
}

TEST_F(HelpLinkDesignerTest, DoubledPiecesAreTakenAsTheyStandOrNotAtAll) {
    EXPECT_EQ(Taken("ms-its:ms-its:a.chm::/b.htm"), "0|ms-its:a.chm|b.htm|||");
    EXPECT_EQ(mPanel->GethRef(), "ms-its:ms-its:a.chm::/b.htm");
    EXPECT_EQ(Taken("ms-its:a.chm::/::/b.htm"), "0|||||");
    EXPECT_EQ(Taken("ms-its:a.chm::/b.htms-its:a.chm::/b.htm"), "0|||||");
    EXPECT_EQ(Taken("ms-its:a.chm::/b.htm::/"), "0|||||");
    EXPECT_EQ(Taken("ms-help://ms-help://NS/ID/topic"), "1|||||");
    EXPECT_EQ(Taken("ms-help:////NS/ID/topic"), "1|||||");
    EXPECT_EQ(Taken("ms-help://NS/NS/ID/topic"), "1|||||");
    EXPECT_EQ(Taken("ms-help://NS/ID/topic/"), "1|||||");
    EXPECT_EQ(Taken("ms-its:ms-help://NS/ID/topic"), "0|||||");
    EXPECT_EQ(Taken("ms-help://ms-its:a.chm::/b.htm"), "1|||||");
}

TEST_F(HelpLinkDesignerTest, PiecesOfTheSecondFormAreTakenWithTheirBlanksAndOddCharacters) {
    EXPECT_EQ(Taken("ms-help:// NS / I D / topic "), "1||| NS | I D | topic ");
    EXPECT_EQ(mPanel->GethRef(), "ms-help:// NS / I D / topic ");
    EXPECT_EQ(Taken("ms-help://N\nS/I\x7f/t\tü"), "1|||N\nS|I\x7f|t\tü");
    EXPECT_EQ(mPanel->GethRef(), "ms-help://N\nS/I\x7f/t\tü");
    EXPECT_EQ(Taken("ms-help:// NS/ID"), "1|||||");
    EXPECT_EQ(Taken("ms-help: //NS/ID/topic"), "0|||||");
    EXPECT_EQ(Taken("ms-its :a::/b"), "0|||||");
    EXPECT_EQ(Taken("ms-its:a: :/b"), "0|||||");
}

TEST_F(HelpLinkDesignerTest, TypedSeparatorsAreNotEscapedAndDoNotReadBack) {
    mPanel->txtFileName->UserType("a::/b");
    mPanel->txtTopic[0]->UserType("c");
    EXPECT_TRUE(mPanel->Validate(false));
    EXPECT_EQ(mPanel->GethRef(), "ms-its:a::/b::/c");
    EXPECT_EQ(Taken(mPanel->GethRef()), "0|||||");
    mPanel->optHelpFileType[1]->UserClick();
    mPanel->txtHHNamespace->UserType("NS");
    mPanel->txtHHIdentifier->UserType("ID");
    mPanel->txtTopic[1]->UserType("sub/topic");
    EXPECT_EQ(mPanel->GethRef(), "ms-help://NS/ID/sub/topic");
    EXPECT_EQ(Taken(mPanel->GethRef()), "1|||||");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(HelpLinkDesignerTest, LongFieldsAreComposedAndAHundredThousandBlanksAreNothing) {
    const std::string longName(100'000, 'n');
    const std::string link = "ms-help://" + longName + "/" + longName + "/" + longName;
    EXPECT_EQ(Taken(link), "1|||" + longName + "|" + longName + "|" + longName);
    EXPECT_EQ(mPanel->GethRef(), link);
    EXPECT_TRUE(mPanel->Validate(false));
    mPanel->txtHHIdentifier->UserType(std::string(100'000, ' '));
    EXPECT_FALSE(mPanel->Validate(false));
    EXPECT_EQ(TakeMessages(), kIncompleteHelp2);
}

TEST_F(HelpLinkDesignerTest, WritingALinkTwiceIsWritingItOnce) {
    const std::string once = Taken("ms-help://NS/ID/topic");
    EXPECT_EQ(Taken("ms-help://NS/ID/topic"), once);
    mPanel->SethRef(mPanel->txtTopic[1]->GetText());
    EXPECT_EQ(Fields(), "0|||||") << "the text of one of its own fields is a link like any other";
}

TEST_F(HelpLinkDesignerTest, ChoosingATypeShowsItsControlsAndKeepsWhatWasTyped) {
    mPanel->txtFileName->UserType("help.chm");
    mPanel->txtTopic[0]->UserType("a.htm");
    mPanel->optHelpFileType[1]->UserClick();
    EXPECT_EQ(Visible(), kControlsOfHelp2);
    EXPECT_EQ(mPanel->GethRef(), "ms-help:////");
    mPanel->txtHHNamespace->UserType("NS");
    mPanel->optHelpFileType[0]->UserClick();
    EXPECT_EQ(Visible(), kControlsOfHelp1);
    EXPECT_EQ(Fields(), "0|help.chm|a.htm|NS||");
}

TEST_F(HelpLinkDesignerTest, ClearEmptiesTheFieldsInTheirOrderAndChoosesTheFirstType) {
    mPanel->SethRef("ms-its:f::/t");
    mPanel->optHelpFileType[1]->UserClick();
    mPanel->txtHHNamespace->UserType("NS");
    mPanel->txtHHIdentifier->UserType("ID");
    mPanel->txtTopic[1]->UserType("T");
    std::string order;
    std::vector<Connection> ties;
    for (const auto& field : {mPanel->txtFileName, mPanel->txtTopic[0], mPanel->txtHHNamespace,
                              mPanel->txtHHIdentifier, mPanel->txtTopic[1]})
        ties.push_back(field->Events.Change.Connect(
            [&order, &field = *field] { order += field.GetName() + " "; }));
    ties.push_back(
        mPanel->optHelpFileType[0]->Events.Click.Connect([&order] { order += "type 0"; }));
    mPanel->Clear();
    EXPECT_EQ(order, "txtFileName txtHHIdentifier txtTopic(0) txtTopic(1) txtHHNamespace type 0");
    EXPECT_EQ(Fields(), "0|||||");
    mPanel->Clear();
    EXPECT_EQ(Fields(), "0|||||");
}

TEST_F(HelpLinkDesignerTest, ValidateAsksForTheFieldsOfTheChosenTypeOnly) {
    mPanel->SethRef("ms-its:help.chm::/a.htm");
    EXPECT_TRUE(mPanel->Validate(false));
    mPanel->optHelpFileType[1]->UserClick();
    EXPECT_FALSE(mPanel->Validate(false));
    EXPECT_EQ(TakeMessages(), kIncompleteHelp2);
    mPanel->SethRef("ms-help://NS/ID/topic");
    EXPECT_TRUE(mPanel->Validate(false));
    EXPECT_EQ(TakeMessages(), "");
    mPanel->optHelpFileType[0]->UserClick();
    EXPECT_FALSE(mPanel->Validate(false));
    EXPECT_EQ(TakeMessages(), kIncompleteHelp1);
}

TEST_F(HelpLinkDesignerTest, EachFieldOfATypeIsNeeded) {
    for (const char* link : {"ms-its:::/a", "ms-its:a::/", "ms-its: ::/a", "ms-help:///ID/topic",
                             "ms-help://NS//topic", "ms-help://NS/ID/", "ms-help://NS/ /topic"}) {
        mPanel->SethRef(link);
        EXPECT_FALSE(mPanel->Validate(false)) << link;
        EXPECT_EQ(TakeMessages(), Type() == 0 ? kIncompleteHelp1 : kIncompleteHelp2) << link;
    }
}

TEST_F(HelpLinkDesignerTest, BlanksOnlyAreNothingAndSilenceSaysNothing) {
    mPanel->txtFileName->UserType("   ");
    mPanel->txtTopic[0]->UserType("a.htm");
    EXPECT_FALSE(mPanel->Validate(true));
    EXPECT_EQ(TakeMessages(), "");
    mPanel->txtFileName->UserType("\t");
    EXPECT_TRUE(mPanel->Validate(true)) << "only blanks are trimmed";
}

TEST_F(HelpLinkDesignerTest, HidingTheBuildButtonsHoldsUntilATypeIsChosen) {
    mPanel->SetHideBuildButtons(true);
    EXPECT_TRUE(mPanel->GetHideBuildButtons());
    EXPECT_FALSE(mPanel->cmdBuild[0]->GetVisible());
    EXPECT_FALSE(mPanel->cmdBuild[1]->GetVisible());
    mPanel->optHelpFileType[1]->UserClick();
    EXPECT_TRUE(mPanel->cmdBuild[1]->GetVisible());
    EXPECT_FALSE(mPanel->cmdBuild[0]->GetVisible());
    mPanel->SetHideBuildButtons(false);
    EXPECT_TRUE(mPanel->cmdBuild[0]->GetVisible());
    EXPECT_TRUE(mPanel->cmdBuild[1]->GetVisible());
}

TEST_F(HelpLinkDesignerTest, HidingTheBuildButtonsIsADesignProperty) {
    PropertyBag bag;
    mPanel->SetHideBuildButtons(true);
    mPanel->UserControl_WriteProperties(bag);
    EXPECT_TRUE(bag.ReadProperty("HideBuildButtons", false).ToBoolean());
    const auto other = MakeRef<HelpLinkDesigner>("other");
    other->UserControl_ReadProperties(bag);
    EXPECT_TRUE(other->GetHideBuildButtons());
    other->UserControl_ReadProperties(PropertyBag());
    EXPECT_FALSE(other->GetHideBuildButtons());
}

TEST_F(HelpLinkDesignerTest, BuildPutsTheChosenTopicIntoTheFieldOfItsType) {
    mPanel->DotNetXMLFormat = true;
    mPanel->txtTopic[0]->UserType("old.htm");
    mPicker->Topic = "new.htm";
    mPanel->cmdBuild[0]->UserClick();
    EXPECT_EQ(mPicker->Take(), "any,old.htm,xml,;");
    EXPECT_EQ(Fields(), "0||new.htm|||");
    mPanel->DotNetXMLFormat = false;
    mPanel->optHelpFileType[1]->UserClick();
    mPanel->cmdBuild[1]->UserClick();
    EXPECT_EQ(mPicker->Take(), "any,,plain,;");
    EXPECT_EQ(Fields(), "1||new.htm|||new.htm");
}

TEST_F(HelpLinkDesignerTest, ACancelledPickerLeavesTheTopic) {
    mPanel->txtTopic[0]->UserType("old.htm");
    mPanel->cmdBuild[0]->UserClick();
    EXPECT_EQ(Fields(), "0||old.htm|||");
}

TEST_F(HelpLinkDesignerTest, BuildingWhileBuildingIsTwoQuestions) {
    mPicker->Topic = "chosen";
    mPicker->WhileAsking = [&] {
        mPicker->WhileAsking = {};
        mPanel->cmdBuild[0]->UserClick();
    };
    mPanel->cmdBuild[0]->UserClick();
    EXPECT_EQ(mPicker->Take(), "any,,plain,;any,,plain,;");
    EXPECT_EQ(Fields(), "0||chosen|||");
}

TEST_F(HelpLinkDesignerTest, AFailureIsReportedAndLeavesTheFields) {
    mPanel->txtTopic[0]->UserType("old.htm");
    CurrentServices().ControlHelper = nullptr;
    EXPECT_NO_THROW(mPanel->cmdBuild[0]->UserClick());
    EXPECT_NE(TakeMessages().find("Module: HelpLinkDesigner\nProcedure: cmdBuild_Click\n"),
              std::string::npos);
    EXPECT_EQ(Fields(), "0||old.htm|||");
    CurrentServices().MessageBox = nullptr;
    EXPECT_FALSE(mPanel->Validate(false));
}

TEST_F(HelpLinkDesignerTest, NeverRaisesTheQuestionForATopic) {
    int raised = 0;
    const auto tie = mPanel->Events.BuildTopicName.Connect(
        [&](std::int32_t, const std::string&, const std::string&, const std::string&,
            const std::string&, std::string&) { ++raised; });
    mPanel->cmdBuild[0]->UserClick();
    EXPECT_EQ(raised, 0);
}

} // namespace
} // namespace paperkite::test
