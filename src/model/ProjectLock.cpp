#include "model/ProjectLock.h"

#include "model/JournalLine.h"
#include "model/ProcessIdentity.h"
#include "model/ProjectPaths.h"
#include "model/SafeFile.h"

#include <chrono>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace paperkite {

namespace {

/// Each purpose has a byte of the file. Locks of open files go with the last descriptor, whoever
/// else opened the file meanwhile.
bool LockBytes(int descriptor, int command, short type, off_t first, off_t count) {
    struct flock range {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = first;
    range.l_len = count;
    return ::fcntl(descriptor, command, &range) == 0;
}

off_t ByteOf(ProjectLock::Purpose purpose) {
    return purpose == ProjectLock::Purpose::Open ? 0 : 1;
}

bool IsStillAt(int descriptor, const std::string& path) {
    struct stat opened {};
    struct stat present {};
    return ::fstat(descriptor, &opened) == 0 && ::stat(path.c_str(), &present) == 0 &&
           opened.st_ino == present.st_ino && opened.st_dev == present.st_dev;
}

void SayWho(int descriptor) {
    XmlElement element = XmlElement::Named("open");
    element.With("host", ProcessIdentity::Host())
        .With("process", ProcessIdentity::Process())
        .With("user", ProcessIdentity::User())
        .With("since", ProcessIdentity::Now());
    const std::string line = JournalLine::Write(element);
    if (::ftruncate(descriptor, 0) != 0) return;
    const ssize_t ignored = ::pwrite(descriptor, line.data(), line.size(), 0);
    static_cast<void>(ignored);
}

ProjectLock::Holder ReadHolder(const std::string& path) {
    std::string bytes;
    SafeFile::Read(path, bytes);
    const auto element = JournalLine::Read(bytes.substr(0, bytes.find('\n')));
    if (!element) return {"another machine", "unknown", "somebody", "a while"};
    return {element->AttributeText("host"), element->AttributeText("process"),
            element->AttributeText("user"), element->AttributeText("since")};
}

} // namespace

std::string ProjectLock::FileOf(const std::string& project) {
    const std::filesystem::path path = SafeFile::Resolve(ProjectPaths::Normal(project));
    return (path.parent_path() / ("." + path.filename().string() + ".lock")).string();
}

std::unique_ptr<ProjectLock> ProjectLock::Take(const std::string& project, Purpose purpose,
                                               std::optional<Holder>& other) {
    const std::string path = FileOf(project);
    other.reset();
    for (int attempt = 0; attempt < 20; ++attempt) {
        const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (descriptor < 0) return nullptr;
        if (!LockBytes(descriptor, F_OFD_SETLK, F_WRLCK, ByteOf(purpose), 1)) {
            const int error = errno;
            ::close(descriptor);
            if (error == EAGAIN || error == EACCES) other = ReadHolder(path);
            return nullptr;
        }
        // Whoever held it may have taken the file away between the two.
        if (IsStillAt(descriptor, path)) {
            if (purpose == Purpose::Open) SayWho(descriptor);
            return std::unique_ptr<ProjectLock>(new ProjectLock(path, descriptor));
        }
        ::close(descriptor);
    }
    return nullptr;
}

std::unique_ptr<ProjectLock> ProjectLock::TakeForWriting(const std::string& project,
                                                         int milliseconds,
                                                         std::optional<Holder>& other) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
        auto lock = Take(project, Purpose::Write, other);
        if (lock || !other || std::chrono::steady_clock::now() >= end) return lock;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

std::optional<ProjectLock::Holder> ProjectLock::WhoHasOpen(const std::string& project) {
    const std::string path = FileOf(project);
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return {};
    struct flock range {};
    range.l_type = F_RDLCK;
    range.l_whence = SEEK_SET;
    range.l_start = ByteOf(Purpose::Open);
    range.l_len = 1;
    const bool isHeld = ::fcntl(descriptor, F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
    ::close(descriptor);
    if (!isHeld) return {};
    return ReadHolder(path);
}

ProjectLock::~ProjectLock() {
    // Only who holds all of it knows that nobody else does.
    if (LockBytes(mDescriptor, F_OFD_SETLK, F_WRLCK, 0, 2) && IsStillAt(mDescriptor, mPath))
        ::unlink(mPath.c_str());
    ::close(mDescriptor);
}

} // namespace paperkite
