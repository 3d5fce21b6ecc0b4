#include "platform/qt/CodeBoxView.h"

#include "platform/qt/CodeArea.h"
#include "platform/qt/CodeHighlighter.h"
#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QTextBlock>

namespace paperkite {

namespace {

class CodeBoxView : public ControlView {
public:
    CodeBoxView(const Ref<CodeBox>& box, CodeArea* area)
        : ControlView(box, area), mBox(box), mArea(area),
          mHighlighter(new CodeHighlighter(area->document(), IsDark())) {
        connect(area, &QPlainTextEdit::textChanged, [this] { ReportText(); });
        connect(area, &QPlainTextEdit::selectionChanged, [this] { ReportSelection(); });
        connect(area, &QPlainTextEdit::cursorPositionChanged, [this] { ReportSelection(); });
        Tie();
    }

protected:
    void Show() override {
        const QScopedValueRollback showing(mShowing, true);
        mArea->setReadOnly(mBox->GetLocked());
        // A locked text is gone through with the keyboard too.
        mArea->setTextInteractionFlags(mBox->GetLocked() ? Qt::TextSelectableByMouse |
                                                               Qt::TextSelectableByKeyboard
                                                         : Qt::TextEditorInteraction);
        mArea->setPlaceholderText(ToQString(mBox->GetPlaceholderText()));
        mArea->SetFirstLine(mBox->GetFirstLine());
        mHighlighter->SetFileName(mBox->GetFileName());
        if (mText != mBox->GetText()) {
            mText = mBox->GetText();
            mArea->setPlainText(ToQString(mText));
            mShown = PlainTextOf(*mArea->document());
        }
        ShowSelection();
        ShowMark();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange) mHighlighter->SetDark(IsDark());
        return ControlView::eventFilter(watched, event);
    }

private:
    bool IsDark() const { return mArea->palette().base().color().lightness() < 128; }

    // Colours count as changes of the text too.
    void ReportText() {
        const QString text = PlainTextOf(*mArea->document());
        if (mShowing || text == mShown) return;
        mShown = text;
        mText = FromQString(text);
        mBox->UserType(mText);
    }

    void ReportSelection() {
        if (mShowing) return;
        const QTextCursor cursor = mArea->textCursor();
        const auto bytesBefore = [this](int position) {
            return FromQString(mShown.left(position)).size();
        };
        const std::size_t start = bytesBefore(cursor.selectionStart());
        mBox->UserSelect(start, bytesBefore(cursor.selectionEnd()) - start);
    }

    void ShowSelection() {
        const auto unitsBefore = [this](std::size_t bytes) {
            return static_cast<int>(ToQString(mText.substr(0, bytes)).size());
        };
        const int start = unitsBefore(mBox->GetSelStart());
        const int end = unitsBefore(mBox->GetSelStart() + mBox->GetSelLength());
        QTextCursor cursor = mArea->textCursor();
        if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
        if (mText != FromQString(mShown)) return;
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        mArea->setTextCursor(cursor);
    }

    void ShowMark() {
        const QTextBlock block = mArea->document()->findBlockByNumber(mBox->GetMarkedLine() - 1);
        // Columns count characters, some of which are two units.
        int units = 0;
        const QString line = block.text();
        for (int column = 1; column < mBox->GetMarkedColumn() && units < line.size(); ++column)
            units += line.at(units).isHighSurrogate() ? 2 : 1;
        mArea->SetMark(mBox->GetMarkedLine(), units);
    }

    Ref<CodeBox> mBox;
    CodeArea* mArea;
    CodeHighlighter* mHighlighter;
    /// The box's text, and what the area made of it, which has no carriage returns.
    std::string mText;
    QString mShown;
    bool mShowing = false;
};

} // namespace

QWidget* MakeCodeBoxView(const Ref<CodeBox>& box, QWidget* parent) {
    auto* area = new CodeArea(parent);
    new CodeBoxView(box, area);
    return area;
}

} // namespace paperkite
