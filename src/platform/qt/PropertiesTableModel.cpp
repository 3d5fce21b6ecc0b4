#include "platform/qt/PropertiesTableModel.h"

#include "platform/qt/Conversions.h"

#include <QTextDocument>
#include <QTextDocumentFragment>

namespace paperkite {

namespace {

// What a single row can show of a value of many lines; HTML is shown as the text that it makes.
QString FirstLine(const QString& value) {
    const QString text =
        (Qt::mightBeRichText(value) ? QTextDocumentFragment::fromHtml(value).toPlainText() : value)
            .trimmed();
    const auto end = text.indexOf(QLatin1Char('\n'));
    return end < 0 ? text : text.left(end).trimmed() + QStringLiteral(" \u2026");
}

} // namespace

PropertiesTableModel::PropertiesTableModel(const Ref<PropertiesList>& list, QObject* parent)
    : QAbstractTableModel(parent), mList(list) {}

void PropertiesTableModel::Reset() {
    beginResetModel();
    mRows.assign(mList->begin(), mList->end());
    endResetModel();
}

void PropertiesTableModel::ShowRow(const Ref<PropertyItem>& row) {
    const int at = Find(row);
    if (at >= 0) emit dataChanged(index(at, 0), index(at, 1));
}

Ref<PropertyItem> PropertiesTableModel::RowAt(int row) const {
    const bool there = row >= 0 && row < rowCount();
    return there ? mRows[static_cast<std::size_t>(row)] : Ref<PropertyItem>();
}

int PropertiesTableModel::Find(const Ref<PropertyItem>& item) const {
    for (int row = 0; row < rowCount(); ++row)
        if (item && RowAt(row) == item) return row;
    return -1;
}

int PropertiesTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

int PropertiesTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

QString PropertiesTableModel::Text(const PropertyItem& item, int column) const {
    if (column == 1) return item.IsHeader() ? QString() : FirstLine(ToQString(item.GetValueText()));
    const std::string& text = item.GetDisplayText();
    return ToQString(text.empty() ? item.GetCaption() : text);
}

QString PropertiesTableModel::Whole(const PropertyItem& item) {
    const QString value = ToQString(item.GetValueText());
    const QString problem = ToQString(item.GetProblem());
    return problem.isEmpty() ? value : value + QLatin1Char('\n') + problem;
}

QVariant PropertiesTableModel::data(const QModelIndex& index, int role) const {
    const Ref<PropertyItem> item = RowAt(index.row());
    if (!item) return {};
    switch (role) {
    case Qt::DisplayRole:
        return Text(*item, index.column());
    case Qt::ToolTipRole:
        if (index.column() != 1 || item->IsHeader()) return {};
        return Whole(*item);
    case Qt::AccessibleTextRole:
        if (item->IsHeader()) return Text(*item, 0) + QStringLiteral(", heading");
        return index.column() == 1 ? Whole(*item) : Text(*item, 0);
    case Qt::CheckStateRole:
        if (index.column() != 0 || !mList->GetCheckBoxes() || item->IsHeader()) return {};
        return item->GetChecked() ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

QVariant PropertiesTableModel::headerData(int section, Qt::Orientation orientation,
                                          int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return ToQString(mList->GetColumnCaption(section == 0 ? "Name" : "Value"));
}

} // namespace paperkite
