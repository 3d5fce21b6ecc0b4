#pragma once

#include <QDialog>

#include <string>
#include <vector>

class QCheckBox;
class QLineEdit;

namespace paperkite {

/// The options of spell checking as they are stored under one key of the settings. OK stores them;
/// files that a check cannot use are refused with the reason, and the dialog stays.
class SpellOptionsDialog : public QDialog {
public:
    /// The key below that of the current user: "Software\\Brindlewick\\Paperkite\\Spelling".
    SpellOptionsDialog(std::string key, const QString& caption, QWidget* parent);

    void accept() override;

private:
    QWidget* MakeRules();
    QWidget* MakeFiles();
    void AddRule(QWidget* parent, const char* name, bool byDefault, const QString& text);
    QLineEdit* AddFile(QWidget* parent, const char* name, const QString& text, const QString& hint,
                       const QString& filter);
    std::string Stored(const std::string& name) const;
    /// A sentence that says which file cannot be used and what to do; empty when all can.
    QString Problem() const;
    /// Raises what the settings raise where they cannot be written.
    void Store() const;

    struct Rule {
        std::string Name;
        QCheckBox* Box;
    };
    struct File {
        std::string Name;
        QLineEdit* Path;
    };

    std::string mKey;
    std::vector<Rule> mRules;
    std::vector<File> mFiles;
};

} // namespace paperkite
