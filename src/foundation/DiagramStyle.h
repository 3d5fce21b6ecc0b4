#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// What the elements of a project's diagrams look like. Colours are 0xRRGGBB.
struct DiagramStyle : Object {
    std::string TypeName() const override { return "DiagramStyle"; }

    bool Bold = false;
    bool CenterCaptions = true;
    bool Border = true;
    bool DropShadow = false;
    /// Collections and objects are told apart by shape; then neither border nor shadow is drawn.
    bool UseShapes = false;
    /// The style of the template is taken, and none of the other fields is looked at.
    bool UseTemplateStyle = true;
    int ObjectFillColor = 0xFFFFFF;
    int ObjectTextColor = 0x000000;
    int ObjectBorderColor = 0x000000;
    int CollectionFillColor = 0xFFFFFF;
    int CollectionTextColor = 0x000000;
    int CollectionBorderColor = 0x000000;
};

} // namespace paperkite
