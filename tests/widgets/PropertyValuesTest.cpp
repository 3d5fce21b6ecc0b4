#include "widgets/PropertyValues.h"

#include "support/ScriptedServices.h"
#include "widgets/Keys.h"
#include "widgets/PropertiesList.h"
#include "widgets/WebColours.h"
#include "widgets/frmBrowseHTMLColor.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

TEST(PropertyValuesTest, DatesAreThoseOfTheCalendar) {
    using PropertyValues::ReadDate;
    EXPECT_EQ(ReadDate("2026-12-31"), (PropertyValues::Date{2026, 12, 31}));
    EXPECT_EQ(ReadDate("2024-02-29"), (PropertyValues::Date{2024, 2, 29}));
    for (const char* text : {"", "2026-2-3", "31.12.2026", "2026-13-01", "2026-00-01", "2026-04-31",
                             "2025-02-29", "1900-02-29", "2026-12-31 ", "20 6-12-31", "0000-01-01"})
        EXPECT_FALSE(ReadDate(text)) << text;
    EXPECT_EQ(PropertyValues::DateText({7, 3, 9}), "0007-03-09");
}

TEST(PropertyValuesTest, NumbersAreReadWhole) {
    for (const char* text : {"0", "-1", "+2", "3.5", "1e3", ".5"})
        EXPECT_TRUE(PropertyValues::IsNumber(text)) << text;
    for (const char* text : {"", "x", "1x", "1,5", "+-1", "++1", "nan", "inf", "1e999", " 1"})
        EXPECT_FALSE(PropertyValues::IsNumber(text)) << text;
    EXPECT_EQ(PropertyValues::Stepped("", 1), "1");
    EXPECT_EQ(PropertyValues::Stepped("2", -1), "1");
    EXPECT_EQ(PropertyValues::Stepped("2.5", 1), "3.5");
    EXPECT_FALSE(PropertyValues::Stepped("two", 1));
}

TEST(PropertyValuesTest, WhatIsWrongIsSaidWithTheWayOut) {
    using PropertyValues::ProblemWith;
    EXPECT_EQ(ProblemWith(PropertyValueType::Number, "two"),
              "\"two\" is no number. Type digits, such as 12.");
    EXPECT_EQ(ProblemWith(PropertyValueType::Date, "soon"),
              "\"soon\" is no date. Type year, month and day, such as 2026-12-31.");
    EXPECT_EQ(ProblemWith(PropertyValueType::Color, "reddish"),
              "\"reddish\" is no color. Type a name, such as Teal, or #008080.");
    EXPECT_NE(ProblemWith(PropertyValueType::Boolean, "maybe"), "");
    EXPECT_EQ(ProblemWith(PropertyValueType::Boolean, "True"), "");
    for (const auto type :
         {PropertyValueType::Number, PropertyValueType::Date, PropertyValueType::Color,
          PropertyValueType::Boolean, PropertyValueType::String, PropertyValueType::File})
        EXPECT_EQ(ProblemWith(type, ""), "");
    EXPECT_EQ(ProblemWith(PropertyValueType::String, "anything"), "");
}

