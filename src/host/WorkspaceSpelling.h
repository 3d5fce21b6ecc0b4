#pragma once

#include "foundation/Event.h"
#include "host/ProjectSession.h"
#include "model/ProjectWords.h"

#include <functional>
#include <memory>
#include <string>

namespace paperkite {

class DeclaredNames;
class ProjectEditor;

/// Lets the spelling engine of the process know what an open project adds to the right words: the
/// names of its code, and its file of words, which what is learnt and passed over goes into. The
/// project that was opened last counts. Without an engine nothing happens.
class WorkspaceSpelling {
public:
    /// Both outlive this.
    WorkspaceSpelling(ProjectSession& session, ProjectEditor& editor);
    ~WorkspaceSpelling();
    WorkspaceSpelling(const WorkspaceSpelling&) = delete;
    WorkspaceSpelling& operator=(const WorkspaceSpelling&) = delete;

    /// The code is another one now.
    void CodeChanged();
    /// Reads the words anew where somebody else changed the file, or the project has another name
    /// now; false when it is the same file as the last time.
    bool LookAtWords();
    /// Why the file of words could not be read or written the last time; empty when all is well.
    const std::string& GetProblem() const { return mProblem; }

private:
    struct Shared;

    void ReadWords();
    void Tell();
    void Ignore(const std::string& word);

    std::shared_ptr<Shared> mShared;
    std::string mProblem;
    Connection mIgnored;
};

} // namespace paperkite
