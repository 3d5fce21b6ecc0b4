#include "widgets/HeaderBar.h"

#include "support/ScriptedServices.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

class HeaderBarTest : public testing::Test {
protected:
    HeaderBarTest() { mBar.Move(0, 0, 300, 24); }

    static Picture SomePicture() { return {"dialog-information", {}, {}}; }

    void ExpectHot(bool hot) {
        EXPECT_EQ(mBar.GetHot(), hot);
        EXPECT_EQ(mBar.GetBandColor(), hot ? HeaderBar::kHighlight : 0x80000010u);
        EXPECT_EQ(mBar.GetTextColor(), hot ? HeaderBar::kHighlightText : 0x80000009u);
    }

    HeaderBar mBar{"hdrElements"};
};

TEST_F(HeaderBarTest, TheFontFollowsLightFontAtOnce) {
    EXPECT_EQ(mBar.lblText->GetFont(), (FontDescription{"Verdana", 10, true, false}));
    mBar.SetLightFont(true);
    EXPECT_EQ(mBar.lblText->GetFont(), (FontDescription{"Tahoma", 8, false, false}));
    mBar.SetLightFont(false);
    EXPECT_TRUE(mBar.lblText->GetFont().Bold);
}

TEST_F(HeaderBarTest, WithoutAPictureTheTextTakesTheWholeWidth) {
    EXPECT_EQ(mBar.lblText->GetLeft(), 3);
    EXPECT_EQ(mBar.lblText->GetWidth(), 294);
    EXPECT_FALSE(mBar.imgPicture->GetVisible());
}

TEST_F(HeaderBarTest, APictureStandsAtItsEnd) {
    mBar.SetPicture(SomePicture());
    EXPECT_TRUE(mBar.imgPicture->GetVisible());
    EXPECT_EQ(mBar.imgPicture->GetLeft(), 3);
    EXPECT_EQ(mBar.imgPicture->GetTop(), 4);
    EXPECT_GT(mBar.lblText->GetLeft(), 3 + mBar.imgPicture->GetWidth());
    mBar.SetRightAlignedImage(true);
    EXPECT_EQ(mBar.imgPicture->GetLeft() + mBar.imgPicture->GetWidth(), 297);
    EXPECT_EQ(mBar.lblText->GetLeft(), 3);
    EXPECT_LT(mBar.lblText->GetLeft() + mBar.lblText->GetWidth(), mBar.imgPicture->GetLeft());
    mBar.Move(0, 0, 200, 40);
    EXPECT_EQ(mBar.imgPicture->GetLeft() + mBar.imgPicture->GetWidth(), 197);
    EXPECT_EQ(mBar.imgPicture->GetTop(), 12);
    mBar.Move(0, 0, 0, 0);
    EXPECT_EQ(mBar.lblText->GetWidth(), 0);
}

TEST_F(HeaderBarTest, ItLightsUpUnderThePointerWhereItIsTracked) {
    mBar.UserMouseMove(0, 0, 5, 5);
    ExpectHot(false);
    mBar.SetHotTracking(true);
    mBar.UserMouseMove(0, 0, 5, 5);
    ExpectHot(true);
    EXPECT_TRUE(mBar.ioeTracking.GetHoverRunning());
    mBar.ioeTracking.UserHover();
    EXPECT_TRUE(mBar.ioeTracking.GetHoverRunning());
    ExpectHot(true);
    mBar.ioeTracking.UserLeave();
    ExpectHot(false);
    EXPECT_FALSE(mBar.ioeTracking.GetHoverRunning());
}

TEST_F(HeaderBarTest, TurnedOffUnderThePointerItStaysHotUntilTheNextLeave) {
    mBar.SetHotTracking(true);
    mBar.UserMouseMove(0, 0, 5, 5);
    mBar.SetHotTracking(false);
    EXPECT_FALSE(mBar.GetHotTracking());
    ExpectHot(true);
    mBar.ioeTracking.UserLeave();
    ExpectHot(false);
}

