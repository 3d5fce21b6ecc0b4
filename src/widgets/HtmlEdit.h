#pragma once

#include "foundation/HTMLDocument.h"
#include "foundation/SpellEngine.h"
#include "widgets/Control.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace paperkite {

class HtmlSearch;

/// How an HtmlEdit shows its document.
enum class HtmlView { Normal = 0, Source = 1, Preview = 2 };

/// What the author of an HtmlEdit may write on: the places of the document, or all of it.
enum class HtmlEditScope { Places, Document };

/// What happened to an element of the document, by the numbers that engines gave it long ago.
namespace HtmlEventId {
inline constexpr int kDoubleClick = -601;
inline constexpr int kContextMenu = 1023;
} // namespace HtmlEventId

/// Where and to which element it happened.
struct HtmlElementEvent : Object {
    std::string TypeName() const override { return "HtmlElementEvent"; }

    /// Nothing outside of the document.
    Ref<HTMLElement> SourceElement;
    /// On the screen, in pixels.
    int ScreenX = 0;
    int ScreenY = 0;
};

/// What the context menu of an HtmlEdit was asked for.
enum class HtmlMenuType { Default = 0, Image = 1, Control = 2, Table = 3, Text = 4, Anchor = 5 };

/// What the context menu shows after its handlers were asked.
enum class HtmlMenuAnswer { Full, DefaultOnly, None };

/// A stretch of a text, in bytes.
struct TextRange {
    std::size_t Start = 0;
    std::size_t Length = 0;

    bool operator==(const TextRange&) const = default;
};

/// A selection in a place, which counts GetPlaces from 0: characters of its text in UTF-16 units,
/// as pages count them.
struct HtmlSelection {
    std::size_t Place = 0;
    std::size_t Start = 0;
    std::size_t End = 0;

    bool operator==(const HtmlSelection&) const = default;
};

/// Told beyond the common things.
class HtmlEditObserver : public ControlObserver {
public:
    /// The document is another one, or is shown in another way: load it again.
    virtual void DocumentReplaced() {}

    /// Code changed what stands below that element, or one of its attributes.
    virtual void ElementChanged(const Ref<HTMLElement>& /*element*/) {}

    /// Whether the author's page stands before him, so that changes are made there, at his
    /// selection and with his undo history, and reach the document when it is read.
    virtual bool IsShowingPage() const { return false; }

    /// What the author did so far is to reach the document before this returns.
    virtual void FlushWanted() {}

    virtual void ClearUndoWanted() {}

    /// A command of the editor ("bold", "inserttable", …) is to work on the author's selection.
    virtual void CommandWanted(const std::string& /*name*/,
                               const std::vector<std::string>& /*arguments*/) {}

    /// The focus is to go to the text when the page is ready.
    virtual void QueuedFocusWanted() {}

    /// The words that are marked as misspelt, or whether they are marked, changed.
    virtual void MarksChanged() {}

    /// That text is to be selected and brought into sight.
    virtual void SelectionWanted(const HtmlSelection& /*selection*/) {}

    /// Another place of the source view is marked as wrong.
    virtual void SourceMarkChanged() {}
};

/// An HTML editing widget: a document with places that the author may edit.
///
/// The document is the truth. It is parsed when DocumentHTML is written, DocumentComplete is raised
/// then, and code that changes it there or later is seen by the view. Elements with the attribute
/// contenteditable="true" that stand in no other such element are the places: when the author types
/// in one, the view reports it, the document follows and EditableSpanChanged is raised. Scripts,
/// event attributes and "javascript:" links are kept in the document and never run.
///
/// With the scope Document the author writes on the whole body, and in the source view on the text
/// itself. The text is given back as it was set until somebody changes something. A long document
/// is not passed on with each key: Change says that it is another one, and who wants it reads it.
///
///     auto ed = MakeRef<HtmlEdit>("ed");
///     auto tie = ed->Events.EditableSpanChanged.Connect(
///         [](const Ref<HTMLElement>& span) { Store(span->GetId(), span->GetInnerHTML()); });
///     ed->SetDocumentHTML("<body><span id='a' contenteditable='true'>Text</span></body>");
class HtmlEdit : public Control, public Object {
public:
    explicit HtmlEdit(std::string name = {});
    ~HtmlEdit() override;

    std::string TypeName() const override { return "HtmlEdit"; }
    /// The operations below by name, for hosts that bind late.
    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;
    Value Call(std::string_view member, const std::vector<Value>& arguments) override;

    // The document

