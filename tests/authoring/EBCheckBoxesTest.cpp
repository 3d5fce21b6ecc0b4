#include "authoring/EBCheckBoxes.h"

#include "authoring/ScriptedTheme.h"
#include "support/EventLog.h"
#include "support/ModelServices.h"
#include "widgets/FramePanel.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

/// Every letter is ten pixels wide, the ellipsis too.
class TenPixelLetters : public TextMeasure {
public:
    std::string FitWithEllipsis(const std::string& text, int width) const override {
        Widths.push_back(width);
        if (static_cast<int>(text.size()) * 10 <= width) return text;
        const int letters = std::max(0, width / 10 - 1);
        return text.substr(0, static_cast<std::size_t>(letters)) + "…" + std::string("\0rest", 5);
    }
    int CheckBoxGlyphWidth() const override { return 20; }

    mutable std::vector<int> Widths;
};

class EBCheckBoxesTest : public testing::Test {
protected:
    EBCheckBoxesTest() {
        CurrentServices().ThemeColours = nullptr;
        CurrentServices().TextMeasure = mMeasure;
        mBar->SetRowHeight(20);
        mBar->SetScaleMode(3);
        mBar->SetTabIndex(7);
        mBar->AddGroup("flags", "Flags")->SetMargins(5, 10);
        mItem = mBar->GetGroup("flags")->Add("checkboxcontainer", {});
        mFrame->SetWidth(3000);
        mItem->SetControl(mFrame);
    }
    Ref<CheckBox> Add(const std::string& caption, const std::string& tag = "#tag") {
        return mBoxes.AddCheckbox(*mBar, *mItem, caption, tag, "Tip of " + caption);
    }

    ModelServices mServices;
    std::shared_ptr<TenPixelLetters> mMeasure = std::make_shared<TenPixelLetters>();
    Ref<ExplorerBar> mBar = MakeRef<ExplorerBar>("eb");
    Ref<FramePanel> mFrame = MakeRef<FramePanel>("frame");
    Ref<GroupItem> mItem;
    EBCheckBoxes mBoxes;
};

TEST_F(EBCheckBoxesTest, ABoxStandsOnTheFrameOfTheItem) {
    const auto box = Add("Obsolete", "#old");
    EXPECT_TRUE(box->GetParent() == mFrame.get());
    EXPECT_EQ(box->GetCaption(), "Obsolete");
    EXPECT_EQ(box->GetTag(), "#old");
    EXPECT_EQ(box->GetToolTipText(), "Tip of Obsolete");
    EXPECT_TRUE(box->GetVisible());
    EXPECT_EQ(box->GetBounds(), (Bounds{0, 0, 3000, 300}));
    EXPECT_EQ(mFrame->GetTag(), "300");
    EXPECT_EQ(mFrame->GetHeight(), 300);
    EXPECT_DOUBLE_EQ(mItem->GetHeight(), 1);
}

TEST_F(EBCheckBoxesTest, BoxesStandBelowEachOther) {
    for (const char* caption : {"One", "Two", "Three"})
        Add(caption);
    EXPECT_EQ(mBoxes.Count(), 3u);
    EXPECT_EQ(mBoxes.Item(2)->GetTop(), 300);
    EXPECT_EQ(mBoxes.Item(3)->GetTop(), 600);
    EXPECT_EQ(mFrame->GetHeight(), 900);
    EXPECT_DOUBLE_EQ(mItem->GetHeight(), 3);
    EXPECT_EQ(mBoxes.CaptionOf(3), "Three");
    EXPECT_EQ(ErrorNumberOf([&] { mBoxes.Item(0); }), 9);
    EXPECT_EQ(ErrorNumberOf([&] { mBoxes.Item(4); }), 9);
    EXPECT_EQ(ErrorNumberOf([&] { mBoxes.CaptionOf(4); }), 9);
}

TEST_F(EBCheckBoxesTest, TheTabOrderGoesOnBehindTheBar) {
    EXPECT_EQ(Add("One")->GetTabIndex(), 8);
    EXPECT_EQ(Add("Two")->GetTabIndex(), 9);
    EXPECT_EQ(mBar->GetTag(), "9");
    mBar->SetTag("20");
    EXPECT_EQ(Add("Three")->GetTabIndex(), 21);
}

TEST_F(EBCheckBoxesTest, TheGroupIsOpened) {
    mBar->GetGroup("flags")->SetCollapsed(true);
    Add("One");
    EXPECT_FALSE(mBar->GetGroup("flags")->GetCollapsed());
}

