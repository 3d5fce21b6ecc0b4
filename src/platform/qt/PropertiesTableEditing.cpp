#include "platform/qt/Conversions.h"
#include "platform/qt/PropertiesTable.h"
#include "platform/qt/PropertyChoiceBox.h"
#include "platform/qt/PropertyValueEditor.h"
#include "widgets/Keys.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <algorithm>

// The editor that stands in the selected row while the list is in edit.

namespace paperkite {

namespace {

constexpr int kMostLines = 12;

// As high as its lines, as they are wrapped.
int WantedHeight(const QPlainTextEdit& editor) {
    int lines = 0;
    for (auto block = editor.document()->begin(); block.isValid(); block = block.next())
        lines += std::max(1, block.layout()->lineCount());
    lines = std::clamp(lines, 1, kMostLines);
    return lines * editor.fontMetrics().lineSpacing() + 16;
}

/// Whether a list or calendar of the editor is open, which has the keyboard then.
bool OwnsPopup(const QWidget& editor) {
    const QWidget* popup = QApplication::activePopupWidget();
    while (popup && popup != &editor)
        popup = popup->parentWidget();
    return popup != nullptr;
}

} // namespace

void PropertiesTable::EditBegan() {
    if (mEditor) EditEnded();
    mEditor = MakeEditor();
    QWidget* field = mEditor->focusProxy() ? mEditor->focusProxy() : mEditor.data();
    field->installEventFilter(this);
    field->setAccessibleName(
        mItems->data(mItems->index(SelectedRow(), 0), Qt::DisplayRole).toString());
    PlaceEditor();
    PlaceButtons();
    mEditor->show();
    mEditor->setFocus(Qt::OtherFocusReason);
    PlaceEditor();
}

QWidget* PropertiesTable::MakeEditor() {
    const Ref<PropertyItem> row = mList->GetSelectedItem();
    switch (row->GetValueType()) {
    case PropertyValueType::Choice:
    case PropertyValueType::Boolean:
        return MakeChoiceEditor(*row);
    case PropertyValueType::String:
        return row->GetChoices().empty() ? MakeTextEditor() : MakeChoiceEditor(*row);
    default:
        return MakeValueEditor(*row);
    }
}

QWidget* PropertiesTable::MakeValueEditor(const PropertyItem& row) {
    auto* editor = new PropertyValueEditor(row, ToQString(mList->GetEditText()), viewport());
    editor->TextChanged = [this](const QString& text) { mList->UserType(FromQString(text)); };
    editor->Picked = [this] { mList->EndEdit(); };
    editor->Browse = [this] { mList->UserBrowse(); };
    return editor;
}

QWidget* PropertiesTable::MakeTextEditor() {
    auto* editor = new QPlainTextEdit(ToQString(mList->GetEditText()), viewport());
    editor->setTabChangesFocus(true);
    editor->document()->setDocumentMargin(6);
    // Typing replaces a short value; a text of many lines is not lost by one key.
    if (mList->GetEditText().find('\n') == std::string::npos)
        editor->selectAll();
    else
        editor->moveCursor(QTextCursor::End);
    connect(editor, &QPlainTextEdit::textChanged, this, [this, editor] {
        mList->UserType(FromQString(editor->toPlainText()));
        PlaceEditor();
    });
    return editor;
}

QWidget* PropertiesTable::MakeChoiceEditor(const PropertyItem& row) {
    auto* editor = new PropertyChoiceBox(row, ToQString(mList->GetEditText()), viewport());
    editor->Moved = [this](const QString& value) { mList->UserType(FromQString(value)); };
    editor->Picked = [this] { mList->EndEdit(); };
    return editor;
}

void PropertiesTable::OpenEditor() {
    if (auto* list = qobject_cast<QComboBox*>(mEditor.data())) list->showPopup();
    if (auto* line = dynamic_cast<PropertyValueEditor*>(mEditor.data()))
        if (mList->GetSelectedItem()->GetValueType() == PropertyValueType::Date)
            line->PressButton();
}

void PropertiesTable::PlaceEditor() {
    const int row = SelectedRow();
    if (!mEditor || row < 0) return;
    int height = mRowHeight;
    if (auto* text = qobject_cast<QPlainTextEdit*>(mEditor.data()))
        height = std::max(mRowHeight, WantedHeight(*text));
    if (rowHeight(row) != height) setRowHeight(row, height);
    mEditor->setGeometry(ValueRect().adjusted(1, 0, 0, -1));
}

void PropertiesTable::EditEnded() {
    if (!mEditor) return;
    QWidget* editor = mEditor;
    mEditor = nullptr;
    (editor->focusProxy() ? editor->focusProxy() : editor)->removeEventFilter(this);
    if (editor->hasFocus()) setFocus(Qt::OtherFocusReason);
    editor->hide();
    editor->deleteLater();
    for (int row = 0; row < mItems->rowCount(); ++row)
        if (rowHeight(row) > mRowHeight) setRowHeight(row, mRowHeight);
    PlaceButtons();
}

bool PropertiesTable::eventFilter(QObject* watched, QEvent* event) {
    const bool own = mEditor && (watched == mEditor || watched == mEditor->focusProxy());
    if (!own) return QTableView::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) return EditorKey(static_cast<QKeyEvent&>(*event));
    if (event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        const bool elsewhere = reason != Qt::PopupFocusReason &&
                               reason != Qt::ActiveWindowFocusReason && !OwnsPopup(*mEditor);
        if (elsewhere) mList->EndEdit();
    }
    return false;
}

// Enter ends the edit and Escape drops it, unless the list's own handlers do so first; a line break
// is typed with Shift or Ctrl.
bool PropertiesTable::EditorKey(QKeyEvent& event) {
    const int code = KeyCodeOf(event);
    const int shift = ShiftOf(event.modifiers());
    const bool lineBreak = code == KeyReturn && (shift & (ShiftShift | ShiftControl));
    if (lineBreak) {
        if (auto* text = qobject_cast<QPlainTextEdit*>(mEditor.data())) text->insertPlainText("\n");
        return true;
    }
    if (code != KeyReturn && code != KeyEscape) return false;
    if (mList->UserKeyDown(code, shift) == 0) return true;
    if (code == KeyReturn) mList->EndEdit();
    return true;
}

} // namespace paperkite
