#pragma once

#include "widgets/SplitPanel.h"

namespace paperkite {

/// Gives a splitter the position that the user's settings have under a name; its present one where
/// they have none.
void ReadSplitSetting(SplitPanel& panel, const char* name);
void WriteSplitSetting(const SplitPanel& panel, const char* name);

} // namespace paperkite
