#pragma once

#include "foundation/CommentPipe.h"
#include "foundation/ControlHelper.h"
#include "foundation/HTMLDocument.h"
#include "foundation/MousePointer.h"
#include "foundation/ParserTemplate.h"
#include "foundation/RegistryHelper.h"
#include "foundation/SpellEngine.h"
#include "foundation/SpellQuestion.h"
#include "foundation/Theme.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace paperkite {

class DesignerControl;
class ISimplePageHost;

enum class MessageIcon { None, Information, Warning, Question, Critical };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// Shows a message and waits for the author's answer.
class MessageBox {
public:
    virtual ~MessageBox() = default;
    virtual MessageAnswer Show(const std::string& text, const std::string& title, MessageIcon icon,
                               MessageButtons buttons = MessageButtons::Ok) = 0;
};

/// Opens documents and addresses with the programs that the user's system has for them.
class Shell {
public:
    virtual ~Shell() = default;
    /// `showCommand` 3 asks for a maximised window. A failure is an error.
    virtual void ShellExecute(std::intptr_t window, const std::string& verb,
                              const std::string& file, const std::string& parameters,
                              const std::string& directory, int showCommand) = 0;
};

/// Lets the user choose a folder.
class FolderBrowser {
public:
    virtual ~FolderBrowser() = default;
    virtual void SetFolderMode(bool value) = 0;
    virtual void SetOwner(std::intptr_t window) = 0;
    virtual void SetStartFolder(const std::string& folder) = 0;
    virtual void SetTitle(const std::string& title) = 0;
    virtual void SetNewFolder(bool value) = 0;
    /// The chosen folder; empty when the user cancels.
    virtual std::string Run() = 0;
};

/// Lets the user choose a file that is there.
class FilePicker {
public:
    virtual ~FilePicker() = default;
    virtual void SetTitle(const std::string& title) = 0;
    /// Names and patterns in turn, parted by "|", as in "All files (*.*)|*.*".
    virtual void SetFilter(const std::string& filter) = 0;
    virtual void SetStartFolder(const std::string& folder) = 0;
    virtual void SetOwner(std::intptr_t window) = 0;
    /// The whole path of the chosen file; empty when the user cancels.
    virtual std::string Run() = 0;
};

/// A dialog with one page of settings.
struct PageDialog {
    std::string Caption;
    std::string PageClass;
    std::string PageTitle;
    /// The key below that of the current user where the page keeps its settings.
    std::string SettingsKey;
    ISimplePageHost* Host = nullptr;
};

/// The mouse pointer of the whole screen.
class Screen {
public:
    virtual ~Screen() = default;
    virtual void SetMousePointer(MousePointer pointer) = 0;
    virtual MousePointer GetMousePointer() const = 0;
};

/// A path and what stands there.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    virtual std::string FileName(const std::string& path) const = 0;
    virtual std::string Dir(const std::string& path) const = 0;
    virtual bool FolderExists(const std::string& path) const = 0;
    virtual void CreateFolder(const std::string& path) = 0;
    /// The base names of the files in a folder that end in `extension`, sorted; none is no failure.
    virtual std::vector<std::string> FilesWithExtension(const std::string& folder,
                                                        const std::string& extension) const = 0;
    /// The bytes of a file, or nothing where there is none that can be read.
    virtual std::optional<std::string> ReadFile(const std::string& path) const = 0;
    /// Replaces what stands there; error 75 where that fails.
    virtual void WriteFile(const std::string& path, const std::string& bytes) = 0;
    /// A file that is not there is no failure; one that stays is error 75.
    virtual void DeleteFile(const std::string& path) = 0;
};

/// Why a text is no well-formed XML, and where.
struct MarkupProblem {
    /// From 1; columns count characters.
    std::size_t Line = 0;
    std::size_t Column = 0;
    /// A sentence.
    std::string What;
};

