#include "widgets/PropertiesList.h"
#include "widgets/EventLog.h"
#include "widgets/Keys.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

class PropertiesListTest : public testing::Test {
protected:
    void LogAll() {
        auto& events = mList->Events;
        const auto key = [](const Ref<PropertyItem>& row) { return row ? row->GetKey() : "-"; };
        mLog.Keep(
            events.Change.Connect([=, this](const auto& row) { mLog.Add("change:" + key(row)); }));
        mLog.Keep(
            events.SelChange.Connect([=, this](const auto& row) { mLog.Add("sel:" + key(row)); }));
        mLog.Keep(
            events.ItemCheck.Connect([=, this](const auto& row) { mLog.Add("tick:" + key(row)); }));
        mLog.Keep(events.AfterEdit.Connect(
            [this](const auto&, const std::string& value, const std::string&, bool&) {
                mLog.Add(std::string("after:") + value + (mList->GetInEdit() ? "(in edit)" : ""));
            }));
        mLog.Keep(events.ButtonClick.Connect([this](const auto& name) { mLog.Add(name); }));
    }

    Ref<PropertiesList> mList = MakeRef<PropertiesList>("prpTags");
    EventLog mLog;
};

TEST_F(PropertiesListTest, RowsAreFoundByKeyAndPosition) {
    auto a = mList->Add("a", "A");
    auto c = mList->Add("c", "C");
    auto b = mList->Insert(2, "b", "B");
    EXPECT_EQ(mList->Item("b"), b);
    EXPECT_EQ(mList->Item(3), c);
    EXPECT_EQ(c->GetIndex(), 3u);
    mList->Remove("a");
    EXPECT_EQ(c->GetIndex(), 2u);
    EXPECT_EQ(a->GetIndex(), 0u);
    EXPECT_EQ(ErrorNumberOf([&] { mList->Item("a"); }), 5);
    EXPECT_EQ(ErrorNumberOf([&] { mList->Item(3); }), 9);
}

TEST_F(PropertiesListTest, AnEmptyKeyIsReplacedByAUniqueOne) {
    mList->Add("Item1", "");
    auto first = mList->Add("", "");
    auto second = mList->Add("", "");
    EXPECT_FALSE(first->GetKey().empty());
    EXPECT_NE(first->GetKey(), second->GetKey());
    EXPECT_NE(first->GetKey(), "Item1");
    EXPECT_EQ(ErrorNumberOf([&] { mList->Add(first->GetKey(), ""); }), 457);
    EXPECT_EQ(mList->Count(), 3u);
}

TEST_F(PropertiesListTest, WritesFromCodeRaiseOnceForANewValue) {
    auto row = mList->Add("r", "");
    LogAll();
    row->SetValue("x");
    row->SetValue("x");
    row->SetChecked(true);
    row->SetChecked(true);
    mList->SetSelectedItem(row);
    mList->SetSelectedItem(row);
    EXPECT_EQ(mLog.Take(), "change:r tick:r sel:r");
}

TEST_F(PropertiesListTest, AnEditBecomesTheValueWhileTheListIsStillInEdit) {
    auto row = mList->Add("r", "");
    row->SetValue("old");
    mList->SetSelectedItem(row);
    LogAll();
    EXPECT_TRUE(mList->BeginEdit());
    EXPECT_EQ(mList->GetEditText(), "old");
    mList->UserType("two\nlines");
    EXPECT_EQ(row->GetValue(), "old");
    mList->EndEdit();
    EXPECT_EQ(mLog.Take(), "after:two\nlines(in edit) change:r");
    EXPECT_EQ(row->GetValue(), "two\nlines");
    EXPECT_FALSE(mList->GetInEdit());
}

TEST_F(PropertiesListTest, AnEditThatChangedNothingEndsSilently) {
    mList->SetSelectedItem(mList->Add("r", ""));
    LogAll();
    mList->BeginEdit();
    mList->EndEdit();
    EXPECT_EQ(mLog.Take(), "");
    EXPECT_FALSE(mList->GetInEdit());
}

TEST_F(PropertiesListTest, ACancelledEditKeepsTheValue) {
    auto row = mList->Add("r", "");
    mList->SetSelectedItem(row);
    LogAll();
    mList->BeginEdit();
    mList->UserType("x");
    EXPECT_EQ(mList->UserKeyDown(KeyEscape, 0), KeyEscape);
    EXPECT_FALSE(mList->GetInEdit());
    EXPECT_EQ(row->GetValue(), "");
    auto tie = mList->Events.AfterEdit.Connect(
        [](const auto&, const auto&, const auto&, bool& cancel) { cancel = true; });
    mList->BeginEdit();
    mList->UserType("y");
    mList->EndEdit();
    EXPECT_EQ(row->GetValue(), "");
    EXPECT_EQ(mLog.Take(), "after:y(in edit)");
}

