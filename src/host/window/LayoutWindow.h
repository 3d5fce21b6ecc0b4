#pragma once

#include "host/LayoutFile.h"
#include "host/Workspace.h"
#include "pagelayout/MetaDocumentEdit.h"
#include "platform/qt/ViewFactory.h"
#include "widgets/TreeControl.h"

#include <QHash>
#include <QMainWindow>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QTimer;

namespace paperkite {

/// The window in which the layouts of page templates are edited: templates and layouts at the left,
/// the layout in three views beside them. Its preview is the finished page of an item of the open
/// project.
class LayoutWindow : public QMainWindow {
public:
    /// The factory must outlive the window.
    LayoutWindow(ViewFactory& factory, QWidget* parent);
    ~LayoutWindow() override;

    /// Whose items previews show; nothing closes the previews. It must live until this is called
    /// again.
    void SetWorkspace(Workspace* workspace);
    /// Lists the templates anew, and opens a layout of one of them; without a layout the first one
    /// that serves the open item.
    void ShowLayout(const Ref<PageTemplate>& from, const std::string& layout = {});
    /// Asks about unsaved work; false when the author wants to go on with it. Nothing is given up
    /// yet.
    bool MayGiveUp();
    /// From now on nobody asks about the work that is not saved.
    void GiveUp() { mEdit->SetDirty(false); }
    bool HasLayout() const { return mFile != nullptr; }

    MetaDocumentEdit& GetEdit() const { return *mEdit; }
    /// The action of a menu entry by its name ("Save", "AddElement" …), or nullptr.
    QAction* GetAction(const QString& name) const { return mActions.value(name); }
    const Ref<HtmlEdit>& GetPreview() const { return mPreview; }
    /// The item whose page the preview shows; empty for none.
    const std::string& GetPreviewItem() const { return mPreviewItem; }
    void SetPreviewItem(const std::string& qualifiedName);
    bool Save();

    /// Called when a layout was stored.
    std::function<void()> Saved;

protected:
    /// Reads a file again that somebody else changed, unless the author changed the layout too.
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct Place {
        Ref<PageTemplateDocument> Template;
        Ref<PageLayout> Layout;
    };

    // Menus
    void MakeActions();
    QAction* AddAction(QMenu& menu, const char* name, const QString& text, const char* icon,
                       const QKeySequence& key, std::function<void()> run);
    void MakeToolbar();
    void AddEditTool(QMenu& menu, const char* tool, const QString& text, const char* icon,
                     const QKeySequence& key);
    void AddElementAction(QMenu& menu, const char* name, const char* command, const QString& text,
                          const char* icon, const QKeySequence& key);
    void UpdateActions();

    // Layouts
    void MakeList();
    void FillList();
    void ChooseNode(const Ref<TreeNode>& node);
    bool Open(const Place& place);
    /// Shows what another program wrote into the file.
    void ReadChanges();
    /// Puts a layout into the editor; false where it was told that this cannot be.
    bool Show(const LayoutFile& file);
    /// Without a text, that the layout cannot be written where that is so.
    void ShowNotice(QString text);
    void ShowTitle();
    bool Store(LayoutFile::Others others);
    void SaveCopy();
    /// The text to be stored; false, and told, where there is none.
    bool ReadText(std::string& text);
    bool TellProblem(const FileProblem& problem);
    void CheckTags();
    void ShowHelp();

    // Preview
    void MakePreview();
    void ShowPreview();
    void ChoosePreviewItem();
    /// An item that the layout serves: the open one, or the first of the project.
    std::string FindItem() const;
    bool IsServed(const std::string& qualifiedName) const;

    ViewFactory& mFactory;
    Workspace* mWorkspace = nullptr;
    Ref<MetaDocumentEdit> mEdit;
    Ref<TreeControl> mList;
    Ref<HtmlEdit> mPreview;
    Ref<Container> mPreviewPane;
    Ref<Label> mPreviewNote;
    std::unordered_map<std::string, Place> mPlaces;
    std::unique_ptr<LayoutFile> mFile;
    std::optional<std::string> mChangesSeen;
    std::string mPreviewItem;
    bool mChoosing = false;
    /// What is wrong with tags of the layout, a line each.
    std::string mTagMistakes;
    QLabel* mNotice;
    QLabel* mPath;
    QLabel* mCount;
    QLabel* mModified;
    QTimer* mTagCheck;
    QHash<QString, QAction*> mActions;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
