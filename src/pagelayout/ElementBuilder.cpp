#include "pagelayout/ElementBuilder.h"

#include "foundation/ScopeExit.h"
#include "foundation/Text.h"

#include <unordered_set>

namespace paperkite {

namespace {

constexpr const char* kNoElement = "Please select a sub element from the list provided";

} // namespace

ElementBuilder::ElementBuilder(std::string name) : Container(std::move(name)) {
    Procedure(*this, "UserControl_Initialize", [&](Frame&) {
        MakeControls();
        const auto keep = [this](Connection connection) {
            mConnections.push_back(std::move(connection));
        };
        keep(tvwElements->Events.NodeClick.Connect(
            [this](const Ref<TreeNode>& node) { tvwElements_NodeClick(node); }));
        keep(prpProperties->Events.BeforeEdit.Connect(
            [this](const Ref<PropertyItem>& row, bool& cancel) {
                prpProperties_BeforeEdit(row, cancel);
            }));
        keep(prpProperties->Events.KeyDown.Connect(
            [this](int& keyCode, int shift) { prpProperties_KeyDown(keyCode, shift); }));
        zSetView();
    });
}

ElementBuilder::~ElementBuilder() {
    Terminate();
}

void ElementBuilder::DumpVariables(VariableDump& dump) const {
    dump.Add("pElement", GetElement())
        .Add("mNamespaceDef", mNamespaceDef)
        .Add("mTemplate", mTemplate)
        .Add("pLayout", GetLayout())
        .Add("pIncludeScaps", pIncludeScaps)
        .Add("pShowTree", pShowTree)
        .Add("pShowTipBox", pShowTipBox)
        .Add("pStartTagPrefix", pStartTagPrefix)
        .Add("pStartTagSuffix", pStartTagSuffix)
        .Add("pEndTag", pEndTag)
        .Add("iLastKey", iLastKey);
}

void ElementBuilder::MakeControls() {
    tvwElements = MakeRef<TreeControl>("tvwElements");
    tvwElements->SetAccessibleName("Elements");
    tvwElements->SetHideSelection(false);
    tvwElements->SetEmptyText("The template declares no elements for this page.");
    prpProperties = MakeRef<PropertiesList>("prpProperties");
    prpProperties->SetAccessibleName("Attributes");
    prpProperties->SetDescriptionHeight(48);
    prpProperties->SetText(kNoElement);
    lblTip = MakeRef<Label>("lblTip");
    lblTip->SetWordWrap(true);
    sltEdit = MakeRef<SplitPanel>("sltEdit");
    sltEdit->SetOrientation(Orientation::Vertical);
    sltEdit->SetFirstPane(prpProperties);
    sltRoot = Controls.Make<SplitPanel>("sltRoot");
    sltRoot->SetOrientation(Orientation::Horizontal);
    Container::SetLayout(FormLayout::Column({FormLayout::Item(sltRoot, 1)}));
}

void ElementBuilder::zSetView() {
    sltEdit->SetSecondPane(pShowTipBox ? lblTip : Ref<Label>());
    sltEdit->SetPercentage(80);
    sltRoot->SetSecondPane(nullptr);
    sltRoot->SetFirstPane(pShowTree ? Ref<Control>(tvwElements) : Ref<Control>(sltEdit));
    if (pShowTree) sltRoot->SetSecondPane(sltEdit);
    sltRoot->SetPercentage(pShowTree ? 32 : 100);
}

void ElementBuilder::SetShowTree(bool value) {
    Procedure(*this, "ShowTree", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        pShowTree = value;
        zSetView();
    });
}

void ElementBuilder::SetShowTipBox(bool value) {
    Procedure(*this, "ShowTipBox", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        pShowTipBox = value;
        zSetView();
    });
}

void ElementBuilder::Initialise(const Ref<NamespaceDefs>& theNamespaceDefs,
                                const Ref<PageTemplate>& Template, bool ForScraps) {
    Procedure(*this, "Initialise", [&](Frame& frame) {
        Watch watchDefs(frame, "theNamespaceDefs", theNamespaceDefs);
        Watch watchTemplate(frame, "Template", Template);
        Watch watchScraps(frame, "ForScraps", ForScraps);
        pIncludeScaps = ForScraps;
        mTemplate = Template;
        const bool any = theNamespaceDefs && theNamespaceDefs->Count() > 0;
        SetNamespaceDef(any ? theNamespaceDefs->Item(1) : Ref<NamespaceDef>());
    });
}

