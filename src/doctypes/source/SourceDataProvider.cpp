#include "doctypes/source/SourceDataProvider.h"

#include "doctypes/source/ItemProperties.h"
#include "doctypes/source/PageElements.h"
#include "doctypes/source/PageHtml.h"
#include "foundation/GlobalConfig.h"
#include "foundation/MemberTable.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr std::string_view kMark = "%%";

} // namespace

struct SourceDataProviderMembers {
    using P = SourceDataProvider;
    using Links = PageSettings::Links;

    static Value Prepare(P& p, const std::vector<Value>& arguments) {
        if (arguments.size() < 2)
            RaiseError(ErrorNumber::InvalidCall,
                       "Prepare takes a definition, an item, a caption and a parent");
        auto definition = arguments[0].ToObjectOf<NamespaceDef>();
        const auto item = arguments[1].ToObject();
        p.mCaption = arguments.size() > 2 ? arguments[2].ToText() : std::string();
        const auto parent = arguments.size() > 3 ? arguments[3].ToObject() : Ref<Object>();
        p.SetCurrentItem(definition, item, definition ? definition->ItemType : std::string(),
                         parent);
        return {};
    }

    static const MemberTable<P>& Table() {
        static const MemberTable<P> members{
            {"ForEdit", [](const P& p) { return Value(p.mSettings.ForEdit); },
             [](P& p, const Value& v) { p.mSettings.ForEdit = v.ToBoolean(); }},
            {"InlineStyles", [](const P& p) { return Value(p.mSettings.InlineStyles); },
             [](P& p, const Value& v) { p.mSettings.InlineStyles = v.ToBoolean(); }},
            {"PageLinks", [](const P& p) { return Value(p.mSettings.LinksTo == Links::Pages); },
             [](P& p, const Value& v) {
                 p.mSettings.LinksTo = v.ToBoolean() ? Links::Pages : Links::None;
             }},
            {"editcommenttype",
             [](const P& p) {
                 return Value(static_cast<std::int32_t>(p.mSettings.EditCommentType));
             },
             [](P& p, const Value& v) {
                 p.mSettings.EditCommentType = static_cast<CommentType>(v.ToInteger());
             }},
            {"RootItem", [](const P& p) { return Value(p.mSettings.RootItem); },
             [](P& p, const Value& v) { p.mSettings.RootItem = v.ToObject(); }},
            {"Project", [](const P& p) { return Value(p.mSettings.Project.Lock()); },
             [](P& p, const Value& v) { p.mSettings.Project = v.ToObjectOf<KiteProject>(); }},
            {"Template", [](const P& p) { return Value(p.mSettings.Template); },
             [](P& p, const Value& v) { p.mSettings.Template = v.ToObjectOf<PageTemplate>(); }},
            {"Caption", [](const P& p) { return Value(p.mCaption); }},
            {"Prepare", nullptr, nullptr, &Prepare},
        };
        return members;
    }
};

SourceDataProvider::SourceDataProvider() = default;
SourceDataProvider::~SourceDataProvider() = default;

Value SourceDataProvider::Get(std::string_view member) const {
    const auto get = SourceDataProviderMembers::Table().FindGetter(member);
    return get ? get(*this) : DataProvider::Get(member);
}

void SourceDataProvider::Set(std::string_view member, const Value& value) {
    if (!SourceDataProviderMembers::Table().Set(*this, member, value))
        DataProvider::Set(member, value);
    mPage = nullptr;
}

Value SourceDataProvider::Call(std::string_view member, const std::vector<Value>& arguments) {
    Value result;
    if (SourceDataProviderMembers::Table().Call(*this, member, arguments, result)) return result;
    return DataProvider::Call(member, arguments);
}

Ref<DataProvider> SourceDataProvider::Clone() {
    auto clone = MakeRef<SourceDataProvider>();
    clone->mSettings = mSettings;
    clone->mCaption = mCaption;
    clone->SetCurrentItem(mDefinition, mItem, mItemType, mParentItem);
    return clone;
}

std::string SourceDataProvider::GetProperty(const std::string& name) {
    return mItem ? PropertyOf(*mItem, name) : std::string();
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
    if (!mItem || !element->Attributes.Contains("type")) return {};
    PageSubject subject;
    if (FindSubject(subject)) {
        if (!mPage) BeginPage();
        bool isKnown = false;
        const std::string text = mPage->Provide(*element, subject, isKnown);
        if (isKnown) return text;
    }
    return PageHtml::Escaped(GetProperty(element->Attributes.Item("type")->Value));
}

/// A parameter has no page of its own; what is asked of it is its callable's.
bool SourceDataProvider::FindSubject(PageSubject& subject) const {
    const auto parameter = mItem.As<ParameterItem>();
    const auto item = parameter ? parameter->GetCallable() : mItem.As<SourceItem>();
    if (!item) return false;
    subject = {&item->GetProvider(), item->GetRoot(), item->GetEntity()};
    return true;
}

void SourceDataProvider::BeginPage() {
    PageSettings settings = mSettings;
    const auto project = settings.Project.Lock();
    if (!settings.Template && project && project->GetCurrentTemplate())
        settings.Template = project->GetCurrentTemplate()->Template;
    for (const auto& candidate : GlobalConfig().Templates) {
        if (settings.Template) break;
        for (const auto& served : candidate->Namespaces)
            if (EqualIgnoringCase(served->Moniker, kSourceMoniker)) settings.Template = candidate;
    }
    mPage = std::make_unique<PageElements>(std::move(settings));
}

void SourceDataProvider::SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                                        const std::string& itemType,
                                        const Ref<Object>& parentItem) {
    mDefinition = definition;
    mItem = item;
    mItemType = itemType;
    mParentItem = parentItem;
    mPage = nullptr;
}

void SourceDataProvider::DataProvider_Terminate() {
    mDefinition = nullptr;
    mItem = nullptr;
    mParentItem = nullptr;
    mSettings.RootItem = nullptr;
    mSettings.Template = nullptr;
    mSettings.Project = {};
    mPage = nullptr;
}

} // namespace paperkite
