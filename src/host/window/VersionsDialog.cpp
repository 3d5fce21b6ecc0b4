#include "host/window/VersionsDialog.h"

#include "host/window/DialogParts.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace paperkite {

namespace {

constexpr int kItemColumn = 0;
constexpr int kChoiceColumn = 3;
constexpr int kNarrowestColumn = 96;

/// A text that can be read and not changed, under its name.
QWidget* MakePane(const QString& name, QPlainTextEdit*& text, QWidget* parent) {
    auto* pane = new QWidget(parent);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(name, pane);
    text = new QPlainTextEdit(pane);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setAccessibleName(name);
    label->setBuddy(text);
    column->addWidget(label);
    column->addWidget(text);
    return pane;
}

} // namespace

VersionsDialog::VersionsDialog(const Words& words, std::vector<Row> rows, QWidget* parent)
    : QDialog(parent), mWords(words), mRows(std::move(rows)) {
    setWindowTitle(words.Title);
    resize(820, 560);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    auto* introduction = new QLabel(words.Introduction, this);
    introduction->setWordWrap(true);
    column->addWidget(introduction);

    mList = new QTreeWidget(this);
    mList->setRootIsDecorated(false);
    mList->setUniformRowHeights(true);
    mList->setHeaderLabels({tr("Item"), tr("Tag"), tr("What happened"), tr("Keep")});
    mList->header()->setStretchLastSection(false);
    mList->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    mList->header()->setSectionResizeMode(kItemColumn, QHeaderView::Stretch);
    mList->header()->setMinimumSectionSize(kNarrowestColumn);
    mList->setAccessibleName(words.Title);
    column->addWidget(mList, 2);
    column->addWidget(MakeTexts(), 3);
    column->addWidget(MakeChoices());

    auto* buttons = new QDialogButtonBox(this);
    const auto addButton = [&](const QString& text, QDialogButtonBox::ButtonRole role,
                               Answer answer) {
        if (text.isEmpty()) return;
        auto* button = buttons->addButton(text, role);
        button->setDefault(answer == Answer::Accepted);
        connect(button, &QPushButton::clicked, this, [this, answer] {
            mAnswer = answer;
            answer == Answer::Later ? reject() : accept();
        });
    };
    addButton(words.Accept, QDialogButtonBox::AcceptRole, Answer::Accepted);
    addButton(words.Discard, QDialogButtonBox::DestructiveRole, Answer::Discarded);
    addButton(words.Later, QDialogButtonBox::RejectRole, Answer::Later);
    column->addWidget(buttons);
    FillList();
}

QWidget* VersionsDialog::MakeTexts() {
    auto* texts = new QSplitter(Qt::Horizontal, this);
    texts->setChildrenCollapsible(false);
    texts->addWidget(MakePane(mWords.Ours, mOurs, texts));
    texts->addWidget(MakePane(mWords.Theirs, mTheirs, texts));
    mBasePane = MakePane(mWords.Base, mBase, texts);
    texts->addWidget(mBasePane);
    const bool hasBase = std::any_of(mRows.begin(), mRows.end(),
                                     [](const Row& row) { return row.Base.has_value(); });
    mBasePane->setVisible(hasBase);
    return texts;
}

QWidget* VersionsDialog::MakeChoices() {
    auto* choices = new QWidget(this);
    auto* line = new QHBoxLayout(choices);
    line->setContentsMargins(0, 0, 0, 0);
    mChoices = new QButtonGroup(this);
    line->addWidget(new QLabel(tr("Keep:"), choices));
    for (const auto& [text, keeping] :
         std::initializer_list<std::pair<QString, Keeping>>{{mWords.Ours, Keeping::Ours},
                                                            {mWords.Theirs, Keeping::Theirs},
                                                            {tr("Both"), Keeping::Both}}) {
        auto* button = new QRadioButton(text, choices);
        mChoices->addButton(button, static_cast<int>(keeping));
        line->addWidget(button);
    }
    line->addStretch(1);
    connect(mChoices, &QButtonGroup::idClicked, this,
            [this](int id) { Choose(static_cast<Keeping>(id)); });
    return choices;
}

QString VersionsDialog::ChoiceText(const Row& row) const {
    if (row.Choice == Keeping::Both) return tr("Both");
    return row.Choice == Keeping::Ours ? mWords.Ours : mWords.Theirs;
}

void VersionsDialog::FillList() {
    for (const Row& row : mRows) {
        QString item = row.Item;
        auto* line = new QTreeWidgetItem(
            mList, {item.replace("~", " ~ "), row.Tag, row.State, ChoiceText(row)});
        line->setToolTip(kItemColumn, item);
        line->setSizeHint(kItemColumn, dialogs::RowSize(*mList));
    }
    connect(mList, &QTreeWidget::currentItemChanged, this,
            [this] { ShowRow(mList->indexOfTopLevelItem(mList->currentItem())); });
    if (!mRows.empty()) mList->setCurrentItem(mList->topLevelItem(0));
}

void VersionsDialog::ShowRow(int index) {
    if (index < 0) return;
    const Row& row = mRows[static_cast<std::size_t>(index)];
    const auto show = [](QPlainTextEdit& view, const std::optional<QString>& text,
                         const QString& otherwise) {
        view.setPlainText(text ? *text : QString());
        view.setPlaceholderText(text ? tr("(empty)") : otherwise);
    };
    show(*mOurs, row.Ours, mWords.NoOurs);
    show(*mTheirs, row.Theirs, mWords.NoTheirs);
    show(*mBase, row.Base, mWords.NoBase);
    mChoices->button(static_cast<int>(Keeping::Both))->setEnabled(row.MayKeepBoth);
    mChoices->button(static_cast<int>(row.Choice))->setChecked(true);
}

void VersionsDialog::Choose(Keeping keeping) {
    const int index = mList->indexOfTopLevelItem(mList->currentItem());
    if (index < 0) return;
    Row& row = mRows[static_cast<std::size_t>(index)];
    row.Choice = keeping;
    mList->topLevelItem(index)->setText(kChoiceColumn, ChoiceText(row));
}

VersionsDialog::Answer VersionsDialog::Ask() {
    exec();
    return mAnswer;
}

std::vector<Keeping> VersionsDialog::GetChoices() const {
    std::vector<Keeping> choices;
    for (const Row& row : mRows)
        choices.push_back(row.Choice);
    return choices;
}

} // namespace paperkite
