#include "authoring/DesignersFixture.h"

namespace paperkite::test {
namespace {

/// The explorer bar, its marks, and how surfaces come to the front.
class CommentEditorNavigationTest : public DesignersFixture {
protected:
    ExplorerBarGroup& Group(const std::string& key) { return *mEditor.eb->GetGroup(key); }
    Ref<GroupItem> Tab(const std::string& key) { return Group("Texts").Item(key); }
    std::string Keys(const std::string& group) {
        std::string keys;
        for (const auto& item : Group(group))
            keys += item->GetKey() + " ";
        return keys;
    }
    std::string Groups() {
        std::string keys;
        for (const auto& group : mEditor.eb->GetGroups())
            keys += group->GetKey() + " ";
        return keys;
    }
    std::string PageCaptions() {
        std::string captions;
        for (const auto& item : Group("main"))
            captions += item->GetKey() + "=" + item->GetCaption() + ";";
        return captions;
    }
    Ref<TaggedComment> Write(const std::string& tag) {
        const auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(tag);
        comment->SetItem(mItem);
        mEditor.ICommentDesignerHost_TaggedCommentAdded(mItem, comment);
        return comment;
    }
};

TEST_F(CommentEditorNavigationTest, TheBarBeginsWithThreeGroups) {
    EXPECT_EQ(Groups(), "main flags other ");
    EXPECT_EQ(Group("main").GetCaption(), "{Item Name}");
    EXPECT_EQ(Group("main").GetEmptyText(),
              "Full Page Edit is not available for this item. You can either edit this item using "
              "the parent items Full Page Edit, or edit comments individually");
    EXPECT_EQ(Group("main").Count(), 0u);
    EXPECT_EQ(Group("flags").GetCaption(), "Flags");
    EXPECT_EQ(Keys("flags"), "checkboxcontainer ");
    EXPECT_EQ(Group("other").GetCaption(), "Other");
    EXPECT_EQ(Keys("other"), "other ");
    EXPECT_EQ(Group("other").Item("other")->GetCaption(), "Other Information");
    EXPECT_TRUE(mEditor.eb->GetImageList()->Contains("tick"));
    EXPECT_TRUE(mEditor.eb->GetImageList()->Contains("headerimage"));
    mEditor.SetTitleCaption("Engine");
    EXPECT_EQ(Group("main").GetCaption(), "Engine");
    EXPECT_EQ(mEditor.GetTitleCaption(), "Engine");
}

TEST_F(CommentEditorNavigationTest, ATabStandsInItsGroupBeforeTheOthers) {
    Tag("#one").IconName = "Note";
    DefineTab("##deep", "Deep", "Lib.dsrA").GroupName = "More";
    Load();
    EXPECT_EQ(Groups(), "main flags Texts More other ");
    EXPECT_EQ(Group("Texts").GetCaption(), "Texts");
    EXPECT_EQ(Keys("Texts"), "#zero #one #two #same #plain ");
    EXPECT_EQ(Tab("#one")->GetCaption(), "One");
    EXPECT_EQ(Tab("#one")->GetToolTipText(), "Display One");
    EXPECT_EQ(Tab("#one")->GetTag(), "one");
    EXPECT_EQ(Tab("#one")->GetIcon(), "Note");
    EXPECT_EQ(Tab("#two")->GetIcon(), "");
    EXPECT_EQ(Group("More").Item("##deep")->GetTag(), "deep");
    mEditor.Refresh(false);
    EXPECT_EQ(Keys("Texts"), "#zero #one #two #same #plain ");
    mEditor.Refresh(true);
    EXPECT_EQ(Groups(), "main flags Texts More other ");
}

TEST_F(CommentEditorNavigationTest, ALegacyTabIsThereWhileItIsInUse) {
    DefineTab("#old", "Old", "Lib.dsrA").LegacyName = "1.0";
    mEditor.SetShowLegacyTags(true);
    Load();
    EXPECT_FALSE(Group("Texts").Contains("#old"));
    mModel.Item("P~A")->Comment("#OLD", "text", "o");
    mEditor.SetShowLegacyTags(false);
    Load();
    EXPECT_TRUE(Group("Texts").Contains("#old"));
    mModel.Item("P~A")->Comments()->Item("o")->SetState(kTaggedCommentTombstone);
    Load();
    EXPECT_FALSE(Group("Texts").Contains("#old"));
}

TEST_F(CommentEditorNavigationTest, FlagsAreShownWhereThereAreAny) {
    mItem->Comment("#ToDo", "", "t");
    Load();
    EXPECT_TRUE(Group("flags").GetVisible());
    EXPECT_TRUE(mEditor.prpFlags->Item("#todo")->GetChecked());
    EXPECT_TRUE(FlagBox("#todo")->GetChecked());
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mLog.Take(), "");
    Tag("#todo").Namespaces = "Test:Method";
    Load();
    EXPECT_FALSE(Group("flags").GetVisible());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorNavigationTest, OtherInformationNeedsMoreThanTheHeaders) {
    Load();
    const auto other = Group("other").Item("other");
    EXPECT_TRUE(other->GetVisible());
    EXPECT_FALSE(other->GetBold());
    EXPECT_EQ(other->GetIcon(), "");
    mItem->Comment("#note", "text", "n");
    mEditor.Refresh(false);
    EXPECT_TRUE(other->GetBold());
    EXPECT_EQ(other->GetIcon(), "tick");
    Open("other");
    for (const char* tag : {"##", "#remarks", "#note"})
        Tag(tag).Namespaces = "Test:Method";
    mItem->Comments()->Remove("n");
    mEditor.Refresh(false);
    EXPECT_FALSE(other->GetVisible());
    EXPECT_FALSE(other->GetSelected());
    EXPECT_FALSE(Group("other").GetVisible());
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "#zero");
}

