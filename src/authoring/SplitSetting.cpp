#include "authoring/SplitSetting.h"

#include "foundation/Settings.h"

namespace paperkite {

void ReadSplitSetting(SplitPanel& panel, const char* name) {
    const Value size = GetAppValue(name, panel.GetPercentage(), kConvertToText, {});
    panel.SetPercentage(size.ToInteger());
}

void WriteSplitSetting(const SplitPanel& panel, const char* name) {
    SetAppValue(name, panel.GetPercentage(), {});
}

} // namespace paperkite