    /// Parses the text, forgets the undo history, raises DocumentComplete, then ToolsRefreshed, and
    /// shows the result. A text that no document can be made of is an error, and the old document
    /// stays.
    void SetDocumentHTML(const std::string& html);
    /// The present document as text; empty when there is none.
    std::string GetDocumentHTML() const;
    /// Nothing before the first text and after Terminate.
    const Ref<HTMLDocument>& GetDocument() const { return mDocument; }
    /// The elements that the author may edit, in document order. Kept until code changes the
    /// document outside them, so that asking again costs nothing.
    const std::vector<Ref<HTMLElement>>& GetPlaces() const;
    /// The place that the element is or stands in, or nothing.
    Ref<HTMLElement> PlaceOf(const Ref<HTMLElement>& element) const;

    /// Where relative addresses begin: "file:///folder/".
    const std::string& GetBaseURL() const { return mBaseURL; }
    /// Counts from the next document on.
    void SetBaseURL(const std::string& value) { mBaseURL = value; }
    /// Folders that the page may read files from, besides that of the base address.
    const std::vector<std::string>& GetReadableFolders() const { return mReadableFolders; }
    void SetReadableFolders(std::vector<std::string> value);

    /// Style sheets that a document which is written on as a whole is shown with, besides its own:
    /// addresses, relative ones from the base address. They are no part of it.
    const std::vector<std::string>& GetStyleSheets() const { return mStyleSheets; }
    /// Counts from the next document on.
    void SetStyleSheets(std::vector<std::string> value) { mStyleSheets = std::move(value); }

    /// Whether the document counts as changed.
    bool GetDirty() const { return mDirty; }
    void SetDirty(bool value) { mDirty = value; }
    /// The name under which the program speaks of itself in dialogs.
    const std::string& GetApplicationName() const { return mApplicationName; }
    void SetApplicationName(const std::string& value) { mApplicationName = value; }
    /// What addresses of the widget's own pictures begin with.
    std::string GetResourcePath() const;
    HtmlView GetView() const { return mView; }
    /// With the scope Document the text goes over from one form to the other: the source view has
    /// it as it stands, the other ones make a document of it.
    void SetView(HtmlView value);
    HtmlEditScope GetScope() const { return mScope; }
    /// Set before the first document.
    void SetScope(HtmlEditScope value) { mScope = value; }
    /// True while a document is put in.
    bool GetLoading() const { return mLoading > 0; }
    /// Whom pages know as "external"; somebody else owns it. Scripts never run, so nobody asks.
    Control* GetExternal() const { return mExternal; }
    void SetExternal(Control* value) { mExternal = value; }
    /// Sets the look of the buttons of menus and bars that belong to the widget.
    int GetContextToolbarStyle() const { return mContextToolbarStyle; }
    void SetContextToolbarStyle(int value) { mContextToolbarStyle = value; }

    /// Takes the element away and leaves its contents.
    void RemoveElementKeepContents(const Ref<HTMLElement>& element);
    /// What the author typed has reached the document when this returns.
    void CommitEdit();
    void ClearUndo();
    /// Lets go of the document; nothing is shown or reported any more.
    void Terminate();

    // Editing

    /// Moves the focus into the text now.
    void SetEditFocus();
    /// Moves it when the widget has nothing else to do.
    void SetEditFocusQueued();
    /// Works on the author's selection: "bold", "italic", "underline", "code", "removeformat",
    /// "insertorderedlist", "insertunorderedlist", "indent", "outdent", "createlink", "unlink",
    /// "insertimage", "undo", "redo", "cut", "copy", "paste", "pasteplain", "selectall", and inside
    /// a table "insertrow", "insertcolumn", "deleterow", "deletecolumn", "deletetable". Raises
    /// CommandClick first; "ViewNormal", "ViewSource" and "ViewPreview" switch the view. Letter
    /// case does not matter; another name is error 5.
    ///
    /// "createlink" raises InsertHyperLinkRequest, and GetURL where nobody gave a link there.
    void ClickEditTool(const std::string& name);
    /// Both from 1 to 100; error 5 otherwise.
    void InsertTable(int rows, int columns);
    void InsertHTML(const std::string& html);
    /// Writes the selected part of the document. Without a page that is shown it goes behind the
    /// current element, or to the end of the body.
    void SetSelectedHTML(const std::string& html);
    /// The element that the author stands in or has selected, or pointed at last; nothing where
    /// that is not known. Of one in a page that is shown only the tag, the id, what it stands in
    /// and writing OuterHTML are there.
    const Ref<HTMLElement>& GetCurrentElement() const { return mCurrentElement; }
    /// The place that is marked in the source view: a line from 1, 0 for none, and a character from
    /// 1.
    int GetMarkedLine() const { return mMarkedLine; }
    int GetMarkedColumn() const { return mMarkedColumn; }
    void SetSourceMark(int line, int column);
    void SetForeColorByName(const std::string& colourName);
    void SetFillColorByName(const std::string& colourName);
    const std::string& GetForeColorName() const { return mForeColorName; }
    const std::string& GetFillColorName() const { return mFillColorName; }
    /// Whether a command is in force at the author's selection ("bold"), or can be used ("undo",
    /// which is "EditUndo" too).
    bool IsCommandOn(const std::string& name) const;
    bool IsCommandEnabled(const std::string& name) const;
    /// Where the author stands, or what was found last; nothing where that is not known.
    const std::optional<HtmlSelection>& GetSelection() const { return mSelection; }
    const std::string& GetSelectedText() const { return mSelectedText; }
    /// Where the link leads in which the selection stands; empty outside links.
    const std::string& GetSelectedLink() const { return mSelectedLink; }

