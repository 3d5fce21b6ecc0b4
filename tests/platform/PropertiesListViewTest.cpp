#include "platform/qt/PropertiesListView.h"

#include "platform/SampleControls.h"
#include "platform/ViewTest.h"
#include "widgets/Keys.h"

#include <QAccessible>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>

namespace paperkite {
namespace {

class PropertiesListViewTest : public ViewTest {
protected:
    void Open() {
        mView = Show<PropertiesListView>(mList, QSize(640, 480));
        mTable = &mView->GetTable();
        mTable->setFocus();
    }

    QPoint PlaceOf(const Ref<PropertyItem>& row, int column) {
        const int at = mTable->GetItemModel().Find(row);
        return mTable->visualRect(mTable->GetItemModel().index(at, column)).center();
    }

    void Click(const Ref<PropertyItem>& row, int column = 0) {
        QTest::mouseClick(mTable->viewport(), Qt::LeftButton, {}, PlaceOf(row, column));
    }

    void DoubleClick(const Ref<PropertyItem>& row) {
        QTest::mouseDClick(mTable->viewport(), Qt::LeftButton, {}, PlaceOf(row, 1));
    }

    QPlainTextEdit* Editor() { return dynamic_cast<QPlainTextEdit*>(mTable->GetEditor()); }

