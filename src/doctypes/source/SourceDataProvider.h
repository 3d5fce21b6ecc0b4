#pragma once

#include "doctypes/source/PageSettings.h"
#include "foundation/DataProvider.h"

#include <memory>
#include <string>
#include <vector>

namespace paperkite {

class PageElements;
struct PageSubject;

/// Gives the properties of source items as text: "name", "caption" (with the parameter types of
/// overloads), and every member of an item that has a text form, letter case ignored. Each name
/// may have "item" in front. For page layouts it gives the HTML of their elements, which
/// docs/page-layouts.md describes.
///
/// Members by name: ForEdit, InlineStyles (booleans), editcommenttype (number), RootItem, Project,
/// Template (objects; without one the first template of the configuration counts that serves source
/// code), PageLinks (boolean: names of items are links), and the method Prepare(NamespaceDef, item,
/// caption, parent), which begins a page. What is set before Prepare counts for the page.
class SourceDataProvider : public DataProvider {
public:
    SourceDataProvider();
    ~SourceDataProvider() override;
    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;
    Value Call(std::string_view member, const std::vector<Value>& arguments) override;

    /// With the same settings and item; its page begins anew.
    Ref<DataProvider> Clone() override;
    Ref<Object> GetCurrentItem() override { return mItem; }
    std::string GetCurrentItemType() override { return mItemType; }
    Ref<Object> GetCurrentParentItem() override { return mParentItem; }
    Ref<Object> GetCurrentRootItem() override { return mSettings.RootItem; }
    void SetCurrentRootItem(const Ref<Object>& item) override { mSettings.RootItem = item; }
    Ref<NamespaceDef> GetNamespaceDef() override { return mDefinition; }
    std::string GetProperty(const std::string& name) override;
    void Initialise(const Ref<ParserTemplate>&) override {}
    std::string ParseForProperties(const std::string& text) override;
    /// The HTML of the element that the attribute "type" names, or the escaped value of the
    /// property of that name.
    std::string ProvideData(const Ref<ParserElement>& element,
                            const Ref<FileSystem>& files) override;
    void SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                        const std::string& itemType, const Ref<Object>& parentItem) override;
    void DataProvider_Terminate() override;

private:
    friend struct SourceDataProviderMembers;
    /// A stretch of a template: plain text, or the name of a property.
    struct Piece {
        std::string Text;
        bool IsProperty = false;
    };

    static std::vector<Piece> PiecesOf(const std::string& text);
    void BeginPage();
    bool FindSubject(PageSubject& subject) const;

    std::string mTemplate;
    std::vector<Piece> mPieces; ///< of mTemplate
    Ref<NamespaceDef> mDefinition;
    Ref<Object> mItem;
    std::string mItemType;
    Ref<Object> mParentItem;
    PageSettings mSettings;
    std::string mCaption;
    /// Of the page that is being made; nothing until an element is asked for.
    std::unique_ptr<PageElements> mPage;
};

} // namespace paperkite
