#include "host/window/HomelessDialog.h"

#include "host/window/DialogParts.h"
#include "host/window/HomelessTexts.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextCursor>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace paperkite {

namespace {

constexpr QSize kFirstSize(900, 600);
constexpr int kNameRole = Qt::UserRole + 1;
constexpr int kReasonRole = Qt::UserRole + 2;
constexpr int kAboveTag = 6;
constexpr std::size_t kMostMatches = 50;

std::string NameOf(const QTreeWidgetItem* row) {
    return row ? row->data(0, kNameRole).toString().toStdString() : std::string();
}

QTreeWidget* MakeList(const QStringList& headers, QWidget* parent) {
    auto* list = dialogs::MakeRowList(headers, parent);
    // The last steps of a name tell more than the first ones.
    list->setTextElideMode(Qt::ElideLeft);
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    return list;
}

QTreeWidgetItem* AddRow(QTreeWidget& list, const std::string& name, QStringList texts) {
    texts.prepend(ShownName(name));
    auto* row = new QTreeWidgetItem(&list, texts);
    row->setData(0, kNameRole, QString::fromStdString(name));
    for (int column = 0; column < texts.size(); ++column)
        row->setToolTip(column, texts[column]);
    row->setSizeHint(0, dialogs::RowSize(list));
    return row;
}

/// Labels are read and must not make the window wider than a small screen.
QLabel* MakeLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

} // namespace

HomelessDialog::HomelessDialog(HomelessWork& work, QWidget* parent) : QDialog(parent), mWork(work) {
    dialogs::Begin(*this, "HomelessDialog", tr("Homeless Comments"), kFirstSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(8);
    mPages = new QStackedWidget(this);
    auto* sides = new QSplitter(Qt::Horizontal, mPages);
    sides->setChildrenCollapsible(false);
    sides->addWidget(MakeGone());
    auto* texts = new QSplitter(Qt::Vertical, sides);
    texts->setChildrenCollapsible(false);
    texts->addWidget(MakeComments());
    texts->addWidget(MakeHomes());
    sides->addWidget(texts);
    sides->setStretchFactor(0, 2);
    sides->setStretchFactor(1, 3);
    mPages->addWidget(sides);
    mPages->addWidget(MakeDone());
    column->addWidget(mPages, 1);
    mResult = MakeLabel({}, this);
    mResult->setObjectName("Result");
    mResult->setVisible(false);
    column->addWidget(mResult);
    column->addWidget(MakeButtons());
    SetOrder();
    for (std::string& name : mWork.Names())
        mEntries.push_back({name, mWork.CountOf(name), {}});
    FillGone();
}

QWidget* HomelessDialog::MakeGone() {
    auto* pane = new QWidget(this);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 4, 0);
    auto* label = MakeLabel(tr("The source has &these items no longer: they were renamed, moved or "
                               "got another signature. Say where their comments belong now."),
                            pane);
    mGone = MakeList({tr("Item that is gone"), tr("Comments")}, pane);
    mGone->setObjectName("Gone");
    mGone->setAccessibleName(tr("Items that are gone"));
    label->setBuddy(mGone);
    connect(mGone, &QTreeWidget::currentItemChanged, this, [this] { ShowChosen(); });
    column->addWidget(label);
    column->addWidget(mGone, 1);
    return pane;
}

QWidget* HomelessDialog::MakeComments() {
    auto* pane = new QWidget(this);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(4, 0, 0, 0);
    mCommentsLabel = MakeLabel({}, pane);
    mCommentsLabel->setTextFormat(Qt::PlainText);
    mComments = new QTextEdit(pane);
    mComments->setObjectName("Comments");
    mComments->setReadOnly(true);
    mComments->setTabChangesFocus(true);
    mComments->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    mComments->setMinimumHeight(56);
    column->addWidget(mCommentsLabel);
    column->addWidget(mComments, 1);
    return pane;
}

QWidget* HomelessDialog::MakeHomes() {
    auto* pane = new QWidget(this);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(4, 0, 0, 0);
    mSearch = new QLineEdit(pane);
    mSearch->setObjectName("Search");
    mSearch->setPlaceholderText(tr("Find another item by its name"));
    mSearch->setAccessibleName(tr("Find another item by its name"));
    mSearch->setClearButtonEnabled(true);
    mSearch->installEventFilter(this);
    connect(mSearch, &QLineEdit::textChanged, this, [this] { ShowHomes(); });
    mHomesHint = MakeLabel({}, pane);
    mHomes = MakeList({tr("New home"), tr("Kind")}, pane);
    mHomes->setObjectName("Homes");
    mHomesHint->setBuddy(mHomes);
    connect(mHomes, &QTreeWidget::currentItemChanged, this, [this] { UpdateButtons(); });
    column->addWidget(mHomesHint);
    mWhy = MakeLabel({}, pane);
    mWhy->setObjectName("Why");
    column->addWidget(mHomes, 1);
    column->addWidget(mWhy);
    column->addWidget(mSearch);
    return pane;
}

