#include "platform/qt/ViewFactory.h"

#include "foundation/Text.h"
#include "platform/qt/CodeBoxView.h"
#include "platform/qt/ColourViews.h"
#include "platform/qt/ContainerView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/DockView.h"
#include "platform/qt/ExplorerBarView.h"
#include "platform/qt/FieldViews.h"
#include "platform/qt/FlatStripView.h"
#include "platform/qt/HeaderBarView.h"
#include "platform/qt/HtmlEditView.h"
#include "platform/qt/ListViews.h"
#include "platform/qt/PropertiesListView.h"
#include "platform/qt/SplitPanelView.h"
#include "platform/qt/TreeView.h"

namespace paperkite {

namespace {

template <class Role>
auto MakeWith(QWidget* (*make)(const Ref<Role>&, QWidget*)) {
    return
        [make](ViewFactory&, const Ref<Role>& role, QWidget* parent) { return make(role, parent); };
}

} // namespace

ViewFactory::ViewFactory() {
    RegisterContainers();
    RegisterFields();
}

void ViewFactory::RegisterFields() {
    RegisterRole<Label>(MakeWith(&MakeLabelView));
    RegisterRole<Button>(MakeWith(&MakeButtonView));
    RegisterRole<CheckBox>(MakeWith(&MakeCheckBoxView));
    RegisterRole<OptionButton>(MakeWith(&MakeOptionButtonView));
    RegisterRole<TextBox>(MakeWith(&MakeTextBoxView));
    RegisterRole<CodeBox>(MakeWith(&MakeCodeBoxView));
    RegisterRole<FormHeader>(MakeWith(&MakeFormHeaderView));
    RegisterRole<ListBox>(MakeWith(&MakeListBoxView));
    RegisterRole<ComboBox>(MakeWith(&MakeComboBoxView));
    RegisterRole<FlatStrip>(MakeWith(&MakeFlatStripView));
    RegisterRole<HeaderBar>(MakeWith(&MakeHeaderBarView));
    RegisterRole<ColourHexagon>(MakeWith(&MakeColourHexagonView));
    RegisterRole<ColourSwatch>(MakeWith(&MakeColourSwatchView));
}

void ViewFactory::RegisterContainers() {
    RegisterRole<Container>([](ViewFactory& factory, const Ref<Container>& role, QWidget* parent) {
        return new ContainerView(factory, role, parent);
    });
    RegisterRole<SplitPanel>(
        [](ViewFactory& factory, const Ref<SplitPanel>& role, QWidget* parent) {
            return new SplitPanelView(factory, role, parent);
        });
    RegisterRole<DockHost>([](ViewFactory& factory, const Ref<DockHost>& role, QWidget* parent) {
        return new DockView(factory, role, parent);
    });
    RegisterRole<ExplorerBar>(
        [](ViewFactory& factory, const Ref<ExplorerBar>& role, QWidget* parent) {
            return new ExplorerBarView(factory, role, parent);
        });
    RegisterRole<TreeControl>([](ViewFactory&, const Ref<TreeControl>& role, QWidget* parent) {
        return new TreeView(role, parent);
    });
    RegisterRole<HtmlEdit>([](ViewFactory&, const Ref<HtmlEdit>& role, QWidget* parent) {
        return new HtmlEditView(role, parent);
    });
    RegisterRole<PropertiesList>(
        [](ViewFactory&, const Ref<PropertiesList>& role, QWidget* parent) {
            return new PropertiesListView(role, parent);
        });
}

void ViewFactory::Register(Maker maker) {
    mMakers.push_back(std::move(maker));
}

QWidget* ViewFactory::MakeView(const Ref<Control>& control, QWidget* parent) {
    for (auto maker = mMakers.rbegin(); maker != mMakers.rend(); ++maker)
        if (QWidget* view = (*maker)(*this, control, parent)) return view;
    RaiseError(ErrorNumber::CannotCreateComponent,
               "No view is registered for the control \"" + control->GetName() + "\"");
}

void ViewFactory::SetShortcut(const std::string& command, const QKeySequence& key) {
    mShortcuts[ToQString(LowerCase(command))] = key;
}

QKeySequence ViewFactory::GetShortcut(const std::string& command) const {
    return mShortcuts.value(ToQString(LowerCase(command)));
}

} // namespace paperkite
