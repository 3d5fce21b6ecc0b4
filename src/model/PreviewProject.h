#pragma once

#include "foundation/KiteProject.h"

namespace paperkite {

/// A project for making pages of another project's items. Who makes pages sets variables, options
/// and the output folder of the project at hand; here that stays apart from what is published.
///
/// Providers, scope and exclusions are those of the other project, as they are at the moment; the
/// scope cannot be set here. Nothing that is done here makes anything dirty.
class PreviewProject : public KiteProject {
public:
    explicit PreviewProject(Ref<KiteProject> source) : mSource(std::move(source)) {}

    Ref<paperkite::DocTypes> GetDocTypes() override { return mSource->GetDocTypes(); }
    Ref<paperkite::NamespaceProvider> NamespaceProvider(const std::string& moniker) override {
        return mSource->NamespaceProvider(moniker);
    }
    Ref<TextCollection> GetNamespaceExclusions() override {
        return mSource->GetNamespaceExclusions();
    }
    bool GetIncludePrivate() const override { return mSource->GetIncludePrivate(); }
    void SetIncludePrivate(bool) override {}
    bool GetIncludeFriend() const override { return mSource->GetIncludeFriend(); }
    void SetIncludeFriend(bool) override {}
    bool GetIncludeProtected() const override { return mSource->GetIncludeProtected(); }
    void SetIncludeProtected(bool) override {}
    bool GetIncludeProtectedFriend() const override { return mSource->GetIncludeProtectedFriend(); }
    void SetIncludeProtectedFriend(bool) override {}
    void SetDirty(bool) override {}
    std::int32_t GetSourceProjectCount() const override { return mSource->GetSourceProjectCount(); }

private:
    Ref<KiteProject> mSource;
};

} // namespace paperkite
