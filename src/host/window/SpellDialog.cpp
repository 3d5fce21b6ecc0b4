#include "host/window/SpellDialog.h"

#include "host/window/DialogParts.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

namespace paperkite {

namespace {

constexpr QSize kFirstSize(560, 380);
constexpr int kSentenceLines = 4;

} // namespace

SpellDialog::SpellDialog(const SpellQuestion& question, QWidget* parent)
    : QDialog(parent), mQuestion(question) {
    dialogs::Begin(*this, "SpellDialog", tr("Spelling"), kFirstSize);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(12, 12, 12, 12);
    grid->setHorizontalSpacing(12);
    grid->addWidget(MakeSentence(), 0, 0);
    grid->addWidget(MakeSuggestions(), 1, 0);
    grid->addWidget(MakeActions(), 0, 1, 2, 1);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 1);
    UpdateButtons();
    mReplacement->setFocus();
    mReplacement->selectAll();
}

SpellAnswer SpellDialog::Ask(const SpellQuestion& question, QWidget* parent) {
    SpellDialog dialog(question, parent);
    dialog.exec();
    return dialog.GetAnswer();
}

QWidget* SpellDialog::MakeSentence() {
    auto* pane = new QWidget(this);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(tr("&Not in the dictionary:"), pane);
    auto* sentence = new QTextEdit(pane);
    sentence->setObjectName("Sentence");
    sentence->setReadOnly(true);
    sentence->setTabChangesFocus(true);
    sentence->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    sentence->setFixedHeight(sentence->fontMetrics().lineSpacing() * kSentenceLines +
                             2 * sentence->frameWidth() + 8);
    sentence->setPlainText(QString::fromStdString(mQuestion.Sentence));
    QTextCursor word(sentence->document());
    const auto before = QString::fromStdString(mQuestion.Sentence.substr(0, mQuestion.At)).size();
    word.setPosition(static_cast<int>(before));
    word.setPosition(static_cast<int>(before + QString::fromStdString(mQuestion.Word).size()),
                     QTextCursor::KeepAnchor);
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
    format.setUnderlineColor(Qt::red);
    word.mergeCharFormat(format);
    label->setBuddy(sentence);
    column->addWidget(label);
    column->addWidget(sentence);
    return pane;
}

QWidget* SpellDialog::MakeSuggestions() {
    auto* pane = new QWidget(this);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    auto* toLabel = new QLabel(tr("Change &to:"), pane);
    mReplacement = new QLineEdit(pane);
    mReplacement->setObjectName("Replacement");
    toLabel->setBuddy(mReplacement);
    auto* label = new QLabel(tr("&Suggestions:"), pane);
    mSuggestions = new QListWidget(pane);
    mSuggestions->setObjectName("Suggestions");
    for (const std::string& suggestion : mQuestion.Suggestions)
        mSuggestions->addItem(QString::fromStdString(suggestion));
    label->setBuddy(mSuggestions);
    const bool hasAny = mSuggestions->count() > 0;
    mReplacement->setText(hasAny ? mSuggestions->item(0)->text()
                                 : QString::fromStdString(mQuestion.Word));
    if (hasAny) mSuggestions->setCurrentRow(0);
    connect(mSuggestions, &QListWidget::currentTextChanged, mReplacement, &QLineEdit::setText);
    connect(mSuggestions, &QListWidget::itemActivated, this,
            [this] { Finish(SpellAction::Change); });
    connect(mReplacement, &QLineEdit::textChanged, this, [this] { UpdateButtons(); });
    for (QWidget* widget : std::initializer_list<QWidget*>{toLabel, mReplacement, label})
        column->addWidget(widget);
    column->addWidget(mSuggestions, 1);
    return pane;
}

QPushButton* SpellDialog::AddAction(QWidget* parent, const QString& text, const QString& toolTip,
                                    SpellAction action) {
    auto* button = new QPushButton(text, parent);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, action] { Finish(action); });
    parent->layout()->addWidget(button);
    return button;
}

QWidget* SpellDialog::MakeActions() {
    auto* pane = new QWidget(this);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    AddAction(pane, tr("&Ignore"), tr("Leaves the word this time"), SpellAction::Ignore);
    AddAction(pane, tr("I&gnore All"), tr("Passes the word over from now on, in this project"),
              SpellAction::IgnoreAll);
    AddAction(pane, tr("&Add"), tr("Has the word learnt, for everybody who works on this project"),
              SpellAction::Add);
    column->addSpacing(12);
    mChange = AddAction(pane, tr("&Change"), tr("Writes the other text in its place"),
                        SpellAction::Change);
    mChange->setDefault(true);
    mChangeAll = AddAction(pane, tr("Change A&ll"), tr("Changes the word wherever it comes again"),
                           SpellAction::ChangeAll);
    column->addStretch(1);
    AddAction(pane, tr("&Options …"), tr("Which words are checked, and by which dictionary"),
              SpellAction::Options);
    AddAction(pane, tr("Cancel"), tr("Ends the check; what was changed stays"),
              SpellAction::Cancel);
    return pane;
}

void SpellDialog::Finish(SpellAction action) {
    mAnswer = {action, mReplacement->text().toStdString()};
    accept();
}

void SpellDialog::UpdateButtons() {
    const bool isOther = mReplacement->text() != QString::fromStdString(mQuestion.Word);
    mChange->setEnabled(isOther);
    mChangeAll->setEnabled(isOther);
}

} // namespace paperkite
