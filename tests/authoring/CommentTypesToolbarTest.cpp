#include "authoring/DesignersFixture.h"

namespace paperkite::test {
namespace {

/// The toolbar of comment types, and how the surfaces lie under it.
class CommentTypesToolbarTest : public DesignersFixture {
protected:
    CommentTypesToolbarTest() {
        mServices.Files->Files["/icons/commenttypes"] = {"Note", "Note_Ticked", "Two"};
        Tag("#one").IconName = "NOTE";
        Tag("#two").IconName = "two";
        Tag("#same").IconName = "missing";
    }
    void AddPages(const std::vector<std::string>& files) {
        std::vector<std::pair<std::string, std::string>> layouts;
        for (const std::string& file : files)
            layouts.emplace_back(file, "Test:Class");
        AddTemplate(layouts);
    }
    DockHost& Dock() { return *mEditor.DockCommentTypes; }
    Ref<DockCommand> Command(const std::string& name) { return Dock().Commands.Item(name); }
    /// The buttons, "|" before those that begin a group.
    std::string Buttons() {
        std::string text;
        for (const auto& button : *Dock().GetToolbar(1))
            text += (button.BeginGroup ? "|" : "") + button.Command->GetName() + " ";
        return text;
    }
    std::string Image(const std::string& name) { return Command(name)->GetImage(); }
};

TEST_F(CommentTypesToolbarTest, ItIsATwinOfTheBar) {
    AddPages({"a.html", "b.html"});
    Load();
    EXPECT_EQ(Buttons(), "|p-fullpageedit |#one #two |flags other |TipPopup ");
    EXPECT_EQ(Image("p-fullpageedit"), "fullpageedit");
    EXPECT_TRUE(Command("p-fullpageedit")->GetIsPopup());
    const auto& pages = Command("p-fullpageedit")->GetPopupCommands();
    ASSERT_EQ(pages.Count(), 2u);
    EXPECT_EQ(pages.Item(1)->GetName(), "inplaceedit:a.html");
    EXPECT_EQ(pages.Item(1)->GetCaption(), "Full Page Edit (a.html)");
    EXPECT_EQ(Command("flags")->GetCaption(), "Flags");
    EXPECT_EQ(Command("flags")->GetToolTipText(), "Flags");
    EXPECT_EQ(Command("other")->GetCaption(), "Other Information");
    EXPECT_EQ(Image("#one"), "note");
    EXPECT_EQ(Command("#one")->GetCaption(), "One");
    EXPECT_EQ(Command("TipPopup")->GetToolTipText(),
              "Show a popup tip describing the active comment type");
}

TEST_F(CommentTypesToolbarTest, ATabWithoutImageHasNoButton) {
    Load();
    EXPECT_FALSE(Dock().Commands.Contains("#same"));
    EXPECT_FALSE(Dock().Commands.Contains("#plain"));
    EXPECT_FALSE(Dock().Commands.Contains("checkboxcontainer"));
    EXPECT_FALSE(Dock().Commands.Contains("p-fullpageedit"));
}

TEST_F(CommentTypesToolbarTest, ARefreshMakesItAnew) {
    AddPages({"a.html"});
    Load();
    const std::string before = Buttons();
    const std::size_t commands = Dock().Commands.Count();
    for (int time = 0; time < 3; ++time)
        mEditor.Refresh(time == 1);
    EXPECT_EQ(Buttons(), before);
    EXPECT_EQ(Dock().Commands.Count(), commands);
    Tag("#todo").Namespaces = "";
    mEditor.Refresh(false);
    EXPECT_EQ(Buttons(), "|p-fullpageedit |#one #two |other |TipPopup ");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentTypesToolbarTest, TheTipSurvivesAsTheFirstCommand) {
    mEditor.Initialize();
    const auto tip = Command("TipPopup");
    for (const char* name : {"P~A", "P~B"}) {
        Load(name);
        EXPECT_TRUE(Dock().Commands.Item(1) == tip) << name;
    }
}

TEST_F(CommentTypesToolbarTest, HiddenAndDisabledItemsHaveNoButtons) {
    Load();
    const auto other = mEditor.eb->GetGroup("other")->Item("other");
    other->SetEnabled(false);
    mEditor.Refresh(true);
    EXPECT_FALSE(Dock().Commands.Contains("other"));
    other->SetEnabled(true);
    other->SetVisible(false);
    mEditor.Refresh(true);
    EXPECT_FALSE(Dock().Commands.Contains("other"));
    other->SetVisible(true);
    mEditor.Refresh(true);
    EXPECT_TRUE(Dock().Commands.Contains("other"));
}

TEST_F(CommentTypesToolbarTest, AChoiceOfTheAuthorIsCarriedOverToTheNextElement) {
    mEditor.SetShowCombo(true);
    Load();
    Dock().UserClick("#one");
    for (const char* name : {"P~B", "P~C"}) {
        Load(name);
        EXPECT_EQ(Selected(), "#one") << name;
        EXPECT_EQ(Checked(), "#one ") << name;
    }
}

TEST_F(CommentTypesToolbarTest, TheItemThatTheCodeChoseIsTheAuthorsOnceItsButtonIsPressed) {
    for (const char* tag : {"#zero", "#one", "#two", "#same", "#plain"})
        Tag(tag).Namespaces = "Test:Method";
    mEditor.SetShowCombo(true);
    Load();
    const auto other = mEditor.eb->GetGroup("other")->Item("other");
    EXPECT_EQ(other->GetTag(), "x");
    Dock().UserClick("other");
    EXPECT_EQ(other->GetTag(), "");
}

TEST_F(CommentTypesToolbarTest, ButtonsAreCheckedIgnoringCase) {
    Load();
    mEditor.eb->UserClick(mEditor.eb->GetGroup("other")->Add("FLAGS", "All flags"));
    EXPECT_EQ(Checked(), "flags ");
}

TEST_F(CommentTypesToolbarTest, AButtonChoosesTheSurfaceAndTheItemOfTheBar) {
    AddPages({"a.html"});
    mEditor.SetShowCombo(true);
    Load();
    EXPECT_EQ(Checked(), "inplaceedit:a.html ");
    Dock().UserClick("#one");
    EXPECT_EQ(Checked(), "#one ");
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "#one");
    EXPECT_NE(mCalls.Take().find("A.SetEditFocus"), std::string::npos);
    Dock().UserClick("flags");
    EXPECT_EQ(Checked(), "flags ");
    EXPECT_EQ(FrontSurface(), "prpFlags");
    Dock().UserClick("other");
    EXPECT_EQ(FrontSurface(), "prpTags");
    EXPECT_TRUE(mEditor.prpTags->HasFocus());
    Dock().UserClick(Command("p-fullpageedit")->GetPopupCommands().Item(1));
    EXPECT_EQ(Checked(), "inplaceedit:a.html ");
    EXPECT_EQ(FrontSurface(), "InPlaceEditor");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentTypesToolbarTest, TheTipTellsWhatTheTabIsFor) {
    mEditor.SetShowCombo(true);
    Load();
    Dock().UserClick("other");
    EXPECT_FALSE(Command("TipPopup")->GetVisible());
    Dock().UserClick("#one");
    EXPECT_TRUE(Command("TipPopup")->GetVisible());
    mCalls.Take();
    Dock().UserClick("TipPopup");
    EXPECT_EQ(mCalls.Take(), "");
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    const auto& window = Dock().PopupWindow("TipPopup");
    const auto form = window.Content.As<frmTipPopup>();
    ASSERT_TRUE(form);
    EXPECT_EQ(form->GetTipText(), "<p><b>One</b></p><p>Tip of One</p>");
    EXPECT_EQ(window.Width, form->GetWidth());
    EXPECT_EQ(window.Height, form->GetHeight());
    mEditor.Terminate();
    EXPECT_FALSE(Dock().PopupWindow("TipPopup").Content);
}

TEST_F(CommentTypesToolbarTest, OnlyTabsHaveATip) {
    AddPages({"a.html"});
    mEditor.SetShowCombo(true);
    Load();
    for (const char* key : {"flags", "other", "inplaceedit:a.html"}) {
        Dock().UserClick("#one");
        EXPECT_TRUE(Command("TipPopup")->GetVisible());
        Dock().UserClick(key);
        EXPECT_FALSE(Command("TipPopup")->GetVisible()) << key;
    }
}

TEST_F(CommentTypesToolbarTest, WithoutATabTheTipStaysAsItWas) {
    mEditor.SetShowCombo(true);
    Load();
    Dock().UserClick("#one");
    Dock().UserClick("TipPopup");
    auto& window = Dock().PopupWindow("TipPopup");
    window.Width = 11;
    window.Height = 12;
    ChooseCommand("#nowhere");
    ASSERT_FALSE(mEditor.ActiveTaggedCommentDef);
    Dock().Events.PopupWindowShowing.Raise("TipPopup");
    EXPECT_EQ(window.Content.As<frmTipPopup>()->GetTipText(), "<p><b>One</b></p><p>Tip of One</p>");
    EXPECT_EQ(window.Width, 11);
    EXPECT_EQ(window.Height, 12);
}

TEST_F(CommentTypesToolbarTest, ButtonsTellWhatIsInUse) {
    mItem->Comment("#one", "text", "1");
    mItem->Comment("#todo", "", "t");
    Load();
    EXPECT_EQ(Image("#one"), "note_ticked");
    EXPECT_EQ(Image("#two"), "two");
    EXPECT_EQ(Image("flags"), "flags_ticked");
    EXPECT_EQ(Image("other"), "other");
    mItem->Comment("#note", "note", "n");
    mItem->Comments()->Remove("1");
    mItem->Comments()->Remove("t");
    mEditor.Refresh(false);
    EXPECT_EQ(Image("#one"), "note");
    EXPECT_EQ(Image("flags"), "flags_unticked");
    EXPECT_EQ(Image("other"), "other_ticked");
}

TEST_F(CommentTypesToolbarTest, TheComboFormPutsTheSurfacesUnderTheToolbar) {
    mEditor.UserControl->Move(0, 0, 600, 400);
    Load();
    Dock().SetWidth(500);
    mEditor.SetShowCombo(true);
    EXPECT_FALSE(mEditor.eb->GetVisible());
    EXPECT_TRUE(Dock().GetVisible());
    EXPECT_TRUE(Dock().GetClient() == mEditor.tagsContainer);
    EXPECT_FALSE(mEditor.splitMain->GetSecondPane());
    EXPECT_EQ(Dock().GetBounds(), (Bounds{0, 0, 600, 400}));
    Dock().UserClientResize({10, 30, 580, 360});
    EXPECT_EQ(mEditor.tagsContainer->GetBounds(), (Bounds{10, 30, 580, 360}));
    EXPECT_EQ(mEditor.splitMain->GetBounds(), (Bounds{10, 30, 580, 360}));
    for (const auto& surface : std::initializer_list<Ref<Control>>{
             mEditor.prpTags, mEditor.prpFlags, mEditor.InPlaceEditor, mEditor.DesignerContainer})
        EXPECT_EQ(surface->GetBounds(), (Bounds{0, 0, 580, 360})) << surface->GetName();
    EXPECT_EQ(ControlOf("Z").GetBounds(), (Bounds{0, 0, 580, 360}));
    mEditor.SetShowCombo(false);
    EXPECT_FALSE(Dock().GetVisible());
    EXPECT_TRUE(mEditor.splitMain->GetSecondPane() == mEditor.tagsContainer);
    EXPECT_EQ(mEditor.splitMain->GetBounds(), (Bounds{0, 0, 600, 400}));
}

TEST_F(CommentTypesToolbarTest, TheToolbarIsNarrowedBeforeItFillsTheControl) {
    mEditor.UserControl->Move(0, 0, 600, 400);
    Dock().SetWidth(500);
    std::vector<int> widths;
    const auto tie =
        Dock().ControlEvents.Resize.Connect([&](int width, int) { widths.push_back(width); });
    mEditor.SetShowCombo(true);
    EXPECT_EQ(widths, (std::vector<int>{485, 600}));
}

TEST_F(CommentTypesToolbarTest, AHiddenToolbarMovesNothingBesideTheBar) {
    mEditor.UserControl->Move(0, 0, 600, 400);
    Load();
    const Bounds before = mEditor.tagsContainer->GetBounds();
    Dock().UserClientResize({10, 30, 50, 40});
    EXPECT_EQ(mEditor.tagsContainer->GetBounds(), before);
    EXPECT_EQ(mEditor.splitMain->GetBounds(), (Bounds{0, 0, 600, 400}));
}

TEST_F(CommentTypesToolbarTest, WithoutATabNoDesignerIsMoved) {
    Load();
    Open("other");
    ControlOf("Z").Move(5, 6, 7, 8);
    mEditor.Refresh(true);
    EXPECT_FALSE(mEditor.ActiveTaggedCommentDef);
    EXPECT_EQ(ControlOf("Z").GetBounds(), (Bounds{5, 6, 7, 8}));
}

TEST_F(CommentTypesToolbarTest, TheBarComesBackWhereTheControlIsVisible) {
    mEditor.SetShowCombo(true);
    mEditor.SetShowCombo(false);
    EXPECT_TRUE(mEditor.eb->GetVisible());
    mEditor.SetShowCombo(true);
    mEditor.UserControl->SetVisible(false);
    mEditor.SetShowCombo(false);
    EXPECT_FALSE(mEditor.eb->GetVisible());
}

TEST_F(CommentTypesToolbarTest, ANewSizeOfTheControlReachesTheToolbar) {
    mEditor.SetShowCombo(true);
    Load();
    mEditor.UserControl->Move(0, 0, 320, 240);
    EXPECT_EQ(Dock().GetBounds(), (Bounds{0, 0, 320, 240}));
    mEditor.UserControl->Move(0, 0, 0, 0);
    EXPECT_EQ(Dock().GetWidth(), 0);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentTypesToolbarTest, WithoutAnElementNothingIsShown) {
    mEditor.SetShowCombo(true);
    Load();
    mEditor.SetCurrentCodeElement(nullptr);
    for (const auto& surface : std::initializer_list<Ref<Control>>{
             mEditor.eb, mEditor.DockCommentTypes, mEditor.InPlaceEditor, mEditor.prpFlags,
             mEditor.prpTags})
        EXPECT_FALSE(surface->GetVisible()) << surface->GetName();
    EXPECT_FALSE(mEditor.ActiveDesigner);
    EXPECT_FALSE(mEditor.ActiveTaggedCommentDef);
}

} // namespace
} // namespace paperkite::test
