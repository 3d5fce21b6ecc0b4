#pragma once

#include "foundation/Ref.h"
#include "widgets/Control.h"

#include <QHash>
#include <QKeySequence>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace paperkite {

/// Makes the view of any control. Hosts add makers for roles that other folders show.
///
///     ViewFactory factory;
///     factory.SetShortcut("Next", QKeySequence("Ctrl+Shift+N"));
///     QWidget* view = factory.MakeView(editor.GetRoot(), window);
class ViewFactory {
public:
    /// Makes a widget for the control below the parent, or gives nullptr for another role.
    using Maker = std::function<QWidget*(ViewFactory&, const Ref<Control>&, QWidget*)>;

    /// Knows the roles of this library.
    ViewFactory();
    ViewFactory(const ViewFactory&) = delete;
    ViewFactory& operator=(const ViewFactory&) = delete;

    /// Makers that come later are asked first.
    void Register(Maker maker);

    /// A maker for one role and what derives from it.
    template <class Role, class Make>
    void RegisterRole(Make make) {
        Register([make](ViewFactory& factory, const Ref<Control>& control, QWidget* parent) {
            const Ref<Role> role = control.As<Role>();
            return role ? make(factory, role, parent) : nullptr;
        });
    }

    /// The view, below the parent; a role that nobody knows raises error 429. The factory must
    /// outlive the views, which make the views of what they hold.
    QWidget* MakeView(const Ref<Control>& control, QWidget* parent);

    /// The key of a toolbar command, shown in its tool tip.
    void SetShortcut(const std::string& command, const QKeySequence& key);
    QKeySequence GetShortcut(const std::string& command) const;

private:
    void RegisterFields();
    void RegisterContainers();

    std::vector<Maker> mMakers;
    QHash<QString, QKeySequence> mShortcuts;
};

} // namespace paperkite
