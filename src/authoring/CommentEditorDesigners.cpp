#include "authoring/CommentEditor.h"

#include "foundation/GlobalConfig.h"
#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr const char* kDefaultDesigner = "GlossmakerDesigners.dsrHTMLEdit";
constexpr const char* kInitialised = "Done";

/// The name of a designer's control: its class without the points.
std::string ControlNameOf(const std::string& progID) {
    return ReplaceAll(progID, ".", "");
}

} // namespace

std::string
CommentEditor::DesignerForTaggedComment(const Ref<TaggedCommentDef>& TaggedCommentDef) const {
    return Procedure<std::string>(
        *this, "DesignerForTaggedComment", [&](std::string& result, Frame& frame) {
            Watch watchDef(frame, "TaggedCommentDef", TaggedCommentDef);
            if (!TaggedCommentDef) return;
            result = TaggedCommentDef->DesignerProgID;
            if (result.empty())
                result = GlobalConfig().TaggedCommentDefs->GetDefaultDesignerProgID();
            if (result.empty()) result = kDefaultDesigner;
        });
}

Ref<DesignerControl> CommentEditor::zFindDesigner(const std::string& name) const {
    return DesignerContainer->Controls.Find(name).As<DesignerControl>();
}

Ref<DesignerControl> CommentEditor::zControlOf(const Ref<CommentDesigner>& designer) const {
    for (const auto& control : DesignerContainer->Controls)
        if (const auto found = control.As<DesignerControl>())
            if (found->GetObject() == designer) return found;
    return {};
}

Ref<DesignerControl> CommentEditor::ActiveDesignerControl() const {
    return Procedure<Ref<DesignerControl>>(
        *this, "ActiveDesignerControl", [&](Ref<DesignerControl>& result, Frame&) {
            result = zFindDesigner(ControlNameOf(DesignerForTaggedComment(ActiveTaggedCommentDef)));
        });
}

Ref<DesignerControl> CommentEditor::zFixedDesigner() const {
    return zFindDesigner(ControlNameOf(kDefaultDesigner));
}

void CommentEditor::zMakeFixedDesigner() {
    if (!CurrentServices().CreateDesigner || zFixedDesigner()) return;
    const auto control = CurrentServices().CreateDesigner(kDefaultDesigner);
    control->SetName(ControlNameOf(kDefaultDesigner));
    control->SetVisible(false);
    auto& events = control->DesignerEvents;
    mConnections.push_back(events.DocumentComplete.Connect([this] { DocumentComplete(); }));
    const auto passOn = [&]<class... A>(Event<A...>& from, Event<A...>& to, const char* name) {
        mConnections.push_back(from.Connect([this, &to, name](A... arguments) {
            Procedure(*this, name, [&](Frame&) { to.Raise(arguments...); });
        }));
    };
    passOn(events.HyperlinkClick, Events.HyperlinkClick, "Designer_HyperlinkClick");
    passOn(events.InsertHyperLinkRequest, Events.InsertHyperLinkRequest,
           "Designer_InsertHyperLinkRequest");
    passOn(events.SpellIgnoreWordAdded, Events.SpellIgnoreWordAdded,
           "Designer_SpellIgnoreWordAdded");
    DesignerContainer->Controls.Add(control);
}

void CommentEditor::zOpenTab(const std::string& Key) {
    ActiveTaggedCommentDef = GlobalConfig().TaggedCommentDefs->Find(Key);
    if (!ActiveTaggedCommentDef) return;
    if (mWrapper) mWrapper->Call("lockrefresh", {});
    Ref<CommentDesigner> OldDesigner;
    const auto leave = [&](const Ref<CommentDesigner>& next) {
        if (!ActiveDesigner || ActiveDesigner == next) return;
        OldDesigner = ActiveDesigner;
        ActiveDesigner->Deactivate();
    };
    const auto control = ActiveDesignerControl();
    if (!control) {
        leave({});
        if (!zCreateDesignerControl(ActiveTaggedCommentDef)) {
            // The failure was reported, and what was in front stays there.
            if (mWrapper) mWrapper->Call("unlockrefreshabsolute", {});
            return;
        }
        zShowNewDesigner();
    } else {
        leave(control->GetObject());
        ActiveDesigner = control->GetObject();
        ActiveDesigner->SetActive(true);
        control->SetVisible(true);
        control->BringToFront();
    }
    DesignerContainer->SetVisible(true);
    SetActiveDesignerText();
    InPlaceEditor->SetVisible(false);
    mInPlaceEditorIsActive = false;
    DesignerContainer_Resize(prpTags->GetWidth(), prpTags->GetHeight());
    DesignerContainer->BringToFront();
    if (const auto old = OldDesigner ? zControlOf(OldDesigner) : Ref<DesignerControl>())
        old->SetVisible(false);
    if (mWrapper) {
        ActiveDesigner->BindToWrapper(mWrapper);
        // The default designer's lock ends when its document has been loaded.
        const auto fixed = zFixedDesigner();
        if (!fixed || ActiveDesigner != fixed->GetObject())
            mWrapper->Call("unlockrefreshabsolute", {});
    }
    zShowTipCommand(static_cast<bool>(ActiveTaggedCommentDef));
}

