#include "faults/WalkedOperations.h"
#include "pagelayout/MetaDocumentEdit.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

constexpr const char* kNote =
    "<!--KITEMETADATA start type=\"note\" text=\"old\" strange=\"kept\"-->"
    "Note<!--KITEMETADATA end-->";

std::string LayoutOf(const std::string& words) {
    return "<html><head><title>T</title></head><body><p id=\"p\">" + words + " " + kNote +
           "</p></body></html>";
}

} // namespace

/// A layout that is being edited in the scene's world, with a host's handlers and an author who
/// fills each dialog in.
struct LayoutScene {
    explicit LayoutScene(WalkScene& scene) : World(scene) {
        Form::SetDefaultRunner([](Form& form, FormMode) { Answer(form); });
        Edit->Initialize();
        Edit->SetTemplate(World.Pages);
        Edit->SetDocumentHTML(LayoutOf("Precious words"));
        Point("metaspanstart1");
        Text().UserSelection("", {}, {"undo"}, "", "");
        Watch(Edit->Events.Change, "Change");
        Watch(Edit->Events.ElementEvent, "ElementEvent");
        Watch(Edit->Events.PropertyChanged, "LayoutProperty");
        Watch(Header().Events.Click, "Header.Click");
        Watch(Header().Events.DblClick, "Header.DblClick");
        Watch(Header().Events.MouseDown, "Header.MouseDown");
        Watch(Header().Events.MouseMove, "Header.MouseMove");
        Watch(Header().Events.MouseUp, "Header.MouseUp");
        Watch(Header().Events.PropertyChanged, "Header.Property");
    }
    ~LayoutScene() { Form::SetDefaultRunner({}); }
    LayoutScene(const LayoutScene&) = delete;
    LayoutScene& operator=(const LayoutScene&) = delete;

    template <class... A>
    void Watch(Event<A...>& event, const char* name) {
        Ties.push_back(event.Connect(
            [this, name](A...) { World.Failure.Use(std::string("Handler.") + name); }));
    }
    HtmlEdit& Text() { return *Edit->dedDocument; }
    HeaderBar& Header() { return *Edit->hdrElements; }
    Ref<HTMLElement> Element(const char* id) { return Text().GetDocument()->All(id); }
    void Point(const char* id) { Text().UserPoint(Element(id)); }
    void Report(int event, const char* id) {
        const auto info = MakeRef<HtmlElementEvent>();
        info->SourceElement = Element(id);
        Text().UserElementEvent(event, info);
    }
    /// What the author wrote is there and becomes a layout, whatever failed.
    void ExpectNothingLost() {
        const std::string layout = Edit->GetDocumentHTML();
        EXPECT_NE(layout.find("recious words"), std::string::npos) << layout;
        EXPECT_EQ(World.Services.TakeReports(), "") << "while it was read";
    }
    static void Answer(Form& form) {
        auto* dialog = dynamic_cast<frmEditMetaSpan*>(&form);
        if (!dialog) return;
        auto& tree = *dialog->ctlBuilder->tvwElements;
        if (dialog->GetIsAdd() && tree.Nodes.Contains("E:note"))
            tree.UserClick(tree.Nodes.Item("E:note"));
        auto& rows = *dialog->ctlBuilder->prpProperties;
        if (const auto row = rows.Find("text")) row->SetValue("new");
        dialog->SetText("New");
        dialog->UserEnter();
        if (dialog->GetVisible()) dialog->UserEscape();
    }

    WalkScene& World;
    Ref<MetaDocumentEdit> Edit = MakeRef<MetaDocumentEdit>("layout");
    std::vector<Connection> Ties;
};

namespace {

using Body = std::function<void(MetaDocumentEdit&, LayoutScene&)>;

void Nothing(MetaDocumentEdit&, LayoutScene&) {}

void ToSource(MetaDocumentEdit& edit, LayoutScene&) {
    edit.fstView->UserClick(2);
}

class LayoutList {
public:
    WalkedOperation& Add(const std::string& name, Body run, Body prepare = Nothing) {
        WalkedOperation operation;
        operation.Owner = Owner;
        operation.Name = name;
        operation.Prepare = [prepare = std::move(prepare)](WalkScene& scene) {
            scene.Layout = std::make_shared<LayoutScene>(scene);
            prepare(*scene.Layout->Edit, *scene.Layout);
        };
        operation.Run = [run = std::move(run)](WalkScene& scene) {
            run(*scene.Layout->Edit, *scene.Layout);
        };
        operation.Check = [](WalkScene& scene) { scene.Layout->ExpectNothingLost(); };
        Operations.push_back(std::move(operation));
        return Operations.back();
    }