/// What a report about a failure is sent to, where the host has such a component.
class ErrorComponent {
public:
    struct Report {
        int ErrorNumber;
        std::string ProjectName;
        std::string ModuleName;
        std::string ProcedureName;
        std::string Description;
        int LineNumber;
        std::string Variables;
        std::string Parameters;
        std::string Version;
    };

    virtual ~ErrorComponent() = default;
    virtual void ErrorHandler(const Report& report) = 0;
    /// What is to be done now, in the component's own words.
    virtual std::string GetAction() const = 0;
};

/// What components need of the world outside. The host provides real ones at its start, a test
/// scripted ones; a service that nobody provides is error 429 where it is used.
struct Services {
    std::shared_ptr<paperkite::RegistryHelper> Registry;
    std::shared_ptr<paperkite::MessageBox> MessageBox;
    std::shared_ptr<paperkite::Shell> Shell;
    std::shared_ptr<paperkite::Screen> Screen;
    std::shared_ptr<paperkite::FileSystem> FileSystem;
    std::shared_ptr<paperkite::ControlHelper> ControlHelper;
    std::function<std::shared_ptr<paperkite::FolderBrowser>()> CreateFolderBrowser;
    std::function<std::shared_ptr<paperkite::FilePicker>()> CreateFilePicker;
    /// Asks for any colour, beginning with one, both as R + 256 * G + 65536 * B; nothing when the
    /// user cancels.
    std::function<std::optional<std::int32_t>(std::int32_t colour, std::intptr_t owner)>
        ChooseColour;
    std::function<Ref<paperkite::CommentPipe>()> CreateCommentPipe;
    /// Gives the report component, or nothing where the host has none.
    std::function<std::shared_ptr<paperkite::ErrorComponent>()> CreateErrorComponent;
    /// A parser for page layouts, without a text.
    std::function<Ref<paperkite::ParserTemplate>()> CreateParserTemplate;
    std::shared_ptr<paperkite::HTMLDOMFactory> HTMLDOMFactory;
    std::shared_ptr<paperkite::HTMLTidy> HTMLTidy;
    /// The control of a designer by the class that definitions name; error 429 for another class.
    std::function<Ref<paperkite::DesignerControl>(const std::string&)> CreateDesigner;
    /// The engine of surfaces that were given no other one; nothing: nobody checks spelling.
    Ref<paperkite::SpellEngine> Spelling;
    /// Asks the author what to do with a misspelt word, and waits for the answer; nothing: a spell
    /// check has nobody to ask and changes nothing.
    std::function<SpellAnswer(const SpellQuestion&)> AskSpelling;
    /// Nothing stands for a system without visual themes.
    std::shared_ptr<paperkite::ThemeColours> ThemeColours;
    /// What keeps a text from being XML, or nothing; pieces without a root element count as XML.
    std::function<std::optional<MarkupProblem>(const std::string& text)> CheckXML;
    /// Calls `changed` when the file at a path is written, replaced, made or deleted, until what it
    /// gives is let go. Nothing: nobody follows files.
    std::function<std::shared_ptr<void>(const std::string& path, std::function<void()> changed)>
        FollowFile;
    /// Nothing: texts are taken to fit.
    std::shared_ptr<paperkite::TextMeasure> TextMeasure;
    /// Shows a page of settings and waits; 1 when the author accepted it. Error 429 for a class
    /// that nobody knows.
    std::function<int(const PageDialog&)> ShowPageDialog;
    /// Lets pending events of the window system run.
    std::function<void()> RunPendingEvents;
    /// The folder of the program, with its icons below.
    std::string ApplicationFolder;
};

/// The services of this process.
Services& CurrentServices();

/// A service that must be there.
template <class T>
T& Required(const std::shared_ptr<T>& service,
            std::source_location where = std::source_location::current()) {
    if (!service) RaiseError(ErrorNumber::CannotCreateComponent, {}, where);
    return *service;
}

} // namespace paperkite
