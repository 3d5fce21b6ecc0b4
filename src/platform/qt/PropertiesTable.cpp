#include "platform/qt/PropertiesTable.h"

#include "platform/qt/ColumnHeader.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"
#include "platform/qt/PropertyDelegate.h"
#include "widgets/Keys.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolButton>

#include <algorithm>

namespace paperkite {

namespace {

/// The icon of the button in a value of that type; nullptr for one without a button.
const char* IconOf(PropertyValueType type) {
    switch (type) {
    case PropertyValueType::Choice:
    case PropertyValueType::Boolean:
        return "arrow-down";
    case PropertyValueType::Date:
        return "view-calendar";
    case PropertyValueType::Color:
        return "color-picker";
    case PropertyValueType::File:
        return "document-open";
    default:
        return nullptr;
    }
}

QString ValueButtonTip(PropertyValueType type) {
    switch (type) {
    case PropertyValueType::Date:
        return PropertiesTable::tr("Calendar (F4)");
    case PropertyValueType::Color:
        return PropertiesTable::tr("Browse Color (F4)");
    case PropertyValueType::File:
        return PropertiesTable::tr("Locate file (F4)");
    default:
        return PropertiesTable::tr("Open the list (F4)");
    }
}

} // namespace

PropertiesTable::PropertiesTable(const Ref<PropertiesList>& list, QWidget* parent)
    : QTableView(parent), mList(list), mItems(new PropertiesTableModel(list, this)),
      mValueButton(new QToolButton(viewport())) {
    setModel(mItems);
    setItemDelegate(new PropertyDelegate(*this));
    setShowGrid(false);
    setFrameShape(QFrame::NoFrame);
    setTabKeyNavigation(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    setHorizontalHeader(new ColumnHeader(this));
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setMinimumSectionSize(80);
    mValueButton->setFocusPolicy(Qt::NoFocus);
    mValueButton->hide();
    connect(mValueButton, &QToolButton::clicked, this, [this] { OpenValue(); });
    FitRows();
    mTie = list->Observe(*this);
    RowsChanged();
}

PropertiesTable::~PropertiesTable() = default;

void PropertiesTable::ControlChanged(Control&) {
    emit mItems->headerDataChanged(Qt::Horizontal, 0, 1);
    viewport()->update();
}

void PropertiesTable::FitRows() {
    mRowHeight = std::max(26, fontMetrics().height() + 8);
    verticalHeader()->setMinimumSectionSize(mRowHeight);
    verticalHeader()->setDefaultSectionSize(mRowHeight);
    setColumnWidth(0, std::max(210, fontMetrics().averageCharWidth() * 28));
}

void PropertiesTable::RowsChanged() {
    const QScopedValueRollback following(mFollowing, true);
    const int position = verticalScrollBar()->value();
    mItems->Reset();
    clearSpans();
    for (int row = 0; row < mItems->rowCount(); ++row)
        if (mItems->RowAt(row)->IsHeader()) setSpan(row, 0, 1, 2);
    FoldRows();
    verticalScrollBar()->setValue(position);
    ShowSelection();
    PlaceEditor();
}

void PropertiesTable::FoldRows() {
    bool folded = false;
    for (int row = 0; row < mItems->rowCount(); ++row) {
        const Ref<PropertyItem> item = mItems->RowAt(row);
        setRowHidden(row, !item->GetVisible() || (!item->IsHeader() && folded));
        if (item->IsHeader()) folded = !item->GetExpanded();
    }
}

void PropertiesTable::RowChanged(const Ref<PropertyItem>& row) {
    mItems->ShowRow(row);
    const int at = mItems->Find(row);
    if (at >= 0 && row->IsHeader() != (columnSpan(at, 0) == 2))
        setSpan(at, 0, 1, row->IsHeader() ? 2 : 1);
    if (row->IsHeader() || (at >= 0 && row->GetVisible() == isRowHidden(at))) FoldRows();
    if (row == mList->GetSelectedItem()) PlaceButtons();
}

void PropertiesTable::SelectionChanged() {
    ShowSelection();
}

int PropertiesTable::SelectedRow() const {
    return mItems->Find(mList->GetSelectedItem());
}

void PropertiesTable::ShowSelection() {
    const QScopedValueRollback following(mFollowing, true);
    const int row = SelectedRow();
    if (row < 0) {
        selectionModel()->clear();
    } else {
        setCurrentIndex(mItems->index(row, 0));
        selectRow(row);
        scrollTo(mItems->index(row, 0));
    }
    PlaceButtons();
}

void PropertiesTable::ButtonsChanged() {
    PlaceButtons();
}

QPushButton* PropertiesTable::GetButton(const std::string& key) const {
    for (auto* button : mButtons)
        if (button->objectName() == ToQString(key) && !button->isHidden()) return button;
    return nullptr;
}

void PropertiesTable::PlaceButtons() {
    while (mButtons.size() < mList->GetButtonCount()) {
        auto* button = new QPushButton(viewport());
        const std::string key = mList->GetButton(static_cast<int>(mButtons.size()) + 1).Key;
        button->setObjectName(ToQString(key));
        connect(button, &QPushButton::clicked, this, [this, key] { mList->UserClickButton(key); });
        setTabOrder(mButtons.isEmpty() ? static_cast<QWidget*>(this) : mButtons.last(), button);
        mButtons.append(button);
    }
    const int row = SelectedRow();
    const bool shown = row >= 0 && !mList->GetInEdit() && !mItems->RowAt(row)->IsHeader();
    const QRect value = shown ? ValueRect() : QRect();
    int right = value.right() - 8;
    PlaceValueButton(shown && model()->rowCount() > 0, right);
    for (int at = static_cast<int>(mButtons.size()) - 1; at >= 0; --at) {
        const PropertyButton& model = mList->GetButton(at + 1);
        auto* button = mButtons[at];
        const std::string& caption = model.Caption.empty() ? model.ToolTipText : model.Caption;
        button->setText(ToQString(caption));
        button->setToolTip(ToQString(model.ToolTipText));
        button->setIcon(
            Icons::InList(mList->GetImageList(), model.Image.empty() ? model.Key : model.Image));
        const QSize size = button->sizeHint() + QSize(12, 0);
        const int height = mRowHeight - 4;
        button->setGeometry(right - size.width(), value.y() + 2, size.width(), height);
        const bool visible = shown && model.Visible;
        if (!visible && button->hasFocus()) setFocus(Qt::OtherFocusReason);
        button->setVisible(visible);
        if (visible) right -= size.width() + 4;
    }
    viewport()->update();
}

QToolButton* PropertiesTable::GetValueButton() const {
    return mValueButton->isHidden() ? nullptr : mValueButton;
}

void PropertiesTable::PlaceValueButton(bool shown, int& right) {
    const Ref<PropertyItem> row = mList->GetSelectedItem();
    const char* icon = shown ? IconOf(row->GetValueType()) : nullptr;
    if (!icon || row->GetReadOnly() || row->GetValueLocked()) {
        mValueButton->hide();
        return;
    }
    const QRect value = ValueRect();
    const int size = mRowHeight - 4;
    mValueButton->setIcon(Icons::ByName(icon));
    mValueButton->setToolTip(ValueButtonTip(row->GetValueType()));
    mValueButton->setAccessibleName(mValueButton->toolTip());
    mValueButton->setGeometry(value.right() - size - 1, value.y() + 2, size, size);
    mValueButton->show();
    right = mValueButton->x() - 4;
}

void PropertiesTable::OpenValue() {
    const Ref<PropertyItem> row = mList->GetSelectedItem();
    if (!row) return;
    const auto type = row->GetValueType();
    if (type == PropertyValueType::Color || type == PropertyValueType::File)
        mList->UserBrowse();
    else if (mList->BeginEdit())
        OpenEditor();
}

QRect PropertiesTable::ValueRect() const {
    const int row = SelectedRow();
    return QRect(columnViewportPosition(1), rowViewportPosition(row), columnWidth(1),
                 rowHeight(row));
}

void PropertiesTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (mFollowing || !current.isValid()) return;
    mList->UserSelect(mItems->RowAt(current.row()));
    ShowSelection();
}

void PropertiesTable::keyPressEvent(QKeyEvent* event) {
    const int code = KeyCodeOf(*event);
    if (code != KeyNone && mList->UserKeyDown(code, ShiftOf(event->modifiers())) == 0) return;
    const Ref<PropertyItem> row = mList->GetSelectedItem();
    if (code == KeyF4) {
        OpenEditor();
        return;
    }
    if (code == KeyDown && event->modifiers() == Qt::AltModifier) {
        OpenValue();
        return;
    }
    if (row && code == KeyDelete && row->GetValueType() != PropertyValueType::String) {
        mList->UserClear();
        return;
    }
    if (row && row->IsHeader() && (code == KeyLeft || code == KeyRight)) {
        if (row->GetExpanded() == (code == KeyLeft)) mList->UserToggle(row);
        return;
    }
    if (row && code == KeySpace && mList->GetCheckBoxes()) {
        mList->UserCheck(row);
        return;
    }
    // Enter and F2 were the list's; a table would only make its own of them.
    if (code == KeyReturn || code == KeyF2) return;
    QTableView::keyPressEvent(event);
}

void PropertiesTable::keyReleaseEvent(QKeyEvent* event) {
    const int code = KeyCodeOf(*event);
    if (code != KeyNone && mList->UserKeyUp(code, ShiftOf(event->modifiers())) == 0) return;
    QTableView::keyReleaseEvent(event);
}

void PropertiesTable::mousePressEvent(QMouseEvent* event) {
    const QModelIndex pressed = indexAt(event->pos());
    const Ref<PropertyItem> row = mItems->RowAt(pressed.row());
    if (event->button() != Qt::LeftButton || !row) {
        QTableView::mousePressEvent(event);
        return;
    }
    setFocus(Qt::MouseFocusReason);
    const bool wasSelected = mList->GetSelectedItem() == row;
    mList->UserClick(row);
    const auto part = PropertyDelegate::PartAt(*this, pressed, event->pos());
    if (part == PropertyDelegate::Part::FoldArrow) mList->UserToggle(row);
    if (part == PropertyDelegate::Part::Tick) mList->UserCheck(row);
    if (part == PropertyDelegate::Part::Value && wasSelected) mList->BeginEdit();
}

void PropertiesTable::mouseDoubleClickEvent(QMouseEvent* event) {
    const Ref<PropertyItem> row = mItems->RowAt(indexAt(event->pos()).row());
    if (event->button() != Qt::LeftButton || !row) return;
    mList->UserDblClick(row);
    if (mList->GetSelectedItem() == row) mList->BeginEdit();
}

void PropertiesTable::focusInEvent(QFocusEvent* event) {
    {
        const QScopedValueRollback following(mFollowing, true);
        QTableView::focusInEvent(event);
    }
    if (currentIndex().isValid()) QTableView::currentChanged(currentIndex(), QModelIndex());
    viewport()->update();
}

void PropertiesTable::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    viewport()->update();
}

void PropertiesTable::paintEvent(QPaintEvent* event) {
    const bool empty = mList->Count() == 0 || mList->GetUpdatesSuspended();
    if (!empty || mList->GetText().empty()) {
        QTableView::paintEvent(event);
        return;
    }
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     ToQString(mList->GetText()));
}

void PropertiesTable::updateGeometries() {
    QTableView::updateGeometries();
    PlaceButtons();
    PlaceEditor();
}

void PropertiesTable::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    PlaceButtons();
    PlaceEditor();
}

void PropertiesTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) FitRows();
}

} // namespace paperkite
