#include "host/WorkspaceSpelling.h"

#include "host/HostTest.h"
#include "host/SpellCheckWork.h"
#include "model/ProjectWords.h"
#include "platform/spelling/SpellServices.h"
#include "support/ScriptedServices.h"

#include <fstream>
#include <sstream>

namespace paperkite::test {

namespace {

class WorkspaceSpellingTest : public HostTest {
protected:
    WorkspaceSpellingTest() : mData("XDG_DATA_HOME", mFolder / "data") {
        CurrentServices().Spelling =
            MakeSpelling({{"/usr/share/hunspell"}, "en_US", mFolder / "data/custom.words"});
        mWorkspace = std::make_unique<Workspace>(Create());
    }

    SpellEngine& Engine() { return *CurrentServices().Spelling; }
    std::string Words() const {
        std::ifstream file(mFolder / "zoo.words");
        std::ostringstream text;
        text << file.rdbuf();
        const std::string all = text.str();
        return all.substr(std::min(all.size(), all.find('\n') + 1));
    }
    CommentStore& Store() { return *mWorkspace->GetSession().GetProject()->GetComments(); }
    Ref<TaggedComment> Load(const std::string& item, const std::string& text,
                            const std::string& tag = "##") {
        auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(tag);
        comment->SetText(text);
        Store().Load(item, comment, {});
        return comment;
    }
    std::string Check(const std::string& item = {}) {
        std::string result;
        for (const auto& finding : SpellCheckWork(Engine()).Check(Store(), item))
            result += finding.Item + ": " + finding.Word + ";";
        return result;
    }

