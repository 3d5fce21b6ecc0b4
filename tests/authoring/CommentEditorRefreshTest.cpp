#include "authoring/CommentEditorFixture.h"

namespace paperkite::test {
namespace {

using CommentEditorRefreshTest = CommentEditorFixture;

const char* const kOffers = " [Available to add] ##+ #remarks+ #note+";

TEST_F(CommentEditorRefreshTest, CommentsStandAboveWhatIsAvailable) {
    mItem->Comment("#remarks", "Never null.", "r1");
    Load();
    EXPECT_EQ(Rows(), std::string("[Existing Comments] #remarks=Never null.") + kOffers);
    const auto row = mEditor.prpTags->Item("r1");
    EXPECT_EQ(row->GetDisplayText(), "Remarks");
    EXPECT_FALSE(row->GetReadOnly());
    EXPECT_EQ(mEditor.prpTags->Item(1)->GetKey(), "ExistingHeader");
    EXPECT_TRUE(mEditor.prpTags->Contains("NewHeader"));
    EXPECT_EQ(mEditor.prpTags->GetText(), "Working, please wait...");
    EXPECT_EQ(mEditor.prpTags->GetColumnCaption("Name"), "Tag");
    EXPECT_EQ(mEditor.prpTags->GetColumnCaption("Value"), "Value");
    EXPECT_FALSE(mEditor.prpTags->GetUpdatesSuspended());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorRefreshTest, AnOfferInvitesAndSaysWhetherItsTagIsInUse) {
    mItem->Comment("#remarks");
    Load();
    const auto offer = Offer("#note");
    EXPECT_EQ(offer->GetValue(), "Click to add this tag...");
    EXPECT_EQ(offer->GetDisplayText(), "Note");
    EXPECT_EQ(offer->GetValueColour(), ValueColour::GrayText);
    EXPECT_EQ(offer->GetValueType(), PropertyValueType::String);
    EXPECT_TRUE(offer->GetValueLocked());
    EXPECT_EQ(offer->GetDescription(),
              "This tag has not be added to the selected code element, but is available for "
              "insertion if required.<BR><BR>Click the \"Add Tag\" button to the right of the tag "
              "description to insert this tag.");
    EXPECT_EQ(Offer("#remarks")->GetDescription(),
              "This tag has already been added to the selected code element, but may be inserted "
              "again if required.<BR><BR>Click the \"Add Tag\" button to the right of the tag "
              "description to insert another copy of this tag.");
}

TEST_F(CommentEditorRefreshTest, CommentsOfOtherItemsTabsFlagsTombstonesAndStrangersAreNotListed) {
    const auto other = mModel.Item("P~B")->Comment("#remarks", "other");
    mItem->Comments()->Add(other, other->GetId());
    mItem->Comment("#tab");
    mItem->Comment("#todo");
    mItem->Comment("#unknown");
    mItem->Comment("#note", "gone", "t", kTaggedCommentTombstone);
    Load();
    EXPECT_EQ(Rows(), std::string("[Existing Comments]") + kOffers);
}

TEST_F(CommentEditorRefreshTest, XMLCommentsHideWhatHasNoMapping) {
    mItem->Comment("#note");
    mItem->Comment("##");
    mEditor.SetCommentType(CommentType::XMLCommentTags);
    Load();
    EXPECT_EQ(Rows(), "[Existing Comments] ##=text [Available to add] ##+ #remarks+");
}

TEST_F(CommentEditorRefreshTest, OptionsLegacyAndTheDesignFlagHideOffers) {
    Tag("##").Options = "aX";
    Tag("#remarks").Options = "x";
    Tag("#note").LegacyName = "old";
    Load();
    EXPECT_EQ(Rows().find("#remarks+"), std::string::npos);
    EXPECT_EQ(Rows().find("#note+"), std::string::npos);
    mEditor.SetShowLegacyTags(true);
    mEditor.Refresh(false);
    EXPECT_NE(Rows().find("#note+"), std::string::npos);
    Tag("#note").TagType = "aDb";
    mEditor.SetDesignFlag("d");
    mEditor.Refresh(false);
    EXPECT_EQ(Rows().find("#note+"), std::string::npos);
}

TEST_F(CommentEditorRefreshTest, NamespacesAreComparedByTheEndOfAnEntry) {
    EXPECT_TRUE(ContainsNamespace("Test:Class,Test:Method", "test:class"));
    EXPECT_TRUE(ContainsNamespace("Test:Class,Test:Method", "Test:Method"));
    EXPECT_TRUE(ContainsNamespace("Other:Test:Class", "Test:Class"));
    EXPECT_FALSE(ContainsNamespace("Test:Classes,Test:Class", "Test:Class"));
    EXPECT_FALSE(ContainsNamespace("Test:Method", "Test:Class"));
    EXPECT_FALSE(ContainsNamespace("", "Test:Class"));
    Tag("#note").Namespaces = "Test:Field";
    Load();
    EXPECT_EQ(Rows().find("#note"), std::string::npos);
}

TEST_F(CommentEditorRefreshTest, AVariableIsAPropertyOutsideClassicSource) {
    const auto defs = MakeRef<NamespaceDefs>("kite.test");
    const auto variable = MakeDef("Kite:Variable");
    defs->Add(variable, variable->Name);
    Tag("#note").Namespaces = "Kite:Property";
    Tag("#remarks").Namespaces = "Kite:Variable";
    mEditor.Load(variable, mItem, {});
    EXPECT_EQ(Rows(), "[Existing Comments] [Available to add] #note+");
    defs->SetName("KITE.vbsource");
    mEditor.Refresh(false);
    EXPECT_EQ(Rows(), "[Existing Comments] [Available to add] #remarks+");
}

TEST_F(CommentEditorRefreshTest, WithoutAnItemAllSurfacesAreHidden) {
    Load();
    EXPECT_TRUE(mEditor.eb->GetVisible());
    mEditor.SetCurrentCodeElement({});
    EXPECT_FALSE(mEditor.eb->GetVisible());
    EXPECT_FALSE(mEditor.prpTags->GetVisible());
    EXPECT_FALSE(mEditor.prpFlags->GetVisible());
    EXPECT_FALSE(mEditor.GetTaggedComments());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorRefreshTest, ARepopulationKeepsFlagsTabsAndSelection) {
    Load();
    const auto tab = mEditor.eb->GetGroup("main")->Add("tab:x", "A page");
    const auto extra = mEditor.eb->AddGroup("texts", "Texts");
    mEditor.eb->SetSelectedItem(tab);
    const auto item = mEditor.eb->GetSelectedItem();
    ASSERT_TRUE(item == tab);
    const auto flag = mEditor.prpFlags->Item(1);
    const auto box = FlagBox("#todo");
    mItem->Comment("#note", "new");
    mEditor.Refresh(true);
    EXPECT_TRUE(mEditor.eb->GetGroup("main")->Find("tab:x") == tab);
    EXPECT_TRUE(mEditor.eb->GetGroup("texts") == extra);
    ASSERT_EQ(mEditor.prpFlags->Count(), 1u);
    EXPECT_TRUE(mEditor.prpFlags->Item(1) == flag);
    EXPECT_EQ(Rows(), std::string("[Existing Comments] #note=new") + kOffers);
    EXPECT_TRUE(mEditor.eb->GetSelectedItem() == item);
    EXPECT_TRUE(FlagBox("#todo") == box);
    mEditor.Refresh(false);
    EXPECT_FALSE(mEditor.eb->GetGroup("main")->Find("tab:x"));
    EXPECT_EQ(mEditor.eb->GetGroups().size(), 3u);
}

TEST_F(CommentEditorRefreshTest, AnElementIsSynchronisedBeforeItIsListed) {
    mItem->With("TaggedDescription", "");
    mItem->Comment("##", "General.", "g1");
    std::string heard;
    const auto tie = mEditor.prpTags->Events.SelChange.Connect([&](const auto&) {
        heard += mItem->Get("TaggedDescription").ToText() + mEditor.GetTitleCaption() + " ";
    });
    mEditor.SetDirty(true);
    mEditor.Load(mModel.Def("Test:Class"), mItem, mModel.Provider->Root, {}, "Class A");
    // The title comes behind the refresh.
    EXPECT_TRUE(heard.starts_with("General.{Item Name} ")) << heard;
    EXPECT_EQ(heard.find("Class A"), std::string::npos) << heard;
}

TEST_F(CommentEditorRefreshTest, CommentsOfATagAreCountedWhateverItsLetterCase) {
    mItem->Comment("#note");
    mItem->Comment("#NOTE");
    mItem->Comment("#notes");
    EXPECT_EQ(FindTaggedComments(*mItem->Comments(), "#Note"), 2u);
    EXPECT_EQ(FindTaggedComments(*mItem->Comments(), "#none"), 0u);
}

TEST_F(CommentEditorRefreshTest, ControlsForEditingFollowTheSelectedRow) {
    mItem->Comment("#note", "text", "n1");
    Load();
    mEditor.prpFlags->SetTag("Edit");
    const auto enabled = [&](const Ref<PropertyItem>& row) {
        mEditor.prpTags->SetSelectedItem(row);
        return mEditor.prpFlags->GetEnabled();
    };
    EXPECT_FALSE(enabled(mEditor.prpTags->Item("NewHeader")));
    EXPECT_TRUE(enabled(mEditor.prpTags->Item("n1")));
    EXPECT_FALSE(enabled(Offer("#note")));
    EXPECT_TRUE(enabled(mEditor.prpTags->Item("n1")));
    mEditor.Clear();
    EXPECT_EQ(mEditor.prpTags->Count(), 0u);
    EXPECT_FALSE(mEditor.prpFlags->GetEnabled());
}

TEST_F(CommentEditorRefreshTest, TheSelectedCommentStaysSelected) {
    mItem->Comment("#remarks", "one", "r1");
    mItem->Comment("#note", "two", "n1");
    Load();
    EXPECT_EQ(SelectedRow(), "#remarks");
    mEditor.SetSelectedItem(mEditor.prpTags->Item("n1"));
    mEditor.Refresh(false);
    EXPECT_EQ(SelectedRow(), "#note");
}

TEST_F(CommentEditorRefreshTest, TheOtherItemIsMarkedWhileThereAreComments) {
    Load();
    const auto other = mEditor.eb->GetGroup("other")->Item("other");
    EXPECT_EQ(other->GetCaption(), "Other Information");
    EXPECT_FALSE(other->GetBold());
    EXPECT_EQ(other->GetIcon(), "");
    mItem->Comment("#note");
    mEditor.Refresh(false);
    EXPECT_TRUE(other->GetBold());
    EXPECT_EQ(other->GetIcon(), "tick");
}

TEST_F(CommentEditorRefreshTest, WithNothingToListTheOtherGroupIsHidden) {
    mEditor.Load(mModel.Def("Test:Field"), mModel.Item("P~A~Size"), {});
    EXPECT_FALSE(mEditor.eb->GetGroup("other")->Item("other")->GetVisible());
    EXPECT_FALSE(mEditor.eb->GetGroup("other")->GetVisible());
    EXPECT_FALSE(mEditor.eb->GetGroup("flags")->GetVisible());
}

TEST_F(CommentEditorRefreshTest, TheBarBeginsWithItsThreeGroups) {
    mEditor.Initialize();
    std::string groups;
    for (const auto& group : mEditor.eb->GetGroups())
        groups += group->GetKey() + "=" + group->GetCaption() + " ";
    EXPECT_EQ(groups, "main={Item Name} flags=Flags other=Other ");
}

TEST_F(CommentEditorRefreshTest, TenThousandCommentsAreListed) {
    for (int index = 0; index < 10000; ++index)
        mItem->Comment("#note", std::to_string(index));
    Load();
    EXPECT_EQ(mEditor.prpTags->Count(), 10005u);
}

TEST_F(CommentEditorRefreshTest, AnItemWithoutCommentsMemberIsReportedAndTheNextOneLoads) {
    mItem->Without("TaggedComments");
    Load();
    EXPECT_FALSE(mServices.TakeReports().empty());
    Load("P~B");
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_EQ(Rows(), std::string("[Existing Comments]") + kOffers);
    EXPECT_FALSE(mEditor.prpTags->GetUpdatesSuspended());
}

} // namespace
} // namespace paperkite::test