TEST_F(EBCheckBoxesTest, FrameAndBoxTakeTheColourOfTheBar) {
    mBar->SetBackColor(0xABCDEF);
    const auto box = Add("One");
    EXPECT_EQ(mFrame->GetBackColor(), Colour(0xABCDEF));
    EXPECT_EQ(box->GetBackColor(), Colour(0xABCDEF));
    EXPECT_EQ(box->GetForeColor(), Colour());
}

TEST_F(EBCheckBoxesTest, AThemeGivesTheColoursOfGroupAndText) {
    mBoxes.SetupExplorerBar(*mBar);
    EXPECT_EQ(mBar->GetGroupBackColor(), Colour());
    const auto theme = std::make_shared<ScriptedTheme>();
    CurrentServices().ThemeColours = theme;
    mBoxes.SetupExplorerBar(*mBar);
    EXPECT_EQ(mBar->GetGroupBackColor(), Colour(0x112233));
    EXPECT_EQ(Add("One")->GetForeColor(), Colour(0x445566));
    theme->Active = false;
    theme->Colours[3802] = 0x999999;
    mBoxes.SetupExplorerBar(*mBar);
    EXPECT_EQ(mBar->GetGroupBackColor(), Colour(0x112233));
    EXPECT_EQ(Add("Two")->GetForeColor(), Colour());
    theme->Active = true;
    theme->Colours.clear();
    mBoxes.SetupExplorerBar(*mBar);
    EXPECT_EQ(mBar->GetGroupBackColor(), Colour(0x112233));
}

TEST_F(EBCheckBoxesTest, BoxesFollowTheWidthOfTheBar) {
    Add("One");
    mBar->SetWidth(230);
    mBoxes.ResizeCheckboxes(*mBar);
    // 230 less twice 5 + 10, and 3.
    EXPECT_EQ(mBoxes.Item(1)->GetWidth(), 203 * 15);
    EXPECT_EQ(mMeasure->Widths, std::vector<int>{203 - 20});
    mBar->SetScaleMode(0);
    mBar->SetWidth(230 * 15);
    mBoxes.ResizeCheckboxes(*mBar);
    EXPECT_EQ(mBoxes.Item(1)->GetWidth(), 203 * 15);
}

TEST_F(EBCheckBoxesTest, ABarNarrowerThanItsMarginsLeavesTheBoxes) {
    Add("One");
    const Bounds before = mBoxes.Item(1)->GetBounds();
    for (const int width : {0, 10, 27}) {
        mBar->SetWidth(width);
        mBoxes.ResizeCheckboxes(*mBar);
        EXPECT_EQ(mBoxes.Item(1)->GetBounds(), before);
        EXPECT_EQ(mBoxes.Item(1)->GetCaption(), "One");
    }
    mBar->SetWidth(28);
    mBoxes.ResizeCheckboxes(*mBar);
    EXPECT_EQ(mBoxes.Item(1)->GetWidth(), 15);
}

TEST_F(EBCheckBoxesTest, ACaptionIsShortenedAndComesBack) {
    Add("Obsolete");
    mBar->SetWidth(27 + 20 + 50);
    mBoxes.ResizeCheckboxes(*mBar);
    EXPECT_EQ(mBoxes.Item(1)->GetCaption(), "Obso…");
    EXPECT_EQ(mBoxes.CaptionOf(1), "Obsolete");
    mBar->SetWidth(27 + 20 + 80);
    mBoxes.ResizeCheckboxes(*mBar);
    EXPECT_EQ(mBoxes.Item(1)->GetCaption(), "Obsolete");
}

TEST_F(EBCheckBoxesTest, WithoutAMeasureTextsAreTakenToFit) {
    CurrentServices().TextMeasure = nullptr;
    Add("Obsolete");
    mBar->SetWidth(30);
    mBoxes.ResizeCheckboxes(*mBar);
    EXPECT_EQ(mBoxes.Item(1)->GetCaption(), "Obsolete");
}

TEST_F(EBCheckBoxesTest, ABarWithoutBoxesIsResizedInPeace) {
    mBar->SetWidth(300);
    EXPECT_NO_THROW(mBoxes.ResizeCheckboxes(*mBar));
    EXPECT_TRUE(mMeasure->Widths.empty());
}

