#include "faults/WalkedOperations.h"

namespace paperkite::test {

namespace {

using Body = std::function<void(InPlaceEditor&, WalkScene&)>;

/// What happens on the page of A.
class PageList {
public:
    WalkedOperation& Add(const std::string& name, Body run) {
        WalkedOperation operation;
        operation.Owner = Owner;
        operation.Name = name;
        operation.Run = [run = std::move(run)](WalkScene& scene) { run(scene.Page(), scene); };
        operation.Prepare = [](WalkScene& scene) { scene.ShowPage(); };
        Operations.push_back(std::move(operation));
        return Operations.back();
    }

    std::string Owner;
    std::vector<WalkedOperation> Operations;
};

void AddProperties(PageList& list) {
    list.Add("ModuleName", [](InPlaceEditor& page, WalkScene&) { page.ModuleName(); });
    list.Add("DumpVariables", [](InPlaceEditor& page, WalkScene&) {
        VariableDump dump;
        page.DumpVariables(dump);
    });
    list.Add("GetKiteProject", [](InPlaceEditor& page, WalkScene&) { page.GetKiteProject(); });
    list.Add("SetKiteProject",
             [](InPlaceEditor& page, WalkScene& scene) { page.SetKiteProject(scene.Project); });
    list.Add("SetKiteProject",
             [](InPlaceEditor& page, WalkScene&) { page.SetKiteProject(nullptr); });
    list.Add("GetHost", [](InPlaceEditor& page, WalkScene&) { page.GetHost(); });
    list.Add("SetHost",
             [](InPlaceEditor& page, WalkScene& scene) { page.SetHost(&scene.Comments()); });
    list.Add("GetEditControl", [](InPlaceEditor& page, WalkScene&) { page.GetEditControl(); });
    list.Add("GetPreviewFolder", [](InPlaceEditor& page, WalkScene&) { page.GetPreviewFolder(); });
    list.Add("GetPreviewFolder", [](InPlaceEditor& page, WalkScene& scene) {
        scene.Project->Set("OutputFolder", Value("/out"));
        page.GetPreviewFolder();
    });
    list.Add("SetSpellOptions",
             [](InPlaceEditor& page, WalkScene&) { page.SetSpellOptions(SpellOptions()); });
}

void AddOperations(PageList& list) {
    list.Add("Initialize", [](InPlaceEditor& page, WalkScene& scene) {
        page.Initialize(&scene.Comments(), "Test", "file:///base/");
    });
    list.Add("Load", [](InPlaceEditor& page, WalkScene& scene) {
        page.Load(scene.Comments().GetCurrentCodeElement(), "class.html");
    });
    list.Add("Load", [](InPlaceEditor& page, WalkScene& scene) {
        page.Load(scene.Comments().GetCurrentCodeElement(), "");
    });
    list.Add("Load", [](InPlaceEditor& page, WalkScene&) { page.Load(nullptr, "class.html"); });
    list.Add("CreateParserTemplate", [](InPlaceEditor& page, WalkScene&) {
        page.CreateParserTemplate("/templates/walked\\class.html");
    });
    list.Add("CommitEdit", [](InPlaceEditor& page, WalkScene&) { page.CommitEdit(); });
    list.Add("BindToWrapper",
             [](InPlaceEditor& page, WalkScene& scene) { page.BindToWrapper(scene.Wrapper); });
    list.Add("SetEditFocus", [](InPlaceEditor& page, WalkScene&) { page.SetEditFocus(); });
    list.Add("SetEditFocusQueued",
             [](InPlaceEditor& page, WalkScene&) { page.SetEditFocusQueued(); });
    list.Add("AddIgnoreAll", [](InPlaceEditor& page, WalkScene&) { page.AddIgnoreAll("kite"); });
    list.Add("DoFind", [](InPlaceEditor& page, WalkScene& scene) {
        if (scene.Text().CanFind()) page.DoFind("note", false, false, false);
    });
    list.Add("DoReplace", [](InPlaceEditor& page, WalkScene& scene) {
        if (scene.Text().CanFind()) page.DoReplace("Note", "Remark", false, false, false);
    });
    list.Add("DoSpellCheck", [](InPlaceEditor& page, WalkScene& scene) {
        bool cancel = false;
        if (scene.Text().CanCheckSpelling()) page.DoSpellCheck(scene.Spell, cancel);
    });
    list.Add("Terminate", [](InPlaceEditor& page, WalkScene&) { page.Terminate(); }).IsLast = true;
}

void AddTextGestures(PageList& list) {
    list.Owner = "HtmlEdit";
    list.Add("UserSpanChanged",
             [](InPlaceEditor&, WalkScene& scene) { scene.TypeOnPage("#note", "<b>typed</b>"); });
    list.Add("UserSpanChanged",
             [](InPlaceEditor&, WalkScene& scene) { scene.TypeOnPage("#remark", "new"); });
    list.Add("UserSpanChanged",
             [](InPlaceEditor&, WalkScene& scene) { scene.TypeOnPage("#note", ""); });
    list.Add("UserSpanChanged",
             [](InPlaceEditor&, WalkScene& scene) { scene.TypeOnPage("##", "general"); });
    list.Add("UserHyperlinkClick", [](InPlaceEditor&, WalkScene& scene) {
        scene.Text().UserHyperlinkClick("there.html");
    });
    list.Add("UserSelectionMoved", [](InPlaceEditor&, WalkScene& scene) {
        scene.Text().UserSelectionMoved({0, 0, 1});
    });
    list.Add("UserSelection", [](InPlaceEditor&, WalkScene& scene) {
        scene.Text().UserSelection("text", {"bold"}, {"undo"}, "", "", "old.html");
        scene.Text().ClickEditTool("createlink");
    });
    list.Add("UserSelection",
             [](InPlaceEditor&, WalkScene& scene) { scene.Text().ClickEditTool("ViewPreview"); });
    list.Add("UserContextMenu", [](InPlaceEditor&, WalkScene& scene) {
        scene.Text().UserContextMenu(1, 2, {}, HtmlMenuType::Default);
    });
    list.Add("UserIgnoreWord",
             [](InPlaceEditor&, WalkScene& scene) { scene.Text().UserIgnoreWord("kite"); });
    list.Add("UserLearnWord",
             [](InPlaceEditor&, WalkScene& scene) { scene.Text().UserLearnWord("kite"); });
}

void AddViewGestures(PageList& list) {
    list.Owner = "FlatStrip";
    list.Add("UserClick", [](InPlaceEditor&, WalkScene& scene) { scene.Views().UserClick(2); });
    list.Add("UserClick", [](InPlaceEditor&, WalkScene& scene) { scene.Views().UserClick(3); });
    list.Owner = "CommentEditor";
    list.Add("SetInPlaceTemplate",
             [](InPlaceEditor&, WalkScene& scene) {
                 scene.Comments().SetInPlaceTemplate(scene.Pages);
             })
        .Prepare = [](WalkScene&) {};
    list.Add("Refresh", [](InPlaceEditor&, WalkScene& scene) { scene.Comments().Refresh(false); });
    list.Add("SetCurrentCodeElement", [](InPlaceEditor&, WalkScene& scene) {
        scene.Comments().SetCurrentCodeElement(nullptr);
    });
    list.Add("SelectInPlaceEditLayout", [](InPlaceEditor&, WalkScene& scene) {
        scene.Comments().SelectInPlaceEditLayout("class.html");
    });
}

} // namespace

std::vector<WalkedOperation> PageOperations() {
    PageList list;
    list.Owner = "InPlaceEditor";
    AddProperties(list);
    AddOperations(list);
    AddTextGestures(list);
    AddViewGestures(list);
    return list.Operations;
}

} // namespace paperkite::test
