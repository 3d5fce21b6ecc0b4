#pragma once

#include "platform/qt/PropertiesTableModel.h"
#include "widgets/PropertiesList.h"

#include <QPointer>
#include <QTableView>

class QPushButton;
class QToolButton;

namespace paperkite {

/// The two columns of a PropertiesListView: rows, the selected row's buttons, and the editor in
/// place.
class PropertiesTable : public QTableView, private PropertiesListObserver {
public:
    PropertiesTable(const Ref<PropertiesList>& list, QWidget* parent);
    ~PropertiesTable() override;

    /// The editor of the row that is being edited, or nullptr.
    QWidget* GetEditor() const { return mEditor; }

    /// The button of that key while the selected row shows it, or nullptr.
    QPushButton* GetButton(const std::string& key) const;

    /// The button in the selected row's value that opens its list, calendar or browser, or nullptr
    /// while there is none.
    QToolButton* GetValueButton() const;

    const Ref<PropertiesList>& GetList() const { return mList; }

    PropertiesTableModel& GetItemModel() const { return *mItems; }

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void updateGeometries() override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void ControlChanged(Control& control) override;
    void RowsChanged() override;
    void RowChanged(const Ref<PropertyItem>& row) override;
    void SelectionChanged() override;
    void EditBegan() override;
    void EditEnded() override;
    void ButtonsChanged() override;

    void FitRows();
    void FoldRows();
    void ShowSelection();
    void PlaceButtons();
    void PlaceEditor();
    QRect ValueRect() const;
    QWidget* MakeEditor();
    QWidget* MakeChoiceEditor(const PropertyItem& row);
    QWidget* MakeTextEditor();
    QWidget* MakeValueEditor(const PropertyItem& row);
    void PlaceValueButton(bool shown, int& right);
    void OpenValue();
    void OpenEditor();
    bool EditorKey(QKeyEvent& event);
    int SelectedRow() const;

    Ref<PropertiesList> mList;
    PropertiesTableModel* mItems;
    QList<QPushButton*> mButtons;
    QToolButton* mValueButton;
    QPointer<QWidget> mEditor;
    int mRowHeight = 26;
    bool mFollowing = false;
    Connection mTie;
};

} // namespace paperkite
