#include "platform/qt/Theme.h"
#include "platform/qt/ColourViews.h"
#include "platform/qt/Icons.h"
#include "widgets/WebColours.h"

#include <QApplication>
#include <QPalette>
#include <QPushButton>
#include <QToolBar>

#include <gtest/gtest.h>

#include <cmath>

namespace paperkite {
namespace {

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& first, const QColor& second) {
    const double a = Luminance(first) + 0.05;
    const double b = Luminance(second) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

class ThemeContrastTest : public testing::TestWithParam<bool> {};

TEST_P(ThemeContrastTest, EveryTextCanBeReadOnEveryGroundThatItStandsOn) {
    const QPalette palette = Theme::PaletteOf(GetParam());
    const auto check = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
        EXPECT_GE(Contrast(palette.color(text), palette.color(ground)), 4.5)
            << "text role " << text << " on ground role " << ground;
    };
    for (const auto ground :
         {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Midlight}) {
        check(QPalette::Text, ground);
        check(QPalette::PlaceholderText, ground);
    }
    check(QPalette::ButtonText, QPalette::Button);
    check(QPalette::HighlightedText, QPalette::Highlight);
    check(QPalette::Link, QPalette::Window);
    check(QPalette::Link, QPalette::Base);
}

INSTANTIATE_TEST_SUITE_P(Schemes, ThemeContrastTest, testing::Bool());

TEST(ThemeTest, TheSchemeIsSwitchedLive) {
    Theme theme(*qApp);
    theme.SetScheme(ColourScheme::Dark);
    EXPECT_TRUE(theme.IsDark());
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), QColor("#1b1e20"));
    EXPECT_EQ(QIcon::themeName(), "breeze-dark");
    theme.SetScheme(ColourScheme::Light);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor("#eff0f1"));
    EXPECT_EQ(QIcon::themeName(), "breeze");
}

TEST(ThemeTest, TextGrowsToTwiceItsSizeAndNoFurther) {
    const double size = QApplication::font().pointSizeF();
    Theme theme(*qApp);
    theme.SetTextScale(150);
    EXPECT_NEAR(QApplication::font().pointSizeF(), size * 1.5, 0.01);
    theme.SetTextScale(900);
    EXPECT_NEAR(QApplication::font().pointSizeF(), size * 2, 0.01);
    theme.SetTextScale(100);
    EXPECT_NEAR(QApplication::font().pointSizeF(), size, 0.01);
}

TEST(ThemeTest, WhatStandsAroundTextGrowsWithIt) {
    Theme theme(*qApp);
    theme.SetTextScale(200);
    QPushButton button("Go to the Comment");
    button.ensurePolished();
    const QFontMetrics letters = button.fontMetrics();
    EXPECT_GE(button.sizeHint().width(),
              letters.horizontalAdvance(button.text()) + letters.height());
    EXPECT_EQ(Theme::Scaled(130), 260);
    theme.SetTextScale(100);
    EXPECT_EQ(Theme::Scaled(130), 130);
}

TEST(ThemeTest, IconsOfABarFollowItsLetters) {
    QToolBar bar;
    QFont letters = bar.font();
    letters.setPixelSize(14);
    bar.setFont(letters);
    Icons::SizeWithText(bar);
    EXPECT_EQ(bar.iconSize(), QSize(16, 16));
    letters.setPixelSize(21);
    bar.setFont(letters);
    EXPECT_EQ(bar.iconSize(), QSize(24, 24));
}

TEST(ThemeTest, TextOnANamedColourCanBeRead) {
    for (const auto& named : WebColours::NamedColours()) {
        const QColor ground = ToQColor(named.Color);
        EXPECT_GE(Contrast(ground, TextColourOn(ground)), 4.5) << named.Text;
    }
}

TEST(IconsTest, CommandsAndKindsHaveIconsOfTheTheme) {
    Theme theme(*qApp);
    for (const auto* name :
         {"Previous",     "Next",          "Properties",   "Copy",          "Paste",   "ShowFriend",
          "ShowPrivate",  "ShowInherited", "AutoExpand",   "ShowProtected", "Grouped", "Closed",
          "Open",         "AddButton",     "DeleteButton", "tick",          "other",   "flags",
          "fullpageedit", "code-class",    "enumeration"}) {
        const QIcon icon = Icons::ByName(name);
        EXPECT_FALSE(icon.isNull()) << name;
        EXPECT_FALSE(icon.pixmap(16, 16).isNull()) << name;
    }
    EXPECT_TRUE(Icons::ByName("no-such-icon-anywhere").isNull());
}

TEST(IconsTest, ThePictureOfTheListGoesBeforeTheTable) {
    Theme theme(*qApp);
    auto list = MakeRef<ImageList>();
    list->Add("copy", Picture{.Name = "edit-delete", .Path = {}, .AccessibleName = "bin"});
    EXPECT_EQ(Icons::AccessibleName(list, "Copy"), "bin");
    EXPECT_EQ(Icons::AccessibleName(list, "class"), "class");
    EXPECT_EQ(Icons::InList(list, "Copy").name(), "edit-delete");
}

} // namespace
} // namespace paperkite
