#pragma once

#include "host/CommentSearch.h"
#include "host/LinkCheck.h"
#include "host/TextChanges.h"
#include "host/Workspace.h"
#include "host/window/ItemFinder.h"
#include "host/window/RecentProjects.h"
#include "host/window/SourcePane.h"
#include "platform/qt/Theme.h"
#include "platform/qt/ViewFactory.h"
#include "widgets/Label.h"

#include <QMainWindow>

#include <memory>
#include <vector>

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QStackedWidget;

namespace paperkite {

class BackgroundReading;
class CommentHistory;
class CoverageStatus;
class FindDialog;
class HomelessStatus;
class LayoutWindow;
class LinkDialogs;
class LinksDialog;
class ProjectLock;
class SafeKeeping;

/// The window of the desktop program: menus, the authoring components, the item's details and the
/// status bar. It owns the open project.
class MainWindow : public QMainWindow {
public:
    explicit MainWindow(Theme& theme);
    ~MainWindow() override;

    /// Opens a project, or asks what a new one is made of when the path is a folder without one.
    /// Tells the author what is wrong; the project that was open stays then.
    bool OpenPath(const QString& path);
    bool OpenProject(const QString& path);
    /// Makes a project and opens it.
    bool CreateProject(const ProjectSession::NewProject& wanted);
    /// Shows a project that is open already.
    void Present(std::unique_ptr<ProjectSession> session) { ShowProject(std::move(session)); }
    bool Save();
    bool SaveAs();
    /// Asks about unsaved work; false when the author wants to go on with it.
    bool CloseProject();
    /// Looks whether somebody else changed the files of the open project, as the window does each
    /// time that the author comes back to it.
    void LookAtDisk();
    /// Shows what a merge could not put together, and lets the author choose.
    void ResolveConflicts();
    /// What keeps the open project's unsaved work; nothing without a project.
    SafeKeeping* GetKeeping() const { return mKeeping.get(); }

    /// Nothing when no project is open.
    Workspace* GetWorkspace() const { return mWorkspace.get(); }
    /// The action of a menu entry by its name ("Save", "NextUndocumented" …), or nullptr.
    QAction* GetAction(const QString& name) const;
    /// The window of page layouts; nothing before it was opened.
    LayoutWindow* GetLayoutWindow() const { return mLayoutWindow; }

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Menus
    void MakeActions();
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeViewMenu();
    void MakeGoMenu();
    void MakeHelpMenu();
    void MakeToolbar();
    QAction* AddAction(QMenu& menu, const char* name, const QString& text, const char* icon,
                       const QKeySequence& key, void (MainWindow::*slot)());
    void AddTreeOption(QMenu& menu, const char* command, const QString& text);
    void FillTemplateMenu();
    /// The kinds of comments as a tool bar above the surfaces instead of the bar beside them.
    void ShowTypesAsToolbar(bool value);
    void SetTemplate(const Ref<PageTemplate>& value);
    void ShowLayouts();
    /// A layout is another one: the page that is shown is made anew.
    void LayoutSaved();
    /// The template that the author chose last, if it is there, and the form of the bar.
    void RestoreTemplate();
    void AddScheme(QMenu& menu, QActionGroup& group, const QString& text, ColourScheme scheme);
    void FillRecentMenu();
    void UpdateActions();

    // Projects
    void New();
    void Open();
    void SaveFromMenu() { Save(); }
    void SaveAsFromMenu() { SaveAs(); }
    void CloseFromMenu() { CloseProject(); }
    void Rescan();
    /// Reads what changed since the last time, or what is missing, beside the window; goes on with
    /// a reading where one was begun.
    void ReadInBackground(std::unique_ptr<RunningReading> begun = nullptr);
    void TakeReading(SourceReading reading);
    /// Offers to read again where reading ended before all was read.
    void SayIfPartOnly();
    /// Lets nothing claim to be all while only a part is read.
    void ShowWhetherAll();
    void TakeCode(ProjectSession::ScannedCode code);
    /// Whether new code would take something from under the author's hands.
    bool IsAuthorBusy() const;
    void ShowProject(std::unique_ptr<ProjectSession> session,
                     std::unique_ptr<RunningReading> rest = nullptr);
    bool ShowOpened(ProjectSession::OpenResult opened, const std::string& failure,
                    const QString& title);
    void HideProject();
    void ConnectEditor();
    void AddFinder();
    void ShowTitle();
    bool SavedOrGivenUp();
    bool StoreOrAsk(bool asNew, const QString& path);

