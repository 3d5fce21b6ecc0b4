#include "host/window/LinksDialog.h"
#include "journeys/SearchTest.h"

#include <QAction>
#include <QComboBox>
#include <QStackedWidget>
#include <QTreeWidget>

// An author looks which links lead nowhere, goes to one, and mends it.

namespace paperkite::test {
namespace {

class LinksWindowTest : public SearchTest {
protected:
    LinksDialog& Open() {
        mWindow->GetAction("CheckLinks")->trigger();
        Settle();
        for (auto* dialog : mWindow->findChildren<QDialog*>())
            if (auto* links = dynamic_cast<LinksDialog*>(dialog)) return *links;
        throw std::logic_error("There is no dialog of links");
    }
    QTreeWidget& List(LinksDialog& dialog) { return In<QTreeWidget>(dialog, "Links"); }
    std::string Rows(LinksDialog& dialog) {
        std::string rows;
        for (int row = 0; row < List(dialog).topLevelItemCount(); ++row) {
            const auto* item = List(dialog).topLevelItem(row);
            rows += (item->text(0) + "|" + item->text(2) + "|" + item->text(3)).toStdString() + ";";
        }
        return rows;
    }
    std::string Told(LinksDialog& dialog, const char* label) {
        return In<QLabel>(dialog, label).text().toStdString();
    }
    static std::string Link(const std::string& address, const std::string& caption) {
        return "<a href=\"" + address + "\">" + caption + "</a>";
    }
};

TEST_F(LinksWindowTest, WhatLeadsNowhereIsListedAndEnterGoesToTheComment) {
    OpenZooWith(
        CommentOn(kCat, "<p>Hunts " + Link("zoo~animals~Mouse.html", "the mouse") + "</p>") +
        CommentOn(kDog, "<p>Chases " + Link("zoo~animals~Cat.html", "the cat") + "</p>"));
    ClickItem(kDog);
    LinksDialog& dialog = Open();
    ASSERT_TRUE(dialog.isVisible());
    EXPECT_EQ(Rows(dialog), "zoo ~ animals ~ Cat|the mouse|zoo~animals~Mouse.html;");
    EXPECT_EQ(Told(dialog, "Result"), "2 links, 1 of them leads nowhere.");
    EXPECT_EQ(Told(dialog, "Problem").find("Leads nowhere. There is no item \"zoo~animals~Mouse\""),
              0u)
        << Told(dialog, "Problem");
    List(dialog).setFocus();
    QTest::keyClick(&List(dialog), Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([&] { return Selected() == kCat; })) << Selected();
}

TEST_F(LinksWindowTest, AllLinksAreShownWhereThatIsChosen) {
    OpenZooWith(CommentOn(kDog, Link("zoo~animals~Cat.html", "the cat") + " " +
                                    Link("https://example.org", "outside")));
    LinksDialog& dialog = Open();
    EXPECT_EQ(In<QStackedWidget>(dialog, "Pages").currentWidget()->objectName(), QString("Note"));
    EXPECT_EQ(Told(dialog, "Note"),
              "Every link leads somewhere.\nChoose “All links” to see where.");
    EXPECT_FALSE(In<QPushButton>(dialog, "GoTo").isEnabled());
    In<QComboBox>(dialog, "Shown").setCurrentIndex(1);
    EXPECT_EQ(Rows(dialog), "zoo ~ animals ~ Dog|the cat|zoo~animals~Cat.html;"
                            "zoo ~ animals ~ Dog|outside|https://example.org;");
    EXPECT_EQ(Told(dialog, "Problem"), "Leads to the item zoo ~ animals ~ Cat.");
    Click(dialog, "GoTo");
    EXPECT_TRUE(WaitUntil([&] { return Selected() == kDog; })) << Selected();
}

TEST_F(LinksWindowTest, WhatIsWrittenMeanwhileCountsWhenItIsCheckedAgain) {
    OpenZoo();
    LinksDialog& dialog = Open();
    EXPECT_EQ(Told(dialog, "Result"), "The comments hold no links.");
    EXPECT_EQ(Told(dialog, "Note").find("The comments hold no links yet.\nSelect words"), 0u);
    auto comment = MakeRef<TaggedComment>("new");
    comment->SetTagIdentifier("##");
    comment->SetText(Link("javascript:x", "a script"));
    mWindow->GetWorkspace()->GetSession().GetProject()->GetComments()->Load(kCat, comment, {});
    Click(dialog, "Again");
    EXPECT_EQ(Rows(dialog), "zoo ~ animals ~ Cat|a script|javascript:x;");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(LinksWindowTest, AnAddressOfAnyLengthLeavesTheDialogAsLargeAsItIs) {
    const std::string many(100'000, 'a');
    OpenZooWith(CommentOn(kCat, Link(many + ".html", many)) + CommentOn(kDog, Link("#", "here")));
    LinksDialog& dialog = Open();
    const QSize size = dialog.size();
    List(dialog).setCurrentItem(List(dialog).topLevelItem(0));
    Settle();
    EXPECT_EQ(dialog.size(), size);
    EXPECT_LE(dialog.minimumSizeHint().width(), size.width());
    EXPECT_NE(Told(dialog, "Problem").find("There is no item"), std::string::npos);
}

TEST_F(LinksWindowTest, WhatWasSaidOfAnItemThatIsGoneGoesWithTheNextJump) {
    OpenZooWith(CommentOn("zoo~animals~Emu", Link("zoo~animals~Gone.html", "one")) +
                CommentOn(kCat, Link("zoo~animals~Gone.html", "two")));
    LinksDialog& dialog = Open();
    ASSERT_EQ(List(dialog).topLevelItemCount(), 2);
    const auto goTo = [&](int row) {
        List(dialog).setCurrentItem(List(dialog).topLevelItem(row));
        Click(dialog, "GoTo");
    };
    goTo(1);
    EXPECT_NE(Status().find("This item is gone"), std::string::npos) << Status();
    goTo(0);
    EXPECT_TRUE(WaitUntil([&] { return Selected() == kCat; })) << Selected();
    EXPECT_EQ(Status().find("This item is gone"), std::string::npos) << Status();
}

TEST_F(LinksWindowTest, ItIsReachedByTheKeyboardAndGoesWithItsProject) {
    OpenZoo();
    const QAction* action = mWindow->GetAction("CheckLinks");
    EXPECT_EQ(action->shortcut().toString(), QString("Ctrl+Shift+K"));
    EXPECT_TRUE(action->isEnabled());
    LinksDialog& dialog = Open();
    In<QComboBox>(dialog, "Shown").setFocus();
    std::string reached;
    for (QWidget* widget = &In<QComboBox>(dialog, "Shown"); reached.size() < 200;) {
        widget = widget->nextInFocusChain();
        if (widget == &In<QComboBox>(dialog, "Shown")) break;
        if (widget->focusPolicy() & Qt::TabFocus && !widget->objectName().startsWith("qt_"))
            reached += widget->objectName().toStdString() + " ";
    }
    EXPECT_EQ(reached.find("Links Again GoTo Close"), 0u) << reached;
    ASSERT_TRUE(mWindow->CloseProject());
    EXPECT_FALSE(action->isEnabled());
    EXPECT_EQ(mWindow->findChild<QDialog*>("LinksDialog"), nullptr);
}

} // namespace
} // namespace paperkite::test
