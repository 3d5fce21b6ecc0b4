#pragma once

#include "model/ModelControlHelper.h"

#include <memory>
#include <string>

namespace paperkite {

/// Installs what the components need where there is no screen: settings, files, the model's
/// helpers, and a message box that writes to the error stream. A window system replaces parts of
/// it afterwards. Also reads the configuration; what is wrong with it is told on the error stream.
std::shared_ptr<ModelControlHelper> InstallHeadlessServices(const std::string& applicationFolder);

} // namespace paperkite
