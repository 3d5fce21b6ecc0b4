#include "platform/qt/ExplorerBarView.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"

#include <QDialog>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace paperkite {

namespace {

constexpr int kRadius = 4;
constexpr int kSide = 10;

// A card: caption ground on top, base below, a line around both.
class Card : public QWidget {
public:
    using QWidget::QWidget;

    int CaptionHeight = 0;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath outline;
        outline.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
        painter.fillPath(outline, palette().base());
        painter.setClipPath(outline);
        painter.fillRect(0, 0, width(), CaptionHeight, palette().color(QPalette::AlternateBase));
        painter.setClipping(false);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawPath(outline);
    }
};

// One line to choose: a radio button that looks like a row of a list. A line of several rows wraps
// its words, any other one shortens them.
class Line : public QRadioButton {
public:
    Line(const GroupItem& item, const QIcon& icon, int height, QWidget* parent)
        : QRadioButton(ToQString(item.GetCaption()), parent) {
        setIcon(icon);
        setToolTip(ToQString(item.GetToolTipText()));
        setEnabled(item.GetEnabled());
        const int rows = std::max(1, static_cast<int>(item.GetHeight()));
        setMinimumHeight(std::max(height, fontMetrics().height() * rows + 8));
        mWraps = rows > 1;
        if (mWraps) setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
        setMinimumWidth(64);
        setMouseTracking(true);
        QFont bold = font();
        bold.setBold(item.GetBold());
        setFont(bold);
        Choose(item.GetSelected());
        if (item.GetBold()) setAccessibleDescription(tr("in use"));
    }

    bool hasHeightForWidth() const override { return mWraps; }

    int heightForWidth(int width) const override {
        const int room = width - kSide - 8 - (icon().isNull() ? 0 : iconSize().width() + 8);
        const QRect endless(0, 0, std::max(1, room), QWIDGETSIZE_MAX);
        const QRect taken = fontMetrics().boundingRect(endless, Qt::TextWordWrap, text());
        return std::max(minimumHeight(), taken.height() + 8);
    }

    // Qt does not let the last choice of a card be taken away, the bar does.
    void Choose(bool chosen) {
        setAutoExclusive(false);
        setChecked(chosen);
        setAutoExclusive(true);
    }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (isChecked())
            painter.fillRect(rect(), palette().highlight());
        else if (underMouse() && isEnabled())
            painter.fillRect(rect(), palette().color(QPalette::Midlight));
        const int size = Icons::SizeBeside(fontMetrics().height());
        int left = kSide;
        if (!icon().isNull()) {
            icon().paint(&painter, left, (height() - size) / 2, size, size);
            left += size + 8;
        }
        const QRect room = rect().adjusted(left, 0, -8, 0);
        const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
        painter.setPen(
            palette().color(group, isChecked() ? QPalette::HighlightedText : QPalette::Text));
        const int wraps = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap;
        const bool fits =
            fontMetrics().boundingRect(room, wraps, text()).height() <= room.height() && mWraps;
        painter.drawText(room, wraps,
                         fits ? text()
                              : fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
        if (!hasFocus()) return;
        painter.setPen(QPen(isChecked() ? palette().color(QPalette::HighlightedText)
                                        : palette().color(QPalette::Highlight),
                            1));
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }

    void enterEvent(QEnterEvent* event) override {
        QRadioButton::enterEvent(event);
        update();
    }

    void leaveEvent(QEvent* event) override {
        QRadioButton::leaveEvent(event);
        update();
    }

private:
    bool mWraps = false;
};

/// The caption of a card, shortened to the room that there is.
class CaptionButton : public QToolButton {
public:
    CaptionButton(const QString& caption, QWidget* parent)
        : QToolButton(parent), mCaption(caption) {
        setText(caption);
        setAccessibleName(caption);
        // Takes what the whole caption needs, and gives way where there is less.
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override {
        const int missing =
            fontMetrics().horizontalAdvance(mCaption) - fontMetrics().horizontalAdvance(text());
        // Advances are rounded, each for itself.
        constexpr int kRounding = 2;
        return QToolButton::sizeHint() + QSize(missing + kRounding, 0);
    }

    QSize minimumSizeHint() const override { return {0, QToolButton::minimumSizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QToolButton::resizeEvent(event);
        const int around =
            QToolButton::sizeHint().width() - fontMetrics().horizontalAdvance(text());
        const int room = width() - around;
        setText(fontMetrics().elidedText(mCaption, Qt::ElideRight, std::max(0, room)));
    }

private:
    QString mCaption;
};

} // namespace

ExplorerBarView::ExplorerBarView(ViewFactory& factory, const Ref<ExplorerBar>& bar, QWidget* parent)
    : QScrollArea(parent), mFactory(factory), mBar(bar) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumWidth(120);
    ControlView::Attach(bar, this);
    mTie = bar->Observe(*this);
    Rebuild();
}

QWidget* ExplorerBarView::LineOf(const std::string& group, const std::string& item) const {
    const auto found = mBar->FindGroup(group);
    const auto line = found ? found->Find(item) : Ref<GroupItem>();
    return mLines.value(line.get());
}

void ExplorerBarView::ControlChanged(Control&) {
    RebuildSoon();
}

