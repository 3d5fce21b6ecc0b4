#pragma once

#include "host/LinkCheck.h"
#include "host/Workspace.h"

#include <QDialog>

#include <functional>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace paperkite {

/// Lists the links in all comments of the project, or those that lead nowhere with what is wrong
/// with each, and goes to the comment of one. It stays beside the window.
class LinksDialog : public QDialog {
public:
    LinksDialog(Workspace& workspace, QWidget* parent);

    /// Looks at all comments anew; stays at the link that was chosen where it is still there.
    void Check();

    /// Goes to the comment that a link stands in.
    std::function<void(const LinkCheck::Link& link)> ShowLink;

private:
    QWidget* MakeChoice();
    QWidget* MakeButtons();
    void MakeList();
    void FillList();
    QTreeWidgetItem* MakeRow(std::size_t index) const;
    void ChooseRow(const LinkCheck::Link& wanted);
    void ShowNote();
    void ShowChosen();
    void GoTo(const QTreeWidgetItem* row);
    bool IsAll() const;
    /// The link of a row; nothing for none.
    const LinkCheck::Link* LinkOf(const QTreeWidgetItem* row) const;

    Workspace& mWorkspace;
    std::vector<LinkCheck::Link> mLinks;
    QComboBox* mShown = nullptr;
    QStackedWidget* mPages = nullptr;
    QTreeWidget* mList = nullptr;
    QLabel* mNote = nullptr;
    QLabel* mProblem = nullptr;
    QLabel* mResult = nullptr;
    QPushButton* mGoTo = nullptr;
};

} // namespace paperkite
