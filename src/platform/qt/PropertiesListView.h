#pragma once

#include "platform/qt/PropertiesTable.h"
#include "widgets/PropertiesList.h"

#include <QSplitter>

class QLabel;

namespace paperkite {

/// Shows a PropertiesList: the table, and below it the pane that describes the selected row.
class PropertiesListView : public QSplitter, private PropertiesListObserver {
public:
    PropertiesListView(const Ref<PropertiesList>& list, QWidget* parent);

    PropertiesTable& GetTable() const { return *mTable; }

    /// The description as it stands in the pane, for reading aloud and tests.
    QString GetDescriptionText() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void ControlChanged(Control& control) override;
    void RowsChanged() override;
    void RowChanged(const Ref<PropertyItem>& row) override;
    void SelectionChanged() override;

    void MakeDescription();
    void ShowDescription();
    void FitDescription();

    Ref<PropertiesList> mList;
    PropertiesTable* mTable;
    QWidget* mDescription = nullptr;
    QLabel* mTitle = nullptr;
    QLabel* mText = nullptr;
    Connection mTie;
};

} // namespace paperkite
