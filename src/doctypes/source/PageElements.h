#pragma once

#include "doctypes/source/PageSettings.h"
#include "doctypes/source/PageSubject.h"
#include "foundation/ParserElement.h"
#include "foundation/ParserSection.h"
#include "model/ProjectDocument.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

class TemplateParser;

/// Writes the HTML that stands for the elements of page layouts; docs/page-layouts.md describes
/// each. One object makes one page: it remembers which section ids are taken.
///
/// What an author wrote in a comment goes out as it is, all else is escaped. An element that has
/// nothing to say is left out together with its heading, unless the page is for editing and the
/// element could be filled in.
class PageElements {
public:
    explicit PageElements(PageSettings settings);

    /// The text of an element; `isKnown` becomes false for a type that there is none of.
    std::string Provide(const ParserElement& element, const PageSubject& subject, bool& isKnown);

    /// The signature as the language writes it, broken where it is long; plain text.
    static std::string SyntaxOf(const PageSubject& subject);
    /// Its type, or what it returns; plain text.
    static std::string TypeOf(const PageSubject& subject);
    /// The parameters in brackets with what stands behind them, in one line; plain text.
    static std::string SignatureOf(const PageSubject& subject);
    /// "DB::Get" for a member of a type, otherwise the name; plain text.
    static std::string ScopedName(const PageSubject& subject);
    /// A kind as readers know it ("Structure").
    std::string KindCaption(SourceKind kind) const;

private:
    using Writer = std::string (PageElements::*)(const ParserElement&, const PageSubject&);
    using Members = std::vector<SourceIndex::Id>;
    struct Section {
        std::string Id;
        std::string Caption;
    };

    static const std::unordered_map<std::string, Writer>& Writers();

    // What elements are asked.
    static std::string Attribute(const ParserElement& element, const std::string& name,
                                 const std::string& otherwise = {});
    static bool IsOn(const ParserElement& element, const std::string& name);
    static std::size_t Number(const ParserElement& element, const std::string& name,
                              std::size_t otherwise);

    // Pieces (PageElements.cpp).
    std::string Phrase(const std::string& name) const;
    std::string VariableValue(const std::string& name) const;
    std::string Link(const PageSubject& subject, const std::string& html);
    const std::string& PageNameOf(const std::string& level);
    std::string InSection(const ParserElement& element, const std::string& id,
                          const std::string& caption, const std::string& body);
    std::string Inner(const ParserElement& element, const PageSubject& subject);
    std::string Parsed(const std::string& text, const PageSubject& subject);
    bool Has(const std::string& what, const ParserElement& element, const PageSubject& subject);
    bool IsShown(const PageSubject& subject) const;
    bool HasPage(const PageSubject& subject) const;
    std::string FileText(const ParserElement& element) const;
    std::string ScrapText(const ParserElement& element) const;

    // General elements (PageElements.cpp).
    std::string WriteHead(const ParserElement& element, const PageSubject& subject);
    std::string WriteIf(const ParserElement& element, const PageSubject& subject);
    std::string WriteVariable(const ParserElement& element, const PageSubject& subject);
    std::string WritePhrase(const ParserElement& element, const PageSubject& subject);
    std::string WriteScrap(const ParserElement& element, const PageSubject& subject);
    std::string WriteInclude(const ParserElement& element, const PageSubject& subject);
    std::string WriteNotice(const ParserElement& element, const PageSubject& subject);
    std::string WriteContents(const ParserElement& element, const PageSubject& subject);

