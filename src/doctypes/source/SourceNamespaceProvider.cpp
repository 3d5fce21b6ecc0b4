#include "doctypes/source/SourceNamespaceProvider.h"

#include "doctypes/source/Utf8.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

/// Which accesses a filter lets through.
class Scope {
public:
    explicit Scope(const std::string& filter) {
        mAll = ContainsIgnoringCase(filter, "includeall=true");
        for (const std::string& pair : Split(filter, ",")) {
            if (!EqualIgnoringCase(Token(pair, "=", 1), "scope")) continue;
            for (const std::string& word : Split(Token(pair, "=", 2), "+"))
                mWords.push_back(UpperCase(word));
        }
    }
    bool Holds(SourceAccess access) const {
        return mAll || std::find(mWords.begin(), mWords.end(), AccessText(access)) != mWords.end();
    }

private:
    bool mAll = false;
    std::vector<std::string> mWords;
};

bool ComesBefore(const SourceIndex& index, SourceIndex::Id left, SourceIndex::Id right) {
    return LowerCase(index.Name(left)) < LowerCase(index.Name(right));
}

} // namespace

void SourceNamespaceProvider::AddRoot(SourceIndex index, const std::string& folder) {
    mRoots.push_back(std::make_unique<Root>(
        Root{std::move(index), folder, std::make_unique<CommentExtractor>(folder), {}}));
}

Ref<Object> SourceNamespaceProvider::GetRootItem(Ref<NamespaceDef>&, const std::string&) {
    if (mRoots.empty())
        RaiseError(ErrorNumber::ObjectNotSet, "No source code was scanned for this project");
    return ItemOf(0, SourceIndex::Root);
}

Ref<Object> SourceNamespaceProvider::GetItem(const std::string& qualifiedName) {
    for (std::size_t root = 0; root < mRoots.size(); ++root)
        if (const auto entity = mRoots[root]->Index.Find(qualifiedName))
            return ItemOf(root, *entity);
    return {};
}

Ref<Object> SourceNamespaceProvider::ItemByQualifiedName(const std::string& qualifiedName) {
    return GetItem(qualifiedName);
}

Ref<ObjectCollection> SourceNamespaceProvider::GetItems(Ref<NamespaceDef>& definition,
                                                        const Ref<Object>& parentItem,
                                                        const std::string& filter) {
    const auto parent = parentItem.As<SourceItem>();
    if (!parent) return {};
    const SourceIndex& index = parent->GetIndex();
    const Scope scope(filter);
    std::vector<SourceIndex::Id> found;
    for (const SourceIndex::Id child : index.Children(parent->GetEntity()))
        if (KindText(index.Kind(child)) == definition->ItemType && scope.Holds(index.Access(child)))
            found.push_back(child);
    if (found.empty()) return {};
    std::stable_sort(found.begin(), found.end(),
                     [&](auto left, auto right) { return ComesBefore(index, left, right); });
    auto items = MakeRef<ObjectCollection>();
    for (const SourceIndex::Id entity : found)
        items->Add(ItemOf(parent->GetRoot(), entity));
    return items;
}

Ref<SourceItem> SourceNamespaceProvider::ItemOf(std::size_t root, SourceIndex::Id entity) {
    Ref<SourceItem>& item = mRoots[root]->Items[entity];
    if (!item) item = MakeRef<SourceItem>(*this, root, entity);
    return item;
}

std::optional<SourceComment>
SourceNamespaceProvider::CommentInSource(const SourceItem& item) const {
    Root& root = *mRoots[item.GetRoot()];
    return root.Comments->Find(root.Index, item.GetEntity());
}

bool SourceNamespaceProvider::Exists(const std::string& qualifiedName) const {
    return std::any_of(mRoots.begin(), mRoots.end(), [&](const auto& root) {
        return root->Index.Find(qualifiedName).has_value();
    });
}

void SourceNamespaceProvider::ForEach(const std::function<void(const CoverageRow&)>& visit) const {
    for (const auto& root : mRoots) {
        const SourceIndex& index = root->Index;
        std::vector<SourceIndex::Id> open{SourceIndex::Root};
        while (!open.empty()) {
            const SourceIndex::Id entity = open.back();
            open.pop_back();
            if (entity != SourceIndex::Root)
                visit({index.QualifiedName(entity), std::string(index.KindText(entity)),
                       PrintableUtf8(index.Place(entity).File)});
            const auto children = index.Children(entity);
            for (auto child = children.rbegin(); child != children.rend(); ++child)
                if (index.Access(*child) != SourceAccess::Private) open.push_back(*child);
        }
    }
}

void SourceNamespaceProvider::ForEachName(
    const std::function<bool(const std::string&)>& visit) const {
    for (const auto& root : mRoots)
        for (SourceIndex::Id entity = 0; entity < root->Index.Size(); ++entity)
            if (!visit(root->Index.QualifiedName(entity))) return;
}

} // namespace paperkite
