#include "host/HostTest.h"
#include "support/NarrowWorld.h"

#include <filesystem>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

class ProjectSessionTest : public HostTest {
protected:
    std::string ProblemOfOpening(const std::string& path) const {
        const auto result = ProjectSession::Open(path);
        EXPECT_FALSE(result.Session);
        EXPECT_FALSE(result.Cancelled);
        return result.Problem;
    }
    /// A new project; the folder holds no more files afterwards than before.
    std::string ProblemOfCreating(const std::string& source,
                                  const std::string& exclude = {}) const {
        const std::string before = mFolder.Names();
        ProjectSession::NewProject wanted{ProjectFile(), source, {}, {}};
        if (!exclude.empty()) wanted.Excludes.push_back(exclude);
        const auto result = ProjectSession::Create(wanted);
        EXPECT_FALSE(result.Session);
        EXPECT_EQ(mFolder.Names(), before);
        return result.Problem;
    }
};

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(ProjectSessionTest, ANewProjectIsSavedAndOpensAgain) {
    const auto made = Create("Zoo 4");
    ASSERT_TRUE(made);
    EXPECT_FALSE(made->GetProject()->GetDirty());
    EXPECT_EQ(made->GetFileCount(), 1u);
    const auto opened = Made(ProjectSession::Open(ProjectFile()));
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->GetProject()->GetTitle(), "Zoo 4");
    EXPECT_TRUE(opened->GetProvider()->GetItem("zoo~animals~Dog~Bark"));
}

TEST_F(ProjectSessionTest, WithoutATitleTheFolderGivesIt) {
    EXPECT_EQ(Create()->GetProject()->GetTitle(), "zoo");
}

TEST_F(ProjectSessionTest, TheEndingMayBeLeftOut) {
    ASSERT_TRUE(Made(ProjectSession::Create({mFolder / "short", mFolder / "zoo", {}, {}})));
    EXPECT_TRUE(fs::exists(mFolder / "short.kiteproject"));
    EXPECT_TRUE(Made(ProjectSession::Open(mFolder / "short")));
}

TEST_F(ProjectSessionTest, AFolderWithOneProjectStandsForIt) {
    Create();
    EXPECT_TRUE(Made(ProjectSession::Open(mFolder.Path())));
    ASSERT_TRUE(Made(ProjectSession::Create({mFolder / "second", mFolder / "zoo", {}, {}})));
    EXPECT_TRUE(Contains(ProblemOfOpening(mFolder.Path()), mFolder.Path()));
}

TEST_F(ProjectSessionTest, AProjectThatIsThereIsNotReplaced) {
    Create("First");
    const std::string bytes = mFolder.Read("zoo.kiteproject");
    EXPECT_EQ(ProblemOfCreating(mFolder / "zoo"),
              ProjectFile() + " is there already. Choose another name, or open that project.");
    EXPECT_EQ(mFolder.Read("zoo.kiteproject"), bytes);
}

TEST_F(ProjectSessionTest, WhatIsLeftOutIsNotScanned) {
    mFolder.Write("zoo/tests/dog_test.h", "class DogTest {};\n");
    const auto session =
        Made(ProjectSession::Create({ProjectFile(), mFolder / "zoo", {}, {"tests"}}));
    ASSERT_TRUE(session);
    EXPECT_FALSE(session->GetProvider()->GetItem("zoo~DogTest"));
    const auto opened = Made(ProjectSession::Open(ProjectFile()));
    EXPECT_FALSE(opened->GetProvider()->GetItem("zoo~DogTest"));
    EXPECT_TRUE(opened->GetProvider()->GetItem("zoo~animals~Dog"));
}

TEST_F(ProjectSessionTest, AMissingSourceFolderIsNamed) {
    const std::string missing = mFolder / "nowhere";
    EXPECT_EQ(ProblemOfCreating(missing),
              "The source folder \"" + missing + "\" does not exist. Choose a folder that does.");
}

