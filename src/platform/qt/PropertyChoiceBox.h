#pragma once

#include "widgets/PropertyItem.h"

#include <QComboBox>

#include <functional>

namespace paperkite {

/// The editor of a value that is one of several: a drop-down list, which also holds the present
/// value where that is none of them, and an empty one for typed rows.
class PropertyChoiceBox : public QComboBox {
public:
    PropertyChoiceBox(const PropertyItem& row, const QString& value, QWidget* parent);

    /// The author moved to a choice with the keyboard; its value.
    std::function<void(const QString&)> Moved;
    /// The author picked a choice from the open list: the edit is done.
    std::function<void()> Picked;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool mWithoutList = false;
};

} // namespace paperkite
