#pragma once

#include "foundation/Services.h"

#include <string>
#include <vector>

namespace paperkite {

/// The files of this machine. Paths may be written with "/" and with "\".
class LocalFileSystem : public FileSystem {
public:
    /// What stands behind the last separator.
    std::string FileName(const std::string& path) const override;
    /// What stands before it, without it; the root stays "/".
    std::string Dir(const std::string& path) const override;
    bool FolderExists(const std::string& path) const override;
    /// Makes the folder and those above it; one that is there already is no failure. Errors: 58 a
    /// file of that name is there, 70 not allowed, 75 anything else.
    void CreateFolder(const std::string& path) override;
    std::vector<std::string> FilesWithExtension(const std::string& folder,
                                                const std::string& extension) const override;
    std::optional<std::string> ReadFile(const std::string& path) const override;
    void WriteFile(const std::string& path, const std::string& bytes) override;
    void DeleteFile(const std::string& path) override;
};

} // namespace paperkite
