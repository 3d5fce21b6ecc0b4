#pragma once

#include "doctypes/source/SourceNamespaceProvider.h"
#include "foundation/NamespaceDefs.h"
#include "model/ProjectDocument.h"
#include "support/FailureSwitch.h"
#include "support/TemporaryFolder.h"

#include <map>
#include <string>

namespace paperkite::test {

/// A scanned project with comments in a real Content File; made once, since a scan takes its time.
class ScannedProject {
public:
    ScannedProject();
    ~ScannedProject();

    /// Comments, files and items as they were in the beginning.
    void Reset();
    /// The comments in the store, a line each: item, tag, Id where it was there from the beginning,
    /// text. Tombstones are left out.
    std::string Comments() const;
    /// The same of the Content File on the disk.
    std::string StoredComments() const;

    static std::string Listing(const CommentStore& store);

    TemporaryFolder Folder;
    Ref<ProjectDocument> Project;
    Ref<SourceNamespaceProvider> Provider;
    Ref<NamespaceDefs> Definitions;
};

class FailingProvider;

/// An item of the real provider, each use of whose members may fail.
class FailingItem : public Object {
public:
    FailingItem(FailureSwitch& failure, FailingProvider& provider, Ref<Object> inner)
        : mFailure(failure), mProvider(provider), mInner(std::move(inner)) {}
    std::string TypeName() const override { return mInner->TypeName(); }
    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;
    const Ref<Object>& GetInner() const { return mInner; }

private:
    FailureSwitch& mFailure;
    FailingProvider& mProvider;
    Ref<Object> mInner;
};

class FailingDataProvider : public DataProvider {
public:
    FailingDataProvider(FailureSwitch& failure, Ref<DataProvider> inner)
        : mFailure(failure), mInner(std::move(inner)) {}
    void Set(std::string_view member, const Value& value) override;
    Value Call(std::string_view member, const std::vector<Value>& arguments) override;
    Ref<DataProvider> Clone() override { return mInner->Clone(); }
    Ref<Object> GetCurrentItem() override { return mInner->GetCurrentItem(); }
    std::string GetCurrentItemType() override { return mInner->GetCurrentItemType(); }
    Ref<Object> GetCurrentParentItem() override { return mInner->GetCurrentParentItem(); }
    Ref<Object> GetCurrentRootItem() override { return mInner->GetCurrentRootItem(); }
    void SetCurrentRootItem(const Ref<Object>& item) override;
    Ref<NamespaceDef> GetNamespaceDef() override { return mInner->GetNamespaceDef(); }
    std::string GetProperty(const std::string& name) override;
    void Initialise(const Ref<ParserTemplate>& text) override { mInner->Initialise(text); }
    std::string ParseForProperties(const std::string& text) override;
    std::string ProvideData(const Ref<ParserElement>& element,
                            const Ref<FileSystem>& files) override;
    void SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                        const std::string& itemType, const Ref<Object>& parentItem) override;
    void DataProvider_Terminate() override { mInner->DataProvider_Terminate(); }

private:
    FailureSwitch& mFailure;
    Ref<DataProvider> mInner;
};

class FailingProvider : public NamespaceProvider {
public:
    FailingProvider(FailureSwitch& failure, Ref<SourceNamespaceProvider> inner);
    Ref<DataProvider> GetDataProvider() override;
    Ref<Object> GetRootItem(Ref<NamespaceDef>& definition, const std::string& moniker) override;
    Ref<Object> GetItem(const std::string& qualifiedName) override;
    Ref<Object> ItemByQualifiedName(const std::string& qualifiedName) override;
    Ref<ObjectCollection> GetItems(Ref<NamespaceDef>& definition, const Ref<Object>& parentItem,
                                   const std::string& filter) override;
    /// The same object for the same item, every time.
    Ref<Object> Wrapped(const Ref<Object>& inner);

private:
    FailureSwitch& mFailure;
    Ref<SourceNamespaceProvider> mInner;
    Ref<FailingDataProvider> mDataProvider;
    std::map<Object*, Ref<FailingItem>> mItems;
};

class FailingProject : public KiteProject {
public:
    FailingProject(FailureSwitch& failure, const ScannedProject& scanned);
    Ref<paperkite::DocTypes> GetDocTypes() override { return mInner->GetDocTypes(); }
    Ref<paperkite::NamespaceProvider> NamespaceProvider(const std::string& moniker) override;
    Ref<TextCollection> GetNamespaceExclusions() override;
    bool GetIncludePrivate() const override { return mInner->GetIncludePrivate(); }
    void SetIncludePrivate(bool value) override;
    bool GetIncludeFriend() const override { return mInner->GetIncludeFriend(); }
    void SetIncludeFriend(bool value) override;
    bool GetIncludeProtected() const override;
    void SetIncludeProtected(bool value) override;
    bool GetIncludeProtectedFriend() const override { return mInner->GetIncludeProtectedFriend(); }
    void SetIncludeProtectedFriend(bool value) override;
    void SetDirty(bool value) override { mInner->SetDirty(value); }
    const Ref<FailingProvider>& GetProvider() const { return mProvider; }

private:
    FailureSwitch& mFailure;
    Ref<ProjectDocument> mInner;
    Ref<FailingProvider> mProvider;
};

} // namespace paperkite::test
