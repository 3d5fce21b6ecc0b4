#pragma once

#include "platform/qt/ViewFactory.h"
#include "widgets/DockHost.h"

#include <QHash>
#include <QWidget>

class QAction;
class QMenu;
class QToolBar;
class QVBoxLayout;

namespace paperkite {

/// Shows a DockHost: a native toolbar for each of its toolbars, its client below them. Icons go by
/// image key or command name, shortcuts are the factory's.
class DockView : public QWidget, private DockHostObserver {
public:
    DockView(ViewFactory& factory, const Ref<DockHost>& dock, QWidget* parent);

    /// The action that stands for a command on a toolbar or in a pop-up, or nullptr.
    QAction* ActionOf(const std::string& command) const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    void ControlChanged(Control& control) override;
    void ToolbarsChanged() override;
    void CommandChanged(DockCommand& command) override;
    void MenuWanted(DockCommand& popup, int x, int y) override;

    void Rebuild();
    void RebuildSoon();
    QToolBar* MakeToolbar(const DockToolbar& toolbar);
    void AddButton(QToolBar& bar, const DockToolbarControl& control);
    QAction* MakeAction(const Ref<DockCommand>& command, QObject* parent);
    void ShowCommand(QAction& action, const DockCommand& command);
    void Trigger(const Ref<DockCommand>& command);
    QMenu* MakeMenu(DockCommand& popup, QWidget* parent);
    void OpenWindow(const Ref<DockCommand>& command);
    void ShowClient();
    void ReportClientRectangle();

    ViewFactory& mFactory;
    Ref<DockHost> mDock;
    Ref<Control> mShownClient;
    QVBoxLayout* mColumn;
    QWidget* mBars = nullptr;
    QWidget* mClient;
    QHash<const DockCommand*, QAction*> mActions;
    bool mRebuildPending = false;
    Connection mTie;
};

} // namespace paperkite
