#pragma once

#include "host/ProjectSession.h"

#include <functional>

class QWidget;

namespace paperkite {

/// Runs a scan beside the window, shows what it does and how far it is, and lets the author cancel
/// at any moment. The window goes on living meanwhile.
class ScanDialog {
public:
    using Work =
        std::function<ProjectSession::OpenResult(const ProjectSession::Progress& progress)>;

    static ProjectSession::OpenResult Run(QWidget* parent, const Work& work);
};

} // namespace paperkite
