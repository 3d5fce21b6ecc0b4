#include "host/window/DesktopServices.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Services.h"
#include "foundation/Unicode.h"
#include "host/HeadlessServices.h"
#include "host/StateFolder.h"
#include "host/window/SpellDialog.h"
#include "host/window/SpellOptionsDialog.h"
#include "model/ModelControlHelper.h"
#include "platform/qt/FileFollower.h"
#include "platform/qt/MessageBoxService.h"
#include "platform/qt/TextMeasureService.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QUrl>

namespace paperkite {

namespace {

/// Of a link in a message.
constexpr int kMostShown = 200;

class DesktopScreen : public Screen {
public:
    ~DesktopScreen() override { SetMousePointer(MousePointer::Default); }
    void SetMousePointer(MousePointer pointer) override {
        if (pointer == mPointer) return;
        mPointer = pointer;
        if (pointer == MousePointer::Hourglass)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    }
    MousePointer GetMousePointer() const override { return mPointer; }

private:
    MousePointer mPointer = MousePointer::Default;
};

class DesktopShell : public Shell {
public:
    void ShellExecute(std::intptr_t, const std::string&, const std::string& file,
                      const std::string&, const std::string&, int) override {
        const QUrl address = QUrl::fromUserInput(QString::fromStdString(file));
        // What a comment links to may come from anybody: only what a browser or a mail program
        // opens by itself is handed on.
        static const QStringList schemes{"http", "https", "ftp", "mailto"};
        if (!schemes.contains(address.scheme().toLower()))
            Tell(file, "is not opened from here: only web pages (http, https, ftp) and mail "
                       "addresses (mailto) are.");
        else if (!QDesktopServices::openUrl(address))
            Tell(file, "cannot be opened: this system has no program for it.");
    }

private:
    static void Tell(const std::string& link, const char* what) {
        Required(CurrentServices().MessageBox)
            .Show("The link \"" + Shortened(link, kMostShown) + "\" " + what, "Paperkite",
                  MessageIcon::Information);
    }
};

class DesktopFolderBrowser : public FolderBrowser {
public:
    void SetFolderMode(bool value) override { mFolders = value; }
    void SetOwner(std::intptr_t) override {}
    void SetStartFolder(const std::string& folder) override { mStart = folder; }
    void SetTitle(const std::string& title) override { mTitle = title; }
    void SetNewFolder(bool value) override { mNewFolder = value; }
    std::string Run() override {
        QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(mTitle),
                           QString::fromStdString(mStart));
        dialog.setFileMode(mFolders ? QFileDialog::Directory : QFileDialog::ExistingFile);
        dialog.setOption(QFileDialog::ShowDirsOnly, mFolders);
        dialog.setOption(QFileDialog::ReadOnly, !mNewFolder);
        if (dialog.exec() != QDialog::Accepted) return {};
        return dialog.selectedFiles().value(0).toStdString();
    }

private:
    bool mFolders = true;
    bool mNewFolder = true;
    std::string mStart;
    std::string mTitle;
};

class DesktopFilePicker : public FilePicker {
public:
    void SetTitle(const std::string& title) override { mTitle = title; }
    void SetFilter(const std::string& filter) override { mFilter = filter; }
    void SetStartFolder(const std::string& folder) override { mStart = folder; }
    void SetOwner(std::intptr_t) override {}
    std::string Run() override {
        QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(mTitle),
                           QString::fromStdString(mStart));
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setNameFilters(NameFilters());
        if (dialog.exec() != QDialog::Accepted) return {};
        return dialog.selectedFiles().value(0).toStdString();
    }

private:
    /// The names stand at the even places. "*.*" would hide files without an extension.
    QStringList NameFilters() const {
        const QStringList parts = QString::fromStdString(mFilter).split(QLatin1Char('|'));
        QStringList filters;
        for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
            const bool all = parts[at + 1] == QLatin1String("*.*");
            const QString name = parts[at].section(QLatin1Char('('), 0, 0).trimmed();
            filters.append(name +
                           QStringLiteral(" (%1)").arg(all ? QStringLiteral("*") : parts[at + 1]));
        }
        return filters;
    }

    std::string mTitle;
    std::string mFilter;
    std::string mStart;
};

std::optional<std::int32_t> ChooseColour(std::int32_t colour) {
    const QColor before(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
    const QColor chosen = QColorDialog::getColor(before, QApplication::activeWindow());
    if (!chosen.isValid()) return {};
    return chosen.red() + 256 * chosen.green() + 65536 * chosen.blue();
}

int ShowPage(const PageDialog& wanted) {
    if (wanted.PageClass != "CommonPages.PageSpelling")
        RaiseError(ErrorNumber::CannotCreateComponent,
                   "There is no page \"" + wanted.PageClass + "\" in this program");
    SpellOptionsDialog dialog(wanted.SettingsKey, QString::fromStdString(wanted.Caption),
                              QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted ? 1 : 0;
}

} // namespace

void InstallDesktopServices(ModelControlHelper& helper) {
    Services& services = CurrentServices();
    services.MessageBox = std::make_shared<MessageBoxService>();
    services.Screen = std::make_shared<DesktopScreen>();
    services.Shell = std::make_shared<DesktopShell>();
    services.CreateFolderBrowser = [] { return std::make_shared<DesktopFolderBrowser>(); };
    services.CreateFilePicker = [] { return std::make_shared<DesktopFilePicker>(); };
    services.ChooseColour = [](std::int32_t colour, std::intptr_t) { return ChooseColour(colour); };
    services.TextMeasure = std::make_shared<TextMeasureService>();
    services.AskSpelling = [](const SpellQuestion& question) {
        return SpellDialog::Ask(question, QApplication::activeWindow());
    };
    services.ShowPageDialog = [](const PageDialog& dialog) { return ShowPage(dialog); };
    services.FollowFile = &FollowFile;
    services.RunPendingEvents = [] { QApplication::processEvents(); };
    GlobalConfig().ApplicationDataFolder = StateFolder();
    // Who writes remarks goes on writing remarks on the next item.
    GlobalConfig().KeepLastCommentTab = true;
    LoadPageTemplates();
    helper.SetSystemClipboard = [](const std::string& text) {
        QApplication::clipboard()->setText(QString::fromStdString(text));
    };
}

} // namespace paperkite
