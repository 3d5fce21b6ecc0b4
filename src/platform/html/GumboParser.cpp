#include "platform/html/GumboParser.h"

#include "foundation/HtmlText.h"
#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "platform/html/HtmlSerialiser.h"
#include "platform/html/NestingDepth.h"
#include "platform/html/ParserArena.h"

#include <algorithm>
#include <optional>
#include <vector>

#include <gumbo.h>

namespace paperkite {

namespace {

constexpr int kMostReadings = 8;

/// Elements that the parser put where reading the result may not put them.
constexpr int kRearranging =
    GUMBO_INSERTION_RECONSTRUCTED_FORMATTING_ELEMENT | GUMBO_INSERTION_ADOPTION_AGENCY_CLONED |
    GUMBO_INSERTION_ADOPTION_AGENCY_MOVED | GUMBO_INSERTION_FOSTER_PARENTED |
    GUMBO_INSERTION_CONVERTED_FROM_END_TAG | GUMBO_INSERTION_FROM_ISINDEX;

/// A text as the parser gets it. It puts text that stands right in front of "</form>" behind the
/// form, unless something else ends the text: an empty comment, which is taken out of the tree.
class ParserInput {
public:
    ParserInput(const std::string& html, bool isMarkup) : mText(html) {
        if (!isMarkup || !ContainsIgnoringCase(html, "</form")) return;
        mText.clear();
        std::size_t written = 0;
        HtmlTokens tokens(html);
        for (HtmlToken token; tokens.Next(token);) {
            if (token.What != HtmlToken::Kind::EndTag || !EqualIgnoringCase(token.Name, "form"))
                continue;
            mText.append(html, written, token.From - written);
            mMarks.push_back(mText.size());
            mText.append("<!---->");
            written = token.From;
        }
        mText.append(html, written, std::string::npos);
    }

    const std::string& Text() const { return mText; }
    std::size_t CountOfMarks() const { return mMarks.size(); }
    bool IsMark(const GumboNode& node) const {
        if (node.type != GUMBO_NODE_COMMENT || mMarks.empty()) return false;
        const auto place = static_cast<std::size_t>(node.v.text.original_text.data - mText.data());
        return std::binary_search(mMarks.begin(), mMarks.end(), place);
    }

private:
    std::string mText;
    std::vector<std::size_t> mMarks;
};

/// Copies the parser's tree.
class TreeCopier {
public:
    TreeCopier(const std::shared_ptr<DocumentTie>& tie, const ParserInput& input)
        : mTie(tie), mInput(input) {}

    bool IsRearranged() const { return mIsRearranged; }
    /// How many of the input's marks were met.
    std::size_t CountOfMarks() const { return mMarks; }

    void CopyChildren(const GumboNode& top, HtmlParent& into) {
        HtmlParent* target = &into;
        const GumboNode* parent = &top;
        std::size_t place = 0;
        while (true) {
            const GumboVector& children = ChildrenOf(*parent);
            if (place < children.length) {
                const auto& child = *static_cast<const GumboNode*>(children.data[place]);
                ++place;
                if (mInput.IsMark(child)) {
                    ++mMarks;
                    continue;
                }
                const auto copy = Copy(child);
                target->Insert(copy);
                if (!IsElement(child) || child.v.element.children.length == 0) continue;
                parent = &child;
                target = copy->AsParent();
                place = 0;
            } else {
                if (parent == &top) return;
                place = parent->index_within_parent + 1;
                parent = parent->parent;
                target = target->Parent;
            }
        }
    }

    static std::shared_ptr<HtmlNode> CopyDocumentType(const ::GumboDocument& document) {
        std::string text = document.name;
        const std::string isPublic = document.public_identifier;
        const std::string system = document.system_identifier;
        if (!isPublic.empty()) text += " PUBLIC " + Quoted(isPublic);
        if (!system.empty()) text += (isPublic.empty() ? " SYSTEM " : " ") + Quoted(system);
        return std::make_shared<HtmlTextNode>(HtmlNode::Kind::DocumentType, std::move(text));
    }

private:
    static bool IsElement(const GumboNode& node) {
        return node.type == GUMBO_NODE_ELEMENT || node.type == GUMBO_NODE_TEMPLATE;
    }

    static const GumboVector& ChildrenOf(const GumboNode& node) {
        return node.type == GUMBO_NODE_DOCUMENT ? node.v.document.children
                                                : node.v.element.children;
    }

    static std::string Quoted(const std::string& text) {
        const char quote = text.find('"') == std::string::npos ? '"' : '\'';
        return quote + text + quote;
    }

