#include "host/SourceReading.h"

#include "doctypes/source/FileStamp.h"
#include "foundation/Version.h"

#include <cstdlib>

namespace paperkite {

namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : std::string();
}

/// Another build may understand code otherwise.
std::string ThisBuild() {
    const auto stamp = FileStamp::Of("/proc/self/exe");
    return std::string(kVersion) + " " +
           (stamp ? std::to_string(stamp->Size) + " " + std::to_string(stamp->Modified) : "");
}

SourceScanner ScannerFor(const SourceSettings& source) {
    SourceScanner scanner(source.Folder, source.RootName);
    for (const std::string& pattern : source.Excludes)
        scanner.Exclude(pattern);
    scanner.SetCache(ScanCachePath(), ThisBuild());
    return scanner;
}

ScanResult CopyOf(const ScanResult& scan) {
    ScanResult copy;
    copy.Index = scan.Index->Copy();
    copy.Warnings = scan.Warnings;
    copy.FileCount = scan.FileCount;
    return copy;
}

/// What is known while the source behind those that are read is being scanned.
SourceReading PartOf(const SourceReading& before, ScanPart now) {
    SourceReading part;
    part.IsPart = true;
    for (const ScanResult& scan : before.Scans)
        part.Scans.push_back(CopyOf(scan));
    ScanResult& last = part.Scans.emplace_back();
    last.Index = std::move(now.Index);
    last.FileCount = now.FileCount;
    return part;
}

} // namespace

std::size_t SourceReading::FileCount() const {
    std::size_t count = 0;
    for (const ScanResult& scan : Scans)
        count += scan.FileCount;
    return count;
}

std::vector<std::uint64_t> SourceReading::Digests() const {
    std::vector<std::uint64_t> digests;
    for (const ScanResult& scan : Scans)
        digests.push_back(scan.Digest);
    return digests;
}

SourceReading ReadSources(const std::vector<SourceSettings>& sources,
                          const SourceScanner::Progress& progress,
                          const TakeReadingPart& takePart) {
    SourceReading reading;
    for (const SourceSettings& source : sources) {
        SourceScanner scanner = ScannerFor(source);
        if (takePart)
            scanner.SetParts([&](ScanPart part) { takePart(PartOf(reading, std::move(part))); });
        ScanResult scan = scanner.Scan(progress);
        if (!scan.Outcome.IsDone())
            return {{}, scan.Outcome.Message, scan.Outcome.Status == ScanStatus::Cancelled, false};
        reading.Scans.push_back(std::move(scan));
    }
    return reading;
}

std::optional<SourceReading> LastKnownSources(const std::vector<SourceSettings>& sources) {
    SourceReading reading;
    for (const SourceSettings& source : sources) {
        auto scan = ScannerFor(source).LastKnown();
        if (!scan) return std::nullopt;
        reading.Scans.push_back(std::move(*scan));
    }
    return reading;
}

std::string ScanCachePath() {
    if (const std::string given = Variable("PAPERKITE_CACHE"); !given.empty())
        return given == "off" ? std::string() : given;
    // The standard says to pass over a path that is not absolute.
    if (const std::string caches = Variable("XDG_CACHE_HOME"); caches.starts_with("/"))
        return caches + "/paperkite";
    const std::string home = Variable("HOME");
    return home.empty() ? std::string() : home + "/.cache/paperkite";
}

} // namespace paperkite
