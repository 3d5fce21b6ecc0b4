#pragma once

#include "foundation/Ref.h"
#include "widgets/PropertiesList.h"

#include <QAbstractTableModel>

#include <vector>

namespace paperkite {

/// The rows of a PropertiesList for Qt's table view: a copy of the row references that is brought
/// up to date by Reset, so that it stays whole while the list's updates are suspended.
class PropertiesTableModel : public QAbstractTableModel {
public:
    PropertiesTableModel(const Ref<PropertiesList>& list, QObject* parent);

    /// Reads the list again.
    void Reset();
    void ShowRow(const Ref<PropertyItem>& row);

    Ref<PropertyItem> RowAt(int row) const;
    /// The table row of an item, -1 for none.
    int Find(const Ref<PropertyItem>& item) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Text(const PropertyItem& item, int column) const;
    /// The whole value, and what is wrong with it.
    static QString Whole(const PropertyItem& item);

    Ref<PropertiesList> mList;
    std::vector<Ref<PropertyItem>> mRows;
};

} // namespace paperkite
