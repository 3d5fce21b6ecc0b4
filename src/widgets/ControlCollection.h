#pragma once

#include "widgets/Control.h"

#include <string>
#include <vector>

namespace paperkite {

/// The controls of one container, in their order and by name. The container shares their ownership;
/// a control stands in one container at a time.
class ControlCollection {
public:
    explicit ControlCollection(Container& owner) : mOwner(owner) {}

    ControlCollection(const ControlCollection&) = delete;
    ControlCollection& operator=(const ControlCollection&) = delete;
    ~ControlCollection();

    /// Adds a control and takes it from the container where it stood. A name that is already taken
    /// raises error 457; controls without a name are found by position only.
    void Add(const Ref<Control>& control);

    /// Makes a control of that role with that name and adds it.
    ///
    ///     auto text = Controls.Make<TextBox>("txtName");
    template <class Role>
    Ref<Role> Make(const std::string& name) {
        Ref<Role> control = MakeRef<Role>(name);
        Add(control);
        return control;
    }

    /// A name or position (from 1) that is not there raises error 5 or 9.
    Ref<Control> Item(const std::string& name) const;
    Ref<Control> Item(std::size_t position) const;

    /// The control of that name and role; error 13 when it has another role.
    template <class Role>
    Ref<Role> Item(const std::string& name) const {
        Ref<Role> control = Item(name).As<Role>();
        if (!control) RaiseError(ErrorNumber::TypeMismatch, "\"" + name + "\" has another role");
        return control;
    }

    /// The control of that name, or nothing.
    Ref<Control> Find(const std::string& name) const;
    bool Contains(const std::string& name) const;

    std::size_t Count() const { return mControls.size(); }

    void Remove(const std::string& name);
    void Remove(const Ref<Control>& control);
    void Clear();

    auto begin() const { return mControls.begin(); }

    auto end() const { return mControls.end(); }

private:
    friend class Control;
    void BringToFront(Control& control);
    int ZOrderOf(const Control& control) const;

    Container& mOwner;
    std::vector<Ref<Control>> mControls;
    // Front first.
    std::vector<const Control*> mStacking;
};

} // namespace paperkite
