#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "platform/html/HtmlContent.h"
#include "platform/html/HtmlServices.h"
#include "platform/html/NestingDepth.h"
#include "platform/html/ParserArena.h"

#include <algorithm>
#include <array>
#include <optional>

#include <tidy/tidy.h>
#include <tidy/tidybuffio.h>

namespace paperkite {

namespace {

/// Tidy calls itself for each level.
constexpr std::size_t kDeepestForTidy = 400;
/// More than so many tags of one's own are no HTML.
constexpr std::size_t kMostNewTags = 200;
/// What changes more often does not settle.
constexpr int kMostTimes = 2;

struct Option {
    const char* Name;
    const char* Value;
};

constexpr Option kOptions[] = {
    // Readable lines, and nothing else new.
    {"indent", "auto"},
    {"indent-spaces", "2"},
    {"wrap", "0"},
    {"newline", "LF"},
    {"char-encoding", "utf8"},
    {"output-bom", "no"},
    {"output-html", "yes"},
    {"tidy-mark", "no"},
    {"doctype", "omit"},
    {"quiet", "yes"},
    {"show-warnings", "no"},
    {"show-errors", "0"},
    {"force-output", "yes"},
    // Whatever stands there stays.
    {"drop-empty-elements", "no"},
    {"drop-empty-paras", "no"},
    {"merge-divs", "no"},
    {"merge-spans", "no"},
    {"merge-emphasis", "no"},
    {"coerce-endtags", "no"},
    {"fix-style-tags", "no"},
    {"fix-backslash", "no"},
    {"fix-bad-comments", "no"},
    {"fix-uri", "no"},
    {"skip-nested", "no"},
    {"anchor-as-name", "no"},
    {"lower-literals", "no"},
    {"literal-attributes", "yes"},
    {"escape-scripts", "no"},
    {"keep-tabs", "yes"},
    {"custom-tags", "inline"}};

/// Elements that Tidy knows, sorted.
constexpr std::string_view kKnown[] = {
    "a",         "abbr",       "acronym",  "address", "applet",   "area",       "article",
    "aside",     "audio",      "b",        "base",    "basefont", "bdi",        "bdo",
    "big",       "blockquote", "body",     "br",      "button",   "canvas",     "caption",
    "center",    "cite",       "code",     "col",     "colgroup", "data",       "datalist",
    "dd",        "del",        "details",  "dfn",     "dialog",   "dir",        "div",
    "dl",        "dt",         "em",       "embed",   "fieldset", "figcaption", "figure",
    "font",      "footer",     "form",     "frame",   "frameset", "h1",         "h2",
    "h3",        "h4",         "h5",       "h6",      "head",     "header",     "hgroup",
    "hr",        "html",       "i",        "iframe",  "img",      "input",      "ins",
    "isindex",   "kbd",        "keygen",   "label",   "legend",   "li",         "link",
    "listing",   "main",       "map",      "mark",    "math",     "menu",       "menuitem",
    "meta",      "meter",      "nav",      "nobr",    "noframes", "noscript",   "object",
    "ol",        "optgroup",   "option",   "output",  "p",        "param",      "picture",
    "plaintext", "pre",        "progress", "q",       "rb",       "rp",         "rt",
    "rtc",       "ruby",       "s",        "samp",    "script",   "section",    "select",
    "slot",      "small",      "source",   "span",    "strike",   "strong",     "style",
    "sub",       "summary",    "sup",      "svg",     "table",    "tbody",      "td",
    "template",  "textarea",   "tfoot",    "th",      "thead",    "time",       "title",
    "tr",        "track",      "tt",       "u",       "ul",       "var",        "video",
    "wbr",       "xmp"};
static_assert(std::ranges::is_sorted(kKnown));

/// The names that Tidy has to be told, or nothing where it cannot be.
std::optional<std::string> NewTags(const HtmlContent& content) {
    std::string names;
    std::size_t count = 0;
    for (const auto& [name, times] : content.Elements()) {
        if (std::ranges::binary_search(kKnown, name)) continue;
        const bool isPlain =
            name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-_.:") == std::string::npos;
        if (!isPlain || ++count > kMostNewTags) return std::nullopt;
        names += (names.empty() ? "" : ", ") + name;
    }
    return names;
}

/// Memory for the library, which asks for each node, attribute and word apart.
class TidyMemory : public TidyAllocator {
public:
    TidyMemory() : TidyAllocator{&kFunctions} {}

private:
    static ParserArena& ArenaOf(TidyAllocator* self) {
        return static_cast<TidyMemory*>(self)->mArena;
    }

