#include "host/HomelessWork.h"

#include "host/HostTest.h"
#include "model/CommentRecovery.h"

namespace paperkite::test {

namespace {

constexpr const char* kDog = "zoo~animals~Dog";
constexpr const char* kPuppy = "zoo~animals~Puppy";

/// "Puppy" was renamed to "Dog": its comments, and those of its Bark, are homeless.
class HomelessWorkTest : public HostTest {
protected:
    HomelessWorkTest() {
        mWorkspace = std::make_unique<Workspace>(Create());
        mUnsaved = std::make_unique<UnsavedWork>(mFolder / "journals", ProjectFile());
        mUnsaved->SetWorkspace(mWorkspace.get());
        Load(kPuppy, "p1", "<p>Young.</p>");
        Load("zoo~animals~Puppy~Bark", "p2", "Not loud.");
        mWork = std::make_unique<HomelessWork>(*mWorkspace, mUnsaved.get());
        mChanges = mWork->Events.Changed.Connect([this](const auto& name) { mTold += name + ";"; });
    }

    CommentStore& Store() { return *mWorkspace->GetSession().GetProject()->GetComments(); }
    void Load(const std::string& item, const std::string& id, const std::string& text) {
        auto comment = MakeRef<TaggedComment>(id);
        comment->SetTagIdentifier("##");
        comment->SetText(text);
        Store().Load(item, comment, {});
    }
    std::string TextsOf(const std::string& item) {
        std::string texts;
        for (const auto& comment : mWork->CommentsOf(item))
            texts += comment.Text + ";";
        return texts;
    }
    bool IsBold(const std::string& item) {
        const auto node = mWorkspace->GetEditor().Project.GetNodes().Find(item);
        return node && node->GetBold();
    }
    /// "[item stored > text]…"
    std::string Unsaved() const {
        std::string result;
        for (const JournalEntry& entry : mUnsaved->Entries())
            result += "[" + entry.Item + " " + entry.Stored.value_or("-") + " > " +
                      entry.Text.value_or("-") + "]";
        return result;
    }

    std::unique_ptr<Workspace> mWorkspace;
    std::unique_ptr<UnsavedWork> mUnsaved;
    std::unique_ptr<HomelessWork> mWork;
    std::string mTold;
    Connection mChanges;
};

TEST_F(HomelessWorkTest, NamesAreThoseThatTheSearchFinds) {
    std::vector<std::string> found;
    for (const auto& entry : mWork->Find({}))
        found.push_back(entry.QualifiedName);
    EXPECT_EQ(found, (std::vector<std::string>{kPuppy, "zoo~animals~Puppy~Bark"}));
    EXPECT_EQ(mWork->Names(), found);
}

TEST_F(HomelessWorkTest, AdoptingMovesMarksAndTells) {
    ASSERT_TRUE(mWorkspace->Select(kDog));
    ASSERT_FALSE(IsBold(kDog));
    EXPECT_EQ(mWork->Adopt(kPuppy, kDog).size(), 2u);
    EXPECT_EQ(TextsOf(kDog), "<p>Young.</p>;");
    EXPECT_EQ(TextsOf("zoo~animals~Dog~Bark"), "Not loud.;");
    EXPECT_TRUE(IsBold(kDog));
    EXPECT_TRUE(mWorkspace->GetSession().GetProject()->GetDirty());
    EXPECT_TRUE(mWork->Names().empty());
    EXPECT_EQ(mTold,
              std::string(kPuppy) + ";" + kDog + ";zoo~animals~Puppy~Bark;zoo~animals~Dog~Bark;");
}

TEST_F(HomelessWorkTest, WhatWasAdoptedAndNotSavedIsInTheJournal) {
    mWork->Adopt("zoo~animals~Puppy~Bark", "zoo~animals~Cat~Purr");
    EXPECT_EQ(Unsaved(), "[zoo~animals~Cat~Purr - > Not loud.]"
                         "[zoo~animals~Puppy~Bark Not loud. > -]");
}

TEST_F(HomelessWorkTest, TextThatIsBeingTypedInTheNewHomeStays) {
    ASSERT_TRUE(mWorkspace->Select(kDog));
    PropertiesList& tags = *mWorkspace->GetEditor().cEditor.prpTags;
    for (const auto& row : tags)
        if (!row->IsHeader() && row->GetReadOnly() && row->GetCaption() == "##remarks") {
            tags.SetSelectedItem(row);
            break;
        }
    tags.UserClickButton("AddButton");
    tags.UserType("Typed.");
    mWork->Adopt(kPuppy, kDog);
    const std::string texts = TextsOf(kDog);
    EXPECT_NE(texts.find("Typed.;"), std::string::npos) << texts;
    EXPECT_NE(texts.find("Young."), std::string::npos) << texts;
    std::string shown;
    for (const auto& row : tags)
        if (!row->GetReadOnly()) shown += row->GetCaption() + "=" + row->GetValue() + ";";
    EXPECT_NE(shown.find("Young."), std::string::npos) << shown;
    EXPECT_NE(shown.find("##remarks=Typed.;"), std::string::npos) << shown;
}

TEST_F(HomelessWorkTest, WhatWasAdoptedIsThereAfterSavingAndOpening) {
    mWork->Adopt(kPuppy, kDog);
    ASSERT_FALSE(mWorkspace->Save());
    const auto again = Made(ProjectSession::Open(ProjectFile()));
    ASSERT_TRUE(again);
    const auto& store = *again->GetProject()->GetComments();
    EXPECT_EQ(store.QualifiedNames(), (std::vector<std::string>{kDog, "zoo~animals~Dog~Bark"}));
}

TEST_F(HomelessWorkTest, NeitherAnItemThatIsThereNorAHomeThatIsNotMovesAnything) {
    EXPECT_TRUE(mWork->Adopt(kDog, "zoo~animals~Cat").empty());
    EXPECT_TRUE(mWork->Adopt(kPuppy, "zoo~animals~Wolf").empty());
    EXPECT_EQ(TextsOf(kPuppy), "<p>Young.</p>;");
    EXPECT_FALSE(mWorkspace->GetSession().GetProject()->GetDirty());
}

TEST_F(HomelessWorkTest, DeletedCommentsAreGoneAndInTheJournalUntilTheSave) {
    mWork->Delete(kPuppy);
    EXPECT_EQ(mWork->Names(), std::vector<std::string>{"zoo~animals~Puppy~Bark"});
    EXPECT_EQ(Unsaved(), "[" + std::string(kPuppy) + " <p>Young.</p> > -]");
    EXPECT_TRUE(mWorkspace->GetSession().GetProject()->GetDirty());
    mWork->Delete(kDog);
    EXPECT_EQ(mTold, std::string(kPuppy) + ";");
}

TEST_F(HomelessWorkTest, SearchingGivesNamesWithKinds) {
    const auto homes = mWork->Search("bark", 5);
    ASSERT_EQ(homes.size(), 1u);
    EXPECT_EQ(homes.front().QualifiedName, "zoo~animals~Dog~Bark");
    EXPECT_EQ(homes.front().Kind, "Method");
}

} // namespace

} // namespace paperkite::test
