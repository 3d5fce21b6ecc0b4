#include "host/window/LayoutWindow.h"
#include "host/window/LinkForm.h"
#include "journeys/PageTest.h"
#include "platform/qt/FormView.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeView>

// An author links words of a comment to an item, without knowing how a link is written.

namespace paperkite::test {
namespace {

constexpr const char* kDog = "zoo~animals~Dog";
constexpr const char* kPurr = "zoo~animals~Cat~Purr";
/// Long enough for a link to lead somewhere.
constexpr int kLinkMilliseconds = 3000;
constexpr const char* kRemarks = "##remarks";

QLineEdit* FieldOf(QWidget& window, const QString& placeholder) {
    for (auto* field : window.findChildren<QLineEdit*>())
        if (field->isVisible() && field->placeholderText() == placeholder) return field;
    return nullptr;
}

QAbstractButton* ButtonOf(QWidget& window, const QString& text) {
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->text().remove('&') == text) return button;
    return nullptr;
}

/// What the labels say, as it is to be read.
std::string TextsOf(QWidget& window) {
    std::string texts;
    for (const auto* label : window.findChildren<QLabel*>())
        texts += label->text().toStdString() + "\n";
    return texts;
}

void PressOK(QDialog& dialog) {
    auto* button = ButtonOf(dialog, "OK");
    ASSERT_TRUE(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// Chooses the kind of addresses, and types one.
void WriteURL(QDialog& dialog, const QString& address) {
    auto* kind = ButtonOf(dialog, "Link to an Internet or other URL");
    ASSERT_TRUE(kind);
    QTest::mouseClick(kind, Qt::LeftButton);
    for (auto* field : dialog.findChildren<QLineEdit*>()) {
        if (!field->isVisible()) continue;
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, address);
    }
}

/// Types a part of a name, takes the first item that is found, and says OK.
void ChooseAndAccept(QDialog& dialog, const QString& part) {
    EXPECT_TRUE(dynamic_cast<FormView*>(&dialog));
    auto* field = FieldOf(dialog, "Find an item");
    ASSERT_TRUE(field) << "the dialog has no field for names";
    QTest::keyClicks(field, part);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "finding an item is not yet accepting it";
    auto* button = ButtonOf(dialog, "OK");
    ASSERT_TRUE(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// Chooses the kind of an element in the dialog that asks for one, and says OK.
void ChooseElement(QDialog& dialog, const QString& kind) {
    for (auto* tree : dialog.findChildren<QTreeView*>()) {
        const auto found = tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, kind,
                                                1, Qt::MatchExactly | Qt::MatchRecursive);
        if (found.isEmpty()) continue;
        tree->scrollTo(found.first());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualRect(found.first()).center());
    }
    PressOK(dialog);
}

class LinkJourneyTest : public PageTest {
protected:
    /// Shows the page of the dog with a general comment on it.
    void WriteOnDog(const std::string& text) {
        OpenProject();
        ClickExpander("zoo~animals");
        OpenPage(kDog);
        TypeOnPage(text);
        ASSERT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") == text + ";"; }));
    }
    Ref<HtmlEdit> Edit() const { return Editor().GetActiveHTMLEditor(false); }
    /// Selects letters of the place that is being written on.
    void SelectLetters(int start, int length, const std::string& wanted) {
        const auto place = Edit()->GetSelection();
        ASSERT_TRUE(place);
        Page().GetSurface()->Select(static_cast<int>(place->Place), start, length);
        ASSERT_TRUE(WaitUntil([&] { return Edit()->GetSelectedText() == wanted; }))
            << Edit()->GetSelectedText();
    }
    /// In the preview of the dog, where the keyboard goes from link to link: follows one after the
    /// other, until one leads to the item. Gives where the last one led.
    std::string FollowLinksUntil(const std::string& item) {
        for (int link = 1; link <= 8 && Selected() != item; ++link) {
            ClickItem(kDog);
            WaitForPage();
            Editor().InPlaceEditor->FlatStrip->UserClick(3);
            WaitForPage();
            for (int tabs = 0; tabs <= link; ++tabs)
                PressOnPage(Qt::Key_Tab);
            PressOnPage(Qt::Key_Return);
            WaitUntil([&] { return Selected() != kDog; }, kLinkMilliseconds);
        }
        return Selected();
    }
    /// What opens boxes of its own is done outside the look for dialogs, which finds them.
    void ExpectSteps(std::function<void(QDialog&)> steps) {
        mDialogs.Expect([steps = std::move(steps)](QDialog& dialog) {
            QTimer::singleShot(0, &dialog, [steps, &dialog] { steps(dialog); });
        });
    }
    /// What the preview of the layout window shows, as text with tags.
    static std::string Preview(LayoutWindow& window) {
        return window.GetPreview()->GetDocumentHTML();
    }
    static HtmlEditView* ViewIn(LayoutWindow& window) {
        for (auto* widget : window.findChildren<QWidget*>())
            if (auto* view = dynamic_cast<HtmlEditView*>(widget); view && view->isVisible())
                return view;
        return nullptr;
    }
    void ExpectLinkTo(const QString& part) {
        mDialogs.Expect([part](QDialog& dialog) { ChooseAndAccept(dialog, part); });
    }
};

TEST_F(LinkJourneyTest, SelectedWordsBecomeALinkThatLeadsToTheMember) {
    WriteOnDog("Unlike a cat it barks");
    SelectLetters(9, 3, "cat");
    ExpectLinkTo("Purr");
    PressOnPage(Qt::Key_K, Qt::ControlModifier);
    const std::string wanted = "Unlike a <a href=\"zoo~animals~Cat~Purr.html\">cat</a> it barks;";
    EXPECT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") == wanted; })) << TextOf(kDog, "##");
    EXPECT_TRUE(IsTitleMarked());

    EXPECT_EQ(FollowLinksUntil(kPurr), kPurr);
}

TEST_F(LinkJourneyTest, FromALinkToTheLayoutOfThePageThatItLeadsTo) {
    WriteOnDog("Unlike a cat it barks");
    SelectLetters(9, 3, "cat");
    ExpectLinkTo("Purr");
    PressOnPage(Qt::Key_K, Qt::ControlModifier);
    ASSERT_TRUE(WaitUntil([&] { return TextOf(kDog, "##").find("href") != std::string::npos; }));
    ASSERT_EQ(FollowLinksUntil(kPurr), kPurr);

    mWindow->GetAction("PageLayouts")->trigger();
    LayoutWindow& layouts = *mWindow->GetLayoutWindow();
    auto* const view = ViewIn(layouts);
    ASSERT_TRUE(view);
    ASSERT_TRUE(WaitUntil([&] { return view->IsReady(); }));
    EXPECT_EQ(layouts.GetPreviewItem(), kPurr);
    MetaDocumentEdit& edit = layouts.GetEdit();
    edit.dedDocument->SetEditFocus();
    ASSERT_TRUE(WaitUntil([&] { return edit.dedDocument->IsCommandEnabled("bold"); }));
    QTest::keyClicks(view->GetSurface()->InputWidget(), "Seen here: ");
    ExpectSteps([](QDialog& dialog) { ChooseElement(dialog, "qualifiedname"); });
    ASSERT_TRUE(layouts.GetAction("AddElement")->isEnabled());
    layouts.GetAction("AddElement")->trigger();
    ASSERT_TRUE(WaitUntil([&] {
        return edit.GetDocumentHTML().find("Seen here: <!--KITEMETADATA start") !=
               std::string::npos;
    })) << edit.GetDocumentHTML();
    EXPECT_TRUE(layouts.isWindowModified());

    layouts.GetAction("ViewPreview")->trigger();
    EXPECT_NE(Preview(layouts).find("Seen here: " + std::string(kPurr)), std::string::npos)
        << Preview(layouts);
    mDialogs.ExpectBox("Discard");
    layouts.close();
    EXPECT_FALSE(layouts.isVisible());
}

TEST_F(LinkJourneyTest, WithoutASelectionTheCaptionIsTheNameOfTheItem) {
    WriteOnDog("See");
    ExpectLinkTo("Purr");
    PressOnPage(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(kDog, "##").find("<a href=\"zoo~animals~Cat~Purr.html\">Purr</a>") !=
               std::string::npos;
    })) << TextOf(kDog, "##");
}

