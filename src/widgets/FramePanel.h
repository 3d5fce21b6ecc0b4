#pragma once

#include "widgets/Container.h"

namespace paperkite {

/// A container with an optional caption and a border around it.
class FramePanel : public Container {
public:
    explicit FramePanel(std::string name = {}) : Container(std::move(name)) {}

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    bool GetBorder() const { return mBorder; }

    void SetBorder(bool value) { Assign(mBorder, value); }

private:
    std::string mCaption;
    bool mBorder = false;
};

} // namespace paperkite
