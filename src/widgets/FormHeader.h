#pragma once

#include "widgets/Control.h"

namespace paperkite {

/// The band at the top of a dialog: what it is for, in a title and a sentence.
class FormHeader : public Control {
public:
    explicit FormHeader(std::string name = {}) : Control(std::move(name)) {}

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    const std::string& GetDescription() const { return mDescription; }

    void SetDescription(const std::string& value) { Assign(mDescription, value); }

    const Picture& GetPicture() const { return mPicture; }

    void SetPicture(const Picture& value) { Assign(mPicture, value); }

private:
    std::string mCaption;
    std::string mDescription;
    Picture mPicture;
};

} // namespace paperkite
