#include "model/SafeFile.h"

#include "foundation/KeyGenerator.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kReadStep = 65536;

/// A file descriptor that is closed with its scope.
class Descriptor {
public:
    explicit Descriptor(int number) : mNumber(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() {
        if (mNumber >= 0) ::close(mNumber);
    }

    int Number() const { return mNumber; }

    /// Closing can be the moment at which a network file system says that it failed.
    bool Close() {
        const int number = mNumber;
        mNumber = -1;
        return ::close(number) == 0;
    }

private:
    int mNumber;
};

/// Removes a file with its scope unless it was put to its place.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string path) : mPath(std::move(path)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile() {
        if (!mPath.empty()) ::unlink(mPath.c_str());
    }

    const std::string& Path() const { return mPath; }

    bool MoveTo(const std::string& target) {
        if (::rename(mPath.c_str(), target.c_str()) != 0) return false;
        mPath.clear();
        return true;
    }

private:
    std::string mPath;
};

std::string FolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

FileProblem ReadProblem(const std::string& path, int error) {
    FileProblem problem;
    problem.File = path;
    if (error == ENOENT || error == ENOTDIR) {
        problem.Reason = FileProblem::ReasonCode::Missing;
        problem.What = "There is no such file.";
        problem.Remedy = "Check the name, or put the file back.";
        return problem;
    }
    problem.Reason = FileProblem::ReasonCode::Unreadable;
    if (error == EACCES || error == EPERM) {
        problem.What = "You are not allowed to read this file.";
        problem.Remedy = "Ask its owner for the permission to read it.";
    } else if (error == EISDIR) {
        problem.What = "This is a folder and no file.";
        problem.Remedy = "Name a file in it.";
    } else {
        problem.What = std::string("The file cannot be read: ") + std::strerror(error) + ".";
        problem.Remedy = "Check the disk or the network that it lies on.";
    }
    return problem;
}

std::string WriteRemedy(int error, const std::string& folder) {
    switch (error) {
    case EACCES:
    case EPERM:
        return "Ask for the permission to write in \"" + folder + "\", or save to another folder.";
    case EROFS:
        return "The disk of \"" + folder + "\" is read-only: save to another one.";
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return "Make room on the disk of \"" + folder + "\" and save again.";
    case ENOENT:
    case ENOTDIR:
        return "Make the folder \"" + folder + "\" first, or save to another one.";
    case EISDIR:
        return "A folder of that name is there: choose another name.";
    default:
        return "Save to another folder, and check the disk of \"" + folder + "\".";
    }
}

FileProblem WriteProblem(const std::string& path, const std::string& target, int error) {
    FileProblem problem;
    problem.Reason = FileProblem::ReasonCode::CannotWrite;
    problem.File = path;
    problem.What = std::string("The file cannot be saved: ") + std::strerror(error) + ".";
    if (::access(target.c_str(), F_OK) == 0) problem.What += " The old file is as it was.";
    problem.Remedy = WriteRemedy(error, FolderOf(target));
    return problem;
}

void Tell(SafeFile::Step step) {
    if (SafeFile::StepDone) SafeFile::StepDone(step);
}

bool WriteAll(int descriptor, std::string_view bytes) {
    constexpr std::size_t kPart = 1 << 20;
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), std::min(bytes.size(), kPart));
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
        Tell(SafeFile::Step::Written);
    }
    return true;
}

// The name survives a crash only when the folder is flushed too. Some file systems cannot do
// that, and the content is safe by then: a failure is no failure of the save.
void FlushFolder(const std::string& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.Number() >= 0) ::fsync(descriptor.Number());
}

bool KeepPermissions(int descriptor, const struct stat& old) {
    // Only the administrator may give files away; for anybody else the group at most.
    if (::fchown(descriptor, old.st_uid, old.st_gid) != 0) {
        const int ignored = ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid);
        static_cast<void>(ignored);
    }
    return ::fchmod(descriptor, old.st_mode & 07777) == 0;
}

constexpr std::size_t kMarkLength = 8;
constexpr const char* kTemporaryEnding = ".tmp";

