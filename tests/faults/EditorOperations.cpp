#include "faults/WalkedOperations.h"

namespace paperkite::test {

namespace {

constexpr const char* kA = "demo~app~A";
constexpr const char* kB = "demo~app~B";

template <class Component>
using Body = std::function<void(Component&, WalkScene&)>;

template <class Component>
struct List {
    const char* Owner;
    Component& (WalkScene::*Of)();
    std::vector<WalkedOperation> Operations;

    WalkedOperation& Add(const std::string& name, Body<Component> run) {
        WalkedOperation operation;
        operation.Owner = Owner;
        operation.Name = name;
        operation.Run = [run = std::move(run), of = Of](WalkScene& scene) {
            run((scene.*of)(), scene);
        };
        Operations.push_back(std::move(operation));
        return Operations.back();
    }
    template <class Getter>
    void Reads(const std::string& name, Getter getter) {
        Add(name, [getter](Component& component, WalkScene&) { (component.*getter)(); });
    }
    template <class Setter, class Value>
    void Writes(const std::string& name, Setter setter, Value value) {
        Add(name,
            [setter, value](Component& component, WalkScene&) { (component.*setter)(value); });
    }
    template <class Getter, class Setter, class Value>
    void Property(const std::string& name, Getter getter, Setter setter, Value value) {
        Reads("Get" + name, getter);
        Writes("Set" + name, setter, value);
    }
};

void EditNote(WalkScene& scene) {
    scene.RewriteNote();
}

Ref<TaggedComment> NoteOfA(WalkScene& scene) {
    return scene.Scanned.Project->GetComments()->Find(kA)->Item("a-note");
}

void AddEditorProperties(List<CommentEditor>& list) {
    using E = CommentEditor;
    list.Property("CommentType", &E::GetCommentType, &E::SetCommentType,
                  CommentType::XMLCommentTags);
    list.Property("Dirty", &E::GetDirty, &E::SetDirty, true);
    list.Property("KeepTombstones", &E::GetKeepTombstones, &E::SetKeepTombstones, true);
    list.Property("BaseURL", &E::GetBaseURL, &E::SetBaseURL, std::string("file:///"));
    list.Property("TitleCaption", &E::GetTitleCaption, &E::SetTitleCaption, std::string("Title"));
    list.Property("TitleIcon", &E::GetTitleIcon, &E::SetTitleIcon, Picture{"code", {}, {}});
    list.Property("DesignFlag", &E::GetDesignFlag, &E::SetDesignFlag, std::string("z"));
    list.Property("ProjectName", &E::GetProjectName, &E::SetProjectName, std::string("Demo"));
    list.Property("AppName", &E::GetAppName, &E::SetAppName, std::string("Other"));
    list.Property("Modules", &E::GetModules, &E::SetModules, std::vector<std::string>{"M"});
    list.Property("ListImplicitTaggedCommentType", &E::GetListImplicitTaggedCommentType,
                  &E::SetListImplicitTaggedCommentType, true);
    list.Property("ShowLegacyTags", &E::GetShowLegacyTags, &E::SetShowLegacyTags, true);
    list.Property("EditInFocus", &E::GetEditInFocus, &E::SetEditInFocus, true);
    list.Property("AutoSetFocus", &E::GetAutoSetFocus, &E::SetAutoSetFocus, false);
    list.Property("ShowCombo", &E::GetShowCombo, &E::SetShowCombo, true);
    list.Property("SpellOptions", &E::GetSpellOptions, &E::SetSpellOptions, SpellOptions());
    list.Property("UserMode", &E::GetUserMode, &E::SetUserMode, true);
    list.Reads("GetCurrentCodeElement", &E::GetCurrentCodeElement);
    list.Reads("GetCurrentNamespaceDef", &E::GetCurrentNamespaceDef);
    list.Reads("GetTaggedComments", &E::GetTaggedComments);
    list.Reads("GetKiteProject", &E::GetKiteProject);
    list.Reads("GetInPlaceTemplate", &E::GetInPlaceTemplate);
    list.Reads("GetSelectedItem", &E::GetSelectedItem);
    list.Reads("GetPropertiesListControl", &E::GetPropertiesListControl);
    list.Reads("GetSpellObject", &E::GetSpellObject);
    list.Reads("GetCommandWrapper", &E::GetCommandWrapper);
    list.Reads("ModuleName", &E::ModuleName);
    list.Add("DumpVariables", [](E& editor, WalkScene&) {
        VariableDump dump;
        editor.DumpVariables(dump);
    });
    list.Add("SetKiteProject", [](E& editor, WalkScene& s) { editor.SetKiteProject(s.Project); });
    list.Add("SetSpellObject", [](E& editor, WalkScene& s) { editor.SetSpellObject(s.Spell); });
    list.Add("SetCurrentNamespaceDef", [](E& editor, WalkScene& scene) {
        editor.SetCurrentNamespaceDef(scene.DefinitionOf("Method"));
    });
    list.Add("SetInPlaceTemplate", [](E& editor, WalkScene&) {
        editor.SetInPlaceTemplate(GlobalConfig().Templates.Item(1));
    });
    list.Add("SetSelectedItem",
             [](E& editor, WalkScene& scene) { editor.SetSelectedItem(scene.Offer("#note")); });
}

void AddDesignersHost(List<CommentEditor>& list) {
    using E = CommentEditor;
    list.Reads("ICommentDesignerHost_AppName", &E::ICommentDesignerHost_AppName);
    list.Reads("ICommentDesignerHost_ProjectNames", &E::ICommentDesignerHost_ProjectNames);
    list.Reads("ICommentDesignerHost_Template", &E::ICommentDesignerHost_Template);
    list.Reads("ICommentDesignerHost_NamespaceDef", &E::ICommentDesignerHost_NamespaceDef);
    list.Reads("ICommentDesignerHost_CurrentParentItem",
               &E::ICommentDesignerHost_CurrentParentItem);
    list.Reads("ICommentDesignerHost_CurrentItem", &E::ICommentDesignerHost_CurrentItem);
    list.Reads("ICommentDesignerHost_CurrentRootItem", &E::ICommentDesignerHost_CurrentRootItem);
    list.Reads("ICommentDesignerHost_CommentType", &E::ICommentDesignerHost_CommentType);
    list.Reads("ICommentDesignerHost_IsDotNet", &E::ICommentDesignerHost_IsDotNet);
    list.Reads("ICommentDesignerHost_BaseURL", &E::ICommentDesignerHost_BaseURL);
    list.Add("ICommentDesignerHost_ModuleNames",
             [](E& editor, WalkScene&) { editor.ICommentDesignerHost_ModuleNames("Demo"); });
    list.Add("ICommentDesignerHost_GetObjectFromQualifiedName", [](E& editor, WalkScene&) {
        editor.ICommentDesignerHost_GetObjectFromQualifiedName(kB);
    });
    list.Add("ICommentDesignerHost_BuildLink", [](E& editor, WalkScene&) {
        std::string caption;
        editor.ICommentDesignerHost_BuildLink("old", true, caption, true, "Get URL", "Link to",
                                              true);
    });
    list.Add("ISimplePageHost_GetDataCell",
             [](E& editor, WalkScene&) { editor.ISimplePageHost_GetDataCell(Value(1)); });
    list.Reads("GetDesigners", &E::GetDesigners);
    list.Reads("GetActiveTaggedComments", &E::GetActiveTaggedComments);
}

void AddForwarded(List<CommentEditor>& list) {
    using E = CommentEditor;
    list.Writes("AddIgnoreAll", &E::AddIgnoreAll, std::string("kite"));
    list.Reads("ShowSpellingOptions", &E::ShowSpellingOptions);
    list.Writes("ClickEditTool", &E::ClickEditTool, std::string("bold"));
    list.Writes("GetActiveHTMLEditor", &E::GetActiveHTMLEditor, true);
    list.Writes("SetForeColorByName", &E::SetForeColorByName, std::string("red"));
    list.Writes("SetFillColorByName", &E::SetFillColorByName, std::string("red"));
    list.Writes("SetToolbarStyle", &E::SetToolbarStyle, ToolbarStyle::TextOnly);
    list.Reads("GetForeColorName", &E::GetForeColorName);
    list.Reads("GetFillColorName", &E::GetFillColorName);
    list.Reads("GetSpellCheckInProgress", &E::GetSpellCheckInProgress);
    list.Reads("SetEditFocusQueued", &E::SetEditFocusQueued);
    list.Add("InsertTable", [](E& editor, WalkScene&) { editor.InsertTable(2, 2); });
    list.Add("DoFind", [](E& editor, WalkScene&) { editor.DoFind("note", false, false, false); });
    list.Add("DoReplace", [](E& editor, WalkScene&) {
        editor.DoReplace("note", "remark", false, false, false);
    });
}

void AddEditorOperations(List<CommentEditor>& list) {
    using E = CommentEditor;
    list.Add("SetCurrentCodeElement",
             [](E& editor, WalkScene& scene) { editor.SetCurrentCodeElement(scene.Item(kB)); })
        .Run = [](WalkScene& scene) {
        scene.Comments().SetCurrentCodeElement(
            scene.Project->GetProvider()->Wrapped(scene.Scanned.Provider->GetItem(kB)));
    };
    list.Add("SetCurrentCodeElement",
             [](E& editor, WalkScene&) { editor.SetCurrentCodeElement(nullptr); });
    list.Add("Load", [](E& editor, WalkScene& scene) {
        auto& provider = *scene.Project->GetProvider();
        editor.Load(scene.DefinitionOf("Class"),
                    provider.Wrapped(scene.Scanned.Provider->GetItem(kB)), nullptr, {}, "B");
    });
    list.Reads("Initialize", &E::Initialize);
    list.Writes("Refresh", &E::Refresh, false);
    list.Writes("Refresh", &E::Refresh, true);
    list.Reads("Clear", &E::Clear);
    list.Reads("CommitEdit", &E::CommitEdit);
    list.Add("CommitEdit", [](E& editor, WalkScene&) { editor.CommitEdit(); }).Prepare = EditNote;
    list.Writes("DeleteCommentItem", &E::DeleteCommentItem, std::string("a-note"));
    list.Writes("DeleteCommentItem", &E::DeleteCommentItem, std::string("unknown"));
    list.Add("DeleteCommentItem",
             [](E& editor, WalkScene&) { editor.DeleteCommentItem("a-general"); })
        .Prepare = [](WalkScene& scene) { scene.Comments().SetKeepTombstones(true); };
    list.Reads("ReloadSettings", &E::ReloadSettings);
    list.Reads("UserControl_Show", &E::UserControl_Show);
    list.Reads("SetEditFocus", &E::SetEditFocus);
    list.Add("SelectInPlaceEditLayout",
             [](E& editor, WalkScene&) { editor.SelectInPlaceEditLayout("Page"); })
        .Prepare = [](WalkScene& scene) {
        scene.Comments().eb->GetGroup("main")->Add("inplaceedit:Page", "Page");
    };
    list.Add("BindToWrapper", [](E& editor, WalkScene& s) { editor.BindToWrapper(s.Wrapper); });
    list.Add("SpellCheck", [](E& editor, WalkScene& s) { editor.SpellCheck(true, s.Spell); });
    list.Writes("GetTaggedCommentByKey", &E::GetTaggedCommentByKey, std::string("a-note"));
    list.Add("ICommentDesignerHost_TaggedCommentAdded", [](E& editor, WalkScene& scene) {
        const auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier("##");
        comment->SetText("added");
        editor.ICommentDesignerHost_TaggedCommentAdded(editor.GetCurrentCodeElement(), comment);
        static_cast<void>(scene);
    });
    list.Add("ICommentDesignerHost_TaggedCommentChanged", [](E& editor, WalkScene& scene) {
        editor.ICommentDesignerHost_TaggedCommentChanged(editor.GetCurrentCodeElement(),
                                                         NoteOfA(scene));
    });
    list.Add("ICommentDesignerHost_TaggedCommentDeleted", [](E& editor, WalkScene& scene) {
        if (scene.Scanned.Project->GetComments()->Find(kA)->Contains("a-note"))
            editor.ICommentDesignerHost_TaggedCommentDeleted(editor.GetCurrentCodeElement(),
                                                             NoteOfA(scene));
    });
    list.Add("IDynamicHelpContext_Initialise",
             [](E& editor, WalkScene& s) { editor.IDynamicHelpContext_Initialise(s.Help); });
    list.Add("IDynamicHelpContext_QueryContext", [](E& editor, WalkScene&) {
        DynamicHelpQuery query;
        editor.IDynamicHelpContext_QueryContext(query);
    });
    list.Add("Terminate", [](E& editor, WalkScene&) { editor.Terminate(); }).IsLast = true;
}

void AddScreenProperties(List<ProjectEditor>& list) {
    using S = ProjectEditor;
    list.Property("DesignFlag", &S::GetDesignFlag, &S::SetDesignFlag, std::string("z"));
    list.Property("Modules", &S::GetModules, &S::SetModules, std::vector<std::string>{"M"});
    list.Property("ProjectName", &S::GetProjectName, &S::SetProjectName, std::string("Demo"));
    list.Property("EditInFocus", &S::GetEditInFocus, &S::SetEditInFocus, true);
    list.Property("KeepTombstones", &S::GetKeepTombstones, &S::SetKeepTombstones, true);
    list.Property("ShowCombo", &S::GetShowCombo, &S::SetShowCombo, true);
    list.Property("AppName", &S::GetAppName, &S::SetAppName, std::string("Other"));
    list.Property("ShowAllPropertyBlocks", &S::GetShowAllPropertyBlocks,
                  &S::SetShowAllPropertyBlocks, true);
    list.Property("ShowInherited", &S::GetShowInherited, &S::SetShowInherited, true);
    list.Property("NoLocks", &S::GetNoLocks, &S::SetNoLocks, true);
    list.Property("SplitPercent", &S::GetSplitPercent, &S::SetSplitPercent, std::int16_t{34});
    list.Property("UserMode", &S::GetUserMode, &S::SetUserMode, true);
    list.Reads("GetInPlaceTemplate", &S::GetInPlaceTemplate);
    list.Reads("GetKiteProject", &S::GetKiteProject);
    list.Reads("GetProjectViewControl", &S::GetProjectViewControl);
    list.Reads("GetCommentEditorControl", &S::GetCommentEditorControl);
    list.Reads("ModuleName", &S::ModuleName);
    list.Add("DumpVariables", [](S& screen, WalkScene&) {
        VariableDump dump;
        screen.DumpVariables(dump);
    });
    list.Add("SetSpellObject", [](S& screen, WalkScene& s) { screen.SetSpellObject(s.Spell); });
    list.Add("SetKiteProject", [](S& screen, WalkScene& s) { screen.SetKiteProject(s.Project); });
    list.Add("SetInPlaceTemplate", [](S& screen, WalkScene&) {
        screen.SetInPlaceTemplate(GlobalConfig().Templates.Item(1));
    });
    list.Writes("SetSpellOptions", &S::SetSpellOptions, SpellOptions());
    list.Writes("SetToolbarStyle", &S::SetToolbarStyle, 2);
}

void AddScreenOperations(List<ProjectEditor>& list) {
    using S = ProjectEditor;
    list.Add("LoadFromNamespaceDefs", [](S&, WalkScene& scene) { scene.Load(); });
    list.Add("LoadFromNamespaceRootItem", [](S& screen, WalkScene& scene) {
        screen.LoadFromNamespaceRootItem(
            scene.Scanned.Definitions,
            scene.Project->GetProvider()->Wrapped(scene.Scanned.Provider->GetItem("demo")));
    });
    list.Reads("Clear", &S::Clear);
    list.Reads("Refresh", &S::Refresh);
    list.Add("Refresh", [](S& screen, WalkScene&) { screen.Refresh(); }).Prepare = EditNote;
    list.Reads("ReloadSettings", &S::ReloadSettings);
    list.Reads("CommitEdit", &S::CommitEdit);
    list.Add("CommitEdit", [](S& screen, WalkScene&) { screen.CommitEdit(); }).Prepare = EditNote;
    list.Reads("SetEditFocus", &S::SetEditFocus);
    list.Writes("NextItem", &S::NextItem, false);
    list.Writes("PreviousItem", &S::PreviousItem, true);
    list.Add("SpellCheck", [](S& screen, WalkScene& scene) {
        bool cancel = false;
        screen.SpellCheck(true, cancel, scene.Spell);
    });
    list.Add("SpellCheck", [](S& screen, WalkScene& scene) {
        bool cancel = false;
        screen.SpellCheck(false, cancel, scene.Spell);
    });
    list.Reads("CancelSpellCheck", &S::CancelSpellCheck);
    list.Add("BindToWrapper", [](S& screen, WalkScene& s) { screen.BindToWrapper(s.Wrapper); });
    list.Reads("HighlightCommentedNodes", &S::HighlightCommentedNodes);
    list.Writes("GetObjectFromQualifiedName", &S::GetObjectFromQualifiedName, std::string(kB));
    list.Writes("SelectItem", &S::SelectItem, std::string("demo~app~A~Run"));
    list.Writes("SelectItem", &S::SelectItem, std::string(kB));
    list.Add("SelectItem", [](S& screen, WalkScene&) { screen.SelectItem(kB); }).Prepare = EditNote;
    list.Add("PrepNamespaceDef", [](S& screen, WalkScene& scene) {
        screen.PrepNamespaceDef(scene.DefinitionOf("Class"));
    });
    list.Add("IDynamicHelpContext_Initialise",
             [](S& screen, WalkScene& s) { screen.IDynamicHelpContext_Initialise(s.Help); });
    list.Add("IDynamicHelpContext_QueryContext", [](S& screen, WalkScene&) {
        DynamicHelpQuery query;
        screen.IDynamicHelpContext_QueryContext(query);
    });
    list.Add("Terminate", [](S& screen, WalkScene&) { screen.Terminate(); }).IsLast = true;
}

} // namespace

std::vector<WalkedOperation> CommentEditorOperations() {
    List<CommentEditor> list{"CommentEditor", &WalkScene::Comments, {}};
    AddEditorProperties(list);
    AddDesignersHost(list);
    AddForwarded(list);
    AddEditorOperations(list);
    return list.Operations;
}

std::vector<WalkedOperation> ProjectEditorOperations() {
    List<ProjectEditor> list{"ProjectEditor", &WalkScene::Screen, {}};
    AddScreenProperties(list);
    AddScreenOperations(list);
    return list.Operations;
}

} // namespace paperkite::test
