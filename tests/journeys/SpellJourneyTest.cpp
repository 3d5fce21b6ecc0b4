#include "foundation/Error.h"
#include "foundation/SpellEngine.h"
#include "journeys/SearchTest.h"
#include "platform/spelling/SpellServices.h"

#include <QAction>
#include <QListWidget>
#include <QTextEdit>
#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <utility>

// An author has the words of an item and of the whole project checked, and chooses how.

namespace paperkite::test {
namespace {

/// Settings that can be read and not written.
class ReadOnlySettings : public RegistryHelper {
public:
    void CreateKey(RegistryHive, const std::string&) override {}
    void WriteValue(RegistryHive, const std::string&, const std::string& name, int,
                    const std::string&) override {
        RaiseError(ErrorNumber::PermissionDenied, "The setting " + name + " cannot be written");
    }
    Value ReadValue(RegistryHive, const std::string&, const std::string&) override { return {}; }
};

class SpellJourneyTest : public SearchTest {
protected:
    SpellEngine& Engine() const { return *CurrentServices().Spelling; }
    /// Answers the question for a word with a button.
    void Answer(const std::string& word, const char* button, const std::string& replacement = {}) {
        mDialogs.ExpectBehindProgress([this, word, button, replacement](QDialog& dialog) {
            if (dialog.objectName() != "SpellDialog") {
                ADD_FAILURE() << dialog.windowTitle().toStdString() << " in place of " << word;
                return dialog.reject();
            }
            EXPECT_NE(In<QTextEdit>(dialog, "Sentence").toPlainText().indexOf(word.c_str()), -1);
            if (!replacement.empty()) Fill(dialog, "Replacement", replacement);
            for (auto* choice : dialog.findChildren<QPushButton*>())
                if (choice->text().remove('&') == button)
                    return QTest::mouseClick(choice, Qt::LeftButton);
            ADD_FAILURE() << "no button " << button;
            dialog.reject();
        });
    }
    /// Whoever answers a dialog cannot wait for the one that comes out of it.
    static void AcceptSoon(QDialog& dialog) {
        QTimer::singleShot(0, &dialog, [&dialog] { dialog.accept(); });
    }
    void Check(const char* what) { mWindow->GetAction(what)->trigger(); }
    /// The words of the project's file, without its remarks.
    std::string Words() const {
        const std::string all = mFolder.Read("zoo.words");
        return all.substr(std::min(all.size(), all.find('\n') + 1));
    }
};

TEST_F(SpellJourneyTest, TheSpellCheckOfThePageAsksAndChangesAndIsTakenBack) {
    OpenZoo();
    Write(kDog, "Guards the huose.");
    mDialogs.Expect([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), "Spelling");
        EXPECT_GT(In<QListWidget>(dialog, "Suggestions").count(), 0);
        Fill(dialog, "Replacement", "house");
        QTest::keyClick(&In<QLineEdit>(dialog, "Replacement"), Qt::Key_Return);
    });
    mDialogs.ExpectBox("OK");
    mWindow->GetAction("CheckSpelling")->trigger();
    EXPECT_EQ(mDialogs.GetText(), "Spelling: The spell check completed successfully");
    EXPECT_EQ(TextOf(kDog, "##"), "Guards the house.;");
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "Guards the huose.;");
}

TEST_F(SpellJourneyTest, TheSpellCheckOfTheProjectIsOneStep) {
    OpenZoo();
    Write(kCat, "Slepes in a huose.");
    Write(kDog, "Guards teh huose.");
    const auto answer = [&](const char* button, const char* replacement) {
        mDialogs.ExpectBehindProgress([this, button, replacement](QDialog& dialog) {
            if (*replacement) Fill(dialog, "Replacement", replacement);
            for (auto* choice : dialog.findChildren<QPushButton*>())
                if (choice->text().remove('&') == button)
                    return QTest::mouseClick(choice, Qt::LeftButton);
            ADD_FAILURE() << "no button " << button;
            dialog.reject();
        });
    };
    answer("Change", "Sleeps");
    answer("Change All", "house");
    answer("Change", "the");
    mDialogs.ExpectBox("OK");
    mWindow->GetAction("CheckSpellingOfProject")->trigger();
    EXPECT_EQ(mDialogs.GetText(), "Spelling: The spell check completed successfully");
    EXPECT_EQ(TextOf(kCat, "##") + TextOf(kDog, "##"), "Sleeps in a house.;Guards the house.;");
    EXPECT_EQ(mWindow->GetAction("Undo")->text().toStdString(), "&Undo Spelling");
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kCat, "##") + TextOf(kDog, "##"), "Slepes in a huose.;Guards teh huose.;");
}