    // Safety
    void BeginKeeping(std::unique_ptr<SafeKeeping> keeping);
    void BeginKeepingAnew();
    void TellMissingFiles();
    bool ReadFilesAgain(const ProjectDocument::FileBytes& inPlace,
                        const ProjectDocument::FileBytes* seen = nullptr);
    bool MergeWithDisk();
    void OfferConflicts();
    bool SaveOverOthers(const FileProblem& problem);
    bool SaveReadOnly();
    std::unique_ptr<ProjectLock> WaitForWriters(const std::string& path);

    // Comments whose item is gone
    void MakeHomelessStatus();
    /// Looks anew how many there are, and tells it.
    void CountHomeless();
    void ShowHomeless();
    void NoteHomelessChange(const std::string& item);

    // Items
    void ShowItem(const Ref<TreeNode>& node);
    void ShowSource(const Ref<Object>& item);
    void NoteKeyInTree();
    void CommentsChanged(const Ref<Object>& item);
    /// Before the author writes: what the open item and its page hold now is what one gets back.
    void NoteChangeable();
    void Undo();
    void Redo();
    void AfterHistory(const std::vector<std::string>& items);
    void ShowHistory();
    /// What a screen reader says of a row: "documented", "private".
    std::string StateOf(const TreeNode& node) const;
    void NextSibling();
    void PreviousSibling();
    void NextUndocumented();
    void PreviousUndocumented();
    void MoveTo(const Ref<TreeNode>& node);
    /// False, and the author is told, when the tree does not show the item.
    bool GoTo(const std::string& qualifiedName);
    void FocusFinder();
    void CopyComments();
    void PasteComments();
    void ClickTreeCommand(const char* name);
    /// Composes a link where the author writes.
    void InsertLink();
    void ShowProperties();

    // Searching and spelling
    void FindInComments();
    void FindNextInComments();
    FindDialog& Finding();
    void ShowHit(const std::string& item, const SearchOptions& options);
    void CheckLinks();
    void ShowLink(const LinkCheck::Link& link);
    void CheckSpelling();
    void CheckSpellingOfProject();
    /// False, and the author is told why, when words cannot be checked.
    bool CanCheckSpelling();
    /// Tells why the project's file of words cannot be read, if so.
    void TellWordsProblem();
    /// Back from the HTML and the preview: only what is written on can be searched and checked.
    void ShowNormalViews();
    void ShowSpellingOptions();
    /// Makes changes from outside the editor, as one step of that name; gives how many comments
    /// were left alone, since they say something else by now.
    std::size_t ChangeTexts(const TextChanges::Changes& changes, const std::string& caption);

    // Appearance
    void LargerText() { ScaleText(10); }
    void SmallerText() { ScaleText(-10); }
    void ScaleText(int change);
    void SetScheme(ColourScheme scheme);
    void RestoreAppearance();
    void KeepAppearance();
    void About();
    QWidget* MakeStartPage();
    void ShowRecentLinks();

    Theme& mTheme;
    ViewFactory mFactory;
    RecentProjects mRecent;
    std::unique_ptr<Workspace> mWorkspace;
    std::unique_ptr<SafeKeeping> mKeeping;
    std::unique_ptr<CommentHistory> mHistory;
    std::unique_ptr<LinkDialogs> mLinks;
    /// Files that somebody else changed and the author did not want to merge yet.
    std::vector<std::string> mNotMerged;
    bool mLooking = false;
    bool mMayOverwrite = false;
    Ref<SourcePane> mSourcePane;
    Ref<Label> mNoItem;
    Ref<ItemFinder> mFinder;
    QStackedWidget* mPages;
    QWidget* mAuthoring = nullptr;
    QMenu* mRecentMenu = nullptr;
    QMenu* mTemplateMenu = nullptr;
    QLabel* mRecentLinks = nullptr;
    FindDialog* mFindDialog = nullptr;
    LayoutWindow* mLayoutWindow = nullptr;
    LinksDialog* mLinksDialog = nullptr;
    QLabel* mPath;
    QLabel* mModified;
    CoverageStatus* mCoverage;
    BackgroundReading* mReading;
    HomelessStatus* mHomeless = nullptr;
    std::size_t mHomelessCount = 0;
    /// The one at which the author went to look at an item.
    std::string mLastHomeless;
    QHash<QString, QAction*> mActions;
    /// Set while the tree works on a key.
    bool mKeyInTree = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
