#include "authoring/CommentEditorFixture.h"

namespace paperkite::test {
namespace {

class CommentEditorEditingTest : public CommentEditorFixture {
protected:
    void Add(const std::string& tag) {
        mEditor.prpTags->UserClick(Offer(tag));
        mEditor.prpTags->UserClickButton("AddButton");
    }
};

TEST_F(CommentEditorEditingTest, TheButtonAddsACommentAndBeginsToEditIt) {
    Load();
    Add("#remarks");
    EXPECT_EQ(mLog.Take(), "added(#remarks///0) dirty");
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    const auto comment = mItem->Comments()->Item(1);
    EXPECT_EQ(comment->GetState(), 2);
    EXPECT_EQ(comment->GetXMLCommentType(), "");
    EXPECT_TRUE(comment->GetItem() == mItem);
    EXPECT_EQ(SelectedRow(), "#remarks");
    EXPECT_TRUE(mEditor.prpTags->GetInEdit());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorEditingTest, ATagMayBeAddedAgain) {
    Load();
    Add("#note");
    Add("#note");
    EXPECT_EQ(mItem->Comments()->Count(), 2u);
    EXPECT_TRUE(Offer("#note")->GetDescription().starts_with("This tag has already been added"));
}

TEST_F(CommentEditorEditingTest, XMLCommentsGetTheirTypeAfterTheEvent) {
    mEditor.SetCommentType(CommentType::XMLCommentTags);
    Load();
    Add("#remarks");
    EXPECT_EQ(mLog.Take(), "added(#remarks///0) dirty");
    EXPECT_EQ(mItem->Comments()->Item(1)->GetXMLCommentType(), "remarks");
    EXPECT_EQ(GetXMLCommentType(*mItem->Comment("##")), "summary");
    EXPECT_EQ(GetXMLCommentType(*mItem->Comment("#note")), "");
    EXPECT_EQ(GetXMLCommentType(*mItem->Comment("#unknown")), "");
}

TEST_F(CommentEditorEditingTest, ElementsThatNeedAQualifierGiveTheirName) {
    const auto parameter = mModel.Add("P", "count", "Test:Method", "ParameterElement");
    mEditor.Load(mModel.Def("Test:Method"), parameter, {});
    Add("#note");
    EXPECT_EQ(parameter->Comments()->Item(1)->GetQualifier(), "count");
    Add("##");
    EXPECT_EQ(parameter->Comments()->Item(2)->GetQualifier(), "");
}

TEST_F(CommentEditorEditingTest, QualifiersAreRequiredByKind) {
    const auto kind = [&](const char* type, const char* parentType = nullptr) {
        const auto item = MakeRef<TestItem>(mModel.Log, type, "x");
        if (parentType) item->With("Parent", Value(MakeRef<TestItem>(mModel.Log, parentType, "p")));
        return Ref<Object>(item);
    };
    EXPECT_TRUE(QualifierRequired("#a", {}, kind("VariantElement")));
    EXPECT_FALSE(QualifierRequired("##", {}, kind("VariantElement")));
    EXPECT_TRUE(QualifierRequired("#a", {}, kind("MemberElement", "UDT")));
    EXPECT_FALSE(QualifierRequired("#a", {}, kind("MemberElement", "ModuleElement")));
    EXPECT_FALSE(QualifierRequired("#a", {}, kind("BlockElement")));
    EXPECT_FALSE(QualifierRequired("#a", {}, {}));
    const auto legacy = MakeRef<TaggedCommentDef>();
    EXPECT_FALSE(QualifierRequired("##", legacy, kind("BlockElement")));
    legacy->LegacyName = "old";
    EXPECT_TRUE(QualifierRequired("##", legacy, kind("BlockElement")));
    EXPECT_TRUE(QualifierRequired("#a", legacy, kind("MemberElement", "Enum")));
    EXPECT_FALSE(QualifierRequired("#a", legacy, kind("MemberElement", "ModuleElement")));
}

TEST_F(CommentEditorEditingTest, ADoubleClickAndEnterOnAnOfferAddToo) {
    Load();
    mEditor.prpTags->UserDblClick(Offer("#note"));
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    mEditor.prpTags->CancelEdit();
    mEditor.prpTags->UserSelect(Offer("#note"));
    mEditor.prpTags->UserKeyDown(KeyReturn, 0);
    EXPECT_EQ(mItem->Comments()->Count(), 2u);
}

TEST_F(CommentEditorEditingTest, NothingIsAddedFromARowThatOffersNothing) {
    mItem->Comment("#note", "old", "n1");
    Load();
    mEditor.prpTags->UserDblClick(mEditor.prpTags->Item("n1"));
    mEditor.prpTags->UserDblClick(mEditor.prpTags->Item("NewHeader"));
    mEditor.prpTags->UserKeyDown(KeyReturn, 0);
    mEditor.prpTags->UserKeyDown(KeyDelete, 0);
    EXPECT_FALSE(mEditor.prpTags->GetInEdit());
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(Rows(), "[Existing Comments] #note=old [Available to add] ##+ #remarks+ #note+");
    EXPECT_EQ(mLog.Take(), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorEditingTest, TheCommentStandsInTheCollectionWhenItIsAnnounced) {
    Load();
    std::string heard;
    const auto tie =
        mEditor.Events.TaggedCommentAdded.Connect([&](const auto& item, const auto& comment) {
            heard = mItem->Comments()->Contains(comment->GetId()) ? "there" : "not there";
            EXPECT_TRUE(item == mItem);
            EXPECT_TRUE(comment->GetItem() == mItem);
            EXPECT_FALSE(mEditor.GetDirty());
        });
    Add("#note");
    EXPECT_EQ(heard, "there");
    EXPECT_TRUE(mEditor.GetDirty());
}

TEST_F(CommentEditorEditingTest, TheMembersThatAHostNamesHaveTheirKinds) {
    EXPECT_EQ(MemberTypeMethod, 1);
    EXPECT_EQ(MemberTypeProperty, 2);
    EXPECT_EQ(MemberTypeEvent, 3);
    EXPECT_EQ(MemberTypeEnumeration, 4);
    EXPECT_EQ(MemberTypeStructure, 5);
}

TEST_F(CommentEditorEditingTest, EnterBeginsAndEndsAnEditAndEscapeDropsIt) {
    const auto comment = mItem->Comment("#note", "old", "n1");
    Load();
    mEditor.SetSelectedItem(mEditor.prpTags->Item("n1"));
    mEditor.prpTags->UserKeyDown(KeyReturn, 0);
    EXPECT_TRUE(mEditor.prpTags->GetInEdit());
    mEditor.prpTags->UserType("new");
    mEditor.prpTags->UserKeyDown(KeyReturn, 0);
    EXPECT_EQ(comment->GetText(), "new");
    EXPECT_EQ(mLog.Take(), "changed(n1,new) dirty");
    mEditor.prpTags->UserKeyDown(KeyReturn, 0);
    mEditor.prpTags->UserType("lost");
    mEditor.prpTags->UserKeyDown(KeyEscape, 0);
    EXPECT_FALSE(mEditor.prpTags->GetInEdit());
    EXPECT_EQ(comment->GetText(), "new");
    EXPECT_EQ(mLog.Take(), "");
}

TEST_F(CommentEditorEditingTest, CommitEditStoresWhatIsBeingTypedOnce) {
    const auto comment = mItem->Comment("#note", "old", "n1");
    Load();
    mEditor.SetSelectedItem(mEditor.prpTags->Item("n1"));
    mEditor.prpTags->BeginEdit();
    mEditor.prpTags->UserType("new");
    mEditor.CommitEdit();
    EXPECT_EQ(comment->GetText(), "new");
    EXPECT_EQ(mLog.Take(), "changed(n1,new) dirty");
    mEditor.CommitEdit();
    EXPECT_EQ(mLog.Take(), "");
}

TEST_F(CommentEditorEditingTest, AValueWrittenByCodeIsAChange) {
    const auto comment = mItem->Comment("#note", "old", "n1");
    Load();
    mEditor.prpTags->Item("n1")->SetValue("set");
    EXPECT_EQ(comment->GetText(), "set");
    EXPECT_EQ(mLog.Take(), "changed(n1,set) dirty");
}

TEST_F(CommentEditorEditingTest, TheBigEditorIsRefusedAndHeadersDoNotFold) {
    mItem->Comment("#note", "old", "n1");
    Load();
    mEditor.SetSelectedItem(mEditor.prpTags->Item("n1"));
    EXPECT_FALSE(mEditor.prpTags->UserExtendedEdit());
    const auto header = mEditor.prpTags->Item("ExistingHeader");
    mEditor.prpTags->UserToggle(header);
    EXPECT_TRUE(header->GetExpanded());
}

TEST_F(CommentEditorEditingTest, TheRowButtonsFollowTheRow) {
    mItem->Comment("#note", "old", "n1");
    Load();
    ASSERT_EQ(mEditor.prpTags->GetButtonCount(), 2);
    EXPECT_EQ(mEditor.prpTags->GetButton(1).ToolTipText, "Click to add this tag");
    EXPECT_EQ(mEditor.prpTags->GetButton(2).ToolTipText, "Delete Tag");
    const auto buttons = [&](const Ref<PropertyItem>& row) {
        mEditor.prpTags->UserSelect(row);
        return Buttons();
    };
    EXPECT_EQ(buttons(Offer("#note")), "AddButton");
    EXPECT_EQ(buttons(mEditor.prpTags->Item("n1")), "DeleteButton");
    EXPECT_EQ(buttons(mEditor.prpTags->Item("NewHeader")), "");
    mEditor.SetEditInFocus(true);
    EXPECT_EQ(buttons(Offer("#note")), "");
}

TEST_F(CommentEditorEditingTest, ADesignersCommentIsAddedAndSynchronised) {
    mItem->With("TaggedDescription", "");
    Load();
    const auto comment = MakeRef<TaggedComment>("g1");
    comment->SetTagIdentifier("##");
    comment->SetText("General.");
    comment->SetItem(mItem);
    mEditor.ICommentDesignerHost_TaggedCommentAdded(mItem, comment);
    EXPECT_EQ(mItem->Get("TaggedDescription").ToText(), "General.");
    comment->SetText("Changed.");
    mEditor.ICommentDesignerHost_TaggedCommentChanged(mItem, comment);
    EXPECT_EQ(mItem->Get("TaggedDescription").ToText(), "Changed.");
    EXPECT_EQ(mLog.Take(), "added(##///0) dirty changed(g1,Changed.)");
}

TEST_F(CommentEditorEditingTest, ACommentThatIsAddedTwiceIsReportedOnce) {
    const auto comment = mItem->Comment("#note", "old", "n1");
    Load();
    mEditor.ICommentDesignerHost_TaggedCommentAdded(mItem, comment);
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.TaggedCommentAdded (457)\n");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    Add("#note");
    EXPECT_EQ(mItem->Comments()->Count(), 2u);
}

TEST_F(CommentEditorEditingTest, AHandlerMayRefreshWhileACommentIsAdded) {
    Load();
    const auto tie = mEditor.Events.TaggedCommentAdded.Connect(
        [&](const auto&, const auto&) { mEditor.Refresh(false); });
    Add("#note");
    EXPECT_EQ(mItem->Comments()->Item(1)->GetState(), 2);
    EXPECT_EQ(SelectedRow(), "#note");
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
