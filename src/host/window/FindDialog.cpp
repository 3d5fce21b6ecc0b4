#include "host/window/FindDialog.h"

#include "host/window/DialogParts.h"
#include "host/window/HitDelegate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <set>

namespace paperkite {

namespace {

constexpr QSize kFirstSize(820, 520);
constexpr int kItemWidth = 260;
constexpr int kTagWidth = 130;
constexpr int kTextColumn = 2;
constexpr int kHitRole = Qt::UserRole + 1;
/// More than anybody reads; a list of all would keep the author waiting.
constexpr std::size_t kMostRows = 5000;

QString CommentCount(std::size_t count) {
    return count == 1 ? QObject::tr("1 comment") : QObject::tr("%L1 comments").arg(count);
}

std::size_t HitOf(const QTreeWidgetItem& row) {
    return row.data(0, kHitRole).toULongLong();
}

} // namespace

FindDialog::FindDialog(Workspace& workspace, QWidget* parent)
    : QDialog(parent), mWorkspace(workspace) {
    dialogs::Begin(*this, "FindDialog", tr("Find and Replace in Comments"), kFirstSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(8);
    column->addWidget(MakeTexts());
    column->addWidget(MakeOptions());
    MakeList();
    column->addWidget(mList, 1);
    mResult = new QLabel(this);
    mResult->setObjectName("Result");
    mResult->setWordWrap(true);
    column->addWidget(mResult);
    column->addWidget(MakeButtons());
    UpdateButtons();
}

QWidget* FindDialog::MakeTexts() {
    auto* pane = new QWidget(this);
    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](int row, const char* name, const QString& text) {
        auto* label = new QLabel(text, pane);
        auto* edit = new QLineEdit(pane);
        edit->setObjectName(name);
        label->setBuddy(edit);
        grid->addWidget(label, row, 0);
        grid->addWidget(edit, row, 1);
        return edit;
    };
    mText = add(0, "Text", tr("Fi&nd:"));
    mReplacement = add(1, "Replacement", tr("Replace &with:"));
    auto* label = new QLabel(tr("L&ook in:"), pane);
    mScope = new QComboBox(pane);
    mScope->setObjectName("Scope");
    mScope->addItems({tr("The whole project"), tr("This item and what is in it")});
    label->setBuddy(mScope);
    grid->addWidget(label, 2, 0);
    grid->addWidget(mScope, 2, 1, Qt::AlignLeft);
    connect(mText, &QLineEdit::textChanged, this, [this] { Forget(); });
    connect(mScope, &QComboBox::currentIndexChanged, this, [this] { Forget(); });
    connect(mReplacement, &QLineEdit::textChanged, this, [this](const QString& text) {
        static_cast<HitDelegate*>(mList->itemDelegateForColumn(kTextColumn))->Replacement = text;
        mList->viewport()->update();
        UpdateButtons();
    });
    return pane;
}

QCheckBox* FindDialog::AddOption(QWidget* parent, const char* name, const QString& text) {
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(name);
    connect(box, &QCheckBox::toggled, this, [this] { Forget(); });
    parent->layout()->addWidget(box);
    return box;
}

QWidget* FindDialog::MakeOptions() {
    auto* pane = new QWidget(this);
    auto* line = new QHBoxLayout(pane);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(16);
    mWholeWord = AddOption(pane, "WholeWord", tr("Whole words &only"));
    mCaseSensitive = AddOption(pane, "CaseSensitive", tr("&Match case"));
    mInHtml = AddOption(pane, "SearchInHTML", tr("In the &HTML"));
    mInHtml->setToolTip(tr("Looks at the tags too. A replacement may change them"));
    line->addStretch(1);
    return pane;
}

void FindDialog::MakeList() {
    mList = dialogs::MakeRowList({tr("Item"), tr("Comment"), tr("Text")}, this);
    mList->setObjectName("Hits");
    mList->setAccessibleName(tr("What was found"));
    mList->setTextElideMode(Qt::ElideLeft);
    mList->setColumnWidth(0, kItemWidth);
    mList->setColumnWidth(1, kTagWidth);
    auto* delegate = new HitDelegate(mList);
    delegate->ContextOf = [this](const QModelIndex& index) -> const TextContext* {
        const auto* row = mList->topLevelItem(index.row());
        const std::size_t hit = row ? HitOf(*row) : mHits.size();
        return hit < mHits.size() ? &mHits[hit].Context : nullptr;
    };
    mList->setItemDelegateForColumn(kTextColumn, delegate);
    connect(mList, &QTreeWidget::itemActivated, this, [this](auto* row) { ShowRow(row); });
    connect(mList, &QTreeWidget::itemDoubleClicked, this, [this](auto* row) { ShowRow(row); });
    connect(mList, &QTreeWidget::itemChanged, this, [this] { UpdateButtons(); });
}

QWidget* FindDialog::MakeButtons() {
    auto* buttons = new QWidget(this);
    auto* line = new QHBoxLayout(buttons);
    line->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* name, const QString& text, auto slot) {
        auto* button = dialogs::AddButton(buttons, name, text);
        connect(button, &QPushButton::clicked, this, slot);
        return button;
    };
    mReplace = add("Replace", tr("&Replace What Is Ticked"), [this] { Replace(); });
    line->addStretch(1);
    mNext = add("Next", tr("Go to &Next"), [this] { FindNext(); });
    add("Find", tr("&Find All"), [this] { Search(); })->setDefault(true);
    add("Close", tr("&Close"), [this] { reject(); });
    return buttons;
}

