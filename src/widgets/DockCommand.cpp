#include "widgets/DockCommand.h"

#include "widgets/DockCommands.h"
#include "widgets/DockHost.h"

namespace paperkite {

DockCommand::DockCommand(std::string name) : mName(std::move(name)) {}

DockCommand::~DockCommand() = default;

DockCommands& DockCommand::GetPopupCommands() {
    if (!mPopupCommands) {
        mPopupCommands = std::make_unique<DockCommands>(mHost);
        mIsPopup = true;
    }
    return *mPopupCommands;
}

void DockCommand::SetHost(DockHost* host) {
    mHost = host;
    if (mPopupCommands) mPopupCommands->SetHost(host);
}

void DockCommand::TellChanged() {
    if (mHost) mHost->TellCommandChanged(*this);
}

void DockCheckCommand::SetChecked(int value) {
    if (value != 0 && value != 1)
        RaiseError(ErrorNumber::InvalidCall, "A check command takes 0 or 1");
    if (!Assign(mChecked, value) || !Host()) return;
    Host()->Events.CommandCheck.Raise(Host()->FindCommand(*this).As<DockCheckCommand>());
}

} // namespace paperkite
