#include "platform/files/LocalFileSystem.h"

#include "foundation/Text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

// A "\" is an ordinary character in file names here; one that is there is meant.
fs::path Native(const std::string& path) {
    std::error_code failed;
    if (fs::exists(path, failed)) return path;
    return ReplaceAll(path, "\\", "/");
}

[[noreturn]] void RaiseFor(const std::string& path, const std::error_code& failure) {
    const std::string description =
        "The folder \"" + path + "\" cannot be made: " + failure.message();
    if (failure == std::errc::permission_denied || failure == std::errc::read_only_file_system ||
        failure == std::errc::operation_not_permitted)
        RaiseError(ErrorNumber::PermissionDenied, description);
    RaiseError(ErrorNumber::PathOrFileAccess, description);
}

} // namespace

std::string LocalFileSystem::FileName(const std::string& path) const {
    const std::size_t cut = path.find_last_of("/\\");
    return cut == std::string::npos ? path : path.substr(cut + 1);
}

std::string LocalFileSystem::Dir(const std::string& path) const {
    const std::size_t cut = path.find_last_of("/\\");
    if (cut == std::string::npos) return {};
    return path.substr(0, cut == 0 ? 1 : cut);
}

bool LocalFileSystem::FolderExists(const std::string& path) const {
    std::error_code failed;
    return fs::is_directory(Native(path), failed);
}

void LocalFileSystem::CreateFolder(const std::string& path) {
    if (FolderExists(path)) return;
    const fs::path native = Native(path);
    std::error_code failure;
    if (fs::exists(native, failure))
        RaiseError(ErrorNumber::FileExists, "A file \"" + path + "\" is there already");
    failure.clear();
    fs::create_directories(native, failure);
    if (failure) RaiseFor(path, failure);
}

std::vector<std::string> LocalFileSystem::FilesWithExtension(const std::string& folder,
                                                             const std::string& extension) const {
    std::vector<std::string> names;
    std::error_code failed;
    const std::string ending = extension.starts_with('.') ? extension : "." + extension;
    for (fs::directory_iterator entry(Native(folder), failed), end; !failed && entry != end;
         entry.increment(failed)) {
        std::error_code unknown;
        if (entry->is_regular_file(unknown) &&
            EqualIgnoringCase(entry->path().extension().string(), ending))
            names.push_back(entry->path().stem().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<std::string> LocalFileSystem::ReadFile(const std::string& path) const {
    std::error_code failed;
    if (!fs::is_regular_file(Native(path), failed)) return std::nullopt;
    std::ifstream file(Native(path), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file) return std::nullopt;
    return bytes;
}

void LocalFileSystem::WriteFile(const std::string& path, const std::string& bytes) {
    std::ofstream file(Native(path), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        RaiseError(ErrorNumber::PathOrFileAccess, "The file \"" + path + "\" cannot be written");
}

void LocalFileSystem::DeleteFile(const std::string& path) {
    std::error_code failure;
    fs::remove(Native(path), failure);
    if (failure)
        RaiseError(ErrorNumber::PathOrFileAccess,
                   "The file \"" + path + "\" cannot be deleted: " + failure.message());
}

} // namespace paperkite
