#include "host/window/LinksDialog.h"

#include "host/ItemTitle.h"
#include "host/window/DialogParts.h"
#include "platform/qt/Icons.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace paperkite {

namespace {

constexpr QSize kFirstSize(860, 520);
constexpr int kItemWidth = 230;
constexpr int kTagWidth = 130;
constexpr int kCaptionWidth = 160;
constexpr int kLinkRole = Qt::UserRole + 1;
/// Two lines, so that the list does not jump with the length of a problem.
constexpr int kProblemLines = 2;
/// More than anybody reads.
constexpr std::size_t kMostRows = 5000;
/// Longer addresses are cut in rows.
constexpr std::size_t kLongestShown = 300;
/// Longer words are broken between lines.
constexpr int kLongestWord = 40;
constexpr char16_t kZeroWidthSpace = 0x200B;

QString OneLine(const std::string& text) {
    const QString line = QString::fromStdString(text).simplified();
    return QString::fromStdString(ShortenedInMiddle(line.toStdString(), kLongestShown));
}

QString GoalOf(const LinkCheck::Link& link) {
    switch (link.LeadsTo) {
    case LinkCheck::Goal::Item:
        return QObject::tr("Leads to the item %1.")
            .arg(QString::fromStdString(link.LeadsToItem).replace('~', " ~ "));
    case LinkCheck::Goal::File:
        return QObject::tr("Leads to a file that is there.");
    case LinkCheck::Goal::Bookmark:
        return QObject::tr("Leads to a place on its own page.");
    case LinkCheck::Goal::HelpTopic:
        return QObject::tr("Leads to a topic in another help file, which is not looked up.");
    case LinkCheck::Goal::Outside:
        return QObject::tr("Leads to an address outside, which is not looked up.");
    case LinkCheck::Goal::Nowhere:
        break;
    }
    return QObject::tr("Leads nowhere. %1").arg(QString::fromStdString(link.Problem));
}

/// A text whose long words may be broken where a line ends.
QString Breakable(const QString& text) {
    QString out;
    int letters = 0;
    for (const QChar letter : text) {
        letters = letter.isSpace() ? 0 : letters + 1;
        out += letter;
        if (letters % kLongestWord == 0 && letters > 0 && !letter.isHighSurrogate())
            out += QChar(kZeroWidthSpace);
    }
    return out;
}

} // namespace

LinksDialog::LinksDialog(Workspace& workspace, QWidget* parent)
    : QDialog(parent), mWorkspace(workspace) {
    dialogs::Begin(*this, "LinksDialog", tr("Links in Comments"), kFirstSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(8);
    column->addWidget(MakeChoice());
    MakeList();
    column->addWidget(mPages, 1);
    mProblem = new QLabel(this);
    mProblem->setObjectName("Problem");
    mProblem->setTextFormat(Qt::PlainText);
    mProblem->setWordWrap(true);
    mProblem->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    mProblem->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // Names and addresses have no blanks to break at; the dialog does not grow with them.
    mProblem->setMinimumWidth(1);
    mProblem->setMinimumHeight(kProblemLines * mProblem->fontMetrics().lineSpacing());
    column->addWidget(mProblem);
    mResult = new QLabel(this);
    mResult->setObjectName("Result");
    mResult->setWordWrap(true);
    column->addWidget(mResult);
    column->addWidget(MakeButtons());
    auto* again = new QShortcut(QKeySequence::Refresh, this);
    connect(again, &QShortcut::activated, this, [this] { Check(); });
}

QWidget* LinksDialog::MakeChoice() {
    auto* pane = new QWidget(this);
    auto* line = new QHBoxLayout(pane);
    line->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(tr("&Show:"), pane);
    mShown = new QComboBox(pane);
    mShown->setObjectName("Shown");
    mShown->addItems({tr("Links that lead nowhere"), tr("All links")});
    label->setBuddy(mShown);
    line->addWidget(label);
    line->addWidget(mShown);
    line->addStretch(1);
    connect(mShown, &QComboBox::currentIndexChanged, this, [this] { FillList(); });
    return pane;
}

void LinksDialog::MakeList() {
    mPages = new QStackedWidget(this);
    mPages->setObjectName("Pages");
    mList = dialogs::MakeRowList({tr("Item"), tr("Comment"), tr("Link"), tr("Address")}, mPages);
    mList->setObjectName("Links");
    mList->setAccessibleName(tr("Links"));
    mList->setTextElideMode(Qt::ElideMiddle);
    mList->setColumnWidth(0, kItemWidth);
    mList->setColumnWidth(1, kTagWidth);
    mList->setColumnWidth(2, kCaptionWidth);
    mPages->addWidget(mList);
    mNote = new QLabel(mPages);
    mNote->setObjectName("Note");
    mNote->setAlignment(Qt::AlignCenter);
    mNote->setWordWrap(true);
    mNote->setMargin(24);
    mPages->addWidget(mNote);
    connect(mList, &QTreeWidget::itemActivated, this, [this](auto* row) { GoTo(row); });
    connect(mList, &QTreeWidget::currentItemChanged, this, [this] { ShowChosen(); });
}

QWidget* LinksDialog::MakeButtons() {
    auto* buttons = new QWidget(this);
    auto* line = new QHBoxLayout(buttons);
    line->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* name, const QString& text, auto slot) {
        auto* button = dialogs::AddButton(buttons, name, text);
        connect(button, &QPushButton::clicked, this, slot);
        return button;
    };
    add("Again", tr("Check &Again"), [this] { Check(); })
        ->setToolTip(tr("Looks at all comments anew (%1)")
                         .arg(QKeySequence(QKeySequence::Refresh).toString()));
    line->addStretch(1);
    mGoTo = add("GoTo", tr("&Go to the Comment"), [this] { GoTo(mList->currentItem()); });
    mGoTo->setDefault(true);
    add("Close", tr("&Close"), [this] { reject(); });
    return buttons;
}

