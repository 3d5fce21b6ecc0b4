#include "widgets/frmFilterProperties.h"

#include "support/ScriptedServices.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

TEST(frmFilterPropertiesTest, BearsItsTexts) {
    frmFilterProperties form;
    EXPECT_EQ(form.GetCaption(), "Filter Properties");
    EXPECT_EQ(form.Header->GetCaption(), "Filter Properties");
    EXPECT_EQ(form.lblWildcard->GetCaption(),
              "Don't include any members with a name matching this wildcard :");
    EXPECT_EQ(form.lblNotes->GetCaption(), "Notes");
    EXPECT_EQ(form.lblWildcardNote->GetCaption(),
              "You can use standard VB wildcard matching characters such as * and ? in the "
              "wildcard string");
    EXPECT_EQ(form.lblCaseNote->GetCaption(), "Matching is case sensitive");
    EXPECT_EQ(form.cmdOK->GetCaption(), "OK");
    EXPECT_EQ(form.cmdCancel->GetCaption(), "Cancel");
    EXPECT_EQ(form.GetLayout().AllControls().size(), form.Controls.Count());
}

TEST(frmFilterPropertiesTest, OKStoresTheTextAndHidesTheForm) {
    frmFilterProperties form;
    form.SetRunner([&](Form&, FormMode mode) {
        EXPECT_EQ(mode, FormMode::Modal);
        form.txtWildcard->UserType("Get*");
        form.UserEnter();
    });
    form.Show(FormMode::Modal);
    EXPECT_FALSE(form.GetVisible());
    EXPECT_FALSE(form.GetCancelled());
    EXPECT_EQ(form.GetWildcard(), "Get*");
}

TEST(frmFilterPropertiesTest, CancelAndTheCloseBoxLeaveItCancelled) {
    frmFilterProperties form;
    EXPECT_TRUE(form.GetCancelled());
    for (const bool byCloseBox : {false, true}) {
        form.SetRunner([&](Form&, FormMode) {
            form.txtWildcard->UserType("typed");
            byCloseBox ? form.UserCloseBox() : form.UserEscape();
        });
        form.Show(FormMode::Modal);
        EXPECT_FALSE(form.GetVisible());
        EXPECT_TRUE(form.GetCancelled());
        EXPECT_EQ(form.GetWildcard(), "");
    }
}

TEST(frmFilterPropertiesTest, ShowingItAgainAfterOKIsCancelledUntilTheNextOK) {
    frmFilterProperties form;
    form.SetRunner([&](Form&, FormMode) { form.cmdOK->UserClick(); });
    form.Show(FormMode::Modal);
    EXPECT_FALSE(form.GetCancelled());
    form.SetRunner([&](Form&, FormMode) { form.UserCloseBox(); });
    form.Show(FormMode::Modal);
    EXPECT_TRUE(form.GetCancelled());
}

TEST(frmFilterPropertiesTest, AFailingHandlerOfItsHidingIsReportedAndDoesNotEscape) {
    const test::ScriptedServices services;
    frmFilterProperties form;
    const auto tie = form.Events.Hidden.Connect([] { RaiseError(ErrorNumber::PermissionDenied); });
    form.SetRunner([&](Form&, FormMode) {
        form.txtWildcard->UserType("Get*");
        EXPECT_NO_THROW(form.UserEnter());
    });
    form.Show(FormMode::Modal);
    EXPECT_FALSE(form.GetCancelled());
    EXPECT_EQ(form.GetWildcard(), "Get*");
    form.SetRunner([&](Form&, FormMode) { EXPECT_NO_THROW(form.UserEscape()); });
    form.Show(FormMode::Modal);
    EXPECT_TRUE(form.GetCancelled());
    ASSERT_EQ(services.Messages->Shown.size(), 2u);
    EXPECT_NE(
        services.Messages->Shown[0].find("Module: frmFilterProperties\nProcedure: cmdOK_Click\n"),
        std::string::npos);
    EXPECT_NE(services.Messages->Shown[1].find("Procedure: cmdCancel_Click\n"), std::string::npos);
}

} // namespace
} // namespace paperkite
