#include "authoring/CommentEditor.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr const char* kTick = "tick";
constexpr std::string_view kTicked = "ticked";
constexpr std::string_view kTickedEnding = "_ticked";
constexpr const char* kPagePrefix = "inplaceedit:";
constexpr const char* kPagePopup = "p-fullpageedit";
constexpr const char* kTipPopup = "TipPopup";
constexpr const char* kGeneralTag = "##";
constexpr int kToolbarMargin = 15;

} // namespace

Ref<GroupItem> CommentEditor::AddExplorerBarItem(const std::string& GroupName,
                                                 const std::string& Key,
                                                 const std::string& Caption) {
    return Procedure<Ref<GroupItem>>(*this, "AddExplorerBarItem",
                                     [&](Ref<GroupItem>& result, Frame& frame) {
                                         Watch watchGroup(frame, "GroupName", GroupName);
                                         Watch watchKey(frame, "Key", Key);
                                         Ref<ExplorerBarGroup> group = eb->FindGroup(GroupName);
                                         if (!group)
                                             group = eb->AddGroup(GroupName, GroupName, "other");
                                         result = group->Find(Key);
                                         if (!result) result = group->Add(Key, Caption);
                                     });
}

void CommentEditor::zListTab(const Ref<TaggedCommentDef>& definition) {
    const auto item =
        AddExplorerBarItem(definition->GroupName, definition->TagIdentifier, definition->TabName);
    item->SetToolTipText(definition->DisplayName);
    item->SetTag(ReplaceAll(definition->TagIdentifier, "#", ""));
    if (!definition->IconName.empty()) item->SetIcon(definition->IconName);
}

bool CommentEditor::zIsLegacyInUse(const std::string& TagIdentifier) const {
    const auto comments = GetTaggedComments();
    return comments && FindTaggedComments(*comments->UnDeletedTaggedComments(), TagIdentifier) >= 1;
}

void CommentEditor::zListPages() {
    const auto main = eb->GetGroup("main");
    main->Clear();
    const auto pageTemplate = GetInPlaceTemplate();
    if (!pageTemplate) return;
    const std::string NamespaceName = zNamespaceName();
    std::size_t PageLayoutCount = 0;
    for (const auto& layout : *pageTemplate->PageLayouts)
        if (ContainsIgnoringCase(layout->Namespaces, NamespaceName)) ++PageLayoutCount;
    for (const auto& layout : *pageTemplate->PageLayouts) {
        if (!ContainsNamespace(layout->Namespaces, NamespaceName)) continue;
        std::string caption = "Full Page Edit";
        if (PageLayoutCount > 1) caption += " (" + layout->FileName + ")";
        main->Add(kPagePrefix + layout->FileName, caption);
    }
}

void CommentEditor::ClearDockCommentTypes() {
    Procedure(*this, "ClearDockCommentTypes", [&](Frame&) {
        DockCommentTypes->GetToolbar(1)->Clear();
        auto& commands = DockCommentTypes->Commands;
        while (commands.Count() > 1)
            commands.Remove(commands.Count());
    });
}

void CommentEditor::PopulateToolbar() {
    Procedure(*this, "PopulateToolbar", [&](Frame&) {
        ClearDockCommentTypes();
        for (const auto& group : eb->GetGroups())
            zAddGroupToToolbar(*group);
        DockCommentTypes->GetToolbar(1)->Add(DockCommentTypes->Commands.Item(kTipPopup), true);
    });
}

void CommentEditor::zAddGroupToToolbar(const ExplorerBarGroup& group) {
    auto& commands = DockCommentTypes->Commands;
    const auto toolbar = DockCommentTypes->GetToolbar(1);
    bool isFirst = true;
    const auto addButton = [&](const Ref<DockCommand>& command) {
        toolbar->Add(command, std::exchange(isFirst, false));
    };
    const bool isOther = group.GetKey() == "other";
    if (isOther && prpFlags->Count() > 0) {
        const auto flags = commands.AddCheck("flags", "Flags");
        flags->SetToolTipText("Flags");
        addButton(flags);
    }
    for (const auto& item : group) {
        if (!item->GetVisible() || !item->GetEnabled()) continue;
        const std::string& key = item->GetKey();
        if (group.GetKey() == "main") {
            if (!commands.Contains(kPagePopup))
                addButton(commands.AddPopup(kPagePopup, "Full Page Edit", "fullpageedit"));
            commands.Item(kPagePopup)->GetPopupCommands().AddCheck(key, item->GetCaption());
        } else if (isOther) {
            addButton(commands.AddCheck(key, item->GetCaption(), "other"));
        } else if (key != "checkboxcontainer") {
            const auto definition = GlobalConfig().TaggedCommentDefs->Find(key);
            if (!definition || definition->IconName.empty()) continue;
            const std::string image = LowerCase(definition->IconName);
            if (!DockCommentTypes->GetImageList()->Contains(image)) continue;
            const auto command = commands.AddCheck(key, item->GetCaption(), image);
            command->SetToolTipText(definition->DisplayName);
            command->SetTag(image);
            addButton(command);
        }
    }
}

void CommentEditor::zShowCommandImage(const std::string& name, const std::string& image) {
    if (const auto command = DockCommentTypes->Commands.Find(name)) command->SetImage(image);
}

void CommentEditor::zShowTipCommand(bool visible) {
    DockCommentTypes->Commands.Item(kTipPopup)->SetVisible(visible);
}

