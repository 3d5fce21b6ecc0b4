#include "pagelayout/MetaDocumentEditFixture.h"

// Inserting, editing and deleting elements, and what the page reports of them.

namespace paperkite::test {
namespace {

class MetaDocumentElementsTest : public MetaDocumentEditFixture {
protected:
    MetaDocumentElementsTest() {
        mPassedOn =
            mEdit.Events.ElementEvent.Connect([this](int id, const auto& info, bool& cancel) {
                mEvents += std::to_string(id) + (info->SourceElement ? " " : " nothing ") +
                           (cancel ? "cancelled;" : "open;");
            });
    }
    std::string TakeEvents() { return std::exchange(mEvents, {}); }

private:
    std::string mEvents;
    Connection mPassedOn;
};

// Inserting

TEST_F(MetaDocumentElementsTest, AnInsertedElementIsThereAndTold) {
    Open("<p id=\"p\">Alpha</p>");
    TakeLog();
    mAuthor = [](frmEditMetaSpan& form) {
        EXPECT_TRUE(form.GetIsAdd());
        EXPECT_EQ(form.GetCaption(), "Add Element");
        AddName(form);
    };
    Point("p");
    EXPECT_TRUE(mEdit.InsertMetaData());
    EXPECT_EQ(mDialogs, 1);
    EXPECT_EQ(TakeLog(), "Change;");
    EXPECT_TRUE(mEdit.GetDirty());
    EXPECT_EQ(Numbers(Shown()), "1 ");
    EXPECT_EQ(Body(), "<p id=\"p\">Alpha</p>" + kNameTag);
}

TEST_F(MetaDocumentElementsTest, AnInsertedElementTakesTheNextNumberAndTheFirstSection) {
    Open("<p>" + kNameTag + kKindTag + "</p>");
    mAuthor = AddName;
    ASSERT_TRUE(mEdit.InsertMetaData());
    const auto& elements = mEdit.GetSpanProvider()->Elements;
    ASSERT_EQ(elements.Count(), 3u);
    const auto& added = *elements.Item(3);
    EXPECT_EQ(added.Section.Lock(), elements.Item(1)->Section.Lock());
    EXPECT_EQ(added.Attributes.Item(1)->Name, "type");
    EXPECT_EQ(added.Attributes.Item("type")->Value, "property");
    EXPECT_EQ(added.Attributes.Item("name")->Value, "name");
    EXPECT_EQ(added.Text, "name");
    EXPECT_NE(Shown().find("metaspanstart3"), std::string::npos);
}

TEST_F(MetaDocumentElementsTest, CancellingTheDialogInsertsNothing) {
    Open("<p>Alpha</p>");
    TakeLog();
    for (const auto& leave : {Cancel, +[](frmEditMetaSpan& form) { form.UserEscape(); },
                              +[](frmEditMetaSpan& form) { form.UserCloseBox(); }}) {
        mAuthor = [&](frmEditMetaSpan& form) {
            Choose(form, "property");
            SetRow(form, "name", "name");
            leave(form);
        };
        EXPECT_FALSE(mEdit.InsertMetaData());
    }
    EXPECT_EQ(Body(), "<p>Alpha</p>");
    EXPECT_EQ(mEdit.GetSpanProvider()->Elements.Count(), 0u);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, AddingWithoutATypeKeepsTheDialogOpen) {
    Open("<p>Alpha</p>");
    mAuthor = [this](frmEditMetaSpan& form) {
        Confirm(form);
        EXPECT_TRUE(form.GetVisible());
        EXPECT_EQ(Messages(), "Add Element [warning] Please select the type of element to insert.");
        Cancel(form);
    };
    EXPECT_FALSE(mEdit.InsertMetaData());
    EXPECT_EQ(Body(), "<p>Alpha</p>");
}

TEST_F(MetaDocumentElementsTest, ARequiredAttributeLeftEmptyKeepsTheDialogOpen) {
    Open("<p>" + kNameTag + "</p>");
    const auto leaveEmpty = [this](frmEditMetaSpan& form) {
        const std::string title = form.GetCaption();
        SetRow(form, "name", "");
        Confirm(form);
        EXPECT_TRUE(form.GetVisible());
        EXPECT_FALSE(form.GetSuccess());
        EXPECT_EQ(Messages(), title + " [warning] You must provide a value for name\n");
        Cancel(form);
    };
    mAuthor = [&](frmEditMetaSpan& form) {
        Choose(form, "property");
        leaveEmpty(form);
    };
    EXPECT_FALSE(mEdit.InsertMetaData());
    mAuthor = leaveEmpty;
    PointAtSpan(1);
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_EQ(Body(), "<p>" + kNameTag + "</p>");
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, InsertingBeforeAnyDocumentIsReportedAndChangesNothing) {
    mAuthor = AddName;
    EXPECT_FALSE(mEdit.InsertMetaData());
    EXPECT_EQ(Reports(), "MetaDocumentEdit.InsertMetaData (91)\n");
    EXPECT_FALSE(mEdit.GetDirty());
    EXPECT_FALSE(mEdit.dksUI->Commands.Item("btnMetaAdd")->GetEnabled()) << "nor is it offered";
    Open("<p>Alpha</p>");
    EXPECT_TRUE(mEdit.dksUI->Commands.Item("btnMetaAdd")->GetEnabled());
    EXPECT_TRUE(mEdit.InsertMetaData());
    EXPECT_EQ(Body(), "<p>Alpha</p>" + kNameTag);
}

TEST_F(MetaDocumentElementsTest, AnElementOfTheLayoutsExclusionsIsNotOffered) {
    auto layout = MakeRef<PageLayout>();
    layout->ExcludedElements = "property";
    mEdit.SetLayout(layout);
    Open("<p>Alpha</p>");
    bool isOffered = true;
    mAuthor = [&](frmEditMetaSpan& form) {
        EXPECT_EQ(form.GetLayout(), layout);
        const auto& nodes = form.ctlBuilder->tvwElements->Nodes;
        isOffered = nodes.Contains("E:property");
        Cancel(form);
    };
    EXPECT_FALSE(mEdit.InsertMetaData());
    EXPECT_FALSE(isOffered);
}

TEST_F(MetaDocumentElementsTest, ThePlaceOfAnInsertedElementIsThatOfTheNextOne) {
    Open("<p id=\"p\">Alpha</p><p>end</p>");
    mAuthor = AddName;
    Point("p");
    ASSERT_TRUE(mEdit.InsertMetaData());
    mAuthor = [](frmEditMetaSpan& form) {
        Choose(form, "property");
        MakeKind(form);
    };
    ASSERT_TRUE(mEdit.InsertMetaData());
    EXPECT_EQ(Body(), "<p id=\"p\">Alpha</p>" + kKindTag + kNameTag + "<p>end</p>");
}

// Editing

TEST_F(MetaDocumentElementsTest, EditingShowsWhatTheElementSaysAndWritesWhatTheAuthorLeaves) {
    Open("<p>A <!--KITEMETADATA start type=\"PROPERTY\" name=\"name\"-->  name  "
         "<!--KITEMETADATA end--> b</p>");
    TakeLog();
    mAuthor = [](frmEditMetaSpan& form) {
        EXPECT_FALSE(form.GetIsAdd());
        EXPECT_EQ(form.GetCaption(), "Edit Element - property");
        EXPECT_EQ(form.tipHelp->GetCaption(), "A property of the item.");
        EXPECT_EQ(form.GetText(), "name") << "without the blanks around it";
        EXPECT_EQ(form.ctlBuilder->prpProperties->Item("name")->GetValue(), "name");
        EXPECT_FALSE(form.ctlBuilder->prpProperties->Item("type")->GetVisible());
        MakeKind(form);
    };
    PointAtSpan(1);
    EXPECT_TRUE(mEdit.EditMetaData());
    EXPECT_EQ(TakeLog(), "Change;");
    EXPECT_TRUE(mEdit.GetDirty());
    EXPECT_EQ(Body(), "<p>A <!--KITEMETADATA start type=\"PROPERTY\" name=\"kind\"-->kind"
                      "<!--KITEMETADATA end--> b</p>");
    EXPECT_EQ(Numbers(Shown()), "1 ");
    EXPECT_EQ(mEdit.GetSpanProvider()->Elements.Count(), 1u);
}

TEST_F(MetaDocumentElementsTest, CancellingAnEditLeavesTheElement) {
    Open("<p>" + kNameTag + "</p>");
    const std::string shown = Shown();
    mAuthor = [](frmEditMetaSpan& form) {
        SetRow(form, "name", "kind");
        form.SetText("kind");
        Cancel(form);
    };
    PointAtSpan(1);
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Body(), "<p>" + kNameTag + "</p>");
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, AnElementIsEditedAgain) {
    Open("<p>" + kNameTag + "</p>");
    mAuthor = MakeKind;
    PointAtSpan(1);
    ASSERT_TRUE(mEdit.EditMetaData());
    mAuthor = [](frmEditMetaSpan& form) {
        EXPECT_EQ(form.GetText(), "kind");
        EXPECT_EQ(form.ctlBuilder->prpProperties->Item("name")->GetValue(), "kind");
        SetRow(form, "name", "name");
        form.SetText("name");
        Confirm(form);
    };
    PointAtSpan(1);
    ASSERT_TRUE(mEdit.EditMetaData());
    EXPECT_EQ(Body(), "<p>" + kNameTag + "</p>");
}

TEST_F(MetaDocumentElementsTest, OneOfManyIsEditedAndTheOthersStay) {
    Open("<p>" + kNameTag + kNameTag + kNameTag + "</p>");
    mAuthor = MakeKind;
    PointAtSpan(2);
    ASSERT_TRUE(mEdit.EditMetaData());
    EXPECT_EQ(Numbers(Shown()), "1 2 3 ");
    EXPECT_EQ(Body(), "<p>" + kNameTag + kKindTag + kNameTag + "</p>");
}

TEST_F(MetaDocumentElementsTest, UnknownAttributesStayThroughAnEdit) {
    Open("<p><!--KITEMETADATA start type=\"property\" strange=\"kept &amp; safe\" "
         "name=\"name\"-->name<!--KITEMETADATA end--></p>");
    mAuthor = MakeKind;
    PointAtSpan(1);
    ASSERT_TRUE(mEdit.EditMetaData());
    EXPECT_EQ(Body(), "<p><!--KITEMETADATA start type=\"property\" strange=\"kept &amp; safe\" "
                      "name=\"kind\"-->kind<!--KITEMETADATA end--></p>");
}

TEST_F(MetaDocumentElementsTest, AnElementOfAnUnknownTypeIsShownAndStays) {
    const std::string unknown = "<!--KITEMETADATA start type=\"weather\" town=\"Kiel\"-->rain"
                                "<!--KITEMETADATA end-->";
    Open("<p>" + unknown + kNameTag + "</p>");
    mAuthor = [this](frmEditMetaSpan& form) {
        EXPECT_EQ(form.GetCaption(), "Edit Element");
        EXPECT_EQ(form.tipHelp->GetCaption(), "No element selected for editing.");
        EXPECT_EQ(form.ctlBuilder->prpProperties->Item("town")->GetValue(), "Kiel");
        SetRow(form, "town", "Rome");
        Confirm(form);
        EXPECT_TRUE(form.GetVisible()) << "nobody knows what it must have";
        EXPECT_NE(Messages(), "");
        Cancel(form);
    };
    PointAtSpan(1);
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_EQ(mDialogs, 1);
    mAuthor = MakeKind;
    PointAtSpan(2);
    EXPECT_TRUE(mEdit.EditMetaData());
    EXPECT_EQ(Body(), "<p>" + unknown + kKindTag + "</p>");
}

TEST_F(MetaDocumentElementsTest, AnElementWithoutATypeIsReportedAndStays) {
    const std::string untyped =
        "<!--KITEMETADATA start name=\"name\"-->name<!--KITEMETADATA end-->";
    Open("<p>" + untyped + "</p>");
    ASSERT_EQ(Numbers(Shown()), "1 ");
    Messages();
    PointAtSpan(1);
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_TRUE(Reports().starts_with("MetaDocumentEdit.EditMetaData ("));
    EXPECT_EQ(mDialogs, 0);
    EXPECT_EQ(Body(), "<p>" + untyped + "</p>");
}

TEST_F(MetaDocumentElementsTest, ASpanBeyondTheElementsEndsTheEditWithoutAChange) {
    Open("<p id=\"p\">" + kNameTag + "</p>");
    Element("p")->InsertAdjacentHTML(InsertPosition::BeforeEnd,
                                     "<span id=\"metaspanstart7\">x</span>");
    const std::string shown = Shown();
    PointAtSpan(7);
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_EQ(Reports(), "MetaDocumentEdit.EditMetaData (9)\n");
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(mDialogs, 0);
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, OutsideOfSpansNothingIsEdited) {
    Open("<p id=\"p\">" + kNameTag + "</p>");
    Point("p");
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_EQ(Reports(), "MetaDocumentEdit.EditMetaData (9)\n");
    mEdit.dedDocument->UserPoint({});
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_EQ(Reports(), "MetaDocumentEdit.EditMetaData (91)\n");
    EXPECT_EQ(mDialogs, 0);
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, WithoutItsTemplateNothingIsEditedOrInserted) {
    Open("<p>" + kNameTag + "</p>");
    mEdit.SetTemplate({});
    PointAtSpan(1);
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_FALSE(mEdit.InsertMetaData());
    EXPECT_EQ(Reports(),
              "MetaDocumentEdit.EditMetaData (91)\nMetaDocumentEdit.InsertMetaData (91)\n");
    EXPECT_EQ(Body(), "<p>" + kNameTag + "</p>");
}

// Deleting

TEST_F(MetaDocumentElementsTest, ADeletedElementStaysInTheListAndIsNotWritten) {
    Open("<p>a " + kNameTag + " b " + kKindTag + "</p>");
    TakeLog();
    PointAtSpan(1);
    EXPECT_FALSE(mEdit.DeleteMetaData()) << "that is how it always was";
    EXPECT_EQ(TakeLog(), "Change;");
    EXPECT_TRUE(mEdit.GetDirty());
    EXPECT_EQ(mEdit.GetSpanProvider()->Elements.Count(), 2u);
    EXPECT_EQ(Numbers(Shown()), "2 ");
    EXPECT_EQ(Body(), "<p>a b " + kKindTag + "</p>");
}

TEST_F(MetaDocumentElementsTest, DeletingTakesTheCurrentElementWhateverItIs) {
    Open("<p id=\"gone\">a " + kNameTag + "</p><p>b</p>");
    Point("gone");
    mEdit.DeleteMetaData();
    EXPECT_EQ(Body(), "<p>b</p>");
    mEdit.dedDocument->UserPoint({});
    mEdit.DeleteMetaData();
    EXPECT_EQ(Reports(), "MetaDocumentEdit.DeleteMetaData (91)\n");
    EXPECT_EQ(Body(), "<p>b</p>");
}

// Commands

TEST_F(MetaDocumentElementsTest, CommandsDoWhatTheirNamesSay) {
    Open("<p>" + kNameTag + "</p>");
    PointAtSpan(1);
    Report(HtmlEventId::kContextMenu, Element("metaspanstart1"));
    mAuthor = MakeKind;
    mEdit.dksUI->UserClick("btnMetaEdit");
    EXPECT_EQ(Body(), "<p>" + kKindTag + "</p>");
    mAuthor = AddName;
    mEdit.dksUI->UserClick("btnMetaAdd");
    EXPECT_EQ(mDialogs, 2);
    EXPECT_NE(Body().find(kNameTag), std::string::npos);
    PointAtSpan(1);
    const std::string before = Shown();
    mEdit.dksUI->UserClick("btnMetaHelp");
    EXPECT_EQ(Shown(), before) << "help is the host's";
    mEdit.dksUI->UserClick("btnMetaDelete");
    EXPECT_EQ(Numbers(Shown()), "2 ");
    EXPECT_EQ(Reports(), "");
}

TEST_F(MetaDocumentElementsTest, OnlyOverASpanItsCommandsCanBeUsed) {
    Open("<p id=\"p\">x " + kNameTag + "</p>");
    const auto offered = [this] {
        std::string names;
        for (const char* name : {"btnMetaAdd", "btnMetaEdit", "btnMetaDelete", "btnMetaHelp"})
            if (mEdit.dksUI->Commands.Item(name)->GetEnabled()) names += std::string(name) + " ";
        return names;
    };
    Point("p");
    mEdit.dedDocument->UserSelection("", {}, {}, "", "");
    EXPECT_EQ(offered(), "btnMetaAdd ");
    PointAtSpan(1);
    mEdit.dedDocument->UserSelection("", {}, {}, "", "");
    EXPECT_EQ(offered(), "btnMetaAdd btnMetaEdit btnMetaDelete btnMetaHelp ");
    mEdit.fstView->UserClick(2);
    EXPECT_EQ(offered(), "") << "the source view has no spans";
}

// What the page reports

TEST_F(MetaDocumentElementsTest, ADoubleClickOnASpanEditsItAndIsPassedOn) {
    Open("<p>" + kNameTag + "</p>");
    PointAtSpan(1);
    mAuthor = MakeKind;
    EXPECT_TRUE(Report(HtmlEventId::kDoubleClick, Element("metaspanstart1")));
    EXPECT_EQ(mDialogs, 1);
    EXPECT_EQ(Body(), "<p>" + kKindTag + "</p>");
    EXPECT_EQ(TakeEvents(), "-601 cancelled;");
}

TEST_F(MetaDocumentElementsTest, ADoubleClickOnABoldPartInsideDoesNothing) {
    Open("<p>" + kNameTag + "</p>");
    PointAtSpan(1);
    EXPECT_FALSE(Report(HtmlEventId::kDoubleClick, Element("metaspanstart1")->Tags("b").at(0)));
    EXPECT_EQ(mDialogs, 0);
    EXPECT_EQ(TakeEvents(), "-601 open;");
    EXPECT_EQ(Reports(), "");
}

TEST_F(MetaDocumentElementsTest, ADoubleClickOutsideDoesNothing) {
    Open("<p id=\"p\">" + kNameTag + "</p>");
    EXPECT_FALSE(Report(HtmlEventId::kDoubleClick, Element("p")));
    EXPECT_FALSE(Report(HtmlEventId::kDoubleClick, {}));
    EXPECT_EQ(mDialogs, 0);
    EXPECT_EQ(TakeEvents(), "-601 open;-601 nothing open;");
}

TEST_F(MetaDocumentElementsTest, ADoubleClickIsKeptFromThePageThoughTheAuthorCancels) {
    Open("<p>" + kNameTag + "</p>");
    PointAtSpan(1);
    mAuthor = Cancel;
    EXPECT_TRUE(Report(HtmlEventId::kDoubleClick, Element("metaspanstart1")));
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, ARightClickInASpanOffersItsMenu) {
    Open("<p>" + kNameTag + "</p>");
    const auto span = Element("metaspanstart1");
    EXPECT_TRUE(Report(HtmlEventId::kContextMenu, span));
    EXPECT_TRUE(Report(HtmlEventId::kContextMenu, span->Tags("b").at(0)));
    EXPECT_EQ(TakeMenus(), "mnuMetaContext@3,4;mnuMetaContext@3,4;");
    EXPECT_EQ(TakeEvents(), "1023 cancelled;1023 cancelled;");
}

TEST_F(MetaDocumentElementsTest, ARightClickOutsideOffersThePlainMenu) {
    Open("<p id=\"p\">" + kNameTag + "</p>");
    EXPECT_TRUE(Report(HtmlEventId::kContextMenu, Element("p")));
    EXPECT_TRUE(Report(HtmlEventId::kContextMenu, {}));
    EXPECT_EQ(TakeMenus(), "mnuContext@3,4;mnuContext@3,4;");
    EXPECT_EQ(TakeEvents(), "1023 cancelled;1023 nothing cancelled;");
}

TEST_F(MetaDocumentElementsTest, ARightClickOnASpanWithoutANumberOffersThePlainMenu) {
    Open("<p><span id=\"metaspan\">a</span><span id=\"metaspanstart0\">b</span>"
         "<span id=\"metaspanstartx\">c</span></p>");
    for (const char* id : {"metaspan", "metaspanstart0", "metaspanstartx"}) {
        EXPECT_TRUE(Report(HtmlEventId::kContextMenu, Element(id)));
        EXPECT_EQ(TakeMenus(), "mnuContext@3,4;") << id;
    }
}

TEST_F(MetaDocumentElementsTest, OtherEventsArePassedOnAsTheyAre) {
    Open("<p id=\"p\">x</p>");
    EXPECT_FALSE(Report(42, Element("p")));
    EXPECT_EQ(TakeEvents(), "42 open;");
    EXPECT_EQ(TakeMenus(), "");
}

TEST_F(MetaDocumentElementsTest, AHostThatTakesAnEventKeepsItFromThePage) {
    Open("<p id=\"p\">x</p>");
    const auto tie = mEdit.Events.ElementEvent.Connect(
        [](int, const auto&, bool& cancelDefault) { cancelDefault = true; });
    EXPECT_TRUE(Report(42, Element("p")));
    const auto other = mEdit.Events.ElementEvent.Connect(
        [](int, const auto&, bool& cancelDefault) { cancelDefault = false; });
    EXPECT_FALSE(Report(HtmlEventId::kContextMenu, Element("p"))) << "the last word counts";
}

TEST_F(MetaDocumentElementsTest, WhatTheAuthorTypesIsAChange) {
    Open("<p>x</p>");
    TakeLog();
    mEdit.dedDocument->UserDocumentTouched(true);
    EXPECT_EQ(TakeLog(), "Change;");
    EXPECT_TRUE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, AChangeThatLeftNothingToUndoIsNotTheAuthors) {
    Open("<p>x</p>");
    TakeLog();
    mEdit.dedDocument->UserDocumentTouched(false);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, ATextThatIsBeingLoadedIsNoChange) {
    Open("<p>x</p>");
    TakeLog();
    bool wasLoading = false;
    const auto tie = mEdit.dedDocument->Events.DocumentComplete.Connect([&] {
        wasLoading = mEdit.dedDocument->GetLoading();
        mEdit.dedDocument->UserDocumentTouched(true);
    });
    Open("<p>y</p>");
    EXPECT_TRUE(wasLoading);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentElementsTest, WhatIsWrittenInTheSourceViewIsAChange) {
    Open("<p>x</p>");
    mEdit.fstView->UserClick(2);
    EXPECT_FALSE(mEdit.GetDirty()) << "a look at the source is none";
    TakeLog();
    mEdit.dedDocument->UserSourceChanged(Shown(), true);
    EXPECT_EQ(TakeLog(), "");
    mEdit.dedDocument->UserSourceChanged(Shown() + " ", true);
    EXPECT_EQ(TakeLog(), "Change;");
}

// Edits taken back

TEST_F(MetaDocumentElementsTest, EditsAreTakenBackInOrderAndDoneAgain) {
    Open("<p>" + kNameTag + kNameTag + "</p>");
    EXPECT_FALSE(mEdit.CanUndoElementEdit() || mEdit.UndoElementEdit());
    EXPECT_FALSE(mEdit.CanRedoElementEdit() || mEdit.RedoElementEdit());
    EXPECT_FALSE(mEdit.GetDirty());
    mAuthor = MakeKind;
    for (const std::size_t number : {1, 2}) {
        PointAtSpan(number);
        ASSERT_TRUE(mEdit.EditMetaData());
    }
    mEdit.SetDirty(false);
    TakeLog();
    EXPECT_TRUE(mEdit.UndoElementEdit());
    EXPECT_EQ(TakeLog(), "Change;");
    EXPECT_TRUE(mEdit.GetDirty());
    EXPECT_EQ(Body(), "<p>" + kKindTag + kNameTag + "</p>");
    EXPECT_TRUE(mEdit.UndoElementEdit());
    EXPECT_EQ(Body(), "<p>" + kNameTag + kNameTag + "</p>");
    EXPECT_FALSE(mEdit.CanUndoElementEdit());
    EXPECT_TRUE(mEdit.RedoElementEdit());
    EXPECT_EQ(Body(), "<p>" + kKindTag + kNameTag + "</p>");
    EXPECT_TRUE(mEdit.RedoElementEdit());
    EXPECT_EQ(Body(), "<p>" + kKindTag + kKindTag + "</p>");
    EXPECT_FALSE(mEdit.CanRedoElementEdit());
    EXPECT_TRUE(mEdit.CanUndoElementEdit());
}

TEST_F(MetaDocumentElementsTest, WhatIsDoneSinceAnEditTakesItsUndoAway) {
    const std::function<void()> others[] = {
        [&] { mEdit.dedDocument->UserDocumentTouched(true); },
        [&] { mEdit.DeleteMetaData(); },
        [&] { mEdit.fstView->UserClick(2); },
        [&] { Open("<p>other</p>"); },
    };
    for (const auto& other : others) {
        mEdit.fstView->UserClick(1);
        Open("<p>" + kNameTag + kNameTag + "</p>");
        mAuthor = MakeKind;
        for (const std::size_t number : {2, 1}) {
            PointAtSpan(number);
            ASSERT_TRUE(mEdit.EditMetaData());
        }
        ASSERT_TRUE(mEdit.UndoElementEdit());
        ASSERT_TRUE(mEdit.CanUndoElementEdit() && mEdit.CanRedoElementEdit());
        PointAtSpan(1);
        other();
        EXPECT_FALSE(mEdit.CanUndoElementEdit() || mEdit.CanRedoElementEdit());
    }
}

} // namespace
} // namespace paperkite::test