    EnvironmentChange mData;
    std::unique_ptr<Workspace> mWorkspace;
};

TEST_F(WorkspaceSpellingTest, NamesThatTheCodeDeclaresAreKnown) {
    EXPECT_TRUE(Engine().Check("mAge"));
    EXPECT_TRUE(Engine().Check("Purr"));
    EXPECT_FALSE(Engine().Check("Meoww"));
    mFolder.Write("zoo/animals.h", "class Lynx { public: void fetchMeoww(int qzxvCount); };\n");
    auto scan = mWorkspace->GetSession().Scan();
    ASSERT_EQ(scan.Problem, "");
    mWorkspace->Adopt(std::move(*scan.Code));
    EXPECT_TRUE(Engine().Check("fetchMeoww"));
    EXPECT_TRUE(Engine().Check("meoww")) << "a part of a name";
    EXPECT_TRUE(Engine().Check("qzxvCount")) << "a parameter";
    EXPECT_FALSE(Engine().Check("mAge")) << "it is gone";
}

TEST_F(WorkspaceSpellingTest, LearntAndIgnoredWordsTravelWithTheProject) {
    Engine().AddToCustomDictionary("qzxv");
    mWorkspace->GetEditor().Events.SpellIgnoreWordAdded.Raise("xyzzy");
    EXPECT_EQ(Words(), "qzxv\n!xyzzy\n");
    EXPECT_FALSE(std::filesystem::exists(mFolder / "data/custom.words"));
    mWorkspace.reset();
    EXPECT_FALSE(Engine().Check("qzxv")) << "the project is closed";
    mWorkspace = std::make_unique<Workspace>(Made(ProjectSession::Open(ProjectFile())));
    EXPECT_TRUE(Engine().Check("qzxv") && Engine().Check("xyzzy"));
}

TEST_F(WorkspaceSpellingTest, TheProjectThatWasOpenedLastCounts) {
    mFolder.Write("zoo.words", "qzxv\n");
    auto next = std::make_unique<Workspace>(Made(ProjectSession::Open(ProjectFile())));
    mWorkspace = std::move(next);
    EXPECT_TRUE(Engine().Check("qzxv")) << "closing the first one takes nothing away";
}

TEST_F(WorkspaceSpellingTest, ACheckListsWrongWordsByItem) {
    Load("zoo~animals~Dog", "<p>Gaurds <code>teh</code> house.</p>");
    Load("zoo~animals~Dog~Bark", "Lowd.");
    Load("zoo~animals~Gone", "Lsot.");
    EXPECT_EQ(Check(),
              "zoo~animals~Dog: Gaurds;zoo~animals~Dog~Bark: Lowd;zoo~animals~Gone: Lsot;");
    EXPECT_EQ(Check("zoo~animals~Dog"), "zoo~animals~Dog: Gaurds;zoo~animals~Dog~Bark: Lowd;");
    EXPECT_EQ(Check("zoo~animals~Cat"), "");
}

TEST_F(WorkspaceSpellingTest, AFindingIsReplacedInItsComment) {
    Load("zoo~animals~Dog", "<p>Teh dog. T<b>eh</b> house.</p>");
    const auto findings = SpellCheckWork(Engine()).Check(Store());
    ASSERT_EQ(findings.size(), 2u);
    TextChanges changes(*mWorkspace, nullptr, nullptr);
    EXPECT_EQ(changes.Apply(SpellCheckWork::Plan(Store(), findings[1], "The"), "Spelling"), 0u);
    EXPECT_EQ((*Store().Find("zoo~animals~Dog")->begin())->GetText(),
              "<p>Teh dog. The<b></b> house.</p>");
    EXPECT_TRUE(SpellCheckWork::Plan(Store(), findings[1], "The").empty())
        << "it is not there any more";
}

TEST_F(WorkspaceSpellingTest, AFindingIsReplacedWhereAPageMadeAnotherTextOfIt) {
    const auto comment = Load("zoo~animals~Dog", "A &amp; b.<br>Teh dog.");
    comment->SetNormalisedText("A &#38; b.<br />Teh dog.");
    const auto findings = SpellCheckWork(Engine()).Check(Store());
    ASSERT_EQ(findings.size(), 1u);
    TextChanges changes(*mWorkspace, nullptr, nullptr);
    EXPECT_EQ(changes.Apply(SpellCheckWork::Plan(Store(), findings[0], "The"), "Spelling"), 0u);
    EXPECT_EQ(comment->GetWrittenText(), "A &amp; b.<br>The dog.");
}

TEST_F(WorkspaceSpellingTest, OnlyTheProseOfPlainTextsIsChecked) {
    Load("zoo~1", "R&D > kewword\nAT&T", "##keywords");
    Load("zoo~2", "Fiel > Export\nkeys: Strg+Umsch+E", "##menuitem");
    Load("zoo~3", "Conuts words\nof: zoo~Qzxv", "##isexample");
    Load("zoo~4", "source: qzxv.cpp#regoin\nThe captoin.", "##examplesource");
    Load("zoo~5", "zoo~Qzxv", "##commentsfrom");
    Load("zoo~6", "<qzxv>teh</qzxv>", "##xml");
    Load("zoo~7", "sinec 1.4", "##new");
    Load("zoo~8", "<p>kewwords</p>", "##keywords");
    EXPECT_EQ(Check(), "zoo~1: kewword;zoo~2: Fiel;zoo~3: Conuts;zoo~4: captoin;zoo~8: kewwords;");
}

TEST_F(WorkspaceSpellingTest, FindingsInPlainTextsAreReplacedByWhatIsWritten) {
    const auto keywords = Load("zoo~1", "R&D > kewword > AT&amp;T", "##keywords");
    const auto example = Load("zoo~2", "source: a&b.cpp\nThe captoin & more.", "##examplesource");
    TextChanges changes(*mWorkspace, nullptr, nullptr);
    for (const auto& finding : SpellCheckWork(Engine()).Check(Store()))
        if (finding.Word == "kewword" || finding.Word == "captoin")
            changes.Apply(SpellCheckWork::Plan(Store(), finding, "a&b"), "Spelling");
    EXPECT_EQ(keywords->GetText(), "R&D > a&b > AT&amp;T");
    EXPECT_EQ(example->GetText(), "source: a&b.cpp\nThe a&b & more.");
}

TEST_F(WorkspaceSpellingTest, WordsGoToTheProjectsNewName) {
    Engine().AddToCustomDictionary("qzxv");
    const auto& project = mWorkspace->GetSession().GetProject();
    ASSERT_FALSE(project->SaveAs(mFolder / "farm.kiteproject"));
    Engine().AddToCustomDictionary("blorb");
    mWorkspace->GetEditor().Events.SpellIgnoreWordAdded.Raise("xyzzy");
    EXPECT_EQ(Words(), "qzxv\n") << "the old project keeps what it had";
    ProjectWords words(mFolder / "farm.kiteproject");
    ASSERT_FALSE(words.Read());
    EXPECT_EQ(words.GetLearnt(), (std::set<std::string>{"blorb", "qzxv"}));
    EXPECT_EQ(words.GetIgnored(), std::set<std::string>{"xyzzy"});
    EXPECT_TRUE(Engine().Check("qzxv") && Engine().Check("blorb"));
}

TEST_F(WorkspaceSpellingTest, WordsThatSomebodyElseAddsAreRead) {
    EXPECT_FALSE(mWorkspace->GetSpelling()->LookAtWords());
    mFolder.Write("zoo.words", "qzxv\n");
    EXPECT_FALSE(Engine().Check("qzxv"));
    EXPECT_TRUE(mWorkspace->GetSpelling()->LookAtWords());
    EXPECT_TRUE(Engine().Check("qzxv"));
    EXPECT_FALSE(mWorkspace->GetSpelling()->LookAtWords()) << "the same file";
    mFolder.Write("zoo.words", "blorb\n");
    Engine().AddToCustomDictionary("mine");
    EXPECT_TRUE(mWorkspace->GetSpelling()->LookAtWords()) << "learning does not hide the others'";
    EXPECT_TRUE(Engine().Check("blorb") && Engine().Check("mine"));
    EXPECT_FALSE(Engine().Check("qzxv"));
}

TEST_F(WorkspaceSpellingTest, WordsThatCannotBeReadAreToldAndThoseKnownStay) {
    Engine().AddToCustomDictionary("qzxv");
    mWorkspace->GetSpelling()->LookAtWords();
    EXPECT_EQ(mWorkspace->GetSpelling()->GetProblem(), "");
    std::filesystem::remove(mFolder / "zoo.words");
    mFolder.Write("zoo.words/stands.here", "");
    EXPECT_TRUE(mWorkspace->GetSpelling()->LookAtWords());
    EXPECT_NE(mWorkspace->GetSpelling()->GetProblem().find("zoo.words"), std::string::npos);
    EXPECT_TRUE(Engine().Check("qzxv"));
    EXPECT_FALSE(mWorkspace->GetSpelling()->LookAtWords()) << "told once";
}

TEST_F(WorkspaceSpellingTest, WordsThatCannotBeWrittenAreErrorsOrMessages) {
    const auto messages = std::make_shared<ScriptedMessageBox>();
    CurrentServices().MessageBox = messages;
    mFolder.Write("zoo.words/stands.here", "");
    EXPECT_THROW(Engine().AddToCustomDictionary("qzxv"), Error);
    EXPECT_FALSE(Engine().Check("qzxv")) << "what is not kept is not right";
    mWorkspace->GetEditor().Events.SpellIgnoreWordAdded.Raise("xyzzy");
    ASSERT_EQ(messages->Shown.size(), 1u);
    EXPECT_TRUE(messages->Shown[0].starts_with("Spelling [warning] ")) << messages->Shown[0];
    EXPECT_NE(messages->Shown[0].find("zoo.words"), std::string::npos) << messages->Shown[0];
}

TEST_F(WorkspaceSpellingTest, NamesOfEverySourceFolderAreKnown) {
    mFolder.Write("farm/farm.h", "class Tractorx { public: void Plwow(); };\n");
    mWorkspace->GetSession().GetProject()->AddSource(mFolder / "farm");
    auto scan = mWorkspace->GetSession().Scan();
    ASSERT_EQ(scan.Problem, "");
    mWorkspace->Adopt(std::move(*scan.Code));
    ASSERT_EQ(mWorkspace->GetSession().GetProvider()->GetRootCount(), 2u);
    EXPECT_TRUE(Engine().Check("Tractorx") && Engine().Check("plwow"));
    EXPECT_TRUE(Engine().Check("mAge"));
}

} // namespace
} // namespace paperkite::test
