#include "foundation/GlobalConfig.h"
#include "host/window/SpellDialog.h"
#include "host/window/SpellOptionsDialog.h"
#include "journeys/PageTest.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <cstdlib>

// Windows and dialogs as an author sees them. With PAPERKITE_PICTURES naming a folder, each is kept
// there as a picture.

namespace paperkite::test {
namespace {

constexpr const char* kDog = "zoo~animals~Dog";

class ShownWindowsTest : public PageTest, public testing::WithParamInterface<const char*> {
protected:
    ShownWindowsTest() {
        mTheme->SetScheme(IsDark() ? ColourScheme::Dark : ColourScheme::Light);
        mWindow->resize(1200, 800);
        OpenProject();
        ClickExpander("zoo~animals");
        OpenPage(kDog);
        TypeOnPage("Guards the huose and barks.");
        EXPECT_TRUE(
            WaitUntil([&] { return TextOf(kDog, "##") == "Guards the huose and barks.;"; }));
    }
    ~ShownWindowsTest() override { mTheme->SetScheme(ColourScheme::Light); }

    static bool IsDark() { return std::string(GetParam()) == "dark"; }

    /// What is to be seen has the ground of its scheme, and is kept where pictures are wanted.
    void Keep(QWidget& shown, const char* name) {
        // The engine paints in a process of its own, and does not say when.
        QTest::qWait(std::getenv("PAPERKITE_PICTURES") ? 700 : 50);
        const QImage image = shown.grab().toImage();
        const int ground = image.pixelColor(2, image.height() - 3).lightness();
        EXPECT_EQ(ground < 128, IsDark()) << name;
        const char* folder = std::getenv("PAPERKITE_PICTURES");
        if (!folder) return;
        const QString file = QString("%1/%2-%3.png").arg(folder, name, GetParam());
        EXPECT_TRUE(image.save(file)) << file.toStdString();
    }
};

TEST_P(ShownWindowsTest, TheBarAndThePageInItsViews) {
    Keep(*mWindow, "page");
    const auto& page = Editor().InPlaceEditor;
    page->FlatStrip->UserClick(2);
    WaitForPage();
    Keep(*mWindow, "page-html");
    page->FlatStrip->UserClick(3);
    WaitForPage();
    Keep(*mWindow, "page-preview");
}

TEST_P(ShownWindowsTest, TheToolbarForm) {
    mWindow->GetAction("TypesToolbar")->trigger();
    Settle();
    ASSERT_TRUE(Editor().GetShowCombo());
    Keep(*mWindow, "toolbar");
    mWindow->GetAction("TypesToolbar")->trigger();
}

TEST_P(ShownWindowsTest, TheOtherTemplate) {
    Editor().SetInPlaceTemplate(GlobalConfig().Templates.Item("Classic"));
    WaitForPage();
    Keep(*mWindow, "page-classic");
}

TEST_P(ShownWindowsTest, TheDesignerOfATag) {
    ChooseTab("##remarks");
    WaitForPage();
    Keep(*mWindow, "designer");
}

TEST_P(ShownWindowsTest, TheReplaceDialog) {
    mWindow->GetAction("FindInComments")->trigger();
    for (auto* dialog : mWindow->findChildren<QDialog*>("FindDialog")) {
        dialog->findChild<QLineEdit*>("Text")->setText("the");
        dialog->findChild<QLineEdit*>("Replacement")->setText("our");
        QTest::mouseClick(dialog->findChild<QPushButton*>("Find"), Qt::LeftButton);
        Keep(*dialog, "replace");
    }
}

TEST_P(ShownWindowsTest, TheSpellingDialogs) {
    const SpellQuestion question{
        "huose", "Guards the huose and barks.", 11, {"house", "hose", "horse"}};
    SpellDialog spelling(question, mWindow.get());
    spelling.show();
    Settle();
    Keep(spelling, "spelling");
    SpellOptionsDialog options("Software\\Brindlewick\\Paperkite\\Spelling", "Spelling Options",
                               mWindow.get());
    options.show();
    Settle();
    Keep(options, "spelling-options");
}

INSTANTIATE_TEST_SUITE_P(Schemes, ShownWindowsTest, testing::Values("light", "dark"));

} // namespace
} // namespace paperkite::test
