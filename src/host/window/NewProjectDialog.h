#pragma once

#include "host/ProjectSession.h"

#include <QDialog>

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace paperkite {

/// Asks what a new project is made of: the source folder, the title, where the project is kept, and
/// what is left out.
class NewProjectDialog : public QDialog {
public:
    explicit NewProjectDialog(QWidget* parent);

    /// Fills the title and the file in from the folder, as long as the author has not.
    void SetSourceFolder(const QString& folder);
    ProjectSession::NewProject GetNewProject() const;

private:
    void SuggestNames();
    void CheckFields();
    QLineEdit* AddRow(QFormLayout& form, const QString& label, const char* name,
                      QPushButton* browse = nullptr);
    QPushButton* MakeBrowseButton(const QString& title);
    void BrowseFolder();
    void BrowseFile();

    QLineEdit* mFolder;
    QLineEdit* mTitle;
    QLineEdit* mFile;
    QLineEdit* mExcludes;
    QLabel* mProblem;
    QPushButton* mCreate;
};

} // namespace paperkite
