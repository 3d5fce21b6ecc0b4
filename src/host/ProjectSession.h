#pragma once

#include "doctypes/source/SourceNamespaceDefs.h"
#include "doctypes/source/SourceNamespaceProvider.h"
#include "doctypes/source/SourceScanner.h"
#include "foundation/NamespaceDefs.h"
#include "model/ProjectDocument.h"
#include "widgets/Picture.h"

#include <memory>
#include <string>
#include <vector>

namespace paperkite {

/// The ending of project files.
inline constexpr const char* kProjectEnding = ".kiteproject";

/// An open project with its scanned code: all that the components are handed.
///
///     auto opened = ProjectSession::Open("leveldb.kiteproject");
///     if (!opened.Session) return Say(opened.Problem);
class ProjectSession {
public:
    struct OpenResult {
        /// Nothing when there is a problem, or when the author cancelled the scan.
        std::unique_ptr<ProjectSession> Session;
        std::string Problem;
        bool Cancelled = false;
    };

    /// What a new project is made of.
    struct NewProject {
        std::string Path;
        std::string SourceFolder;
        /// Empty: the name of the source folder.
        std::string Title;
        std::vector<std::string> Excludes;
    };

    using Progress = SourceScanner::Progress;

    /// `path` may leave the ending out, or name a folder that holds one project. Source folders
    /// that are missing, or hold no source code at all, are problems.
    static OpenResult Open(const std::string& path, const Progress& progress = {});
    /// Makes a project and saves it. A file that is there already, and a source folder without any
    /// source code, are problems.
    static OpenResult Create(const NewProject& wanted, const Progress& progress = {});

    ~ProjectSession();
    ProjectSession(const ProjectSession&) = delete;
    ProjectSession& operator=(const ProjectSession&) = delete;

    const Ref<ProjectDocument>& GetProject() const { return mProject; }
    const Ref<SourceNamespaceProvider>& GetProvider() const { return mProvider; }
    const Ref<NamespaceDefs>& GetDefinitions() const { return mDefinitions; }
    const Ref<ImageList>& GetImages() const { return mImages; }
    /// What the scan left out, and why.
    const std::vector<std::string>& GetWarnings() const { return mWarnings; }
    std::size_t GetFileCount() const { return mFileCount; }

    /// Reads the source code anew. A problem or a cancelled scan leaves everything as it was.
    OpenResult Rescan(const Progress& progress = {});

    /// The qualified name of what an author calls an item: the name itself, or without the first
    /// step, with "::", "." or "/" between the steps, or the last steps where only one item has
    /// them, those inside it left out. Empty when there is no such item.
    std::string Resolve(const std::string& name) const;
    /// The qualified names that look most like a name, at most three, best first.
    std::vector<std::string> Nearest(const std::string& name) const;

private:
    explicit ProjectSession(Ref<ProjectDocument> project) : mProject(std::move(project)) {}
    static OpenResult Scanned(Ref<ProjectDocument> project, const Progress& progress);
    OpenResult Scan(const Progress& progress);
    std::string OnlyNameEndingWith(const std::string& name) const;

    Ref<ProjectDocument> mProject;
    Ref<SourceNamespaceProvider> mProvider;
    Ref<NamespaceDefs> mDefinitions;
    Ref<ImageList> mImages = MakeSourceImages();
    std::vector<std::string> mWarnings;
    std::size_t mFileCount = 0;
};

} // namespace paperkite
