#pragma once

#include "doctypes/source/SourceScanner.h"
#include "model/SourceSettings.h"

#include <cstddef>
#include <cstdint>
#include <functional>
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
    /// Not all is read yet: more sources, and more items in the last of these scans, will come.
    /// What is there stays as it is.
    bool IsPart = false;

    /// The files that were read for it.
    std::size_t FileCount() const;
    /// Tells one state of the code from another.
    std::vector<std::uint64_t> Digests() const;
};

/// Called in the thread that reads.
using TakeReadingPart = std::function<void(SourceReading part)>;

/// Reads what changed since the last time, and takes the rest from the cache. With `takePart` it
/// tells what it knows before the end, where the code allows it: see SourceScanner::SetParts.
SourceReading ReadSources(const std::vector<SourceSettings>& sources,
                          const SourceScanner::Progress& progress,
                          const TakeReadingPart& takePart = {});

/// What was read the last time, without a look at the files; nothing when not all of it was kept.
std::optional<SourceReading> LastKnownSources(const std::vector<SourceSettings>& sources);

/// The folder where scans are kept: that of PAPERKITE_CACHE, where "off" stands for none; else
/// "paperkite" in XDG_CACHE_HOME or in the user's ".cache". Empty for none.
std::string ScanCachePath();

} // namespace paperkite
