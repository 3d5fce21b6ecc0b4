#include "doctypes/source/SourceDataProvider.h"

#include "foundation/ParserElement.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr std::string_view kMark = "%%";
/// May stand before a property's name.
constexpr std::string_view kItem = "item";

constexpr const char* kMembers[] = {
    "Name", "QualifiedName", "Access",      "Kind",     "Language", "Signature",        "Type",
    "File", "Line",          "Description", "Inherits", "Overload", "TaggedDescription"};

} // namespace

std::string SourceDataProvider::GetProperty(const std::string& name) {
    if (!mItem) return {};
    std::string_view wanted = name;
    if (EqualIgnoringCase(wanted.substr(0, kItem.size()), kItem))
        wanted.remove_prefix(kItem.size());
    if (EqualIgnoringCase(wanted, "caption"))
        return mItem->Get("Name").ToText() + mItem->Get("Overload").ToText();
    for (const char* member : kMembers)
        if (EqualIgnoringCase(wanted, member)) return mItem->Get(member).ToText();
    return {};
}

std::string SourceDataProvider::ParseForProperties(const std::string& text) {
    // One template serves many items on end.
    if (mTemplate != text) {
        mPieces = PiecesOf(text);
        mTemplate = text;
    }
    std::string result;
    for (const Piece& piece : mPieces)
        result += piece.IsProperty ? GetProperty(piece.Text) : piece.Text;
    return result;
}

std::vector<SourceDataProvider::Piece> SourceDataProvider::PiecesOf(const std::string& text) {
    std::vector<Piece> pieces;
    std::size_t from = 0;
    while (true) {
        const std::size_t open = text.find(kMark, from);
        const std::size_t close =
            open == std::string::npos ? open : text.find(kMark, open + kMark.size());
        if (close == std::string::npos) break;
        if (open > from) pieces.push_back({text.substr(from, open - from), false});
        const std::size_t name = open + kMark.size();
        pieces.push_back({text.substr(name, close - name), true});
        from = close + kMark.size();
    }
    if (from < text.size()) pieces.push_back({text.substr(from), false});
    return pieces;
}

std::string SourceDataProvider::ProvideData(const Ref<ParserElement>& element,
                                            const Ref<FileSystem>&) {
    if (!element->Attributes.Contains("type")) return {};
    return GetProperty(element->Attributes.Item("type")->Value);
}

void SourceDataProvider::SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                                        const std::string& itemType,
                                        const Ref<Object>& parentItem) {
    mDefinition = definition;
    mItem = item;
    mItemType = itemType;
    mParentItem = parentItem;
}

void SourceDataProvider::Terminate() {
    mDefinition = nullptr;
    mItem = nullptr;
    mParentItem = nullptr;
    mRootItem = nullptr;
}

} // namespace paperkite
