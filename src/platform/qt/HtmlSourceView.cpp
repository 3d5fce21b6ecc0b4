#include "platform/qt/HtmlSourceView.h"

#include "platform/qt/CodeArea.h"
#include "platform/qt/CodeHighlighter.h"
#include "platform/qt/Conversions.h"

#include <QHash>
#include <QScopedValueRollback>
#include <QTextBlock>

namespace paperkite {

namespace {

bool IsDark(const QWidget& widget) {
    return widget.palette().base().color().lightness() < 128;
}

} // namespace

HtmlSourceView::HtmlSourceView(const Ref<HtmlEdit>& edit, QWidget* parent)
    : mEdit(edit), mArea(new CodeArea(parent)),
      mHighlighter(new CodeHighlighter(mArea->document(), IsDark(*mArea))) {
    mHighlighter->SetFileName("layout.html");
    mArea->setFrameShape(QFrame::NoFrame);
    mArea->setLineWrapMode(QPlainTextEdit::NoWrap);
    mArea->setTabChangesFocus(true);
    mArea->setAccessibleName(QObject::tr("HTML source"));
    QObject::connect(mArea, &QPlainTextEdit::textChanged, mArea, [this] { Report(); });
    for (const auto signal : {&QPlainTextEdit::undoAvailable, &QPlainTextEdit::redoAvailable,
                              &QPlainTextEdit::copyAvailable})
        QObject::connect(mArea, signal, mArea, [this] { ReportCommands(); });
}

void HtmlSourceView::Load() {
    const QScopedValueRollback loading(mLoading, true);
    mArea->setPlainText(ToQString(mEdit->GetDocumentHTML()));
    mShown = PlainTextOf(*mArea->document());
    ShowMark();
    mLoading = false;
    ReportCommands();
}

void HtmlSourceView::Report() {
    if (mLoading) return;
    // Colours count as changes of the text too.
    const QString text = PlainTextOf(*mArea->document());
    if (text == mShown) return;
    mShown = text;
    mEdit->UserSourceChanged(FromQString(text), mArea->document()->isUndoAvailable());
}

void HtmlSourceView::ReportCommands() {
    if (mLoading || mEdit->GetView() != HtmlView::Source) return;
    // In the middle of a change the text cannot be read.
    std::vector<std::string> enabled{"paste", "selectall"};
    if (mArea->document()->isUndoAvailable()) enabled.emplace_back("undo");
    if (mArea->document()->isRedoAvailable()) enabled.emplace_back("redo");
    if (mArea->textCursor().hasSelection()) enabled.insert(enabled.end(), {"cut", "copy"});
    mEdit->UserSelection({}, {}, std::move(enabled), {}, {}, {});
}

void HtmlSourceView::ShowMark() {
    const QTextBlock block = mArea->document()->findBlockByNumber(mEdit->GetMarkedLine() - 1);
    // Columns count characters, some of which are two units.
    int units = 0;
    const QString line = block.text();
    for (int column = 1; column < mEdit->GetMarkedColumn() && units < line.size(); ++column)
        units += line.at(units).isHighSurrogate() ? 2 : 1;
    mArea->SetMark(mEdit->GetMarkedLine(), units);
}

void HtmlSourceView::ApplyLook() {
    mHighlighter->SetDark(IsDark(*mArea));
}

bool HtmlSourceView::Run(const std::string& command) {
    using Action = void (QPlainTextEdit::*)();
    static const QHash<QString, Action> actions{{"undo", &QPlainTextEdit::undo},
                                                {"redo", &QPlainTextEdit::redo},
                                                {"cut", &QPlainTextEdit::cut},
                                                {"copy", &QPlainTextEdit::copy},
                                                {"paste", &QPlainTextEdit::paste},
                                                {"pasteplain", &QPlainTextEdit::paste},
                                                {"selectall", &QPlainTextEdit::selectAll}};
    const auto action = actions.constFind(ToQString(command));
    if (action == actions.cend()) return false;
    (mArea->**action)();
    return true;
}

} // namespace paperkite