TEST_F(PropertiesListTest, HeadersReadOnlyAndLockedRowsAreNotEdited) {
    auto header = mList->Add("h", "", PropertyItemType::Header);
    auto readOnly = mList->Add("r", "");
    readOnly->SetReadOnly(true);
    auto locked = mList->Add("l", "");
    locked->SetValueLocked(true);
    EXPECT_FALSE(mList->BeginEdit());
    for (const auto& row : {header, readOnly, locked}) {
        mList->SetSelectedItem(row);
        EXPECT_FALSE(mList->BeginEdit()) << row->GetKey();
    }
    auto plain = mList->Add("p", "");
    mList->SetSelectedItem(plain);
    auto tie = mList->Events.BeforeEdit.Connect([](const auto&, bool& cancel) { cancel = true; });
    EXPECT_FALSE(mList->BeginEdit());
}

TEST_F(PropertiesListTest, SelectingAnotherRowCommitsTheEdit) {
    auto first = mList->Add("a", "");
    auto second = mList->Add("b", "");
    mList->SetSelectedItem(first);
    mList->BeginEdit();
    mList->UserType("typed");
    LogAll();
    mList->UserClick(second);
    EXPECT_EQ(first->GetValue(), "typed");
    EXPECT_EQ(mLog.Take(), "after:typed(in edit) change:a sel:b");
}

TEST_F(PropertiesListTest, RemovingTheSelectedRowDropsItsEditAndTheSelection) {
    auto row = mList->Add("a", "");
    mList->SetSelectedItem(row);
    mList->BeginEdit();
    mList->UserType("typed");
    LogAll();
    mList->Remove(1);
    EXPECT_EQ(mLog.Take(), "sel:-");
    EXPECT_FALSE(mList->GetInEdit());
    row->SetValue("heard no more");
    EXPECT_EQ(mLog.Take(), "");
    EXPECT_EQ(ErrorNumberOf([&] { mList->SetSelectedItem(row); }), 5);
}

TEST_F(PropertiesListTest, OnlyVisibleButtonsAreClicked) {
    const int add = mList->AddButton("AddButton", "Click to add this tag");
    EXPECT_EQ(add, 1);
    EXPECT_EQ(mList->AddButton("DeleteButton", "Delete Tag"), 2);
    LogAll();
    mList->SetButtonVisible(add, false);
    mList->UserClickButton("AddButton");
    mList->UserClickButton("DeleteButton");
    EXPECT_EQ(mLog.Take(), "DeleteButton");
    EXPECT_EQ(ErrorNumberOf([&] { mList->SetButtonVisible(3, true); }), 9);
}

TEST_F(PropertiesListTest, AHandlerOfCollapseMayExpandTheHeaderAgain) {
    auto header = mList->Add("h", "", PropertyItemType::Header);
    auto tie = mList->Events.Collapse.Connect([](const auto& row) { row->SetExpanded(true); });
    mList->UserToggle(header);
    EXPECT_TRUE(header->GetExpanded());
}

TEST_F(PropertiesListTest, F2EditsUnlessAHandlerSwallowsIt) {
    mList->SetSelectedItem(mList->Add("r", ""));
    bool swallow = true;
    auto tie = mList->Events.KeyDown.Connect([&](int& keyCode, int) {
        if (swallow) keyCode = 0;
    });
    EXPECT_EQ(mList->UserKeyDown(KeyF2, 0), 0);
    EXPECT_FALSE(mList->GetInEdit());
    swallow = false;
    mList->UserKeyDown(KeyF2, 0);
    EXPECT_TRUE(mList->GetInEdit());
}

TEST_F(PropertiesListTest, TheBigEditorIsRefusedByTheHandler) {
    mList->SetSelectedItem(mList->Add("r", ""));
    EXPECT_TRUE(mList->UserExtendedEdit());
    auto tie =
        mList->Events.BeforeExtendedEdit.Connect([](const auto&, bool& cancel) { cancel = true; });
    EXPECT_FALSE(mList->UserExtendedEdit());
}

TEST_F(PropertiesListTest, ColumnsAreNameAndValue) {
    EXPECT_EQ(mList->GetColumnCaption("Name"), "Name");
    mList->SetColumnCaption("Name", "Tag");
    EXPECT_EQ(mList->GetColumnCaption("Name"), "Tag");
    EXPECT_EQ(mList->GetColumnCaption("Value"), "Value");
    EXPECT_EQ(ErrorNumberOf([&] { mList->SetColumnCaption("Other", ""); }), 5);
}

class ListLog : public PropertiesListObserver {
public:
    void RowsChanged() override { Log.Add("rows"); }

    void RowChanged(const Ref<PropertyItem>& row) override { Log.Add("row:" + row->GetKey()); }

    void SelectionChanged() override { Log.Add("selection"); }

    EventLog Log;
};

TEST_F(PropertiesListTest, SuspendedUpdatesAreMadeUpForOnce) {
    ListLog view;
    auto tie = mList->Observe(view);
    auto row = mList->Add("a", "");
    row->SetBold(true);
    EXPECT_EQ(view.Log.Take(), "rows row:a");
    mList->SuspendUpdates();
    mList->Add("b", "");
    mList->SetSelectedItem(row);
    row->SetBold(false);
    EXPECT_EQ(view.Log.Take(), "");
    mList->ResumeUpdates();
    EXPECT_EQ(view.Log.Take(), "rows");
}

} // namespace
} // namespace paperkite