TEST_F(LinkJourneyTest, AnOverloadIsChosenByItsParametersAndFollowedOnThePage) {
    mFolder.Write("zoo/words.h", "class Words {\npublic:\n    int put(const std::string& word);\n"
                                 "    int put(int count);\n};\n");
    WriteOnDog("Unlike a cat");
    SelectLetters(9, 3, "cat");
    std::string chosen;
    ExpectSteps([&](QDialog& dialog) {
        ChooseAndAccept(dialog, "Words::put(const");
        chosen = TextsOf(dialog);
    });
    PressOnPage(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(kDog, "##") ==
               "Unlike a <a href=\"zoo~Words~put(const std%3A%3Astring&amp;).html\">cat</a>;";
    })) << TextOf(kDog, "##");
    EXPECT_NE(chosen.find("zoo ~ Words ~ put(const std::string&)"), std::string::npos) << chosen;
    const std::string put = "zoo~Words~put(const std%3A%3Astring&)";
    EXPECT_EQ(FollowLinksUntil(put), put);
}

TEST_F(LinkJourneyTest, APageWhoseNameHoldsAQuestionMarkIsReached) {
    mFolder.Write("zoo/herd.rb", "class Herd\n  def empty?\n  end\nend\n");
    WriteOnDog("Unlike a cat");
    SelectLetters(9, 3, "cat");
    ExpectLinkTo("empty?");
    PressOnPage(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(kDog, "##") == "Unlike a <a href=\"zoo~Herd~empty%3F.html\">cat</a>;";
    })) << TextOf(kDog, "##");
    EXPECT_EQ(FollowLinksUntil("zoo~Herd~empty?"), "zoo~Herd~empty?");
}