TEST(PropertyValuesTest, LongTextsAreCutBehindAWholeCharacter) {
    using PropertyValues::Quoted;
    EXPECT_EQ(Quoted(""), "\"\"");
    EXPECT_EQ(Quoted(std::string(80, 'x')), "\"" + std::string(80, 'x') + "\"");
    EXPECT_EQ(Quoted(std::string(100'000, 'x')), "\"" + std::string(80, 'x') + "…\"");
    EXPECT_EQ(Quoted(std::string(79, 'x') + "ää"), "\"" + std::string(79, 'x') + "…\"");
}

TEST(WebColoursTest, ReadsWhatPagesWrite) {
    using WebColours::Read;
    const std::int32_t teal = 32768 + 65536 * 128;
    for (const char* text : {"#008080", "008080", "Teal", " teal ", "0,128,128", "0, 128, 128"})
        EXPECT_EQ(Read(text), teal) << text;
    EXPECT_EQ(Read("#f80"), WebColours::FromComponents({255, 136, 0}));
    EXPECT_EQ(Read("dark SEA green"), WebColours::FromComponents({143, 188, 143}));
    for (const char* text : {"", "#", "#12", "#12345", "#1234567", "#00808g", "1,2", "1,2,256",
                             "1,2,-3", "1,2,x", "reddish", "# 08080"})
        EXPECT_FALSE(Read(text)) << text;
}

TEST(WebColoursTest, EveryColourReadsBackAsItIsWritten) {
    for (std::int32_t colour = 0; colour <= 0xFFFFFF; colour += 4099) {
        ASSERT_EQ(WebColours::Read(WebColours::Text(colour)), colour);
        ASSERT_EQ(WebColours::Read(WebColours::ComponentsText(colour)), colour);
        ASSERT_EQ(WebColours::FromComponents(WebColours::ToComponents(colour)), colour);
    }
}

class TypedRowTest : public testing::Test {
protected:
    Ref<PropertyItem> Select(PropertyValueType type, const std::string& value = {}) {
        auto row = mList.Add("", "row");
        row->SetValueType(type);
        row->SetValue(value);
        mList.SetSelectedItem(row);
        return row;
    }

    /// The next colour browser's author chooses that, or cancels.
    void Browse(std::optional<std::int32_t> colour) {
        Form::SetDefaultRunner([this, colour](Form& form, FormMode) {
            auto& browser = dynamic_cast<frmBrowseHTMLColor&>(form);
            mBegunWith = browser.GetSelectedColor();
            if (colour) browser.Initialize(*colour);
            colour ? form.UserEnter() : form.UserEscape();
        });
    }

    ~TypedRowTest() override { Form::SetDefaultRunner({}); }

    ScriptedServices mServices;
    PropertiesList mList;
    std::int32_t mBegunWith = -1;
};

TEST_F(TypedRowTest, AWrongValueIsKeptAndSaidToBeWrong) {
    auto row = Select(PropertyValueType::Number, "12");
    mList.BeginEdit();
    mList.UserType("twelve");
    mList.EndEdit();
    EXPECT_EQ(row->GetValue(), "twelve");
    EXPECT_NE(row->GetProblem(), "");
    row->SetValue("12");
    EXPECT_EQ(row->GetProblem(), "");
}

TEST_F(TypedRowTest, AColourIsKeptInOneForm) {
    auto row = Select(PropertyValueType::Color, "teal");
    mList.BeginEdit();
    mList.EndEdit();
    EXPECT_EQ(row->GetValue(), "teal");
    for (const auto& [typed, kept] : std::vector<std::pair<std::string, std::string>>{
             {"1,2,3", "#010203"}, {"reddish", "reddish"}, {"", ""}, {"Navy", "#000080"}}) {
        mList.BeginEdit();
        mList.UserType(typed);
        mList.EndEdit();
        EXPECT_EQ(row->GetValue(), kept);
    }
}

TEST_F(TypedRowTest, TheBrowserOfColoursFillsTheRow) {
    auto row = Select(PropertyValueType::Color, "#0000FF");
    Browse(255);
    mList.UserBrowse();
    EXPECT_EQ(mBegunWith, 65536 * 255);
    EXPECT_EQ(row->GetValue(), "#FF0000");
    EXPECT_FALSE(mList.GetInEdit());
    Browse({});
    mList.UserKeyDown(KeyF4, 0);
    EXPECT_EQ(row->GetValue(), "#FF0000");
    EXPECT_FALSE(mList.GetInEdit());
}

TEST_F(TypedRowTest, CancellingTheBrowserGoesOnWithTheEdit) {
    auto row = Select(PropertyValueType::Color, "#0000FF");
    mList.BeginEdit();
    mList.UserType("#00FF00");
    Browse({});
    mList.UserBrowse();
    EXPECT_EQ(mBegunWith, 256 * 255);
    EXPECT_TRUE(mList.GetInEdit());
    EXPECT_EQ(mList.GetEditText(), "#00FF00");
    mList.CancelEdit();
    EXPECT_EQ(row->GetValue(), "#0000FF");
}

TEST_F(TypedRowTest, AHandlerMayKeepTheBrowserAway) {
    auto row = Select(PropertyValueType::Color, "#0000FF");
    Browse(255);
    auto tie =
        mList.Events.BeforeExtendedEdit.Connect([](const auto&, bool& cancel) { cancel = true; });
    mList.UserBrowse();
    EXPECT_EQ(mBegunWith, -1);
    EXPECT_EQ(row->GetValue(), "#0000FF");
}

TEST_F(TypedRowTest, BrowsingOtherRowsBeginsTheirEdit) {
    Select(PropertyValueType::Choice);
    mList.UserBrowse();
    EXPECT_TRUE(mList.GetInEdit());
    mList.CancelEdit();
    mList.SetSelectedItem(nullptr);
    mList.UserBrowse();
    EXPECT_FALSE(mList.GetInEdit());
}

TEST_F(TypedRowTest, OnlyAChoiceCanBePutIntoARowOfChoices) {
    auto row = Select(PropertyValueType::Choice, "old");
    row->AddChoice("one", "1");
    mList.BeginEdit();
    for (const char* text : {"1", "one", "2"})
        mList.UserType(text);
    EXPECT_EQ(mList.GetEditText(), "1");
    mList.UserType("old");
    EXPECT_EQ(mList.GetEditText(), "old");
    mList.UserType("");
    mList.EndEdit();
    EXPECT_EQ(row->GetValue(), "");
}

TEST_F(TypedRowTest, ClearingIsAnEditWithoutText) {
    auto row = Select(PropertyValueType::Choice, "x");
    std::string told;
    auto tie = mList.Events.AfterEdit.Connect(
        [&](const auto&, const auto& value, const auto&, bool&) { told += "[" + value + "]"; });
    mList.UserClear();
    mList.UserClear();
    EXPECT_EQ(row->GetValue(), "");
    EXPECT_EQ(told, "[]");
    row->SetValue("y");
    row->SetReadOnly(true);
    mList.UserClear();
    EXPECT_EQ(row->GetValue(), "y");
}

TEST_F(TypedRowTest, AHiddenRowIsNotEdited) {
    auto row = Select(PropertyValueType::String, "comment");
    row->SetVisible(false);
    EXPECT_FALSE(mList.BeginEdit());
    mList.UserClear();
    EXPECT_EQ(row->GetValue(), "comment");
}

TEST_F(TypedRowTest, TheChoiceOfTheStoredValueIsShown) {
    auto row = Select(PropertyValueType::Choice, "2");
    EXPECT_TRUE(row->AddChoice("one", "1"));
    EXPECT_TRUE(row->AddChoice("two", "2"));
    EXPECT_FALSE(row->AddChoice("two", "3"));
    EXPECT_TRUE(row->AddChoice("zwei", "2"));
    EXPECT_EQ(row->GetValueText(), "two");
    EXPECT_TRUE(row->HasChoice("zwei"));
    row->SetChoices({"2", "2"});
    EXPECT_EQ(row->GetChoices().size(), 1u);
    EXPECT_EQ(row->GetValueText(), "2");
}

} // namespace
} // namespace paperkite::test