TEST_F(ProjectSessionTest, AnEmptySourceFolderIsNamed) {
    fs::create_directory(mFolder / "empty");
    const std::string problem = ProblemOfCreating(mFolder / "empty");
    EXPECT_TRUE(problem.starts_with("There is no source code in " + mFolder.Path() + "/empty"))
        << problem;
    EXPECT_TRUE(Contains(problem, "Choose a folder with source files")) << problem;
}

TEST_F(ProjectSessionTest, LeavingEverythingOutIsLikeAnEmptyFolder) {
    EXPECT_TRUE(
        ProblemOfCreating(mFolder / "zoo", "**").starts_with("There is no source code in "));
}

TEST_F(ProjectSessionTest, ASourceFolderThatWasEmptiedDoesNotOpenAsFullyDocumented) {
    Create();
    fs::remove(mFolder / "zoo/animals.h");
    EXPECT_TRUE(ProblemOfOpening(ProjectFile()).starts_with("There is no source code in "));
}

TEST_F(ProjectSessionTest, ASourceFileInPlaceOfAFolderIsNamed) {
    EXPECT_TRUE(Contains(ProblemOfCreating(mFolder / "zoo/animals.h"), "is not a folder"));
}

TEST_F(ProjectSessionTest, AnUnreadableSourceFolderIsNamed) {
    fs::permissions(mFolder.Path(), fs::perms(0755));
    fs::permissions(mFolder / "zoo", fs::perms::none);
    std::string problem;
    {
        const OrdinaryUser user;
        problem = ProblemOfCreating(mFolder / "zoo");
    }
    fs::permissions(mFolder / "zoo", fs::perms::owner_all);
    EXPECT_TRUE(Contains(problem, "cannot be read. Check its permissions.")) << problem;
}

TEST_F(ProjectSessionTest, MissingCtagsIsNamedWithItsPackage) {
    Create();
    const std::string bytes = mFolder.Read("zoo.kiteproject");
    fs::create_directory(mFolder / "empty");
    const EnvironmentChange path("PATH", mFolder / "empty");
    const std::string problem = ProblemOfOpening(ProjectFile());
    EXPECT_TRUE(Contains(problem, "\"ctags\"")) << problem;
    EXPECT_TRUE(Contains(problem, "Install the package universal-ctags.")) << problem;
    EXPECT_EQ(mFolder.Read("zoo.kiteproject"), bytes);
}

TEST_F(ProjectSessionTest, AProjectInAFolderThatIsNotThereIsRefused) {
    const auto result =
        ProjectSession::Create({mFolder / "nowhere/p.kiteproject", mFolder / "zoo", {}, {}});
    EXPECT_FALSE(result.Session);
    EXPECT_TRUE(Contains(result.Problem, "There is no folder " + (mFolder / "nowhere")))
        << result.Problem;
}

TEST_F(ProjectSessionTest, AMissingProjectIsNamed) {
    EXPECT_TRUE(ProblemOfOpening(mFolder / "none").starts_with(mFolder / "none" + ": "));
}

TEST_F(ProjectSessionTest, ACancelledScanMakesNothing) {
    const std::string before = mFolder.Names();
    const auto result = ProjectSession::Create({ProjectFile(), mFolder / "zoo", {}, {}},
                                               [](const ScanProgress&) { return false; });
    EXPECT_TRUE(result.Cancelled);
    EXPECT_FALSE(result.Session);
    EXPECT_EQ(mFolder.Names(), before);
}

TEST_F(ProjectSessionTest, NamesAreFoundInEveryWayOfWritingThem) {
    const auto session = Create();
    for (const char* name : {"zoo~animals~Dog~Bark", "animals~Dog~Bark", "animals::Dog::Bark",
                             "animals.Dog.Bark", "animals/Dog/Bark", "Dog::Bark", "Bark"})
        EXPECT_EQ(session->Resolve(name), "zoo~animals~Dog~Bark") << name;
    EXPECT_EQ(session->Resolve("zoo"), "zoo");
}

