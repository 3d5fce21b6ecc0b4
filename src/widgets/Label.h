#pragma once

#include "widgets/Control.h"

namespace paperkite {

/// A text that stands beside or between fields.
class Label : public Control {
public:
    explicit Label(std::string name = {}) : Control(std::move(name)) {}

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    bool GetWordWrap() const { return mWordWrap; }

    void SetWordWrap(bool value) { Assign(mWordWrap, value); }

    /// Whether the caption is HTML (bold, line breaks, links) or plain text.
    bool GetRichText() const { return mRichText; }

    void SetRichText(bool value) { Assign(mRichText, value); }

    struct {
        Event<const std::string&> LinkClick; ///< the link's address, in a rich text
    } Events;

    void UserClickLink(const std::string& address);

private:
    std::string mCaption;
    bool mWordWrap = false;
    bool mRichText = false;
};

} // namespace paperkite