    // Searching and spelling

    /// Whether DoFind and DoReplace, and DoSpellCheck, are there to be used.
    bool CanFind() const;
    bool CanCheckSpelling() const;
    /// Selects what comes next behind the selection, from the beginning again at the end; false,
    /// and nothing changes, where it stands nowhere. What is found, and what a replacement does,
    /// says HtmlSearch.
    bool DoFind(const std::string& searchFor, bool wholeWord, bool caseSensitive,
                bool searchInHTML);
    /// Replaces it wherever it stands in what may be edited; each changed span is reported. Gives
    /// how often it was replaced. "undo" takes all of it back at once.
    std::size_t DoReplace(const std::string& searchFor, const std::string& replaceWith,
                          bool wholeWord, bool caseSensitive, bool searchInHTML);
    void SetSpellObject(const Ref<SpellEngine>& engine);
    const Ref<SpellEngine>& GetSpellObject() const { return mSpell; }
    void SetSpellOptions(const SpellOptions& options);
    void AddIgnoreAll(const std::string& word);
    /// Goes through the misspelt words of what may be edited and asks the service AskSpelling what
    /// to do with each; without it, or without an engine, nothing happens. `cancel` becomes true
    /// when the author ends the check. What was changed is one step for "undo".
    void DoSpellCheck(const Ref<Object>& passedSpell, bool& cancel);
    bool GetSpellCheckInProgress() const { return mSpellCheckInProgress; }
    /// Misspelt words are underlined while the author types; nothing of it is in the document.
    bool GetSpellAsYouType() const { return mSpellAsYouType; }
    void SetSpellAsYouType(bool value);
    /// The words of a plain text that the engine does not know, as SpellWords says; none without an
    /// engine.
    std::vector<TextRange> FindMisspelt(const std::string& text) const;

    struct {
        Event<> DocumentComplete;
        /// The author changed what stands in a place that may be edited.
        Event<const Ref<HTMLElement>&> EditableSpanChanged;
        /// With the scope Document: the author changed it, or a text was put in.
        Event<> Change;
        /// EventId, EventInfo, CancelDefault
        Event<int, const Ref<HtmlElementEvent>&, bool&> ElementEvent;
        /// Selection, undo history or document changed: tool bars are to be brought up to date.
        Event<> ToolsRefreshed;
        /// X, Y, ObjectAtPoint, CancelDefault, ShowDefault, MenuType
        Event<int, int, const Ref<HTMLElement>&, bool&, bool&, HtmlMenuType>
            BeforeShowContextMenuEx;
        Event<const std::string&, bool&> CommandClick; ///< CommandName, Ignore
        /// URL, Caption, RemoveLink, ShowRemoveLink, ShowCaption, EnabledKiteLinks, CancelDefault
        Event<std::string&, std::string&, bool&, bool, bool, bool, bool&> GetURL;
        Event<const std::string&> HyperlinkClick; ///< hRef
        Event<const std::string&, std::string&, bool&>
            InsertHyperLinkRequest;                     ///< SelectedText, Link, Cancel
        Event<const std::string&> SpellIgnoreWordAdded; ///< Word
        /// With the scope Document: a part of the page was copied. Key of the page, HTML
        Event<const std::string&, const std::string&> PartCopied;
        /// A part of the page that the key names is to be put into this one. A handler that knows
        /// what the spans in it mean puts it in itself and says so; otherwise it comes in as it is.
        /// Key, HTML, Handled
        Event<const std::string&, const std::string&, bool&> PartPasted;
    } Events;

    // What the view reports.

