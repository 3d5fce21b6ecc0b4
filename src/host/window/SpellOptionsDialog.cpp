#include "host/window/SpellOptionsDialog.h"

#include "foundation/Services.h"
#include "platform/spelling/SpellServices.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace paperkite {

namespace {

constexpr int kFirstWidth = 520;
constexpr const char* kDictionary = "PrimaryDictionary";
constexpr const char* kOwnWords = "CustomDictionary";

} // namespace

SpellOptionsDialog::SpellOptionsDialog(std::string key, const QString& caption, QWidget* parent)
    : QDialog(parent), mKey(std::move(key)) {
    setObjectName("SpellOptionsDialog");
    setWindowTitle(caption);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->addWidget(MakeRules());
    column->addWidget(MakeFiles());
    column->addStretch(1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &SpellOptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SpellOptionsDialog::reject);
    column->addWidget(buttons);
    resize(kFirstWidth, sizeHint().height());
}

std::string SpellOptionsDialog::Stored(const std::string& name) const {
    std::string text;
    Ignoring([&] {
        text =
            Required(CurrentServices().Registry).ReadValue(HKEY_CURRENT_USER, mKey, name).ToText();
    });
    return text;
}

QWidget* SpellOptionsDialog::MakeRules() {
    auto* group = new QGroupBox(tr("Words"), this);
    new QVBoxLayout(group);
    AddRule(group, "AlwaysSuggest", true, tr("&Suggest other words"));
    AddRule(group, "IgnoreUppercase", true, tr("Pass over words in &upper case"));
    AddRule(group, "IgnoreNumbers", true, tr("Pass over words with &numbers"));
    AddRule(group, "IgnoreMixedCase", false, tr("Pass over words in mixed &case"));
    return group;
}

void SpellOptionsDialog::AddRule(QWidget* parent, const char* name, bool byDefault,
                                 const QString& text) {
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(name);
    const std::string stored = Stored(name);
    box->setChecked(stored.empty() ? byDefault : Value(stored).ToNumber() != 0);
    parent->layout()->addWidget(box);
    mRules.push_back({name, box});
}

QWidget* SpellOptionsDialog::MakeFiles() {
    auto* group = new QGroupBox(tr("Dictionaries"), this);
    new QVBoxLayout(group);
    AddFile(group, kDictionary, tr("&Dictionary:"), tr("That of the system's language"),
            tr("Dictionaries (*.dic);;All files (*)"));
    AddFile(group, kOwnWords, tr("&Own words:"), tr("A list of this user"),
            tr("Lists of words (*.txt *.dic);;All files (*)"));
    return group;
}

QLineEdit* SpellOptionsDialog::AddFile(QWidget* parent, const char* name, const QString& text,
                                       const QString& hint, const QString& filter) {
    auto* label = new QLabel(text, parent);
    auto* row = new QWidget(parent);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* path = new QLineEdit(QString::fromStdString(Stored(name)), row);
    path->setObjectName(name);
    path->setPlaceholderText(hint);
    path->setClearButtonEnabled(true);
    label->setBuddy(path);
    auto* browse = new QPushButton(tr("Browse …"), row);
    browse->setAutoDefault(false);
    browse->setAccessibleName(tr("Browse for %1").arg(QString(text).remove('&').remove(':')));
    connect(browse, &QPushButton::clicked, this, [this, path, text, filter] {
        const QString chosen = QFileDialog::getOpenFileName(
            this, QString(text).remove('&').remove(':'), path->text(), filter);
        if (!chosen.isEmpty()) path->setText(chosen);
    });
    line->addWidget(path, 1);
    line->addWidget(browse);
    parent->layout()->addWidget(label);
    parent->layout()->addWidget(row);
    mFiles.push_back({name, path});
    return path;
}

QString SpellOptionsDialog::Problem() const {
    const auto chosen = [this](const char* name) {
        return findChild<QLineEdit*>(name)->text().trimmed();
    };
    const QString dictionary = chosen(kDictionary);
    const QString words = chosen(kOwnWords);
    if (!dictionary.isEmpty() && !dictionary.endsWith(".dic"))
        return tr("“%1” is no dictionary. Choose a file that ends in .dic and has its rules in an "
                  ".aff file beside it, or leave the field empty.")
            .arg(dictionary);
    if (!words.isEmpty() && QDir::isRelativePath(words))
        return tr("“%1” does not say in which folder it is. Choose a file for your own words, or "
                  "leave the field empty.")
            .arg(words);
    const auto trial = MakeSpelling();
    SpellOptions options = trial->GetOptions();
    options.MainDictionaryFile = dictionary.toStdString();
    if (!words.isEmpty()) options.CustomDictionaryFile = words.toStdString();
    trial->SetOptions(options);
    const std::string problem = trial->GetProblem();
    // What was wrong before, and is not chosen here, does not keep from changing the rest.
    const auto& present = CurrentServices().Spelling;
    if (present && problem == present->GetProblem()) return {};
    return QString::fromStdString(problem);
}

void SpellOptionsDialog::Store() const {
    RegistryHelper& registry = Required(CurrentServices().Registry);
    registry.CreateKey(HKEY_CURRENT_USER, mKey);
    const auto write = [&](const std::string& name, const std::string& text) {
        registry.WriteValue(HKEY_CURRENT_USER, mKey, name, kRegistryString, text);
    };
    for (const Rule& rule : mRules)
        write(rule.Name, rule.Box->isChecked() ? "1" : "0");
    for (const File& file : mFiles)
        write(file.Name, file.Path->text().trimmed().toStdString());
}

void SpellOptionsDialog::accept() {
    QString problem = Problem();
    try {
        if (problem.isEmpty()) Store();
    } catch (const Error& error) {
        problem = QString::fromStdString(error.GetDescription());
    }
    if (problem.isEmpty()) return QDialog::accept();
    QMessageBox::warning(this, windowTitle(), problem);
}

} // namespace paperkite
