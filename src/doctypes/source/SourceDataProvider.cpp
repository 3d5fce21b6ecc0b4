#include "doctypes/source/SourceDataProvider.h"

#include "foundation/ParserElement.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr std::string_view kMark = "%%";

constexpr const char* kMembers[] = {
    "Name", "QualifiedName", "Access",      "Kind",     "Language", "Signature",        "Type",
    "File", "Line",          "Description", "Inherits", "Overload", "TaggedDescription"};

} // namespace

std::string SourceDataProvider::GetProperty(const std::string& name) {
    if (!mItem) return {};
    std::string wanted = LowerCase(name);
    if (wanted.starts_with("item")) wanted.erase(0, 4);
    if (wanted == "caption") return mItem->Get("Name").ToText() + mItem->Get("Overload").ToText();
    for (const char* member : kMembers)
        if (EqualIgnoringCase(wanted, member)) return mItem->Get(member).ToText();
    return {};
}

std::string SourceDataProvider::ParseForProperties(const std::string& text) {
    std::string result;
    std::size_t from = 0;
    while (true) {
        const std::size_t open = text.find(kMark, from);
        const std::size_t close =
            open == std::string::npos ? open : text.find(kMark, open + kMark.size());
        if (close == std::string::npos) return result.append(text, from);
        result.append(text, from, open - from);
        const std::size_t name = open + kMark.size();
        result += GetProperty(text.substr(name, close - name));
        from = close + kMark.size();
    }
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
