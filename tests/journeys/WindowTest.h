#pragma once

#include "foundation/Services.h"
#include "host/window/MainWindow.h"
#include "journeys/DialogAnswers.h"
#include "platform/qt/PropertiesTable.h"
#include "platform/qt/TreeView.h"
#include "support/EnvironmentChange.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

class QCheckBox;

namespace paperkite::test {

/// The real main window on a small code base, driven with the mouse and the keyboard.
class WindowTest : public testing::Test {
protected:
    WindowTest();
    ~WindowTest() override;

    std::string ProjectFile() const { return mFolder / "zoo.kiteproject"; }
    /// Makes the project "Our Zoo" on the disk.
    void MakeProject();
    /// Opens it in the window.
    void OpenProject();
    /// Shows a window, as a new start of the program does.
    void Start();

    // What the author sees

    std::string Title() const;
    bool IsTitleMarked() const { return mWindow->isWindowModified(); }
    /// All texts of the status bar.
    std::string Status() const;
    std::string Selected() const;
    std::string TextOf(const std::string& item, const std::string& tag) const;
    /// What a screen reader says of a row of the tree.
    std::string Spoken(const std::string& item) const;
    bool IsShown(const std::string& item) const { return FindIndex(item).isValid(); }

    // What the author does

    void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void ClickExpander(const std::string& item);
    void ClickItem(const std::string& item);
    /// Clicks the offered row of a tag, then its button; its editor is open afterwards.
    void ClickAdd(const std::string& tag);
    void WriteComment(const std::string& tag, const QString& text);
    QCheckBox* Flag(const std::string& caption) const;

    TreeView& Tree() const;
    PropertiesTable& Tags() const;
    CommentEditor& Editor() const { return mWindow->GetWorkspace()->GetEditor().cEditor; }
    QModelIndex FindIndex(const std::string& item, const QModelIndex& above = {}) const;
    Ref<PropertyItem> FindRow(const std::string& tag, bool offer) const;
    void Settle() const;

    TemporaryFolder mFolder;
    TemporaryFolder mCacheFolder;
    EnvironmentChange mCacheHome{"XDG_CACHE_HOME", mCacheFolder.Path()};
    Services mBefore;
    std::unique_ptr<Theme> mTheme;
    DialogAnswers mDialogs;
    std::unique_ptr<MainWindow> mWindow;
};

} // namespace paperkite::test
