#include "platform/qt/PropertiesListView.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"

#include <QFrame>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace paperkite {

namespace {

// An empty line between two sentences takes less room as a gap.
QString Spaced(QString description) {
    return description.replace(QStringLiteral("<BR><BR>"),
                               QStringLiteral("<p style=\"margin-top:4px\">"));
}

} // namespace

PropertiesListView::PropertiesListView(const Ref<PropertiesList>& list, QWidget* parent)
    : QSplitter(Qt::Vertical, parent), mList(list), mTable(new PropertiesTable(list, this)) {
    setChildrenCollapsible(false);
    setHandleWidth(1);
    addWidget(mTable);
    MakeDescription();
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    setFocusProxy(mTable);
    connect(this, &QSplitter::splitterMoved,
            [this] { mList->UserResizeDescription(mDescription->height()); });
    ControlView::Attach(list, this, mTable);
    mTie = list->Observe(*this);
}

void PropertiesListView::MakeDescription() {
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto* page = new QWidget(area);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(12, 8, 12, 8);
    column->setSpacing(0);
    mTitle = new QLabel(page);
    QFont bold = mTitle->font();
    bold.setBold(true);
    mTitle->setFont(bold);
    mTitle->setTextFormat(Qt::PlainText);
    mText = new QLabel(page);
    mText->setTextFormat(Qt::RichText);
    mText->setWordWrap(true);
    column->addWidget(mTitle);
    column->addWidget(mText);
    column->addStretch(1);
    area->setWidget(page);
    mDescription = area;
    mDescription->setAccessibleName(tr("Description"));
    addWidget(area);
}

QString PropertiesListView::GetDescriptionText() const {
    return mTitle->text() + QLatin1Char('\n') + mText->text();
}

void PropertiesListView::ControlChanged(Control&) {
    const std::string& name = mList->GetAccessibleName();
    mTable->setAccessibleName(ToQString(name.empty() ? mList->GetColumnCaption("Name") : name));
    mDescription->setVisible(mList->GetDescriptionVisible());
    handle(1)->setEnabled(!mList->GetDescriptionHeightFixed());
    FitDescription();
    ShowDescription();
}

void PropertiesListView::RowsChanged() {
    ShowDescription();
}

void PropertiesListView::RowChanged(const Ref<PropertyItem>& row) {
    if (row == mList->GetSelectedItem()) ShowDescription();
}

void PropertiesListView::SelectionChanged() {
    ShowDescription();
}

void PropertiesListView::ShowDescription() {
    const Ref<PropertyItem> row = mList->GetSelectedItem();
    QString title;
    if (row)
        title =
            ToQString(row->GetDisplayText().empty() ? row->GetCaption() : row->GetDisplayText());
    mTitle->setText(title);
    QString text = row ? Spaced(ToQString(row->GetDescription())) : QString();
    const QString problem = row ? ToQString(row->GetProblem()) : QString();
    if (!problem.isEmpty())
        text = QStringLiteral("<b>%1</b><br>%2").arg(problem.toHtmlEscaped(), text);
    mText->setText(text);
    mTable->setAccessibleDescription(mText->text());
}

void PropertiesListView::FitDescription() {
    // The height is that of the text; its title stands above it.
    const int text = std::max(mList->GetDescriptionHeight(), fontMetrics().height() * 4 + 8);
    const int wanted = text + mTitle->sizeHint().height() + 16;
    setSizes({std::max(1, height() - wanted), wanted});
}

void PropertiesListView::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    FitDescription();
}

} // namespace paperkite