    Ref<PropertiesList> mList = SampleList();
    PropertiesListView* mView = nullptr;
    PropertiesTable* mTable = nullptr;
};

TEST_F(PropertiesListViewTest, AClickSelectsTheRowAndDescribesIt) {
    Open();
    auto row = mList->Item("t3");
    row->SetDescription("One line.<BR>Another.");
    int changes = 0;
    auto tie = mList->Events.SelChange.Connect([&](const auto&) { ++changes; });
    Click(row);
    EXPECT_EQ(mList->GetSelectedItem(), row);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(mView->GetDescriptionText(), "See Also\nOne line.<BR>Another.");
}

TEST_F(PropertiesListViewTest, TheArrowKeysAndTypeAheadMoveTheSelection) {
    Open();
    QTest::keyClick(mTable, Qt::Key_Down);
    EXPECT_EQ(mList->GetSelectedItem()->GetKey(), "t3");
    QTest::keyClick(mTable, Qt::Key_K);
    EXPECT_EQ(mList->GetSelectedItem()->GetCaption(), "Keywords");
}

TEST_F(PropertiesListViewTest, TheSelectedRowShowsItsButtonWhichCanBeReachedAndPressed) {
    Open();
    std::string pressed;
    auto tie = mList->Events.ButtonClick.Connect([&](const auto& key) { pressed += key; });
    EXPECT_FALSE(mTable->GetButton("AddButton"));
    auto* button = mTable->GetButton("DeleteButton");
    ASSERT_TRUE(button);
    EXPECT_EQ(button->text(), "Delete Tag");
    QTest::keyClick(mTable, Qt::Key_Tab);
    EXPECT_TRUE(button->hasFocus());
    QTest::keyClick(button, Qt::Key_Space);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(pressed, "DeleteButtonDeleteButton");
    mList->SetButtonVisible(2, false);
    mList->SetButtonVisible(1, true);
    EXPECT_FALSE(mTable->GetButton("DeleteButton"));
    EXPECT_EQ(mTable->GetButton("AddButton")->text(), "Add Tag");
    mList->SetSelectedItem(mList->Item("NewHeader"));
    EXPECT_FALSE(mTable->GetButton("AddButton"));
}

TEST_F(PropertiesListViewTest, TypingInPlaceBecomesTheValueWithEnter) {
    Open();
    auto row = mList->Item("t2");
    QTest::keyClick(mTable, Qt::Key_F2);
    ASSERT_TRUE(Editor());
    EXPECT_TRUE(Editor()->hasFocus());
    EXPECT_FALSE(mTable->GetButton("DeleteButton")) << "the editor has the whole room";
    QTest::keyClicks(Editor(), "one");
    const int height = Editor()->height();
    QTest::keyClick(Editor(), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(Editor(), "two");
    EXPECT_GT(Editor()->height(), height);
    QTest::keyClick(Editor(), Qt::Key_Return);
    EXPECT_EQ(row->GetValue(), "one\ntwo");
    EXPECT_FALSE(mTable->GetEditor());
    EXPECT_TRUE(mTable->hasFocus());
}

TEST_F(PropertiesListViewTest, EscapeDropsWhatWasTyped) {
    Open();
    auto row = mList->Item("t2");
    const std::string before = row->GetValue();
    mList->BeginEdit();
    QTest::keyClicks(Editor(), "x");
    QTest::keyClick(Editor(), Qt::Key_Escape);
    EXPECT_EQ(row->GetValue(), before);
    EXPECT_FALSE(mList->GetInEdit());
}

TEST_F(PropertiesListViewTest, LeavingTheEditorKeepsWhatWasTyped) {
    Open();
    auto row = mList->Item("t2");
    mList->BeginEdit();
    QTest::keyClicks(Editor(), "kept");
    Click(mList->Item("t3"));
    EXPECT_EQ(row->GetValue(), "kept");
    EXPECT_EQ(mList->GetSelectedItem()->GetKey(), "t3");
    EXPECT_FALSE(mList->GetInEdit());
}

TEST_F(PropertiesListViewTest, AnEnterKeyThatTheComponentTakesBeginsAndEndsTheEdit) {
    Open();
    auto tie = mList->Events.KeyDown.Connect([&](int& keyCode, int) {
        if (keyCode != KeyReturn) return;
        keyCode = 0;
        mList->GetInEdit() ? mList->EndEdit() : void(mList->BeginEdit());
    });
    QTest::keyClick(mTable, Qt::Key_Return);
    ASSERT_TRUE(Editor());
    QTest::keyClicks(Editor(), "by Enter");
    QTest::keyClick(Editor(), Qt::Key_Return);
    EXPECT_EQ(mList->Item("t2")->GetValue(), "by Enter");
}

TEST_F(PropertiesListViewTest, ADoubleClickIsRaisedAndEditsOnlyWhatCanBeEdited) {
    Open();
    int doubleClicks = 0;
    auto tie = mList->Events.DblClick.Connect([&] { ++doubleClicks; });
    DoubleClick(mList->Item(7));
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_FALSE(mTable->GetEditor());
    DoubleClick(mList->Item("t3"));
    EXPECT_TRUE(mTable->GetEditor());
}

TEST_F(PropertiesListViewTest, AHeaderFoldsItsRowsUnlessAHandlerUnfoldsItAgain) {
    Open();
    auto header = mList->Item("ExistingHeader");
    Click(header);
    QTest::keyClick(mTable, Qt::Key_Left);
    EXPECT_FALSE(header->GetExpanded());
    EXPECT_TRUE(mTable->isRowHidden(1));
    EXPECT_FALSE(mTable->isRowHidden(4));
    QTest::keyClick(mTable, Qt::Key_Right);
    EXPECT_FALSE(mTable->isRowHidden(1));
    auto tie = mList->Events.Collapse.Connect([](const auto& row) { row->SetExpanded(true); });
    QTest::keyClick(mTable, Qt::Key_Left);
    EXPECT_FALSE(mTable->isRowHidden(1));
}

TEST_F(PropertiesListViewTest, RowsAddedUnderSuspensionComeAtItsEndAndCanBeEditedAtOnce) {
    Open();
    mList->SuspendUpdates();
    auto row = mList->Insert(2, "new", "New");
    mList->SetSelectedItem(row);
    mList->ResumeUpdates();
    EXPECT_TRUE(mList->BeginEdit());
    ASSERT_TRUE(Editor());
    QTest::keyClicks(Editor(), "text");
    mList->EndEdit();
    EXPECT_EQ(row->GetValue(), "text");
}

TEST_F(PropertiesListViewTest, ChoicesArePickedFromAList) {
    auto row = mList->Item("t2");
    row->SetChoices({"yes", "no"});
    row->SetValue("yes");
    Open();
    mList->BeginEdit();
    auto* combo = dynamic_cast<QComboBox*>(mTable->GetEditor());
    ASSERT_TRUE(combo);
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Return);
    EXPECT_EQ(row->GetValue(), "no");
}

TEST_F(PropertiesListViewTest, TicksAreTurnedWithSpaceAndMouse) {
    mList->SetCheckBoxes(true);
    Open();
    auto row = mList->Item("t2");
    QTest::keyClick(mTable, Qt::Key_Space);
    EXPECT_TRUE(row->GetChecked());
    QTest::mouseClick(mTable->viewport(), Qt::LeftButton, {}, QPoint(12, PlaceOf(row, 0).y()));
    EXPECT_FALSE(row->GetChecked());
}

TEST_F(PropertiesListViewTest, CellsSpeakTheirWholeText) {
    Open();
    auto* table = QAccessible::queryAccessibleInterface(mTable);
    ASSERT_TRUE(table);
    EXPECT_EQ(table->role(), QAccessible::Table);
    auto* cell = table->tableInterface()->cellAt(1, 1);
    ASSERT_TRUE(cell);
    EXPECT_TRUE(cell->text(QAccessible::Name).contains("leaves *value unchanged"));
}

TEST_F(PropertiesListViewTest, AnEmptyListShowsItsText) {
    mList->Clear();
    Open();
    const QImage blank = Picture("list-blank");
    mList->SetText("Working, please wait...");
    EXPECT_NE(Picture("list-empty"), blank);
}

} // namespace
} // namespace paperkite