void CommentEditor::zShowNewDesigner() {
    if (DesignerContainer->GetParent() != tagsContainer.get()) {
        tagsContainer->Controls.Add(DesignerContainer);
        tagsContainer_Resize();
    } else {
        DesignerContainer_Resize(DesignerContainer->GetWidth(), DesignerContainer->GetHeight());
    }
    const auto control = ActiveDesignerControl();
    control->SetVisible(true);
    control->BringToFront();
}

Ref<DesignerControl>
CommentEditor::zCreateDesignerControl(const Ref<TaggedCommentDef>& TaggedCommentDef) {
    return Procedure<Ref<DesignerControl>>(
        *this, "zCreateDesignerControl", [&](Ref<DesignerControl>& result, Frame& frame) {
            Watch watchDef(frame, "TaggedCommentDef", TaggedCommentDef);
            const std::string progID = DesignerForTaggedComment(TaggedCommentDef);
            ActiveDesigner = nullptr;
            const auto cells = GetDataCells(TaggedCommentDef);
            if (!CurrentServices().CreateDesigner)
                RaiseError(ErrorNumber::CannotCreateComponent,
                           "The designer \"" + progID + "\" cannot be created");
            const auto control = CurrentServices().CreateDesigner(progID);
            control->SetName(ControlNameOf(progID));
            DesignerContainer->Controls.Add(control);
            CreatedDesigners.push_back(control->GetName());
            control->SetVisible(true);
            ActiveTaggedCommentDef = TaggedCommentDef;
            const auto designer = control->GetObject();
            designer->SetSpellObject(zSpellObject());
            designer->Initialize(*this, mCurrentCodeElement, GetActiveTaggedComments(),
                                 TaggedCommentDef->TagIdentifier, {}, cells);
            ActiveDesigner = designer;
            result = control;
        });
}

void CommentEditor::SetActiveDesignerText() {
    Procedure(*this, "SetActiveDesignerText", [&](Frame&) {
        const std::string& tag = ActiveTaggedCommentDef->TagIdentifier;
        const auto fixed = zFixedDesigner();
        if (fixed && ActiveDesigner == fixed->GetObject() && fixed->GetTag().empty()) {
            fixed->SetVisible(true);
            ActiveDesigner->SetSpellObject(zSpellObject());
            ActiveDesigner->Initialize(*this, mCurrentCodeElement, GetActiveTaggedComments(), tag,
                                       {}, GetDataCells(ActiveTaggedCommentDef));
            fixed->SetTag(kInitialised);
        } else {
            ActiveDesigner->Refresh(mCurrentCodeElement, GetActiveTaggedComments(), tag, {});
        }
    });
}

void CommentEditor::HideActiveDesigner() {
    Procedure(*this, "HideActiveDesigner", [&](Frame&) {
        if (!ActiveDesigner) return;
        ActiveDesigner->SetActive(false);
        ActiveDesigner->Deactivate();
    });
}

Ref<Object> CommentEditor::zSpellObject() const {
    return mSpell ? mSpell : Ref<Object>(CurrentServices().Spelling);
}

Ref<DataCells> CommentEditor::GetDataCells(const Ref<TaggedCommentDef>& TaggedCommentDef) const {
    return Procedure<Ref<DataCells>>(
        *this, "GetDataCells", [&](Ref<DataCells>& result, Frame& frame) {
            Watch watchDef(frame, "TaggedCommentDef", TaggedCommentDef);
            result = MakeRef<DataCells>();
            const auto addValue = [&](const char* key, const Value& value) {
                result->Add(key, MakeRef<DataCell>(value));
            };
            addValue("ModuleNames", Value::ArrayOfTexts(mModules));
            addValue("ProjectName", Value(mProjectName));
            addValue("CodeElement", Value(mCurrentCodeElement));
            addValue("AppName", Value(GetAppName()));
            addValue("BaseURL", Value(mBaseURL));
            if (!TaggedCommentDef) return;
            const std::string& tag = TaggedCommentDef->TagIdentifier;
            addValue("TagIdentifier", Value(tag));
            const auto comments = GetTaggedComments();
            if (comments && comments->Contains(tag))
                addValue("TaggedComment", Value(Ref<Object>(comments->Item(tag))));
        });
}

