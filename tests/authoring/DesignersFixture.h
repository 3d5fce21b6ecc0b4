#pragma once

#include "authoring/CommentEditorFixture.h"
#include "authoring/RecordingDesigner.h"

#include <map>

namespace paperkite::test {

/// The editor with designers that record their calls. Of the classes "Lib.dsrA", "Lib.dsrB",
/// "Lib.dsrZ" and the default one there are designers; the log calls them "A", "B", "Z" and
/// "fixed".
///
/// Tabs, in group "Texts": "#zero" of dsrZ, which is shown at first, "#one" and "#same" of dsrA,
/// "#two" of dsrB, "#plain" of no class.
class DesignersFixture : public CommentEditorFixture {
protected:
    DesignersFixture() {
        CurrentServices().CreateDesigner = [this](const std::string& progID) {
            return Create(progID);
        };
        DefineTab("#zero", "Zero", "Lib.dsrZ");
        DefineTab("#one", "One", "Lib.dsrA");
        DefineTab("#two", "Two", "Lib.dsrB");
        DefineTab("#same", "Same", "Lib.dsrA");
        DefineTab("#plain", "Plain", "");
    }
    ~DesignersFixture() override { mEditor.Terminate(); }

    TaggedCommentDef& DefineTab(const std::string& tag, const std::string& caption,
                                const std::string& progID) {
        TaggedCommentDef& definition = Define(tag, "Display " + caption);
        definition.TabName = caption;
        definition.GroupName = "Texts";
        definition.DesignerProgID = progID;
        definition.Tip = "Tip of " + caption;
        return definition;
    }
    void Open(const std::string& key) {
        for (const auto& group : mEditor.eb->GetGroups())
            if (group->Contains(key)) return mEditor.eb->UserClick(group->Item(key));
        ADD_FAILURE() << "there is no item " << key;
    }
    /// Has a command for a key that need be no item of the bar.
    void ChooseCommand(const std::string& key) {
        if (!mEditor.DockCommentTypes->Commands.Contains(key))
            mEditor.DockCommentTypes->Commands.AddCheck(key);
        auto& dock = *mEditor.DockCommentTypes;
        dock.Events.CommandClick.Raise(dock.Commands.Item(key));
    }
    /// Adds a template with these layouts, each a file and its namespaces.
    void AddTemplate(const std::vector<std::pair<std::string, std::string>>& layouts) {
        for (const char* level : {"Test:Project", "Test:Class"})
            mModel.Def(level)->GetChildDefs()->SetName("kite.test");
        const auto made = MakeRef<PageTemplate>();
        made->Name = "Plain";
        const auto served = MakeRef<TemplateNamespace>();
        served->Moniker = "kite.test";
        made->Namespaces.push_back(served);
        for (const auto& [file, namespaces] : layouts) {
            const auto layout = MakeRef<PageLayout>();
            layout->Name = file;
            layout->FileName = file;
            layout->Namespaces = namespaces;
            made->PageLayouts->Add(layout);
        }
        GlobalConfig().Templates.Add(made);
    }
    /// Opens a tab; what came before is not told.
    void Start(const std::string& key) {
        Load();
        Open(key);
        mCalls.Take();
    }
    RecordingDesigner& Designer(const std::string& name) { return *mControls.at(name)->Designer; }
    RecordingDesignerControl& ControlOf(const std::string& name) { return *mControls.at(name); }
    std::string Selected() {
        const auto item = mEditor.eb->GetSelectedItem();
        return item ? item->GetKey() : "nothing";
    }
    std::string FrontSurface() {
        const auto front = mEditor.tagsContainer->GetFrontControl();
        return front ? front->GetName() : "nothing";
    }
    std::string Checked() {
        std::string names;
        const auto collect = [&](const auto& self, const DockCommands& commands) -> void {
            for (const auto& command : commands) {
                if (command->GetIsPopup()) self(self, command->GetPopupCommands());
                const auto check = command.template As<DockCheckCommand>();
                if (check && check->GetChecked() == 1) names += check->GetName() + " ";
            }
        };
        collect(collect, mEditor.DockCommentTypes->Commands);
        return names;
    }

    EventLog mCalls;
    std::map<std::string, Ref<RecordingDesignerControl>> mControls;

private:
    Ref<DesignerControl> Create(const std::string& progID) {
        static const std::map<std::string, std::string> names{
            {"Lib.dsrA", "A"},
            {"Lib.dsrB", "B"},
            {"Lib.dsrZ", "Z"},
            {"GlossmakerDesigners.dsrHTMLEdit", "fixed"}};
        const auto found = names.find(progID);
        if (found == names.end())
            RaiseError(ErrorNumber::CannotCreateComponent, "There is no designer " + progID);
        mCalls.Add("create(" + progID + ")");
        const auto control = MakeRef<RecordingDesignerControl>(found->second, mCalls);
        if (found->second == "fixed") control->Editor = MakeRef<HtmlEdit>("editor");
        mControls[found->second] = control;
        return control;
    }
};

} // namespace paperkite::test
