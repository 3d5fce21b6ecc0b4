#pragma once

#include "doctypes/source/SourceScanner.h"
#include "model/SourceSettings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace paperkite {

/// The source code of a project as it was read: plain data that any thread may make, and that
/// ProjectSession::Code takes in.
struct SourceReading {
    /// In the order of the project's sources; empty when there is a problem, or when the reading
    /// was cancelled.
    std::vector<ScanResult> Scans;
    std::string Problem;
    bool Cancelled = false;

    /// Tells one state of the code from another.
    std::vector<std::uint64_t> Digests() const;
};

/// Reads what changed since the last time, and takes the rest from the cache.
SourceReading ReadSources(const std::vector<SourceSettings>& sources,
                          const SourceScanner::Progress& progress);

/// What was read the last time, without a look at the files; nothing when not all of it was kept.
std::optional<SourceReading> LastKnownSources(const std::vector<SourceSettings>& sources);

/// The folder where scans are kept: that of PAPERKITE_CACHE, where "off" stands for none; else
/// "paperkite" in XDG_CACHE_HOME or in the user's ".cache". Empty for none.
std::string ScanCachePath();

} // namespace paperkite
