#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/HTMLDocument.h"
#include "foundation/PageTemplate.h"
#include "foundation/ParserTemplate.h"
#include "foundation/Procedure.h"
#include "foundation/PropertyBag.h"
#include "foundation/Theme.h"
#include "pagelayout/LayoutEnvelope.h"
#include "pagelayout/SpanProvider.h"
#include "widgets/Container.h"
#include "widgets/DockHost.h"
#include "widgets/FlatStrip.h"
#include "widgets/HeaderBar.h"
#include "widgets/HtmlEdit.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace paperkite {

class KeptElements;

/// The control in which an author edits a page layout: rendered, with its elements in sight, or as
/// the text that it is.
///
///     auto edit = MakeRef<MetaDocumentEdit>();
///     edit->Initialize();
///     edit->SetTemplate(pageTemplate);
///     edit->SetLayout(layout);
///     edit->SetDocumentHTML(html);
///     … // the author works
///     if (edit->GetDirty()) Store(edit->GetDocumentHTML());
///     edit->Terminate();
///
/// A layout's variable places are comments, which no author can see or click. In the span document
/// each of them that may be edited is a small span instead. The spans hold nothing but numbers of
/// the last conversion's SpanProvider, so the way back belongs to the last way there. The two ways
/// can be used without the control being shown:
///
///     std::string spans = edit->ConvertMetaDocumentToSpanDocument(html);
///     html = edit->ConvertSpanDocumentToMetaDocument(spans);
///
/// The source view holds the layout itself. Each change of the view converts, and a layout that
/// cannot be converted stays in the view in which it is.
///
/// The host owns the template and the layout, and calls Terminate before it lets go. Needs the
/// services CreateParserTemplate, HTMLDOMFactory, HTMLTidy and MessageBox. Both ways take time in
/// proportion to the length of the text; inserting, editing and deleting one element does not.
class MetaDocumentEdit : public Container, public Shielded {
public:
    explicit MetaDocumentEdit(std::string name = "MetaDocumentEdit");
    ~MetaDocumentEdit() override;

    const char* ModuleName() const override { return "MetaDocumentEdit"; }
    void DumpVariables(VariableDump& dump) const override;

    /// The template that the layout belongs to, which says what tool wrote it. Somebody else owns
    /// it; nothing once it is gone.
    Ref<PageTemplate> GetTemplate() const { return pTemplate.GetObject(); }
    void SetTemplate(const Ref<PageTemplate>& value);
    /// The layout that is edited, which says what elements are not offered. Owned as Template is.
    Ref<PageLayout> GetLayout() const { return pLayout.GetObject(); }
    void SetLayout(const Ref<PageLayout>& value);

    void Initialize();
    /// Lets go of everything; more often does no harm.
    void Terminate();
    /// The layout as it is to be stored. Empty after a failure, which was shown then: a host keeps
    /// what it has.
    std::string GetDocumentHTML();
    /// A text that cannot be shown, which was told then, leaves the old one with all that the
    /// author did; true when it is shown.
    bool SetDocumentHTML(const std::string& value);
    const std::string& GetBaseURL() const { return dedDocument->GetBaseURL(); }
    void SetBaseURL(const std::string& value);
    /// Whether the author changed something since this was last set to false.
    bool GetDirty() const { return mDirty; }
    void SetDirty(bool value) { mDirty = value; }
    int GetContextToolbarStyle() const { return dedDocument->GetContextToolbarStyle(); }
    void SetContextToolbarStyle(int value) { dedDocument->SetContextToolbarStyle(value); }
    const Ref<HtmlEdit>& GetDHTMLEdControl() const { return dedDocument; }
    /// 0 rendered, 1 source, 2 preview.
    int GetView() const { return iView; }
    /// What a host shows in the preview, such as the finished page of an item, in place of the
    /// rendered layout; nothing for none.
    void SetPreview(const Ref<Control>& control);