void CommentEditor::UpdateGroupItemStatus() {
    Procedure(*this, "UpdateGroupItemStatus", [&](Frame&) {
        std::unordered_set<std::string> used;
        if (const auto all = GetTaggedComments())
            for (const auto& comment : *all)
                if (comment->GetState() != kTaggedCommentTombstone &&
                    comment->GetItem() == mCurrentCodeElement)
                    used.insert(comment->GetTagIdentifier());
        const bool hasGeneral = used.contains(kGeneralTag);
        for (const auto& group : eb->GetGroups()) {
            if (group->GetKey() == "main" || group->GetKey() == "flags") continue;
            for (const auto& item : *group)
                if (item->GetVisible() && item->GetEnabled())
                    zMarkItem(*item, used.contains(item->GetKey()) ||
                                         (hasGeneral && item->GetCaption() == "Description"));
        }
        const auto other = eb->GetGroup("other")->Find("other");
        if (other && other->GetVisible() && other->GetEnabled()) {
            const bool hasComment = prpTags->Count() >= 2 && !prpTags->Item(2)->IsHeader();
            other->SetBold(hasComment);
            zShowCommandImage("other", hasComment ? "other_ticked" : "other");
            other->SetIcon(hasComment ? kTick : "");
        }
        if (!eb->GetGroup("flags")->GetVisible()) return;
        bool anyTicked = false;
        for (const auto& row : *prpFlags)
            anyTicked = anyTicked || row->GetChecked();
        zShowCommandImage("flags", anyTicked ? "flags_ticked" : "flags_unticked");
    });
}

void CommentEditor::zMarkItem(GroupItem& item, bool isUsed) {
    item.SetBold(isUsed);
    const std::string icon = item.GetIcon();
    if (isUsed && icon.empty())
        item.SetIcon(kTick);
    else if (isUsed && !icon.ends_with(kTicked))
        item.SetIcon(icon + std::string(kTickedEnding));
    else if (!isUsed && icon.ends_with(kTicked))
        item.SetIcon(icon.substr(0, icon.size() - std::min(icon.size(), kTickedEnding.size())));
    const auto command = DockCommentTypes->Commands.Find(item.GetKey());
    if (!command || command->GetTag().empty()) return;
    command->SetImage(command->GetTag() + (isUsed ? std::string(kTickedEnding) : std::string()));
}

void CommentEditor::DockCommentTypes_CommandClick(const Ref<DockCommand>& Command) {
    Procedure(*this, "DockCommentTypes_CommandClick", [&](Frame&) {
        // The tip's window opens by itself.
        if (mPopulating || Command->GetName() == kTipPopup || Command->GetIsPopup()) return;
        const std::string key = Command->GetName();
        // The author's choice is carried over to the next element.
        if (const auto item = zFindItem(key)) item->SetTag({});
        SelectCommentType(key, false);
        SetEditFocus();
    });
}

void CommentEditor::DockCommentTypes_PopupWindowShowing(const std::string& Name) {
    Procedure(*this, "DockCommentTypes_PopupWindowShowing", [&](Frame& frame) {
        Watch watchName(frame, "Name", Name);
        if (!ActiveTaggedCommentDef) return;
        const auto item = eb->GetSelectedItem();
        mTipPopup->SetTipText("<p><b>" + (item ? item->GetCaption() : std::string()) +
                              "</b></p><p>" + ActiveTaggedCommentDef->Tip + "</p>");
        auto& window = DockCommentTypes->PopupWindow(Name);
        window.Height = mTipPopup->GetHeight();
        window.Width = mTipPopup->GetWidth();
    });
}

void CommentEditor::SetShowCombo(bool value) {
    Procedure(*this, "ShowCombo", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        mShowCombo = value;
        if (value) {
            splitMain->SetFirstPane(nullptr);
            splitMain->SetSecondPane(nullptr);
            DockCommentTypes->SetWidth(DockCommentTypes->GetWidth() - kToolbarMargin);
            DockCommentTypes->SetClient(tagsContainer);
            eb->SetVisible(false);
            splitMain->SetVisible(false);
            DockCommentTypes->SetVisible(true);
        } else {
            DockCommentTypes->SetVisible(false);
            DockCommentTypes->SetClient(nullptr);
            splitMain->SetFirstPane(eb);
            splitMain->SetSecondPane(tagsContainer);
            splitMain->SetVisible(true);
            eb->SetVisible(UserControl->GetVisible());
        }
        UserControl_Resize();
    });
}

void CommentEditor::UserControl_Resize() {
    Procedure(*this, "UserControl_Resize", [&](Frame&) {
        const Ref<Control> filling =
            mShowCombo ? Ref<Control>(DockCommentTypes) : Ref<Control>(splitMain);
        filling->Move(0, 0, UserControl->GetWidth(), UserControl->GetHeight());
    });
}

void CommentEditor::DockCommentTypes_ClientResize() {
    Procedure(*this, "DockCommentTypes_ClientResize", [&](Frame&) {
        // Beside the bar the surfaces lie in the splitter, which a hidden toolbar must not move.
        if (!mShowCombo) return;
        const Bounds room = DockCommentTypes->GetClientRectangle();
        tagsContainer->Move(room);
        splitMain->Move(room);
    });
}

void CommentEditor::tagsContainer_Resize() {
    Procedure(*this, "tagsContainer_Resize", [&](Frame&) {
        tagsContainer->FillControls();
        DesignerContainer_Resize(tagsContainer->GetWidth(), tagsContainer->GetHeight());
    });
}

void CommentEditor::DesignerContainer_Resize(int Width, int Height) {
    Procedure(*this, "DesignerContainer_Resize", [&](Frame&) {
        if (!ActiveTaggedCommentDef) return;
        if (const auto control = ActiveDesignerControl()) control->Move(0, 0, Width, Height);
    });
}

} // namespace paperkite