Ref<TaggedCommentCollection> CommentEditor::GetActiveTaggedComments() const {
    return Procedure<Ref<TaggedCommentCollection>>(
        *this, "ActiveTaggedComments", [&](Ref<TaggedCommentCollection>& result, Frame&) {
            const auto all = GetTaggedComments();
            if (!all) return;
            const auto comments = all->UnDeletedTaggedComments();
            if (!ActiveTaggedCommentDef) {
                result = comments;
                return;
            }
            result = MakeRef<TaggedCommentCollection>();
            for (const auto& comment : *comments)
                if (comment->GetTagIdentifier() == ActiveTaggedCommentDef->TagIdentifier)
                    result->Add(comment, comment->GetId());
        });
}

Ref<ObjectCollection> CommentEditor::GetDesigners() const {
    return Procedure<Ref<ObjectCollection>>(*this, "Designers",
                                            [&](Ref<ObjectCollection>& result, Frame&) {
                                                result = MakeRef<ObjectCollection>();
                                                if (const auto fixed = zFixedDesigner())
                                                    result->Add(fixed->GetObject());
                                                for (const auto& name : CreatedDesigners)
                                                    result->Add(zFindDesigner(name)->GetObject());
                                            });
}

void CommentEditor::zEndDesigners() {
    ActiveDesigner = nullptr;
    ActiveTaggedCommentDef = nullptr;
    // One designer that cannot end must not keep the others alive.
    const auto detach = [this](const Ref<DesignerControl>& control) {
        Procedure(*this, "Terminate",
                  [&](Frame&) { control->GetObject()->Detach(Ref<DataCells>()); });
    };
    for (const auto& name : CreatedDesigners) {
        detach(zFindDesigner(name));
        DesignerContainer->Controls.Remove(name);
    }
    CreatedDesigners.clear();
    if (const auto fixed = zFixedDesigner()) detach(fixed);
}

std::vector<std::string> CommentEditor::ICommentDesignerHost_ModuleNames(const std::string&) const {
    return mModules;
}

std::vector<std::string> CommentEditor::ICommentDesignerHost_ProjectNames() const {
    return Procedure<std::vector<std::string>>(
        *this, "ICommentDesignerHost_ProjectNames", [&](std::vector<std::string>& result, Frame&) {
            result.push_back(mProjectName.empty() ? CurrentRootItem->Get("Name").ToText()
                                                  : mProjectName);
        });
}

Ref<Object>
CommentEditor::ICommentDesignerHost_GetObjectFromQualifiedName(const std::string& QualifiedName) {
    return Procedure<Ref<Object>>(
        *this, "ICommentDesignerHost_GetObjectFromQualifiedName",
        [&](Ref<Object>& result, Frame& frame) {
            Watch watchName(frame, "QualifiedName", QualifiedName);
            if (!mKiteProject || !mCurrentNamespaceDef) return;
            result = mKiteProject->NamespaceProvider(mCurrentNamespaceDef->Moniker)
                         ->ItemByQualifiedName(QualifiedName);
        });
}

bool CommentEditor::ICommentDesignerHost_IsDotNet() const {
    return mCurrentNamespaceDef &&
           EqualIgnoringCase(BeforeColon(mCurrentNamespaceDef->Name), "kite.net");
}

std::string CommentEditor::ICommentDesignerHost_BuildLink(const std::string& ExistingLink,
                                                          bool GetCaption, std::string& Caption,
                                                          bool ShowExternalLinkTypes,
                                                          const std::string& DialogCaption,
                                                          const std::string& TipPrefix,
                                                          bool AddHTMLExtension) {
    return Procedure<std::string>(
        *this, "ICommentDesignerHost_BuildLink", [&](std::string& result, Frame& frame) {
            Watch watchLink(frame, "ExistingLink", ExistingLink);
            std::string NewLink;
            Events.BuildLinkRequest.Raise(ExistingLink, GetCaption, Caption, NewLink,
                                          ShowExternalLinkTypes, DialogCaption, TipPrefix,
                                          AddHTMLExtension);
            result = NewLink;
        });
}

} // namespace paperkite