    /// Asks the author for an element and writes it in place of the selection; true when he
    /// confirmed.
    bool InsertMetaData();
    /// Lets the author change the element whose span is the editor's current element.
    bool EditMetaData();
    /// Takes the last change of an element back; false, and nothing happens, where something else
    /// was changed since. The editor's own undo asks here first, its redo RedoElementEdit.
    bool UndoElementEdit();
    bool CanUndoElementEdit() const { return !mElementSteps.empty(); }
    /// Does again what UndoElementEdit took back last; false without such an edit.
    bool RedoElementEdit();
    bool CanRedoElementEdit() const { return !mUndoneElementSteps.empty(); }
    /// Takes the editor's current element away, whatever it is; false.
    bool DeleteMetaData();

    /// Design properties from and to the host's bag.
    void UserControl_ReadProperties(const PropertyBag& PropBag);
    void UserControl_WriteProperties(PropertyBag& PropBag) const;

    struct {
        Event<> Change; ///< the author changed something
        /// MetaTagName, MetaDataName; hosts may bind it, nothing raises it.
        Event<const std::string&, const std::string&> RequestMoreHelp;
        /// EventId, EventInfo, CancelDefault
        Event<int, const Ref<HtmlElementEvent>&, bool&> ElementEvent;
        Event<const std::string&> PropertyChanged; ///< a stored property, for the host's bag
    } Events;

    // The widgets, for views and hosts.

    Ref<HeaderBar> hdrElements = MakeRef<HeaderBar>("hdrElements");
    Ref<HtmlEdit> dedDocument = MakeRef<HtmlEdit>("dedDocument");
    Ref<FlatStrip> fstView = MakeRef<FlatStrip>("fstView");
    Ref<DockHost> dksUI = MakeRef<DockHost>("dksUI");

    /// Mistakes in the tags are shown in two messages, and do not stop the conversion.
    std::string ConvertMetaDocumentToSpanDocument(const std::string& HTML);
    /// The root element of the document with each span replaced by its element, tidied. What stands
    /// in front of the root, such as the document type, is not in the result. A layout with a
    /// generator tag needs a Template. Empty after a failure, such as a span of another layout.
    std::string ConvertSpanDocumentToMetaDocument(const std::string& HTML);

    /// The number in the id of a span, 0 for an id of another kind.
    std::int32_t GetSpanIndex(const std::string& Id);
    /// Whether an element is a span of a layout's element or lies in one, which is given then.
    bool IsInsideMetaSpan(const Ref<HTMLElement>& Root, Ref<HTMLElement>* Span = nullptr);

    /// The provider of the present span document; nothing before the first conversion.
    const Ref<SpanProvider>& GetSpanProvider() const { return mSpanProvider; }

    // For hosts that were written when the tags could be chosen: these do nothing.

    std::string GetMetaDataProperty(std::int32_t /*Span*/, const std::string& /*Property*/,
                                    const std::string& /*DefaultValue*/ = {}) {
        return {};
    }
    std::int32_t MetaTagCount() const { return 0; }
    void ReloadDefaultTags() {}
    /// Returns or sets if the default Paperkite 4 meta tags should be automatically loaded
    bool GetUsePaperkite4MetaTags() const { return false; }
    void SetUsePaperkite4MetaTags(bool /*value*/) {}
    void AddMetaTag(const std::string& /*Name*/, const std::string& /*OpenTag*/,
                    const std::string& /*CloseTag*/, const std::string& /*SpanPrefix*/,
                    const std::string& /*SpanSuffix*/, const std::string& /*SpanNameFrom*/) {}
    void RemoveMetaTag(const std::string& /*Name*/) {}
    void CheckForMissing() {}

private:
    // The control
    void zMakeCommands();
    void zConnect();
    void zArrange();
    void zShowPreview();
    void zUpdateCommands();
    void zSetView();
    /// Puts a layout into the editor: as it stands into the source view, with spans otherwise.
    /// False where it was told that this cannot be; what is shown is as it was then.
    bool zShow(const std::string& html);
    int zActiveView() const;
    /// A span document for the editor, and back.
    std::string zForEditor(const std::string& spans);
    std::string zFromEditor(const std::string& text) const;
    /// What a span shows waits in an attribute where it holds tags: a parser may not leave them in
    /// the span.
    std::string zWithInnerAside(const std::string& text) const;
    std::string zWithInnerBack(const std::string& text) const;
    /// No document would leave the elements that stay as they are where they stand, so that bare
    /// comments stand for them meanwhile.
    std::string zHideExcluded(const std::string& spans);
    std::string zShowExcluded(const std::string& text) const;
    /// The text of the editor as a layout, for another view; false where it cannot be converted.
    bool zReadForView(std::string& html);
    void Changed();
    void dksUI_CommandClick(const Ref<DockCommand>& Command);
    void dedDocument_Change();
    void dedDocument_ElementEvent(int EventId, const Ref<HtmlElementEvent>& EventInfo,
                                  bool& CancelDefault);
    void zDoubleClick(const Ref<HTMLElement>& source, bool& CancelDefault);
    void zContextMenu(const HtmlElementEvent& info, bool& CancelDefault);