    std::shared_ptr<HtmlNode> Copy(const GumboNode& node) {
        const GumboStringPiece& source =
            IsElement(node) ? node.v.element.original_tag : node.v.text.original_text;
        // Out of the order of the source: something was moved, or doubled.
        if (source.length > 0 && mLastSource && source.data <= mLastSource) mIsRearranged = true;
        if (source.length > 0) mLastSource = source.data;
        if (IsElement(node)) return CopyElement(node);
        const bool isComment = node.type == GUMBO_NODE_COMMENT;
        // In a script this may let the end tag be text.
        if (!isComment && std::string_view(node.v.text.text).find("<!--") != std::string_view::npos)
            mIsRearranged = true;
        return std::make_shared<HtmlTextNode>(
            isComment ? HtmlNode::Kind::Comment : HtmlNode::Kind::Text, node.v.text.text);
    }

    std::shared_ptr<HtmlNode> CopyElement(const GumboNode& node) {
        const ::GumboElement& element = node.v.element;
        if ((node.parse_flags & kRearranging) != 0) mIsRearranged = true;
        const HtmlNamespace space =
            element.tag_namespace == GUMBO_NAMESPACE_SVG      ? HtmlNamespace::Svg
            : element.tag_namespace == GUMBO_NAMESPACE_MATHML ? HtmlNamespace::MathML
                                                              : HtmlNamespace::Html;
        auto copy = std::make_shared<paperkite::GumboElement>(NameOf(element), space, mTie);
        if (element.tag == GUMBO_TAG_UNKNOWN && !IsPlainName(copy->Name)) mIsRearranged = true;
        copy->Attributes.reserve(element.attributes.length);
        for (unsigned int at = 0; at < element.attributes.length; ++at)
            CopyAttribute(*static_cast<const GumboAttribute*>(element.attributes.data[at]),
                          copy->Attributes);
        return copy;
    }

    /// The parser may not take the end tag of another name for that of its start tag.
    static bool IsPlainName(std::string_view name) {
        return std::all_of(name.begin(), name.end(), [](unsigned char byte) {
            return byte > ' ' && byte != 0x7F && byte != '<' && byte != '"' && byte != '\'';
        });
    }

    static std::string NameOf(const ::GumboElement& element) {
        // Nothing ends the text of a "plaintext", not even what would be written behind it.
        if (element.tag == GUMBO_TAG_PLAINTEXT) return "pre";
        if (element.tag != GUMBO_TAG_UNKNOWN && element.tag_namespace != GUMBO_NAMESPACE_SVG)
            return gumbo_normalized_tagname(element.tag);
        std::string name = WrittenName(element);
        if (element.tag_namespace == GUMBO_NAMESPACE_SVG) {
            const GumboStringPiece piece{name.data(), name.size()};
            if (const char* normalized = gumbo_normalize_svg_tagname(&piece)) return normalized;
        }
        if (name.empty()) name = gumbo_normalized_tagname(element.tag);
        return name;
    }

    /// As it stands in the source, in lower case.
    static std::string WrittenName(const ::GumboElement& element) {
        std::string_view tag(element.original_tag.data ? element.original_tag.data : "",
                             element.original_tag.length);
        // What the parser passed over in front of the tag belongs to it.
        while (tag.starts_with("</>"))
            tag.remove_prefix(3);
        tag = tag.substr(std::min(tag.find_first_not_of("</"), tag.size()));
        return LowerCase(tag.substr(0, tag.find_first_of(" \t\r\n\f/>")));
    }

    static void CopyAttribute(const GumboAttribute& attribute, std::vector<HtmlAttribute>& into) {
        into.push_back({PrefixOf(attribute) + attribute.name, attribute.value});
    }

    static std::string PrefixOf(const GumboAttribute& attribute) {
        switch (attribute.attr_namespace) {
        case GUMBO_ATTR_NAMESPACE_XLINK:
            return "xlink:";
        case GUMBO_ATTR_NAMESPACE_XML:
            return "xml:";
        case GUMBO_ATTR_NAMESPACE_XMLNS:
            return std::string_view(attribute.name) == "xmlns" ? "" : "xmlns:";
        default:
            return {};
        }
    }

    const std::shared_ptr<DocumentTie>& mTie;
    const ParserInput& mInput;
    bool mIsRearranged = false;
    const char* mLastSource = nullptr;
    std::size_t mMarks = 0;
};

/// A run of the parser; its tree lives as long as this.
class Run {
public:
    Run(const std::string& html, GumboTag context, GumboNamespaceEnum space) {
        GumboOptions options = kGumboDefaultOptions;
        options.allocator = [](void* arena, std::size_t size) {
            return static_cast<ParserArena*>(arena)->Allocate(size);
        };
        options.deallocator = [](void* arena, void* piece) {
            static_cast<ParserArena*>(arena)->Free(piece);
        };
        options.userdata = &mArena;
        options.max_errors = 0;
        options.fragment_context = context;
        options.fragment_namespace = space;
        mOutput = gumbo_parse_with_options(&options, html.data(), html.size());
    }

