#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/CommentDesignerHost.h"
#include "foundation/KiteProject.h"
#include "foundation/ParserTemplate.h"
#include "foundation/Procedure.h"
#include "foundation/Theme.h"
#include "widgets/Container.h"
#include "widgets/FlatStrip.h"
#include "widgets/HtmlEdit.h"

#include <memory>
#include <string>
#include <vector>

namespace paperkite {

/// Lets an author write comments on the finished page of a code element.
///
/// It has the documentation parser build the page with every comment place marked by a span whose
/// id reads "TaggedComment|qualified name|tag", loads it into its HTML editing widget, and reports
/// what is typed into a span at once to its host, as an added, changed or deleted comment. The page
/// is never saved; only comments are. The host owns this control and calls Terminate at the end.
///
///     editor.SetKiteProject(project);
///     editor.Initialize(host, "Paperkite", "");
///     editor.Load(item, "class.html");
class InPlaceEditor : public Container, public Shielded {
public:
    explicit InPlaceEditor(std::string name = "InPlaceEditor");
    ~InPlaceEditor() override;

    const char* ModuleName() const override { return "InPlaceEditor"; }
    void DumpVariables(VariableDump& dump) const override;

    /// Passed to the data provider as "editcommenttype".
    paperkite::CommentType CommentType = paperkite::CommentType::TaggedComments;
    bool AutoSetFocus = true;
    /// The project itself, without what setting KiteProject brings about. Its templates, variables
    /// and output folder are changed for previewing: hosts pass one that is only for that.
    Ref<paperkite::KiteProject> mKiteProject;

    const Ref<paperkite::KiteProject>& GetKiteProject() const { return mKiteProject; }
    /// Another project, or nothing, drops the page's template and element.
    void SetKiteProject(const Ref<paperkite::KiteProject>& value);
    ICommentDesignerHost* GetHost() const { return mHost; }
    void SetHost(ICommentDesignerHost* value) { mHost = value; }

    /// The first call, and again when the host's template is another one.
    void Initialize(ICommentDesignerHost* Host, const std::string& AppName,
                    const std::string& BaseURL);
    /// Shows the page of an element. An empty layout name stands for the first layout that serves
    /// the host's namespace; where none does, or the page cannot be made, or there is no element,
    /// the page is empty.
    void Load(const Ref<Object>& CodeElement, const std::string& LayoutFileName);
    void CommitEdit();
    void Terminate();
    const Ref<HtmlEdit>& GetEditControl() const { return ed; }
    /// Where the page is made: the project's output folder, or one of the application's data folder
    /// where that cannot be used. Asking may make the folder.
    std::string GetPreviewFolder();
    /// A parser for page layouts with the text of that file; without a text where there is none.
    Ref<ParserTemplate> CreateParserTemplate(const std::string& FileName);
    void BindToWrapper(const Ref<Object>& Wrapper);

    void DoSpellCheck(const Ref<Object>& PassedSpell, bool& Cancel);
    void DoFind(const std::string& SearchFor, bool WholeWord, bool CaseSensitive,
                bool SearchInHTML);
    void DoReplace(const std::string& SearchFor, const std::string& ReplaceWith, bool WholeWord,
                   bool CaseSensitive, bool SearchInHTML);
    void SetSpellOptions(const SpellOptions& Options);
    void AddIgnoreAll(const std::string& Word);
    void SetEditFocus();
    void SetEditFocusQueued();

    struct {
        Event<> DocumentComplete;
        Event<const std::string&, std::string&, bool&>
            InsertHyperLinkRequest;                     ///< SelectedText, Link, Cancel
        Event<const std::string&> HyperlinkClick;       ///< hRef
        Event<const std::string&> SpellIgnoreWordAdded; ///< Word
    } Events;

    // The widgets, for views and hosts.

    Ref<HtmlEdit> ed = MakeRef<HtmlEdit>("ed");
    Ref<paperkite::FlatStrip> FlatStrip = MakeRef<paperkite::FlatStrip>("FlatStrip");

private:
    /// Error 91 before Initialize and behind Terminate.
    ICommentDesignerHost& zHost() const;

    /// Puts the strip below the page, and a frame around both while a visual theme is active.
    void zArrange();

    // Loading
    void ConfigureKiteProject();
    void zShowVariableNames();
    void zCollectDescription(const Ref<Object>& element);
    std::string zLayoutFor(const std::string& LayoutFileName) const;
    std::string zParsePage(bool ForEdit);
    std::string zBaseAddress();
    void RemoveTempFiles();
    void zDeleteScratchFile();
    void zShowEmptyPage();

    // The page
    void ed_DocumentComplete();
    void zMakePlacesEditable();
    void zMakePlaceEditable(const Ref<HTMLElement>& span);
    bool zIsSkipped(const Ref<Object>& obj, const std::string& TagIdentifier) const;
    void ed_EditableSpanChanged(const Ref<HTMLElement>& Span);
    void zStoreText(const Ref<Object>& obj, const std::string& TagIdentifier,
                    const std::string& NewText);
    bool InPopupBubble(const Ref<HTMLElement>& Element) const;
    Ref<TaggedComment> FindTaggedComment(const Ref<Object>& Item,
                                         const std::string& TagIdentifier) const;
    /// The same, for those who must not take a failure for a tag without a comment: false then.
    bool zFindTaggedComment(const Ref<Object>& Item, const std::string& TagIdentifier,
                            Ref<TaggedComment>& found) const;
    Ref<TaggedComment> NewTaggedComment(const std::string& TagIdentifier, const std::string& Text);
    std::string GetStrippedHTML(const Ref<HTMLElement>& Element);

    // Commands
    void zConnect();
    void FlatStrip_Change(const Ref<FlatTab>& PreviousTab, const Ref<FlatTab>& FlatTab);
    void ed_BeforeShowContextMenuEx(int X, int Y, const Ref<HTMLElement>& ObjectAtPoint,
                                    bool& CancelDefault, bool& ShowDefault, HtmlMenuType MenuType);
    void ed_CommandClick(const std::string& CommandName, bool& Ignore);
    void ed_ToolsRefreshed();
    void ed_GetURL(std::string& URL, std::string& Caption, bool& RemoveLink, bool ShowRemoveLink,
                   bool ShowCaption, bool EnabledKiteLinks, bool& CancelDefault);
    void ed_HyperlinkClick(const std::string& hRef);
    void ed_InsertHyperLinkRequest(const std::string& SelectedText, std::string& Link,
                                   bool& Cancel);
    void ed_SpellIgnoreWordAdded(const std::string& Word);
    bool zIsPreview() const;

    InstanceCount mInstanceCount{"InPlaceEditor", ComponentType::Control};
    bool mLoading = false;
    std::string mBaseURL;
    Ref<ProjectTemplate> mDocType;
    Ref<Object> mCodeElement;
    std::string mLayoutFileName;
    bool mResetUndo = false;
    std::vector<std::string> CreatedFiles;
    ICommentDesignerHost* mHost = nullptr;
    bool mIgnoreChanges = false;
    bool mTerminated = false;
    /// The visual theme of the window system, or nothing.
    std::shared_ptr<ThemeColours> mTheme;
    /// Whether the frame is drawn.
    bool mThemed = false;
    std::string mLastPreviewFolder;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