    std::string Owner;
    std::vector<WalkedOperation> Operations;
};

void AddProperties(LayoutList& list) {
    list.Add("ModuleName", [](auto& edit, auto&) { edit.ModuleName(); });
    list.Add("DumpVariables", [](auto& edit, auto&) {
        VariableDump dump;
        edit.DumpVariables(dump);
    });
    list.Add("GetTemplate", [](auto& edit, auto&) { edit.GetTemplate(); });
    list.Add("SetTemplate", [](auto& edit, auto& s) { edit.SetTemplate(s.World.Pages); });
    list.Add("GetLayout", [](auto& edit, auto&) { edit.GetLayout(); });
    list.Add("SetLayout",
             [](auto& edit, auto& s) { edit.SetLayout(s.World.Pages->PageLayouts->Item(1)); });
    list.Add("GetBaseURL", [](auto& edit, auto&) { edit.GetBaseURL(); });
    list.Add("SetBaseURL", [](auto& edit, auto&) { edit.SetBaseURL("file:///other/"); });
    list.Add("GetDirty", [](auto& edit, auto&) { edit.GetDirty(); });
    list.Add("SetDirty", [](auto& edit, auto&) { edit.SetDirty(true); });
    list.Add("GetContextToolbarStyle", [](auto& edit, auto&) { edit.GetContextToolbarStyle(); });
    list.Add("SetContextToolbarStyle", [](auto& edit, auto&) { edit.SetContextToolbarStyle(1); });
    list.Add("GetDHTMLEdControl", [](auto& edit, auto&) { edit.GetDHTMLEdControl(); });
    list.Add("GetView", [](auto& edit, auto&) { edit.GetView(); });
    list.Add("SetPreview",
             [](auto& edit, auto&) { edit.SetPreview(MakeRef<Container>("finished")); });
    list.Add("UserControl_ReadProperties", [](auto& edit, auto&) {
        PropertyBag bag;
        bag.WriteProperty("BaseURL", Value("file:///kept/"));
        edit.UserControl_ReadProperties(bag);
    });
    list.Add("UserControl_WriteProperties", [](auto& edit, auto&) {
        PropertyBag bag;
        edit.UserControl_WriteProperties(bag);
    });
    list.Add("GetMetaDataProperty", [](auto& edit, auto&) { edit.GetMetaDataProperty(1, "x"); });
    list.Add("MetaTagCount", [](auto& edit, auto&) { edit.MetaTagCount(); });
    list.Add("ReloadDefaultTags", [](auto& edit, auto&) { edit.ReloadDefaultTags(); });
    list.Add("GetUsePaperkite4MetaTags",
             [](auto& edit, auto&) { edit.GetUsePaperkite4MetaTags(); });
    list.Add("SetUsePaperkite4MetaTags",
             [](auto& edit, auto&) { edit.SetUsePaperkite4MetaTags(true); });
    list.Add("AddMetaTag",
             [](auto& edit, auto&) { edit.AddMetaTag("a", "b", "c", "d", "e", "f"); });
    list.Add("RemoveMetaTag", [](auto& edit, auto&) { edit.RemoveMetaTag("a"); });
    list.Add("CheckForMissing", [](auto& edit, auto&) { edit.CheckForMissing(); });
}

void AddConversions(LayoutList& list) {
    list.Add("Initialize", [](auto& edit, auto&) { edit.Initialize(); });
    list.Add("GetDocumentHTML", [](auto& edit, auto&) { edit.GetDocumentHTML(); });
    list.Add(
        "GetDocumentHTML", [](auto& edit, auto&) { edit.GetDocumentHTML(); }, ToSource);
    const Body write = [](auto& edit, auto&) {
        edit.SetDocumentHTML(LayoutOf("More precious words"));
    };
    list.Add("SetDocumentHTML", write);
    list.Add("SetDocumentHTML", write, ToSource);
    list.Add("SetDocumentHTML", [](auto& edit, auto&) {
        edit.SetDocumentHTML(LayoutOf("Precious words <!--KITEMETADATA start type=\"broken-->"));
    });
    list.Add("ConvertMetaDocumentToSpanDocument", [](auto& edit, auto&) {
        edit.ConvertMetaDocumentToSpanDocument(LayoutOf("Other words"));
    });
    list.Add("ConvertSpanDocumentToMetaDocument", [](auto& edit, auto& s) {
        edit.ConvertSpanDocumentToMetaDocument(s.Text().GetDocumentHTML());
    });
    list.Add("GetSpanIndex", [](auto& edit, auto&) { edit.GetSpanIndex("metaspanstart12"); });
    list.Add("IsInsideMetaSpan",
             [](auto& edit, auto& s) { edit.IsInsideMetaSpan(s.Element("metaspanstart1")); });
    list.Add("GetSpanProvider", [](auto& edit, auto&) { edit.GetSpanProvider(); });
    auto& end = list.Add("Terminate", [](auto& edit, auto&) { edit.Terminate(); });
    end.IsLast = true;
    end.Check = [](WalkScene&) {};
}

void AddEditing(LayoutList& list) {
    list.Add("InsertMetaData", [](auto& edit, auto&) { edit.InsertMetaData(); });
    list.Add("EditMetaData", [](auto& edit, auto&) { edit.EditMetaData(); });
    list.Add("UndoElementEdit", [](auto& edit, auto&) {
        edit.EditMetaData();
        edit.UndoElementEdit();
    });
    list.Add("CanUndoElementEdit", [](auto& edit, auto&) { edit.CanUndoElementEdit(); });
    list.Add("RedoElementEdit", [](auto& edit, auto&) {
        edit.EditMetaData();
        edit.UndoElementEdit();
        edit.RedoElementEdit();
    });
    list.Add("CanRedoElementEdit", [](auto& edit, auto&) { edit.CanRedoElementEdit(); });
    list.Add("DeleteMetaData", [](auto& edit, auto&) { edit.DeleteMetaData(); });
    for (const char* command : {"btnMetaAdd", "btnMetaEdit", "btnMetaDelete", "btnMetaHelp"})
        list.Add("UserClickCommand",
                 [command](auto& edit, auto&) { edit.dksUI->UserClick(command); });
    for (const std::size_t tab : {2, 3})
        list.Add("UserClickTab", [tab](auto& edit, auto&) { edit.fstView->UserClick(tab); });
    for (const std::size_t tab : {1, 3})
        list.Add(
            "UserClickTab", [tab](auto& edit, auto&) { edit.fstView->UserClick(tab); }, ToSource);
}

void AddTextGestures(LayoutList& list) {
    list.Owner = "HtmlEdit";
    list.Add("UserPoint", [](auto&, auto& s) { s.Point("p"); });
    list.Add("UserDocumentTouched", [](auto&, auto& s) { s.Text().UserDocumentTouched(true); });
    list.Add("UserPartCopied", [](auto&, auto& s) {
        s.Text().UserPartCopied("page", "<span id=\"metaspanstart1\"></span>");
    });
    list.Add("UserPartPasted", [](auto&, auto& s) {
        s.Text().UserPartPasted("page", "x<span id=\"metaspanstart1\"></span>y");
    });
    list.Add(
        "UserSourceChanged",
        [](auto&, auto& s) {
            s.Text().UserSourceChanged(LayoutOf("Even more precious words"), true);
        },
        ToSource);
    for (const int event : {HtmlEventId::kDoubleClick, HtmlEventId::kContextMenu, 42})
        list.Add("UserElementEvent",
                 [event](auto&, auto& s) { s.Report(event, "metaspanstart1"); });
    list.Add("UserElementEvent", [](auto&, auto& s) { s.Report(HtmlEventId::kContextMenu, "p"); });
}

void AddHeader(LayoutList& list) {
    list.Owner = "HeaderBar";
    const auto add = [&list](const char* name, std::function<void(HeaderBar&)> run) {
        list.Add(name, [run = std::move(run)](auto&, auto& s) { run(s.Header()); });
    };
    add("ModuleName", [](HeaderBar& bar) { bar.ModuleName(); });
    add("DumpVariables", [](HeaderBar& bar) {
        VariableDump dump;
        bar.DumpVariables(dump);
    });
    add("GetHotTracking", [](HeaderBar& bar) { bar.GetHotTracking(); });
    add("SetHotTracking", [](HeaderBar& bar) { bar.SetHotTracking(true); });
    add("GetRightAlignedImage", [](HeaderBar& bar) { bar.GetRightAlignedImage(); });
    add("SetRightAlignedImage", [](HeaderBar& bar) { bar.SetRightAlignedImage(true); });
    add("GetLightFont", [](HeaderBar& bar) { bar.GetLightFont(); });
    add("SetLightFont", [](HeaderBar& bar) { bar.SetLightFont(true); });
    add("GetPicture", [](HeaderBar& bar) { bar.GetPicture(); });
    add("SetPicture", [](HeaderBar& bar) { bar.SetPicture({"list-add", {}, {}}); });
    add("GetText", [](HeaderBar& bar) { bar.GetText(); });
    add("SetText", [](HeaderBar& bar) { bar.SetText("Other"); });
    add("GetHot", [](HeaderBar& bar) { bar.GetHot(); });
    add("GetBandColor", [](HeaderBar& bar) { bar.GetBandColor(); });
    add("GetTextColor", [](HeaderBar& bar) { bar.GetTextColor(); });
    add("UserControl_ReadProperties",
        [](HeaderBar& bar) { bar.UserControl_ReadProperties(PropertyBag()); });
    add("UserControl_WriteProperties", [](HeaderBar& bar) {
        PropertyBag bag;
        bar.UserControl_WriteProperties(bag);
    });
    add("UserClick", [](HeaderBar& bar) { bar.UserClick(); });
    add("UserDblClick", [](HeaderBar& bar) { bar.UserDblClick(); });
    add("UserMouseDown", [](HeaderBar& bar) { bar.UserMouseDown(1, 0, 2, 3); });
    add("UserMouseMove",
        [](HeaderBar& bar) { bar.UserMouseMove(0, 0, 2, 3, HeaderBar::Part::Text); });
    add("UserMouseUp", [](HeaderBar& bar) { bar.UserMouseUp(1, 0, 2, 3); });
}

} // namespace

std::vector<WalkedOperation> LayoutOperations() {
    LayoutList list;
    list.Owner = "MetaDocumentEdit";
    AddProperties(list);
    AddConversions(list);
    AddEditing(list);
    AddTextGestures(list);
    AddHeader(list);
    return std::move(list.Operations);
}

} // namespace paperkite::test
