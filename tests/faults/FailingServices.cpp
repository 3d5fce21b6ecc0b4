#include "faults/FailingServices.h"

#include "model/TemplateParser.h"
#include "platform/html/HtmlServices.h"

#include <utility>

namespace paperkite::test {

namespace {

class CountingErrorComponent : public ErrorComponent {
public:
    explicit CountingErrorComponent(std::shared_ptr<std::string> reports)
        : mReports(std::move(reports)) {}
    void ErrorHandler(const Report& report) override {
        *mReports += report.ModuleName + "." + report.ProcedureName + " (" +
                     std::to_string(report.ErrorNumber) + ")\n";
    }
    std::string GetAction() const override { return {}; }

private:
    std::shared_ptr<std::string> mReports;
};

} // namespace

void FailingRegistry::CreateKey(RegistryHive root, const std::string& keyPath) {
    mFailure.Use("Registry.CreateKey");
    MemoryRegistry::CreateKey(root, keyPath);
}

void FailingRegistry::WriteValue(RegistryHive root, const std::string& keyPath,
                                 const std::string& name, int type, const std::string& value) {
    mFailure.Use("Registry.WriteValue(" + name + ")");
    MemoryRegistry::WriteValue(root, keyPath, name, type, value);
}

Value FailingRegistry::ReadValue(RegistryHive root, const std::string& keyPath,
                                 const std::string& name) {
    mFailure.Use("Registry.ReadValue(" + name + ")");
    return MemoryRegistry::ReadValue(root, keyPath, name);
}

MessageAnswer FailingMessageBox::Show(const std::string& text, const std::string& title,
                                      MessageIcon icon, MessageButtons buttons) {
    mFailure.Use("MessageBox.Show");
    return ScriptedMessageBox::Show(text, title, icon, buttons);
}

void FailingShell::ShellExecute(std::intptr_t window, const std::string& verb,
                                const std::string& file, const std::string& parameters,
                                const std::string& directory, int showCommand) {
    mFailure.Use("Shell.ShellExecute");
    ScriptedShell::ShellExecute(window, verb, file, parameters, directory, showCommand);
}

void FailingScreen::SetMousePointer(MousePointer pointer) {
    mFailure.Use("Screen.SetMousePointer");
    RecordingScreen::SetMousePointer(pointer);
}

std::vector<std::string> FailingFileSystem::FilesWithExtension(const std::string& folder,
                                                               const std::string& ending) const {
    mFailure.Use("FileSystem.FilesWithExtension");
    return ScriptedFileSystem::FilesWithExtension(folder, ending);
}

bool FailingFileSystem::FolderExists(const std::string& path) const {
    mFailure.Use("FileSystem.FolderExists");
    return ScriptedFileSystem::FolderExists(path);
}

void FailingFileSystem::CreateFolder(const std::string& path) {
    mFailure.Use("FileSystem.CreateFolder");
    ScriptedFileSystem::CreateFolder(path);
}

std::optional<std::string> FailingFileSystem::ReadFile(const std::string& path) const {
    mFailure.Use("FileSystem.ReadFile");
    return ScriptedFileSystem::ReadFile(path);
}

void FailingFileSystem::DeleteFile(const std::string& path) {
    mFailure.Use("FileSystem.DeleteFile");
    ScriptedFileSystem::DeleteFile(path);
}

FailingDOMFactory::FailingDOMFactory(FailureSwitch& failure)
    : mFailure(failure), mInner(MakeHTMLDOMFactory()) {}

Ref<HTMLDocument> FailingDOMFactory::CreateFromString(const std::string& html,
                                                      const Ref<Object>& reserved) {
    mFailure.Use("DOM.CreateFromString");
    return mInner->CreateFromString(html, reserved);
}

Ref<HTMLDocument> FailingDOMFactory::CreateFromFile(const std::string& path,
                                                    const Ref<Object>& reserved) {
    mFailure.Use("DOM.CreateFromFile");
    return mInner->CreateFromFile(path, reserved);
}

FailingTidy::FailingTidy(FailureSwitch& failure) : mFailure(failure), mInner(MakeHTMLTidy()) {}

std::string FailingTidy::TidyHTML(const std::string& html, bool bodyOnly) {
    mFailure.Use("Tidy");
    return mInner->TidyHTML(html, bodyOnly);
}

FailingControlHelper::FailingControlHelper(FailureSwitch& failure) : mFailure(failure) {
    SetSystemClipboard = [this](const std::string&) { mFailure.Use("SystemClipboard"); };
}

std::string FailingControlHelper::GetTreePath(TreeControl& tree) {
    mFailure.Use("Helper.GetTreePath");
    return ModelControlHelper::GetTreePath(tree);
}

void FailingControlHelper::SetTreePath(TreeControl& tree, const std::string& path) {
    mFailure.Use("Helper.SetTreePath");
    ModelControlHelper::SetTreePath(tree, path);
}

void FailingControlHelper::CopyComments(const Ref<Object>& item) {
    mFailure.Use("Helper.CopyComments");
    ModelControlHelper::CopyComments(item);
}

void FailingControlHelper::PasteComments(const Ref<Object>& item) {
    mFailure.Use("Helper.PasteComments");
    ModelControlHelper::PasteComments(item);
}

bool FailingControlHelper::GetClipboardHasComments() const {
    mFailure.Use("Helper.ClipboardHasComments");
    return ModelControlHelper::GetClipboardHasComments();
}

std::string FailingControlHelper::GetClipboardItemType() const {
    mFailure.Use("Helper.ClipboardItemType");
    return ModelControlHelper::GetClipboardItemType();
}

std::string FailingControlHelper::GetClipboardQualifiedName() const {
    mFailure.Use("Helper.ClipboardQualifiedName");
    return ModelControlHelper::GetClipboardQualifiedName();
}

void FailingControlHelper::SyncGeneralComment(const Ref<Object>& item, bool load) {
    mFailure.Use("Helper.SyncGeneralComment");
    ModelControlHelper::SyncGeneralComment(item, load);
}

Ref<TaggedComment>
FailingControlHelper::FindTaggedComment(const Ref<TaggedCommentCollection>& comments,
                                        const std::string& tag) {
    mFailure.Use("Helper.FindTaggedComment");
    return ModelControlHelper::FindTaggedComment(comments, tag);
}

void FailingControlHelper::ApplyToolbarStyle(DockHost& dock, int style) {
    mFailure.Use("Helper.ApplyToolbarStyle");
    ModelControlHelper::ApplyToolbarStyle(dock, style);
}

std::string FailingControlHelper::MergeDescription(const std::string& value,
                                                   const std::string& text,
                                                   const std::string& format) {
    mFailure.Use("Helper.MergeDescription");
    return ModelControlHelper::MergeDescription(value, text, format);
}

std::string FailingControlHelper::BuildTopic(const std::string& topic, bool dotNetXMLFormat,
                                             const std::string& tipPrefix) {
    mFailure.Use("Helper.BuildTopic");
    return ModelControlHelper::BuildTopic(topic, dotNetXMLFormat, tipPrefix);
}

std::string FailingControlHelper::BuildTopicForType(const std::string& itemType,
                                                    const std::string& topic, bool dotNetXMLFormat,
                                                    const std::string& tipPrefix) {
    mFailure.Use("Helper.BuildTopicForType");
    return "topic " + itemType + topic + tipPrefix + (dotNetXMLFormat ? "x" : "");
}

void FailingControlHelper::ResetParser() {
    mFailure.Use("Helper.ResetParser");
    ModelControlHelper::ResetParser();
}

Ref<TaggedCommentCollection>
FailingPipe::Consolidate(const Ref<TaggedCommentCollection>& comments) {
    mFailure.Use("Pipe.Consolidate");
    return CommentPipeModel::Consolidate(comments);
}

Ref<TaggedCommentCollection> FailingPipe::Separate(const Ref<TaggedCommentCollection>& comments) {
    mFailure.Use("Pipe.Separate");
    return CommentPipeModel::Separate(comments);
}

void FailingObject::Set(std::string_view member, const Value&) {
    mFailure.Use(mName + "." + std::string(member));
}

Value FailingObject::Call(std::string_view member, const std::vector<Value>&) {
    mFailure.Use(mName + "." + std::string(member));
    return {};
}

FailingServices::FailingServices(FailureSwitch& failure)
    : Registry(std::make_shared<FailingRegistry>(failure)),
      Messages(std::make_shared<FailingMessageBox>(failure)),
      Helper(std::make_shared<FailingControlHelper>(failure)),
      Files(std::make_shared<FailingFileSystem>(failure)) {
    Services& services = CurrentServices();
    services.Registry = Registry;
    services.MessageBox = Messages;
    services.Shell = std::make_shared<FailingShell>(failure);
    services.Screen = std::make_shared<FailingScreen>(failure);
    services.FileSystem = Files;
    services.HTMLDOMFactory = std::make_shared<FailingDOMFactory>(failure);
    services.HTMLTidy = std::make_shared<FailingTidy>(failure);
    services.CreateParserTemplate = [&failure] {
        failure.Use("CreateParserTemplate");
        return MakeRef<TemplateParser>();
    };
    services.ControlHelper = Helper;
    services.ApplicationFolder = "/program";
    services.CreateCommentPipe = [&failure] {
        failure.Use("CreateCommentPipe");
        return MakeRef<FailingPipe>(failure);
    };
    services.ShowPageDialog = [&failure](const PageDialog&) {
        failure.Use("ShowPageDialog");
        return 1;
    };
    services.CreateErrorComponent = [reports = mReports] {
        return std::make_shared<CountingErrorComponent>(reports);
    };
}

std::string FailingServices::TakeReports() {
    return std::exchange(*mReports, {});
}

} // namespace paperkite::test
