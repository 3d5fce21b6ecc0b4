#pragma once

#include "host/ProjectSession.h"

#include <functional>
#include <string>

class QWidget;

namespace paperkite {

/// Runs a scan beside the window, shows what it does and how far it is, and lets the author cancel
/// at any moment. The window goes on living meanwhile.
class ScanDialog {
public:
    using Work = std::function<void(const ProjectSession::Progress& progress)>;

    /// Gives what was thrown inside the work as a text; empty when nothing was.
    static std::string Run(QWidget* parent, const Work& work);
};

} // namespace paperkite
