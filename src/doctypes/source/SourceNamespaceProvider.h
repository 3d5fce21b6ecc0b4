#pragma once

#include "doctypes/source/CommentExtractor.h"
#include "doctypes/source/ParameterItem.h"
#include "doctypes/source/SourceDataProvider.h"
#include "doctypes/source/SourceIndex.h"
#include "doctypes/source/SourceItem.h"
#include "doctypes/source/TypeRelations.h"
#include "foundation/NamespaceProvider.h"
#include "model/CommentStore.h"
#include "model/CoverageSource.h"
#include "model/ItemDirectory.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// The moniker of source code.
inline constexpr const char* kSourceMoniker = "kite.source";

/// Serves the items of scanned source code, one root for each scanned folder.
///
///     auto provider = MakeRef<SourceNamespaceProvider>(project->GetComments());
///     provider->AddRoot(std::move(*scan.Index), folder);
///     project->RegisterProvider(kSourceMoniker, provider);
class SourceNamespaceProvider : public NamespaceProvider,
                                public CoverageSource,
                                public ItemDirectory {
public:
    explicit SourceNamespaceProvider(Ref<CommentStore> comments) : mComments(std::move(comments)) {}

    void AddRoot(SourceIndex index, const std::string& folder);
    std::size_t GetRootCount() const { return mRoots.size(); }
    const SourceIndex& GetIndex(std::size_t root) const { return mRoots[root]->Index; }
    const std::string& GetFolder(std::size_t root) const { return mRoots[root]->Folder; }
    const Ref<CommentStore>& GetComments() const { return mComments; }

    Ref<DataProvider> GetDataProvider() override { return mDataProvider; }
    /// The first root, whatever the moniker; error 91 before any was added.
    Ref<Object> GetRootItem(Ref<NamespaceDef>& definition, const std::string& moniker) override;
    /// Parameters of callables too. "%7C" stands for "|", which the ids of page places part their
    /// fields with.
    Ref<Object> GetItem(const std::string& qualifiedName) override;
    Ref<Object> ItemByQualifiedName(const std::string& qualifiedName) override;
    /// Sorted by name, letter case ignored; overloads in the order of the source.
    Ref<ObjectCollection> GetItems(Ref<NamespaceDef>& definition, const Ref<Object>& parentItem,
                                   const std::string& filter) override;

    /// The qualified name of an entity; valid until the next one is asked for.
    const std::string& NameOf(std::size_t root, SourceIndex::Id entity);
    /// The item of an entity; the same object every time.
    Ref<SourceItem> ItemOf(std::size_t root, SourceIndex::Id entity);
    /// The comment that stands at an item in the source, read from the file when it is asked for.
    std::optional<SourceComment> CommentInSource(const SourceItem& item) const;
    std::optional<SourceComment> CommentInSource(std::size_t root, SourceIndex::Id entity) const;
    /// Which types of a root derive from which; made on first use.
    const TypeRelations& GetTypeRelations(std::size_t root) const;

    /// Parameters exist as long as their callables have them.
    bool Exists(const std::string& qualifiedName) const override;
    /// Every item but the roots that is not private, nor inside a private one.
    void ForEach(const std::function<void(const CoverageRow&)>& visit) const override;
    /// Every item but the roots, private ones too.
    void ForEachItem(const std::function<void(const ItemPlace&)>& visit) const override;
    /// The parameters of a callable.
    void ForEachPart(const std::string& qualifiedName,
                     const std::function<void(const ItemPlace&)>& visit) const override;
    /// Every entity's qualified name, for suggestions; the visitor ends it with false.
    void ForEachName(const std::function<bool(const std::string&)>& visit) const;

private:
    struct Root {
        SourceIndex Index;
        std::string Folder;
        std::unique_ptr<CommentExtractor> Comments;
        /// By entity; empty until the first one is asked for, nothing for those that nobody asked
        /// for.
        std::vector<Ref<SourceItem>> Items;
        std::unique_ptr<TypeRelations> Relations = nullptr;
    };

    Ref<Object> FindItem(const std::string& qualifiedName);

    Ref<CommentStore> mComments;
    Ref<SourceDataProvider> mDataProvider = MakeRef<SourceDataProvider>();
    std::vector<std::unique_ptr<Root>> mRoots;
    /// Whoever works on an item asks for its name more than once.
    struct {
        std::size_t Root = 0;
        SourceIndex::Id Entity = SourceIndex::Nothing;
        std::string Text;
    } mName;
    std::string mLastName;
    Ref<Object> mLastItem;
    /// Those that somebody asked for, by their qualified names.
    std::unordered_map<std::string, Ref<ParameterItem>> mParameters;
};

} // namespace paperkite
