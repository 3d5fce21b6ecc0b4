#include "doctypes/source/SourceNamespaceProvider.h"

#include "doctypes/source/Utf8.h"
#include "foundation/Text.h"

#include <algorithm>
#include <array>

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

/// Which kinds bear a text, by their numbers.
std::array<bool, kSourceKindCount> KindsNamed(std::string_view text) {
    std::array<bool, kSourceKindCount> named{};
    for (std::size_t kind = 0; kind < named.size(); ++kind)
        named[kind] = KindText(static_cast<SourceKind>(kind)) == text;
    return named;
}

/// An entity with how its lower-case name begins, as numbers in the order of those letters: most
/// names differ there, and need not be compared letter by letter.
struct Sortable {
    Sortable(const SourceIndex& index, SourceIndex::Id id) : Entity(id) {
        const std::string_view name = index.Name(id);
        for (std::size_t at = 0; at < 16; ++at) {
            const char letter = at < name.size() ? name[at] : '\0';
            const bool isUpper = letter >= 'A' && letter <= 'Z';
            std::uint64_t& half = at < 8 ? First : Second;
            half = half << 8 | static_cast<unsigned char>(isUpper ? letter + 32 : letter);
        }
    }

    bool ComesBefore(const Sortable& other, const SourceIndex& index) const {
        if (First != other.First) return First < other.First;
        if (Second != other.Second) return Second < other.Second;
        return CompareIgnoringCase(index.Name(Entity), index.Name(other.Entity)) < 0;
    }

    std::uint64_t First = 0;
    std::uint64_t Second = 0;
    SourceIndex::Id Entity;
};

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
    // Whoever adds children asks for their parent each time.
    if (mLastItem && mLastName == qualifiedName) return mLastItem;
    for (std::size_t root = 0; root < mRoots.size(); ++root)
        if (const auto entity = mRoots[root]->Index.Find(qualifiedName)) {
            mLastItem = ItemOf(root, *entity);
            mLastName = qualifiedName;
            return mLastItem;
        }
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
    const auto isWanted = KindsNamed(definition->ItemType);
    std::vector<Sortable> found;
    for (const SourceIndex::Id child : index.Children(parent->GetEntity()))
        if (isWanted[static_cast<std::size_t>(index.Kind(child))] &&
            scope.Holds(index.Access(child)))
            found.emplace_back(index, child);
    if (found.empty()) return {};
    std::stable_sort(found.begin(), found.end(), [&](const auto& left, const auto& right) {
        return left.ComesBefore(right, index);
    });
    auto items = MakeRef<ObjectCollection>();
    for (const Sortable& entry : found)
        items->Add(ItemOf(parent->GetRoot(), entry.Entity));
    return items;
}

Ref<SourceItem> SourceNamespaceProvider::ItemOf(std::size_t root, SourceIndex::Id entity) {
    auto& items = mRoots[root]->Items;
    if (items.empty()) items.resize(mRoots[root]->Index.Size());
    Ref<SourceItem>& item = items[entity];
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

void SourceNamespaceProvider::ForEachItem(
    const std::function<void(const ItemPlace&)>& visit) const {
    for (const auto& root : mRoots) {
        const SourceIndex& index = root->Index;
        for (SourceIndex::Id entity = 1; entity < index.Size(); ++entity)
            visit({index.QualifiedName(entity), std::string(index.KindText(entity)),
                   std::string(kSourceMoniker).append(":").append(KindText(index.Kind(entity))),
                   std::string(index.Signature(entity))});
    }
}

void SourceNamespaceProvider::ForEachName(
    const std::function<bool(const std::string&)>& visit) const {
    for (const auto& root : mRoots)
        for (SourceIndex::Id entity = 0; entity < root->Index.Size(); ++entity)
            if (!visit(root->Index.QualifiedName(entity))) return;
}

} // namespace paperkite
