#include "faults/WalkedOperations.h"
#include "links/LinkBuilder.h"

namespace paperkite::test {

namespace {

/// A panel of links over the scene's world, with a host's handlers.
struct LinkScene {
    explicit LinkScene(WalkScene& scene)
        : Panel(MakeRef<LinkBuilder>("panel")), Help(*Panel->HelpTopicLinkDesigner),
          Member(*Panel->MemberLinkDesigner) {
        auto& events = Panel->Events;
        const auto use = [&scene](const char* name) {
            return [&scene, name](auto&&...) { scene.Failure.Use(std::string("Handler.") + name); };
        };
        Ties.push_back(events.ShowMemberExplorer.Connect(use("ShowMemberExplorer")));
        Ties.push_back(events.HideMemberExplorer.Connect(use("HideMemberExplorer")));
        Ties.push_back(events.MoveMemberExplorer.Connect(use("MoveMemberExplorer")));
        Ties.push_back(events.GetSelectedMember.Connect([&scene](std::string& name) {
            scene.Failure.Use("Handler.GetSelectedMember");
            name = "demo~app~A";
        }));
    }
    void Choose(const char* kind) {
        for (const auto& group : Panel->eb->GetGroups())
            if (group->Contains(kind)) Panel->eb->UserClick(group->Item(kind));
    }

    Ref<LinkBuilder> Panel;
    HelpLinkDesigner& Help;
    MemberLinkDesigner& Member;
    std::vector<Connection> Ties;
};

class LinkList {
public:
    void Add(const char* owner, const char* name, std::function<void(LinkScene&)> run) {
        WalkedOperation operation;
        operation.Owner = owner;
        operation.Name = name;
        operation.Run = [run = std::move(run)](WalkScene& scene) {
            LinkScene links(scene);
            run(links);
        };
        Operations.push_back(std::move(operation));
    }

    std::vector<WalkedOperation> Operations;
};

void AddBuilder(LinkList& list) {
    constexpr const char* kOwner = "LinkBuilder";
    list.Add(kOwner, "ModuleName", [](LinkScene& links) { links.Panel->ModuleName(); });
    list.Add(kOwner, "DumpVariables", [](LinkScene& links) {
        VariableDump dump;
        links.Panel->DumpVariables(dump);
    });
    for (const bool all : {true, false})
        list.Add(kOwner, "Initialize", [all](LinkScene& links) {
            links.Panel->Initialize(all, all, all, "See", "See", all, "Caption");
        });
    for (const char* kind : {"anothermember", "anotheritem", "anotherhelpfile", "interneturl"}) {
        list.Add(kOwner, "Validate", [kind](LinkScene& links) {
            links.Choose(kind);
            links.Panel->txtURL->UserType("");
            links.Panel->Validate();
        });
        list.Add(kOwner, "GetLinkhRef", [kind](LinkScene& links) {
            links.Choose(kind);
            links.Panel->GetLinkhRef();
        });
    }
    list.Add(kOwner, "GetLinkCaption", [](LinkScene& links) { links.Panel->GetLinkCaption(); });
    list.Add(kOwner, "GetKiteLink", [](LinkScene& links) {
        links.Panel->chkKiteLink->UserClick();
        links.Panel->GetKiteLink();
    });
    list.Add(kOwner, "SetAutoCaption", [](LinkScene& links) {
        links.Panel->Initialize(true, true, true, "", "", true, "");
        links.Panel->SetAutoCaption("Name");
    });
    list.Add(kOwner, "IsPathAURL", [](LinkScene& links) {
        links.Panel->IsPathAURL("http://");
        links.Panel->txtURL->UserType("help.chm");
        links.Choose("interneturl");
        links.Panel->cmdTest->UserClick();
    });
    list.Add(kOwner, "GetNamespaceProfile",
             [](LinkScene& links) { links.Panel->GetNamespaceProfile(); });
    list.Add(kOwner, "SetNamespaceProfile",
             [](LinkScene& links) { links.Panel->SetNamespaceProfile("kite.db"); });
    list.Add(kOwner, "GetDotNetXMLFormat",
             [](LinkScene& links) { links.Panel->GetDotNetXMLFormat(); });
    list.Add(kOwner, "SetDotNetXMLFormat",
             [](LinkScene& links) { links.Panel->SetDotNetXMLFormat(true); });
    list.Add(kOwner, "UserControl_ReadProperties",
             [](LinkScene& links) { links.Panel->UserControl_ReadProperties(PropertyBag()); });
}

void AddDesigners(LinkList& list) {
    constexpr const char* kHelp = "HelpLinkDesigner";
    list.Add(kHelp, "ModuleName", [](LinkScene& links) { links.Help.ModuleName(); });
    list.Add(kHelp, "DumpVariables", [](LinkScene& links) {
        VariableDump dump;
        links.Help.DumpVariables(dump);
    });
    list.Add(kHelp, "GethRef", [](LinkScene& links) { links.Help.GethRef(); });
    list.Add(kHelp, "SethRef", [](LinkScene& links) { links.Help.SethRef("ms-help://N/I/t"); });
    list.Add(kHelp, "Validate", [](LinkScene& links) { links.Help.Validate(false); });
    list.Add(kHelp, "Clear", [](LinkScene& links) {
        links.Choose("anotherhelpfile");
        links.Help.cmdBuild[0]->UserClick();
        links.Help.Clear();
    });
    list.Add(kHelp, "GetHideBuildButtons",
             [](LinkScene& links) { links.Help.GetHideBuildButtons(); });
    list.Add(kHelp, "SetHideBuildButtons",
             [](LinkScene& links) { links.Help.SetHideBuildButtons(true); });
    list.Add(kHelp, "UserControl_ReadProperties",
             [](LinkScene& links) { links.Help.UserControl_ReadProperties(PropertyBag()); });
    list.Add(kHelp, "UserControl_WriteProperties", [](LinkScene& links) {
        PropertyBag bag;
        links.Help.UserControl_WriteProperties(bag);
    });
    constexpr const char* kMember = "MemberLinkDesigner";
    list.Add(kMember, "ModuleName", [](LinkScene& links) { links.Member.ModuleName(); });
    list.Add(kMember, "DumpVariables", [](LinkScene& links) {
        VariableDump dump;
        links.Member.DumpVariables(dump);
    });
    list.Add(kMember, "GethRef", [](LinkScene& links) { links.Member.GethRef(); });
    list.Add(kMember, "Validate", [](LinkScene& links) { links.Member.Validate(false); });
    list.Add(kMember, "ItemTypeOf", [](LinkScene& links) {
        links.Member.NamespaceProfile = "kite.xsd";
        links.Choose("anotheritem");
        links.Member.cmdBuild->UserClick();
        MemberLinkDesigner::ItemTypeOf("kite.xsd");
    });
}

} // namespace

std::vector<WalkedOperation> LinkOperations() {
    LinkList list;
    AddBuilder(list);
    AddDesigners(list);
    return std::move(list.Operations);
}

} // namespace paperkite::test