TEST_F(HeaderBarTest, MouseEventsAreThoseOfTheBar) {
    mBar.SetPicture(SomePicture());
    std::string log;
    const auto note = [&](const char* what) {
        return [&log, what](int button, int shift, int x, int y) {
            log += std::string(what) + " " + std::to_string(button) + "," + std::to_string(shift) +
                   "," + std::to_string(x) + "," + std::to_string(y) + ";";
        };
    };
    auto down = mBar.Events.MouseDown.Connect(note("down"));
    auto move = mBar.Events.MouseMove.Connect(note("move"));
    auto up = mBar.Events.MouseUp.Connect(note("up"));
    auto click = mBar.Events.Click.Connect([&] { log += "click;"; });
    auto twice = mBar.Events.DblClick.Connect([&] { log += "dblclick;"; });
    mBar.UserMouseDown(1, 2, 10, 11);
    mBar.UserMouseMove(1, 0, 1, 2, HeaderBar::Part::Picture);
    mBar.UserMouseUp(1, 0, 1, 2, HeaderBar::Part::Text);
    mBar.UserClick();
    mBar.UserDblClick();
    EXPECT_EQ(log, "down 1,2,10,11;move 1,0,4,6;up 1,0," +
                       std::to_string(mBar.lblText->GetLeft() + 1) + ",2;click;dblclick;");
    mBar.SetEnabled(false);
    mBar.UserClick();
    mBar.UserMouseDown(1, 0, 0, 0);
    EXPECT_EQ(log.find("dblclick;"), log.size() - 9);
}

TEST_F(HeaderBarTest, StoresItsPropertiesInTheBag) {
    std::string told;
    auto tie = mBar.Events.PropertyChanged.Connect([&](const auto& name) { told += name; });
    mBar.SetText("Some elements");
    EXPECT_EQ(told, "Text");
    mBar.SetHotTracking(true);
    mBar.SetRightAlignedImage(true);
    mBar.SetLightFont(true);
    mBar.SetPicture(SomePicture());
    PropertyBag bag;
    mBar.UserControl_WriteProperties(bag);
    HeaderBar other;
    other.UserControl_ReadProperties(bag);
    EXPECT_TRUE(other.GetHotTracking() && other.GetRightAlignedImage() && other.GetLightFont());
    EXPECT_EQ(other.GetText(), "Some elements");
    EXPECT_EQ(other.GetPicture(), SomePicture());
    EXPECT_EQ(other.lblText->GetFont().Name, "Tahoma");
}

TEST_F(HeaderBarTest, AFailingHandlerIsReportedAndTheBarGoesOn) {
    test::ScriptedServices services;
    std::vector<Connection> ties;
    const auto fail = [](int, int, int, int) { RaiseError(ErrorNumber::ObjectNotSet); };
    ties.push_back(mBar.Events.MouseDown.Connect(fail));
    ties.push_back(mBar.Events.MouseMove.Connect(fail));
    ties.push_back(mBar.Events.MouseUp.Connect(fail));
    ties.push_back(mBar.Events.Click.Connect([] { RaiseError(ErrorNumber::ObjectNotSet); }));
    ties.push_back(mBar.Events.DblClick.Connect([] { RaiseError(ErrorNumber::ObjectNotSet); }));
    ties.push_back(mBar.Events.PropertyChanged.Connect(
        [](const std::string&) { RaiseError(ErrorNumber::ObjectNotSet); }));
    EXPECT_NO_THROW(mBar.UserMouseDown(1, 0, 1, 1));
    EXPECT_NO_THROW(mBar.UserMouseMove(1, 0, 1, 1));
    EXPECT_NO_THROW(mBar.UserMouseUp(1, 0, 1, 1));
    EXPECT_NO_THROW(mBar.UserClick());
    EXPECT_NO_THROW(mBar.UserDblClick());
    EXPECT_NO_THROW(mBar.SetText("new"));
    EXPECT_EQ(mBar.GetText(), "new");
    EXPECT_EQ(services.Messages->Shown.size(), 6u);
    for (const std::string& report : services.Messages->Shown)
        EXPECT_NE(report.find("Module: HeaderBar\n"), std::string::npos) << report;
}

TEST_F(HeaderBarTest, DumpsItsFieldsInTheirOrder) {
    VariableDump dump;
    mBar.DumpVariables(dump);
    std::size_t at = 0;
    for (const char* field : {"<pLightFont", "<pRightAlignedImage", "<pHotTracking", "<pPicture",
                              "<ioeTracking", "<iHot", "<iColors"}) {
        const std::size_t found = dump.GetText().find(field);
        ASSERT_NE(found, std::string::npos) << field;
        EXPECT_GE(found, at) << field;
        at = found;
    }
}

} // namespace
} // namespace paperkite
