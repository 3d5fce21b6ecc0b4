#include "platform/qt/ListViews.h"

#include "platform/qt/ColourViews.h"
#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

#include <algorithm>

namespace paperkite {

namespace {

constexpr int kRowHeight = 24;

class ListBoxView : public ControlView {
public:
    ListBoxView(const Ref<ListBox>& list, QListWidget* widget)
        : ControlView(list, widget), mList(list), mView(widget) {
        widget->setUniformItemSizes(true);
        connect(widget, &QListWidget::currentRowChanged, [this](int row) {
            if (row >= 0) mList->UserClick(row);
        });
        connect(widget, &QListWidget::itemDoubleClicked,
                [this](QListWidgetItem* item) { mList->UserDblClick(mView->row(item)); });
        connect(widget, &QListWidget::itemChanged, [this](QListWidgetItem* item) {
            const int row = mView->row(item);
            const bool ticked = item->checkState() == Qt::Checked;
            if (mList->GetCheckBoxes() && mList->GetSelected(row) != ticked) mList->UserCheck(row);
        });
        Tie();
    }

protected:
    void Show() override {
        const QSignalBlocker blocker(mView);
        while (mView->count() > mList->GetListCount())
            delete mView->takeItem(mView->count() - 1);
        while (mView->count() < mList->GetListCount())
            mView->addItem(QString());
        for (int row = 0; row < mView->count(); ++row)
            ShowRow(*mView->item(row), row);
        mView->setCurrentRow(mList->GetListIndex());
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            auto& key = static_cast<QKeyEvent&>(*event);
            if (mList->UserKeyDown(KeyCodeOf(key), ShiftOf(key.modifiers())) == 0) return true;
        }
        return ControlView::eventFilter(watched, event);
    }

private:
    void ShowRow(QListWidgetItem& item, int row) {
        item.setText(ToQString(mList->GetList(row)));
        item.setSizeHint(QSize(0, std::max(kRowHeight, mView->fontMetrics().height() + 8)));
        if (mList->GetCheckBoxes())
            item.setCheckState(mList->GetSelected(row) ? Qt::Checked : Qt::Unchecked);
        else
            item.setData(Qt::CheckStateRole, {});
    }

    Ref<ListBox> mList;
    QListWidget* mView;
};

class DropDown : public QComboBox {
public:
    DropDown(Ref<ComboBox> box, QWidget* parent) : QComboBox(parent), mBox(std::move(box)) {}

    void showPopup() override {
        mBox->UserDropDown();
        QComboBox::showPopup();
    }

private:
    Ref<ComboBox> mBox;
};

class ComboBoxView : public ControlView {
public:
    ComboBoxView(const Ref<ComboBox>& box, QComboBox* widget)
        : ControlView(box, widget), mBox(box), mView(widget) {
        widget->setEditable(box->GetEditable());
        // What is typed stays what was typed: no entry is made of it, and none is put in its place.
        widget->setInsertPolicy(QComboBox::NoInsert);
        widget->setCompleter(nullptr);
        connect(widget, &QComboBox::activated, [this](int row) {
            mBox->UserChoose(row);
            Show();
        });
        if (widget->lineEdit())
            connect(widget->lineEdit(), &QLineEdit::textEdited,
                    [this](const QString& text) { mBox->UserType(FromQString(text)); });
        Tie();
    }

protected:
    void Show() override {
        const QSignalBlocker blocker(mView);
        while (mView->count() > mBox->GetListCount())
            mView->removeItem(mView->count() - 1);
        for (int row = 0; row < mBox->GetListCount(); ++row) {
            const QString text = ToQString(mBox->GetList(row));
            if (row >= mView->count())
                mView->addItem(text);
            else if (mView->itemText(row) != text)
                mView->setItemText(row, text);
            ShowExtras(row);
        }
        mView->setCurrentIndex(mBox->GetListIndex());
        const QString text = ToQString(mBox->GetText());
        if (mView->isEditable() && mView->currentText() != text) mView->setEditText(text);
    }

private:
    void ShowExtras(int row) {
        const std::string& tip = mBox->GetItemToolTipText(row);
        if (!tip.empty()) mView->setItemData(row, ToQString(tip), Qt::ToolTipRole);
        const Colour& swatch = mBox->GetItemSwatch(row);
        if (!swatch || mView->itemData(row) == QVariant(*swatch)) return;
        mView->setItemData(row, *swatch);
        mView->setItemIcon(
            row, SwatchIcon(QColor(QRgb(*swatch)), mView->palette(), mView->iconSize().height()));
    }

    Ref<ComboBox> mBox;
    QComboBox* mView;
};

} // namespace

QWidget* MakeListBoxView(const Ref<ListBox>& list, QWidget* parent) {
    auto* widget = new QListWidget(parent);
    new ListBoxView(list, widget);
    return widget;
}

QWidget* MakeComboBoxView(const Ref<ComboBox>& box, QWidget* parent) {
    auto* widget = new DropDown(box, parent);
    new ComboBoxView(box, widget);
    return widget;
}

} // namespace paperkite