void ExplorerBarView::GroupsChanged() {
    RebuildSoon();
}

void ExplorerBarView::SelectionChanged() {
    for (auto line = mLines.begin(); line != mLines.end(); ++line)
        if (auto* button = dynamic_cast<Line*>(line.value()))
            button->Choose(line.key() == mBar->GetSelectedItem().get());
}

// Later, since the change may come out of a line that is being pressed, and one of many.
void ExplorerBarView::RebuildSoon() {
    if (std::exchange(mRebuildPending, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (mRebuildPending) Rebuild();
        },
        Qt::QueuedConnection);
}

void ExplorerBarView::Rebuild() {
    mRebuildPending = false;
    const auto focused =
        std::find_if(mLines.begin(), mLines.end(), [](QWidget* line) { return line->hasFocus(); });
    const GroupItem* focusedItem = focused == mLines.end() ? nullptr : focused.key();
    mLines.clear();
    mLineOrder.clear();
    if (QWidget* before = takeWidget()) before->deleteLater();
    mContent = new QWidget;
    auto* column = new QVBoxLayout(mContent);
    // A dialog has room around all that stands in it.
    const int margin = qobject_cast<QDialog*>(window()) ? 0 : 8;
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(8);
    // A narrow bar shortens its lines instead of hiding their ends.
    column->setSizeConstraint(QLayout::SetNoConstraint);
    for (const auto& group : mBar->GetGroups())
        if (group->GetVisible()) AddCard(*column, group);
    column->addStretch(1);
    setWidget(mContent);
    if (QWidget* line = mLines.value(focusedItem)) line->setFocus();
}

void ExplorerBarView::AddCard(QVBoxLayout& column, const Ref<ExplorerBarGroup>& group) {
    auto* card = new Card(mContent);
    auto* lines = new QVBoxLayout(card);
    lines->setContentsMargins(1, 1, 1, 1);
    lines->setSpacing(0);
    auto* caption = new CaptionButton(ToQString(group->GetCaption()), card);
    QFont bold = font();
    bold.setBold(true);
    caption->setFont(bold);
    caption->setIcon(Icons::InList(mBar->GetImageList(), group->GetIcon()));
    caption->setToolButtonStyle(caption->icon().isNull() ? Qt::ToolButtonTextOnly
                                                         : Qt::ToolButtonTextBesideIcon);
    caption->setAutoRaise(true);
    caption->setFocusPolicy(Qt::TabFocus);
    caption->setToolTip(group->GetCollapsed() ? tr("Show the lines of this group")
                                              : tr("Hide the lines of this group"));
    connect(caption, &QToolButton::clicked, this, [this, group] { mBar->UserToggle(group); });
    auto* captionRow = new QHBoxLayout;
    captionRow->setContentsMargins(4, 2, 4, 2);
    captionRow->addWidget(caption);
    captionRow->addStretch(1);
    lines->addLayout(captionRow);
    card->CaptionHeight = caption->sizeHint().height() + 5;
    column.addWidget(card);
    if (group->GetCollapsed()) return;
    for (const auto& item : *group)
        if (item->GetVisible()) AddLine(*lines, item);
    if (group->Count() > 0 || group->GetEmptyText().empty()) return;
    auto* empty = new QLabel(ToQString(group->GetEmptyText()), card);
    empty->setWordWrap(true);
    empty->setMargin(8);
    empty->setForegroundRole(QPalette::PlaceholderText);
    lines->addWidget(empty);
}

void ExplorerBarView::AddLine(QVBoxLayout& card, const Ref<GroupItem>& item) {
    if (item->GetControl()) {
        QWidget* hosted = mFactory.MakeView(item->GetControl(), card.parentWidget());
        auto* room = new QVBoxLayout;
        room->setContentsMargins(kSide, 4, 4, 4);
        room->addWidget(hosted);
        card.addLayout(room);
        return;
    }
    const QIcon icon = Icons::InList(mBar->GetImageList(), item->GetIcon());
    const int height = static_cast<int>(mBar->GetRowHeight() * item->GetHeight());
    auto* line = new Line(*item, icon, height, card.parentWidget());
    connect(line, &QRadioButton::clicked, this, [this, item] {
        mBar->UserClick(item);
        SelectionChanged();
    });
    line->installEventFilter(this);
    mLines[item.get()] = line;
    mLineOrder.append(line);
    card.addWidget(line);
}

bool ExplorerBarView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && mLineOrder.contains(watched)) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        auto* line = static_cast<QAbstractButton*>(watched);
        const bool back = key == Qt::Key_Up || key == Qt::Key_Left;
        if (back || key == Qt::Key_Down || key == Qt::Key_Right) {
            MoveFocus(line, back ? -1 : 1);
            return true;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            line->click();
            return true;
        }
    }
    return QScrollArea::eventFilter(watched, event);
}

void ExplorerBarView::MoveFocus(QWidget* from, int step) {
    const auto at = mLineOrder.indexOf(from) + step;
    if (at < 0 || at >= mLineOrder.size()) return;
    mLineOrder[at]->setFocus(Qt::TabFocusReason);
    ensureWidgetVisible(mLineOrder[at], 0, 8);
}

void ExplorerBarView::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) RebuildSoon();
}

} // namespace paperkite
