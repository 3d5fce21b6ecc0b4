#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FieldViews.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextCursor>

namespace paperkite {

namespace {

// Positions in the model are bytes, in Qt UTF-16 units.
std::size_t BytesBefore(const QString& text, int position) {
    return static_cast<std::size_t>(text.left(position).toUtf8().size());
}

int UnitsBefore(const std::string& text, std::size_t bytes) {
    return static_cast<int>(ToQString(text.substr(0, bytes)).size());
}

// Key events go to the model's handlers first, which may swallow them.
class TextBoxKeys : public ControlView {
protected:
    TextBoxKeys(const Ref<TextBox>& box, QWidget* widget) : ControlView(box, widget), mBox(box) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            auto& key = static_cast<QKeyEvent&>(*event);
            const int code = KeyCodeOf(key);
            if (code != 0 && mBox->UserKeyDown(code, ShiftOf(key.modifiers())) == 0) return true;
            const int character = key.text().isEmpty() ? 0 : key.text().at(0).unicode();
            if (character != 0 && mBox->UserKeyPress(character) == 0) return true;
        }
        if (event->type() == QEvent::KeyRelease) {
            auto& key = static_cast<QKeyEvent&>(*event);
            mBox->UserKeyUp(KeyCodeOf(key), ShiftOf(key.modifiers()));
        }
        return ControlView::eventFilter(watched, event);
    }

    Ref<TextBox> mBox;
};

class LineView : public TextBoxKeys {
public:
    LineView(const Ref<TextBox>& box, QLineEdit* line) : TextBoxKeys(box, line), mLine(line) {
        connect(line, &QLineEdit::textEdited,
                [this](const QString& text) { mBox->UserType(FromQString(text)); });
        connect(line, &QLineEdit::selectionChanged, [this] { ReportSelection(); });
        connect(line, &QLineEdit::cursorPositionChanged, [this] { ReportSelection(); });
        Tie();
    }

protected:
    void Show() override {
        const QSignalBlocker blocker(mLine);
        const QString text = ToQString(mBox->GetText());
        mLine->setMaxLength(mBox->GetMaxLength() > 0 ? mBox->GetMaxLength() : 32767);
        mLine->setReadOnly(mBox->GetLocked());
        mLine->setPlaceholderText(ToQString(mBox->GetPlaceholderText()));
        if (mLine->text() == text) return;
        mLine->setText(text);
        mLine->setCursorPosition(UnitsBefore(mBox->GetText(), mBox->GetSelStart()));
    }

private:
    void ReportSelection() {
        const bool selected = mLine->hasSelectedText();
        const int from = selected ? mLine->selectionStart() : mLine->cursorPosition();
        const std::size_t start = BytesBefore(mLine->text(), from);
        mBox->UserSelect(start, FromQString(mLine->selectedText()).size());
    }

    QLineEdit* mLine;
};

class AreaView : public TextBoxKeys {
public:
    AreaView(const Ref<TextBox>& box, QPlainTextEdit* area) : TextBoxKeys(box, area), mArea(area) {
        area->setTabChangesFocus(true);
        connect(area, &QPlainTextEdit::textChanged,
                [this] { mBox->UserType(FromQString(PlainTextOf(*mArea->document()))); });
        connect(area, &QPlainTextEdit::selectionChanged, [this] { ReportSelection(); });
        Tie();
    }

protected:
    void Show() override {
        const QSignalBlocker blocker(mArea);
        const QString text = ToQString(mBox->GetText());
        mArea->setReadOnly(mBox->GetLocked());
        mArea->setPlaceholderText(ToQString(mBox->GetPlaceholderText()));
        if (PlainTextOf(*mArea->document()) != text) mArea->setPlainText(text);
    }

private:
    void ReportSelection() {
        const QTextCursor cursor = mArea->textCursor();
        const QString text = PlainTextOf(*mArea->document());
        const std::size_t start = BytesBefore(text, cursor.selectionStart());
        mBox->UserSelect(start, BytesBefore(text, cursor.selectionEnd()) - start);
    }

    QPlainTextEdit* mArea;
};

} // namespace

QWidget* MakeTextBoxView(const Ref<TextBox>& box, QWidget* parent) {
    if (box->GetMultiLine()) {
        auto* area = new QPlainTextEdit(parent);
        new AreaView(box, area);
        return area;
    }
    auto* line = new QLineEdit(parent);
    new LineView(box, line);
    return line;
}

} // namespace paperkite
