#include "platform/html/GumboParser.h"

#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "platform/html/GumboArena.h"
#include "platform/html/HtmlSerialiser.h"
#include "platform/html/NestingDepth.h"

#include <algorithm>

#include <gumbo.h>

namespace paperkite {

namespace {

constexpr int kMostReadings = 8;

/// Elements that the parser put where reading the result may not put them.
constexpr int kRearranging =
    GUMBO_INSERTION_RECONSTRUCTED_FORMATTING_ELEMENT | GUMBO_INSERTION_ADOPTION_AGENCY_CLONED |
    GUMBO_INSERTION_ADOPTION_AGENCY_MOVED | GUMBO_INSERTION_FOSTER_PARENTED |
    GUMBO_INSERTION_CONVERTED_FROM_END_TAG | GUMBO_INSERTION_FROM_ISINDEX;

/// Copies the parser's tree.
class TreeCopier {
public:
    explicit TreeCopier(const std::shared_ptr<DocumentTie>& tie) : mTie(tie) {}

    bool IsRearranged() const { return mIsRearranged; }

    void CopyChildren(const GumboNode& top, HtmlParent& into) {
        HtmlParent* target = &into;
        const GumboNode* parent = &top;
        std::size_t place = 0;
        while (true) {
            const GumboVector& children = ChildrenOf(*parent);
            if (place < children.length) {
                const auto& child = *static_cast<const GumboNode*>(children.data[place]);
                const auto copy = Copy(child);
                target->Insert(copy);
                ++place;
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
        if (IsElement(node)) return CopyElement(node);
        const bool isComment = node.type == GUMBO_NODE_COMMENT;
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
        copy->Attributes.reserve(element.attributes.length);
        for (unsigned int at = 0; at < element.attributes.length; ++at)
            CopyAttribute(*static_cast<const GumboAttribute*>(element.attributes.data[at]),
                          copy->Attributes);
        return copy;
    }

    static std::string NameOf(const ::GumboElement& element) {
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
    bool mIsRearranged = false;
};

/// A run of the parser; its tree lives as long as this.
class Run {
public:
    Run(const std::string& html, GumboTag context, GumboNamespaceEnum space) {
        GumboOptions options = kGumboDefaultOptions;
        options.allocator = [](void* arena, std::size_t size) {
            return static_cast<GumboArena*>(arena)->Allocate(size);
        };
        options.deallocator = [](void* arena, void* piece) {
            static_cast<GumboArena*>(arena)->Free(piece);
        };
        options.userdata = &mArena;
        options.max_errors = 0;
        options.fragment_context = context;
        options.fragment_namespace = space;
        mOutput = gumbo_parse_with_options(&options, html.data(), html.size());
    }

    const GumboOutput& Output() const { return *mOutput; }

private:
    GumboArena mArena;
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
        const Run run(html, Context, Space);
        ParsedHtml parsed{std::make_unique<HtmlParent>(HtmlNode::Kind::Fragment), false};
        TreeCopier copier(Tie);
        const bool isDocument = Context == GUMBO_TAG_LAST;
        const GumboNode& top = isDocument ? *run.Output().document : *run.Output().root;
        if (isDocument && top.v.document.has_doctype)
            parsed.Nodes->Insert(TreeCopier::CopyDocumentType(top.v.document));
        copier.CopyChildren(top, *parsed.Nodes);
        parsed.IsRearranged = copier.IsRearranged();
        return parsed;
    }

    /// Until it stays as it is: what the parser moved may be moved again.
    ParsedHtml Settled(const std::string& html) const {
        RefuseTooDeep(html);
        ParsedHtml parsed = Once(html);
        for (int reading = 1; parsed.IsRearranged && reading < kMostReadings; ++reading) {
            const std::string before = SerialiseChildren(*parsed.Nodes);
            ParsedHtml again = Once(before);
            if (SerialiseChildren(*again.Nodes) == before) break;
            again.IsRearranged = true;
            parsed = std::move(again);
        }
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
