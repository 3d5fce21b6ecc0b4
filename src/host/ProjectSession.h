#pragma once

#include "doctypes/source/NameSearch.h"
#include "doctypes/source/SourceNamespaceDefs.h"
#include "doctypes/source/SourceNamespaceProvider.h"
#include "foundation/NamespaceDefs.h"
#include "host/RunningReading.h"
#include "host/SourceReading.h"
#include "model/ProjectDocument.h"
#include "widgets/Picture.h"

#include <memory>
#include <optional>
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
        /// Of OpenSoon and CreateSoon: what goes on when the session has only a part of the code.
        std::unique_ptr<RunningReading> Rest = nullptr;
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

    /// The project file that a user means: `path` may leave the ending out, or name a folder that
    /// holds one project.
    static std::string FileOf(const std::string& path);
    /// `path` may leave the ending out, or name a folder that holds one project. Source folders
    /// that are missing, or hold no source code at all, are problems.
    static OpenResult Open(const std::string& path, const Progress& progress = {});
    /// As Open, but with the code as it was read the last time where that was kept: then the
    /// session is not up to date, and somebody reads the sources and adopts what changed.
    static OpenResult OpenLastKnown(const std::string& path, const Progress& progress = {});
    /// As OpenLastKnown; where nothing was kept it waits no longer than for a part of the code that
    /// can be worked with, and gives what reads on.
    static OpenResult OpenSoon(const std::string& path, const Progress& progress = {});
    /// Makes a project and saves it. A file that is there already, and a source folder without any
    /// source code, are problems.
    static OpenResult Create(const NewProject& wanted, const Progress& progress = {});
    /// As Create, and as soon as OpenSoon.
    static OpenResult CreateSoon(const NewProject& wanted, const Progress& progress = {});

    ~ProjectSession();
    ProjectSession(const ProjectSession&) = delete;
    ProjectSession& operator=(const ProjectSession&) = delete;

    const Ref<ProjectDocument>& GetProject() const { return mProject; }
    const Ref<SourceNamespaceProvider>& GetProvider() const { return mCode.Provider; }
    const Ref<NamespaceDefs>& GetDefinitions() const { return mCode.Definitions; }
    const Ref<ImageList>& GetImages() const { return mImages; }
    /// What the scan left out, and why.
    const std::vector<std::string>& GetWarnings() const { return mCode.Warnings; }
    std::size_t GetFileCount() const { return mCode.FileCount; }

    /// What a scan of the project's folders brought.
    struct ScannedCode {
        Ref<SourceNamespaceProvider> Provider;
        Ref<NamespaceDefs> Definitions;
        std::vector<std::string> Warnings;
        std::size_t FileCount = 0;
        /// See SourceReading.
        bool IsPart = false;
        /// See SourceReading.
        std::vector<std::uint64_t> Digests;
    };
    struct ScanAnswer {
        /// Nothing when there is a problem, or when the author cancelled the scan.
        std::optional<ScannedCode> Code;
        std::string Problem;
        bool Cancelled = false;
    };

    /// Reads the source code; changes nothing, so that it can run beside the window.
    ScanAnswer Scan(const Progress& progress = {}) const;
    /// Makes items out of source code that was read, which is used up.
    ScanAnswer Code(SourceReading reading) const;
    /// False when the code is only what was known the last time, or a part.
    bool IsUpToDate() const { return mIsUpToDate; }
    /// Whether more items are to come: what is missing may only not have been read yet.
    bool IsPart() const { return mCode.IsPart; }
    /// The code was found to be what the session has.
    void SetUpToDate() { mIsUpToDate = true; }
    const std::vector<std::uint64_t>& GetDigests() const { return mCode.Digests; }
    /// Takes a scan's code in place of the present one. Whoever holds items lets go of them first.
    void Adopt(ScannedCode code);

    /// Goes on with another reading of the same project's files, on the same code.
    void Replace(Ref<ProjectDocument> project);

    /// The qualified name of what an author calls an item: the name itself, or without the first
    /// step, or only the last steps; "::", "." and "/" may stand between them. Empty when there is
    /// no such item, or more than one.
    std::string Resolve(const std::string& name) const;
    /// All items that an author may mean by a name; those inside another one of them left out.
    std::vector<std::string> Matches(const std::string& name) const;
    /// Items whose own names hold a text, letter case ignored: those that are it first, then those
    /// that begin with it, then the others; each in the order of the source; behind them what a
    /// NameQuestion means, "Dog::bark(int". The first question since the code came copies all
    /// names.
    std::vector<std::string> FindByName(const std::string& text, std::size_t most) const;
    /// The qualified names that look most like a name, at most three, best first.
    std::vector<std::string> Nearest(const std::string& name) const;

private:
    explicit ProjectSession(Ref<ProjectDocument> project) : mProject(std::move(project)) {}
    /// How a project gets its code.
    using Scanning = OpenResult (*)(Ref<ProjectDocument> project, const Progress& progress);
    static OpenResult Scanned(Ref<ProjectDocument> project, const Progress& progress);
    static OpenResult ScannedInPart(Ref<ProjectDocument> project, const Progress& progress);
    static OpenResult OpenKnownOr(Scanning scanning, const std::string& path,
                                  const Progress& progress);
    static OpenResult CreateBy(Scanning scanning, const NewProject& wanted,
                               const Progress& progress);
    /// The session with that code, or why not.
    static OpenResult With(std::unique_ptr<ProjectSession> session, ScanAnswer answer);

    Ref<ProjectDocument> mProject;
    ScannedCode mCode;
    /// The names of its items; nothing until somebody searches them.
    mutable std::optional<NameSearch> mNames;
    bool mIsUpToDate = true;
    Ref<ImageList> mImages = MakeSourceImages();
};

} // namespace paperkite