    const GumboOutput& Output() const { return *mOutput; }

private:
    ParserArena mArena;
    GumboOutput* mOutput = nullptr;
};

void RefuseTooDeep(const std::string& html) {
    const std::size_t place = FindTooDeep(html);
    if (place == std::string_view::npos) return;
    const auto line =
        std::count(html.begin(), html.begin() + static_cast<std::ptrdiff_t>(place), '\n') + 1;
    RaiseError(ErrorNumber::InvalidCall,
               "The HTML text nests deeper than " + std::to_string(kDeepestNesting) +
                   " elements in line " + std::to_string(line) + ", at byte " +
                   std::to_string(place + 1) +
                   ". Close the elements that are left open there, or take some away.");
}

/// What the parser reads: UTF-8 without NUL characters.
std::string Readable(const std::string& html) {
    std::string text = HoldsOnlyUtf8(html) ? html : AsUtf8(html);
    if (text.find('\0') != std::string::npos)
        text = ReplaceAll(text, std::string_view("\0", 1), "\xEF\xBF\xBD");
    return text;
}

/// One way of reading a text: as a document or in a context.
struct Reading {
    GumboTag Context = GUMBO_TAG_LAST;
    GumboNamespaceEnum Space = GUMBO_NAMESPACE_HTML;
    const std::shared_ptr<DocumentTie>& Tie;

    ParsedHtml Once(const std::string& html) const {
        const ParserInput input(html, true);
        if (auto parsed = Read(input)) return std::move(*parsed);
        return std::move(*Read(ParserInput(html, false)));
    }

    /// Nothing where the marks came into a text.
    std::optional<ParsedHtml> Read(const ParserInput& input) const {
        const Run run(input.Text(), Context, Space);
        ParsedHtml parsed{std::make_unique<HtmlParent>(HtmlNode::Kind::Fragment), false};
        TreeCopier copier(Tie, input);
        const bool isDocument = Context == GUMBO_TAG_LAST;
        const GumboNode& top = isDocument ? *run.Output().document : *run.Output().root;
        if (isDocument && top.v.document.has_doctype)
            parsed.Nodes->Insert(TreeCopier::CopyDocumentType(top.v.document));
        copier.CopyChildren(top, *parsed.Nodes);
        parsed.IsRearranged = copier.IsRearranged();
        if (copier.CountOfMarks() != input.CountOfMarks()) return std::nullopt;
        return parsed;
    }

    /// Until it stays as it is: what the parser moved may be moved again.
    ParsedHtml Settled(const std::string& html) const {
        RefuseTooDeep(html);
        ParsedHtml parsed = Once(html);
        for (int reading = 1; parsed.IsRearranged; ++reading) {
            const std::string before = SerialiseChildren(*parsed.Nodes);
            ParsedHtml again = Once(before);
            if (SerialiseChildren(*again.Nodes) == before) break;
            if (reading == kMostReadings) return Unsettled(html, std::move(again));
            again.IsRearranged = true;
            parsed = std::move(again);
        }
        return parsed;
    }

    /// Some tags that cross each other grow with every reading. In a part of a document they are
    /// shown as the text that they are; a whole one stays readable as it is.
    ParsedHtml Unsettled(const std::string& html, ParsedHtml last) const {
        if (Context == GUMBO_TAG_LAST) return last;
        ParsedHtml parsed = Once(HtmlText::Escaped(html));
        parsed.IsRearranged = true;
        return parsed;
    }
};

GumboNamespaceEnum SpaceOf(HtmlNamespace space) {
    switch (space) {
    case HtmlNamespace::Svg:
        return GUMBO_NAMESPACE_SVG;
    case HtmlNamespace::MathML:
        return GUMBO_NAMESPACE_MATHML;
    default:
        return GUMBO_NAMESPACE_HTML;
    }
}

} // namespace

ParsedHtml ParseDocument(const std::string& html, const std::shared_ptr<DocumentTie>& tie) {
    const Reading reading{GUMBO_TAG_LAST, GUMBO_NAMESPACE_HTML, tie};
    return reading.Settled(Readable(html.starts_with("\xEF\xBB\xBF") ? html.substr(3) : html));
}

ParsedHtml ParseFragment(const std::string& html, const std::string& context, HtmlNamespace space,
                         const std::shared_ptr<DocumentTie>& tie) {
    if (html.empty()) return {std::make_unique<HtmlParent>(HtmlNode::Kind::Fragment), false};
    const GumboTag tag = gumbo_tagn_enum(context.data(), static_cast<unsigned int>(context.size()));
    const Reading reading{tag, SpaceOf(space), tie};
    return reading.Settled(Readable(html));
}

} // namespace paperkite
