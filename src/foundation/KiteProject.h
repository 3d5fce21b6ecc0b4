#pragma once

#include "foundation/AdditionalFile.h"
#include "foundation/CommentFile.h"
#include "foundation/DiagramStyle.h"
#include "foundation/DocTypes.h"
#include "foundation/Event.h"
#include "foundation/ExcludeFilter.h"
#include "foundation/IgnoredRelationship.h"
#include "foundation/NamespaceProvider.h"
#include "foundation/Object.h"
#include "foundation/ObjectCollection.h"
#include "foundation/PreviewLog.h"
#include "foundation/ProjectSettings.h"
#include "foundation/ProjectTemplate.h"
#include "foundation/Variable.h"

#include <cstdint>
#include <string>

namespace paperkite {

/// A documentation project, as the host supplies it.
///
/// What a host brings of its own is virtual; the records that a project merely holds are kept here.
/// The many plain options ("OutputFolder", "Language" …) are reached by name, through Get and Set
/// or through GetSettings. Nobody marks the project as changed but through SetDirty.
class KiteProject : public Object {
public:
    std::string TypeName() const override { return "KiteProject"; }
    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;

    virtual Ref<paperkite::DocTypes> GetDocTypes() = 0;
    /// The provider that serves a namespace moniker, or nothing.
    virtual Ref<paperkite::NamespaceProvider> NamespaceProvider(const std::string& moniker) = 0;

    /// The qualified names that are unticked, each under itself as key.
    virtual Ref<TextCollection> GetNamespaceExclusions() = 0;

    /// Scope of item enumeration.
    virtual bool GetIncludePrivate() const = 0;
    virtual void SetIncludePrivate(bool value) = 0;
    virtual bool GetIncludeFriend() const = 0;
    virtual void SetIncludeFriend(bool value) = 0;
    virtual bool GetIncludeProtected() const = 0;
    virtual void SetIncludeProtected(bool value) = 0;
    virtual bool GetIncludeProtectedFriend() const = 0;
    virtual void SetIncludeProtectedFriend(bool value) = 0;

    /// Marks the project as changed.
    virtual void SetDirty(bool value) = 0;

    /// How many items of each kind the project documents: with source, compiled, and with source
    /// that can be written back to.
    virtual std::int32_t GetSourceProjectCount() const { return 0; }
    virtual std::int32_t GetCompiledComponentCount() const { return 0; }
    virtual std::int32_t GetClassicSourceProjectCount() const { return 0; }

    ProjectSettings& GetSettings() { return mSettings; }
    const ProjectSettings& GetSettings() const { return mSettings; }

    /// Member name wildcards to leave out.
    Collection<Ref<ExcludeFilter>>& GetMemberFilters() { return mMemberFilters; }
    const Collection<Ref<ExcludeFilter>>& GetMemberFilters() const { return mMemberFilters; }

    /// Template variables with values, by name, letter case ignored.
    Collection<Ref<Variable>>& GetVariables() { return mVariables; }
    const Collection<Ref<Variable>>& GetVariables() const { return mVariables; }

    /// Files that are copied into the output.
    Collection<Ref<AdditionalFile>>& GetAdditionalFiles() { return mAdditionalFiles; }
    const Collection<Ref<AdditionalFile>>& GetAdditionalFiles() const { return mAdditionalFiles; }

    /// The Content Files. New comments go into the first one.
    Collection<Ref<CommentFile>>& GetCommentFiles() { return mCommentFiles; }
    const Collection<Ref<CommentFile>>& GetCommentFiles() const { return mCommentFiles; }

    /// Relationships that are left out of diagrams.
    Collection<Ref<IgnoredRelationship>>& GetIgnoreRelationships() { return mIgnoreRelationships; }

    const Collection<Ref<IgnoredRelationship>>& GetIgnoreRelationships() const {
        return mIgnoreRelationships;
    }

    /// Never nothing.
    const Ref<paperkite::DiagramStyle>& GetDiagramStyle() const { return mDiagramStyle; }

    /// The templates that are bound to the project, by name.
    const Collection<Ref<ProjectTemplate>>& GetTemplates() const { return mTemplates; }
    /// Binds a template; one that is bound already keeps its binding. A second template of the same
    /// name is an error.
    Ref<ProjectTemplate> AddTemplate(const Ref<PageTemplate>& value);

    /// The bound template whose pages are made at present, or nothing.
    const Ref<ProjectTemplate>& GetCurrentTemplate() const { return mCurrentTemplate; }
    void SetCurrentTemplate(const Ref<ProjectTemplate>& value) { mCurrentTemplate = value; }

    /// The code page of the pages that are made; 65001 is UTF-8.
    std::int32_t GetOutputCodePage() const;
    void SetOutputCodePage(std::int32_t value);

    /// Where whoever makes pages tells what went wrong; nothing: nobody wants to know.
    Ref<PreviewLog> Log;

    struct ProjectEvents {
        Event<> NamespaceExclusionsChanged;
    } Events;

private:
    ProjectSettings mSettings;
    Collection<Ref<ExcludeFilter>> mMemberFilters;
    Collection<Ref<Variable>> mVariables{KeyComparison::IgnoringCase};
    Collection<Ref<AdditionalFile>> mAdditionalFiles;
    Collection<Ref<CommentFile>> mCommentFiles;
    Collection<Ref<IgnoredRelationship>> mIgnoreRelationships;
    Ref<paperkite::DiagramStyle> mDiagramStyle = MakeRef<paperkite::DiagramStyle>();
    Collection<Ref<ProjectTemplate>> mTemplates{KeyComparison::IgnoringCase};
    Ref<ProjectTemplate> mCurrentTemplate;
};

} // namespace paperkite
