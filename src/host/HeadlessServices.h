#pragma once

#include "model/ModelControlHelper.h"

#include <cstddef>
#include <memory>
#include <string>

namespace paperkite {

/// Installs what the components need where there is no screen: settings, files, the model's
/// helpers, and a message box that writes to the error stream. A window system replaces parts of
/// it afterwards. Also reads the configuration; what is wrong with it is told on the error stream.
std::shared_ptr<ModelControlHelper> InstallHeadlessServices(const std::string& applicationFolder);

/// The page template where nobody chose one.
inline constexpr const char* kStandardTemplate = "Modern";

/// Opens the page templates of the program, the standard one first, for whoever shows pages: the
/// editors offer a page wherever there is a template. What is wrong with one is told on the error
/// stream.
void LoadPageTemplates();

/// How many messages were written to the error stream in place of a message box: where there were
/// any, something failed though the command came to its end.
std::size_t ShownMessageCount();

} // namespace paperkite
