#pragma once

#include "model/MergeConflicts.h"

#include <QDialog>
#include <QString>

#include <optional>
#include <vector>

class QButtonGroup;
class QLabel;
class QPlainTextEdit;
class QTreeWidget;

namespace paperkite {

/// Lists comments of which there are two versions, shows the texts of the one that is selected side
/// by side, and lets the author say which version of each is kept.
class VersionsDialog : public QDialog {
public:
    struct Row {
        QString Item;
        QString Tag;
        /// What happened: "New", "Changed", "Changed on both sides" …
        QString State;
        /// Nothing: there is no such version.
        std::optional<QString> Base;
        std::optional<QString> Ours;
        std::optional<QString> Theirs;
        bool MayKeepBoth = true;
        Keeping Choice = Keeping::Ours;
    };

    struct Words {
        QString Title;
        QString Introduction;
        QString Base;
        QString Ours;
        QString Theirs;
        /// Said where a version is not there.
        QString NoBase;
        QString NoOurs;
        QString NoTheirs;
        QString Accept;
        /// Empty: there is no such button.
        QString Discard;
        QString Later;
    };

    enum class Answer { Later, Accepted, Discarded };

    VersionsDialog(const Words& words, std::vector<Row> rows, QWidget* parent);

    Answer Ask();
    /// What was chosen, for each row.
    std::vector<Keeping> GetChoices() const;

private:
    QWidget* MakeTexts();
    QWidget* MakeChoices();
    void FillList();
    void ShowRow(int row);
    void Choose(Keeping keeping);
    QString ChoiceText(const Row& row) const;

    Words mWords;
    std::vector<Row> mRows;
    QTreeWidget* mList;
    QPlainTextEdit* mBase = nullptr;
    QPlainTextEdit* mOurs = nullptr;
    QPlainTextEdit* mTheirs = nullptr;
    QWidget* mBasePane = nullptr;
    QButtonGroup* mChoices = nullptr;
    Answer mAnswer = Answer::Later;
};

} // namespace paperkite
