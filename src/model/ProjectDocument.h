#pragma once

#include "foundation/Event.h"
#include "foundation/KiteProject.h"
#include "model/CommentStore.h"
#include "model/ContentFile.h"
#include "model/DiskStamps.h"
#include "model/FileProblem.h"
#include "model/SourceSettings.h"
#include "model/XmlReader.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// A documentation project in memory, with its file (".kiteproject") and its Content Files
/// (".ktc").
///
///     ProjectDocument::OpenResult opened = ProjectDocument::Open("leveldb.kiteproject");
///     if (opened.Problem) return Say(opened.Problem->Message());
///     opened.Project->RegisterProvider("kite.source", provider);
///     …
///     if (auto problem = opened.Project->Save()) Say(problem->Message());
///
/// The host owns it. Items and their providers hold its CommentStore, never the project itself.
class ProjectDocument : public KiteProject {
public:
    struct OpenResult {
        /// Nothing when there is a problem.
        Ref<ProjectDocument> Project;
        std::optional<FileProblem> Problem;
    };

    /// Which members are listed.
    struct Scope {
        bool Private = false;
        bool Friend = false;
        bool Protected = true;
        bool ProtectedFriend = true;

        bool operator==(const Scope&) const = default;
    };

    /// Whether files that somebody else wrote meanwhile, or that are there already, are replaced.
    enum class Overwriting { Refused, Allowed };

    /// A project that is in no file yet, with one Content File beside where it will be saved. If
    /// that is there already its comments are taken up; one that cannot be read is a problem.
    static OpenResult New(const std::string& path);
    /// Bytes of files by their whole paths.
    using FileBytes = std::map<std::string, std::string>;
    /// Reads a project with all its Content Files, or says why it cannot. A Content File that is
    /// missing is in GetMissingFiles and in no way of the others. What is `inPlace` counts as the
    /// content of files instead of what is on the disk; the project is dirty then. `seen` is what
    /// those files held when that was made, so that a change since is noticed at saving; without
    /// it, what they hold now.
    static OpenResult Open(const std::string& path, const FileBytes& inPlace = {},
                           const FileBytes* seen = nullptr);

    /// Writes what changed and nothing else. A problem leaves every file either old or new, and the
    /// project dirty; saving again writes what is left.
    std::optional<FileProblem> Save(Overwriting overwriting = Overwriting::Refused);
    /// Saves under another name, and goes on there. Content Files of the old project's folder are
    /// written beside the new one, those that bear its name under the new name; others stay shared.
    std::optional<FileProblem> SaveAs(const std::string& path,
                                      Overwriting overwriting = Overwriting::Refused);

    /// What is wrong with Content Files that are listed and were not there. Their entries stay, and
    /// nothing is written in their places; new comments go to another file, a new one if need be.
    std::vector<FileProblem> GetMissingFiles() const;
    /// The files that somebody else has written since they were read or saved.
    std::vector<std::string> ChangedOnDisk();
    /// Whether the files as they were read may hold what a merge left for the author; quick.
    bool MayHoldConflicts() const;
    /// What Save would write, of every file that there is to be.
    FileBytes PresentBytes() const;
    /// What the files held when they were read or saved, of every file that there was.
    FileBytes StoredBytes() const;

    struct DiskMerge {
        /// For Open: what holds unsaved work. Empty when nothing does.
        FileBytes Bytes;
        /// What was on the disk.
        FileBytes Seen;
        std::size_t Conflicts = 0;
        std::optional<FileProblem> Problem;
    };
    /// Puts unsaved work together with what somebody else wrote meanwhile; changes nothing.
    DiskMerge MergeWithDisk() const;
    /// Takes over the comments' store of a project that this one replaces: whoever holds it sees
    /// the comments of this project from now on.
    void TakeStoreOf(ProjectDocument& other);

    /// The whole path of the project file; empty for none.
    const std::string& GetPath() const { return mPath; }
    /// The title of the documentation, or the file's base name where none was given.
    std::string GetTitle() const;
    void SetTitle(const std::string& value);

    /// The code to be documented. Who changes it sets Dirty.
    std::vector<SourceSettings>& GetSources() { return mSources; }
    const std::vector<SourceSettings>& GetSources() const { return mSources; }
    /// Adds a folder; its root name is the folder's own, without what qualified names cut at.
    SourceSettings& AddSource(const std::string& folder);

