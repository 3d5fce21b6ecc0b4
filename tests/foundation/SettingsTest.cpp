#include "foundation/Settings.h"

#include "foundation/MemberTable.h"
#include "support/ScriptedServices.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

using test::MemoryRegistry;

constexpr const char* kKey = "Software\\Brindlewick\\Test";

/// Takes every member that it is given, in order.
class RecordingEngine : public Object {
public:
    std::string TypeName() const override { return "RecordingEngine"; }
    void Set(std::string_view member, const Value& value) override {
        Given +=
            std::string(member) + "=" + value.ToText() + (value.IsDouble() ? " number" : "") + "\n";
    }
    std::string Given;
};

class RecordingBrowser : public FolderBrowser {
public:
    explicit RecordingBrowser(std::string answer) : mAnswer(std::move(answer)) {}
    void SetFolderMode(bool value) override { Given += value ? "folders " : "files "; }
    void SetOwner(std::intptr_t window) override {
        Given += "owner=" + std::to_string(window) + " ";
    }
    void SetStartFolder(const std::string& folder) override { Given += "start=" + folder + " "; }
    void SetTitle(const std::string& title) override { Given += "title=" + title + " "; }
    void SetNewFolder(bool value) override { Given += value ? "new " : "old "; }
    std::string Run() override { return mAnswer; }

    std::string Given;

private:
    std::string mAnswer;
};

class SettingsTest : public ::testing::Test {
protected:
    void Store(const std::string& path, const std::string& name, const std::string& value) {
        mServices.Registry->Values[MemoryRegistry::Name(HKEY_CURRENT_USER, path, name)] = value;
    }
    void StoreCommonPath(const std::string& value) {
        mServices.Registry->Values[MemoryRegistry::Name(HKEY_LOCAL_MACHINE, "Software\\Brindlewick",
                                                        "CommonPath")] = value;
    }

    test::ScriptedServices mServices;
};

} // namespace

TEST_F(SettingsTest, TheKeyPathFollowsThePresentApplicationName) {
    EXPECT_EQ(RegKeyPath(), kKey);
    mAppName = "Other";
    EXPECT_EQ(RegKeyPath(), "Software\\Brindlewick\\Other");
    mAppName.clear();
    EXPECT_EQ(RegKeyPath(), "Software\\Brindlewick\\");
}

TEST_F(SettingsTest, AStoredZeroIsNoMissingValue) {
    Store(std::string(kKey) + "\\Spelling", "IgnoreNumbers", "0");
    EXPECT_EQ(GetAppValue("IgnoreNumbers", 1, 4, "Spelling").ToNumber(), 0);
}

TEST_F(SettingsTest, AnEmptyStoredTextReadsAsTheDefault) {
    Store(std::string(kKey) + "\\Spelling", "IgnoreNumbers", "");
    EXPECT_EQ(GetAppValue("IgnoreNumbers", 1, 4, "Spelling").ToNumber(), 1);
}

TEST_F(SettingsTest, AMissingValueReadsAsTheDefaultOfTheWantedKind) {
    EXPECT_TRUE(GetAppValue("Missing", 7, 4, "").IsDouble());
    EXPECT_EQ(GetAppValue("Missing", 7, 1, "").ToText(), "7");
    EXPECT_TRUE(GetAppValue("Missing", 7, 1, "").IsText());
}

TEST_F(SettingsTest, NumbersFollowTheLeadingDigitsRule) {
    Store(kKey, "Size", "12px");
    EXPECT_EQ(GetAppValue("Size", 1, 4, "").ToNumber(), 12);
    Store(kKey, "Size", "px12");
    EXPECT_EQ(GetAppValue("Size", 1, 4, "").ToNumber(), 0);
}

TEST_F(SettingsTest, ARootPathReplacesTheApplicationsKey) {
    Store("Elsewhere\\Deep", "Name", "x");
    EXPECT_EQ(GetAppValue("Name", "", 1, "Deep", HKEY_CURRENT_USER, "Elsewhere").ToText(), "x");
    EXPECT_EQ(GetAppValue("Name", "none", 1, "Deep").ToText(), "none");
}

TEST_F(SettingsTest, TrueIsStoredAsOne) {
    SetAppValue("Flag", true, "");
    EXPECT_EQ(GetAppValue("Flag", 0, 4, "").ToNumber(), 1);
    SetAppValue("Flag", false, "");
    EXPECT_EQ(GetAppValue("Flag", 1, 4, "").ToNumber(), 0);
}

