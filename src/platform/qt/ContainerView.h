#pragma once

#include "platform/qt/ViewFactory.h"
#include "widgets/Container.h"

#include <QFrame>
#include <QHash>

class QBoxLayout;
class QFormLayout;

namespace paperkite {

/// Shows a container: builds native layouts out of its FormLayout, with buddies and tab order.
/// Without one, the controls of a FramePanel stand below each other, and those of any other
/// container share its whole rectangle.
class ContainerView : public QFrame, private ContainerObserver {
public:
    ContainerView(ViewFactory& factory, const Ref<Container>& container, QWidget* parent);

    const Ref<Container>& GetContainer() const { return mContainer; }

    /// The widget that shows one of the container's controls, or nullptr.
    QWidget* ViewOf(const Ref<Control>& control) const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ControlChanged(Control& control) override;
    void ControlsChanged(Container& container) override;

    void Rebuild();
    bool SharesOneRectangle() const;
    void UpdateSharedViews();
    QWidget* MakeView(const Ref<Control>& control, QWidget* parent);
    void AddTo(QBoxLayout& box, const FormLayout& part, QWidget* parent);
    void AddLayout(QBoxLayout& box, QLayout* layout, int stretch);
    QBoxLayout* BoxOf(const FormLayout& part, QWidget* parent);
    QWidget* GroupOf(const FormLayout& part, QWidget* parent);
    QWidget* FrameOf(const FormLayout& part, QWidget* parent);
    QWidget* StackOf(const FormLayout& part, QWidget* parent);
    QWidget* TabsOf(const FormLayout& part, QWidget* parent);
    QWidget* ButtonsOf(const FormLayout& part, QWidget* parent);
    QFormLayout* FieldsOf(const FormLayout& part, QWidget* parent);
    void OrderTabs();
    void FillSharedRectangle();

    ViewFactory& mFactory;
    Ref<Container> mContainer;
    QHash<const Control*, QWidget*> mViews;
    QWidget* mContent = nullptr;
    Connection mTie;
};

} // namespace paperkite