    static constexpr TidyAllocatorVtbl kFunctions = {
        [](TidyAllocator* self, std::size_t size) { return ArenaOf(self).Allocate(size); },
        [](TidyAllocator* self, void* piece, std::size_t size) {
            return ArenaOf(self).Reallocate(piece, size);
        },
        [](TidyAllocator* self, void* piece) { ArenaOf(self).Free(piece); },
        // Where there is no memory an exception has said so before.
        [](TidyAllocator*, ctmbstr) {}};

    ParserArena mArena;
};

/// One use of the library.
class TidyRun {
public:
    TidyRun() {
        tidyBufInit(&mOutput);
        tidyBufInit(&mMessages);
        tidySetErrorBuffer(mDocument, &mMessages);
        for (const Option& option : kOptions)
            Set(option.Name, option.Value);
    }
    ~TidyRun() {
        tidyRelease(mDocument);
        tidyBufFree(&mOutput);
        tidyBufFree(&mMessages);
    }
    TidyRun(const TidyRun&) = delete;
    TidyRun& operator=(const TidyRun&) = delete;

    void Set(const char* name, const char* value) { tidyOptParseValue(mDocument, name, value); }

    std::optional<std::string> Run(const std::string& html) {
        if (tidyParseString(mDocument, html.c_str()) < 0) return std::nullopt;
        if (tidyCleanAndRepair(mDocument) < 0) return std::nullopt;
        if (tidySaveBuffer(mDocument, &mOutput) < 0 || !mOutput.bp) return std::nullopt;
        return std::string(reinterpret_cast<const char*>(mOutput.bp), mOutput.size);
    }

private:
    TidyMemory mMemory;
    TidyDoc mDocument = tidyCreateWithAllocator(&mMemory);
    TidyBuffer mOutput{};
    TidyBuffer mMessages{};
};

/// The document type line of a text; empty for none.
std::string DocumentTypeOf(const std::string& html) {
    HtmlTokens tokens(html);
    for (HtmlToken token; tokens.Next(token);) {
        const std::string text = html.substr(token.From, token.To - token.From);
        if (token.What == HtmlToken::Kind::Comment) {
            if (EqualIgnoringCase(text.substr(0, 9), "<!doctype")) return text + "\n";
        } else if (!TrimWhiteSpace(text).empty()) {
            break;
        }
    }
    return {};
}

/// Takes away the empty title that Tidy gives to documents without one, with its line.
void RemoveOwnTitle(std::string& text) {
    constexpr std::string_view kTitle = "<title></title>";
    std::size_t from = text.find(kTitle);
    if (from == std::string::npos) return;
    std::size_t to = from + kTitle.size();
    while (from > 0 && text[from - 1] == ' ')
        --from;
    if (to < text.size() && text[to] == '\n') ++to;
    text.erase(from, to - from);
}

/// Tidy sometimes takes the line break at the end of a text area away, which is a part of its text.
/// It does not while a character stands behind it that no page holds.
constexpr std::string_view kGuard = "\xEE\x80\x80";

std::string WithGuards(const std::string& html) {
    constexpr std::string_view kEnd = "</textarea";
    if (html.find(kGuard) != std::string::npos) return html;
    std::string guarded;
    std::size_t from = 0;
    for (std::size_t at = FindIgnoringCase(html, kEnd); at != std::string::npos;
         at = FindIgnoringCase(html, kEnd, at + 1)) {
        guarded.append(html, from, at - from).append(kGuard);
        from = at;
    }
    return guarded.append(html, from);
}

/// As a document reads and writes it.
std::string Reread(const std::string& html) {
    return MakeHTMLDOMFactory()->CreateFromString(html, {})->GetDocumentElement()->GetOuterHTML();
}

/// A quick look, preformatted text or not.
bool HoldsOddLineBehindComment(std::string_view text) {
    constexpr std::string_view kLineBehind = "-->\n";
    for (std::size_t at = text.find(kLineBehind); at != std::string_view::npos;
         at = text.find(kLineBehind, at + 1)) {
        const std::size_t line = at + kLineBehind.size();
        if ((std::min(text.find_first_not_of(' ', line), text.size()) - line) % 2 == 1) return true;
    }
    return false;
}

/// Lines behind a comment get one blank more the second time than the first, and no more after
/// that. Without the odd blank tidying again changes nothing.
std::string WithEvenLinesBehindComments(const std::string& text) {
    if (!HoldsOddLineBehindComment(text)) return text;
    std::string even;
    std::size_t written = 0;
    bool isPreformatted = false;
    bool isBehindComment = false;
    HtmlTokens tokens(text);
    for (HtmlToken token; tokens.Next(token);) {
        if (EqualIgnoringCase(token.Name, "pre") || EqualIgnoringCase(token.Name, "textarea"))
            isPreformatted = token.What == HtmlToken::Kind::StartTag;
        if (isBehindComment && !isPreformatted && token.What == HtmlToken::Kind::Text &&
            text[token.From] == '\n') {
            const std::size_t line = token.From + 1;
            const std::size_t end = std::min(text.find_first_not_of(' ', line), token.To);
            if ((end - line) % 2 == 1) {
                even.append(text, written, end - 1 - written);
                written = end;
            }
        }
        isBehindComment = token.What == HtmlToken::Kind::Comment;
    }
    return even.append(text, written);
}

class TidyFormatter : public HTMLTidy {
public:
    std::string TidyHTML(const std::string& html, bool bodyOnly) override {
        if (html.find('\0') != std::string::npos || !HoldsOnlyUtf8(html) ||
            FindTooDeep(html, kDeepestForTidy) != std::string_view::npos)
            return html;
        const HtmlContent before(html);
        const auto newTags = NewTags(before);
        if (!newTags) return html;
        const bool isOdd = !newTags->empty() || before.CountOf("textarea") > 0;
        auto tidied = Tidied(html, before, *newTags, bodyOnly);
        if (tidied && isOdd) tidied = Settled(*tidied, before, *newTags, bodyOnly);
        if (!tidied || !before.IsKeptBy(HtmlContent(*tidied))) return html;
        return bodyOnly ? *tidied : DocumentTypeOf(html) + *tidied;
    }

private:
    /// Around text areas, and tags that it does not know, Tidy may add a line each time, or leave
    /// what another document is read from: nothing where that does not come to an end.
    static std::optional<std::string> Settled(std::string text, const HtmlContent& content,
                                              const std::string& newTags, bool bodyOnly) {
        for (int time = 0; time < kMostTimes; ++time) {
            const auto again = Tidied(bodyOnly ? text : Reread(text), content, newTags, bodyOnly);
            if (!again || *again == text) return again;
            text = *again;
        }
        return {};
    }

    static std::optional<std::string> Tidied(const std::string& html, const HtmlContent& content,
                                             const std::string& newTags, bool bodyOnly) {
        TidyRun run;
        run.Set("show-body-only", bodyOnly ? "yes" : "no");
        if (!newTags.empty()) run.Set("new-inline-tags", newTags.c_str());
        const std::string guarded = WithGuards(html);
        auto tidied = run.Run(guarded);
        if (!tidied) return {};
        if (guarded.size() > html.size()) *tidied = ReplaceAll(*tidied, kGuard, "");
        if (content.CountOf("title") == 0) RemoveOwnTitle(*tidied);
        return WithEvenLinesBehindComments(*tidied);
    }
};

} // namespace

std::shared_ptr<HTMLTidy> MakeHTMLTidy() {
    return std::make_shared<TidyFormatter>();
}

} // namespace paperkite
