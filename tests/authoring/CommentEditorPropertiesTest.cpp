#include "authoring/CommentEditorFixture.h"

namespace paperkite::test {
namespace {

class CommentEditorPropertiesTest : public CommentEditorFixture {
protected:
    void Store(const std::string& folder, const std::string& name, const std::string& value) {
        mServices.Registry->Values[MemoryRegistry::Name(
            HKEY_CURRENT_USER, "Software\\Brindlewick\\Test" + folder, name)] = value;
    }
};

TEST_F(CommentEditorPropertiesTest, DirtyRaisesOnlyWhenItChanges) {
    mEditor.SetDirty(false);
    EXPECT_EQ(mLog.Take(), "");
    mEditor.SetDirty(true);
    mEditor.SetDirty(true);
    mEditor.SetDirty(false);
    EXPECT_EQ(mLog.Take(), "dirty clean");
}

TEST_F(CommentEditorPropertiesTest, LoadingSetsTheTitleAndClearsDirtyLast) {
    mEditor.SetDirty(true);
    mLog.Take();
    const Picture icon{"code-class", "", "class"};
    mEditor.Load(mModel.Def("Test:Class"), mItem, mModel.Provider->Root, icon, "Class A");
    EXPECT_EQ(mLog.Take(), "clean");
    EXPECT_EQ(mEditor.GetTitleCaption(), "Class A");
    EXPECT_EQ(mEditor.eb->GetGroup(1)->GetCaption(), "Class A");
    EXPECT_EQ(mEditor.GetTitleIcon(), icon);
    EXPECT_TRUE(mEditor.CurrentRootItem == mModel.Provider->Root);
}

TEST_F(CommentEditorPropertiesTest, AReportTellsItsStateInDeclaredOrder) {
    Load();
    VariableDump dump;
    mEditor.DumpVariables(dump);
    std::string names;
    for (const std::string& line : Split(dump.GetText(), "\r\n"))
        if (line.starts_with("<") && !line.starts_with("</"))
            names += line.substr(1, line.find('>') - 1) + " ";
    EXPECT_EQ(names,
              "NamespaceDefs CurrentRootItem CancelSpellCheck mShowCombo mCurrentNamespaceDef "
              "mNamespaceChanged mEditInFocus mForceChange mIgnoreReset mCurrentCodeElement "
              "mShowLegacyTags mListImplicitTaggedCommentType mDesignFlag mSpellCheckCancelled "
              "mModules mProjectName ActiveDesigner ActiveTaggedCommentDef AddButtonIndex "
              "DeleteButtonIndex mNoSetFocus mInPlaceTemplate mWrapper mSpell CreatedDesigners "
              "mBaseURL mKiteProject mInPlaceEditorIsActive mKeepTombstones mDynamicHelpHost "
              "mCommentType mTipPopup mDirty mAutoSetFocus mTerminated mCheckBoxes "
              "mPostingtoCheckboxes mPopulating mInitialized ");
    EXPECT_NE(dump.GetText().find("<mTipPopup>{DataObject}</mTipPopup>"), std::string::npos);
    EXPECT_NE(dump.GetText().find("<mCheckBoxes>{EBCheckBoxes}</mCheckBoxes>"), std::string::npos);
}

TEST_F(CommentEditorPropertiesTest, TheDescriptionPaneComesFromTheSettings) {
    mEditor.Initialize();
    EXPECT_TRUE(mEditor.prpTags->GetDescriptionVisible());
    EXPECT_EQ(mEditor.prpTags->GetDescriptionHeight(), 75);
    Store("\\Layout\\DescriptionPane", "Visible", "0");
    Store("\\Layout\\DescriptionPane", "Height", "120");
    mEditor.ReloadSettings();
    EXPECT_FALSE(mEditor.prpTags->GetDescriptionVisible());
    EXPECT_EQ(mEditor.prpTags->GetDescriptionHeight(), 120);
}

TEST_F(CommentEditorPropertiesTest, ShowingFixesTheDescriptionPanes) {
    mEditor.Initialize();
    mEditor.UserControl_Show();
    EXPECT_EQ(mEditor.prpTags->GetDescriptionHeight(), 49);
    EXPECT_EQ(mEditor.prpFlags->GetDescriptionHeight(), 49);
    EXPECT_TRUE(mEditor.prpTags->GetDescriptionHeightFixed());
}

TEST_F(CommentEditorPropertiesTest, AppNameRestoresTheSplitterAndTheEndKeepsIt) {
    Store("", "CommentEditorSplitSize", "37");
    {
        CommentEditor editor;
        editor.SetAppName("Test");
        EXPECT_EQ(editor.splitMain->GetPercentage(), 37);
        editor.SetUserMode(true);
        editor.splitMain->SetPercentage(42);
    }
    EXPECT_EQ(mServices.Registry->Calls.back(),
              "write Software\\Brindlewick\\Test|CommentEditorSplitSize|1|42");
}

TEST_F(CommentEditorPropertiesTest, OutsideAHostNothingIsWritten) {
    { CommentEditor editor; }
    EXPECT_TRUE(mServices.Registry->Calls.empty());
}

TEST_F(CommentEditorPropertiesTest, TheTemplateIsTheFirstVisibleOneOfTheNamespace) {
    const auto add = [](const std::string& name, const std::string& options,
                        const std::string& moniker) {
        const auto pages = MakeRef<PageTemplate>();
        pages->Name = name;
        pages->Options = options;
        const auto served = MakeRef<TemplateNamespace>();
        served->Moniker = moniker;
        pages->Namespaces.push_back(served);
        GlobalConfig().Templates.Add(pages);
    };
    Load();
    EXPECT_FALSE(mEditor.GetInPlaceTemplate());
    add("other", "", "kite.other");
    add("hidden", "aX", "kite.test");
    // The class level has no collection name of its own; the project level has.
    add("right", "", "KITE.TEST");
    mEditor.SetCurrentNamespaceDef(mModel.Def("Test:Project"));
    ASSERT_TRUE(mEditor.GetInPlaceTemplate());
    EXPECT_EQ(mEditor.GetInPlaceTemplate()->Name, "right");
}

TEST_F(CommentEditorPropertiesTest, HelpIsToldWhereTheAuthorWorks) {
    Load();
    mEditor.eb->UserClick(mEditor.eb->GetGroup("other")->Item("other"));
    DynamicHelpQuery query;
    mEditor.IDynamicHelpContext_QueryContext(query);
    EXPECT_EQ(query.KeywordCollection,
              std::vector<std::string>{"Kite.CommentEditor.Other Information"});
    std::string attributes;
    for (const auto& [name, value] : query.Attributes)
        attributes += name + "=" + value + ";";
    EXPECT_EQ(attributes, "Kite.CommentEditor.Namespace=Test:Class;"
                          "Kite.CommentEditor.CommentType=Other Information;"
                          "Kite.CommentEditor.CommentID=other;");
}

TEST_F(CommentEditorPropertiesTest, TerminateRunsOnce) {
    Load();
    mEditor.Terminate();
    mEditor.Terminate();
    EXPECT_FALSE(mEditor.GetCurrentCodeElement());
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