TEST_F(CommentEditorNavigationTest, ATabThatTheAuthorChoseIsCarriedOverFromElementToElement) {
    Load();
    EXPECT_EQ(Selected(), "#zero");
    Open("#one");
    EXPECT_EQ(Tab("#one")->GetTag(), "");
    EXPECT_EQ(Tab("#two")->GetTag(), "two");
    for (const char* name : {"P~B", "P~C"}) {
        Load(name);
        EXPECT_EQ(Selected(), "#one") << name;
        EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("A").Designer) << name;
        EXPECT_EQ(Tab("#one")->GetTag(), "") << name;
    }
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorNavigationTest, ATabThatTheAuthorDidNotChooseIsNotCarriedOver) {
    DefineTab("#first", "First", "Lib.dsrA").Namespaces = "Test:Method";
    Load();
    EXPECT_EQ(Selected(), "#zero");
    AddTemplate({{"class.html", "Test:Class"}});
    Load("P~B");
    EXPECT_EQ(Selected(), "inplaceedit:class.html");
    EXPECT_EQ(Tab("#zero")->GetTag(), "zero");
}

TEST_F(CommentEditorNavigationTest, OtherInformationIsCarriedOverOnceTheAuthorChoseIt) {
    const std::vector<const char*> tabs{"#zero", "#one", "#two", "#same", "#plain"};
    for (const char* tag : tabs)
        Tag(tag).Namespaces = "Test:Method";
    Load();
    const auto other = Group("other").Item("other");
    EXPECT_EQ(Selected(), "other");
    EXPECT_EQ(other->GetTag(), "x");
    for (const char* tag : tabs)
        Tag(tag).Namespaces = "Test:Class";
    Load("P~B");
    EXPECT_EQ(Selected(), "#zero");
    Open("other");
    EXPECT_EQ(other->GetTag(), "");
    for (const char* name : {"P~C", "P~A"}) {
        Load(name);
        EXPECT_EQ(Selected(), "other") << name;
    }
}

TEST_F(CommentEditorNavigationTest, ATabIsFoundAgainByItsExactCaption) {
    Tag("#zero").TabName = "ONE";
    Load();
    Open("#one");
    Load("P~B");
    EXPECT_EQ(Selected(), "#one");
    Tag("#one").TabName = "one";
    Load("P~C");
    EXPECT_EQ(Selected(), "#zero");
    EXPECT_EQ(Tab("#zero")->GetTag(), "x");
}

TEST_F(CommentEditorNavigationTest, OfTwoTabsOfOneCaptionTheFirstIsShown) {
    Tag("#same").TabName = "Two";
    Load();
    Open("#same");
    Load("P~B");
    EXPECT_EQ(Selected(), "#two");
}

TEST_F(CommentEditorNavigationTest, WithoutALayoutTheThirdGroupIsShown) {
    AddTemplate({{"method.html", "Test:Method"}});
    Load();
    EXPECT_EQ(Group("main").Count(), 0u);
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "#zero");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetTag(), "x");
}

