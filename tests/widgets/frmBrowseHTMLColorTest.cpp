#include "widgets/frmBrowseHTMLColor.h"

#include "foundation/Text.h"
#include "support/ScriptedServices.h"

#include <gtest/gtest.h>

#include <set>

namespace paperkite::test {
namespace {

constexpr std::int32_t kWhite = 255 + 256 * 255 + 65536 * 255;

class frmBrowseHTMLColorTest : public testing::Test {
protected:
    int Find(const std::string& name) const {
        for (int index = 0; index < mForm.cboColor->GetListCount(); ++index)
            if (mForm.cboColor->GetList(index) == name) return index;
        return -1;
    }

    void Show(const std::function<void()>& author) {
        mForm.SetRunner([author](Form&, FormMode) { author(); });
        mForm.Show(FormMode::Modal);
    }

    std::string Messages() { return Join(std::exchange(mServices.Messages->Shown, {}), "\n"); }

    ScriptedServices mServices;
    frmBrowseHTMLColor mForm;
};

TEST_F(frmBrowseHTMLColorTest, BearsItsTexts) {
    EXPECT_EQ(mForm.GetCaption(), "Browse Color");
    EXPECT_EQ(mForm.cmdCustom->GetCaption(), "&Custom...");
    EXPECT_FALSE(mForm.cpkWork->GetVisible());
    EXPECT_TRUE(mForm.GetCancelled());
}

TEST_F(frmBrowseHTMLColorTest, TheListFollowsTheRule) {
    const auto& list = *mForm.cboColor;
    ASSERT_EQ(list.GetListCount(), 136);
    EXPECT_EQ(list.GetList(0), "Alice Blue");
    EXPECT_EQ(list.GetList(135), "Yellow Green");
    const int antique = Find("Antique White");
    EXPECT_EQ(antique, 1);
    EXPECT_EQ(list.GetItemData(antique), "14150650");
    EXPECT_EQ(list.GetItemToolTipText(antique), "#FAEBD7\n250,235,215");
    EXPECT_EQ(list.GetItemKey(antique), "#FAEBD7");
    std::set<std::string> names;
    for (int index = 0; index < list.GetListCount(); ++index) {
        const std::int32_t colour = std::stoi(list.GetItemData(index));
        EXPECT_EQ(list.GetItemKey(index), WebColours::Text(colour));
        EXPECT_EQ(list.GetItemToolTipText(index),
                  WebColours::Text(colour) + "\n" + WebColours::ComponentsText(colour));
        names.insert(list.GetList(index));
    }
    EXPECT_EQ(names.size(), 136u);
}

TEST_F(frmBrowseHTMLColorTest, TwoRowsDifferFromTheirNames) {
    const auto& list = *mForm.cboColor;
    EXPECT_EQ(list.GetItemData(0), "52896");
    EXPECT_EQ(list.GetItemToolTipText(0), "#A0CE00\n160,206,0");
    const int diamond = Find("Blanche Diamond");
    EXPECT_EQ(list.GetItemData(diamond), "13495295");
    EXPECT_EQ(list.GetItemToolTipText(diamond), "#FFEBCD\n255,235,205");
}

TEST_F(frmBrowseHTMLColorTest, TheNamesStandInTheirOrder) {
    std::vector<std::string> names;
    for (int index = 0; index < mForm.cboColor->GetListCount(); ++index)
        names.push_back(mForm.cboColor->GetList(index));
    EXPECT_EQ(Join(names, ", "),
              "Alice Blue, Antique White, Aqua, Aquamarine, Azure, Beige, Bisque, Black, Blanche "
              "Diamond, Blue, Blue Violet, Brown, Burlywood, Cadet Blue, Chartreuse, Chocolate, "
              "Coral, Corn Silk, Cornflower Blue, Crimson, Dark Blue, Dark Cyan, Dark Golden Rod,"
              " Dark Green, Dark Grey, Dark Khaki, Dark Magenta, Dark Olive Green, Dark Orange, "
              "Dark Orchid, Dark Red, Dark Salmon, Dark Sea Green, Dark Slate Blue, Dark Slate "
              "Grey, Dark Turquoise, Dark Violet, Deep Pink, Deep Sky Blue, Dim Grey, Dodger "
              "Blue, Fire Brick, Floral White, Forest Green, Gainsboro, Ghost White, Gold, Golden"
              " Rod, Green, Green Yellow, Grey, Honeydew, Hot Pink, Indian Red, Indigo, Ivory, "
              "Khaki, Lavender, Lavender Blush, Lemon Chiffon, Light Blue, Light Coral, Light "
              "Cyan, Light Golden Rod Yellow, Light Green, Light Grey, Light Pink, Light Salmon, "
              "Light Sea Green, Light Sky Blue, Light Slate Grey, Light Steel Blue, Light Yellow,"
              " Lime, Lime Green, Linen, Magenta, Maroon, Medium Aqua Marine, Medium Blue, Medium"
              " Orchid, Medium Purple, Medium Sea Green, Medium Slate Blue, Medium Spring Green, "
              "Medium Turquoise, Medium Violet Red, Midnight Blue, Mint Cream, Misty Rose, Navajo"
              " White, Navy, Old Lace, Olive, Olive Drab, Orange, Orange Red, Orchid, Pale Golden"
              " Rod, Pale Green, Pale Turquoise, Pale Violet Red, Papaya Whip, Peach Puff, Peru, "
              "Pink, Plum, Powder Blue, Purple, Red, Rosy Brown, Royal Blue, Saddle Brown, "
              "Salmon, Sandy Brown, Sea Green, Sea Shell, Sienna, Silver, Sky Blue, Slate Blue, "
              "Slate Grey, Snow, Spring Green, Steel Blue, Tan, Teal, Thistle, Tomato, Turquoise,"
              " Violet, Wheat, White, White Smoke, Yellow, Yellow Green");
}

TEST_F(frmBrowseHTMLColorTest, SomeNamesHaveTheValuesOfPages) {
    for (const auto& [name, key] :
         std::vector<std::pair<std::string, std::string>>{{"Aqua", "#00FFFF"},
                                                          {"Dark Sea Green", "#8FBC8F"},
                                                          {"Golden Rod", "#DAA520"},
                                                          {"Light Golden Rod Yellow", "#FAFAD2"},
                                                          {"Medium Violet Red", "#C71585"},
                                                          {"Grey", "#808080"},
                                                          {"Sea Shell", "#FFF5EE"},
                                                          {"Teal", "#008080"},
                                                          {"White Smoke", "#F5F5F5"}})
        EXPECT_EQ(mForm.cboColor->GetItemKey(Find(name)), key) << name;
}

TEST_F(frmBrowseHTMLColorTest, LoadingGivesEveryRowASwatch) {
    EXPECT_FALSE(mForm.cboColor->GetItemSwatch(0));
    Show([] {});
    EXPECT_EQ(mForm.cboColor->GetItemSwatch(0), Colour(0xA0CE00u));
    for (int index = 0; index < 136; ++index)
        EXPECT_TRUE(mForm.cboColor->GetItemSwatch(index)) << index;
}

TEST_F(frmBrowseHTMLColorTest, InitializeSelectsTheNamedColour) {
    mForm.Initialize(kWhite);
    EXPECT_EQ(mForm.cboColor->GetText(), "White");
    EXPECT_EQ(mForm.chxBase->GetColor(), kWhite);
    EXPECT_EQ(mForm.swaPreview->GetColor(), kWhite);
    EXPECT_EQ(mForm.GetSelectedColor(), kWhite);
    mForm.Initialize(0);
    EXPECT_EQ(mForm.cboColor->GetText(), "Black");
    EXPECT_EQ(mForm.GetSelectedColor(), 0);
}

TEST_F(frmBrowseHTMLColorTest, AColourOutsideTheListShowsAsText) {
    const std::int32_t colour = WebColours::FromComponents({1, 2, 3});
    mForm.Initialize(colour);
    EXPECT_EQ(mForm.cboColor->GetListIndex(), -1);
    EXPECT_EQ(mForm.cboColor->GetText(), "#010203");
    EXPECT_EQ(mForm.GetSelectedColor(), colour);
    EXPECT_EQ(mForm.swaPreview->GetCaption(), "#010203\n1,2,3");
}

TEST_F(frmBrowseHTMLColorTest, TheLastRowOfAValueStaysSelected) {
    mForm.cboColor->AddItem("White again");
    mForm.cboColor->SetItemData(136, std::to_string(kWhite));
    mForm.Initialize(kWhite);
    EXPECT_EQ(mForm.cboColor->GetText(), "White again");
    mForm.cboColor->UserChoose(Find("Teal"));
    mForm.cboColor->UserChoose(Find("White"));
    EXPECT_EQ(mForm.cboColor->GetText(), "White again");
}

TEST_F(frmBrowseHTMLColorTest, HexagonAndListFollowEachOther) {
    mForm.cboColor->UserChoose(Find("Teal"));
    EXPECT_EQ(mForm.chxBase->GetColor(), WebColours::FromComponents({0, 128, 128}));
    EXPECT_EQ(mForm.swaPreview->GetColor(), mForm.chxBase->GetColor());
    for (std::size_t cell = 0; cell < mForm.chxBase->GetCells().size(); ++cell) {
        mForm.chxBase->UserClick(static_cast<int>(cell));
        EXPECT_EQ(mForm.GetSelectedColor(), mForm.chxBase->GetCells()[cell].Color) << cell;
    }
}

TEST_F(frmBrowseHTMLColorTest, TypingAColourShowsItAtOnce) {
    mForm.Initialize(kWhite);
    mForm.cboColor->UserType("#1");
    EXPECT_EQ(mForm.chxBase->GetColor(), kWhite);
    mForm.cboColor->UserType("#102030");
    EXPECT_EQ(mForm.chxBase->GetColor(), WebColours::FromComponents({16, 32, 48}));
    EXPECT_EQ(mForm.cboColor->GetText(), "#102030");
    mForm.cboColor->UserType("teal");
    EXPECT_EQ(mForm.GetSelectedColor(), WebColours::FromComponents({0, 128, 128}));
    mForm.cboColor->UserType("1,2,3");
    EXPECT_EQ(mForm.GetSelectedColor(), WebColours::FromComponents({1, 2, 3}));
}

TEST_F(frmBrowseHTMLColorTest, ATextThatIsNoColourIsNotAccepted) {
    Show([this] {
        mForm.cboColor->UserType("no color");
        mForm.UserEnter();
        EXPECT_TRUE(mForm.GetVisible());
        EXPECT_EQ(mForm.cboColor->GetText(), "no color");
        EXPECT_EQ(Messages(), "Browse Color [warning] \"no color\" is no color. Choose one from "
                              "the list, or type one, such as #FAEBD7 or 250,235,215.");
        EXPECT_EQ(mForm.GetSelectedColor(), 0);
        mForm.UserEscape();
    });
    EXPECT_TRUE(mForm.GetCancelled());
}

TEST_F(frmBrowseHTMLColorTest, NoOddTextIsAColour) {
    mForm.Initialize(kWhite);
    Show([this] {
        for (const std::string& text :
             {std::string(), std::string("   "), std::string("#"), std::string("#12"),
              std::string("#12345"), std::string("#1234567"), std::string("#GGGGGG"),
              std::string("##102030"), std::string("256,0,0"), std::string("-1,0,0"),
              std::string("1,2"), std::string("1,2,3,4"), std::string("1;2;3"),
              std::string("1,2,3x"), std::string("#10\x01"), std::string("javascript:x"),
              std::string(100'000, 'f'), std::string(100'000, ',')}) {
            mForm.cboColor->UserType(text);
            mForm.cmdOK->UserClick();
            EXPECT_TRUE(mForm.GetVisible());
            EXPECT_TRUE(mForm.GetCancelled());
            EXPECT_EQ(mForm.cboColor->GetText(), text);
            EXPECT_EQ(mForm.chxBase->GetColor(), kWhite) << "the preview stays";
            const std::string told = Messages();
            const bool blank = TrimBlanks(text).empty();
            EXPECT_TRUE(told.starts_with("Browse Color [warning] ")) << told;
            EXPECT_NE(told.find(blank ? "No color is chosen." : " is no color."), std::string::npos)
                << told;
            EXPECT_LT(told.size(), 300u);
        }
        mForm.UserEscape();
    });
    EXPECT_TRUE(mForm.GetCancelled());
}

TEST_F(frmBrowseHTMLColorTest, OKAndADoubleClickTakeTheColour) {
    Show([this] { mForm.UserEnter(); });
    EXPECT_FALSE(mForm.GetCancelled());
    EXPECT_FALSE(mForm.GetVisible());
    Show([this] {
        EXPECT_TRUE(mForm.GetCancelled());
        mForm.chxBase->UserDblClick(10);
    });
    EXPECT_FALSE(mForm.GetCancelled());
    EXPECT_EQ(mForm.GetSelectedColor(), mForm.chxBase->GetCells()[10].Color);
}

TEST_F(frmBrowseHTMLColorTest, CancelAndTheFrameLeaveItCancelled) {
    bool kept = false;
    auto tie = mForm.Events.QueryClose.Connect([&](bool& cancel) { kept = cancel; });
    Show([this] { mForm.cmdCancel->UserClick(); });
    EXPECT_TRUE(mForm.GetCancelled());
    EXPECT_FALSE(kept);
    Show([this] { mForm.UserCloseBox(); });
    EXPECT_TRUE(mForm.GetCancelled());
    EXPECT_TRUE(kept);
    EXPECT_FALSE(mForm.GetVisible());
}

TEST_F(frmBrowseHTMLColorTest, TheCustomDialogBeginsWithTheColourAndIsFollowed) {
    std::vector<std::int32_t> asked;
    std::optional<std::int32_t> answer = kWhite;
    CurrentServices().ChooseColour = [&](std::int32_t colour, std::intptr_t) {
        asked.push_back(colour);
        return answer;
    };
    mForm.Initialize(77);
    mForm.cmdCustom->UserClick();
    EXPECT_EQ(mForm.cboColor->GetText(), "White");
    answer = {};
    mForm.cmdCustom->UserClick();
    EXPECT_EQ(mForm.cboColor->GetText(), "White");
    EXPECT_EQ(asked, (std::vector<std::int32_t>{77, kWhite}));
    CurrentServices().ChooseColour = {};
    mForm.cmdCustom->UserClick();
    EXPECT_NE(Messages().find("(429)"), std::string::npos);
}

} // namespace
} // namespace paperkite::test
