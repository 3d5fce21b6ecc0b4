#pragma once

#include "widgets/Control.h"

namespace paperkite {

/// A push button. "&" in the caption marks the mnemonic.
class Button : public Control {
public:
    explicit Button(std::string name = {}) : Control(std::move(name)) {}

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    const Picture& GetPicture() const { return mPicture; }

    void SetPicture(const Picture& value) { Assign(mPicture, value); }

    /// The Enter key of the form presses it.
    bool GetDefault() const { return mDefault; }

    void SetDefault(bool value) { Assign(mDefault, value); }

    /// The Escape key of the form presses it.
    bool GetCancel() const { return mCancel; }

    void SetCancel(bool value) { Assign(mCancel, value); }

    struct {
        Event<> Click;
    } Events;

    void UserClick();

private:
    std::string mCaption;
    Picture mPicture;
    bool mDefault = false;
    bool mCancel = false;
};

} // namespace paperkite
