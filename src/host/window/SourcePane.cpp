#include "host/window/SourcePane.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/ViewFactory.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace paperkite {

namespace {

constexpr int kMargin = 12;
constexpr int kShownLines = 5;

QString Html(const std::string& text) {
    return QString::fromStdString(text).toHtmlEscaped();
}

class SourcePaneView : public ControlView {
public:
    SourcePaneView(const Ref<SourcePane>& pane, QWidget* parent)
        : ControlView(pane, new QWidget(parent)), mPane(pane) {
        QWidget* widget = GetWidget();
        auto* column = new QVBoxLayout(widget);
        column->setContentsMargins(kMargin, 8, kMargin, 8);
        mTitle = new QLabel(widget);
        mTitle->setTextFormat(Qt::RichText);
        mTitle->setTextInteractionFlags(Qt::TextSelectableByMouse);
        mText = new QPlainTextEdit(widget);
        mText->setReadOnly(true);
        mText->setTabChangesFocus(true);
        mText->setAccessibleName(QObject::tr("Comment in the source"));
        mText->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        column->addWidget(mTitle);
        column->addWidget(mText);
        SetFocusTarget(mText);
        Tie();
    }

protected:
    void Show() override {
        const QString quiet =
            mTitle->palette().color(QPalette::PlaceholderText).name(QColor::HexRgb);
        mTitle->setText(QObject::tr("<b>In the source</b> <span style=\"color:%1\">%2</span>")
                            .arg(quiet, Html(mPane->GetPlace())));
        QString text = QString::fromStdString(mPane->GetDeclaration());
        const QString comment = QString::fromStdString(mPane->GetComment());
        if (!comment.isEmpty()) text += (text.isEmpty() ? "" : "\n\n") + comment;
        if (text.isEmpty()) text = QObject::tr("Nothing stands in the source for this item.");
        QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        fixed.setPointSizeF(mTitle->font().pointSizeF());
        mText->setFont(fixed);
        mText->setPlainText(text);
        const int line = mText->fontMetrics().lineSpacing();
        mText->setFixedHeight(kShownLines * line + 2 * mText->frameWidth() + 8);
    }

private:
    Ref<SourcePane> mPane;
    QLabel* mTitle;
    QPlainTextEdit* mText;
};

} // namespace

void SourcePane::Show(const std::string& place, const std::string& declaration,
                      const std::string& comment) {
    mPlace = place;
    mDeclaration = declaration;
    mComment = comment;
    TellChanged();
}

void SourcePane::RegisterView(ViewFactory& factory) {
    factory.RegisterRole<SourcePane>(
        [](ViewFactory&, const Ref<SourcePane>& pane, QWidget* parent) {
            return (new SourcePaneView(pane, parent))->GetWidget();
        });
}

} // namespace paperkite