    // Comments (PageElementsComments.cpp).
    using Comments = std::vector<Ref<TaggedComment>>;
    Comments CommentsOf(const std::string& qualifiedName, const std::string& tag) const;
    Comments OwnCommentsOf(const std::string& qualifiedName, const std::string& tag) const;
    Comments GeneralCommentsOf(const std::string& qualifiedName) const;
    std::string TextOf(const TaggedComment& comment) const;
    std::string Joined(const Comments& comments) const;
    bool MayWrite(const std::string& tag, const std::string& level) const;
    std::string Place(const std::string& qualifiedName, const std::string& tag,
                      const std::string& text, const std::string& placeholder) const;
    std::string EditPlaces(const std::string& qualifiedName, const std::string& tag,
                           const Comments& comments, const std::string& placeholder) const;
    std::string PlaceholderFor(const std::string& tag, const std::string& kind) const;
    std::string GeneralText(const PageSubject& subject, bool isWhole) const;
    std::string CommentBody(const std::string& tag, const PageSubject& subject,
                            const std::string& placeholder);
    std::string RowText(const PageSubject& subject, bool fromSource);
    std::string ListEntries(const std::string& tag, const PageSubject& subject,
                            const std::string& placeholder);
    std::string WriteComment(const ParserElement& element, const PageSubject& subject);
    std::string WriteSection(const ParserElement& element, const PageSubject& subject);
    using Tags = std::set<std::string>;
    Tags TagsNamedIn(const std::string& layout) const;
    void AddNamedTags(const Collection<Ref<ParserElement>>& elements, int depth, Tags& named,
                      std::set<std::string>& seen) const;
    const Tags& NamedTags();
    std::string WriteOtherComments(const ParserElement& element, const PageSubject& subject);
    std::string WriteSourceComment(const ParserElement& element, const PageSubject& subject);
    std::string WriteSeeAlso(const ParserElement& element, const PageSubject& subject);
    std::string WriteFlags(const ParserElement& element, const PageSubject& subject);
    std::string FlagsOf(const PageSubject& subject) const;

    // Comments that are no HTML, or stand elsewhere (PageElementsForms.cpp).
    std::string FormText(const TaggedComment& comment) const;
    std::string KeywordsOf(const std::string& qualifiedName) const;
    std::string TakenFrom(const std::string& qualifiedName) const;
    std::vector<std::string> SourcesOf(const std::string& qualifiedName) const;

    // Examples (PageElementsExamples.cpp).
    std::string ExampleText(const TaggedComment& comment) const;
    std::string ExampleNoteText(const TaggedComment& comment) const;
    std::string CodeOf(const PageSubject& subject, std::size_t most) const;
    std::string WriteExamples(const ParserElement& element, const PageSubject& subject);
    void Tell(const std::string& message) const;

    // Lists of items (PageElementsLists.cpp).
    std::string NameCell(const PageSubject& subject);
    std::string Table(const Members& members, const ParserElement& element,
                      const PageSubject& subject);
    Members MembersOf(const PageSubject& subject, SourceKind kind) const;
    std::set<SourceKind> WantedKinds(const ParserElement& element) const;
    std::string WriteMembers(const ParserElement& element, const PageSubject& subject);
    std::string WriteOverloads(const ParserElement& element, const PageSubject& subject);
    std::string WriteInherited(const ParserElement& element, const PageSubject& subject);
    std::string WriteBreadcrumb(const ParserElement& element, const PageSubject& subject);
    Members OverloadsOf(const PageSubject& subject) const;

    // Declarations (PageElementsDeclarations.cpp).
    std::string WriteSyntax(const ParserElement& element, const PageSubject& subject);
    std::string WritePlace(const ParserElement& element, const PageSubject& subject);
    std::string WriteParameters(const ParserElement& element, const PageSubject& subject);
    std::string WriteInheritance(const ParserElement& element, const PageSubject& subject);
    std::string WriteBases(const ParserElement& element, const PageSubject& subject);
    std::string WriteDerived(const ParserElement& element, const PageSubject& subject);
    std::string ParameterRow(const PageSubject& subject,
                             const std::vector<SourceParameter>& parameters, std::size_t position,
                             const Comments& notes, std::set<const TaggedComment*>& used);
    Members DerivedOf(const PageSubject& subject) const;
    std::string BaseTree(const PageSubject& subject, std::size_t depth, const std::string& inner);

    /// Elements in each other, beyond which a page says so instead.
    static constexpr int kDeepest = 32;
    /// What each tag begins with.
    static constexpr std::string_view kTagBeginning = "<!--KITEMETADATA";

    PageSettings mSettings;
    ProjectDocument::Scope mScope;                 ///< of the members that are listed
    SourceNamespaceProvider* mProvider = nullptr;  ///< of the element that is being written
    std::map<std::string, std::string> mPageNames; ///< of layouts, by level
    std::set<std::string> mTakenIds;
    WeakRef<ParserSection> mLayout; ///< the elements that stand in no other
    std::optional<Tags> mNamedTags; ///< of the page, or of the pattern for a member
    std::vector<Section> mSections; ///< that were written, in order
    /// What was written before its turn, for the contents of the page.
    std::unordered_map<const ParserElement*, std::string> mReady;
    int mDepth = 0;
};

} // namespace paperkite