    /// The author changed what stands in a place; `place` counts GetPlaces from 0. An unknown place
    /// and a text that says the same change nothing. Nothing comes in outside the normal view.
    void UserSpanChanged(std::size_t place, const std::string& html);
    void UserHyperlinkClick(const std::string& href);
    /// The selection: its text, and the names of the commands that are on and that can be used.
    void UserSelection(const std::string& text, std::vector<std::string> on,
                       std::vector<std::string> enabled, const std::string& foreColor,
                       const std::string& fillColor, const std::string& link = {});
    /// With the scope Document: something was typed that the document does not hold yet, and
    /// whether it can be taken back.
    void UserDocumentTouched(bool canUndo);
    void UserPartCopied(const std::string& key, const std::string& html);
    void UserPartPasted(const std::string& key, const std::string& html);
    /// The text of the source view as the author left it.
    void UserSourceChanged(const std::string& text, bool canUndo);
    /// The author stands in that element now, or pointed at it.
    void UserPoint(const Ref<HTMLElement>& element);
    /// Raises ElementEvent; true where a handler wants nothing else to happen.
    bool UserElementEvent(int eventId, const Ref<HtmlElementEvent>& info);
    /// Where the author stands now.
    void UserSelectionMoved(const HtmlSelection& selection) { mSelection = selection; }
    /// Raises BeforeShowContextMenuEx, where a handler may narrow the menu.
    HtmlMenuAnswer UserContextMenu(int x, int y, const Ref<HTMLElement>& objectAtPoint,
                                   HtmlMenuType type);
    /// The author chose to pass over a marked word, or to have it learnt; where it cannot be
    /// written down he is shown why.
    void UserIgnoreWord(const std::string& word);
    void UserLearnWord(const std::string& word);

private:
    /// One change of several places, to be taken back at once.
    struct PlaceStep {
        struct Change {
            Ref<HTMLElement> Place;
            std::string Before;
            std::string After;
        };
        std::vector<Change> Changes;
    };
    /// What DoFind selected last, and where it ends in the source of its place.
    struct Found {
        std::optional<HtmlSelection> Selection;
        std::size_t SourceEnd = 0;
    };

    void MakeDocument(const std::string& html);
    void DocumentChanged(const Ref<HTMLElement>& element);
    void ForgetSelection();
    void NoteUndo(bool canUndo);
    bool IsPageShown() const;
    bool IsText() const { return mScope == HtmlEditScope::Document && mView == HtmlView::Source; }
    void CreateLink();
    void TellCommand(const std::string& name, const std::vector<std::string>& arguments = {});
    /// The engine of this widget, or that of the process, or nothing.
    Ref<SpellEngine> Engine() const;
    void FollowEngine();
    /// Selects bytes of the source of a place.
    void SelectSource(std::size_t place, const std::string& html, std::size_t from, std::size_t to);
    bool FindIn(std::size_t place, const HtmlSearch& search, std::size_t from);
    std::size_t FindFrom(std::size_t place) const;
    bool IsPlace(const Ref<HTMLElement>& element) const;
    /// Writes the text of a place as if the author had typed it, and remembers that in a step.
    void ChangePlace(const Ref<HTMLElement>& place, const std::string& html, PlaceStep& step);
    void KeepStep(PlaceStep step);
    bool CanStep(const std::string& tool) const;
    bool Step(const std::string& tool);
    friend class HtmlSpellCheck;

    Ref<HTMLDocument> mDocument;
    std::string mBaseURL;
    std::vector<std::string> mReadableFolders;
    std::vector<std::string> mStyleSheets;
    std::string mApplicationName;
    std::string mForeColorName;
    std::string mFillColorName;
    std::string mSelectedText;
    std::string mSelectedLink;
    std::optional<HtmlSelection> mSelection;
    Found mFound;
    /// Changes of whole documents; the first mStepsDone of them are in force.
    std::vector<PlaceStep> mSteps;
    std::size_t mStepsDone = 0;
    std::vector<std::string> mCommandsOn;
    std::vector<std::string> mCommandsEnabled;
    Ref<SpellEngine> mSpell;
    HtmlView mView = HtmlView::Normal;
    HtmlEditScope mScope = HtmlEditScope::Places;
    /// The text that was put in or typed as such, until the document changes.
    std::optional<std::string> mText;
    Ref<HTMLElement> mCurrentElement;
    Control* mExternal = nullptr;
    int mLoading = 0;
    int mMarkedLine = 0;
    int mMarkedColumn = 0;
    int mContextToolbarStyle = 0;
    bool mDirty = false;
    bool mSpellAsYouType = false;
    bool mSpellCheckInProgress = false;
    bool mTerminated = false;
    /// Above 0 while changes of the document are not to reach the views.
    int mQuiet = 0;
    mutable std::vector<Ref<HTMLElement>> mPlaces;
    mutable bool mPlacesKnown = false;
    Connection mDocumentChanged;
    Connection mWordsChanged;
};

} // namespace paperkite