TEST_F(ProjectSessionTest, ANameThatTwoItemsHaveIsNotGuessed) {
    const auto session = Create();
    EXPECT_EQ(session->Resolve("Age"), "");
    EXPECT_EQ(session->Resolve("Cat.Age"), "zoo~animals~Cat~Age");
    EXPECT_EQ(session->Nearest("Age"),
              (Names{"zoo~animals~Dog~Age", "zoo~animals~Cat~Age", "zoo~animals~Dog~mAge"}));
}

TEST_F(ProjectSessionTest, AClassIsMeantByTheNameThatItsConstructorHasToo) {
    mFolder.Write("zoo/keeper.h", "class Keeper {\npublic:\n    Keeper();\n};\n");
    const auto session = Create();
    EXPECT_EQ(session->Resolve("Keeper"), "zoo~Keeper");
    EXPECT_EQ(session->Resolve("Keeper::Keeper"), "zoo~Keeper~Keeper");
}

TEST_F(ProjectSessionTest, ItemsAreFoundByAPartOfTheirNamesTheWholeOneFirst) {
    const auto session = Create();
    EXPECT_EQ(session->FindByName("BARK", 10), Names{"zoo~animals~Dog~Bark"});
    EXPECT_EQ(session->FindByName("o", 1).size(), 1u);
    EXPECT_EQ(session->FindByName("dog", 10).at(0), "zoo~animals~Dog");
    EXPECT_EQ(session->FindByName("unicorn", 10), Names());
}

TEST_F(ProjectSessionTest, ItemsAreFoundByWhatStandsAroundTheirNamesToo) {
    const auto session = Create();
    for (const char* text :
         {"Dog::Bark", "dog.bark", "an~BARK", "zoo~animals~Dog~Bark", "zoo::bark(int", "Dog::bar"})
        EXPECT_EQ(session->FindByName(text, 10), Names{"zoo~animals~Dog~Bark"}) << text;
    for (const char* text : {"Cat::Bark", "Dog::animals::Bark", "Bark(const", "."})
        EXPECT_EQ(session->FindByName(text, 10), Names()) << text;
}

TEST_F(ProjectSessionTest, TheNearestNamesHelpWhereNoneFits) {
    const auto session = Create();
    EXPECT_EQ(session->Resolve("Dog.Brak"), "");
    EXPECT_EQ(session->Nearest("Dog.Brak"), Names{"zoo~animals~Dog~Bark"});
    EXPECT_EQ(session->Nearest("Prr"), Names{"zoo~animals~Cat~Purr"});
    EXPECT_EQ(session->Nearest("Elephantidae"), Names());
}

TEST_F(ProjectSessionTest, AScanThatIsAdoptedShowsWhatCameAndWent) {
    const auto session = Create();
    mFolder.Write("zoo/animals.h", "class Emu {\npublic:\n    void Run();\n};\n");
    auto answer = session->Scan();
    EXPECT_EQ(answer.Problem, "");
    ASSERT_TRUE(answer.Code);
    EXPECT_TRUE(session->GetProvider()->GetItem("zoo~animals~Dog"));
    session->Adopt(std::move(*answer.Code));
    EXPECT_TRUE(session->GetProvider()->GetItem("zoo~Emu~Run"));
    EXPECT_FALSE(session->GetProvider()->GetItem("zoo~animals~Dog"));
    EXPECT_EQ(session->GetProject()->NamespaceProvider("kite.source"), session->GetProvider());
}

TEST_F(ProjectSessionTest, AScanThatFailsOrIsCancelledBringsNothing) {
    const auto session = Create();
    const auto cancelled = session->Scan([](const ScanProgress&) { return false; });
    EXPECT_TRUE(cancelled.Cancelled);
    EXPECT_FALSE(cancelled.Code);
    fs::remove_all(mFolder / "zoo");
    const auto failed = session->Scan();
    EXPECT_FALSE(failed.Cancelled);
    EXPECT_FALSE(failed.Code);
    EXPECT_NE(failed.Problem, "");
    EXPECT_TRUE(session->GetProvider()->GetItem("zoo~animals~Dog~Bark"));
}

} // namespace

} // namespace paperkite::test
