#pragma once

#include "host/UnsavedWork.h"
#include "model/CommentRecovery.h"
#include "model/ProjectLock.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace paperkite {

/// What a window does so that nothing of its open project is lost: it holds the lock, writes down
/// every few seconds what is not saved, and offers what an earlier run of the program left.
class SafeKeeping : public QObject {
public:
    /// Nothing when the author does not want to open the project after all. Asks what to do when
    /// somebody else has it open, and what becomes of work that was left; recovered comments are
    /// in the session's project then.
    static std::unique_ptr<SafeKeeping> Begin(ProjectSession& session, QWidget* window);
    /// For a project that was saved under another name.
    static std::unique_ptr<SafeKeeping> BeginAnew(const std::string& project);

    /// From now on the workspace is watched; what was recovered is safe again behind this.
    void Watch(Workspace& workspace);
    /// The workspace goes; another one on the same project may be watched after it.
    void Pause();
    /// Lets others open the project.
    void GiveLockBack() { mLock.reset(); }

    UnsavedWork& GetWork() { return mWork; }
    const std::string& GetProject() const { return mProject; }
    /// Whether the author chose only to look at it.
    bool IsReadOnly() const { return mReadOnly; }
    /// Writes down what is not saved, now.
    void Keep();

    /// Told once when unsaved work cannot be written down.
    std::function<void(const FileProblem& problem)> Failed;

private:
    explicit SafeKeeping(const std::string& project);
    bool TakeLock(QWidget* window);
    void OfferLeftWork(ProjectDocument& project, QWidget* window);

    std::string mProject;
    UnsavedWork mWork;
    std::unique_ptr<ProjectLock> mLock;
    bool mReadOnly = false;
    std::vector<CommentJournal::Contents> mDealtWith;
    std::vector<JournalEntry> mRecovered;
    QTimer mTimer;
};

} // namespace paperkite
