#pragma once

#include "widgets/CheckBox.h"
#include "widgets/DockHost.h"
#include "widgets/ExplorerBar.h"
#include "widgets/FramePanel.h"
#include "widgets/PropertiesList.h"
#include "widgets/SplitPanel.h"
#include "widgets/TreeControl.h"

namespace paperkite {

/// Controls filled as the authoring window fills them, for pictures and whole-window tests.

inline Ref<TreeControl> SampleTree() {
    auto tree = MakeRef<TreeControl>("tvwProject");
    tree->SetAccessibleName("Project");
    tree->SetBorderStyle(0);
    const auto add = [&](const Ref<TreeNode>& parent, const std::string& name,
                         const std::string& image, bool bold = false) {
        const std::string key = (parent ? parent->GetKey() + "~" : std::string()) + name;
        const auto relationship = parent ? TreeRelationship::Child : TreeRelationship::Last;
        auto node = tree->Nodes.Add(parent, relationship, key, name, image);
        if (image == "Closed") node->SetExpandedImage("Open");
        node->SetBold(bold);
        return node;
    };
    auto root = add(nullptr, "leveldb", "namespace", true);
    add(add(root, "Enumerations", "Closed"), "CompressionType", "enumeration");
    auto classes = add(root, "Classes", "Closed");
    for (const auto* name : {"Cache", "DB", "Env", "Iterator"}) {
        auto node = add(classes, name, "class", name[0] != 'E');
        if (std::string(name) != "DB") {
            add(node, "Method", "function");
            continue;
        }
        auto methods = add(node, "Methods", "Closed");
        for (const auto* method : {"CompactRange", "Delete", "Get", "NewIterator", "Put"})
            add(methods, method, "function", method[0] != 'C' && method[0] != 'N');
        add(methods, "ReleaseSnapshot", "function")->SetForeColor(0x808080);
        methods->SetExpanded(true);
        node->SetExpanded(true);
    }
    classes->SetExpanded(true);
    root->SetExpanded(true);
    tree->Nodes.Item("leveldb~Classes~DB~Methods~Get")->SetSelected(true);
    return tree;
}

inline Ref<DockHost> SampleDock(const Ref<Control>& client) {
    auto dock = MakeRef<DockHost>("Dock");
    auto bar = dock->AddToolbar("Main");
    bar->Add(dock->Commands.Add("Previous", "Previous"));
    bar->Add(dock->Commands.Add("Next", "Next"));
    bar->Add(dock->Commands.Add("Copy", "Copy"), true);
    auto paste = dock->Commands.Add("Paste", "Paste");
    paste->SetEnabled(false);
    bar->Add(paste);
    auto showPrivate = dock->Commands.AddCheck("ShowPrivate", "Show Private");
    showPrivate->SetChecked(1);
    bar->Add(showPrivate, true);
    bar->Add(dock->Commands.AddCheck("ShowInherited", "Show Inherited"));
    auto grouped = dock->Commands.AddCheck("Grouped", "Grouped");
    grouped->SetChecked(1);
    bar->Add(grouped);
    dock->SetClient(client);
    return dock;
}

inline Ref<PropertiesList> SampleList() {
    auto list = MakeRef<PropertiesList>("prpTags");
    list->SetColumnCaption("Name", "Tag");
    list->AddButton("AddButton", "Click to add this tag", "list-add", "Add Tag");
    list->AddButton("DeleteButton", "Delete Tag", "edit-delete");
    list->SetButtonVisible(1, false);
    const auto row = [&](const std::string& key, const std::string& caption,
                         const std::string& value) {
        auto item = list->Add(key, caption);
        item->SetValue(value);
        item->SetDescription("This tag has already been added to the selected code element, but "
                             "may be inserted again if required.<BR><BR>Click the \"Add Tag\" "
                             "button to insert another copy of this tag.");
        return item;
    };
    list->Add("ExistingHeader", "Existing Comments", PropertyItemType::Header);
    row("t1", "General Description",
        "If the database holds an entry for key, stores the corresponding value in *value.\n"
        "If there is no entry, leaves *value unchanged.");
    auto remarks = row("t2", "Remarks", "A read sees the state at the time of the snapshot.");
    row("t3", "See Also", "leveldb~DB~Put");
    list->Add("NewHeader", "Available to add", PropertyItemType::Header);
    for (const auto* tag : {"Deprecated Since", "Example", "Exception", "Keywords", "Returns"}) {
        auto item = row("", tag, "Click to add this tag...");
        item->SetReadOnly(true);
        item->SetValueColour(ValueColour::GrayText);
    }
    list->SetSelectedItem(remarks);
    return list;
}

inline Ref<ExplorerBar> SampleBar() {
    auto bar = MakeRef<ExplorerBar>("eb");
    auto main = bar->AddGroup("main", "DB::Get");
    main->SetIcon("function");
    auto page = main->Add("inplaceedit:Method", "Full Page Edit");
    page->SetIcon("insert-image");
    page->SetSelected(true);
    auto description = bar->AddGroup("description", "Description");
    auto used = description->Add("##", "Description");
    used->SetIcon("tick");
    used->SetBold(true);
    description->Add("#remarks", "Remarks")->SetIcon("documentinfo");
    auto flags = bar->AddGroup("flags", "Flags");
    auto frame = MakeRef<FramePanel>("fraExplorerBar");
    for (const auto* caption : {"Thread safe", "Deprecated", "Hide from output"}) {
        auto box = frame->Controls.Make<CheckBox>(caption);
        box->SetCaption(caption);
    }
    frame->Controls.Item<CheckBox>("Thread safe")->SetChecked(true);
    flags->Add("checkboxcontainer", "")->SetControl(frame);
    bar->AddGroup("other", "Other")->Add("other", "Other Information")->SetIcon("other");
    bar->AddGroup("empty", "Pages")->SetEmptyText("Full Page Edit is not available for this item.");
    return bar;
}

inline Ref<SplitPanel> SampleWindow() {
    auto editor = MakeRef<SplitPanel>("splitEditor");
    editor->SetFirstPane(SampleBar());
    editor->SetSecondPane(SampleList());
    editor->SetPercentage(24);
    auto window = MakeRef<SplitPanel>("splitMain");
    window->SetFirstPane(SampleDock(SampleTree()));
    window->SetSecondPane(editor);
    window->SetPercentage(26);
    return window;
}

} // namespace paperkite