void FindDialog::SetItem(const std::string& qualifiedName) {
    if (mItem == qualifiedName) return;
    mItem = qualifiedName;
    if (!IsWholeProject()) Forget();
}

void FindDialog::Begin(const QString& text) {
    if (!text.isEmpty()) mText->setText(text);
    mText->setFocus();
    mText->selectAll();
}

SearchOptions FindDialog::Options() const {
    SearchOptions options;
    options.SearchFor = mText->text().toStdString();
    options.WholeWord = mWholeWord->isChecked();
    options.CaseSensitive = mCaseSensitive->isChecked();
    options.SearchInHTML = mInHtml->isChecked();
    return options;
}

bool FindDialog::IsWholeProject() const {
    return mScope->currentIndex() == 0;
}

bool FindDialog::IsInScope(const std::string& item) const {
    return IsWholeProject() || item == mItem || item.starts_with(mItem + "~");
}

void FindDialog::Forget() {
    if (!mIsSearched) return UpdateButtons();
    mIsSearched = false;
    mHits.clear();
    mList->clear();
    mResult->clear();
    UpdateButtons();
}

void FindDialog::Search() {
    Forget();
    if (mText->text().isEmpty()) {
        mResult->setText(tr("Type the text to look for."));
        mText->setFocus();
        return;
    }
    mWorkspace.GetEditor().CommitEdit();
    mHits = CommentSearch(Options()).Find(*mWorkspace.GetSession().GetProject()->GetComments());
    std::erase_if(mHits, [this](const auto& hit) { return !IsInScope(hit.Item); });
    mIsSearched = true;
    FillList();
    std::set<std::pair<std::string, std::string>> comments;
    for (const auto& hit : mHits)
        comments.emplace(hit.Item, hit.CommentId);
    if (mHits.empty())
        mResult->setText(tr("“%1” was not found.").arg(mText->text()));
    else if (mHits.size() > kMostRows)
        mResult->setText(tr("Found %L1 times; the first %L2 are shown, and can be replaced. Look "
                            "for more letters to see the others.")
                             .arg(mHits.size())
                             .arg(kMostRows));
    else
        mResult->setText(mHits.size() == 1 ? tr("Found once.")
                                           : tr("Found %L1 times in %2.")
                                                 .arg(mHits.size())
                                                 .arg(CommentCount(comments.size())));
    UpdateButtons();
}

void FindDialog::FillList() {
    const QSignalBlocker quiet(mList);
    QList<QTreeWidgetItem*> rows;
    for (std::size_t index = 0; index < std::min(mHits.size(), kMostRows); ++index) {
        const auto& hit = mHits[index];
        const QString item = QString::fromStdString(hit.Item).replace('~', " ~ ");
        auto* row = new QTreeWidgetItem(
            {item, QString::fromStdString(hit.Name), QString::fromStdString(hit.Context.Line)});
        row->setData(0, kHitRole, static_cast<qulonglong>(index));
        row->setCheckState(0, Qt::Checked);
        row->setToolTip(0, item);
        row->setSizeHint(0, dialogs::RowSize(*mList));
        rows.append(row);
    }
    mList->addTopLevelItems(rows);
}

std::vector<CommentSearch::Hit> FindDialog::Ticked() const {
    std::vector<CommentSearch::Hit> hits;
    for (int row = 0; row < mList->topLevelItemCount(); ++row) {
        const auto* item = mList->topLevelItem(row);
        if (item->checkState(0) == Qt::Checked) hits.push_back(mHits[HitOf(*item)]);
    }
    return hits;
}

void FindDialog::UpdateButtons() {
    if (!mReplace) return;
    bool isAnyTicked = false;
    for (int row = 0; row < mList->topLevelItemCount() && !isAnyTicked; ++row)
        isAnyTicked = mList->topLevelItem(row)->checkState(0) == Qt::Checked;
    mReplace->setEnabled(isAnyTicked && mReplacement->text() != mText->text());
    mNext->setEnabled(!mText->text().isEmpty());
}

void FindDialog::FindNext() {
    if (!mIsSearched) Search();
    const int count = mList->topLevelItemCount();
    if (count == 0) return;
    const int next = (mList->indexOfTopLevelItem(mList->currentItem()) + 1) % count;
    mList->setCurrentItem(mList->topLevelItem(next));
    ShowRow(mList->topLevelItem(next));
}

void FindDialog::ShowRow(QTreeWidgetItem* row) {
    if (row && ShowHit) ShowHit(mHits[HitOf(*row)].Item, Options());
}

void FindDialog::Replace() {
    const auto hits = Ticked();
    if (hits.empty() || !Apply) return;
    const CommentSearch search(Options());
    const auto changes = search.Plan(*mWorkspace.GetSession().GetProject()->GetComments(), hits,
                                     mReplacement->text().toStdString());
    const std::size_t passedOver =
        Apply(changes, "Replacing \"" + mText->text().toStdString() + "\"");
    const std::size_t changed = changes.size() - std::min(passedOver, changes.size());
    Forget();
    QString text = tr("Replaced in %1. Undo takes all of it back.").arg(CommentCount(changed));
    if (passedOver > 0)
        text += ' ' + tr("Left alone, since something else is there by now: %1.")
                          .arg(CommentCount(passedOver));
    mResult->setText(text);
}

} // namespace paperkite
