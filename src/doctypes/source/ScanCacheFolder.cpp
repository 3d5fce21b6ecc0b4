#include "doctypes/source/ScanCacheFolder.h"

#include "doctypes/source/ContentHash.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <vector>

namespace paperkite {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view ending = ".scan";
constexpr std::size_t hashDigits = 16;

bool IsOurs(std::string_view name) {
    const std::string_view hash = name.substr(0, hashDigits);
    return name.size() >= hashDigits + ending.size() &&
           hash.find_first_not_of("0123456789abcdef") == std::string_view::npos &&
           name.substr(hashDigits, ending.size()) == ending;
}

bool IsTemporary(std::string_view name) {
    return name.size() > hashDigits + ending.size();
}

struct Kept {
    fs::path path;
    fs::file_time_type used;
    std::uint64_t size = 0;
};

} // namespace

std::string ScanCacheFolder::FileFor(const std::string& place) const {
    char name[hashDigits + 1];
    std::snprintf(name, sizeof name, "%016llx",
                  static_cast<unsigned long long>(ContentHash::Of(place)));
    return mPath + "/" + name + std::string(ending);
}

void ScanCacheFolder::Prune(const std::string& kept, const Limits& limits) const {
    std::error_code error;
    std::vector<Kept> files;
    std::uint64_t total = 0;
    const auto now = fs::file_time_type::clock::now();
    for (fs::directory_iterator at(mPath, error), end; !error && at != end; at.increment(error)) {
        std::error_code gone;
        const std::string name = at->path().filename().native();
        if (!IsOurs(name) || at->is_symlink(gone) || !at->is_regular_file(gone)) {
            continue;
        }
        const Kept file = {at->path(), at->last_write_time(gone), at->file_size(gone)};
        if (gone) {
            continue;
        }
        const auto longest = IsTemporary(name) ? limits.TemporaryAge : limits.Age;
        if (file.path != kept && now - file.used > longest) {
            fs::remove(file.path, gone);
        } else if (!IsTemporary(name)) {
            total += file.size;
            files.push_back(file);
        }
    }
    std::sort(files.begin(), files.end(),
              [](const Kept& a, const Kept& b) { return a.used < b.used; });
    for (const Kept& file : files) {
        if (total <= limits.TotalSize) {
            return;
        }
        if (file.path != kept) {
            std::error_code gone;
            fs::remove(file.path, gone);
            total -= file.size;
        }
    }
}

} // namespace paperkite
