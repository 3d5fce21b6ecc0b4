#include "host/window/LinksDialog.h"
#include "host/window/MainWindow.h"

// What the window says about the links in comments.

namespace paperkite {

void MainWindow::CheckLinks() {
    if (!mLinksDialog) {
        mLinksDialog = new LinksDialog(*mWorkspace, this);
        mLinksDialog->ShowLink = [this](const LinkCheck::Link& link) { ShowLink(link); };
    }
    mLinksDialog->Check();
    mLinksDialog->show();
    mLinksDialog->raise();
    mLinksDialog->activateWindow();
}

void MainWindow::ShowLink(const LinkCheck::Link& link) {
    SearchOptions options;
    options.SearchFor = link.Caption;
    options.CaseSensitive = true;
    ShowHit(link.Item, options);
}

} // namespace paperkite
