#include "doctypes/source/SourceNamespaceProvider.h"

#include "doctypes/source/ParameterStep.h"
#include "foundation/Text.h"
#include "foundation/Utf8.h"

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

char LowerLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
}

/// An entity that is being sorted by its lower-case name.
struct Sortable {
    SourceIndex::Id Entity;
    /// How the name goes on behind what all names begin with, as a number in the order of those
    /// letters: most names differ there, and need not be compared letter by letter.
    std::uint64_t Letters = 0;
};

/// The length of what all names begin with, letter case ignored.
std::size_t CommonBeginning(const SourceIndex& index, const std::vector<Sortable>& entries) {
    const std::string_view first = index.Name(entries.front().Entity);
    std::size_t length = first.size();
    for (const Sortable& entry : entries) {
        const std::string_view name = index.Name(entry.Entity);
        length = std::min(length, name.size());
        std::size_t at = 0;
        while (at < length && LowerLetter(name[at]) == LowerLetter(first[at]))
            ++at;
        length = at;
    }
    return length;
}

void SortByName(const SourceIndex& index, std::vector<Sortable>& entries) {
    const std::size_t from = CommonBeginning(index, entries);
    for (Sortable& entry : entries) {
        const std::string_view name = index.Name(entry.Entity);
        for (std::size_t at = from; at < from + 8; ++at)
            entry.Letters =
                entry.Letters << 8 |
                static_cast<unsigned char>(at < name.size() ? LowerLetter(name[at]) : '\0');
    }
    std::stable_sort(entries.begin(), entries.end(), [&](const auto& left, const auto& right) {
        if (left.Letters != right.Letters) return left.Letters < right.Letters;
        return CompareIgnoringCase(index.Name(left.Entity), index.Name(right.Entity)) < 0;
    });
}

} // namespace

void SourceNamespaceProvider::AddRoot(SourceIndex index, const std::string& folder) {
    mRoots.push_back(std::make_unique<Root>(
        Root{std::move(index), folder, std::make_unique<CommentExtractor>(folder), {}, {}}));
}

Ref<Object> SourceNamespaceProvider::GetRootItem(Ref<NamespaceDef>&, const std::string&) {
    if (mRoots.empty())
        RaiseError(ErrorNumber::ObjectNotSet, "No source code was scanned for this project");
    return ItemOf(0, SourceIndex::Root);
}

Ref<Object> SourceNamespaceProvider::GetItem(const std::string& qualifiedName) {
    // Whoever adds children asks for their parent each time.
    if (mLastItem && mLastName == qualifiedName) return mLastItem;
    Ref<Object> item = FindItem(qualifiedName);
    if (!item && qualifiedName.find("%7C") != std::string::npos)
        item = FindItem(ReplaceAll(qualifiedName, "%7C", "|"));
    if (!item) return {};
    mLastItem = item;
    mLastName = qualifiedName;
    return item;
}

Ref<Object> SourceNamespaceProvider::FindItem(const std::string& qualifiedName) {
    const bool isParameter = IsParameterName(qualifiedName);
    for (std::size_t root = 0; root < mRoots.size(); ++root) {
        if (!isParameter) {
            if (const auto entity = mRoots[root]->Index.Find(qualifiedName))
                return ItemOf(root, *entity);
        } else if (const auto place = FindParameter(mRoots[root]->Index, qualifiedName)) {
            Ref<ParameterItem>& item = mParameters[qualifiedName];
            if (!item)
                item = MakeRef<ParameterItem>(ItemOf(root, place->Callable), place->Position,
                                              qualifiedName);
            return item;
        }
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
            found.push_back({child});
    if (found.empty()) return {};
    SortByName(index, found);
    auto items = MakeRef<ObjectCollection>();
    items->Reserve(found.size());
    for (const Sortable& entry : found)
        items->Add(ItemOf(parent->GetRoot(), entry.Entity));
    return items;
}

const std::string& SourceNamespaceProvider::NameOf(std::size_t root, SourceIndex::Id entity) {
    if (mName.Root != root || mName.Entity != entity)
        mName = {root, entity, mRoots[root]->Index.QualifiedName(entity)};
    return mName.Text;
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
    return CommentInSource(item.GetRoot(), item.GetEntity());
}

std::optional<SourceComment>
SourceNamespaceProvider::CommentInSource(std::size_t root, SourceIndex::Id entity) const {
    return mRoots[root]->Comments->Find(mRoots[root]->Index, entity);
}

const TypeRelations& SourceNamespaceProvider::GetTypeRelations(std::size_t root) const {
    auto& relations = mRoots[root]->Relations;
    if (!relations) relations = std::make_unique<TypeRelations>(mRoots[root]->Index);
    return *relations;
}

bool SourceNamespaceProvider::Exists(const std::string& qualifiedName) const {
    return std::any_of(mRoots.begin(), mRoots.end(), [&](const auto& root) {
        return root->Index.Find(qualifiedName) || FindParameter(root->Index, qualifiedName);
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

void SourceNamespaceProvider::ForEachPart(
    const std::string& qualifiedName, const std::function<void(const ItemPlace&)>& visit) const {
    for (const auto& root : mRoots) {
        const auto callable = root->Index.Find(qualifiedName);
        if (!callable) continue;
        const auto parameters = root->Index.Parameters(*callable);
        for (std::size_t position = 0; position < parameters.size(); ++position)
            visit({qualifiedName + "~" + ParameterStep(parameters, position),
                   "Parameter",
                   std::string(kSourceMoniker) + ":Parameter",
                   {}});
    }
}

void SourceNamespaceProvider::ForEachName(
    const std::function<bool(const std::string&)>& visit) const {
    for (const auto& root : mRoots)
        for (SourceIndex::Id entity = 0; entity < root->Index.Size(); ++entity)
            if (!visit(root->Index.QualifiedName(entity))) return;
}

} // namespace paperkite
