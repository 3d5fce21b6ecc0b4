#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/ElementDef.h"
#include "foundation/NamespaceDefs.h"
#include "foundation/PageTemplate.h"
#include "foundation/ParserElement.h"
#include "foundation/Procedure.h"
#include "foundation/PropertyBag.h"
#include "widgets/Container.h"
#include "widgets/Label.h"
#include "widgets/PropertiesList.h"
#include "widgets/SplitPanel.h"
#include "widgets/TreeControl.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// The panel with which an author chooses the kind of a template element and fills in its
/// attributes: a tree of element definitions by category, beside a list with one row for each
/// attribute of the chosen definition.
///
///     builder.SetLayout(layout);
///     builder.Initialise(pageTemplate->NamespaceDefs, pageTemplate);
///     builder.SetElement(definition);
///     builder.Load(element);
///     … // the author fills in the rows
///     if (builder.Validate(message)) builder.Save(element);
///
/// The template must live as long as the panel shows it; Terminate lets go of it. Rows of files
/// need the service CreateFilePicker.
class ElementBuilder : public Container, public Shielded {
public:
    explicit ElementBuilder(std::string name = "ElementBuilder");
    ~ElementBuilder() override;

    const char* ModuleName() const override { return "ElementBuilder"; }
    void DumpVariables(VariableDump& dump) const override;

    /// Offers the elements that the template declares for the first namespace definition. Without
    /// definitions those of the template's first namespace are offered.
    void Initialise(const Ref<NamespaceDefs>& theNamespaceDefs, const Ref<PageTemplate>& Template,
                    bool ForScraps = false);

    /// The layout that the element stands in; the elements that it excludes are not offered by the
    /// next Initialise. Somebody else owns it; nothing once it is gone.
    Ref<PageLayout> GetLayout() const { return pLayout.GetObject(); }
    void SetLayout(const Ref<PageLayout>& value) { pLayout.SetObject(value); }

    /// The definition whose attributes are shown. Writing it makes the rows anew, also for one that
    /// is not in the tree; nothing empties them.
    Ref<paperkite::ElementDef> GetElement() const { return pElement.GetObject(); }
    void SetElement(const Ref<paperkite::ElementDef>& value);
    /// That of the tree's selected node; nothing for a category.
    Ref<paperkite::ElementDef> GetSelectedElement() const;
    /// For hosts of old: always nothing.
    Ref<paperkite::ElementDef> GetElementDef() const { return {}; }

    /// Puts an element's attributes into the rows. An attribute that the definition does not know
    /// gets a row of its own; the row "type" is hidden.
    void Load(const Ref<ParserElement>& Element);
    /// Writes the rows to an element's attributes; an attribute that it lacks is added.
    void Save(const Ref<ParserElement>& Element);
    /// False when no definition is chosen or a required value is missing, which Message is added a
    /// line for.
    bool Validate(std::string& Message);
    void Terminate();

    bool GetShowTree() const { return pShowTree; }
    void SetShowTree(bool value);
    bool GetShowTipBox() const { return pShowTipBox; }
    void SetShowTipBox(bool value);
    const std::string& GetStartTagPrefix() const { return pStartTagPrefix; }
    void SetStartTagPrefix(const std::string& value) { pStartTagPrefix = value; }
    const std::string& GetStartTagSuffix() const { return pStartTagSuffix; }
    void SetStartTagSuffix(const std::string& value) { pStartTagSuffix = value; }
    const std::string& GetEndTag() const { return pEndTag; }
    void SetEndTag(const std::string& value) { pEndTag = value; }

    // For hosts of old: elements are no longer texts.

    void SetElementString(const std::string& /*Text*/) {}
    std::string GetElementString() const { return {}; }

    void UserControl_ReadProperties(const PropertyBag& PropBag);
    void UserControl_WriteProperties(PropertyBag& PropBag) const;

    struct {
        /// Nothing for a category.
        Event<const Ref<paperkite::ElementDef>&> SelectionChanged;
    } Events;

    Ref<SplitPanel> sltRoot;
    Ref<SplitPanel> sltEdit;
    Ref<TreeControl> tvwElements;
    Ref<PropertiesList> prpProperties;
    /// The tip box: what the chosen element is for.
    Ref<Label> lblTip;

private:
    using Definition = Ref<paperkite::ElementDef>;

    void MakeControls();
    void zSetView();
    void SetNamespaceDef(const Ref<NamespaceDef>& value);
    Ref<TemplateNamespace> zTemplateNamespace() const;
    void zAddNode(const Definition& definition);
    Ref<TreeNode> zCategoryNode(const std::string& category);
    void zSelectFirstElement();
    void zLoadElement(const Definition& definition);
    void zAddAttributeRows(const paperkite::ElementDef& definition);
    void zAddAttributeRow(const AttributeDef& attribute);
    void zSetEditor(PropertyItem& row, const AttributeDef& attribute);
    void zFillList(PropertyItem& row, const AttributeDef& attribute);
    void zFillWithValues(PropertyItem& row, const std::string& values);
    void zFillWithChildren(PropertyItem& row, const std::string& names);
    /// The attributes that all elements of the definition's category take, or nothing.
    Definition zCategoryDefinition(const paperkite::ElementDef& definition) const;
    Ref<AttributeDef> zAttribute(const std::string& name) const;
    /// The rows by the lower-case names of their attributes.
    std::unordered_map<std::string, Ref<PropertyItem>> zRowsByName() const;
    void zClearRows();
    void tvwElements_NodeClick(const Ref<TreeNode>& Node);
    void zChoose(const Definition& definition);
    void prpProperties_BeforeEdit(const Ref<PropertyItem>& Item, bool& Cancel);
    std::string zStartFolder(const std::string& value) const;
    std::string zPathInTemplate(const std::string& path) const;
    void prpProperties_KeyDown(int& KeyCode, int Shift);

    InstanceCount mInstanceCount{"ElementBuilder", ComponentType::Control};
    ObjectHolder<paperkite::ElementDef> pElement;
    Ref<NamespaceDef> mNamespaceDef;
    Ref<PageTemplate> mTemplate;
    ObjectHolder<PageLayout> pLayout;
    bool pIncludeScaps = false;
    bool pShowTree = true;
    bool pShowTipBox = true;
    std::string pStartTagPrefix;
    std::string pStartTagSuffix;
    std::string pEndTag;
    /// The key of the tree node whose definition is shown; empty while none is.
    std::string iLastKey;

    std::unordered_map<std::string, Definition> mDefinitionOfKey;
    bool mSelecting = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
