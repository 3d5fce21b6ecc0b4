#include "host/window/DialogParts.h"

#include <QLayout>

namespace paperkite::dialogs {

void Begin(QDialog& dialog, const char* name, const QString& title, QSize first) {
    dialog.setObjectName(name);
    dialog.setWindowTitle(title);
    const QWidget* owner = dialog.parentWidget();
    dialog.resize(owner ? first.boundedTo(owner->window()->size()) : first);
}

QTreeWidget* MakeRowList(const QStringList& headers, QWidget* parent) {
    auto* list = new QTreeWidget(parent);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setTabKeyNavigation(false);
    list->setHeaderLabels(headers);
    return list;
}

QSize RowSize(const QWidget& list) {
    return {0, list.fontMetrics().height() * 3 / 2};
}

QPushButton* AddButton(QWidget* parent, const char* name, const QString& text) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    if (parent->layout()) parent->layout()->addWidget(button);
    return button;
}

} // namespace paperkite::dialogs
