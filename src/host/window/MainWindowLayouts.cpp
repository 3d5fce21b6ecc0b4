#include "foundation/GlobalConfig.h"
#include "host/window/LayoutWindow.h"
#include "host/window/MainWindow.h"

// The window of page layouts beside this one.

namespace paperkite {

void MainWindow::ShowLayouts() {
    if (!mLayoutWindow) {
        mLayoutWindow = new LayoutWindow(mFactory, this);
        mLayoutWindow->Saved = [this] { LayoutSaved(); };
    }
    mLayoutWindow->SetWorkspace(mWorkspace.get());
    mLayoutWindow->show();
    mLayoutWindow->raise();
    mLayoutWindow->activateWindow();
    // Whoever comes back to the window comes back to his layout.
    if (mLayoutWindow->HasLayout()) return;
    Ref<PageTemplate> present;
    if (mWorkspace) present = mWorkspace->GetEditor().cEditor.GetInPlaceTemplate();
    const auto& templates = GlobalConfig().Templates;
    if (!present && templates.Count() > 0) present = templates.Item(std::size_t{1});
    mLayoutWindow->ShowLayout(present);
}

void MainWindow::LayoutSaved() {
    if (!mWorkspace) return;
    mWorkspace->GetEditor().CommitEdit();
    mWorkspace->GetEditor().cEditor.Refresh(false);
}

} // namespace paperkite
