#include "host/HostTest.h"

namespace paperkite::test {

namespace {

class WorkspaceTest : public HostTest {
protected:
    WorkspaceTest() : mWorkspace(std::make_unique<Workspace>(Create())) {}

    std::string Selected() {
        const auto node = mWorkspace->GetEditor().Project.GetSelectedItem();
        return node ? node->GetKey() : std::string();
    }
    /// Writes a comment as an author does: the offered row, its button, the text.
    void Write(const std::string& item, const std::string& tag, const std::string& text) {
        ASSERT_TRUE(mWorkspace->Select(item));
        PropertiesList& rows = *mWorkspace->GetEditor().cEditor.prpTags;
        for (const auto& row : rows) {
            if (row->IsHeader() || !row->GetReadOnly() || row->GetCaption() != tag) continue;
            rows.SetSelectedItem(row);
            rows.UserClickButton("AddButton");
            rows.UserType(text);
            mWorkspace->GetEditor().CommitEdit();
            return;
        }
        FAIL() << tag << " is not offered";
    }
    /// All undocumented items from the top, or from the bottom.
    std::string Walk(bool forward) {
        std::string keys;
        Ref<TreeNode> node;
        if (!forward) {
            // The last of all is where the walk forward ends.
            for (auto next = mWorkspace->NextUndocumented({}); next;
                 next = mWorkspace->NextUndocumented(next))
                node = next;
            keys = node->GetKey() + " ";
        }
        do {
            node = forward ? mWorkspace->NextUndocumented(node)
                           : mWorkspace->PreviousUndocumented(node);
            if (node) keys += node->GetKey() + " ";
        } while (node);
        return keys;
    }

    std::unique_ptr<Workspace> mWorkspace;
};

TEST_F(WorkspaceTest, AnItemIsSelectedHoweverDeepItLies) {
    EXPECT_TRUE(mWorkspace->Select("zoo~animals~Dog~Bark"));
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Bark");
    const auto element = mWorkspace->GetEditor().cEditor.GetCurrentCodeElement();
    ASSERT_TRUE(element);
    EXPECT_EQ(element->Get("QualifiedName").ToText(), "zoo~animals~Dog~Bark");
}

TEST_F(WorkspaceTest, AnItemIsSelectedInGroupsToo) {
    mWorkspace->GetEditor().Project.SetGrouped(true);
    mWorkspace->Load();
    EXPECT_TRUE(mWorkspace->Select("zoo~animals~Cat~Purr"));
    EXPECT_EQ(Selected(), "zoo~animals~Cat~Purr");
}

TEST_F(WorkspaceTest, WhatTheTreeDoesNotShowIsNotSelected) {
    GlobalConfig().ProjectViewOptions.ShowPrivate = false;
    mWorkspace->Load();
    EXPECT_FALSE(mWorkspace->Select("zoo~animals~Dog~mAge"));
    EXPECT_FALSE(mWorkspace->Select("zoo~animals~Emu"));
}

TEST_F(WorkspaceTest, TheNextUndocumentedItemIsFoundAcrossLevels) {
    GlobalConfig().ProjectViewOptions.ShowPrivate = false;
    mWorkspace->Load();
    EXPECT_EQ(Walk(true), "zoo~animals zoo~animals~Cat zoo~animals~Cat~Age zoo~animals~Cat~Purr "
                          "zoo~animals~Dog zoo~animals~Dog~Age zoo~animals~Dog~Bark ");
}

TEST_F(WorkspaceTest, DocumentedItemsAreSkipped) {
    GlobalConfig().ProjectViewOptions.ShowPrivate = false;
    mWorkspace->Load();
    Write("zoo~animals", "##", "Those that live here.");
    Write("zoo~animals~Cat~Age", "##remarks", "In years.");
    EXPECT_EQ(Walk(true), "zoo~animals~Cat zoo~animals~Cat~Purr zoo~animals~Dog "
                          "zoo~animals~Dog~Age zoo~animals~Dog~Bark ");
}

TEST_F(WorkspaceTest, ThePreviousIsTheWayBack) {
    GlobalConfig().ProjectViewOptions.ShowPrivate = false;
    mWorkspace->Load();
    Write("zoo~animals~Dog", "##", "Barks.");
    EXPECT_EQ(Walk(false), "zoo~animals~Dog~Bark zoo~animals~Dog~Age zoo~animals~Cat~Purr "
                           "zoo~animals~Cat~Age zoo~animals~Cat zoo~animals ");
}

TEST_F(WorkspaceTest, GroupsAreNoItems) {
    GlobalConfig().ProjectViewOptions.ShowPrivate = false;
    mWorkspace->GetEditor().Project.SetGrouped(true);
    mWorkspace->Load();
    EXPECT_EQ(Walk(true), "zoo~animals zoo~animals~Cat zoo~animals~Cat~Age zoo~animals~Cat~Purr "
                          "zoo~animals~Dog zoo~animals~Dog~Age zoo~animals~Dog~Bark ");
}

TEST_F(WorkspaceTest, AnOpenEditIsSavedWithTheRest) {
    ASSERT_TRUE(mWorkspace->Select("zoo~animals~Dog"));
    PropertiesList& rows = *mWorkspace->GetEditor().cEditor.prpTags;
    for (const auto& row : rows)
        if (row->GetCaption() == "##") {
            rows.SetSelectedItem(row);
            break;
        }
    rows.UserClickButton("AddButton");
    rows.UserType("Not yet left.");
    EXPECT_FALSE(mWorkspace->Save());
    const auto opened = Made(ProjectSession::Open(ProjectFile()));
    const auto comments = opened->GetProject()->GetComments()->Find("zoo~animals~Dog");
    ASSERT_TRUE(comments);
    ASSERT_EQ(comments->Count(), 1u);
    EXPECT_EQ(comments->Item(1)->GetText(), "Not yet left.");
}

} // namespace

} // namespace paperkite::test