TEST_F(EBCheckBoxesTest, ClearTakesAllBoxesOff) {
    std::string clicked;
    mBoxes.SetClickHandler([&](std::size_t index) { clicked += std::to_string(index); });
    const auto first = Add("One");
    const auto second = Add("Two");
    second->UserClick();
    EXPECT_EQ(clicked, "2");
    mBoxes.Clear();
    EXPECT_EQ(mBoxes.Count(), 0u);
    EXPECT_EQ(mFrame->Controls.Count(), 0u);
    first->SetChecked(true);
    EXPECT_EQ(clicked, "2");
    mBoxes.Clear();
    mFrame->SetTag({});
    EXPECT_EQ(Add("Three")->GetTop(), 0);
    EXPECT_EQ(mBoxes.CaptionOf(1), "Three");
    mBoxes.Item(1)->UserClick();
    EXPECT_EQ(clicked, "21");
}

TEST_F(EBCheckBoxesTest, TheBoxesAreThereInTheirOrder) {
    EXPECT_TRUE(mBoxes.GetCheckBoxes().empty());
    const auto first = Add("One");
    const auto second = Add("Two");
    ASSERT_EQ(mBoxes.GetCheckBoxes().size(), 2u);
    EXPECT_TRUE(mBoxes.GetCheckBoxes()[0] == first);
    EXPECT_TRUE(mBoxes.GetCheckBoxes()[1] == second);
    mBoxes.Clear();
    EXPECT_TRUE(mBoxes.GetCheckBoxes().empty());
}

// Failures

TEST_F(EBCheckBoxesTest, AnItemWithoutAFrameIsReported) {
    mItem->SetControl(nullptr);
    EXPECT_FALSE(Add("One"));
    EXPECT_EQ(mServices.TakeReports(), "EBCheckBoxes.AddCheckbox (91)\n");
    EXPECT_EQ(mBoxes.Count(), 0u);
    mItem->SetControl(mFrame);
    EXPECT_TRUE(Add("Two"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(EBCheckBoxesTest, AThemeThatFailsIsReported) {
    struct FailingTheme : ScriptedTheme {
        std::optional<std::uint32_t> ColourOf(int, int, int) const override {
            RaiseError(ErrorNumber::InvalidCall);
        }
    };
    CurrentServices().ThemeColours = std::make_shared<FailingTheme>();
    mBoxes.SetupExplorerBar(*mBar);
    EXPECT_EQ(mServices.TakeReports(), "EBCheckBoxes.SetupExplorerBar (5)\n");
    EXPECT_EQ(mBar->GetGroupBackColor(), Colour());
}

TEST_F(EBCheckBoxesTest, AMeasureThatFailsIsReportedForEachBox) {
    struct FailingMeasure : TenPixelLetters {
        std::string FitWithEllipsis(const std::string& text, int width) const override {
            if (text == "One") RaiseError(ErrorNumber::InvalidCall);
            return TenPixelLetters::FitWithEllipsis(text, width);
        }
    };
    Add("One");
    Add("Two");
    CurrentServices().TextMeasure = std::make_shared<FailingMeasure>();
    mBar->SetWidth(230);
    mBoxes.ResizeCheckboxes(*mBar);
    EXPECT_EQ(mServices.TakeReports(), "EBCheckBoxes.FitTextByRect (5)\n");
    EXPECT_EQ(mBoxes.Item(2)->GetWidth(), 203 * 15);
    EXPECT_EQ(mBoxes.Item(2)->GetCaption(), "Two");
    EXPECT_EQ(mBoxes.CaptionOf(1), "One");
    CurrentServices().TextMeasure = mMeasure;
    mBoxes.ResizeCheckboxes(*mBar);
    EXPECT_EQ(mBoxes.Item(1)->GetCaption(), "One");
}

TEST_F(EBCheckBoxesTest, ABarWithoutFlagsIsReported) {
    Add("One");
    mBar->RemoveGroup("flags");
    mBoxes.ResizeCheckboxes(*mBar);
    EXPECT_EQ(mServices.TakeReports(), "EBCheckBoxes.ResizeCheckboxes (5)\n");
}

TEST_F(EBCheckBoxesTest, AReportTellsBoxesAndCaptions) {
    Add("One");
    VariableDump dump;
    mBoxes.DumpVariables(dump);
    EXPECT_EQ(dump.GetText(),
              "<mCheckBoxes>\r\n<mCheckBoxes Index=\"1\">{DataObject}</mCheckBoxes>\r\n"
              "</mCheckBoxes>\r\n<mCheckBoxCaptions>\r\n"
              "<mCheckBoxCaptions Index=\"1\">One</mCheckBoxCaptions>\r\n"
              "</mCheckBoxCaptions>\r\n");
}

} // namespace
} // namespace paperkite::test
