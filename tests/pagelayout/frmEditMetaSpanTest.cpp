#include "pagelayout/frmEditMetaSpan.h"

#include "foundation/Services.h"
#include "model/TemplateParser.h"
#include "pagelayout/ElementBuilderFixture.h"

namespace paperkite::test {
namespace {

class frmEditMetaSpanTest : public ElementBuilderFixture {
protected:
    frmEditMetaSpanTest() { mBuilder = mForm->ctlBuilder; }

    /// Shows the dialog to an author who does that.
    void Show(const std::function<void()>& author) {
        mForm->SetRunner([&](Form&, FormMode mode) {
            EXPECT_EQ(mode, FormMode::Modal);
            author();
        });
        mForm->Show(FormMode::Modal);
    }

    void Add(const std::function<void()>& author) {
        mForm->SetIsAdd(true);
        Initialise();
        Show(author);
    }

    void Edit(const std::string& name, const std::function<void()>& author) {
        Initialise();
        mBuilder->SetElement(Definition(name));
        Show(author);
    }

    Ref<frmEditMetaSpan> mForm = MakeRef<frmEditMetaSpan>();
};

TEST_F(frmEditMetaSpanTest, BearsItsTitleAndControls) {
    EXPECT_EQ(mForm->GetCaption(), "Edit Element");
    EXPECT_EQ(mForm->cmdOK->GetCaption(), "OK");
    EXPECT_EQ(mForm->cmdCancel->GetCaption(), "Cancel");
    EXPECT_FALSE(mForm->GetSuccess() || mForm->GetSafeToUnload() || mForm->GetIsAdd());
    EXPECT_FALSE(mBuilder->GetShowTree());
    const Form& base = *mForm;
    EXPECT_EQ(base.GetLayout().AllControls().size(), base.Controls.Count());
}

TEST_F(frmEditMetaSpanTest, EditingShowsTheElementWithoutTheTree) {
    Edit("comment", [&] {
        EXPECT_EQ(mForm->GetCaption(), "Edit Element - comment");
        EXPECT_EQ(mForm->tipHelp->GetCaption(), "The comments of one kind.");
        EXPECT_FALSE(mBuilder->GetShowTree());
        EXPECT_EQ(Row("tag")->GetTag(), "required");
    });
}

TEST_F(frmEditMetaSpanTest, AddingShowsTheTreeAndNothingChosen) {
    Add([&] {
        EXPECT_EQ(mForm->GetCaption(), "Add Element");
        EXPECT_EQ(mForm->tipHelp->GetCaption(), "No element selected for editing.");
        EXPECT_TRUE(mBuilder->GetShowTree());
        mBuilder->tvwElements->UserClick(Node("E:note"));
        EXPECT_EQ(mForm->GetCaption(), "Add Element - note");
        EXPECT_EQ(mForm->tipHelp->GetCaption(), "A note to all readers.");
        mBuilder->tvwElements->UserClick(Node("C:Page"));
        EXPECT_EQ(mForm->GetCaption(), "Add Element");
        EXPECT_EQ(mForm->tipHelp->GetCaption(), "No element selected for editing.");
    });
}

TEST_F(frmEditMetaSpanTest, TheFirstAttributeOfAChosenElementIsDescribedAtOnce) {
    AddAttribute(Definition("note"), "first", "text");
    Add([&] {
        EXPECT_FALSE(mBuilder->prpProperties->GetSelectedItem());
        mBuilder->tvwElements->UserClick(Node("E:note"));
        ASSERT_TRUE(mBuilder->prpProperties->GetSelectedItem());
        EXPECT_EQ(mBuilder->prpProperties->GetSelectedItem(), *mBuilder->prpProperties->begin());
        mBuilder->tvwElements->UserClick(Node("C:Page"));
        EXPECT_FALSE(mBuilder->prpProperties->GetSelectedItem());
    });
}

TEST_F(frmEditMetaSpanTest, AddingNothingKeepsTheDialogOpen) {
    Add([&] {
        mForm->UserEnter();
        EXPECT_TRUE(mForm->GetVisible());
        EXPECT_EQ(Messages(), "Add Element [warning] Please select the type of element to insert.");
        mBuilder->tvwElements->UserClick(Node("C:Page"));
        mForm->cmdOK->UserClick();
        EXPECT_TRUE(mForm->GetVisible());
        EXPECT_FALSE(mForm->GetSuccess());
        Messages();
        mBuilder->tvwElements->UserClick(Node("E:note"));
        mForm->cmdOK->UserClick();
    });
    EXPECT_FALSE(mForm->GetVisible());
    EXPECT_TRUE(mForm->GetSuccess());
    EXPECT_EQ(mBuilder->GetElement(), Definition("note"));
}

TEST_F(frmEditMetaSpanTest, AMissingValueKeepsTheDialogOpen) {
    Edit("comment", [&] {
        mForm->cmdOK->UserClick();
        EXPECT_TRUE(mForm->GetVisible());
        EXPECT_EQ(Messages(),
                  "Edit Element - comment [warning] You must provide a value for tag\n");
        Row("tag")->SetValue("##");
        mForm->cmdOK->UserClick();
    });
    EXPECT_TRUE(mForm->GetSuccess());
    EXPECT_FALSE(mForm->GetVisible());
}

TEST_F(frmEditMetaSpanTest, ATextThatWouldBreakTheLayoutKeepsTheDialogOpen) {
    const std::string tag = "<!--KITEMETADATA ";
    CurrentServices().CreateParserTemplate = [] { return MakeRef<TemplateParser>(); };
    Edit("comment", [&] {
        Row("tag")->SetValue("##");
        for (const std::string& text :
             {"tail " + tag + "end--> x", tag + "start type=\"a\"-->x", tag + "start type=\"a\""}) {
            mForm->SetText(text);
            mForm->cmdOK->UserClick();
            EXPECT_TRUE(mForm->GetVisible()) << text;
            EXPECT_NE(Messages().find("would break the layout"), std::string::npos) << text;
        }
        mForm->SetText("a " + tag + "start type=\"a\"-->x" + tag + "end--> b");
        mForm->cmdOK->UserClick();
    });
    EXPECT_TRUE(mForm->GetSuccess()) << "whole elements may stand in it";
}

TEST_F(frmEditMetaSpanTest, AnAddedElementLacksItsRequiredValuesUntilTheyAreFilledIn) {
    AddAttribute(Definition("note"), "first", "text")->Required = true;
    AddAttribute(Definition("note"), "second", "number")->Required = true;
    Add([&] {
        mBuilder->tvwElements->UserClick(Node("E:note"));
        mForm->cmdOK->UserClick();
        EXPECT_EQ(Messages(), "Add Element - note [warning] You must provide a value for first\n"
                              "You must provide a value for second\n");
        Row("first")->SetValue("x");
        mForm->cmdOK->UserClick();
        EXPECT_EQ(Messages(), "Add Element - note [warning] You must provide a value for second\n");
        EXPECT_TRUE(mForm->GetVisible());
        EXPECT_FALSE(mForm->GetSuccess());
        EXPECT_EQ(Row("first")->GetValue(), "x");
        Row("second")->SetValue(" ");
        mForm->cmdOK->UserClick();
    });
    EXPECT_TRUE(mForm->GetSuccess());
    EXPECT_EQ(Messages(), "");
}

TEST_F(frmEditMetaSpanTest, AnElementThatTheTemplateDoesNotKnowIsNotAccepted) {
    Initialise();
    mBuilder->Load(MakeElement({{"type", "strange"}}));
    Show([&] {
        mForm->cmdOK->UserClick();
        EXPECT_TRUE(mForm->GetVisible());
        EXPECT_NE(Messages().find("Choose Cancel"), std::string::npos);
        mForm->cmdCancel->UserClick();
    });
    EXPECT_FALSE(mForm->GetSuccess());
}

TEST_F(frmEditMetaSpanTest, CancelLeavesItWithoutSuccess) {
    Edit("note", [&] { mForm->UserEscape(); });
    EXPECT_FALSE(mForm->GetSuccess());
    EXPECT_FALSE(mForm->GetVisible());
}

TEST_F(frmEditMetaSpanTest, TheCloseBoxIsCancelUntilTheDialogMayGo) {
    int asked = 0;
    auto tie = mForm->Events.QueryClose.Connect([&](bool& cancel) { asked += cancel ? 1 : 0; });
    Edit("note", [&] {
        mForm->SetSuccess(true);
        mForm->UserCloseBox();
        EXPECT_FALSE(mForm->GetVisible());
    });
    EXPECT_FALSE(mForm->GetSuccess());
    EXPECT_EQ(asked, 1);
    mForm->SetSafeToUnload(true);
    Show([&] { mForm->UserCloseBox(); });
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(mForm->GetVisible());
}

TEST_F(frmEditMetaSpanTest, OffersTheLayoutAndTheText) {
    auto layout = MakeRef<PageLayout>();
    mForm->SetLayout(layout);
    EXPECT_EQ(mForm->GetLayout(), layout);
    EXPECT_EQ(mBuilder->GetLayout(), layout);
    mForm->SetText("inner text");
    EXPECT_EQ(mForm->txtField->GetText(), "inner text");
    mForm->txtField->UserType("changed");
    EXPECT_EQ(mForm->GetText(), "changed");
}

TEST_F(frmEditMetaSpanTest, ShownAgainItBeginsWithoutSuccess) {
    Edit("note", [&] { mForm->cmdOK->UserClick(); });
    EXPECT_TRUE(mForm->GetSuccess());
    Show([&] { mForm->UserEscape(); });
    EXPECT_FALSE(mForm->GetSuccess());
}

} // namespace
} // namespace paperkite::test
