#include "platform/ViewTest.h"
#include "platform/qt/PropertiesListView.h"
#include "platform/qt/PropertyValueEditor.h"
#include "support/Waiting.h"
#include "widgets/Form.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

namespace paperkite {
namespace {

using test::WaitUntil;

/// One row of each kind, edited with real keys and the real mouse.
class PropertyEditorsTest : public ViewTest {
protected:
    PropertyEditorsTest() {
        Add("tag", PropertyValueType::Choice);
        for (const char* text : {"Description", "Remarks", "See Also"})
            Row("tag")->AddChoice(text, std::string("##") + text);
        Add("until", PropertyValueType::Date);
        Add("edge", PropertyValueType::Color);
        Add("most", PropertyValueType::Number);
        Add("bare", PropertyValueType::Boolean);
        Row("bare")->SetChoices({"true", "false"});
        Add("file", PropertyValueType::File);
        Add("hidden", PropertyValueType::String);
        Add("caption", PropertyValueType::String);
        Row("hidden")->SetVisible(false);
        mView = Show<PropertiesListView>(mList, QSize(640, 480));
        mTable = &mView->GetTable();
        mTable->setFocus();
    }

    ~PropertyEditorsTest() override { Form::SetDefaultRunner({}); }

    void Add(const std::string& name, PropertyValueType type) {
        mList->Add(name, name)->SetValueType(type);
    }

    Ref<PropertyItem> Row(const std::string& name) { return mList->Item(name); }

    QRect CellOf(const std::string& name) {
        const int at = mTable->GetItemModel().Find(Row(name));
        return mTable->visualRect(mTable->GetItemModel().index(at, 1));
    }

    void Edit(const std::string& name) {
        mList->SetSelectedItem(Row(name));
        QTest::keyClick(mTable, Qt::Key_F2);
    }

    QLineEdit* Field() {
        auto* editor = dynamic_cast<PropertyValueEditor*>(mTable->GetEditor());
        return editor ? &editor->GetField() : nullptr;
    }

    QComboBox* Box() { return dynamic_cast<QComboBox*>(mTable->GetEditor()); }

    static QCalendarWidget* Calendar() {
        QWidget* popup = QApplication::activePopupWidget();
        return popup ? popup->findChild<QCalendarWidget*>() : nullptr;
    }

