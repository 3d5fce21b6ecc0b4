#pragma once

#include "widgets/Control.h"

namespace paperkite {

/// A picture that stands by itself.
class PictureBox : public Control {
public:
    explicit PictureBox(std::string name = {}) : Control(std::move(name)) {}

    const Picture& GetPicture() const { return mPicture; }

    void SetPicture(const Picture& value) { Assign(mPicture, value); }

private:
    Picture mPicture;
};

} // namespace paperkite