TEST_F(SettingsTest, AWriteMakesItsKeyFirstAndStoresText) {
    SetAppValue("Height", 75, "Layout");
    EXPECT_EQ(mServices.Registry->Calls,
              (std::vector<std::string>{std::string("create ") + kKey + "\\Layout",
                                        std::string("write ") + kKey + "\\Layout|Height|1|75"}));
}

TEST_F(SettingsTest, TheCommonPathEndsWithOneBackslash) {
    StoreCommonPath("C:\\Common");
    EXPECT_EQ(CommonPath(), "C:\\Common\\");
    StoreCommonPath("C:\\Common\\");
    EXPECT_EQ(CommonPath(), "C:\\Common\\");
}

TEST_F(SettingsTest, ASpellingEngineIsConfiguredInTheOrderOfTheSettings) {
    StoreCommonPath("/common/");
    Store(std::string(kKey) + "\\Spelling", "IgnoreMixedCase", "1");
    RecordingEngine engine;
    InitSpellingObject(engine);
    EXPECT_EQ(engine.Given, "OptionBtnCaption=Options...\n"
                            "Suggest=1 number\n"
                            "IgnoreInUpperCase=1 number\n"
                            "IgnoreWithNumbers=1 number\n"
                            "IgnoreInMixedCase=1 number\n"
                            "MainDictFile=/common/\\Brindlewick.dct\n"
                            "CustomDictFile=/common/\\Custom.dct\n");
}

TEST_F(SettingsTest, ASpellingEngineGetsTheDefaultsWhereNothingIsStored) {
    StoreCommonPath("C:\\Common");
    RecordingEngine engine;
    InitSpellingObject(engine);
    EXPECT_EQ(engine.Given, "OptionBtnCaption=Options...\n"
                            "Suggest=1 number\n"
                            "IgnoreInUpperCase=1 number\n"
                            "IgnoreWithNumbers=1 number\n"
                            "IgnoreInMixedCase=0 number\n"
                            "MainDictFile=C:\\Common\\Brindlewick.dct\n"
                            "CustomDictFile=C:\\Common\\Custom.dct\n");
}

TEST_F(SettingsTest, StoredDictionariesReplaceTheDefaults) {
    Store(std::string(kKey) + "\\Spelling", "PrimaryDictionary", "/main.dct");
    Store(std::string(kKey) + "\\Spelling", "CustomDictionary", "/own.dct");
    RecordingEngine engine;
    InitSpellingObject(engine);
    EXPECT_TRUE(engine.Given.ends_with("MainDictFile=/main.dct\nCustomDictFile=/own.dct\n"))
        << engine.Given;
}

TEST_F(SettingsTest, TheFolderBrowserStartsWhereTheLastOneEnded) {
    auto browser = std::make_shared<RecordingBrowser>("/chosen");
    CurrentServices().CreateFolderBrowser = [&] { return browser; };
    EXPECT_EQ(GetPath(0, "Pick", "/start"), "/chosen");
    EXPECT_EQ(browser->Given, "folders start=/start title=Pick new ");
    browser->Given.clear();
    EXPECT_EQ(GetPath(42, "Pick", ""), "/chosen");
    EXPECT_EQ(browser->Given, "folders owner=42 start=/chosen title=Pick new ");
}

TEST_F(SettingsTest, ACancelledFolderBrowserGivesNothingAndForgetsNothing) {
    LastPath = "/before";
    CurrentServices().CreateFolderBrowser = [] { return std::make_shared<RecordingBrowser>(""); };
    EXPECT_EQ(GetPath(0, "Pick", ""), "");
    EXPECT_EQ(LastPath, "/before");
}

TEST_F(SettingsTest, ADefinitionIsMarkedBeforeUse) {
    const auto definition = MakeRef<NamespaceDef>();
    PrepNamespaceDef(definition);
    EXPECT_TRUE(definition->Prepared);
}

TEST_F(SettingsTest, ANumberOutOfItsBoundsCountsAsMissing) {
    for (const auto& [stored, wanted] :
         std::vector<std::pair<std::string, int>>{{"34", 34},
                                                  {"0", 0},
                                                  {"100", 100},
                                                  {"-5", 40},
                                                  {"101", 40},
                                                  {"1e308", 40},
                                                  {"-1e308", 40},
                                                  {"99999999999999999999", 40},
                                                  {"abc", 0},
                                                  {"nan", 0},
                                                  {"inf", 0},
                                                  {"33.6", 34},
                                                  {"", 40}}) {
        Store(kKey, "Share", stored);
        EXPECT_EQ(GetAppNumber("Share", 40, 0, 100, {}), wanted) << stored;
    }
}

} // namespace paperkite
