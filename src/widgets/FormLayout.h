#pragma once

#include "foundation/Ref.h"

#include <string>
#include <vector>

namespace paperkite {

class Control;

/// How the controls of a container stand, said once and without pixels. A view makes native layouts
/// of it; labels become the buddies and accessible names of the fields that they stand with: the
/// captions of Fields, and a Label with a mnemonic right before a control in a row or column.
///
///     SetLayout(FormLayout::Column({
///         FormLayout::Item(header),
///         FormLayout::Fields({{"&Name:", txtName}, {"&Pattern:", txtPattern}}),
///         FormLayout::Group("Notes", {FormLayout::Item(lblNotes)}),
///         FormLayout::Stretch(),
///         FormLayout::Buttons({cmdOK, cmdCancel}),
///     }));
class FormLayout {
public:
    enum class Kind {
        Empty,   ///< no layout was given
        Item,    ///< one control
        Row,     ///< children from left to right
        Column,  ///< children from top to bottom
        Group,   ///< a captioned column
        Padded,  ///< a column with room around it
        Framed,  ///< a column in a frame as wide as the system's
        Fields,  ///< two aligned columns: labels and their fields
        Stack,   ///< children share one rectangle; the visible ones are seen
        Tabs,    ///< one captioned page a child
        Buttons, ///< the dialog's buttons, in the platform's order, at the right end
        Stretch, ///< takes the room that is left
    };

    /// One line of Fields. Without a control the caption spans both columns; without a caption the
    /// control stands in the field column.
    struct Field {
        Field(std::string caption, Ref<Control> control);
        std::string Caption;
        Ref<Control> FieldControl;
    };

    FormLayout() = default;

    static FormLayout Item(Ref<Control> control, int stretch = 0);
    static FormLayout Row(std::vector<FormLayout> children, int stretch = 0);
    static FormLayout Column(std::vector<FormLayout> children, int stretch = 0);
    static FormLayout Group(std::string caption, std::vector<FormLayout> children, int stretch = 0);
    static FormLayout Padded(std::vector<FormLayout> children, int stretch = 1);
    static FormLayout Framed(std::vector<FormLayout> children, int stretch = 1);
    static FormLayout Fields(std::vector<Field> fields, int stretch = 0);
    static FormLayout Stack(std::vector<FormLayout> children, int stretch = 1);
    static FormLayout Tabs(std::vector<FormLayout> captionedGroups, int stretch = 1);
    static FormLayout Buttons(std::vector<Ref<Control>> buttons);
    static FormLayout Stretch();

    Kind GetKind() const { return mKind; }

    const std::string& GetCaption() const { return mCaption; }

    const Ref<Control>& GetControl() const { return mControl; }

    /// For Fields: one Item a line, its caption being the label.
    const std::vector<FormLayout>& GetChildren() const { return mChildren; }

    /// The share of the room that is left over; 0 takes what it needs and no more.
    int GetStretch() const { return mStretch; }

    /// Every control that the layout names, in reading order: the tab order.
    std::vector<Ref<Control>> AllControls() const;

private:
    FormLayout(Kind kind, std::string caption, Ref<Control> control,
               std::vector<FormLayout> children, int stretch);

    Kind mKind = Kind::Empty;
    std::string mCaption;
    Ref<Control> mControl;
    std::vector<FormLayout> mChildren;
    int mStretch = 0;
};

} // namespace paperkite
