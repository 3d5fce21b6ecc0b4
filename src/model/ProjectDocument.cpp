#include "model/ProjectDocument.h"

#include "foundation/Text.h"
#include "model/ProjectPaths.h"

#include <filesystem>

namespace paperkite {

namespace {

// Qualified names are cut at these.
std::string RootNameFor(const std::string& folder) {
    std::string name = std::filesystem::path(folder).filename().string();
    for (char& character : name)
        if (character == '~' || character == ':') character = '_';
    return name.empty() ? "root" : name;
}

} // namespace

ProjectDocument::OpenResult ProjectDocument::New(const std::string& path) {
    auto project = MakeRef<ProjectDocument>();
    project->MoveStoreTo(path);
    const std::string contentFile =
        ProjectPaths::FolderOf(path) + "/" + ProjectPaths::BaseName(path) + ".ktc";
    if (auto problem = project->AddContentFile(contentFile)) return {{}, problem};
    return {project, {}};
}

void ProjectDocument::MoveStoreTo(const std::string& path) {
    mPath = path.empty() ? path : ProjectPaths::Normal(path);
    mComments->SetFolder(mPath.empty() ? mPath : ProjectPaths::FolderOf(mPath));
}

std::string ProjectDocument::GetTitle() const {
    const std::string title = GetSettings().Get("ProjectGroupName").ToText();
    return title.empty() ? ProjectPaths::BaseName(mPath) : title;
}

void ProjectDocument::SetTitle(const std::string& value) {
    GetSettings().Set("ProjectGroupName", Value(value));
}

SourceSettings& ProjectDocument::AddSource(const std::string& folder) {
    SourceSettings source;
    source.Folder = ProjectPaths::Normal(folder);
    source.RootName = RootNameFor(source.Folder);
    mSources.push_back(std::move(source));
    return mSources.back();
}

void ProjectDocument::RegisterProvider(const std::string& moniker,
                                       const Ref<paperkite::NamespaceProvider>& provider) {
    mProviders[LowerCase(moniker)] = provider;
}

Ref<paperkite::NamespaceProvider> ProjectDocument::NamespaceProvider(const std::string& moniker) {
    const auto found = mProviders.find(LowerCase(moniker));
    return found == mProviders.end() ? Ref<paperkite::NamespaceProvider>() : found->second;
}

void ProjectDocument::SetNamespaceExclusions(const Ref<TextCollection>& value) {
    if (!value) RaiseError(ErrorNumber::ObjectNotSet);
    if (mNamespaceExclusions == value) return;
    mNamespaceExclusions = value;
    Events.NamespaceExclusionsChanged.Raise();
}

void ProjectDocument::SetDirty(bool value) {
    if (mDirty == value) return;
    mDirty = value;
    Document.DirtyStateChanged.Raise(value);
}

std::int32_t ProjectDocument::GetSourceProjectCount() const {
    return static_cast<std::int32_t>(mSources.size());
}

} // namespace paperkite
