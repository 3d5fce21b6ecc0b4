#include "authoring/SplitSetting.h"

#include "foundation/Settings.h"
#include "foundation/Text.h"

namespace paperkite {

void ReadSplitSetting(SplitPanel& panel, const char* name) {
    const Value size = GetAppValue(name, panel.GetPercentage(), kConvertToText, {});
    panel.SetPercentage(static_cast<int>(LeadingNumber(size.ToText())));
}

void WriteSplitSetting(const SplitPanel& panel, const char* name) {
    SetAppValue(name, panel.GetPercentage(), {});
}

} // namespace paperkite
