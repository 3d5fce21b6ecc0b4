#pragma once

#include "foundation/DynamicHelp.h"
#include "model/CommentPipeModel.h"
#include "model/ModelControlHelper.h"
#include "support/FailureSwitch.h"
#include "support/ModelServices.h"

#include <memory>
#include <string>
#include <vector>

namespace paperkite::test {

// Every service of the outside, each use of which may fail.

class FailingRegistry : public MemoryRegistry {
public:
    explicit FailingRegistry(FailureSwitch& failure) : mFailure(failure) {}
    void CreateKey(RegistryHive root, const std::string& keyPath) override;
    void WriteValue(RegistryHive root, const std::string& keyPath, const std::string& name,
                    int type, const std::string& value) override;
    Value ReadValue(RegistryHive root, const std::string& keyPath,
                    const std::string& name) override;

private:
    FailureSwitch& mFailure;
};

class FailingMessageBox : public ScriptedMessageBox {
public:
    explicit FailingMessageBox(FailureSwitch& failure) : mFailure(failure) {}
    MessageAnswer Show(const std::string& text, const std::string& title, MessageIcon icon,
                       MessageButtons buttons) override;

private:
    FailureSwitch& mFailure;
};

class FailingShell : public ScriptedShell {
public:
    explicit FailingShell(FailureSwitch& failure) : mFailure(failure) {}
    void ShellExecute(std::intptr_t window, const std::string& verb, const std::string& file,
                      const std::string& parameters, const std::string& directory,
                      int showCommand) override;

private:
    FailureSwitch& mFailure;
};

class FailingScreen : public RecordingScreen {
public:
    explicit FailingScreen(FailureSwitch& failure) : mFailure(failure) {}
    void SetMousePointer(MousePointer pointer) override;

private:
    FailureSwitch& mFailure;
};

class FailingFileSystem : public ScriptedFileSystem {
public:
    explicit FailingFileSystem(FailureSwitch& failure) : mFailure(failure) {}
    std::vector<std::string> FilesWithExtension(const std::string& folder,
                                                const std::string& extension) const override;
    bool FolderExists(const std::string& path) const override;
    void CreateFolder(const std::string& path) override;
    std::optional<std::string> ReadFile(const std::string& path) const override;
    void DeleteFile(const std::string& path) override;

private:
    FailureSwitch& mFailure;
};

/// Makes real documents.
class FailingDOMFactory : public HTMLDOMFactory {
public:
    explicit FailingDOMFactory(FailureSwitch& failure);
    Ref<HTMLDocument> CreateFromString(const std::string& html,
                                       const Ref<Object>& reserved) override;
    Ref<HTMLDocument> CreateFromFile(const std::string& path, const Ref<Object>& reserved) override;

private:
    FailureSwitch& mFailure;
    std::shared_ptr<HTMLDOMFactory> mInner;
};

/// Tidies for real.
class FailingTidy : public HTMLTidy {
public:
    explicit FailingTidy(FailureSwitch& failure);
    std::string TidyHTML(const std::string& html, bool bodyOnly) override;

private:
    FailureSwitch& mFailure;
    std::shared_ptr<HTMLTidy> mInner;
};

class FailingControlHelper : public ModelControlHelper {
public:
    explicit FailingControlHelper(FailureSwitch& failure);
    std::string GetTreePath(TreeControl& tree) override;
    void SetTreePath(TreeControl& tree, const std::string& path) override;
    void CopyComments(const Ref<Object>& item) override;
    void PasteComments(const Ref<Object>& item) override;
    bool GetClipboardHasComments() const override;
    std::string GetClipboardItemType() const override;
    std::string GetClipboardQualifiedName() const override;
    void SyncGeneralComment(const Ref<Object>& item, bool load) override;
    Ref<TaggedComment> FindTaggedComment(const Ref<TaggedCommentCollection>& comments,
                                         const std::string& tag) override;
    void ApplyToolbarStyle(DockHost& dock, int style) override;
    std::string MergeDescription(const std::string& value, const std::string& text,
                                 const std::string& format) override;
    void ResetParser() override;
    std::string BuildTopic(const std::string& topic, bool dotNetXMLFormat,
                           const std::string& tipPrefix) override;
    std::string BuildTopicForType(const std::string& itemType, const std::string& topic,
                                  bool dotNetXMLFormat, const std::string& tipPrefix) override;

private:
    FailureSwitch& mFailure;
};

class FailingPipe : public CommentPipeModel {
public:
    explicit FailingPipe(FailureSwitch& failure) : mFailure(failure) {}
    Ref<TaggedCommentCollection> Consolidate(const Ref<TaggedCommentCollection>& comments) override;
    Ref<TaggedCommentCollection> Separate(const Ref<TaggedCommentCollection>& comments) override;

private:
    FailureSwitch& mFailure;
};

/// The host's command wrapper, and its spelling engine: whatever is asked of it may fail.
class FailingObject : public Object {
public:
    FailingObject(FailureSwitch& failure, std::string name)
        : mFailure(failure), mName(std::move(name)) {}
    std::string TypeName() const override { return mName; }
    void Set(std::string_view member, const Value& value) override;
    Value Call(std::string_view member, const std::vector<Value>& arguments) override;

private:
    FailureSwitch& mFailure;
    std::string mName;
};

class FailingHelpHost : public DynamicHelpHost {
public:
    explicit FailingHelpHost(FailureSwitch& failure) : mFailure(failure) {}
    void ContextChanged() override { mFailure.Use("Help.ContextChanged"); }
    void ShowTopic(const std::string&) override { mFailure.Use("Help.ShowTopic"); }

private:
    FailureSwitch& mFailure;
};

/// Installs all of them, with a report component that only counts.
class FailingServices {
public:
    explicit FailingServices(FailureSwitch& failure);

    /// The failures that were reported since the last call, a line each: module, procedure, number.
    std::string TakeReports();

    std::shared_ptr<FailingRegistry> Registry;
    std::shared_ptr<FailingMessageBox> Messages;
    std::shared_ptr<FailingControlHelper> Helper;
    std::shared_ptr<FailingFileSystem> Files;

private:
    ScriptedServices mKept;
    std::shared_ptr<std::string> mReports = std::make_shared<std::string>();
};

} // namespace paperkite::test
