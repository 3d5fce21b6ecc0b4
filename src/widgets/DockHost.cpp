#include "widgets/DockHost.h"

namespace paperkite {

namespace {

Ref<DockCommand> FindIn(const DockCommands& commands, const DockCommand& wanted) {
    for (const auto& command : commands) {
        if (command.get() == &wanted) return command;
        if (!command->GetIsPopup()) continue;
        if (auto found = FindIn(command->GetPopupCommands(), wanted)) return found;
    }
    return nullptr;
}

Ref<DockCommand> FindByName(const DockCommands& commands, const std::string& name) {
    if (auto found = commands.Find(name)) return found;
    for (const auto& command : commands)
        if (command->GetIsPopup())
            if (auto found = FindByName(command->GetPopupCommands(), name)) return found;
    return nullptr;
}

} // namespace

DockHost::DockHost(std::string name) : Control(std::move(name)) {
    mResized = ControlEvents.Resize.Connect([this](int, int) {
        if (!mHasClientRectangle) Events.ClientResize.Raise();
    });
}

DockHost::~DockHost() {
    for (const auto& toolbar : mToolbars)
        toolbar->mHost = nullptr;
}

Ref<DockToolbar> DockHost::AddToolbar(const std::string& name) {
    auto toolbar = MakeRef<DockToolbar>(this, name);
    mToolbars.Add(toolbar, name);
    TellToolbarsChanged();
    return toolbar;
}

DockPopupWindow& DockHost::PopupWindow(const std::string& name) {
    if (!mPopupWindows.Contains(name)) {
        auto window = MakeRef<DockPopupWindow>();
        window->Name = name;
        mPopupWindows.Add(window, name);
    }
    return *mPopupWindows.Item(name);
}

bool DockHost::HasPopupWindow(const std::string& name) const {
    return mPopupWindows.Contains(name);
}

Bounds DockHost::GetClientRectangle() const {
    return mHasClientRectangle ? mClientRectangle : Bounds{0, 0, GetWidth(), GetHeight()};
}

void DockHost::ShowMenu(DockCommand& popup, int x, int y) {
    Tell<DockHostObserver>([&](DockHostObserver& observer) { observer.MenuWanted(popup, x, y); });
}

void DockHost::SuspendPainting() {
    ++mSuspended;
}

void DockHost::ResumePainting() {
    if (mSuspended == 0 || --mSuspended > 0) return;
    if (std::exchange(mTouched, false)) TellToolbarsChanged();
}

void DockHost::UserClick(const Ref<DockCommand>& command) {
    if (!AcceptsGestures() || !command->GetEnabled() || !command->GetVisible()) return;
    if (!FindCommand(*command)) return;
    if (HasPopupWindow(command->GetName())) Events.PopupWindowShowing.Raise(command->GetName());
    Events.CommandClick.Raise(command);
}

void DockHost::UserClick(const std::string& commandName) {
    const Ref<DockCommand> command = FindByName(Commands, commandName);
    if (!command)
        RaiseError(ErrorNumber::InvalidCall, "There is no command \"" + commandName + "\"");
    UserClick(command);
}

void DockHost::UserClientResize(const Bounds& rectangle) {
    if (mHasClientRectangle && mClientRectangle == rectangle) return;
    mHasClientRectangle = true;
    mClientRectangle = rectangle;
    Events.ClientResize.Raise();
}

void DockHost::TellToolbarsChanged() {
    if (mSuspended > 0) {
        mTouched = true;
        return;
    }
    Tell<DockHostObserver>([](DockHostObserver& view) { view.ToolbarsChanged(); });
}

void DockHost::TellCommandChanged(DockCommand& command) {
    if (mSuspended > 0) {
        mTouched = true;
        return;
    }
    Tell<DockHostObserver>([&](DockHostObserver& view) { view.CommandChanged(command); });
}

void DockHost::TakeOffToolbars(const Ref<DockCommand>& command) {
    for (const auto& toolbar : mToolbars)
        toolbar->Remove(command);
    TellToolbarsChanged();
}

Ref<DockCommand> DockHost::FindCommand(const DockCommand& command) const {
    return FindIn(Commands, command);
}

} // namespace paperkite
