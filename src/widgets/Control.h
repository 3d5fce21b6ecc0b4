#pragma once

#include "foundation/Event.h"
#include "foundation/Ref.h"
#include "widgets/Changing.h"
#include "widgets/Picture.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace paperkite {

class Control;
class Container;

/// What a view is told about the control that it shows. The roles whose state is more than a few
/// fields derive an interface of their own from this one; a view of any other role reads the whole
/// control again at ControlChanged.
class ControlObserver {
public:
    virtual ~ControlObserver() = default;

    /// Something about the control changed: read it again.
    virtual void ControlChanged(Control& /*control*/) {}

    /// The code wants the keyboard focus to be there.
    virtual void FocusWanted(Control& /*control*/) {}

    /// The control is to lie above its neighbours.
    virtual void BroughtToFront(Control& /*control*/) {}

    /// The control ends; only its address may be used any more.
    virtual void ControlGone(Control& /*control*/) {}
};

/// A rectangle in pixels, relative to the control's container.
struct Bounds {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const Bounds&) const = default;
};

/// 24-bit colour, 0xRRGGBB; none stands for the palette's own.
using Colour = std::optional<std::uint32_t>;

/// The base of every widget model: name, state and place, and the ties of the views that show it.
///
/// Every setter leaves an unchanged value alone; otherwise it assigns, tells the views, and raises
/// what the role raises. Methods whose names begin with User are the author's gestures: only views,
/// tests and the command line call them; a disabled or hidden control ignores them.
class Control : public Changing {
public:
    Control() = default;
    explicit Control(std::string name);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    ~Control() override;

    /// The name under which a component owns the control.
    const std::string& GetName() const { return mName; }

    void SetName(const std::string& value) { Assign(mName, value); }

    bool GetVisible() const { return mVisible; }

    virtual void SetVisible(bool value);

    bool GetEnabled() const { return mEnabled; }

    void SetEnabled(bool value) { Assign(mEnabled, value); }

    /// Anything that the component wants to keep with the control.
    const std::string& GetTag() const { return mTag; }

    void SetTag(const std::string& value) { mTag = value; }

    const std::string& GetToolTipText() const { return mToolTipText; }

    void SetToolTipText(const std::string& value) { Assign(mToolTipText, value); }

    /// What a screen reader calls the control where no label or caption says it.
    const std::string& GetAccessibleName() const { return mAccessibleName; }

    void SetAccessibleName(const std::string& value) { Assign(mAccessibleName, value); }

    int GetTabIndex() const { return mTabIndex; }

    void SetTabIndex(int value) { Assign(mTabIndex, value); }

    const Colour& GetBackColor() const { return mBackColor; }

    void SetBackColor(const Colour& value) { Assign(mBackColor, value); }

    const Colour& GetForeColor() const { return mForeColor; }

    void SetForeColor(const Colour& value) { Assign(mForeColor, value); }

    const FontDescription& GetFont() const { return mFont; }

    void SetFont(const FontDescription& value) { Assign(mFont, value); }

    const Bounds& GetBounds() const { return mBounds; }

    int GetLeft() const { return mBounds.Left; }

    int GetTop() const { return mBounds.Top; }

    int GetWidth() const { return mBounds.Width; }

    int GetHeight() const { return mBounds.Height; }

    void SetLeft(int value) { Move(value, GetTop(), GetWidth(), GetHeight()); }

    void SetTop(int value) { Move(GetLeft(), value, GetWidth(), GetHeight()); }

    void SetWidth(int value) { Move(GetLeft(), GetTop(), value, GetHeight()); }

    void SetHeight(int value) { Move(GetLeft(), GetTop(), GetWidth(), value); }

    /// Pixels. A new width or height raises Resize; negative sizes count as 0.
    void Move(int left, int top, int width, int height);
    void Move(const Bounds& bounds);

    /// Lays the control above its neighbours; ZOrder 0 is the front one.
    void BringToFront();
    /// Position from the front among the controls of the container, from 0; 0 without a container.
    int GetZOrder() const;

    /// Nothing for a control that stands in no container.
    Container* GetParent() const { return mParent; }

    /// Gives the control the keyboard focus, taking it from where it was; a control that is
    /// disabled or hidden is left alone.
    void SetFocus();

    bool HasFocus() const;

    /// The window of a view, for services that ask for one; 0 without a view.
    std::uintptr_t GetHWnd() const { return mHWnd; }

    /// Called by the view that shows the control.
    void SetHWnd(std::uintptr_t value) { mHWnd = value; }

    /// A view reports that the author moved the focus here or away.
    void UserFocus(bool hasFocus);

    /// Ties a view until the connection goes, and tells it the present state first. The observer
    /// must outlive the connection.
    Connection Observe(ControlObserver& observer);

    /// The events that every role has; those of a role stand in its Events.
    struct {
        Event<int, int> Resize; ///< new width, new height
        Event<> GotFocus;
        Event<> LostFocus;
    } ControlEvents;

protected:
    void TellChanged() override;

    bool HasObservers() const;

    /// Calls the action with every tied view of that kind; views may come and go meanwhile.
    template <class Observer, class Action>
    void Tell(Action&& action) {
        if (mObservers->empty()) return;
        const auto observers = mObservers;
        for (std::size_t index = 0; index < observers->size(); ++index) {
            const Tie tie = (*observers)[index];
            if (!*tie.Alive) continue;
            if (auto* observer = dynamic_cast<Observer*>(tie.Observer)) action(*observer);
        }
    }

    /// Whether the author can reach the control at present.
    bool AcceptsGestures() const { return mEnabled && mVisible; }

private:
    friend class ControlCollection;

    struct Tie {
        std::shared_ptr<bool> Alive;
        ControlObserver* Observer;
    };

    std::string mName;
    std::string mTag;
    std::string mToolTipText;
    std::string mAccessibleName;
    FontDescription mFont;
    Bounds mBounds;
    Colour mBackColor;
    Colour mForeColor;
    bool mVisible = true;
    bool mEnabled = true;
    int mTabIndex = 0;
    std::uintptr_t mHWnd = 0;
    Container* mParent = nullptr;
    std::shared_ptr<std::vector<Tie>> mObservers = std::make_shared<std::vector<Tie>>();
};

} // namespace paperkite
