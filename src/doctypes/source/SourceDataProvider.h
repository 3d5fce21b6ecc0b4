#pragma once

#include "foundation/DataProvider.h"

#include <string>
#include <vector>

namespace paperkite {

/// Gives the properties of source items as text: "name", "caption" (with the parameter types of
/// overloads), and every member of an item that has a text form, letter case ignored. Each name
/// may have "item" in front.
class SourceDataProvider : public DataProvider {
public:
    Ref<DataProvider> Clone() override { return MakeRef<SourceDataProvider>(*this); }
    Ref<Object> GetCurrentItem() override { return mItem; }
    std::string GetCurrentItemType() override { return mItemType; }
    Ref<Object> GetCurrentParentItem() override { return mParentItem; }
    Ref<Object> GetCurrentRootItem() override { return mRootItem; }
    void SetCurrentRootItem(const Ref<Object>& item) override { mRootItem = item; }
    Ref<NamespaceDef> GetNamespaceDef() override { return mDefinition; }
    std::string GetProperty(const std::string& name) override;
    void Initialise(const Ref<ParserTemplate>&) override {}
    std::string ParseForProperties(const std::string& text) override;
    /// The value of the property that the element's attribute "type" names.
    std::string ProvideData(const Ref<ParserElement>& element,
                            const Ref<FileSystem>& files) override;
    void SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                        const std::string& itemType, const Ref<Object>& parentItem) override;
    void Terminate() override;

private:
    /// A stretch of a template: plain text, or the name of a property.
    struct Piece {
        std::string Text;
        bool IsProperty = false;
    };

    static std::vector<Piece> PiecesOf(const std::string& text);

    std::string mTemplate;
    std::vector<Piece> mPieces; ///< of mTemplate
    Ref<NamespaceDef> mDefinition;
    Ref<Object> mItem;
    std::string mItemType;
    Ref<Object> mParentItem;
    Ref<Object> mRootItem;
};

} // namespace paperkite