TEST_F(CommentEditorNavigationTest, OneLayoutIsFullPageEditAndIsShownFirst) {
    AddTemplate({{"class.html", "Test:Class"}, {"method.html", "Test:Method"}});
    Load();
    EXPECT_EQ(PageCaptions(), "inplaceedit:class.html=Full Page Edit;");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "inplaceedit:class.html");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetTag(), "x");
    EXPECT_EQ(FrontSurface(), "InPlaceEditor");
}

TEST_F(CommentEditorNavigationTest, SeveralLayoutsCarryTheirFileNames) {
    AddTemplate({{"a.html", "Test:Class"}, {"b.html", "Test:Method,TEST:CLASS,Test:Field"}});
    Load();
    EXPECT_EQ(PageCaptions(), "inplaceedit:a.html=Full Page Edit (a.html);"
                              "inplaceedit:b.html=Full Page Edit (b.html);");
}

TEST_F(CommentEditorNavigationTest, TheCountOfLayoutsTakesPartsOfNamesToo) {
    AddTemplate({{"a.html", "Test:Class"}, {"b.html", "Test:Classes"}});
    Load();
    EXPECT_EQ(PageCaptions(), "inplaceedit:a.html=Full Page Edit (a.html);");
}

TEST_F(CommentEditorNavigationTest, ALayoutIsSelectedByItsName) {
    AddTemplate({{"a.html", "Test:Class"}, {"b.html", "Test:Class"}});
    Load();
    mEditor.SelectInPlaceEditLayout("b.html");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "inplaceedit:b.html");
    EXPECT_EQ(FrontSurface(), "InPlaceEditor");
    mEditor.SelectInPlaceEditLayout("c.html");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "inplaceedit:b.html");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.SelectInPlaceEditLayout (5)\n");
}

// Marks

TEST_F(CommentEditorNavigationTest, TabsInUseAreMarked) {
    Tag("#one").IconName = "note";
    Load();
    EXPECT_FALSE(Tab("#one")->GetBold());
    const auto comment = Write("#one");
    EXPECT_TRUE(Tab("#one")->GetBold());
    EXPECT_EQ(Tab("#one")->GetIcon(), "note_ticked");
    Write("#remarks");
    EXPECT_EQ(Tab("#one")->GetIcon(), "note_ticked");
    mEditor.ICommentDesignerHost_TaggedCommentDeleted(mItem, comment);
    EXPECT_FALSE(Tab("#one")->GetBold());
    EXPECT_EQ(Tab("#one")->GetIcon(), "note");
}

TEST_F(CommentEditorNavigationTest, ATabWithoutIconIsTicked) {
    mItem->Comment("#two", "text", "2");
    Load();
    EXPECT_TRUE(Tab("#two")->GetBold());
    EXPECT_EQ(Tab("#two")->GetIcon(), "tick");
    EXPECT_FALSE(Tab("#one")->GetBold());
}

TEST_F(CommentEditorNavigationTest, TheTickOfATabWithoutIconIsItsIconFromThenOn) {
    Load();
    const auto comment = Write("#two");
    EXPECT_EQ(Tab("#two")->GetIcon(), "tick");
    for (int time = 0; time < 2; ++time) {
        Write("#remarks");
        EXPECT_EQ(Tab("#two")->GetIcon(), "tick_ticked");
    }
    mEditor.ICommentDesignerHost_TaggedCommentDeleted(mItem, comment);
    EXPECT_FALSE(Tab("#two")->GetBold());
    EXPECT_EQ(Tab("#two")->GetIcon(), "tick");
    Write("#remarks");
    EXPECT_EQ(Tab("#two")->GetIcon(), "tick");
}

TEST_F(CommentEditorNavigationTest, HiddenAndDisabledTabsBearNoMarks) {
    Load();
    Tab("#one")->SetEnabled(false);
    Tab("#two")->SetVisible(false);
    for (const char* tag : {"#one", "#two"}) {
        Write(tag);
        EXPECT_FALSE(Tab(tag)->GetBold()) << tag;
        EXPECT_EQ(Tab(tag)->GetIcon(), "") << tag;
    }
    Tab("#one")->SetEnabled(true);
    Tab("#two")->SetVisible(true);
    Write("#remarks");
    for (const char* tag : {"#one", "#two"})
        EXPECT_TRUE(Tab(tag)->GetBold()) << tag;
}

