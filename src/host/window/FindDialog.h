#pragma once

#include "host/CommentSearch.h"

#include <QDialog>

#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace paperkite {

/// Finds a text in the comments of an item or of the whole project, lists what was found with what
/// a replacement makes of it, and replaces what is ticked. It stays beside the window.
class FindDialog : public QDialog {
public:
    FindDialog(Workspace& workspace, QWidget* parent);

    /// The item that "this item" means: what it has, and what stands inside it.
    void SetItem(const std::string& qualifiedName);
    /// Shows the next one found, from the top again behind the last; searches first where nothing
    /// was searched yet.
    void FindNext();
    /// Begins anew with a text; the text that was there stays where this one is empty.
    void Begin(const QString& text);

    /// Goes to where something was found.
    std::function<void(const std::string& item, const SearchOptions& options)> ShowHit;
    /// Makes the changes as one step of that name. Gives how many comments were left alone, since
    /// they say something else by now.
    std::function<std::size_t(const TextChanges::Changes& changes, const std::string& caption)>
        Apply;

private:
    QWidget* MakeTexts();
    QWidget* MakeOptions();
    QWidget* MakeButtons();
    void MakeList();
    QCheckBox* AddOption(QWidget* parent, const char* name, const QString& text);

    SearchOptions Options() const;
    bool IsWholeProject() const;
    bool IsInScope(const std::string& item) const;
    void Search();
    void Forget();
    void FillList();
    void UpdateButtons();
    void ShowRow(QTreeWidgetItem* row);
    void Replace();
    std::vector<CommentSearch::Hit> Ticked() const;

    Workspace& mWorkspace;
    std::string mItem;
    /// What was searched with, and found; empty when the fields say something else now.
    std::vector<CommentSearch::Hit> mHits;
    bool mIsSearched = false;
    QLineEdit* mText = nullptr;
    QLineEdit* mReplacement = nullptr;
    QComboBox* mScope = nullptr;
    QCheckBox* mWholeWord = nullptr;
    QCheckBox* mCaseSensitive = nullptr;
    QCheckBox* mInHtml = nullptr;
    QTreeWidget* mList = nullptr;
    QLabel* mResult = nullptr;
    QPushButton* mNext = nullptr;
    QPushButton* mReplace = nullptr;
};

} // namespace paperkite
