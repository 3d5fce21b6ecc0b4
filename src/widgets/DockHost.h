#pragma once

#include "foundation/Collection.h"
#include "widgets/Control.h"
#include "widgets/DockCommand.h"
#include "widgets/DockCommands.h"
#include "widgets/DockToolbar.h"

#include <string>

namespace paperkite {

/// Told beyond the common things. While painting is suspended nothing is told; at its end
/// ToolbarsChanged says it once.
class DockHostObserver : public ControlObserver {
public:
    /// Toolbars or their buttons came, went or changed visibility: read them again.
    virtual void ToolbarsChanged() {}

    virtual void CommandChanged(DockCommand& /*command*/) {}

    /// The commands of a pop-up are to be offered at a point of the screen.
    virtual void MenuWanted(DockCommand& /*popup*/, int /*x*/, int /*y*/) {}
};

enum class ToolbarStyle { IconsOnly, TextOnly, TextUnderIcons, TextBesideIcons };

/// A small window that a command opens below its button.
struct DockPopupWindow {
    std::string Name;
    Ref<Control> Content;
    int Width = 0;
    int Height = 0;
};

/// Toolbars along the edge of a client area.
///
///     auto dock = MakeRef<DockHost>("Dock");
///     auto next = dock->Commands.Add("Next", "Next");
///     dock->AddToolbar("Main")->Add(next);
///     auto tie = dock->Events.CommandClick.Connect([](const Ref<DockCommand>& command) { … });
class DockHost : public Control {
public:
    explicit DockHost(std::string name = {});
    ~DockHost() override;

    DockCommands Commands{this};

    /// A name that is already there raises error 457.
    Ref<DockToolbar> AddToolbar(const std::string& name);

    /// By name or by position from 1; error 5 or 9 when there is none.
    Ref<DockToolbar> GetToolbar(const std::string& name) const { return mToolbars.Item(name); }

    Ref<DockToolbar> GetToolbar(std::size_t position) const { return mToolbars.Item(position); }

    std::size_t GetToolbarCount() const { return mToolbars.Count(); }

    /// Buttons of all toolbars; a view applies it.
    ToolbarStyle GetToolbarStyle() const { return mToolbarStyle; }

    void SetToolbarStyle(ToolbarStyle value) { Assign(mToolbarStyle, value); }

    const Ref<ImageList>& GetImageList() const { return mImageList; }

    void SetImageList(const Ref<ImageList>& value) { Assign(mImageList, value); }

    /// Makes the window of that name on first use. A command of that name opens it.
    DockPopupWindow& PopupWindow(const std::string& name);
    bool HasPopupWindow(const std::string& name) const;

    /// What stands in the client area: a view puts it below the toolbars.
    const Ref<Control>& GetClient() const { return mClient; }

    void SetClient(const Ref<Control>& control) { Assign(mClient, control); }

    /// The room that the toolbars leave; the whole control where no view said otherwise.
    Bounds GetClientRectangle() const;

    /// Offers the commands of a pop-up as a menu at a point of the screen, in pixels, and comes
    /// back at once.
    void ShowMenu(DockCommand& popup, int x, int y);

    /// Painting stays suspended until every call is matched.
    void SuspendPainting();
    void ResumePainting();

    struct {
        Event<const Ref<DockCommand>&> CommandClick;
        /// The state of a check command changed; the click itself raises CommandClick only.
        Event<const Ref<DockCheckCommand>&> CommandCheck;
        Event<> ClientResize;
        Event<const std::string&> PopupWindowShowing; ///< name of the window, before it opens
    } Events;

    /// The author pressed a button or menu entry; a command that is disabled or invisible ignores
    /// it. A command with a pop-up window raises PopupWindowShowing first.
    void UserClick(const Ref<DockCommand>& command);
    void UserClick(const std::string& commandName);
    /// A view reports where the client area lies; a new one raises ClientResize.
    void UserClientResize(const Bounds& rectangle);

private:
    friend class DockCommand;
    friend class DockCheckCommand;
    friend class DockCommands;
    friend class DockToolbar;

    void TellToolbarsChanged();
    void TellCommandChanged(DockCommand& command);
    void TakeOffToolbars(const Ref<DockCommand>& command);
    Ref<DockCommand> FindCommand(const DockCommand& command) const;

    Collection<Ref<DockToolbar>> mToolbars{KeyComparison::IgnoringCase};
    Collection<Ref<DockPopupWindow>> mPopupWindows{KeyComparison::IgnoringCase};
    Ref<ImageList> mImageList;
    Ref<Control> mClient;
    Bounds mClientRectangle;
    bool mHasClientRectangle = false;
    ToolbarStyle mToolbarStyle = ToolbarStyle::IconsOnly;
    int mSuspended = 0;
    bool mTouched = false;
    Connection mResized;
};

} // namespace paperkite
