#pragma once

#include "widgets/DesignerControl.h"

#include <string>

namespace paperkite {

/// Makes the control of a designer by the class that a comment's definition names
/// ("Kite4CommentDesigners.dsrHTMLEdit"), letter case ignored. The control is named after the
/// class, without its points. Error 429 for a class that nobody knows.
Ref<DesignerControl> MakeDesigner(const std::string& progID);

} // namespace paperkite
