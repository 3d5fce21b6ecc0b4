#pragma once

#include "host/HomelessWork.h"

#include <QDialog>

#include <string>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTextEdit;
class QTreeWidget;

namespace paperkite {

/// Lists the items that are gone, shows the comments of the one that is chosen and where they may
/// belong now, and lets the author give them to another item or delete them. Each is done at once.
///
/// The likeliest homes are looked for when the dialog is shown; it can be used and closed
/// meanwhile.
class HomelessDialog : public QDialog {
public:
    HomelessDialog(HomelessWork& work, QWidget* parent);

    /// Chooses an item that is gone; the first one when it is not among them any more.
    void Choose(const std::string& gone);
    /// The item that is gone and chosen; empty when there is none left.
    std::string GetChosen() const;
    /// The item to go to; empty when the author only closed the dialog.
    const std::string& GetDestination() const { return mDestination; }

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeGone();
    QWidget* MakeComments();
    QWidget* MakeHomes();
    QWidget* MakeDone();
    QWidget* MakeButtons();
    QPushButton* AddButton(const QString& text, void (HomelessDialog::*slot)());
    void SetOrder();

    void FindHomes();
    void FillGone();
    void ShowChosen();
    void ShowComments(const std::string& gone);
    void ShowHomes();
    void FillHomes(const std::vector<HomelessWork::Home>& homes);
    QString HomesHint(const HomelessWork::Entry* entry, bool hasHomes) const;
    void UpdateButtons();
    void ShowNext();

    void Adopt();
    void Delete();
    void GoToHome();
    const HomelessWork::Entry* EntryOf(const std::string& gone) const;
    std::string ChosenHome() const;

    HomelessWork& mWork;
    std::vector<HomelessWork::Entry> mEntries;
    /// Whether the homes are known.
    bool mIsFound = false;
    bool mIsFinding = false;
    std::string mDestination;
    QStackedWidget* mPages;
    QTreeWidget* mGone = nullptr;
    QLabel* mCommentsLabel = nullptr;
    QTextEdit* mComments = nullptr;
    QLineEdit* mSearch = nullptr;
    QLabel* mHomesHint = nullptr;
    QTreeWidget* mHomes = nullptr;
    QLabel* mWhy = nullptr;
    QLabel* mResult = nullptr;
    QPushButton* mAdopt = nullptr;
    QPushButton* mGoTo = nullptr;
    QPushButton* mDelete = nullptr;
    QPushButton* mClose = nullptr;
};

} // namespace paperkite