TEST_F(LinkJourneyTest, EnterBehindATextThatMatchesNothingLeavesTheDialogOpen) {
    WriteOnDog("Unlike a cat");
    SelectLetters(9, 3, "cat");
    ExpectSteps([&](QDialog& dialog) {
        auto* field = FieldOf(dialog, "Find an item");
        ASSERT_TRUE(field);
        QTest::keyClicks(field, "Purr");
        QTest::keyClick(field, Qt::Key_Return);
        field->selectAll();
        QTest::keyClicks(field, "unicorn");
        for (int time = 0; time < 3; ++time) {
            QTest::keyClick(field, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible()) << time;
        }
        dialog.reject();
    });
    mWindow->GetAction("Link")->trigger();
    Settle();
    EXPECT_EQ(TextOf(kDog, "##"), "Unlike a cat;");
}

TEST_F(LinkJourneyTest, AnAddressThatWasNeverWrittenIsAskedAbout) {
    WriteOnDog("Unlike a cat");
    SelectLetters(9, 3, "cat");
    ExpectSteps([&](QDialog& dialog) {
        WriteURL(dialog, "http://");
        mDialogs.ExpectBox("No");
        PressOK(dialog);
        EXPECT_NE(mDialogs.GetText().find("Nothing stands behind \"http://\"."), std::string::npos)
            << mDialogs.GetText();
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    mWindow->GetAction("Link")->trigger();
    Settle();
    EXPECT_EQ(TextOf(kDog, "##"), "Unlike a cat;");
}

TEST_F(LinkJourneyTest, ACancelledDialogLeavesTheText) {
    WriteOnDog("Unlike a cat");
    SelectLetters(9, 3, "cat");
    bool came = false;
    mDialogs.Expect([&](QDialog& dialog) {
        came = true;
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    mWindow->GetAction("Link")->trigger();
    EXPECT_TRUE(came);
    Editor().CommitEdit();
    EXPECT_EQ(TextOf(kDog, "##"), "Unlike a cat;");
}

TEST_F(LinkJourneyTest, TheDesignerOfATagAsksOnceToo) {
    OpenProject();
    ClickExpander("zoo~animals");
    OpenPage(kDog);
    ChooseTab(kRemarks);
    WaitForPage();
    mWindow->activateWindow();
    Page().GetSurface()->FocusText();
    ASSERT_TRUE(WaitUntil([&] { return Edit()->IsCommandEnabled("createlink"); }));
    int came = 0;
    mDialogs.Expect([&](QDialog& dialog) {
        ++came;
        dialog.reject();
    });
    mWindow->GetAction("Link")->trigger();
    Settle();
    EXPECT_EQ(came, 1);
    ExpectLinkTo("Age");
    mWindow->GetAction("Link")->trigger();
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(kDog, kRemarks).find("<a href=\"zoo~animals~Dog~Age.html\">Age</a>") !=
               std::string::npos;
    })) << TextOf(kDog, kRemarks);
    Edit()->UserHyperlinkClick("file:///zoo~animals~Dog~Age.html");
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Age");
}

TEST_F(LinkJourneyTest, AnIncompleteLinkKeepsTheDialogOpen) {
    WriteOnDog("Unlike a cat");
    SelectLetters(9, 3, "cat");
    ExpectSteps([&](QDialog& dialog) {
        WriteURL(dialog, "");
        mDialogs.ExpectBox("OK");
        PressOK(dialog);
        EXPECT_EQ(mDialogs.GetText(), ": Please provide a URL to link to, or click Cancel");
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    mWindow->GetAction("Link")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "Unlike a cat;");
}

TEST_F(LinkJourneyTest, AScriptIsKeptAsTextOnlyWhenTheAuthorKnowsIt) {
    WriteOnDog("Unlike a cat");
    SelectLetters(9, 3, "cat");
    ExpectSteps([&](QDialog& dialog) {
        WriteURL(dialog, "javascript:alert(1)");
        mDialogs.ExpectBox("No");
        PressOK(dialog);
        EXPECT_NE(mDialogs.GetText().find("nothing ever runs it"), std::string::npos);
        EXPECT_TRUE(dialog.isVisible());
        mDialogs.ExpectBox("Yes");
        PressOK(dialog);
    });
    mWindow->GetAction("Link")->trigger();
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(kDog, "##") == "Unlike a <a href=\"javascript:alert(1)\">cat</a>;";
    })) << TextOf(kDog, "##");
    mDialogs.ExpectBox("OK");
    Edit()->UserHyperlinkClick("javascript:alert(1)");
    EXPECT_NE(mDialogs.GetText().find("is not opened from here"), std::string::npos);
}

TEST_F(LinkJourneyTest, WithoutAPlaceToWriteOnTheWindowTellsWhatToDo) {
    OpenProject();
    mWindow->GetAction("Link")->trigger();
    EXPECT_NE(Status().find("A link stands in a text"), std::string::npos) << Status();
}

} // namespace
} // namespace paperkite::test
