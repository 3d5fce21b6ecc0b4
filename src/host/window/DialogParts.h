#pragma once

#include <QDialog>
#include <QPushButton>
#include <QSize>
#include <QString>
#include <QTreeWidget>

namespace paperkite::dialogs {

/// What the dialogs of the program have in common, so that they look and behave alike.

/// Names and titles a dialog, and gives it its first size, which is never larger than the window
/// it belongs to.
void Begin(QDialog& dialog, const char* name, const QString& title, QSize first);

/// A list of rows without branches: Tab goes on to the next control, the arrows walk the rows.
QTreeWidget* MakeRowList(const QStringList& headers, QWidget* parent);
/// The size hint of a row in the list's font, whatever its size.
QSize RowSize(const QWidget& list);

/// A button at the end of its parent's layout, if that has one, that Enter presses only while it
/// has the focus.
QPushButton* AddButton(QWidget* parent, const char* name, const QString& text);

} // namespace paperkite::dialogs
