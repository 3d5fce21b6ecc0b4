#pragma once

#include <functional>
#include <vector>

namespace paperkite::bench {

/// Figures that a process of its own finds out, so that what it leaves in memory disturbs nothing
/// that is measured later. Raises an error when it does not come to its end.
std::vector<double> FiguresFromProcess(const std::function<std::vector<double>()>& measure);

} // namespace paperkite::bench