// A namespace's elements are declared with the namespace, and its levels bear its moniker.
Ref<TemplateNamespace> ElementBuilder::zTemplateNamespace() const {
    if (!mTemplate || mTemplate->Namespaces.empty()) return {};
    for (const auto& served : mTemplate->Namespaces)
        if (mNamespaceDef && EqualIgnoringCase(served->Moniker, mNamespaceDef->Moniker))
            return served;
    return mTemplate->Namespaces.front();
}

void ElementBuilder::SetNamespaceDef(const Ref<NamespaceDef>& value) {
    mNamespaceDef = value;
    pElement.SetObject(nullptr);
    iLastKey.clear();
    mDefinitionOfKey.clear();
    zClearRows();
    tvwElements->SetRedraw(false);
    ScopeExit draw([this] { tvwElements->SetRedraw(true); });
    tvwElements->Nodes.Clear();
    const auto served = zTemplateNamespace();
    if (!served) return;
    std::unordered_set<std::string> excluded;
    if (const auto layout = GetLayout())
        for (const std::string& name : Split(layout->ExcludedElements, ","))
            excluded.insert(LowerCase(TrimWhiteSpace(name)));
    for (const auto& definition : served->ElementDefs)
        if (!excluded.contains(LowerCase(definition->Name))) zAddNode(definition);
    draw.Run();
    if (pShowTree) zSelectFirstElement();
}

void ElementBuilder::zAddNode(const Definition& definition) {
    const std::string key = "E:" + definition->Name;
    if (!mDefinitionOfKey.try_emplace(key, definition).second) return;
    const std::string& category = definition->Category;
    const bool atTop = ContainsIgnoringCase(category, "{blank}");
    const auto parent = atTop ? Ref<TreeNode>() : zCategoryNode(category);
    tvwElements->Nodes.Add(parent, parent ? TreeRelationship::Child : TreeRelationship::Last, key,
                           definition->Name);
    if (parent && !parent->GetExpanded()) parent->SetExpanded(true);
}

Ref<TreeNode> ElementBuilder::zCategoryNode(const std::string& category) {
    const std::string text = category.empty() ? std::string("Other") : category;
    if (auto node = tvwElements->Nodes.Find("C:" + text)) return node;
    auto node = tvwElements->Nodes.Add(nullptr, TreeRelationship::Last, "C:" + text, text);
    node->SetBold(true);
    return node;
}

void ElementBuilder::zSelectFirstElement() {
    Ref<TreeNode> node = tvwElements->Nodes.GetFirst();
    if (node && node->GetChild()) node = node->GetChild();
    if (node) tvwElements->SetSelectedItem(node);
}

Ref<paperkite::ElementDef> ElementBuilder::GetSelectedElement() const {
    return Procedure<Definition>(*this, "SelectedElement", [&](Definition& result, Frame&) {
        const auto node = tvwElements->GetSelectedItem();
        if (!node) return;
        const auto found = mDefinitionOfKey.find(node->GetKey());
        if (found != mDefinitionOfKey.end()) result = found->second;
    });
}

void ElementBuilder::SetElement(const Ref<paperkite::ElementDef>& value) {
    Procedure(*this, "Element", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        {
            mSelecting = true;
            const ScopeExit done([this] { mSelecting = false; });
            tvwElements->SetSelectedItem(value ? tvwElements->Nodes.Find("E:" + value->Name)
                                               : Ref<TreeNode>());
        }
        if (value) iLastKey = "E:" + value->Name;
        zChoose(value);
    });
}

void ElementBuilder::tvwElements_NodeClick(const Ref<TreeNode>& Node) {
    Procedure(*this, "tvwElements_NodeClick", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node->GetKey());
        if (mSelecting) return;
        const auto found = mDefinitionOfKey.find(Node->GetKey());
        // Another click on the same node would throw away what was filled in.
        if (found != mDefinitionOfKey.end() && iLastKey == Node->GetKey()) return;
        const Definition definition =
            found == mDefinitionOfKey.end() ? Definition() : found->second;
        iLastKey = definition ? Node->GetKey() : std::string();
        zChoose(definition);
    });
}

void ElementBuilder::zChoose(const Definition& definition) {
    pElement.SetObject(definition);
    if (definition) {
        zLoadElement(definition);
        lblTip->SetCaption(definition->Description);
    } else {
        iLastKey.clear();
        zClearRows();
    }
    Events.SelectionChanged.Raise(definition);
}

void ElementBuilder::zClearRows() {
    prpProperties->Clear();
    prpProperties->SetText(kNoElement);
    lblTip->SetCaption(kNoElement);
}

