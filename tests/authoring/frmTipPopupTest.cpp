#include "authoring/frmTipPopup.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

TEST(frmTipPopupTest, LineBreaksBecomeBreaksOfTheLabel) {
    frmTipPopup form;
    form.SetTipText("<b>One</b>\r\ntwo\r\n\r\nthree");
    EXPECT_EQ(form.Tip->GetCaption(), "<b>One</b><BR>two<BR><BR>three");
    EXPECT_EQ(form.GetTipText(), form.Tip->GetCaption());
    EXPECT_TRUE(form.Tip->GetRichText());
    form.SetTipText("a lone \n stays");
    EXPECT_EQ(form.Tip->GetCaption(), "a lone \n stays");
}

TEST(frmTipPopupTest, TheLabelStandsCentred) {
    frmTipPopup form;
    for (const std::string& text : {std::string(), std::string("short"), std::string(2000, 'x')}) {
        form.SetTipText(text);
        EXPECT_EQ(form.GetHeight(), form.Tip->GetHeight() + 2 * form.Tip->GetTop());
        EXPECT_EQ(form.GetWidth(), form.Tip->GetWidth() + 2 * form.Tip->GetLeft());
        EXPECT_GT(form.Tip->GetTop(), 0);
        EXPECT_GT(form.Tip->GetLeft(), 0);
    }
}

TEST(frmTipPopupTest, ALongerTipMakesAHigherForm) {
    frmTipPopup form;
    form.SetTipText("short");
    const int low = form.GetHeight();
    form.SetTipText("short\r\nand a second line");
    EXPECT_GT(form.GetHeight(), low);
    form.SetTipText("short");
    EXPECT_EQ(form.GetHeight(), low);
}

TEST(frmTipPopupTest, BrokenMarkupIsATextLikeAnyOther) {
    frmTipPopup form;
    form.SetTipText("<b unclosed");
    EXPECT_EQ(form.GetTipText(), "<b unclosed");
    form.SetTipText("> >> <");
    EXPECT_EQ(form.GetTipText(), "> >> <");
    EXPECT_GT(form.GetHeight(), 0);
}

} // namespace
} // namespace paperkite::test