    /// Never nothing.
    const Ref<CommentStore>& GetComments() const { return mComments; }

    /// Takes a Content File up with its comments; one that does not exist is made when the project
    /// is saved. A file that cannot be read, or is listed already, is a problem and not taken up.
    std::optional<FileProblem> AddContentFile(const std::string& path);
    /// Takes a Content File and its comments out; the file stays on the disk.
    void RemoveContentFile(const std::string& path);

    /// The provider of a moniker, letter case ignored; a later one replaces the one before.
    void RegisterProvider(const std::string& moniker,
                          const Ref<paperkite::NamespaceProvider>& provider);

    bool GetDirty() const { return mDirty; }

    /// Makes the present scope the one that is saved. Trees set the scope to what they show, all
    /// the time; only who edits the project's own settings calls this, and sets Dirty.
    void StoreScope() { mStoredScope = mScope; }
    const Scope& GetStoredScope() const { return mStoredScope; }
    void SetNamespaceExclusions(const Ref<TextCollection>& value);

    Ref<paperkite::DocTypes> GetDocTypes() override { return mDocTypes; }
    Ref<paperkite::NamespaceProvider> NamespaceProvider(const std::string& moniker) override;
    Ref<TextCollection> GetNamespaceExclusions() override { return mNamespaceExclusions; }
    bool GetIncludePrivate() const override { return mScope.Private; }
    void SetIncludePrivate(bool value) override { mScope.Private = value; }
    bool GetIncludeFriend() const override { return mScope.Friend; }
    void SetIncludeFriend(bool value) override { mScope.Friend = value; }
    bool GetIncludeProtected() const override { return mScope.Protected; }
    void SetIncludeProtected(bool value) override { mScope.Protected = value; }
    bool GetIncludeProtectedFriend() const override { return mScope.ProtectedFriend; }
    void SetIncludeProtectedFriend(bool value) override { mScope.ProtectedFriend = value; }
    void SetDirty(bool value) override;
    std::int32_t GetSourceProjectCount() const override;

    struct DocumentEvents {
        Event<bool> DirtyStateChanged; ///< the new state
    } Document;

private:
    friend class ProjectReader;
    friend class ProjectWriter;

    struct OldFile;
    std::optional<FileProblem> LoadContentFiles(const FileBytes& inPlace, const FileBytes* seen);
    std::optional<FileProblem> LoadInPlace(const Ref<ContentFile>& file, const std::string& bytes,
                                           const FileBytes* seen);
    Ref<ContentFile> HomeOfNew() const;
    std::optional<FileProblem> MakeHomeOfNew();
    std::string BytesOf(const ContentFile& file, std::string& canonical) const;
    std::string BytesOfProject(std::string& canonical) const;
    std::optional<FileProblem> CheckListed(const std::string& projectBytes) const;
    std::vector<OldFile> RememberFiles() const;
    void GoBackTo(std::vector<OldFile> old);
    std::optional<FileProblem> SyncContentFiles();
    Ref<ContentFile> FindContentFile(const std::string& path) const;
    bool IsHome(const ContentFile& file, const CommentStore::Origin& origin) const;
    std::optional<FileProblem> StoreContentFile(const Ref<ContentFile>& file,
                                                Overwriting overwriting);
    void MarkStored(const Ref<ContentFile>& file);
    std::optional<FileProblem> StoreProjectFile(Overwriting overwriting);
    void MoveTo(const std::string& path);
    /// The path, and the folder of what its comments refer to.
    void MoveStoreTo(const std::string& path);

    std::string mPath;
    XmlFile mKept;
    std::string mBytes;
    std::string mCanonicalBytes;
    bool mExistsOnDisk = false;
    std::vector<SourceSettings> mSources;
    std::vector<Ref<ContentFile>> mContentFiles;
    Ref<CommentStore> mComments = MakeRef<CommentStore>();
    Ref<paperkite::DocTypes> mDocTypes = MakeRef<paperkite::DocTypes>();
    Ref<TextCollection> mNamespaceExclusions = MakeRef<TextCollection>();
    std::unordered_map<std::string, Ref<paperkite::NamespaceProvider>> mProviders;
    Scope mScope;
    Scope mStoredScope;
    DiskStamps mStamps;
    bool mDirty = false;
};

} // namespace paperkite
