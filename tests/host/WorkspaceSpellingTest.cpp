#include "host/WorkspaceSpelling.h"

#include "host/HostTest.h"
#include "host/SpellCheckWork.h"
#include "platform/spelling/SpellServices.h"

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
    void Load(const std::string& item, const std::string& text) {
        auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier("##");
        comment->SetText(text);
        Store().Load(item, comment, {});
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
    SpellCheckWork work(Engine());
    const auto findings = work.Check(Store());
    ASSERT_EQ(findings.size(), 2u);
    TextChanges changes(*mWorkspace, nullptr, nullptr);
    EXPECT_EQ(changes.Apply(work.Plan(Store(), findings[1], "The"), "Spelling"), 0u);
    EXPECT_EQ((*Store().Find("zoo~animals~Dog")->begin())->GetText(),
              "<p>Teh dog. The<b></b> house.</p>");
    EXPECT_TRUE(work.Plan(Store(), findings[1], "The").empty()) << "it is not there any more";
}

} // namespace
} // namespace paperkite::test