    void dedDocument_PartCopied(const std::string& Key, const std::string& HTML);
    void dedDocument_PartPasted(const std::string& Key, const std::string& HTML, bool& Handled);
    /// A part of another layout, its elements added to those of this one; tells how many of them
    /// nobody knows any more.
    std::string zWithOwnSpans(const std::string& key, const std::string& html, std::size_t& lost);
    static void RaiseIfSpanIsForeign(ParserTemplate& layout);
    void dedDocument_CommandClick(const std::string& CommandName, bool& Ignore);
    /// An element as it was before it was edited.
    struct ElementStep {
        std::size_t Index = 0;
        std::string Text;
        std::vector<std::pair<std::string, std::string>> Attributes;
        Ref<HTMLElement> Span;
    };
    ElementStep zStepOf(std::size_t index, const Ref<HTMLElement>& span) const;
    /// Makes an element what it was, without a word to anybody.
    void zPutBack(const ElementStep& step);
    /// Takes the last step of a list back, if there is one, and puts its opposite on another list.
    void zTakeBack(std::vector<ElementStep>& from, std::vector<ElementStep>& to);
    void zForgetElementEdits();

    // Conversion
    struct SpanDocument {
        std::string Text;
        Ref<ParserTemplate> Parser;
        Ref<SpanProvider> Provider;
    };
    /// One without a parser after a failure. With an envelope the root alone is converted.
    SpanDocument MakeSpanDocument(const std::string& HTML, LayoutEnvelope* envelope = nullptr);
    Ref<ParserTemplate> CreateParserTemplate(const std::string& HTML);
    static void FindExcludedElements(ParserTemplate& layout, SpanProvider& provider);
    std::string KeepUntouchedSpans(const std::string& html, KeptElements& kept) const;
    /// Error 5 for a span in the text whose number is not among those that were replaced.
    void RaiseIfSpanIsMissed(const std::string& html, const std::set<std::size_t>& replaced) const;
    /// Gives the numbers of all spans.
    std::set<std::size_t> ReplaceSpans(HTMLDocument& document, KeptElements& kept);
    void ReplaceSpan(HTMLDocument& document, HTMLElement& span, KeptElements& kept);
    void NameGenerator(HTMLDocument& document);

    InstanceCount mInstanceCount{"MetaDocumentEdit", ComponentType::Control};
    bool mDirty = false;
    ObjectHolder<PageTemplate> pTemplate;
    ObjectHolder<PageLayout> pLayout;
    std::shared_ptr<ThemeColours> ioTheme;
    bool iThemed = false;
    bool iRawChanged = false;
    int iView = 0;
    bool iWarningVisible = false;
    Ref<ParserTemplate> mParserTemplate;
    Ref<SpanProvider> mSpanProvider;
    bool mFirstLoad = true;
    /// The view that was shown last, which says whether a click on a tab changes anything.
    int mRememberedView = 0;
    Ref<Container> conClient = MakeRef<Container>("conClient");
    Ref<Control> mPreview;
    /// Edits of elements that nothing was changed behind, and those of them that were taken back.
    std::vector<ElementStep> mElementSteps;
    std::vector<ElementStep> mUndoneElementSteps;
    /// What begins the comments that stand for elements in the editor.
    std::string mExcludedMark;
    /// What stands around the root of the present layout.
    LayoutEnvelope mEnvelope;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
