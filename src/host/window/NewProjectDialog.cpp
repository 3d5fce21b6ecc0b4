#include "host/window/NewProjectDialog.h"

#include "platform/qt/Icons.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace paperkite {

NewProjectDialog::NewProjectDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("New Project"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(12);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    mFolder = AddRow(*form, tr("&Source folder:"), "SourceFolder");
    mTitle = AddRow(*form, tr("&Title:"), "Title");
    mFile = AddRow(*form, tr("&Project file:"), "ProjectFile");
    mExcludes = AddRow(*form, tr("&Leave out:"), "Excludes");
    mExcludes->setPlaceholderText(tr("Patterns such as third_party; *_test.cpp"));
    AddBrowse(mFolder, tr("Choose the Source Folder"), true);
    AddBrowse(mFile, tr("Choose the Project File"), false);
    column->addLayout(form);
    mProblem = new QLabel(this);
    mProblem->setWordWrap(true);
    column->addWidget(mProblem);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    mCreate = buttons->addButton(tr("&Create"), QDialogButtonBox::AcceptRole);
    mCreate->setDefault(true);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(mFolder, &QLineEdit::textChanged, this, [this] {
        SuggestNames();
        CheckFields();
    });
    connect(mFile, &QLineEdit::textChanged, this, [this] { CheckFields(); });
    CheckFields();
    resize(560, sizeHint().height());
}

QLineEdit* NewProjectDialog::AddRow(QFormLayout& form, const QString& label, const char* name) {
    auto* field = new QLineEdit(this);
    field->setObjectName(name);
    form.addRow(label, field);
    return field;
}

void NewProjectDialog::AddBrowse(QLineEdit* field, const QString& title, bool folders) {
    QAction* browse = field->addAction(Icons::ByName("document-open"), QLineEdit::TrailingPosition);
    browse->setToolTip(title);
    browse->setText(title);
    connect(browse, &QAction::triggered, this, [this, field, title, folders] {
        const QString chosen =
            folders ? QFileDialog::getExistingDirectory(this, title, field->text())
                    : QFileDialog::getSaveFileName(this, title, field->text(),
                                                   tr("Projects (*%1)").arg(kProjectEnding));
        if (!chosen.isEmpty()) field->setText(chosen);
    });
}

void NewProjectDialog::SetSourceFolder(const QString& folder) {
    mFolder->setText(folder);
}

void NewProjectDialog::SuggestNames() {
    const QDir folder(mFolder->text());
    const QString name = folder.dirName();
    if (!mTitle->isModified()) mTitle->setText(name);
    if (!mFile->isModified() && !name.isEmpty())
        mFile->setText(QDir::toNativeSeparators(folder.filePath(name + kProjectEnding)));
}

void NewProjectDialog::CheckFields() {
    QString problem;
    if (mFolder->text().isEmpty())
        problem = tr("Choose the folder of the code to be documented.");
    else if (!QFileInfo(mFolder->text()).isDir())
        problem = tr("There is no folder %1.").arg(mFolder->text());
    else if (mFile->text().isEmpty())
        problem = tr("Choose where the project is kept.");
    else if (QFileInfo::exists(mFile->text()))
        problem = tr("%1 is there already. Choose another name.").arg(mFile->text());
    mProblem->setText(problem);
    mCreate->setEnabled(problem.isEmpty());
}

ProjectSession::NewProject NewProjectDialog::GetNewProject() const {
    ProjectSession::NewProject wanted;
    wanted.Path = mFile->text().toStdString();
    wanted.SourceFolder = mFolder->text().toStdString();
    wanted.Title = mTitle->text().trimmed().toStdString();
    for (const QString& pattern : mExcludes->text().split(';', Qt::SkipEmptyParts))
        wanted.Excludes.push_back(pattern.trimmed().toStdString());
    return wanted;
}

} // namespace paperkite
