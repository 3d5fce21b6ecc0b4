#pragma once

#include "foundation/SpellQuestion.h"

#include <QDialog>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTextEdit;

namespace paperkite {

/// Asks what becomes of one misspelt word: shows it in its sentence, with suggestions. Closing the
/// dialog ends the check.
class SpellDialog : public QDialog {
public:
    SpellDialog(const SpellQuestion& question, QWidget* parent);

    /// Shows the dialog and waits.
    static SpellAnswer Ask(const SpellQuestion& question, QWidget* parent);

    const SpellAnswer& GetAnswer() const { return mAnswer; }

private:
    QWidget* MakeSentence();
    QWidget* MakeSuggestions();
    QWidget* MakeActions();
    QPushButton* AddAction(QWidget* parent, const QString& text, const QString& toolTip,
                           SpellAction action);
    void Finish(SpellAction action);
    void UpdateButtons();

    const SpellQuestion& mQuestion;
    SpellAnswer mAnswer;
    QLineEdit* mReplacement = nullptr;
    QListWidget* mSuggestions = nullptr;
    QPushButton* mChange = nullptr;
    QPushButton* mChangeAll = nullptr;
};

} // namespace paperkite
