#include "platform/SampleControls.h"
#include "platform/ViewTest.h"
#include "platform/qt/ContainerView.h"
#include "platform/qt/ExplorerBarView.h"
#include "platform/qt/FormView.h"
#include "platform/qt/SplitPanelView.h"
#include "widgets/Button.h"
#include "widgets/ComboBox.h"
#include "widgets/ListBox.h"
#include "widgets/StackPanel.h"
#include "widgets/TextBox.h"
#include "widgets/frmFilterProperties.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

namespace paperkite {
namespace {

class OtherViewsTest : public ViewTest {};

TEST_F(OtherViewsTest, ALineOfTheExplorerBarIsChosenByMouseAndByKeyboard) {
    auto bar = SampleBar();
    auto* view = Show<ExplorerBarView>(bar, QSize(240, 600));
    QTest::mouseClick(view->LineOf("description", "#remarks"), Qt::LeftButton);
    EXPECT_EQ(bar->GetSelectedItem()->GetKey(), "#remarks");
    QWidget* line = view->LineOf("description", "#remarks");
    line->setFocus();
    QTest::keyClick(line, Qt::Key_Up);
    EXPECT_TRUE(view->LineOf("description", "##")->hasFocus());
    EXPECT_EQ(bar->GetSelectedItem()->GetKey(), "#remarks") << "moving does not choose yet";
    QTest::keyClick(view->LineOf("description", "##"), Qt::Key_Return);
    EXPECT_EQ(bar->GetSelectedItem()->GetKey(), "##");
}

TEST_F(OtherViewsTest, ExplorerBarLinesSpeakAsAChoiceOfOne) {
    auto bar = SampleBar();
    auto* view = Show<ExplorerBarView>(bar, QSize(240, 600));
    auto* spoken =
        QAccessible::queryAccessibleInterface(view->LineOf("main", "inplaceedit:Method"));
    ASSERT_TRUE(spoken);
    EXPECT_EQ(spoken->role(), QAccessible::RadioButton);
    EXPECT_EQ(spoken->text(QAccessible::Name), "Full Page Edit");
    EXPECT_TRUE(spoken->state().checked);
}

TEST_F(OtherViewsTest, TheExplorerBarFollowsItsModelAndHostsCheckBoxes) {
    auto bar = SampleBar();
    auto* view = Show<ExplorerBarView>(bar, QSize(240, 600));
    auto* box = view->findChild<QCheckBox*>("Deprecated");
    ASSERT_TRUE(box);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    auto frame = bar->GetGroup("flags")->Item(1)->GetControl().As<FramePanel>();
    EXPECT_TRUE(frame->Controls.Item<CheckBox>("Deprecated")->GetChecked());
    bar->GetGroup("description")->Item("#remarks")->SetVisible(false);
    bar->GetGroup("other")->SetCollapsed(true);
    QTest::qWait(0);
    EXPECT_FALSE(view->LineOf("description", "#remarks"));
    EXPECT_FALSE(view->LineOf("other", "other"));
    EXPECT_TRUE(view->LineOf("description", "##"));
}

TEST_F(OtherViewsTest, ALineOfSeveralRowsTakesTheRoomThatItsWordsNeed) {
    mTheme.SetTextScale(200);
    auto bar = MakeRef<ExplorerBar>("eb");
    const auto group = bar->AddGroup("kinds", "Kinds");
    group->Add("long", "A sentence that takes many more than the two rows it was given")
        ->SetHeight(2);
    group->Add("short", "Two words")->SetHeight(2);
    auto* view = Show<ExplorerBarView>(bar, QSize(240, 600));
    const auto* line = qobject_cast<QAbstractButton*>(view->LineOf("kinds", "long"));
    ASSERT_TRUE(line);
    const QRect room(0, 0, line->width() - 18, QWIDGETSIZE_MAX);
    const int words =
        line->fontMetrics().boundingRect(room, Qt::TextWordWrap, line->text()).height();
    EXPECT_GT(words, 2 * line->fontMetrics().height());
    EXPECT_GE(line->height(), words);
    EXPECT_LT(view->LineOf("kinds", "short")->height(), line->height());
}

TEST_F(OtherViewsTest, ADialogIsAsLargeAsItsLettersWantAndItsWindowAllows) {
    mTheme.SetTextScale(150);
    Form form;
    form.Move(0, 0, 400, 300);
    FormView alone(mFactory, form, nullptr);
    EXPECT_EQ(alone.size(), QSize(600, 450));
    QWidget window;
    window.resize(500, 400);
    FormView above(mFactory, form, &window);
    EXPECT_EQ(above.size(), QSize(500, 400));
    // What stands in a dialog begins where its text begins.
    const auto bar = form.Controls.Make<ExplorerBar>("eb");
    bar->AddGroup("group", "Group")->Add("line", "A line");
    form.SetLayout(FormLayout::Column({FormLayout::Item(bar, 1)}));
    FormView with(mFactory, form, nullptr);
    with.show();
    QTest::qWait(0);
    const auto* line = with.findChild<QAbstractButton*>();
    ASSERT_TRUE(line);
    EXPECT_LT(line->mapTo(&with, QPoint(0, 0)).x(), 20);
}

TEST_F(OtherViewsTest, LettingGoOfTheSplitterIsADrag) {
    auto panel = MakeRef<SplitPanel>("split");
    panel->SetFirstPane(MakeRef<TextBox>("a"));
    panel->SetSecondPane(MakeRef<TextBox>("b"));
    int drags = 0;
    auto tie = panel->Events.AfterDrag.Connect([&] { ++drags; });
    auto* view = Show<SplitPanelView>(panel);
    EXPECT_EQ(drags, 0);
    auto* handle = view->handle(1);
    QTest::mousePress(handle, Qt::LeftButton, {}, handle->rect().center());
    QTest::mouseMove(handle, handle->rect().center() - QPoint(100, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->rect().center());
    QTest::qWait(0);
    EXPECT_EQ(drags, 1);
    EXPECT_NEAR(panel->GetPercentage(), 25, 3);
    panel->SetPercentage(70);
    EXPECT_NEAR(view->sizes().first(), 280, 6);
}

TEST_F(OtherViewsTest, ADialogStoresWithEnterAndCancelsWithEscapeAndItsBox) {
    FormView::InstallRunner(mFactory);
    frmFilterProperties form;
    const auto play = [&](auto&& author) {
        QTimer::singleShot(0, qApp, [&] {
            auto* window = QApplication::activeModalWidget();
            ASSERT_TRUE(window);
            EXPECT_EQ(window->windowTitle(), "Filter Properties");
            auto* field = window->findChild<QLineEdit*>("txtWildcard");
            QTest::keyClicks(field, "Get*");
            author(window, field);
        });
        form.Show(FormMode::Modal);
        EXPECT_FALSE(form.GetVisible());
    };
    play([](QWidget*, QLineEdit* field) { QTest::keyClick(field, Qt::Key_Escape); });
    EXPECT_TRUE(form.GetCancelled());
    play([](QWidget* window, QLineEdit*) { window->close(); });
    EXPECT_TRUE(form.GetCancelled());
    form.SetWildcard("");
    play([](QWidget*, QLineEdit* field) { QTest::keyClick(field, Qt::Key_Return); });
    EXPECT_FALSE(form.GetCancelled());
    EXPECT_EQ(form.GetWildcard(), "Get*");
    Form::SetDefaultRunner({});
}

TEST_F(OtherViewsTest, AModelessFormClosesItsWindowWhenItIsHiddenOrEnds) {
    FormView::InstallRunner(mFactory);
    auto form = std::make_unique<frmFilterProperties>();
    const auto windows = [] {
        int shown = 0;
        for (auto* widget : QApplication::topLevelWidgets())
            if (dynamic_cast<FormView*>(widget) && widget->isVisible()) ++shown;
        return shown;
    };
    form->Show();
    EXPECT_EQ(windows(), 1);
    form->Hide();
    EXPECT_EQ(windows(), 0);
    form->Show();
    EXPECT_EQ(windows(), 1);
    form.reset();
    EXPECT_EQ(windows(), 0);
    Form::SetDefaultRunner({});
}

TEST_F(OtherViewsTest, LabelsAreTheBuddiesAndNamesOfTheirFields) {
    auto page = MakeRef<Container>("page");
    auto name = page->Controls.Make<TextBox>("txtName");
    auto notes = page->Controls.Make<TextBox>("txtNotes");
    notes->SetMultiLine(true);
    page->SetLayout(
        FormLayout::Column({FormLayout::Fields({{"&Name:", name}, {"N&otes:", notes}})}));
    auto* view = Show<ContainerView>(page);
    auto* field = view->ViewOf(name);
    EXPECT_EQ(field->accessibleName(), "Name:");
    bool isBuddy = false;
    for (auto* label : view->findChildren<QLabel*>())
        isBuddy = isBuddy || label->buddy() == field;
    EXPECT_TRUE(isBuddy);
    field->setFocus();
    QTest::keyClicks(field, "a");
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_TRUE(view->ViewOf(notes)->hasFocus());
    EXPECT_TRUE(notes->HasFocus());
    QTest::keyClicks(view->ViewOf(notes), "two");
    EXPECT_EQ(name->GetText() + notes->GetText(), "atwo");
}

TEST_F(OtherViewsTest, InSentencesAnAmpersandIsALetter) {
    auto page = MakeRef<Container>("page");
    auto told = page->Controls.Make<Label>("lblTold");
    told->SetWordWrap(true);
    told->SetCaption("put(const std::string&)");
    auto name = page->Controls.Make<TextBox>("txtName");
    page->SetLayout(FormLayout::Column({FormLayout::Item(told), FormLayout::Item(name)}));
    auto* view = Show<ContainerView>(page);
    const auto* label = qobject_cast<QLabel*>(view->ViewOf(told));
    ASSERT_TRUE(label);
    // A buddy makes a mnemonic of it, which is not drawn.
    EXPECT_EQ(label->buddy(), nullptr);
    EXPECT_EQ(label->text(), QString("put(const std::string&)"));
}

TEST_F(OtherViewsTest, FieldsFollowTheirModelsAndTheirModelsThem) {
    auto page = MakeRef<Container>("page");
    auto box = page->Controls.Make<CheckBox>("chk");
    auto combo = page->Controls.Make<ComboBox>("cbo");
    auto list = page->Controls.Make<ListBox>("lbx");
    list->SetCheckBoxes(true);
    for (const auto* text : {"one", "two", "three"}) {
        combo->AddItem(text);
        list->AddItem(text);
    }
    page->SetLayout(FormLayout::Column(
        {FormLayout::Item(box), FormLayout::Item(combo), FormLayout::Item(list, 1)}));
    auto* view = Show<ContainerView>(page);
    auto* comboView = qobject_cast<QComboBox*>(view->ViewOf(combo));
    auto* listView = qobject_cast<QListWidget*>(view->ViewOf(list));
    comboView->setFocus();
    QTest::keyClick(comboView, Qt::Key_Down);
    EXPECT_EQ(combo->GetText(), "one");
    combo->SetListIndex(2);
    EXPECT_EQ(comboView->currentText(), "three");
    list->SetListIndex(1);
    listView->setFocus();
    QTest::keyClick(listView, Qt::Key_Space);
    EXPECT_TRUE(list->GetSelected(1));
    list->RemoveItem(0);
    EXPECT_EQ(listView->count(), 2);
    EXPECT_EQ(listView->item(0)->checkState(), Qt::Checked);
    box->SetValue(CheckBox::kMixed);
    EXPECT_EQ(qobject_cast<QCheckBox*>(view->ViewOf(box))->checkState(), Qt::PartiallyChecked);
    box->SetEnabled(false);
    EXPECT_FALSE(view->ViewOf(box)->isEnabled());
    box->SetVisible(false);
    EXPECT_FALSE(view->ViewOf(box)->isVisible());
}

TEST_F(OtherViewsTest, SurfacesOfAStackShareItsRectangle) {
    auto stack = MakeRef<StackPanel>("tagsContainer");
    auto list = MakeRef<TextBox>("list");
    auto page = MakeRef<TextBox>("page");
    stack->Controls.Add(list);
    stack->Controls.Add(page);
    page->SetVisible(false);
    auto* view = Show<ContainerView>(stack, QSize(320, 240));
    EXPECT_EQ(view->ViewOf(list)->size(), QSize(320, 240));
    EXPECT_EQ(list->GetWidth(), 320);
    list->SetVisible(false);
    page->SetVisible(true);
    EXPECT_TRUE(view->ViewOf(page)->isVisible());
    EXPECT_FALSE(view->ViewOf(list)->isVisible());
    EXPECT_EQ(view->ViewOf(page)->size(), QSize(320, 240));
}

TEST_F(OtherViewsTest, FocusWantedByCodeReachesTheWidget) {
    auto page = MakeRef<Container>("page");
    auto first = page->Controls.Make<TextBox>("a");
    auto second = page->Controls.Make<TextBox>("b");
    page->SetLayout(FormLayout::Column({FormLayout::Item(first), FormLayout::Item(second)}));
    auto* view = Show<ContainerView>(page);
    second->SetFocus();
    EXPECT_TRUE(view->ViewOf(second)->hasFocus());
    EXPECT_TRUE(second->HasFocus());
    view->ViewOf(first)->setFocus();
    EXPECT_TRUE(first->HasFocus());
    EXPECT_FALSE(second->HasFocus());
}

TEST_F(OtherViewsTest, EveryVisibleControlOfTheWindowHasANameForScreenReaders) {
    Show(SampleWindow(), QSize(1280, 760));
    for (auto* button : mWindow->findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || !button->isEnabled()) continue;
        if (button->focusPolicy() == Qt::NoFocus) continue;
        auto* spoken = QAccessible::queryAccessibleInterface(button);
        ASSERT_TRUE(spoken);
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty())
            << button->metaObject()->className() << " " << button->objectName().toStdString();
    }
}

TEST_F(OtherViewsTest, AFramedLayoutStandsInAFrameAsWideAsTheStyleSays) {
    auto page = MakeRef<Container>("page");
    auto list = MakeRef<ListBox>("list");
    auto below = MakeRef<Button>("below");
    below->SetCaption("&Below");
    for (const Ref<Control>& control : {Ref<Control>(list), Ref<Control>(below)})
        page->Controls.Add(control);
    page->SetLayout(FormLayout::Framed({FormLayout::Item(list, 1), FormLayout::Item(below)}));
    auto* view = Show<ContainerView>(page);
    auto* field = view->ViewOf(list);
    auto* button = view->findChild<QPushButton*>("below");
    ASSERT_TRUE(field && button);
    const auto* frame = qobject_cast<QFrame*>(button->parentWidget());
    ASSERT_TRUE(frame);
    EXPECT_EQ(field->parentWidget(), frame);
    EXPECT_EQ(frame->rect().size(), view->rect().size());
    const int width = frame->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, frame);
    EXPECT_GT(width, 0);
    EXPECT_EQ(button->geometry().bottom(), frame->rect().bottom() - width);
    EXPECT_EQ(button->geometry().left(), width);
    EXPECT_LT(field->geometry().bottom(), button->geometry().top());
}

} // namespace
} // namespace paperkite
