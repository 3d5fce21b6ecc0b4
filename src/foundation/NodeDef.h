#pragma once

#include "foundation/Object.h"
#include "foundation/PageTemplate.h"

#include <string>

namespace paperkite {

/// What the generator does at one place of the contents.
class NodeDef : public Object {
public:
    /// A fresh unique key.
    NodeDef();
    /// A node that is read back under the key it had.
    explicit NodeDef(std::string key) : mKey(std::move(key)) {}

    std::string TypeName() const override { return "NodeDef"; }
    const std::string& GetKey() const { return mKey; }

    /// 0 fixed page or heading, 1 content driven, 2 plug-in driven.
    int NodeType = 0;
    bool CustomIcon = false;
    bool MarkAsNew = false;
    std::string Caption;
    std::string PlugIn;
    std::string PlugInData;
    /// The kind of code element whose count decides if the node is made; 0 for none, and where
    /// DependantOn_Namespace is used.
    int DependantOn = 0;
    std::string DependantOn_Namespace;
    std::string DependantOn_NamespaceFilter;
    /// The least number of such elements.
    int DependantCount = 0;
    bool DependantStillProcessChildren = false;
    std::string FileNameTemplate;
    /// The kind of element to repeat for.
    int PageType = 0;
    std::string PageType_Namespace;
    std::string NamespaceFilter;
    bool LinkToPage = false;
    bool IsDefault = false;
    /// The image's number where CustomIcon is set.
    int Icon = 0;
    /// Nothing for a node at the top. A parent does not own its children: the definition does.
    WeakRef<NodeDef> Parent;
    Ref<paperkite::PageLayout> PageLayout;

    /// The image numbers that the contents show for this node, closed and open.
    int GetImage(bool hasChildren) const;
    int GetExpandedImage(bool hasChildren) const;

private:
    std::string mKey;
};

} // namespace paperkite