TEST_F(CommentEditorNavigationTest, OnlyCommentsOfTheElementUnderTheExactTagMark) {
    mItem->Comment("#ONE", "another case", "1");
    mItem->Comment("#two", "of another", "2")->SetItem(mModel.Item("P~B"));
    mItem->Comment("#same", "gone", "3", kTaggedCommentTombstone);
    Load();
    for (const char* tag : {"#one", "#two", "#same"})
        EXPECT_FALSE(Tab(tag)->GetBold()) << tag;
}

TEST_F(CommentEditorNavigationTest, AGeneralCommentMarksTheTabDescription) {
    Tag("#one").TabName = "Description";
    mItem->Comment("##", "general", "g");
    Load();
    EXPECT_TRUE(Tab("#one")->GetBold());
    EXPECT_FALSE(Tab("#two")->GetBold());
}

TEST_F(CommentEditorNavigationTest, FlagsAndPagesBearNoMarks) {
    AddTemplate({{"#one", "Test:Class"}});
    mItem->Comment("#todo", "", "t");
    Load();
    EXPECT_FALSE(Group("flags").Item("checkboxcontainer")->GetBold());
    EXPECT_FALSE(Group("main").Item(1)->GetBold());
}

// Surfaces

TEST_F(CommentEditorNavigationTest, TheFocusGoesToTheSurface) {
    Start("#one");
    mEditor.SetEditFocus();
    mEditor.SetEditFocusQueued();
    EXPECT_EQ(mCalls.Take(), "A.SetEditFocus A.SetEditFocusQueued");
    AddTemplate({{"class.html", "Test:Class"}});
    Load();
    Open("inplaceedit:class.html");
    mEditor.InPlaceEditor->GetEditControl()->UserFocus(false);
    mCalls.Take();
    mEditor.SetEditFocus();
    EXPECT_TRUE(mEditor.InPlaceEditor->GetEditControl()->HasFocus());
    mEditor.InPlaceEditor->GetEditControl()->UserFocus(false);
    mEditor.SetEditFocusQueued();
    EXPECT_FALSE(mEditor.InPlaceEditor->GetEditControl()->HasFocus());
    EXPECT_EQ(mCalls.Take(), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorNavigationTest, TheActiveEditorIsThatOfTheSurface) {
    AddTemplate({{"class.html", "Test:Class"}});
    Load();
    EXPECT_TRUE(mEditor.GetActiveHTMLEditor(true) == mEditor.InPlaceEditor->GetEditControl());
    Open("#plain");
    EXPECT_TRUE(mEditor.GetActiveHTMLEditor(false) == ControlOf("fixed").Editor);
    Open("#one");
    EXPECT_FALSE(mEditor.GetActiveHTMLEditor(true));
    ControlOf("A").Editor = MakeRef<HtmlEdit>("own");
    EXPECT_TRUE(mEditor.GetActiveHTMLEditor(true) == ControlOf("A").Editor);
    Open("other");
    EXPECT_FALSE(mEditor.GetActiveHTMLEditor(true));
    mEditor.eb->SetSelectedItem(nullptr);
    EXPECT_FALSE(mEditor.GetActiveHTMLEditor(true));
}

TEST_F(CommentEditorNavigationTest, ListsHaveNoEditorWhateverDesignerThereIs) {
    Group("flags").Add("flags", "All flags");
    Load();
    Open("#plain");
    const auto designer = mEditor.ActiveDesigner;
    ASSERT_TRUE(mEditor.GetActiveHTMLEditor(true));
    for (const char* key : {"other", "flags"}) {
        Open(key);
        mEditor.ActiveDesigner = designer;
        EXPECT_FALSE(mEditor.GetActiveHTMLEditor(true)) << key;
    }
}

TEST_F(CommentEditorNavigationTest, CommandsGoToThePageOrTheDefaultDesigner) {
    struct Watcher : HtmlEditObserver {
        void CommandWanted(const std::string& name,
                           const std::vector<std::string>& arguments) override {
            Told += name;
            for (const auto& argument : arguments)
                Told += "," + argument;
            Told += " ";
        }
        std::string Told;
    };
    AddTemplate({{"class.html", "Test:Class"}});
    Load();
    const auto useAll = [this] {
        mEditor.InsertTable(2, 3);
        mEditor.SetForeColorByName("red");
        mEditor.SetFillColorByName("blue");
        mEditor.ClickEditTool("bold");
    };
    const std::string all = "inserttable,2,3 forecolor,red fillcolor,blue bold ";
    Watcher onPage;
    const auto pageTie = mEditor.InPlaceEditor->GetEditControl()->Observe(onPage);
    useAll();
    EXPECT_EQ(std::exchange(onPage.Told, {}), all);
    EXPECT_EQ(mEditor.GetForeColorName() + mEditor.GetFillColorName(), "redblue");
    Open("#one");
    ControlOf("A").Editor = MakeRef<HtmlEdit>("own");
    Watcher onOther;
    const auto otherTie = ControlOf("A").Editor->Observe(onOther);
    useAll();
    EXPECT_EQ(onOther.Told + onPage.Told, "");
    EXPECT_EQ(mEditor.GetForeColorName() + mEditor.GetFillColorName(), "");
    Open("#plain");
    Watcher onDefault;
    const auto defaultTie = ControlOf("fixed").Editor->Observe(onDefault);
    useAll();
    EXPECT_EQ(onDefault.Told, all);
    EXPECT_EQ(mEditor.GetForeColorName() + mEditor.GetFillColorName(), "redblue");
    mEditor.InsertTable(0, 3);
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.InsertTable (5)\n");
    mEditor.ClickEditTool("no such tool");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.ClickEditTool (5)\n");
}

TEST_F(CommentEditorNavigationTest, AWrapperIsBoundToWhatIsShown) {
    EventLog wrapped;
    const auto wrapper = MakeRef<TestWrapper>(wrapped);
    Start("#one");
    mEditor.BindToWrapper(wrapper);
    EXPECT_EQ(mCalls.Take(), "A.BindToWrapper(CommandWrapper)");
    AddTemplate({{"class.html", "Test:Class"}});
    Load();
    wrapped.Take();
    Open("inplaceedit:class.html");
    EXPECT_EQ(wrapped.Take(), "lockrefresh unlockrefresh BindTo(True,HtmlEdit)");
    mEditor.BindToWrapper(wrapper);
    EXPECT_EQ(wrapped.Take(), "BindTo(True,HtmlEdit)");
    mEditor.BindToWrapper({});
    Open("other");
    EXPECT_EQ(wrapped.Take(), "");
    mEditor.BindToWrapper(wrapper);
    EXPECT_EQ(wrapped.Take(), "");
    EXPECT_TRUE(mEditor.GetCommandWrapper() == wrapper);
}

TEST_F(CommentEditorNavigationTest, AWrapperIsReleasedWhereNoPageCanBeMade) {
    EventLog wrapped;
    mEditor.BindToWrapper(MakeRef<TestWrapper>(wrapped));
    AddTemplate({{"class.html", "Test:Class"}});
    // No project: there is no template to make a page with.
    Load();
    EXPECT_EQ(wrapped.Take(), "lockrefresh unlockrefresh BindTo(True,HtmlEdit)");
    CurrentServices().HTMLDOMFactory = nullptr;
    mEditor.SelectInPlaceEditLayout("class.html");
    Open("other");
    wrapped.Take();
    Open("inplaceedit:class.html");
    EXPECT_EQ(wrapped.Take(), "lockrefresh unlockrefresh BindTo(True,HtmlEdit)");
}

TEST_F(CommentEditorNavigationTest, TheToolbarStyleReachesTheEditors) {
    Load();
    mEditor.SetToolbarStyle(ToolbarStyle::TextUnderIcons);
    EXPECT_EQ(mEditor.DockCommentTypes->GetToolbarStyle(), ToolbarStyle::TextUnderIcons);
    EXPECT_EQ(mEditor.InPlaceEditor->GetEditControl()->GetContextToolbarStyle(), 2);
    EXPECT_EQ(ControlOf("fixed").Editor->GetContextToolbarStyle(), 2);
}

TEST_F(CommentEditorNavigationTest, TheToolbarStyleReachesTheDefaultDesignerFromTheBeginning) {
    CommentEditor editor;
    editor.SetToolbarStyle(ToolbarStyle::TextBesideIcons);
    EXPECT_EQ(ControlOf("fixed").Editor->GetContextToolbarStyle(), 3);
    editor.Initialize();
    EXPECT_EQ(ControlOf("fixed").Editor->GetContextToolbarStyle(), 3);
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