TEST_F(SpellJourneyTest, TheOptionsOfSpellingAreStored) {
    OpenZoo();
    OpenPage(kDog);
    mDialogs.Expect([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), "Spelling Options");
        auto* box = dialog.findChild<QAbstractButton*>("IgnoreUppercase");
        ASSERT_TRUE(box && box->isChecked());
        box->click();
        dialog.accept();
    });
    mWindow->GetAction("SpellingOptions")->trigger();
    EXPECT_FALSE(CurrentServices().Spelling->GetOptions().IgnoreInUpperCase);
}

TEST_F(SpellJourneyTest, EachAnswerOfTheDialogIsCarriedOut) {
    OpenZooWith(CommentOn(kDog, "foox foox foox barx barx quxx."));
    OpenPage(kDog);
    Answer("foox", "Ignore");
    Answer("foox", "Ignore All");
    Answer("barx", "Add");
    Answer("quxx", "Options …");
    mDialogs.Expect([](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName().toStdString(), "SpellOptionsDialog");
        dialog.reject();
    });
    Answer("quxx", "Cancel");
    mDialogs.ExpectBox("OK");
    Check("CheckSpelling");
    EXPECT_EQ(mDialogs.GetText(), "Spelling: The spell check has been cancelled");
    EXPECT_EQ(Words(), "barx\n!foox\n");
    EXPECT_TRUE(Engine().Check("foox") && Engine().Check("barx"));
    EXPECT_EQ(TextOf(kDog, "##"), "foox foox foox barx barx quxx.;");
}

TEST_F(SpellJourneyTest, WithoutADictionaryNothingIsSaidToBeRight) {
    CurrentServices().Spelling = MakeSpelling({{mFolder / "nowhere"}, "xx_XX", {}});
    OpenZooWith(CommentOn(kDog, "Teh huose."));
    OpenPage(kDog);
    for (const char* what : {"CheckSpelling", "CheckSpellingOfProject"}) {
        mDialogs.ExpectBox("OK");
        Check(what);
        EXPECT_TRUE(mDialogs.GetText().starts_with("Spelling: There is no spelling dictionary"))
            << mDialogs.GetText();
        EXPECT_TRUE(mDialogs.AreDone());
    }
    mDialogs.Expect([](QDialog& dialog) { AcceptSoon(dialog); });
    mDialogs.ExpectBox("OK");
    Check("SpellingOptions");
    EXPECT_TRUE(mDialogs.AreDone()) << "accepted options do not find one either";
}

TEST_F(SpellJourneyTest, ThePageIsCheckedWhateverViewIsOpen) {
    OpenZooWith(CommentOn(kDog, "Guards the huose."));
    OpenPage(kDog);
    const auto& strip = Editor().InPlaceEditor->FlatStrip;
    for (const std::size_t view : {2u, 3u}) {
        strip->UserClick(view);
        Answer("huose", "Ignore");
        mDialogs.ExpectBox("OK");
        Check("CheckSpelling");
        EXPECT_EQ(strip->GetSelectedTab()->Key, "normal");
        EXPECT_TRUE(mDialogs.AreDone()) << "the word was not asked for";
    }
}

TEST_F(SpellJourneyTest, WordsThatCannotBeKeptAreToldAndTheCheckGoesOn) {
    mFolder.Write("zoo.words/stands.here", "");
    mDialogs.ExpectBox("OK");
    OpenZooWith(CommentOn(kDog, "foox barx."));
    EXPECT_NE(mDialogs.GetText().find("zoo.words"), std::string::npos)
        << "told when the project is opened: " << mDialogs.GetText();
    OpenPage(kDog);
    Answer("foox", "Change", "fox");
    Answer("barx", "Add");
    mDialogs.ExpectBox("OK");
    Answer("barx", "Ignore");
    mDialogs.ExpectBox("OK");
    Check("CheckSpelling");
    EXPECT_EQ(mDialogs.GetText(), "Spelling: The spell check completed successfully");
    EXPECT_EQ(TextOf(kDog, "##"), "fox barx.;");

    Answer("barx", "Add");
    mDialogs.ExpectBox("OK");
    Answer("barx", "Change", "bar");
    mDialogs.ExpectBox("OK");
    Check("CheckSpellingOfProject");
    EXPECT_EQ(TextOf(kDog, "##"), "fox bar.;");
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "fox barx.;") << "each check is one step";
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "foox barx.;");
}

TEST_F(SpellJourneyTest, CancellingTheCheckOfTheProjectKeepsWhatWasDecided) {
    OpenZooWith(CommentOn(kCat, "foox foox quxx.") + CommentOn(kDog, "barx."));
    Answer("foox", "Change", "fox");
    Answer("foox", "Ignore All");
    Answer("quxx", "Options …");
    mDialogs.Expect([](QDialog& dialog) { AcceptSoon(dialog); });
    Answer("quxx", "Cancel");
    mDialogs.ExpectBox("OK");
    Check("CheckSpellingOfProject");
    EXPECT_EQ(mDialogs.GetText(), "Spelling: The spell check has been cancelled");
    EXPECT_EQ(TextOf(kCat, "##") + TextOf(kDog, "##"), "fox foox quxx.;barx.;");
    EXPECT_EQ(Words(), "!foox\n");
}

