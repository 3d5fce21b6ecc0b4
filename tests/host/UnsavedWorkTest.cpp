#include "host/UnsavedWork.h"

#include "host/HostTest.h"
#include "host/StateFolder.h"
#include "model/CommentRecovery.h"

#include <filesystem>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

class UnsavedWorkTest : public HostTest {
protected:
    UnsavedWorkTest() {
        mWorkspace = std::make_unique<Workspace>(Create());
        mWork = std::make_unique<UnsavedWork>(mFolder / "journals", ProjectFile());
        mWork->SetWorkspace(mWorkspace.get());
    }

    void Select(const std::string& item) {
        ASSERT_TRUE(mWorkspace->Select(item));
        mWork->ItemShown(item);
    }
    PropertiesList& Tags() { return *mWorkspace->GetEditor().cEditor.prpTags; }
    Ref<PropertyItem> Row(const std::string& tag, bool offer) {
        for (const auto& row : Tags())
            if (!row->IsHeader() && row->GetReadOnly() == offer && row->GetCaption() == tag)
                return row;
        return {};
    }
    /// Adds a comment and types into it, without ending the edit.
    void Type(const std::string& tag, const std::string& text) {
        Tags().SetSelectedItem(Row(tag, true));
        Tags().UserClickButton("AddButton");
        Tags().UserType(text);
    }
    void Write(const std::string& tag, const std::string& text) {
        Type(tag, text);
        mWorkspace->GetEditor().cEditor.CommitEdit();
        mWork->ItemChanged("zoo~animals~Dog");
    }
    /// "[tag stored > text]…"
    std::string Unsaved() const {
        std::string result;
        for (const JournalEntry& entry : mWork->Entries())
            result += "[" + entry.Tag + " " + entry.Stored.value_or("-") + " > " +
                      entry.Text.value_or("-") + "]";
        return result;
    }

    std::unique_ptr<Workspace> mWorkspace;
    std::unique_ptr<UnsavedWork> mWork;
};

TEST_F(UnsavedWorkTest, LookingWritesNothing) {
    Select("zoo~animals~Dog");
    Select("zoo~animals~Cat");
    EXPECT_FALSE(mWork->Keep());
    EXPECT_EQ(Unsaved(), "");
    EXPECT_FALSE(fs::exists(mFolder / "journals"));
}

TEST_F(UnsavedWorkTest, TextThatIsBeingTypedIsKeptAndTheEditGoesOn) {
    Select("zoo~animals~Dog");
    Type("##", "Guards the ho");
    EXPECT_FALSE(mWork->Keep());
    EXPECT_EQ(Unsaved(), "[## - > Guards the ho]");
    EXPECT_TRUE(Tags().GetInEdit());
    EXPECT_EQ(Tags().GetEditText(), "Guards the ho");
    const auto comments =
        mWorkspace->GetSession().GetProject()->GetComments()->Find("zoo~animals~Dog");
    EXPECT_EQ(comments->Item(1)->GetText(), "");
    Tags().UserType("Guards the house.");
    EXPECT_EQ(Unsaved(), "[## - > Guards the house.]");
    Tags().CancelEdit();
    mWork->ItemChanged("zoo~animals~Dog");
    EXPECT_EQ(Unsaved(), "[## - > ]");
}

TEST_F(UnsavedWorkTest, ChangesAndDeletionsOfStoredCommentsSayWhatWasStored) {
    Select("zoo~animals~Dog");
    Write("##", "A dog.");
    Write("##remarks", "Barks.");
    ASSERT_FALSE(mWorkspace->Save());
    mWork->Settle();
    Tags().SetSelectedItem(Row("##", false));
    Tags().BeginEdit();
    Tags().UserType("A good dog.");
    mWorkspace->GetEditor().cEditor.CommitEdit();
    Tags().SetSelectedItem(Row("##remarks", false));
    Tags().UserClickButton("DeleteButton");
    mWork->ItemChanged("zoo~animals~Dog");
    EXPECT_EQ(Unsaved(), "[## A dog. > A good dog.][##remarks Barks. > -]");
}

TEST_F(UnsavedWorkTest, WhatIsTakenBackIsNoLongerKept) {
    Select("zoo~animals~Dog");
    Write("##", "A dog.");
    EXPECT_FALSE(mWork->Keep());
    EXPECT_FALSE(fs::is_empty(mFolder / "journals"));
    Tags().SetSelectedItem(Row("##", false));
    Tags().UserClickButton("DeleteButton");
    EXPECT_FALSE(mWork->Keep());
    EXPECT_TRUE(fs::is_empty(mFolder / "journals"));
}

TEST_F(UnsavedWorkTest, AChangeOfAnItemThatWasNeverShownIsKeptAsWell) {
    auto comment = MakeRef<TaggedComment>();
    comment->SetTagIdentifier("##");
    comment->SetText("moved here");
    mWorkspace->GetSession()
        .GetProject()
        ->GetComments()
        ->CommentsOf({}, "gone~item")
        ->Add(comment, comment->GetId());
    mWork->ItemChanged("gone~item");
    EXPECT_EQ(Unsaved(), "[## - > moved here]");
}

TEST_F(UnsavedWorkTest, AJournalThatCannotBeWrittenIsToldOnce) {
    Select("zoo~animals~Dog");
    Write("##", "A dog.");
    mFolder.Write("journals", "in the way");
    EXPECT_TRUE(mWork->Keep());
    EXPECT_FALSE(mWork->Keep());
    EXPECT_FALSE(mWork->Keep());
    fs::remove(mFolder / "journals");
    EXPECT_FALSE(mWork->Keep());
    EXPECT_FALSE(mWork->GetJournalPath().empty());
}

TEST_F(UnsavedWorkTest, TheNextStartFindsItAndNotWhatIsSaved) {
    Select("zoo~animals~Dog");
    Write("##", "A dog.");
    ASSERT_FALSE(mWork->Keep());
    mWork.reset(); // as a process that ends without a word
    auto left = CommentJournal::FindLeftOver(mFolder / "journals", ProjectFile());
    ASSERT_EQ(left.size(), 1u);
    const auto other = Made(ProjectSession::Open(ProjectFile()));
    EXPECT_EQ(CommentRecovery::Compare(left, *other->GetProject()->GetComments()).size(), 1u);
    ASSERT_FALSE(mWorkspace->Save());
    const auto saved = Made(ProjectSession::Open(ProjectFile()));
    EXPECT_TRUE(CommentRecovery::Compare(left, *saved->GetProject()->GetComments()).empty());
}

TEST_F(UnsavedWorkTest, AnotherReadingOfTheFilesReachesTheTree) {
    Select("zoo~animals~Dog");
    Write("##", "A dog.");
    ASSERT_FALSE(mWorkspace->Save());
    auto opened = ProjectDocument::Open(ProjectFile());
    ASSERT_TRUE(opened.Project);
    opened.Project->GetComments()->Find("zoo~animals~Dog")->Item(1)->SetText("Read again.");
    auto session = mWorkspace->Release();
    session->Replace(opened.Project);
    mWorkspace = std::make_unique<Workspace>(std::move(session));
    ASSERT_TRUE(mWorkspace->Select("zoo~animals~Dog"));
    EXPECT_EQ(Row("##", false)->GetValue(), "Read again.");
}

} // namespace

} // namespace paperkite::test
