#include "widgets/DockCommands.h"

#include "widgets/DockHost.h"

namespace paperkite {

DockCommands::~DockCommands() {
    SetHost(nullptr);
}

void DockCommands::SetHost(DockHost* host) {
    mHost = host;
    for (const auto& command : mCommands)
        command->SetHost(host);
}

void DockCommands::Add(const Ref<DockCommand>& command) {
    mCommands.Add(command, command->GetName());
    command->SetHost(mHost);
    if (mHost) mHost->TellToolbarsChanged();
}

Ref<DockCommand> DockCommands::Add(const std::string& name, const std::string& caption,
                                   const std::string& image) {
    auto command = MakeRef<DockCommand>(name);
    command->SetCaption(caption);
    command->SetImage(image);
    Add(command);
    return command;
}

Ref<DockCheckCommand> DockCommands::AddCheck(const std::string& name, const std::string& caption,
                                             const std::string& image) {
    auto command = MakeRef<DockCheckCommand>(name);
    command->SetCaption(caption);
    command->SetImage(image);
    Add(command);
    return command;
}

Ref<DockCommand> DockCommands::AddPopup(const std::string& name, const std::string& caption,
                                        const std::string& image) {
    auto command = Add(name, caption, image);
    command->GetPopupCommands();
    return command;
}

Ref<DockCommand> DockCommands::Item(const std::string& name) const {
    return mCommands.Item(name);
}

Ref<DockCommand> DockCommands::Item(std::size_t position) const {
    return mCommands.Item(position);
}

Ref<DockCheckCommand> DockCommands::CheckItem(const std::string& name) const {
    auto command = Item(name).As<DockCheckCommand>();
    if (!command)
        RaiseError(ErrorNumber::TypeMismatch, "The command \"" + name + "\" has no state");
    return command;
}

Ref<DockCommand> DockCommands::Find(const std::string& name) const {
    const auto* found = mCommands.Find(name);
    return found ? *found : Ref<DockCommand>();
}

bool DockCommands::Contains(const std::string& name) const {
    return mCommands.Contains(name);
}

void DockCommands::Remove(const std::string& name) {
    const Ref<DockCommand> command = Item(name);
    mCommands.Remove(name);
    Release(command);
}

void DockCommands::Remove(std::size_t position) {
    const Ref<DockCommand> command = Item(position);
    mCommands.Remove(position);
    Release(command);
}

void DockCommands::Clear() {
    while (Count() > 0)
        Remove(Count());
}

void DockCommands::Release(const Ref<DockCommand>& command) {
    if (!mHost) return;
    // The command may stand in another list of the host as well.
    if (mHost->FindCommand(*command)) return;
    mHost->TakeOffToolbars(command);
    command->SetHost(nullptr);
}

} // namespace paperkite
