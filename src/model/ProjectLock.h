#pragma once

#include <memory>
#include <optional>
#include <string>

namespace paperkite {

/// Says to other programs, also on other machines, that somebody has a project open or is writing
/// it. The lock is on a hidden file beside the project that says who holds it; it ends with the
/// process, however that ends, so that nothing left over ever blocks.
///
///     std::optional<ProjectLock::Holder> other;
///     auto lock = ProjectLock::Take(path, ProjectLock::Purpose::Open, other);
///     if (other) return Say(other->Process + " has it open");
class ProjectLock {
public:
    enum class Purpose {
        Open,  ///< a window shows the project, for as long as it does
        Write, ///< files are being read to be written at once, or written
    };

    struct Holder {
        std::string Host;
        std::string Process;
        std::string User;
        std::string Since;
    };

    /// Nothing with a holder: somebody else has it. Nothing without: no lock can be made there, as
    /// in a folder that cannot be written, and nobody needs one.
    static std::unique_ptr<ProjectLock> Take(const std::string& project, Purpose purpose,
                                             std::optional<Holder>& other);
    /// Takes the lock for writing and waits for others as long as that many milliseconds.
    static std::unique_ptr<ProjectLock> TakeForWriting(const std::string& project, int milliseconds,
                                                       std::optional<Holder>& other);
    /// Who has the project open now, in whatever program.
    static std::optional<Holder> WhoHasOpen(const std::string& project);

    /// Gives the lock back and takes the file away when nobody else holds it.
    ~ProjectLock();
    ProjectLock(const ProjectLock&) = delete;
    ProjectLock& operator=(const ProjectLock&) = delete;

    static std::string FileOf(const std::string& project);

private:
    ProjectLock(std::string path, int descriptor)
        : mPath(std::move(path)), mDescriptor(descriptor) {}

    std::string mPath;
    int mDescriptor;
};

} // namespace paperkite