Ref<paperkite::ElementDef>
ElementBuilder::zCategoryDefinition(const paperkite::ElementDef& definition) const {
    const auto served = zTemplateNamespace();
    if (!served) return {};
    const auto* found = served->CategoryDefs.Find(definition.Category);
    return found ? *found : Definition();
}

Ref<AttributeDef> ElementBuilder::zAttribute(const std::string& name) const {
    const auto element = GetElement();
    if (!element) return {};
    if (const auto* found = element->AttributeDefs.Find(name)) return *found;
    const auto category = zCategoryDefinition(*element);
    const auto* found = category ? category->AttributeDefs.Find(name) : nullptr;
    return found ? *found : Ref<AttributeDef>();
}

std::unordered_map<std::string, Ref<PropertyItem>> ElementBuilder::zRowsByName() const {
    std::unordered_map<std::string, Ref<PropertyItem>> rows;
    for (const auto& row : *prpProperties)
        rows.emplace(LowerCase(row->GetCaption()), row);
    return rows;
}

void ElementBuilder::Load(const Ref<ParserElement>& Element) {
    Procedure(*this, "Load", [&](Frame& frame) {
        Watch watchElement(frame, "Element", Element);
        prpProperties->SuspendUpdates();
        const ScopeExit resume([this] { prpProperties->ResumeUpdates(); });
        const auto rows = zRowsByName();
        for (const auto& attribute : Element->Attributes) {
            const auto found = rows.find(LowerCase(attribute->Name));
            auto row = found == rows.end() ? prpProperties->Add(attribute->Name, attribute->Name)
                                           : found->second;
            row->SetValue(attribute->Value);
            if (EqualIgnoringCase(attribute->Name, "type")) row->SetVisible(false);
        }
    });
}

void ElementBuilder::Save(const Ref<ParserElement>& Element) {
    Procedure(*this, "Save", [&](Frame& frame) {
        Watch watchElement(frame, "Element", Element);
        prpProperties->EndEdit();
        const auto rows = zRowsByName();
        for (const auto& attribute : Element->Attributes) {
            const auto found = rows.find(LowerCase(attribute->Name));
            if (found != rows.end()) attribute->Value = found->second->GetValue();
        }
        for (const auto& row : *prpProperties) {
            if (Element->Attributes.Contains(row->GetCaption())) continue;
            auto attribute = MakeRef<ElementAttribute>();
            attribute->Name = row->GetCaption();
            attribute->Value = row->GetValue();
            Element->Attributes.Add(attribute, attribute->Name);
        }
    });
}

bool ElementBuilder::Validate(std::string& Message) {
    return Procedure<bool>(*this, "Validate", [&](bool& result, Frame& frame) {
        Watch watchMessage(frame, "Message", Message);
        prpProperties->EndEdit();
        if (!GetElement()) return;
        bool complete = true;
        for (const auto& row : *prpProperties) {
            const auto attribute = zAttribute(row->GetCaption());
            if (!attribute || !attribute->Required || !row->GetValue().empty()) continue;
            Message += "You must provide a value for " + row->GetCaption() + "\n";
            complete = false;
        }
        result = complete;
    });
}

void ElementBuilder::Terminate() {
    Procedure(*this, "Terminate", [&](Frame&) {
        pElement.SetObject(nullptr);
        pLayout.SetObject(nullptr);
        mTemplate = nullptr;
        prpProperties->Clear();
    });
}

void ElementBuilder::UserControl_ReadProperties(const PropertyBag& PropBag) {
    Procedure(*this, "UserControl_ReadProperties", [&](Frame&) {
        pShowTree = PropBag.ReadProperty("ShowTree", true).ToBoolean();
        pShowTipBox = PropBag.ReadProperty("ShowTipBox", true).ToBoolean();
        pStartTagPrefix = PropBag.ReadProperty("StartTagPrefix", std::string()).ToText();
        pStartTagSuffix = PropBag.ReadProperty("StartTagSuffix", std::string()).ToText();
        pEndTag = PropBag.ReadProperty("EndTag", std::string()).ToText();
        zSetView();
    });
}

void ElementBuilder::UserControl_WriteProperties(PropertyBag& PropBag) const {
    Procedure(*this, "UserControl_WriteProperties", [&](Frame&) {
        PropBag.WriteProperty("ShowTree", pShowTree);
        PropBag.WriteProperty("ShowTipBox", pShowTipBox);
        PropBag.WriteProperty("StartTagPrefix", pStartTagPrefix);
        PropBag.WriteProperty("StartTagSuffix", pStartTagSuffix);
        PropBag.WriteProperty("EndTag", pEndTag);
    });
}

} // namespace paperkite
