#include "authoring/CommentEditorFixture.h"

namespace paperkite::test {
namespace {

/// What designers and the page may ask of the editor.
class CommentEditorHostTest : public CommentEditorFixture {
protected:
    ICommentDesignerHost& Host() { return mEditor; }
    /// Tells in the log when an item is brought into step with its general comment.
    class TellingHelper : public ModelControlHelper {
    public:
        explicit TellingHelper(EventLog& log) : mLog(log) {}
        void SyncGeneralComment(const Ref<Object>& item, bool load) override {
            mLog.Add(load ? "sync(True)" : "sync(False)");
            ModelControlHelper::SyncGeneralComment(item, load);
        }

    private:
        EventLog& mLog;
    };
    Ref<TaggedComment> Made(const std::string& tag, const std::string& text = "made") {
        const auto comment = MakeRef<TaggedComment>("made");
        comment->SetTagIdentifier(tag);
        comment->SetText(text);
        return comment;
    }
};

TEST_F(CommentEditorHostTest, AnAddedCommentIsKeptAndTold) {
    mEditor.SetCommentType(CommentType::XMLCommentTags);
    Load();
    Host().ICommentDesignerHost_TaggedCommentAdded(mItem, Made("#remarks"));
    EXPECT_EQ(mLog.Take(), "added(#remarks///0) dirty");
    const auto comment = mItem->Comments()->Item("made");
    EXPECT_EQ(comment->GetState(), kTaggedCommentNew);
    EXPECT_EQ(comment->GetXMLCommentType(), "remarks");
    EXPECT_TRUE(comment->GetItem() == mItem);
}

TEST_F(CommentEditorHostTest, AGeneralCommentKeepsTheDescriptionInStep) {
    mItem->With("TaggedDescription", "");
    Load();
    Host().ICommentDesignerHost_TaggedCommentAdded(mItem, Made("##", "said"));
    EXPECT_EQ(mItem->Get("TaggedDescription").ToText(), "said");
    const auto comment = mItem->Comments()->Item("made");
    comment->SetText("said better");
    Host().ICommentDesignerHost_TaggedCommentChanged(mItem, comment);
    EXPECT_EQ(mItem->Get("TaggedDescription").ToText(), "said better");
    const auto note = mItem->Comment("#note", "note", "n");
    mItem->With("TaggedDescription", "untouched");
    Host().ICommentDesignerHost_TaggedCommentChanged(mItem, note);
    EXPECT_EQ(mItem->Get("TaggedDescription").ToText(), "untouched");
}

TEST_F(CommentEditorHostTest, TheDescriptionIsBroughtIntoStepAtItsPlaceInTheOrder) {
    CurrentServices().ControlHelper = std::make_shared<TellingHelper>(mLog);
    mItem->With("TaggedDescription", "");
    Load();
    Host().ICommentDesignerHost_TaggedCommentAdded(mItem, Made("##", "said"));
    // Only behind the whole addition.
    EXPECT_EQ(mLog.Take(), "added(##///0) dirty sync(False)");
    mEditor.SetDirty(false);
    mLog.Take();
    const auto comment = mItem->Comments()->Item("made");
    Host().ICommentDesignerHost_TaggedCommentChanged(mItem, comment);
    EXPECT_EQ(mLog.Take(), "changed(made,said) sync(False) dirty");
    mEditor.SetDirty(false);
    mLog.Take();
    Host().ICommentDesignerHost_TaggedCommentChanged(mItem, mItem->Comment("#note", "note", "n"));
    EXPECT_EQ(mLog.Take(), "changed(n,note) dirty");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorHostTest, AChangedCommentIsToldUnderItsId) {
    const auto comment = mItem->Comment("#note", "text", "n1", 1);
    Load();
    Host().ICommentDesignerHost_TaggedCommentChanged(mItem, comment);
    EXPECT_EQ(mLog.Take(), "changed(n1,text) dirty");
    EXPECT_EQ(comment->GetState(), 1);
}

TEST_F(CommentEditorHostTest, ADeletedCommentIsGoneOrATombstone) {
    const auto stored = mItem->Comment("#note", "text", "n1", 1);
    const auto fresh = mItem->Comment("#note", "text", "n2", kTaggedCommentNew);
    Load();
    mEditor.SetKeepTombstones(true);
    Host().ICommentDesignerHost_TaggedCommentDeleted(mItem, stored);
    Host().ICommentDesignerHost_TaggedCommentDeleted(mItem, fresh);
    EXPECT_EQ(mLog.Take(), "deleted(n1,3) dirty deleted(n2,2)");
    EXPECT_TRUE(mItem->Comments()->Contains("n1"));
    EXPECT_FALSE(mItem->Comments()->Contains("n2"));
}

TEST_F(CommentEditorHostTest, ItTellsWhatIsBeingEdited) {
    mEditor.SetModules({"ModA", "ModB"});
    mEditor.SetBaseURL("file:///base/");
    mEditor.SetAppName("Kite");
    mEditor.SetCommentType(CommentType::XMLCommentTags);
    Load();
    EXPECT_EQ(Host().ICommentDesignerHost_AppName(), "Kite");
    EXPECT_EQ(Host().ICommentDesignerHost_ModuleNames("any"),
              (std::vector<std::string>{"ModA", "ModB"}));
    EXPECT_TRUE(Host().ICommentDesignerHost_NamespaceDef() == mModel.Def("Test:Class"));
    EXPECT_TRUE(Host().ICommentDesignerHost_CurrentItem() == mItem);
    EXPECT_TRUE(Host().ICommentDesignerHost_CurrentRootItem() == mModel.Provider->Root);
    EXPECT_EQ(Host().ICommentDesignerHost_CommentType(), CommentType::XMLCommentTags);
    EXPECT_EQ(Host().ICommentDesignerHost_BaseURL(), "file:///base/");
}

TEST_F(CommentEditorHostTest, NoElementHasAParentHere) {
    for (const char* name : {"P", "P~A", "P~A~Run"}) {
        Load(name);
        EXPECT_FALSE(Host().ICommentDesignerHost_CurrentParentItem());
    }
}

TEST_F(CommentEditorHostTest, WithoutAProjectNameTheRootTellsIt) {
    Load();
    EXPECT_EQ(Host().ICommentDesignerHost_ProjectNames(), std::vector<std::string>{"P"});
    mEditor.SetProjectName("Library");
    EXPECT_EQ(Host().ICommentDesignerHost_ProjectNames(), std::vector<std::string>{"Library"});
}

TEST_F(CommentEditorHostTest, ItemsAreFoundByNameWithAProjectAndADefinition) {
    EXPECT_FALSE(Host().ICommentDesignerHost_GetObjectFromQualifiedName("P~B"));
    Load();
    EXPECT_FALSE(Host().ICommentDesignerHost_GetObjectFromQualifiedName("P~B"));
    mEditor.SetKiteProject(mModel.Project);
    EXPECT_TRUE(Host().ICommentDesignerHost_GetObjectFromQualifiedName("P~B") ==
                mModel.Item("P~B"));
    EXPECT_FALSE(Host().ICommentDesignerHost_GetObjectFromQualifiedName("P~nowhere"));
    EXPECT_EQ(mServices.TakeReports(), "");
    mModel.Project->Providers.clear();
    EXPECT_FALSE(Host().ICommentDesignerHost_GetObjectFromQualifiedName("P~B"));
    EXPECT_EQ(mServices.TakeReports(),
              "CommentEditor.ICommentDesignerHost_GetObjectFromQualifiedName (91)\n");
}

TEST_F(CommentEditorHostTest, TheNamespaceTellsWhetherItIsDotNet) {
    EXPECT_FALSE(Host().ICommentDesignerHost_IsDotNet());
    for (const auto& [name, isDotNet] :
         std::vector<std::pair<std::string, bool>>{{"kite.net:Class", true},
                                                   {"KITE.NET:Class", true},
                                                   {"kite.network:Class", false},
                                                   {"Class:kite.net", false}}) {
        mEditor.SetCurrentNamespaceDef(MakeDef(name));
        EXPECT_EQ(Host().ICommentDesignerHost_IsDotNet(), isDotNet) << name;
    }
}

TEST_F(CommentEditorHostTest, TheTemplateIsTheFirstThatServesAndIsNotHidden) {
    mModel.Def("Test:Project")->GetChildDefs()->SetName("kite.test");
    const auto add = [](const std::string& name, const std::string& moniker,
                        const std::string& options) {
        const auto made = MakeRef<PageTemplate>();
        made->Name = name;
        made->Options = options;
        const auto served = MakeRef<TemplateNamespace>();
        served->Moniker = moniker;
        made->Namespaces.push_back(served);
        GlobalConfig().Templates.Add(made);
        return made;
    };
    Load();
    EXPECT_FALSE(Host().ICommentDesignerHost_Template());
    add("Other", "kite.other", "");
    add("Hidden", "kite.test", "aXb");
    const auto wanted = add("Wanted", "KITE.TEST", "");
    add("Later", "kite.test", "");
    EXPECT_TRUE(Host().ICommentDesignerHost_Template() == wanted);
    GlobalConfig().Templates.Clear();
    EXPECT_TRUE(Host().ICommentDesignerHost_Template() == wanted);
}

TEST_F(CommentEditorHostTest, ALinkIsBuiltByTheHost) {
    std::string caption = "old caption";
    EXPECT_EQ(
        Host().ICommentDesignerHost_BuildLink("old", true, caption, false, "Title", "Tip", true),
        "");
    std::string told;
    const auto tie = mEditor.Events.BuildLinkRequest.Connect(
        [&](const std::string& existing, bool getCaption, std::string& itsCaption,
            std::string& newLink, bool external, const std::string& title, const std::string& tip,
            bool extension) {
            told = existing + "|" + std::to_string(getCaption) + "|" + itsCaption + "|" + newLink +
                   "|" + std::to_string(external) + "|" + title + "|" + tip + "|" +
                   std::to_string(extension);
            itsCaption = "new caption";
            newLink = "new";
        });
    EXPECT_EQ(
        Host().ICommentDesignerHost_BuildLink("old", true, caption, false, "Title", "Tip", true),
        "new");
    EXPECT_EQ(told, "old|1|old caption||0|Title|Tip|1");
    EXPECT_EQ(caption, "new caption");
}

TEST_F(CommentEditorHostTest, AnyDataCellIsEmpty) {
    ISimplePageHost& pages = mEditor;
    for (const Value& index : {Value(1), Value("ProjectName"), Value(), Value(mItem)})
        EXPECT_TRUE(pages.ISimplePageHost_GetDataCell(index).IsEmpty());
}

TEST_F(CommentEditorHostTest, ThePageSurfaceSharesTypeFocusAndProject) {
    mEditor.SetCommentType(CommentType::XMLCommentTags);
    EXPECT_EQ(mEditor.InPlaceEditor->CommentType, CommentType::XMLCommentTags);
    mEditor.SetAutoSetFocus(false);
    EXPECT_FALSE(mEditor.InPlaceEditor->AutoSetFocus);
    mEditor.SetKiteProject(mModel.Project);
    EXPECT_TRUE(mEditor.InPlaceEditor->GetKiteProject() == mModel.Project);
}

} // namespace
} // namespace paperkite::test
