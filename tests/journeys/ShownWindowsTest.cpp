#include "foundation/GlobalConfig.h"
#include "host/window/LayoutWindow.h"
#include "host/window/LinkForm.h"
#include "host/window/SpellDialog.h"
#include "host/window/SpellOptionsDialog.h"
#include "host/window/TopicForm.h"
#include "journeys/PageTest.h"
#include "platform/qt/FormView.h"
#include "support/EnvironmentChange.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>
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
        mTheme->SetTextScale(TextScale());
        mWindow->resize(1200, 800);
        OpenProject();
        ClickExpander("zoo~animals");
        OpenPage(kDog);
        TypeOnPage("Guards the huose and barks.");
        EXPECT_TRUE(
            WaitUntil([&] { return TextOf(kDog, "##") == "Guards the huose and barks.;"; }));
    }
    ~ShownWindowsTest() override {
        mTheme->SetTextScale(100);
        mTheme->SetScheme(ColourScheme::Light);
    }

    /// Of the letters, in per cent; PAPERKITE_TEXT_SIZE names another one for pictures.
    static int TextScale() {
        const char* size = std::getenv("PAPERKITE_TEXT_SIZE");
        return size ? std::max(100, std::atoi(size)) : 100;
    }
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
        const QString size = TextScale() == 100 ? "" : QString("-text-%1").arg(TextScale());
        const QString file = QString("%1/%2%3-%4.png").arg(folder, name, size, GetParam());
        EXPECT_TRUE(image.save(file)) << file.toStdString();
    }
};

TEST_P(ShownWindowsTest, TheBarAndThePageInItsViews) {
    const auto& page = Editor().InPlaceEditor;
    const auto& edit = page->GetEditControl();
    EXPECT_EQ(edit->GetView(), HtmlView::Normal);
    EXPECT_NE(Places().find("##=Guards the huose and barks."), std::string::npos) << Places();
    Keep(*mWindow, "page");
    page->FlatStrip->UserClick(2);
    WaitForPage();
    EXPECT_EQ(edit->GetView(), HtmlView::Source);
    Keep(*mWindow, "page-html");
    page->FlatStrip->UserClick(3);
    WaitForPage();
    EXPECT_EQ(edit->GetView(), HtmlView::Normal);
    EXPECT_EQ(Places(), "") << "the preview can be written on";
    EXPECT_NE(edit->GetDocumentHTML().find("Guards the huose"), std::string::npos);
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
    const auto& edit = Editor().InPlaceEditor->GetEditControl();
    const std::string modern = edit->GetDocumentHTML();
    Editor().SetInPlaceTemplate(GlobalConfig().Templates.Item("Classic"));
    WaitForPage();
    EXPECT_NE(edit->GetDocumentHTML(), modern);
    EXPECT_NE(Places().find("##=Guards the huose and barks."), std::string::npos) << Places();
    Keep(*mWindow, "page-classic");
}

TEST_P(ShownWindowsTest, TheDesignerOfATag) {
    ASSERT_TRUE(Editor().InPlaceEditor->GetVisible());
    ChooseTab("##remarks");
    WaitForPage();
    EXPECT_FALSE(Editor().InPlaceEditor->GetVisible());
    ASSERT_TRUE(Editor().eb->GetSelectedItem());
    EXPECT_EQ(Editor().eb->GetSelectedItem()->GetKey(), "##remarks");
    Keep(*mWindow, "designer");
}

TEST_P(ShownWindowsTest, TheReplaceDialog) {
    mWindow->GetAction("FindInComments")->trigger();
    auto* dialog = mWindow->findChild<QDialog*>("FindDialog");
    ASSERT_TRUE(dialog);
    dialog->findChild<QLineEdit*>("Text")->setText("the");
    dialog->findChild<QLineEdit*>("Replacement")->setText("our");
    QTest::mouseClick(dialog->findChild<QPushButton*>("Find"), Qt::LeftButton);
    const auto* hits = dialog->findChild<QAbstractItemView*>("Hits");
    ASSERT_TRUE(hits && hits->isVisible());
    EXPECT_EQ(hits->model()->rowCount(), 1);
    EXPECT_EQ(dialog->findChild<QLabel*>("Result")->text(), "Found once.");
    Keep(*dialog, "replace");
}

TEST_P(ShownWindowsTest, TheLinksDialog) {
    const auto& store = mWindow->GetWorkspace()->GetSession().GetProject()->GetComments();
    for (const auto& [item, html] :
         {std::pair("zoo~animals~Cat", "<a href=\"zoo~animals~Mouse.html\">the mouse</a>, <a "
                                       "href=\"pictures/cat.png\">a picture of a cat</a>"),
          std::pair("zoo~animals~Dog", "<a href=\"ms-its:zoo.chm\">the old help</a>, <a "
                                       "href=\"zoo~animals~Cat.html\">the cat</a>")}) {
        auto comment = MakeRef<TaggedComment>(std::string("links of ") + item);
        comment->SetTagIdentifier("##remarks");
        comment->SetText(html);
        store->Load(item, comment, {});
    }
    mWindow->GetAction("CheckLinks")->trigger();
    auto* dialog = mWindow->findChild<QDialog*>("LinksDialog");
    ASSERT_TRUE(dialog);
    auto* links = dialog->findChild<QAbstractItemView*>("Links");
    ASSERT_TRUE(links && links->isVisible());
    EXPECT_EQ(links->model()->rowCount(), 3);
    EXPECT_EQ(dialog->findChild<QLabel*>("Result")->text(), "4 links, 3 of them lead nowhere.");
    Keep(*dialog, "links");
    dialog->close();
    for (int step = 0; step < 5; ++step)
        mWindow->GetAction("LargerText")->trigger();
    mWindow->GetAction("CheckLinks")->trigger();
    Keep(*dialog, "links-text-150");
    for (int step = 0; step < 5; ++step)
        mWindow->GetAction("SmallerText")->trigger();
}

