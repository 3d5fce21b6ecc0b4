#include "platform/qt/PropertyChoiceBox.h"

#include "platform/qt/Conversions.h"

#include <QScopedValueRollback>

namespace paperkite {

PropertyChoiceBox::PropertyChoiceBox(const PropertyItem& row, const QString& value, QWidget* parent)
    : QComboBox(parent) {
    setMaxVisibleItems(16);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    for (const auto& choice : row.GetChoices())
        addItem(ToQString(choice.Text), ToQString(choice.Value));
    const bool typed = row.GetValueType() != PropertyValueType::String;
    if (findData(value) < 0 && !(typed && value.isEmpty())) insertItem(0, value, value);
    if (typed && findData(QString()) < 0) insertItem(0, QString(), QString());
    setCurrentIndex(findData(value));
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (Moved) Moved(itemData(index).toString());
        if (!mWithoutList && Picked) Picked();
    });
}

void PropertyChoiceBox::keyPressEvent(QKeyEvent* event) {
    const QScopedValueRollback rollback(mWithoutList, true);
    QComboBox::keyPressEvent(event);
}

void PropertyChoiceBox::wheelEvent(QWheelEvent* event) {
    const QScopedValueRollback rollback(mWithoutList, true);
    QComboBox::wheelEvent(event);
}

} // namespace paperkite
