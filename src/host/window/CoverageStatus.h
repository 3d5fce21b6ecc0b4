#pragma once

#include "foundation/TaggedCommentCollection.h"
#include "host/ProjectSession.h"

#include <QWidget>

#include <string>
#include <unordered_set>

class QLabel;
class QProgressBar;

namespace paperkite {

/// The status bar's right side: how many members of the current type have comments, and how much of
/// the project. Counts once and then follows the comments that come and go.
class CoverageStatus : public QWidget {
public:
    explicit CoverageStatus(QWidget* parent);

    /// Counts the whole project; nothing for none.
    void SetSession(const ProjectSession* session);
    /// The item that the author works at; counts its siblings, or the children of a type.
    void SetItem(const std::string& qualifiedName);
    /// A comment came to an item or went; `documented` is how it stands now.
    void SetDocumented(const std::string& qualifiedName, bool documented);

private:
    void Show();
    void CountMembers();

    const ProjectSession* mSession = nullptr;
    std::string mItem;
    /// The items with comments, as far as they were counted.
    std::unordered_set<std::string> mCommented;
    std::size_t mDocumented = 0;
    std::size_t mTotal = 0;
    QLabel* mMembers;
    QProgressBar* mBar;
    QLabel* mProject;
};

} // namespace paperkite