TEST_P(ShownWindowsTest, TheSpellingDialogs) {
    const SpellQuestion question{
        "huose", "Guards the huose and barks.", 11, {"house", "hose", "horse"}};
    SpellDialog spelling(question, mWindow.get());
    spelling.show();
    Settle();
    EXPECT_EQ(spelling.findChild<QLineEdit*>("Replacement")->text(), "house");
    const auto* suggestions = spelling.findChild<QAbstractItemView*>("Suggestions");
    ASSERT_TRUE(suggestions && suggestions->isVisible());
    EXPECT_EQ(suggestions->model()->rowCount(), 3);
    Keep(spelling, "spelling");
    SpellOptionsDialog options("Software\\Brindlewick\\Paperkite\\Spelling", "Spelling Options",
                               mWindow.get());
    options.show();
    Settle();
    EXPECT_EQ(options.findChildren<QCheckBox*>().size(), 4);
    for (const auto* box : options.findChildren<QCheckBox*>())
        EXPECT_TRUE(box->isVisible()) << box->text().toStdString();
    Keep(options, "spelling-options");
}

TEST_P(ShownWindowsTest, TheLinkDialogInItsFourKinds) {
    LinkForm form(mWindow->GetWorkspace()->GetSession(),
                  {.ExistingLink = "zoo~animals~Dog~Bark.html",
                   .GetCaption = true,
                   .Caption = {},
                   .ShowExternalLinkTypes = true,
                   .DialogCaption = "Get URL",
                   .TipPrefix = "Link to",
                   .AddHTMLExtension = true},
                  kDog);
    form.Links->HelpTopicLinkDesigner->SethRef("ms-its:tools.chm::/pages/start.htm");
    form.Links->MemberLinkDesigner->txtTopic->SetText("zoo~animals~Cat");
    EXPECT_EQ(form.Members->GetChosen(), "zoo~animals~Dog~Bark");
    ViewFactory factory;
    ItemFinder::RegisterView(factory);
    FormView view(factory, form, mWindow.get());
    form.SetRunner([&](Form&, FormMode) { view.show(); });
    form.Show();
    for (const auto& group : form.Links->eb->GetGroups())
        for (const auto& kind : *group) {
            if (!kind->GetVisible()) continue;
            form.Links->eb->UserClick(kind);
            Settle();
            EXPECT_EQ(form.Links->eb->GetSelectedItem(), kind);
            Keep(view, ("link-" + kind->GetKey()).c_str());
        }
}

TEST_P(ShownWindowsTest, TheTopicDialog) {
    TopicForm form(mWindow->GetWorkspace()->GetSession(),
                   {"0", "zoo~animals~Cat", false, "Link to"});
    EXPECT_EQ(form.Members->GetChosen(), "zoo~animals~Cat");
    ViewFactory factory;
    ItemFinder::RegisterView(factory);
    FormView view(factory, form, mWindow.get());
    form.SetRunner([&](Form&, FormMode) { view.show(); });
    form.Show();
    Settle();
    Keep(view, "topic");
}

TEST_P(ShownWindowsTest, TheLayoutWindowInItsThreeViews) {
    // A picture says nothing of the machine that it was made on.
    const EnvironmentChange home("HOME", PAPERKITE_SOURCE_DIR);
    mWindow->GetAction("PageLayouts")->trigger();
    auto* layouts = mWindow->GetLayoutWindow();
    ASSERT_TRUE(layouts);
    ASSERT_TRUE(WaitUntil([&] {
        const auto pages = layouts->findChildren<QWidget*>();
        return std::any_of(pages.begin(), pages.end(), [](QWidget* widget) {
            auto* page = dynamic_cast<HtmlEditView*>(widget);
            return page && page->isVisible() && page->IsReady();
        });
    }));
    EXPECT_EQ(layouts->GetEdit().GetView(), 0);
    // Styles of the template follow the scheme of the program.
    EXPECT_TRUE(WaitUntil([&] {
        const QImage image = layouts->grab().toImage();
        const int page = image.pixelColor(image.width() - 40, image.height() / 2).lightness();
        return (page < 128) == IsDark();
    }));
    Keep(*layouts, "layout");
    layouts->GetAction("ViewSource")->trigger();
    EXPECT_EQ(layouts->GetEdit().GetView(), 1);
    Settle();
    Keep(*layouts, "layout-html");
    layouts->GetAction("ViewPreview")->trigger();
    EXPECT_EQ(layouts->GetEdit().GetView(), 2);
    EXPECT_EQ(layouts->GetPreviewItem(), kDog);
    Settle();
    Keep(*layouts, "layout-preview");
    layouts->resize(800, 560);
    layouts->GetAction("ViewNormal")->trigger();
    Settle();
    EXPECT_EQ(layouts->size(), QSize(800, 560)) << "something needs more room";
    Keep(*layouts, "layout-800x560");
}

INSTANTIATE_TEST_SUITE_P(Schemes, ShownWindowsTest, testing::Values("light", "dark"));

} // namespace
} // namespace paperkite::test
