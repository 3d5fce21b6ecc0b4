#include "authoring/SplitSetting.h"

#include "foundation/Settings.h"

namespace paperkite {

void ReadSplitSetting(SplitPanel& panel, const char* name) {
    panel.SetPercentage(GetAppNumber(name, panel.GetPercentage(), 0, 100, {}));
}

void WriteSplitSetting(const SplitPanel& panel, const char* name) {
    SetAppValue(name, panel.GetPercentage(), {});
}

} // namespace paperkite
