#pragma once

#include "foundation/NamespaceDefs.h"
#include "foundation/Object.h"

#include <string>

namespace paperkite {

class FileSystem;
class ParserElement;
class ParserTemplate;

/// The source of data of a template parser: knows a current item and gives its properties as text.
/// Members beyond these ("ForEdit", "editcommenttype", "RootItem", "Prepare") are reached by name.
class DataProvider : public Object {
public:
    std::string TypeName() const override { return "DataProvider"; }
    virtual Ref<DataProvider> Clone() = 0;
    virtual Ref<Object> GetCurrentItem() = 0;
    virtual std::string GetCurrentItemType() = 0;
    virtual Ref<Object> GetCurrentParentItem() = 0;
    virtual Ref<Object> GetCurrentRootItem() = 0;
    virtual void SetCurrentRootItem(const Ref<Object>& item) = 0;
    virtual Ref<NamespaceDef> GetNamespaceDef() = 0;

    /// The value of a property of the current item; an unknown name gives an empty text.
    virtual std::string GetProperty(const std::string& name) = 0;
    virtual void Initialise(const Ref<ParserTemplate>& parserTemplate) = 0;
    /// A text with each property between "%%" signs replaced by its value.
    virtual std::string ParseForProperties(const std::string& text) = 0;
    virtual std::string ProvideData(const Ref<ParserElement>& element,
                                    const Ref<FileSystem>& files) = 0;
    /// The definition may be replaced by one that fits the item better.
    virtual void SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                                const std::string& itemType, const Ref<Object>& parentItem) = 0;
    /// The interface's own: classes may have an operation Terminate that does something else.
    virtual void DataProvider_Terminate() = 0;
};

} // namespace paperkite