TEST_F(SpellJourneyTest, WordsThatSomebodyElseChangedAreReadWhenTheAuthorComesBack) {
    OpenZooWith(CommentOn(kDog, "foox."));
    EXPECT_FALSE(Engine().Check("foox"));
    mFolder.Write("zoo.words", "foox\n");
    mWindow->LookAtDisk();
    EXPECT_TRUE(Engine().Check("foox"));
    std::filesystem::remove(mFolder / "zoo.words");
    mFolder.Write("zoo.words/stands.here", "");
    mDialogs.ExpectBox("OK");
    mWindow->LookAtDisk();
    EXPECT_NE(mDialogs.GetText().find("zoo.words"), std::string::npos) << mDialogs.GetText();
    mWindow->LookAtDisk();
    EXPECT_TRUE(mDialogs.AreDone()) << "told once";
}

TEST_F(SpellJourneyTest, AllRulesAndFilesOfTheOptionsAreStored) {
    mFolder.Write("own.aff", "SET UTF-8\n");
    mFolder.Write("own.dic", "1\nfoox\n");
    mFolder.Write("mine.txt", "barx\n");
    OpenZoo();
    mDialogs.Expect([&](QDialog& dialog) {
        for (const char* rule : {"AlwaysSuggest", "IgnoreNumbers", "IgnoreMixedCase"})
            In<QAbstractButton>(dialog, rule).click();
        Fill(dialog, "PrimaryDictionary", mFolder / "own.dic");
        Fill(dialog, "CustomDictionary", mFolder / "mine.txt");
        AcceptSoon(dialog);
    });
    Check("SpellingOptions");
    const SpellOptions& options = Engine().GetOptions();
    EXPECT_FALSE(options.Suggest);
    EXPECT_TRUE(options.IgnoreInUpperCase);
    EXPECT_FALSE(options.IgnoreWithNumbers);
    EXPECT_TRUE(options.IgnoreInMixedCase);
    EXPECT_EQ(options.MainDictionaryFile, mFolder / "own.dic");
    EXPECT_EQ(options.CustomDictionaryFile, mFolder / "mine.txt");
    EXPECT_TRUE(Engine().Check("foox") && Engine().Check("barx"));
    EXPECT_FALSE(Engine().Check("the"));
    mDialogs.Expect([&](QDialog& dialog) {
        EXPECT_TRUE(In<QAbstractButton>(dialog, "IgnoreMixedCase").isChecked());
        EXPECT_EQ(In<QLineEdit>(dialog, "PrimaryDictionary").text().toStdString(),
                  mFolder / "own.dic");
        dialog.reject();
    });
    Check("SpellingOptions");
}

TEST_F(SpellJourneyTest, FilesThatNoCheckCanUseAreRefused) {
    mFolder.Write("words.dct", "");
    mFolder.Write("folder.txt/stands.here", "");
    OpenZoo();
    const auto refuse = [&](const char* field, const std::string& file) {
        mDialogs.Expect([=, this](QDialog& dialog) {
            Fill(dialog, "PrimaryDictionary", "");
            Fill(dialog, "CustomDictionary", "");
            Fill(dialog, field, file);
            AcceptSoon(dialog);
        });
        mDialogs.ExpectBox("OK");
    };
    refuse("PrimaryDictionary", mFolder / "words.dct");
    refuse("PrimaryDictionary", mFolder / "gone.dic");
    refuse("CustomDictionary", "mine.txt");
    refuse("CustomDictionary", mFolder / "folder.txt");
    mDialogs.Expect([](QDialog& dialog) { dialog.reject(); });
    const SpellOptions before = Engine().GetOptions();
    Check("SpellingOptions");
    EXPECT_EQ(Engine().GetOptions(), before);
    EXPECT_NE(mDialogs.GetText().find("folder.txt"), std::string::npos) << mDialogs.GetText();
}

TEST_F(SpellJourneyTest, SettingsThatCannotBeWrittenAreToldAndTheDialogStays) {
    OpenZoo();
    const auto registry =
        std::exchange(CurrentServices().Registry, std::make_shared<ReadOnlySettings>());
    mDialogs.Expect([](QDialog& dialog) { AcceptSoon(dialog); });
    mDialogs.ExpectBox("OK");
    mDialogs.Expect([](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName().toStdString(), "SpellOptionsDialog");
        dialog.reject();
    });
    Check("SpellingOptions");
    CurrentServices().Registry = registry;
    EXPECT_EQ(mDialogs.GetText(), "Spelling Options: The setting AlwaysSuggest cannot be written");
}

} // namespace
} // namespace paperkite::test
