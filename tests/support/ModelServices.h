#pragma once

#include "model/CommentPipeModel.h"
#include "model/ModelControlHelper.h"
#include "support/ScriptedServices.h"

#include <algorithm>
#include <map>
#include <optional>

namespace paperkite::test {

/// Files by folder, for icons.
class ScriptedFileSystem : public FileSystem {
public:
    std::string FileName(const std::string& path) const override { return path; }
    std::string Dir(const std::string& path) const override { return path; }
    bool FolderExists(const std::string& path) const override { return Files.contains(path); }
    void CreateFolder(const std::string& path) override { Files[path]; }
    std::vector<std::string> FilesWithExtension(const std::string& folder,
                                                const std::string& extension) const override {
        Asked.push_back(folder + "|" + extension);
        const auto found = std::find_if(Files.begin(), Files.end(), [&](const auto& entry) {
            return folder.ends_with(entry.first);
        });
        return found == Files.end() ? std::vector<std::string>() : found->second;
    }

    std::optional<std::string> ReadFile(const std::string& path) const override {
        const auto found = Texts.find(path);
        return found == Texts.end() ? std::nullopt : std::optional(found->second);
    }
    void WriteFile(const std::string& path, const std::string& bytes) override {
        Texts[path] = bytes;
    }
    void DeleteFile(const std::string& path) override {
        Deleted.push_back(path);
        Texts.erase(path);
    }

    std::map<std::string, std::vector<std::string>> Files;
    /// What files hold, by path.
    std::map<std::string, std::string> Texts;
    std::vector<std::string> Deleted;
    mutable std::vector<std::string> Asked;
};

/// The scripted services with the helper objects of the model in memory.
class ModelServices : public ScriptedServices {
public:
    ModelServices() {
        CurrentServices().ControlHelper = Helper;
        CurrentServices().FileSystem = Files;
        CurrentServices().ApplicationFolder = "/program";
        CurrentServices().CreateCommentPipe = [] { return MakeRef<CommentPipeModel>(); };
    }

    /// The failures that were reported since the last call, a line each: module, procedure, number.
    std::string TakeReports() {
        std::string reports;
        for (const std::string& message : Messages->Shown)
            reports += ReportLine(message) + "\n";
        Messages->Shown.clear();
        return reports;
    }

    std::shared_ptr<ModelControlHelper> Helper = std::make_shared<ModelControlHelper>();
    std::shared_ptr<ScriptedFileSystem> Files = std::make_shared<ScriptedFileSystem>();

private:
    static std::string After(const std::string& message, const std::string& label) {
        const std::size_t start = message.find(label);
        if (start == std::string::npos) return {};
        const std::size_t from = start + label.size();
        const std::size_t end = message.find_first_of("\r\n", from);
        return message.substr(from, end - from);
    }
    static std::string ReportLine(const std::string& message) {
        const std::string module = After(message, "Module: ");
        if (module.empty()) return message;
        const std::size_t number = message.rfind(" (");
        return module + "." + After(message, "Procedure: ") + message.substr(number);
    }
};

} // namespace paperkite::test