bool LinksDialog::IsAll() const {
    return mShown->currentIndex() == 1;
}

const LinkCheck::Link* LinksDialog::LinkOf(const QTreeWidgetItem* row) const {
    return row ? &mLinks[row->data(0, kLinkRole).toULongLong()] : nullptr;
}

void LinksDialog::Check() {
    const LinkCheck::Link* chosen = LinkOf(mList->currentItem());
    const LinkCheck::Link before = chosen ? *chosen : LinkCheck::Link();
    mList->clear();
    mWorkspace.GetEditor().CommitEdit();
    const ProjectSession& session = mWorkspace.GetSession();
    mLinks = LinkCheck(*session.GetProvider()).Check(*session.GetProject()->GetComments());
    FillList();
    ChooseRow(before);
}

void LinksDialog::FillList() {
    QList<QTreeWidgetItem*> rows;
    for (std::size_t index = 0; index < mLinks.size() && rows.size() < qsizetype(kMostRows);
         ++index)
        if (IsAll() || mLinks[index].LeadsNowhere()) rows.append(MakeRow(index));
    {
        const QSignalBlocker quiet(mList);
        mList->clear();
        mList->addTopLevelItems(rows);
    }
    if (!rows.isEmpty()) mList->setCurrentItem(rows.front());
    ShowNote();
    ShowChosen();
}

QTreeWidgetItem* LinksDialog::MakeRow(std::size_t index) const {
    const LinkCheck::Link& link = mLinks[index];
    const QString item = QString::fromStdString(link.Item).replace('~', " ~ ");
    auto* row = new QTreeWidgetItem(
        {item, QString::fromStdString(link.Name), OneLine(link.Caption), OneLine(link.Target)});
    row->setData(0, kLinkRole, static_cast<qulonglong>(index));
    row->setToolTip(0, item);
    row->setToolTip(3, GoalOf(link));
    row->setData(3, Qt::AccessibleDescriptionRole, GoalOf(link));
    if (link.LeadsNowhere()) row->setIcon(3, Icons::ByName("dialog-warning"));
    row->setSizeHint(0, dialogs::RowSize(*mList));
    return row;
}

void LinksDialog::ChooseRow(const LinkCheck::Link& wanted) {
    for (int row = 0; row < mList->topLevelItemCount(); ++row) {
        const LinkCheck::Link& link = *LinkOf(mList->topLevelItem(row));
        if (link.Item == wanted.Item && link.CommentId == wanted.CommentId &&
            link.Target == wanted.Target)
            return mList->setCurrentItem(mList->topLevelItem(row));
    }
}

void LinksDialog::ShowNote() {
    const std::size_t nowhere = CountNowhere(mLinks);
    const std::size_t shown = IsAll() ? mLinks.size() : nowhere;
    if (mLinks.empty())
        mNote->setText(tr("The comments hold no links yet.\nSelect words on a page and press "
                          "Ctrl+K to make one."));
    else
        mNote->setText(tr("Every link leads somewhere.\nChoose “All links” to see where."));
    mPages->setCurrentIndex(shown == 0 ? 1 : 0);
    QString result = QString::fromStdString(LinkSummary(mLinks));
    if (shown > kMostRows) result += ' ' + tr("The first %L1 are shown.").arg(kMostRows);
    if (mWorkspace.GetSession().IsPart())
        result +=
            ' ' + tr("Not all source code was read yet, so items may only seem to be missing.");
    mResult->setText(result);
}

void LinksDialog::ShowChosen() {
    const LinkCheck::Link* link = LinkOf(mList->currentItem());
    mProblem->setText(link ? Breakable(GoalOf(*link)) : QString());
    mGoTo->setEnabled(link != nullptr);
}

void LinksDialog::GoTo(const QTreeWidgetItem* row) {
    const LinkCheck::Link* link = LinkOf(row);
    // Going there may take the list anew.
    if (link && ShowLink) ShowLink(LinkCheck::Link(*link));
}

} // namespace paperkite
