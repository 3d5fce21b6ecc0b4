#pragma once

#include "widgets/PropertyItem.h"

#include <QWidget>

#include <functional>

class QAction;
class QLineEdit;
class QToolButton;

namespace paperkite {

/// The editor of a typed value: a line that says when it holds no such value, a swatch for colours,
/// and a button where there is more than typing: the calendar of dates, the browsers of colours and
/// files. Alt and Down, or F4, press the button; Up and Down count numbers.
class PropertyValueEditor : public QWidget {
public:
    PropertyValueEditor(const PropertyItem& row, const QString& text, QWidget* parent);

    /// The author typed or picked this text.
    std::function<void(const QString&)> TextChanged;
    /// The author picked the whole value: the edit is done.
    std::function<void()> Picked;
    /// The author wants the browser of this kind of value.
    std::function<void()> Browse;

    /// What the button does. A line without a button does nothing.
    void PressButton();

    QLineEdit& GetField() const { return *mField; }

    QToolButton* GetButton() const { return mButton; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeButton(const char* icon, const QString& toolTip);
    void ShowText(const QString& text);
    void ShowCalendar();
    void Pick(const QString& text);
    bool Step(int step);

    PropertyValueType mType;
    QLineEdit* mField;
    QToolButton* mButton = nullptr;
    QAction* mSwatch = nullptr;
    QAction* mWarning = nullptr;
};

} // namespace paperkite