    Ref<PropertiesList> mList = MakeRef<PropertiesList>("prpProperties");
    PropertiesListView* mView = nullptr;
    PropertiesTable* mTable = nullptr;
};

TEST_F(PropertyEditorsTest, ChoicesAreMovedThroughWithTheKeysAndTakenWithEnter) {
    Edit("tag");
    ASSERT_TRUE(Box());
    EXPECT_EQ(Box()->count(), 4);
    EXPECT_EQ(Box()->itemText(0), "");
    QTest::keyClick(Box(), Qt::Key_Down);
    QTest::keyClick(Box(), Qt::Key_Down);
    ASSERT_TRUE(Box());
    EXPECT_EQ(Row("tag")->GetValue(), "");
    QTest::keyClick(Box(), Qt::Key_Return);
    EXPECT_EQ(Row("tag")->GetValue(), "##Remarks");
    EXPECT_EQ(mTable->GetItemModel().index(0, 1).data(), "Remarks");
    Edit("tag");
    QTest::keyClick(Box(), Qt::Key_Up);
    QTest::keyClick(Box(), Qt::Key_Escape);
    EXPECT_EQ(Row("tag")->GetValue(), "##Remarks");
}

TEST_F(PropertyEditorsTest, AValueThatIsNoChoiceIsNotLost) {
    Row("tag")->SetValue("##old");
    Edit("tag");
    ASSERT_TRUE(Box());
    EXPECT_EQ(Box()->currentText(), "##old");
    QTest::keyClick(Box(), Qt::Key_Return);
    EXPECT_EQ(Row("tag")->GetValue(), "##old");
}

TEST_F(PropertyEditorsTest, TheButtonOpensTheListAndAClickTakesAChoice) {
    mList->SetSelectedItem(Row("tag"));
    auto* button = mTable->GetValueButton();
    ASSERT_TRUE(button);
    EXPECT_FALSE(button->icon().isNull());
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_TRUE(Box());
    auto* view = Box()->view();
    EXPECT_TRUE(WaitUntil([&] { return view->isVisible(); }));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    const QRect place = view->visualRect(view->model()->index(3, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_TRUE(WaitUntil([&] { return !mList->GetInEdit(); }));
    EXPECT_EQ(Row("tag")->GetValue(), "##See Also");
}

TEST_F(PropertyEditorsTest, DeleteEmptiesAChoice) {
    Row("bare")->SetValue("true");
    mList->SetSelectedItem(Row("bare"));
    QTest::keyClick(mTable, Qt::Key_Delete);
    EXPECT_EQ(Row("bare")->GetValue(), "");
    Row("caption")->SetValue("text");
    mList->SetSelectedItem(Row("caption"));
    QTest::keyClick(mTable, Qt::Key_Delete);
    EXPECT_EQ(Row("caption")->GetValue(), "text");
}

TEST_F(PropertyEditorsTest, DatesAreTypedOrTakenFromTheCalendar) {
    Edit("until");
    ASSERT_TRUE(Field());
    QTest::keyClicks(Field(), "2026-12-31");
    QTest::keyClick(Field(), Qt::Key_Return);
    EXPECT_EQ(Row("until")->GetValue(), "2026-12-31");
    Edit("until");
    QTest::keyClick(Field(), Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(Calendar());
    EXPECT_EQ(Calendar()->selectedDate(), QDate(2026, 12, 31));
    auto* days = Calendar()->findChild<QWidget*>("qt_calendar_calendarview");
    ASSERT_TRUE(days);
    QTest::keyClick(days, Qt::Key_Left);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_FALSE(mList->GetInEdit());
    EXPECT_EQ(Row("until")->GetValue(), "2026-12-30");
}

TEST_F(PropertyEditorsTest, F4OpensTheCalendarFromTheRow) {
    mList->SetSelectedItem(Row("until"));
    QTest::keyClick(mTable, Qt::Key_F4);
    ASSERT_TRUE(Calendar());
    auto* days = Calendar()->findChild<QWidget*>("qt_calendar_calendarview");
    QTest::keyClick(days, Qt::Key_Escape);
    EXPECT_TRUE(WaitUntil([] { return !Calendar(); }));
    EXPECT_TRUE(mList->GetInEdit());
    EXPECT_EQ(Row("until")->GetValue(), "");
}

TEST_F(PropertyEditorsTest, NumbersAreCountedWithTheArrows) {
    Edit("most");
    ASSERT_TRUE(Field());
    QTest::keyClick(Field(), Qt::Key_Up);
    QTest::keyClick(Field(), Qt::Key_Up);
    QTest::keyClick(Field(), Qt::Key_Down);
    EXPECT_EQ(Field()->text(), "1");
    QTest::keyClick(Field(), Qt::Key_Return);
    EXPECT_EQ(Row("most")->GetValue(), "1");
}

TEST_F(PropertyEditorsTest, WhatIsNoNumberIsMarkedAndKept) {
    Edit("most");
    QTest::keyClicks(Field(), "many");
    EXPECT_TRUE(Field()->toolTip().contains("is no number"));
    QTest::keyClick(Field(), Qt::Key_Return);
    EXPECT_EQ(Row("most")->GetValue(), "many");
    EXPECT_TRUE(mView->GetDescriptionText().contains("is no number. Type digits, such as 12."));
    const auto index = mTable->GetItemModel().index(3, 1);
    EXPECT_TRUE(index.data(Qt::AccessibleTextRole).toString().contains("is no number"));
    Edit("most");
    EXPECT_EQ(Field()->text(), "many");
    QTest::keyClicks(Field(), "3");
    EXPECT_EQ(Field()->toolTip(), "");
    QTest::keyClick(Field(), Qt::Key_Return);
    EXPECT_FALSE(mView->GetDescriptionText().contains("no number"));
}

TEST_F(PropertyEditorsTest, TheButtonOfAColourOpensTheBrowser) {
    std::string shown;
    Form::SetDefaultRunner([&](Form& form, FormMode) {
        shown = form.GetCaption();
        form.UserEnter();
    });
    mList->SetSelectedItem(Row("edge"));
    ASSERT_TRUE(mTable->GetValueButton());
    QTest::mouseClick(mTable->GetValueButton(), Qt::LeftButton);
    EXPECT_EQ(shown, "Browse Color");
    EXPECT_EQ(Row("edge")->GetValue(), "#000000");
    EXPECT_FALSE(mTable->GetEditor());
    Edit("edge");
    QTest::keyClicks(Field(), "teal");
    QTest::keyClick(Field(), Qt::Key_F4);
    EXPECT_EQ(Row("edge")->GetValue(), "#008080");
}

TEST_F(PropertyEditorsTest, ASwatchStandsInTheCell) {
    Row("edge")->SetValue("#D01020");
    mView->repaint();
    const QImage image = mTable->viewport()->grab().toImage();
    const QRect cell = CellOf("edge");
    EXPECT_EQ(QColor(image.pixel(cell.left() + 15, cell.center().y())), QColor(0xD0, 0x10, 0x20));
}

TEST_F(PropertyEditorsTest, TheButtonOfAFileBeginsItsEdit) {
    int asked = 0;
    auto tie = mList->Events.BeforeEdit.Connect([&](const Ref<PropertyItem>& row, bool& cancel) {
        ++asked;
        row->SetValue("/chosen.html");
        cancel = true;
    });
    mList->SetSelectedItem(Row("file"));
    ASSERT_TRUE(mTable->GetValueButton());
    QTest::mouseClick(mTable->GetValueButton(), Qt::LeftButton);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Row("file")->GetValue(), "/chosen.html");
    EXPECT_FALSE(mTable->GetEditor());
}

TEST_F(PropertyEditorsTest, LeavingTheEditorKeepsWhatWasTyped) {
    Edit("until");
    QTest::keyClicks(Field(), "2026-01-01");
    QTest::mouseClick(mTable->viewport(), Qt::LeftButton, {}, CellOf("caption").center());
    EXPECT_EQ(Row("until")->GetValue(), "2026-01-01");
    EXPECT_EQ(mList->GetSelectedItem(), Row("caption"));
    EXPECT_FALSE(mTable->GetValueButton());
}

TEST_F(PropertyEditorsTest, AHiddenRowIsNotSeenAndNotReached) {
    EXPECT_TRUE(mTable->isRowHidden(6));
    mList->SetSelectedItem(Row("file"));
    QTest::keyClick(mTable, Qt::Key_Down);
    EXPECT_EQ(mList->GetSelectedItem(), Row("caption"));
    Row("hidden")->SetVisible(true);
    EXPECT_FALSE(mTable->isRowHidden(6));
}

} // namespace
} // namespace paperkite
