#include "faults/WalkedOperations.h"

namespace paperkite::test {

namespace {

using Run = std::function<void(WalkScene&)>;

/// What happens in the dialog of an element, and in that of a colour.
class ElementList {
public:
    explicit ElementList(std::string owner) : Owner(std::move(owner)) {}

    void Add(
        const std::string& name, Run run, Run prepare = [](WalkScene&) {}) {
        WalkedOperation operation;
        operation.Owner = Owner;
        operation.Name = name;
        operation.Run = std::move(run);
        operation.Prepare = std::move(prepare);
        Operations.push_back(std::move(operation));
    }

    std::string Owner;
    std::vector<WalkedOperation> Operations;
};

Ref<ElementDef> Note(WalkScene& scene) {
    return scene.Pages->Namespaces.front()->ElementDefs.Item("note");
}

Ref<ParserElement> NoteElement() {
    auto element = MakeRef<ParserElement>();
    for (const auto& [name, value] : std::vector<std::pair<std::string, std::string>>{
             {"type", "note"}, {"text", "old"}, {"strange", "kept"}}) {
        auto attribute = MakeRef<ElementAttribute>();
        attribute->Name = name;
        attribute->Value = value;
        element->Attributes.Add(attribute, name);
    }
    return element;
}

void ChooseNote(WalkScene& scene) {
    scene.Elements().SetElement(Note(scene));
}

void AddBuilderProperties(ElementList& list) {
    list.Add("ModuleName", [](WalkScene& s) { s.Elements().ModuleName(); });
    list.Add("DumpVariables", [](WalkScene& s) {
        VariableDump dump;
        s.Elements().DumpVariables(dump);
    });
    list.Add("GetLayout", [](WalkScene& s) { s.Elements().GetLayout(); });
    list.Add("SetLayout",
             [](WalkScene& s) { s.Elements().SetLayout(s.Pages->PageLayouts->Item(1)); });
    list.Add("GetElement", [](WalkScene& s) { s.Elements().GetElement(); });
    list.Add("GetSelectedElement", [](WalkScene& s) { s.Elements().GetSelectedElement(); });
    list.Add("GetElementDef", [](WalkScene& s) { s.Elements().GetElementDef(); });
    list.Add("GetShowTree", [](WalkScene& s) { s.Elements().GetShowTree(); });
    list.Add("SetShowTree", [](WalkScene& s) { s.Elements().SetShowTree(false); });
    list.Add("GetShowTipBox", [](WalkScene& s) { s.Elements().GetShowTipBox(); });
    list.Add("SetShowTipBox", [](WalkScene& s) { s.Elements().SetShowTipBox(true); });
    list.Add("GetStartTagPrefix", [](WalkScene& s) { s.Elements().GetStartTagPrefix(); });
    list.Add("SetStartTagPrefix", [](WalkScene& s) { s.Elements().SetStartTagPrefix("<"); });
    list.Add("GetStartTagSuffix", [](WalkScene& s) { s.Elements().GetStartTagSuffix(); });
    list.Add("SetStartTagSuffix", [](WalkScene& s) { s.Elements().SetStartTagSuffix(">"); });
    list.Add("GetEndTag", [](WalkScene& s) { s.Elements().GetEndTag(); });
    list.Add("SetEndTag", [](WalkScene& s) { s.Elements().SetEndTag("</>"); });
    list.Add("SetElementString", [](WalkScene& s) { s.Elements().SetElementString("x"); });
    list.Add("GetElementString", [](WalkScene& s) { s.Elements().GetElementString(); });
    list.Add("UserControl_ReadProperties",
             [](WalkScene& s) { s.Elements().UserControl_ReadProperties({}); });
    list.Add("UserControl_WriteProperties", [](WalkScene& s) {
        PropertyBag bag;
        s.Elements().UserControl_WriteProperties(bag);
    });
}

void AddBuilderOperations(ElementList& list) {
    list.Add("Initialise",
             [](WalkScene& s) { s.Elements().Initialise(s.Pages->NamespaceDefs, s.Pages); });
    list.Add("Initialise", [](WalkScene& s) { s.Elements().Initialise(nullptr, nullptr); });
    list.Add("SetElement", [](WalkScene& s) { ChooseNote(s); });
    list.Add(
        "SetElement", [](WalkScene& s) { s.Elements().SetElement(nullptr); }, ChooseNote);
    list.Add(
        "Load", [](WalkScene& s) { s.Elements().Load(NoteElement()); }, ChooseNote);
    list.Add(
        "Save", [](WalkScene& s) { s.Elements().Save(NoteElement()); }, ChooseNote);
    list.Add("Validate", [](WalkScene& s) {
        std::string message;
        s.Elements().Validate(message);
    });
    list.Add(
        "Validate",
        [](WalkScene& s) {
            std::string message;
            s.Elements().Validate(message);
        },
        ChooseNote);
    list.Add("Terminate", [](WalkScene& s) { s.Elements().Terminate(); });
    list.Operations.back().IsLast = true;
}

void AddDialog(ElementList& list) {
    list.Add("ModuleName", [](WalkScene& s) { s.ElementDialog->ModuleName(); });
    list.Add("DumpVariables", [](WalkScene& s) {
        VariableDump dump;
        s.ElementDialog->DumpVariables(dump);
    });
    list.Add("GetSuccess", [](WalkScene& s) { s.ElementDialog->GetSuccess(); });
    list.Add("SetSuccess", [](WalkScene& s) { s.ElementDialog->SetSuccess(true); });
    list.Add("GetSafeToUnload", [](WalkScene& s) { s.ElementDialog->GetSafeToUnload(); });
    list.Add("SetSafeToUnload", [](WalkScene& s) { s.ElementDialog->SetSafeToUnload(true); });
    list.Add("GetIsAdd", [](WalkScene& s) { s.ElementDialog->GetIsAdd(); });
    list.Add("SetIsAdd", [](WalkScene& s) { s.ElementDialog->SetIsAdd(true); });
    list.Add("GetLayout", [](WalkScene& s) { s.ElementDialog->GetLayout(); });
    list.Add("SetLayout",
             [](WalkScene& s) { s.ElementDialog->SetLayout(s.Pages->PageLayouts->Item(1)); });
    list.Add("GetText", [](WalkScene& s) { s.ElementDialog->GetText(); });
    list.Add("SetText", [](WalkScene& s) { s.ElementDialog->SetText("text"); });
    const Run add = [](WalkScene& s) {
        s.ElementDialog->SetIsAdd(true);
        s.ElementDialog->Show(FormMode::Modal);
    };
    const Run edit = [](WalkScene& s) {
        ChooseNote(s);
        s.ElementDialog->Show(FormMode::Modal);
    };
    list.Add("Show", add);
    list.Add("Show", edit);
    list.Add(
        "UserEnter", [](WalkScene& s) { s.ElementDialog->UserEnter(); }, add);
    list.Add(
        "UserEnter", [](WalkScene& s) { s.ElementDialog->UserEnter(); }, edit);
    list.Add(
        "UserEscape", [](WalkScene& s) { s.ElementDialog->UserEscape(); }, edit);
    list.Add(
        "UserCloseBox", [](WalkScene& s) { s.ElementDialog->UserCloseBox(); }, edit);
    const auto node = [](const char* key) {
        return [key](WalkScene& s) {
            auto& tree = *s.Elements().tvwElements;
            tree.UserClick(tree.Nodes.Item(key));
        };
    };
    list.Add("UserClickNode", node("E:note"), add);
    list.Add("UserClickNode", node("C:Other"), add);
    const Run chooseFile = [](WalkScene& s) {
        auto& rows = *s.Elements().prpProperties;
        rows.SetSelectedItem(rows.Item("file"));
        rows.UserBrowse();
    };
    list.Add("UserBrowseFile", chooseFile, edit);
}

void AddColourDialog(ElementList& list) {
    list.Add("ModuleName", [](WalkScene& s) { s.ColourDialog->ModuleName(); });
    list.Add("DumpVariables", [](WalkScene& s) {
        VariableDump dump;
        s.ColourDialog->DumpVariables(dump);
    });
    list.Add("Initialize", [](WalkScene& s) { s.ColourDialog->Initialize(255); });
    list.Add("GetSelectedColor", [](WalkScene& s) { s.ColourDialog->GetSelectedColor(); });
    list.Add("GetCancelled", [](WalkScene& s) { s.ColourDialog->GetCancelled(); });
    const Run show = [](WalkScene& s) { s.ColourDialog->Show(FormMode::Modal); };
    list.Add("Show", show);
    list.Add(
        "UserEnter", [](WalkScene& s) { s.ColourDialog->UserEnter(); }, show);
    list.Add(
        "UserEnter", [](WalkScene& s) { s.ColourDialog->UserEnter(); },
        [show](WalkScene& s) {
            show(s);
            s.ColourDialog->cboColor->UserType("no color");
        });
    list.Add(
        "UserCloseBox", [](WalkScene& s) { s.ColourDialog->UserCloseBox(); }, show);
    list.Add(
        "UserClickCustom", [](WalkScene& s) { s.ColourDialog->cmdCustom->UserClick(); }, show);
    list.Add(
        "UserDblClickHexagon", [](WalkScene& s) { s.ColourDialog->chxBase->UserDblClick(9); },
        show);
}

} // namespace

std::vector<WalkedOperation> ElementOperations() {
    ElementList builder("ElementBuilder");
    AddBuilderProperties(builder);
    AddBuilderOperations(builder);
    ElementList dialog("frmEditMetaSpan");
    AddDialog(dialog);
    ElementList colours("frmBrowseHTMLColor");
    AddColourDialog(colours);
    std::vector<WalkedOperation> all;
    for (const auto& part : {builder, dialog, colours})
        all.insert(all.end(), part.Operations.begin(), part.Operations.end());
    return all;
}

} // namespace paperkite::test