/// Makes a temporary file for a target and locks it, as a sign that somebody is at work on it.
/// Gives its descriptor, or -1 with errno.
int MakeTemporary(const std::string& target, std::string& name) {
    for (int attempt = 0; attempt < 10; ++attempt) {
        name = target + "." + KeyGenerator().Generate().substr(0, kMarkLength) + kTemporaryEnding;
        const int number = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (number < 0) return -1;
        ::flock(number, LOCK_EX | LOCK_NB);
        // Somebody who cleans up may have been between the two.
        struct stat made {};
        if (::fstat(number, &made) != 0 || made.st_nlink > 0) return number;
        ::close(number);
    }
    errno = EBUSY;
    return -1;
}

bool IsTemporaryOf(const std::string& target, const std::string& name) {
    const std::string ending = kTemporaryEnding;
    return name.size() == target.size() + 1 + kMarkLength + ending.size() &&
           name.starts_with(target + ".") && name.ends_with(ending);
}

/// 0, or what errno was.
int Store(const std::string& target, std::string_view bytes) {
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) return EISDIR;
    // Renaming would replace a write-protected file without a word.
    if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) return errno;

    std::string name;
    Descriptor descriptor(MakeTemporary(target, name));
    if (descriptor.Number() < 0) return errno;
    TemporaryFile temporary(name);
    // Locked until it is in its place.
    const Descriptor lock(::fcntl(descriptor.Number(), F_DUPFD_CLOEXEC, 0));
    Tell(SafeFile::Step::Made);
    if (exists && !KeepPermissions(descriptor.Number(), old)) return errno;
    if (!WriteAll(descriptor.Number(), bytes)) return errno;
    if (::fsync(descriptor.Number()) != 0) return errno;
    Tell(SafeFile::Step::Flushed);
    if (!descriptor.Close()) return errno;
    Tell(SafeFile::Step::Closed);
    if (!temporary.MoveTo(target)) return errno;
    Tell(SafeFile::Step::Renamed);
    FlushFolder(FolderOf(target));
    Tell(SafeFile::Step::FolderFlushed);
    return 0;
}

} // namespace

std::optional<FileProblem> SafeFile::Read(const std::string& path, std::string& bytes) {
    const Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (descriptor.Number() < 0) return ReadProblem(path, errno);
    struct stat about {};
    const bool isSized = ::fstat(descriptor.Number(), &about) == 0 && about.st_size > 0;
    // One byte more than there should be tells the end without growing.
    std::string content(isSized ? static_cast<std::size_t>(about.st_size) + 1 : kReadStep, '\0');
    std::size_t length = 0;
    for (;;) {
        if (length == content.size()) content.resize(2 * length);
        const ssize_t count =
            ::read(descriptor.Number(), content.data() + length, content.size() - length);
        if (count == 0) break;
        if (count > 0)
            length += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return ReadProblem(path, errno);
    }
    content.resize(length);
    bytes = std::move(content);
    return {};
}

std::optional<FileProblem> SafeFile::Write(const std::string& path, std::string_view bytes) {
    const std::string target = Resolve(path);
    const int error = Store(target, bytes);
    if (error == 0) return {};
    return WriteProblem(path, target, error);
}

void SafeFile::CleanUp(const std::string& path) {
    const fs::path target = Resolve(path);
    std::error_code failed;
    for (const auto& entry : fs::directory_iterator(FolderOf(target.string()), failed)) {
        if (!IsTemporaryOf(target.filename().string(), entry.path().filename().string())) continue;
        const Descriptor descriptor(::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC));
        if (descriptor.Number() < 0) continue;
        if (::flock(descriptor.Number(), LOCK_EX | LOCK_NB) == 0) ::unlink(entry.path().c_str());
    }
}

std::string SafeFile::Resolve(const std::string& path) {
    fs::path result = path;
    std::error_code failed;
    // As many links as the system itself would follow.
    for (int links = 0; links < 40 && fs::is_symlink(fs::symlink_status(result, failed)); ++links) {
        const fs::path next = fs::read_symlink(result, failed);
        if (failed) break;
        result = next.is_absolute() ? next : result.parent_path() / next;
    }
    return result.string();
}

} // namespace paperkite
