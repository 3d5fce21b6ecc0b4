#include "widgets/FormLayout.h"

#include "widgets/Control.h"

namespace paperkite {

FormLayout::Field::Field(std::string caption, Ref<Control> control)
    : Caption(std::move(caption)), FieldControl(std::move(control)) {}

FormLayout::FormLayout(Kind kind, std::string caption, Ref<Control> control,
                       std::vector<FormLayout> children, int stretch)
    : mKind(kind), mCaption(std::move(caption)), mControl(std::move(control)),
      mChildren(std::move(children)), mStretch(stretch) {}

FormLayout FormLayout::Item(Ref<Control> control, int stretch) {
    return FormLayout(Kind::Item, {}, std::move(control), {}, stretch);
}

FormLayout FormLayout::Row(std::vector<FormLayout> children, int stretch) {
    return FormLayout(Kind::Row, {}, nullptr, std::move(children), stretch);
}

FormLayout FormLayout::Column(std::vector<FormLayout> children, int stretch) {
    return FormLayout(Kind::Column, {}, nullptr, std::move(children), stretch);
}

FormLayout FormLayout::Group(std::string caption, std::vector<FormLayout> children, int stretch) {
    return FormLayout(Kind::Group, std::move(caption), nullptr, std::move(children), stretch);
}

FormLayout FormLayout::Padded(std::vector<FormLayout> children, int stretch) {
    return FormLayout(Kind::Padded, {}, nullptr, std::move(children), stretch);
}

FormLayout FormLayout::Framed(std::vector<FormLayout> children, int stretch) {
    return FormLayout(Kind::Framed, {}, nullptr, std::move(children), stretch);
}

FormLayout FormLayout::Fields(std::vector<Field> fields, int stretch) {
    std::vector<FormLayout> lines;
    for (auto& field : fields)
        lines.push_back(
            FormLayout(Kind::Item, std::move(field.Caption), std::move(field.FieldControl), {}, 0));
    return FormLayout(Kind::Fields, {}, nullptr, std::move(lines), stretch);
}

FormLayout FormLayout::Stack(std::vector<FormLayout> children, int stretch) {
    return FormLayout(Kind::Stack, {}, nullptr, std::move(children), stretch);
}

FormLayout FormLayout::Tabs(std::vector<FormLayout> captionedGroups, int stretch) {
    return FormLayout(Kind::Tabs, {}, nullptr, std::move(captionedGroups), stretch);
}

FormLayout FormLayout::Buttons(std::vector<Ref<Control>> buttons) {
    std::vector<FormLayout> items;
    for (auto& button : buttons)
        items.push_back(Item(std::move(button)));
    return FormLayout(Kind::Buttons, {}, nullptr, std::move(items), 0);
}

FormLayout FormLayout::Stretch() {
    return FormLayout(Kind::Stretch, {}, nullptr, {}, 1);
}

std::vector<Ref<Control>> FormLayout::AllControls() const {
    std::vector<Ref<Control>> controls;
    if (mControl) controls.push_back(mControl);
    for (const auto& child : mChildren)
        for (auto& control : child.AllControls())
            controls.push_back(std::move(control));
    return controls;
}

} // namespace paperkite
