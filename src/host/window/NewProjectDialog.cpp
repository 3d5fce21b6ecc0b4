#include "host/window/NewProjectDialog.h"

#include "platform/qt/Icons.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
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
    QPushButton* browseFolder = MakeBrowseButton(tr("Choose the Source Folder"));
    mFolder = AddRow(*form, tr("&Source folder:"), "SourceFolder", browseFolder);
    mTitle = AddRow(*form, tr("&Title:"), "Title");
    QPushButton* browseFile = MakeBrowseButton(tr("Choose the Project File"));
    mFile = AddRow(*form, tr("&Project file:"), "ProjectFile", browseFile);
    mExcludes = AddRow(*form, tr("&Leave out:"), "Excludes");
    connect(browseFolder, &QPushButton::clicked, this, [this] { BrowseFolder(); });
    connect(browseFile, &QPushButton::clicked, this, [this] { BrowseFile(); });
    mExcludes->setPlaceholderText(tr("Patterns such as third_party; *_test.cpp"));
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

QLineEdit* NewProjectDialog::AddRow(QFormLayout& form, const QString& label, const char* name,
                                    QPushButton* browse) {
    auto* field = new QLineEdit(this);
    field->setObjectName(name);
    if (!browse) {
        form.addRow(label, field);
        return field;
    }
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(field);
    row->addWidget(browse);
    form.addRow(label, row);
    // The form cannot see which part of the row the label is for.
    static_cast<QLabel*>(form.labelForField(row))->setBuddy(field);
    return field;
}

QPushButton* NewProjectDialog::MakeBrowseButton(const QString& title) {
    auto* button = new QPushButton(Icons::ByName("document-open"), tr("Browse …"), this);
    button->setAutoDefault(false);
    button->setToolTip(title);
    button->setAccessibleName(title);
    return button;
}

void NewProjectDialog::BrowseFolder() {
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Choose the Source Folder"), mFolder->text());
    if (!chosen.isEmpty()) mFolder->setText(chosen);
}

void NewProjectDialog::BrowseFile() {
    const QString chosen =
        QFileDialog::getSaveFileName(this, tr("Choose the Project File"), mFile->text(),
                                     tr("Projects (*%1)").arg(kProjectEnding));
    if (chosen.isEmpty()) return;
    mFile->setText(chosen);
    mFile->setModified(true);
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
