#include "foundation/GlobalConfig.h"
#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"
#include "pagelayout/ElementBuilder.h"
#include "widgets/Keys.h"

#include <filesystem>

// The rows of an element's attributes, and how each is edited.

namespace paperkite {

namespace {

PropertyValueType ValueTypeOf(const std::string& attributeType) {
    const std::string type = LowerCase(attributeType);
    if (type == "list") return PropertyValueType::Choice;
    if (type == "date") return PropertyValueType::Date;
    if (type == "color") return PropertyValueType::Color;
    if (type == "number") return PropertyValueType::Number;
    if (type == "boolean") return PropertyValueType::Boolean;
    if (type == "file") return PropertyValueType::File;
    return PropertyValueType::String;
}

template <class Items>
void AddNames(PropertyItem& row, const Items& items) {
    for (const auto& item : items)
        row.AddChoice(item->Name, item->Name);
}

} // namespace

void ElementBuilder::zLoadElement(const Definition& definition) {
    Procedure(*this, "zLoadElement", [&](Frame& frame) {
        Watch watchDefinition(frame, "ElementDef", definition);
        prpProperties->SuspendUpdates();
        const ScopeExit resume([this] { prpProperties->ResumeUpdates(); });
        zClearRows();
        prpProperties->SetText("This element has no attributes to fill in.");
        zAddAttributeRows(*definition);
        if (const auto category = zCategoryDefinition(*definition)) zAddAttributeRows(*category);
    });
}

void ElementBuilder::zAddAttributeRows(const paperkite::ElementDef& definition) {
    for (const auto& attribute : definition.AttributeDefs)
        if (!prpProperties->Contains(attribute->Name)) zAddAttributeRow(*attribute);
}

void ElementBuilder::zAddAttributeRow(const AttributeDef& attribute) {
    auto row = prpProperties->Add(attribute.Name, attribute.Name);
    row->SetDescription(attribute.Description);
    if (attribute.Required) {
        row->SetTag("required");
        row->SetDisplayText(attribute.Name + " (required)");
    }
    zSetEditor(*row, attribute);
}

void ElementBuilder::zSetEditor(PropertyItem& row, const AttributeDef& attribute) {
    const PropertyValueType type = ValueTypeOf(attribute.AttributeType);
    row.SetValueType(type);
    if (type == PropertyValueType::Boolean) row.SetChoices({"true", "false"});
    if (type == PropertyValueType::Choice) zFillList(row, attribute);
}

void ElementBuilder::zFillList(PropertyItem& row, const AttributeDef& attribute) {
    const std::string source = LowerCase(attribute.ValueSource);
    if (source == "values") zFillWithValues(row, attribute.Values);
    if (source == "taggedcommentdefs")
        for (const auto& definition : *GlobalConfig().TaggedCommentDefs)
            row.AddChoice(definition->DisplayName, definition->TagIdentifier);
    if (!mTemplate) return;
    if (source == "variables") AddNames(row, mTemplate->VariableDefs);
    if (source == "scraps") AddNames(row, mTemplate->Scraps);
    if (source == "phrases") AddNames(row, mTemplate->Phrases);
    if (source == "namespaces")
        for (const auto& definition : *mTemplate->NamespaceDefs)
            row.AddChoice(definition->Name, definition->Moniker);
    if (source == "childnamespaces") zFillWithChildren(row, attribute.Values);
}

void ElementBuilder::zFillWithValues(PropertyItem& row, const std::string& values) {
    for (const std::string& value : Split(values, ",")) {
        const bool isPair = value.find(':') != value.npos;
        row.AddChoice(BeforeColon(value), isPair ? AfterColon(value) : value);
    }
}

void ElementBuilder::zFillWithChildren(PropertyItem& row, const std::string& names) {
    for (const std::string& part : Split(names, ",")) {
        const std::string name = TrimWhiteSpace(part);
        if (mTemplate->NamespaceDefs->Contains(name))
            AddNames(row, *mTemplate->NamespaceDefs->Item(name)->GetChildDefs());
    }
}

void ElementBuilder::prpProperties_BeforeEdit(const Ref<PropertyItem>& Item, bool& Cancel) {
    Procedure(*this, "prpProperties_BeforeEdit", [&](Frame& frame) {
        Watch watchItem(frame, "Item", Item->GetKey());
        if (Item->GetValueType() != PropertyValueType::File) return;
        const auto& create = CurrentServices().CreateFilePicker;
        if (!create) RaiseError(ErrorNumber::CannotCreateComponent);
        const auto picker = create();
        picker->SetTitle("Locate file");
        picker->SetFilter("All files (*.*)|*.*");
        picker->SetStartFolder(zStartFolder(Item->GetValue()));
        picker->SetOwner(static_cast<std::intptr_t>(GetHWnd()));
        const std::string path = picker->Run();
        // Who leaves the dialog without a file may still type a path.
        if (path.empty()) return;
        Item->SetValue(zPathInTemplate(path));
        Cancel = true;
    });
}

std::string ElementBuilder::zStartFolder(const std::string& value) const {
    const std::string folder = mTemplate ? mTemplate->Folder : std::string();
    if (value.empty()) return folder;
    const std::filesystem::path path(value);
    return (path.is_absolute() ? path : std::filesystem::path(folder) / path).parent_path();
}

// Templates name their own files by the path below their folder, wherever that is.
std::string ElementBuilder::zPathInTemplate(const std::string& path) const {
    if (!mTemplate || mTemplate->Folder.empty()) return path;
    const std::string folder = mTemplate->Folder + "/";
    return path.starts_with(folder) ? path.substr(folder.size()) : path;
}

void ElementBuilder::prpProperties_KeyDown(int& KeyCode, int Shift) {
    Procedure(*this, "prpProperties_KeyDown", [&](Frame&) {
        if (KeyCode == KeyReturn && Shift == ShiftNone && !prpProperties->GetInEdit() &&
            prpProperties->BeginEdit())
            KeyCode = KeyNone;
    });
}

} // namespace paperkite
