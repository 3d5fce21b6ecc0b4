#include "platform/qt/FieldViews.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace paperkite {

namespace {

template <class Role, class Widget>
class FieldView : public ControlView {
protected:
    FieldView(Ref<Role> role, Widget* widget)
        : ControlView(role, widget), mRole(std::move(role)), mField(widget) {}

    void ApplyFont() {
        const auto& font = mRole->GetFont();
        if (font != FontDescription()) mField->setFont(ToQFont(font, mField->font()));
    }

    Ref<Role> mRole;
    Widget* mField;
};

class LabelView : public FieldView<Label, QLabel> {
public:
    LabelView(const Ref<Label>& label, QLabel* widget) : FieldView(label, widget) {
        connect(widget, &QLabel::linkActivated,
                [this](const QString& link) { mRole->UserClickLink(FromQString(link)); });
        Tie();
    }

protected:
    void Show() override {
        ApplyFont();
        mField->setTextFormat(mRole->GetRichText() ? Qt::RichText : Qt::PlainText);
        mField->setWordWrap(mRole->GetWordWrap());
        mField->setText(ToQString(mRole->GetCaption()));
    }
};

class ButtonView : public FieldView<Button, QPushButton> {
public:
    ButtonView(const Ref<Button>& button, QPushButton* widget) : FieldView(button, widget) {
        widget->setAutoDefault(false);
        connect(widget, &QPushButton::clicked, [this] { mRole->UserClick(); });
        Tie();
    }

protected:
    void Show() override {
        mField->setText(ToQString(mRole->GetCaption()));
        mField->setIcon(Icons::Of(mRole->GetPicture()));
        mField->setDefault(mRole->GetDefault());
    }
};

class CheckBoxView : public FieldView<CheckBox, QCheckBox> {
public:
    CheckBoxView(const Ref<CheckBox>& box, QCheckBox* widget) : FieldView(box, widget) {
        connect(widget, &QCheckBox::clicked, [this] {
            mRole->UserClick();
            Show();
        });
        Tie();
    }

protected:
    void Show() override {
        constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
        const QSignalBlocker blocker(mField);
        mField->setText(ToQString(mRole->GetCaption()));
        mField->setCheckState(kStates[mRole->GetValue()]);
    }
};

class OptionButtonView : public FieldView<OptionButton, QRadioButton> {
public:
    OptionButtonView(const Ref<OptionButton>& button, QRadioButton* widget)
        : FieldView(button, widget) {
        // The models exclude each other.
        widget->setAutoExclusive(false);
        connect(widget, &QRadioButton::clicked, [this] {
            mRole->UserClick();
            Show();
        });
        Tie();
    }

protected:
    void Show() override {
        const QSignalBlocker blocker(mField);
        mField->setText(ToQString(mRole->GetCaption()));
        mField->setChecked(mRole->GetValue());
    }
};

class FormHeaderView : public FieldView<FormHeader, QFrame> {
public:
    FormHeaderView(const Ref<FormHeader>& header, QFrame* widget) : FieldView(header, widget) {
        auto* row = new QHBoxLayout(widget);
        row->setContentsMargins(0, 0, 0, 8);
        row->setSpacing(12);
        mPicture = new QLabel(widget);
        row->addWidget(mPicture);
        auto* texts = new QVBoxLayout;
        texts->setSpacing(4);
        mTitle = new QLabel(widget);
        mDescription = new QLabel(widget);
        mDescription->setWordWrap(true);
        texts->addWidget(mTitle);
        texts->addWidget(mDescription);
        row->addLayout(texts, 1);
        Tie();
    }

protected:
    void Show() override {
        QFont font = mField->font();
        font.setBold(true);
        font.setPointSizeF(font.pointSizeF() * 1.25);
        mTitle->setFont(font);
        mTitle->setText(ToQString(mRole->GetCaption()));
        mTitle->setTextFormat(Qt::PlainText);
        mDescription->setText(ToQString(mRole->GetDescription()));
        mDescription->setVisible(!mRole->GetDescription().empty());
        const QIcon icon = Icons::Of(mRole->GetPicture());
        mPicture->setPixmap(icon.pixmap(32, 32));
        mPicture->setVisible(!icon.isNull());
    }

private:
    QLabel* mPicture;
    QLabel* mTitle;
    QLabel* mDescription;
};

} // namespace

QWidget* MakeLabelView(const Ref<Label>& label, QWidget* parent) {
    auto* widget = new QLabel(parent);
    new LabelView(label, widget);
    return widget;
}

QWidget* MakeButtonView(const Ref<Button>& button, QWidget* parent) {
    auto* widget = new QPushButton(parent);
    new ButtonView(button, widget);
    return widget;
}

QWidget* MakeCheckBoxView(const Ref<CheckBox>& box, QWidget* parent) {
    auto* widget = new QCheckBox(parent);
    new CheckBoxView(box, widget);
    return widget;
}

QWidget* MakeOptionButtonView(const Ref<OptionButton>& button, QWidget* parent) {
    auto* widget = new QRadioButton(parent);
    new OptionButtonView(button, widget);
    return widget;
}

QWidget* MakeFormHeaderView(const Ref<FormHeader>& header, QWidget* parent) {
    auto* widget = new QFrame(parent);
    new FormHeaderView(header, widget);
    return widget;
}

} // namespace paperkite
