#include "platform/qt/ContainerView.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"
#include "widgets/Button.h"
#include "widgets/FramePanel.h"
#include "widgets/Label.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace paperkite {

namespace {

constexpr int kSpacing = 8;

// Children of a stack all take its rectangle; the visible one is seen.
class StackWidget : public QWidget {
public:
    using QWidget::QWidget;

    QSize sizeHint() const override { return Largest(&QWidget::sizeHint); }

    QSize minimumSizeHint() const override { return Largest(&QWidget::minimumSizeHint); }

protected:
    void resizeEvent(QResizeEvent*) override { Fit(); }

    void childEvent(QChildEvent* event) override {
        QWidget::childEvent(event);
        Fit();
    }

private:
    void Fit() {
        for (auto* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            child->setGeometry(rect());
    }

    QSize Largest(QSize (QWidget::*hint)() const) const {
        QSize size(0, 0);
        for (auto* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            size = size.expandedTo((child->*hint)());
        return size;
    }
};

// A label that wraps tells something in words, in which "&" may be a letter.
bool IsCaption(const Ref<Control>& control) {
    const auto label = control.As<Label>();
    return label && !label->GetWordWrap() && label->GetCaption().find('&') != std::string::npos;
}

void MakeBuddies(QLabel& label, QWidget& field) {
    label.setBuddy(&field);
    if (field.accessibleName().isEmpty())
        field.setAccessibleName(label.text().remove(QLatin1Char('&')).remove(QLatin1Char(':')));
}

} // namespace

ContainerView::ContainerView(ViewFactory& factory, const Ref<Container>& container, QWidget* parent)
    : QFrame(parent), mFactory(factory), mContainer(container) {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    ControlView::Attach(container, this);
    mTie = container->Observe(*this);
    Rebuild();
}

QWidget* ContainerView::ViewOf(const Ref<Control>& control) const {
    return mViews.value(control.get());
}

void ContainerView::ControlChanged(Control&) {
    const auto frame = mContainer.As<FramePanel>();
    if (frame) setFrameShape(frame->GetBorder() ? QFrame::StyledPanel : QFrame::NoFrame);
    FillSharedRectangle();
}

void ContainerView::ControlsChanged(Container&) {
    if (mContent && SharesOneRectangle())
        UpdateSharedViews();
    else
        Rebuild();
}

bool ContainerView::SharesOneRectangle() const {
    return mContainer->GetLayout().GetKind() == FormLayout::Kind::Empty &&
           !mContainer.As<FramePanel>();
}

// A surface that stays keeps its view, which may hold a whole page.
void ContainerView::UpdateSharedViews() {
    auto gone = mViews;
    mViews.clear();
    for (const auto& control : mContainer->Controls) {
        QWidget* kept = gone.take(control.get());
        if (kept)
            mViews[control.get()] = kept;
        else
            MakeView(control, mContent);
    }
    for (QWidget* view : gone) {
        view->hide();
        view->deleteLater();
    }
    FillSharedRectangle();
}

void ContainerView::Rebuild() {
    if (mContent) {
        mContent->hide();
        mContent->deleteLater();
    }
    mViews.clear();
    mContent = new QWidget(this);
    layout()->addWidget(mContent);
    mContent->installEventFilter(this);
    const FormLayout& form = mContainer->GetLayout();
    if (form.GetKind() != FormLayout::Kind::Empty) {
        auto* column = new QVBoxLayout(mContent);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(kSpacing);
        AddTo(*column, form, mContent);
        OrderTabs();
    } else if (mContainer.As<FramePanel>()) {
        auto* column = new QVBoxLayout(mContent);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(4);
        for (const auto& control : mContainer->Controls)
            column->addWidget(MakeView(control, mContent));
    } else {
        for (const auto& control : mContainer->Controls)
            MakeView(control, mContent);
        FillSharedRectangle();
    }
}

QWidget* ContainerView::MakeView(const Ref<Control>& control, QWidget* parent) {
    QWidget* view = mFactory.MakeView(control, parent);
    mViews[control.get()] = view;
    return view;
}

void ContainerView::AddTo(QBoxLayout& box, const FormLayout& part, QWidget* parent) {
    const int stretch = part.GetStretch();
    switch (part.GetKind()) {
    case FormLayout::Kind::Empty:
        break;
    case FormLayout::Kind::Item:
        box.addWidget(MakeView(part.GetControl(), parent), stretch);
        break;
    case FormLayout::Kind::Row:
    case FormLayout::Kind::Column:
        box.addLayout(BoxOf(part, parent), stretch);
        break;
    case FormLayout::Kind::Group:
        box.addWidget(GroupOf(part, parent), stretch);
        break;
    case FormLayout::Kind::Padded: {
        QBoxLayout* column = BoxOf(part, parent);
        column->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
        box.addLayout(column, stretch);
        break;
    }
    case FormLayout::Kind::Framed:
        box.addWidget(FrameOf(part, parent), stretch);
        break;
    case FormLayout::Kind::Fields:
        box.addLayout(FieldsOf(part, parent), stretch);
        break;
    case FormLayout::Kind::Stack:
        box.addWidget(StackOf(part, parent), stretch);
        break;
    case FormLayout::Kind::Tabs:
        box.addWidget(TabsOf(part, parent), stretch);
        break;
    case FormLayout::Kind::Buttons:
        box.addWidget(ButtonsOf(part, parent));
        break;
    case FormLayout::Kind::Stretch:
        box.addStretch(stretch);
        break;
    }
}

QBoxLayout* ContainerView::BoxOf(const FormLayout& part, QWidget* parent) {
    const bool row = part.GetKind() == FormLayout::Kind::Row;
    auto* box = new QBoxLayout(row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    box->setSpacing(kSpacing);
    QLabel* label = nullptr;
    for (const auto& child : part.GetChildren()) {
        AddTo(*box, child, parent);
        QWidget* view = ViewOf(child.GetControl());
        if (label && view) MakeBuddies(*label, *view);
        label = IsCaption(child.GetControl()) ? qobject_cast<QLabel*>(view) : nullptr;
    }
    return box;
}

QWidget* ContainerView::GroupOf(const FormLayout& part, QWidget* parent) {
    auto* group = new QGroupBox(ToQString(part.GetCaption()), parent);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(kSpacing);
    for (const auto& child : part.GetChildren())
        AddTo(*column, child, group);
    return group;
}

QWidget* ContainerView::FrameOf(const FormLayout& part, QWidget* parent) {
    auto* frame = new QFrame(parent);
    // The style says how wide it is and draws it.
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kSpacing);
    for (const auto& child : part.GetChildren())
        AddTo(*column, child, frame);
    return frame;
}

QWidget* ContainerView::StackOf(const FormLayout& part, QWidget* parent) {
    auto* stack = new StackWidget(parent);
    for (const auto& child : part.GetChildren()) {
        if (child.GetKind() == FormLayout::Kind::Item) {
            MakeView(child.GetControl(), stack);
            continue;
        }
        auto* page = new QWidget(stack);
        auto* column = new QVBoxLayout(page);
        column->setContentsMargins(0, 0, 0, 0);
        AddTo(*column, child, page);
    }
    return stack;
}

QWidget* ContainerView::TabsOf(const FormLayout& part, QWidget* parent) {
    auto* tabs = new QTabWidget(parent);
    tabs->setDocumentMode(true);
    for (const auto& child : part.GetChildren()) {
        auto* page = new QWidget(tabs);
        auto* column = new QVBoxLayout(page);
        column->setSpacing(kSpacing);
        for (const auto& inner : child.GetChildren())
            AddTo(*column, inner, page);
        tabs->addTab(page, ToQString(child.GetCaption()));
    }
    return tabs;
}

QWidget* ContainerView::ButtonsOf(const FormLayout& part, QWidget* parent) {
    auto* box = new QDialogButtonBox(parent);
    for (const auto& child : part.GetChildren()) {
        auto* view = qobject_cast<QPushButton*>(MakeView(child.GetControl(), box));
        if (!view) continue;
        const auto button = child.GetControl().As<Button>();
        auto role = QDialogButtonBox::ActionRole;
        if (button->GetDefault()) role = QDialogButtonBox::AcceptRole;
        if (button->GetCancel()) role = QDialogButtonBox::RejectRole;
        box->addButton(view, role);
    }
    return box;
}

QFormLayout* ContainerView::FieldsOf(const FormLayout& part, QWidget* parent) {
    auto* fields = new QFormLayout;
    fields->setHorizontalSpacing(kSpacing);
    fields->setVerticalSpacing(kSpacing);
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    fields->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (const auto& line : part.GetChildren()) {
        const QString caption = ToQString(line.GetCaption());
        if (!line.GetControl()) {
            auto* label = new QLabel(caption, parent);
            label->setWordWrap(true);
            fields->addRow(label);
            continue;
        }
        QWidget* view = MakeView(line.GetControl(), parent);
        if (view->accessibleName().isEmpty())
            view->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
        fields->addRow(caption, view);
    }
    return fields;
}

void ContainerView::OrderTabs() {
    QWidget* previous = nullptr;
    for (const auto& control : mContainer->GetLayout().AllControls()) {
        QWidget* view = ViewOf(control);
        if (!view || view->focusPolicy() == Qt::NoFocus) continue;
        if (previous) setTabOrder(previous, view);
        previous = view;
    }
}

void ContainerView::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    layout()->activate();
    FillSharedRectangle();
}

bool ContainerView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mContent && event->type() == QEvent::Resize) FillSharedRectangle();
    return QFrame::eventFilter(watched, event);
}

void ContainerView::FillSharedRectangle() {
    if (!mContent || mContent->layout()) return;
    for (auto* view : mViews)
        view->setGeometry(mContent->rect());
}

} // namespace paperkite
