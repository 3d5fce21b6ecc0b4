#include "platform/qt/PropertyValueEditor.h"

#include "platform/qt/ColourViews.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"
#include "widgets/PropertyValues.h"
#include "widgets/WebColours.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QToolButton>

#include <algorithm>

namespace paperkite {

namespace {

/// Closes with Escape.
class Popup : public QFrame {
public:
    using QFrame::QFrame;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape)
            close();
        else
            QFrame::keyPressEvent(event);
    }
};

} // namespace

PropertyValueEditor::PropertyValueEditor(const PropertyItem& row, const QString& text,
                                         QWidget* parent)
    : QWidget(parent), mType(row.GetValueType()), mField(new QLineEdit(this)) {
    setAutoFillBackground(true);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2);
    line->addWidget(mField);
    setFocusProxy(mField);
    mField->installEventFilter(this);
    if (mType == PropertyValueType::Date)
        MakeButton("view-calendar", tr("Calendar (F4)"));
    else if (mType == PropertyValueType::Color)
        MakeButton("color-picker", tr("Browse Color (F4)"));
    else if (mType == PropertyValueType::File)
        MakeButton("document-open", tr("Locate file (F4)"));
    if (mType == PropertyValueType::Color)
        mSwatch = mField->addAction(QIcon(), QLineEdit::LeadingPosition);
    // The text stays where it stood before the edit.
    if (!mSwatch) mField->setTextMargins(4, 0, 0, 0);
    mWarning = mField->addAction(QIcon(), QLineEdit::TrailingPosition);
    mField->setText(text);
    mField->selectAll();
    ShowText(text);
    connect(mField, &QLineEdit::textChanged, this, [this](const QString& typed) {
        ShowText(typed);
        if (TextChanged) TextChanged(typed);
    });
}

void PropertyValueEditor::MakeButton(const char* icon, const QString& toolTip) {
    mButton = new QToolButton(this);
    mButton->setIcon(Icons::ByName(icon));
    if (mButton->icon().isNull()) mButton->setText(QStringLiteral("…"));
    mButton->setToolTip(toolTip);
    mButton->setAccessibleName(toolTip);
    // The line keeps the focus: what leaves it ends the edit.
    mButton->setFocusPolicy(Qt::NoFocus);
    mButton->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    connect(mButton, &QToolButton::clicked, this, [this] { PressButton(); });
    layout()->addWidget(mButton);
}

void PropertyValueEditor::ShowText(const QString& text) {
    const std::string typed = FromQString(text);
    const QString problem = ToQString(PropertyValues::ProblemWith(mType, typed));
    mWarning->setVisible(!problem.isEmpty());
    mWarning->setIcon(problem.isEmpty() ? QIcon() : Icons::ByName("data-warning"));
    mWarning->setToolTip(problem);
    mField->setToolTip(problem);
    mField->setAccessibleDescription(problem);
    if (!mSwatch) return;
    const auto colour = WebColours::Read(typed);
    mSwatch->setIcon(colour ? SwatchIcon(ToQColor(*colour), palette(), 16) : QIcon());
    mSwatch->setVisible(colour.has_value());
}

void PropertyValueEditor::PressButton() {
    if (mType == PropertyValueType::Date)
        ShowCalendar();
    else if (mButton && Browse)
        Browse();
}

void PropertyValueEditor::ShowCalendar() {
    auto* popup = new Popup(this, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto* column = new QHBoxLayout(popup);
    column->setContentsMargins(1, 1, 1, 1);
    auto* calendar = new QCalendarWidget(popup);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    const auto date = PropertyValues::ReadDate(FromQString(mField->text()));
    if (date) calendar->setSelectedDate(QDate(date->Year, date->Month, date->Day));
    column->addWidget(calendar);
    const auto take = [this, popup](const QDate& chosen) {
        popup->close();
        Pick(ToQString(PropertyValues::DateText({chosen.year(), chosen.month(), chosen.day()})));
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);
    popup->adjustSize();
    // Below the line, or above it where there is no room.
    QPoint place = mapToGlobal(QPoint(width() - popup->width(), height()));
    const QRect room = screen()->availableGeometry();
    if (place.y() + popup->height() > room.bottom())
        place.setY(mapToGlobal(QPoint(0, 0)).y() - popup->height());
    place.setX(
        std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - popup->width())));
    popup->move(place);
    popup->show();
    calendar->setFocus();
}

void PropertyValueEditor::Pick(const QString& text) {
    mField->setText(text);
    // The end of the edit deletes this editor.
    if (Picked) Picked();
}

bool PropertyValueEditor::Step(int step) {
    if (mType != PropertyValueType::Number) return false;
    const auto next = PropertyValues::Stepped(FromQString(mField->text()), step);
    if (next) mField->setText(ToQString(*next));
    return true;
}

bool PropertyValueEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched != mField || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    const bool alt = key.modifiers() & Qt::AltModifier;
    if (mButton && (key.key() == Qt::Key_F4 || (alt && key.key() == Qt::Key_Down))) {
        PressButton();
        return true;
    }
    if (key.key() == Qt::Key_Up) return Step(1);
    if (key.key() == Qt::Key_Down) return Step(-1);
    return false;
}

} // namespace paperkite