QWidget* HomelessDialog::MakeDone() {
    auto* label = MakeLabel(tr("Every comment has its item."), this);
    label->setObjectName("Done");
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QPushButton* HomelessDialog::AddButton(const QString& text, void (HomelessDialog::*slot)()) {
    auto* button = new QPushButton(text, this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

QWidget* HomelessDialog::MakeButtons() {
    auto* buttons = new QWidget(this);
    auto* line = new QHBoxLayout(buttons);
    line->setContentsMargins(0, 0, 0, 0);
    mDelete = AddButton(tr("&Delete Comments …"), &HomelessDialog::Delete);
    mGoTo = AddButton(tr("&Go to Item"), &HomelessDialog::GoToHome);
    mClose = AddButton(tr("&Close"), &HomelessDialog::reject);
    mAdopt = AddButton(tr("&Adopt"), &HomelessDialog::Adopt);
    mAdopt->setDefault(true);
    mAdopt->setToolTip(tr("Gives the comments to the new home, with those of what stood below"));
    line->addWidget(mDelete);
    line->addStretch(1);
    for (QPushButton* button : {mGoTo, mClose, mAdopt})
        line->addWidget(button);
    return buttons;
}

void HomelessDialog::SetOrder() {
    QWidget* before = mGone;
    for (QWidget* next : std::initializer_list<QWidget*>{mComments, mHomes, mSearch, mDelete, mGoTo,
                                                         mClose, mAdopt}) {
        setTabOrder(before, next);
        before = next;
    }
    mGone->setFocus();
}

void HomelessDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!mIsFound && !mIsFinding) QTimer::singleShot(0, this, [this] { FindHomes(); });
}

// The search runs in the window's thread, because it reads the comments that the author looks at,
// and lets the window breathe meanwhile.
void HomelessDialog::FindHomes() {
    mIsFinding = true;
    auto found = mWork.Find([this] {
        QCoreApplication::processEvents();
        return isVisible();
    });
    mIsFinding = false;
    if (!isVisible()) return;
    mIsFound = true;
    mEntries = std::move(found);
    ShowHomes();
}

void HomelessDialog::FillGone() {
    const QSignalBlocker blocker(mGone);
    mGone->clear();
    for (const HomelessWork::Entry& entry : mEntries) {
        QTreeWidgetItem* row =
            AddRow(*mGone, entry.QualifiedName, {QString::number(qulonglong(entry.Comments))});
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    mGone->setCurrentItem(mGone->topLevelItem(0));
    ShowChosen();
}

void HomelessDialog::Choose(const std::string& gone) {
    for (int row = 0; row < mGone->topLevelItemCount(); ++row)
        if (NameOf(mGone->topLevelItem(row)) == gone)
            mGone->setCurrentItem(mGone->topLevelItem(row));
}

std::string HomelessDialog::GetChosen() const {
    return NameOf(mGone->currentItem());
}

const HomelessWork::Entry* HomelessDialog::EntryOf(const std::string& gone) const {
    const auto found = std::find_if(mEntries.begin(), mEntries.end(),
                                    [&](const auto& entry) { return entry.QualifiedName == gone; });
    return found == mEntries.end() ? nullptr : &*found;
}

std::string HomelessDialog::ChosenHome() const {
    return NameOf(mHomes->currentItem());
}

void HomelessDialog::ShowChosen() {
    const std::string gone = GetChosen();
    const bool isDone = gone.empty();
    mPages->setCurrentIndex(isDone ? 1 : 0);
    ShowComments(gone);
    {
        const QSignalBlocker blocker(mSearch);
        mSearch->clear();
    }
    ShowHomes();
    if (!isDone) return;
    mClose->setDefault(true);
    mClose->setFocus();
}

void HomelessDialog::ShowComments(const std::string& gone) {
    mCommentsLabel->setText(tr("Comments of %1").arg(ShownName(gone)));
    mComments->setAccessibleName(mCommentsLabel->text());
    mComments->clear();
    QTextCursor cursor(mComments->document());
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    QTextBlockFormat apart;
    apart.setTopMargin(kAboveTag);
    for (const HomelessWork::Comment& comment : mWork.CommentsOf(gone)) {
        if (cursor.position() > 0) cursor.insertBlock(apart);
        cursor.insertText(QString::fromStdString(comment.Tag), bold);
        cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
        cursor.insertText(ReadableText(comment.Text), QTextCharFormat());
    }
    mComments->moveCursor(QTextCursor::Start);
}

void HomelessDialog::ShowHomes() {
    const HomelessWork::Entry* entry = EntryOf(GetChosen());
    const std::string text = mSearch->text().trimmed().toStdString();
    if (!text.empty())
        FillHomes(mWork.Search(text, kMostMatches));
    else
        FillHomes(entry ? entry->Homes : std::vector<HomelessWork::Home>());
    mHomesHint->setText(HomesHint(entry, mHomes->topLevelItemCount() > 0));
    mHomes->setAccessibleName(mHomesHint->text().remove('&'));
    UpdateButtons();
}

void HomelessDialog::FillHomes(const std::vector<HomelessWork::Home>& homes) {
    const QSignalBlocker blocker(mHomes);
    mHomes->clear();
    for (const HomelessWork::Home& home : homes) {
        QTreeWidgetItem* row =
            AddRow(*mHomes, home.QualifiedName, {QString::fromStdString(home.Kind)});
        const QString reason = QString::fromStdString(home.Reason);
        row->setData(0, kReasonRole, reason);
        // A screen reader says why, too.
        if (!reason.isEmpty())
            row->setData(0, Qt::AccessibleTextRole, row->text(0) + ", " + reason);
    }
    mHomes->setCurrentItem(mHomes->topLevelItem(0));
}

QString HomelessDialog::HomesHint(const HomelessWork::Entry* entry, bool hasHomes) const {
    if (!entry) return {};
    const QString text = mSearch->text().trimmed().toHtmlEscaped().replace('&', "&&");
    if (!text.isEmpty())
        return hasHomes ? tr("&New homes with “%1” in their names").arg(text)
                        : tr("No item has “%1” in its name.").arg(text);
    if (!mIsFound) return tr("Looking for likely homes …");
    return hasHomes ? tr("&New homes, the likeliest first")
                    : tr("Nothing in the source looks like it. Find its new home by name, below.");
}

void HomelessDialog::UpdateButtons() {
    const bool hasGone = mGone->currentItem() != nullptr;
    const bool hasHome = hasGone && mHomes->currentItem();
    // What the search looks at stays as it is.
    mAdopt->setEnabled(hasHome && mIsFound);
    mDelete->setEnabled(hasGone && mIsFound);
    mGoTo->setEnabled(hasHome);
    const QString reason =
        hasHome ? mHomes->currentItem()->data(0, kReasonRole).toString() : QString();
    mWhy->setText(reason.isEmpty() ? QString() : tr("Why: %1").arg(reason));
    mWhy->setVisible(!reason.isEmpty());
}

void HomelessDialog::ShowNext() {
    const int row = mGone->indexOfTopLevelItem(mGone->currentItem());
    std::erase_if(mEntries,
                  [this](const auto& entry) { return mWork.CountOf(entry.QualifiedName) == 0; });
    FillGone();
    mResult->setVisible(true);
    const int last = mGone->topLevelItemCount() - 1;
    if (last < 0) return;
    mGone->setCurrentItem(mGone->topLevelItem(std::min(row, last)));
    mGone->setFocus();
}

void HomelessDialog::Adopt() {
    const std::string gone = GetChosen();
    const std::string home = ChosenHome();
    if (gone.empty() || home.empty()) return;
    const std::size_t count = mWork.CountOf(gone);
    const auto moves = mWork.Adopt(gone, home);
    if (moves.empty()) return;
    mResult->setText(MovedText(gone, home, count, moves.size() - 1));
    ShowNext();
}

void HomelessDialog::Delete() {
    const std::string gone = GetChosen();
    if (gone.empty()) return;
    const std::size_t count = mWork.CountOf(gone);
    QMessageBox box(QMessageBox::Question, tr("Delete Comments"),
                    tr("Delete %1 of “%2”?").arg(CommentsText(count), ShownName(gone)),
                    QMessageBox::Cancel, this);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("They are in the files until the project is saved."));
    QPushButton* remove = box.addButton(tr("&Delete Comments"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.setEscapeButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() != remove) return;
    mWork.Delete(gone);
    mResult->setText(tr("Deleted %1 of %2.").arg(CommentsText(count), ShownName(gone)));
    ShowNext();
}

void HomelessDialog::GoToHome() {
    mDestination = ChosenHome();
    if (!mDestination.empty()) accept();
}

// Return in the search field means what was found, and not that it is adopted unseen.
bool HomelessDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != mSearch || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Down && key != Qt::Key_Up)
        return QDialog::eventFilter(watched, event);
    if (mHomes->topLevelItemCount() > 0) mHomes->setFocus();
    return true;
}

} // namespace paperkite
