#include "doctypes/source/PageElements.h"

#include "doctypes/source/ItemProperties.h"
#include "doctypes/source/PageHtml.h"
#include "doctypes/source/PathGlob.h"
#include "foundation/ScopeExit.h"
#include "foundation/Text.h"
#include "model/PageTemplateReader.h"
#include "model/SafeFile.h"
#include "model/TemplateParser.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace paperkite {

namespace {

using PageHtml::Escaped;

std::string Today() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    ::localtime_r(&now, &local);
    char text[16];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%d", &local);
    return {text, length};
}

bool IsInList(const std::string& list, const std::string& wanted) {
    for (const std::string& entry : Split(list, ","))
        if (EqualIgnoringCase(TrimWhiteSpace(entry), wanted)) return true;
    return false;
}

/// Trees change a project's scope while an author looks around; what is saved is what is published.
ProjectDocument::Scope ScopeOf(const Ref<KiteProject>& project) {
    if (const auto document = project.As<ProjectDocument>()) return document->GetStoredScope();
    if (!project) return {};
    return {project->GetIncludePrivate(), project->GetIncludeFriend(),
            project->GetIncludeProtected(), project->GetIncludeProtectedFriend()};
}

/// A colour as a style sheet may hold it; anything else is left out.
std::string SafeColour(const std::string& text) {
    const bool isSafe = !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               std::string_view("#%(),. -").find(c) != std::string_view::npos;
    });
    return isSafe ? text : std::string();
}

/// On dark screens a colour that was chosen for white ground is lightened until it can be read on
/// any dark one: with that much white even black is 5 to 1. Paper keeps the colours of the style
/// sheet.
std::string AccentStyle(const std::string& colour) {
    return "<style>\n@media screen { :root { --accent: " + colour +
           "; } }\n@media screen and (prefers-color-scheme: dark) {\n  :root { --accent: "
           "color-mix(in srgb, " +
           colour + " 40%, white); }\n}\n</style>\n";
}

} // namespace

PageElements::PageElements(PageSettings settings)
    : mSettings(std::move(settings)), mScope(ScopeOf(mSettings.Project.Lock())) {}

const std::unordered_map<std::string, PageElements::Writer>& PageElements::Writers() {
    static const std::unordered_map<std::string, Writer> writers{
        {"head", &PageElements::WriteHead},
        {"if", &PageElements::WriteIf},
        {"variable", &PageElements::WriteVariable},
        {"phrase", &PageElements::WritePhrase},
        {"scrap", &PageElements::WriteScrap},
        {"include", &PageElements::WriteInclude},
        {"notice", &PageElements::WriteNotice},
        {"contents", &PageElements::WriteContents},
        {"comment", &PageElements::WriteComment},
        {"section", &PageElements::WriteSection},
        {"othercomments", &PageElements::WriteOtherComments},
        {"sourcecomment", &PageElements::WriteSourceComment},
        {"seealso", &PageElements::WriteSeeAlso},
        {"examples", &PageElements::WriteExamples},
        {"flags", &PageElements::WriteFlags},
        {"members", &PageElements::WriteMembers},
        {"overloads", &PageElements::WriteOverloads},
        {"inherited", &PageElements::WriteInherited},
        {"breadcrumb", &PageElements::WriteBreadcrumb},
        {"syntax", &PageElements::WriteSyntax},
        {"place", &PageElements::WritePlace},
        {"parameters", &PageElements::WriteParameters},
        {"inheritance", &PageElements::WriteInheritance},
        {"bases", &PageElements::WriteBases},
        {"derived", &PageElements::WriteDerived},
    };
    return writers;
}

std::string PageElements::Provide(const ParserElement& element, const PageSubject& subject,
                                  bool& isKnown) {
    isKnown = true;
    mProvider = subject.Provider;
    if (mDepth == 0) mLayout = element.Section;
    const auto ready = mReady.find(&element);
    if (ready != mReady.end()) {
        const std::string text = std::move(ready->second);
        mReady.erase(ready);
        return text;
    }
    const std::string type = LowerCase(Attribute(element, "type"));
    const auto writer = Writers().find(type);
    if (writer != Writers().end()) return (this->*writer->second)(element, subject);
    if (type == "link")
        return Link(subject,
                    element.Text.empty() ? Escaped(ScopedName(subject)) : Inner(element, subject));
    if (type == "scopedname") return Escaped(ScopedName(subject));
    if (type == "kindcaption") return Escaped(KindCaption(subject.Kind()));
    isKnown = false;
    return {};
}

std::string PageElements::Attribute(const ParserElement& element, const std::string& name,
                                    const std::string& otherwise) {
    const auto* attribute = element.Attributes.Find(name);
    // Whoever fills in an element leaves empty what he has nothing to say to.
    return attribute && !(*attribute)->Value.empty() ? (*attribute)->Value : otherwise;
}

bool PageElements::IsOn(const ParserElement& element, const std::string& name) {
    const std::string value = Attribute(element, name);
    return !value.empty() && !EqualIgnoringCase(value, "false") && value != "0";
}

std::size_t PageElements::Number(const ParserElement& element, const std::string& name,
                                 std::size_t otherwise) {
    const double number = LeadingNumber(Attribute(element, name));
    return number >= 1 && number <= 1e6 ? static_cast<std::size_t>(number) : otherwise;
}

std::string PageElements::Phrase(const std::string& name) const {
    const auto* phrase = mSettings.Template ? mSettings.Template->Phrases.Find(name) : nullptr;
    return phrase ? (*phrase)->Text : name;
}

std::string PageElements::VariableValue(const std::string& name) const {
    if (const auto project = mSettings.Project.Lock())
        if (const auto* variable = project->GetVariables().Find(name)) return (*variable)->Value;
    const auto* definition =
        mSettings.Template ? mSettings.Template->VariableDefs.Find(name) : nullptr;
    return definition ? (*definition)->DefaultValue : std::string();
}

std::string PageElements::KindCaption(SourceKind kind) const {
    switch (kind) {
    case SourceKind::Struct:
        return Phrase("Structure");
    case SourceKind::Typedef:
        return Phrase("Type Definition");
    default:
        return Phrase(std::string(KindText(kind)));
    }
}

const std::string& PageElements::PageNameOf(const std::string& level) {
    const auto known = mPageNames.find(level);
    if (known != mPageNames.end()) return known->second;
    std::string& name = mPageNames[level];
    if (!mSettings.Template) return name;
    for (const auto& layout : *mSettings.Template->PageLayouts)
        if (!layout->Internal && IsInList(layout->Namespaces, level)) {
            name = layout->FileNameTemplate;
            break;
        }
    return name;
}

std::string PageElements::Link(const PageSubject& subject, const std::string& html) {
    if (mSettings.LinksTo == PageSettings::Links::None) return html;
    const std::string& page = PageNameOf(subject.Level());
    if (page.empty() || !HasPage(subject)) return html;
    const std::string file =
        ReplaceAllIgnoringCase(page, "%%itemqualifiedname%%", subject.QualifiedName());
    return "<a href=\"" + Escaped(PageHtml::Address(file)) + "\">" + html + "</a>";
}

std::string PageElements::InSection(const ParserElement& element, const std::string& id,
                                    const std::string& caption, const std::string& body) {
    if (body.empty()) return {};
    std::string own = id;
    for (int number = 2; !mTakenIds.insert(own).second; ++number)
        own = id + "-" + std::to_string(number);
    const std::string shown = Phrase(Attribute(element, "caption", caption));
    const auto level = std::clamp<std::size_t>(Number(element, "heading", 2), 2, 6);
    const std::string heading = "h" + std::to_string(level);
    mSections.push_back({own, shown});
    return "<section id=\"" + Escaped(own) + "\" class=\"" + Escaped(id) + "\">\n<" + heading +
           ">" + Escaped(shown) + "</" + heading + ">\n" + body + "</section>\n";
}

std::string PageElements::Inner(const ParserElement& element, const PageSubject& subject) {
    return Parsed(element.Text, subject);
}

std::string PageElements::Parsed(const std::string& text, const PageSubject& subject) {
    if (mDepth >= kDeepest)
        return "<div class=\"problem\">Page layout elements are nested too deeply here: more than "
               "32 in each other, or a scrap that holds itself.</div>";
    ++mDepth;
    const ScopeExit leave([this] { --mDepth; });
    TemplateParser parser;
    parser.SetPageLayoutTags();
    parser.LoadText(text);
    std::string out;
    for (const auto& piece : parser.GetSections()->Item(std::size_t{1})->Elements) {
        bool isKnown = true;
        out += piece->ElementType == kParserTagElement ? Provide(*piece, subject, isKnown)
                                                       : piece->Text;
        if (!isKnown) {
            const auto item = subject.Provider->ItemOf(subject.Root, subject.Entity);
            out += Escaped(PropertyOf(*item, Attribute(*piece, "type")));
        }
    }
    return out;
}

bool PageElements::IsShown(const PageSubject& subject) const {
    const SourceAccess access = subject.Index().Access(subject.Entity);
    const bool isInScope = access == SourceAccess::Public ||
                           (access == SourceAccess::Protected && mScope.Protected) ||
                           (access == SourceAccess::Friend && mScope.Friend) ||
                           (access == SourceAccess::Private && mScope.Private);
    const auto project = mSettings.Project.Lock();
    if (!isInScope || !project || mSettings.ForEdit) return isInScope;
    const auto exclusions = project->GetNamespaceExclusions();
    if (exclusions->Count() > 0 && exclusions->Contains(subject.QualifiedName())) return false;
    const std::string name(subject.Index().Name(subject.Entity));
    for (const auto& filter : project->GetMemberFilters())
        if (PathGlob(filter->Text).Matches(name)) return false;
    return true;
}

/// What is in something that the project leaves out is left out with it. An author may go there all
/// the same.
bool PageElements::HasPage(const PageSubject& subject) const {
    if (mSettings.ForEdit) return true;
    for (SourceIndex::Id at = subject.Entity; at != SourceIndex::Nothing;
         at = subject.Index().Parent(at))
        if (!IsShown(subject.With(at))) return false;
    return true;
}

std::string PageElements::FileText(const ParserElement& element) const {
    const std::string file = Attribute(element, "file");
    std::string text;
    if (mSettings.Template && PageTemplateReader::IsBelowFolder(file))
        SafeFile::Read(mSettings.Template->Folder + "/" + file, text);
    return text;
}

std::string PageElements::ScrapText(const ParserElement& element) const {
    const auto* scrap =
        mSettings.Template ? mSettings.Template->Scraps.Find(Attribute(element, "name")) : nullptr;
    return scrap ? (*scrap)->Text : std::string();
}

std::string PageElements::WriteHead(const ParserElement& element, const PageSubject& subject) {
    const std::string project(subject.Index().Name(SourceIndex::Root));
    std::string title = ScopedName(subject);
    if (subject.Entity != SourceIndex::Root)
        title += " " + KindCaption(subject.Kind()) + " - " + project;
    std::string out = "<title>" + Escaped(title) + "</title>\n";
    const std::string keywords = KeywordsOf(subject.QualifiedName());
    if (!keywords.empty())
        out += "<meta name=\"keywords\" content=\"" + Escaped(keywords) + "\">\n";
    for (const std::string& file : Split(Attribute(element, "styles"), ",")) {
        const std::string path = TrimWhiteSpace(file);
        if (!mSettings.InlineStyles) {
            out += "<link rel=\"stylesheet\" href=\"" + Escaped(path) + "\">\n";
            continue;
        }
        std::string css;
        if (mSettings.Template && PageTemplateReader::IsBelowFolder(path))
            SafeFile::Read(mSettings.Template->Folder + "/" + path, css);
        out += "<style>\n" + ReplaceAllIgnoringCase(css, "</style", "<\\/style") + "</style>\n";
    }
    const std::string accent = SafeColour(VariableValue(Attribute(element, "accent")));
    if (!accent.empty()) out += AccentStyle(accent);
    return out;
}

bool PageElements::Has(const std::string& what, const ParserElement& element,
                       const PageSubject& subject) {
    if (what.starts_with('#'))
        return !CommentsOf(subject.QualifiedName(), what).empty() ||
               (mSettings.ForEdit && MayWrite(what, subject.Level()));
    if (what == "parameters") return !subject.Index().Parameters(subject.Entity).empty();
    if (what == "overloads") return !OverloadsOf(subject).empty();
    if (what == "bases") return !subject.Index().Inherits(subject.Entity).empty();
    if (what == "derived") return !DerivedOf(subject).empty();
    if (what == "members")
        return std::any_of(subject.Index().Children(subject.Entity).begin(),
                           subject.Index().Children(subject.Entity).end(),
                           [&](SourceIndex::Id id) { return IsShown(subject.With(id)); });
    if (what == "variable") return !VariableValue(Attribute(element, "variable")).empty();
    return !PropertyOf(*subject.Provider->ItemOf(subject.Root, subject.Entity), what).empty();
}

std::string PageElements::WriteIf(const ParserElement& element, const PageSubject& subject) {
    bool holds = true;
    if (const std::string has = Attribute(element, "has"); !has.empty())
        holds = Has(has, element, subject);
    if (const std::string levels = Attribute(element, "level"); !levels.empty())
        holds = holds && IsInList(levels, subject.Level());
    if (const std::string monikers = Attribute(element, "namespace"); !monikers.empty())
        holds = holds && IsInList(monikers, kSourceMoniker);
    if (const std::string until = Attribute(element, "until"); !until.empty())
        holds = holds && Today() <= until;
    if (IsOn(element, "edit")) holds = holds && mSettings.ForEdit;
    if (holds == IsOn(element, "not")) return {};
    return Inner(element, subject);
}

std::string PageElements::WriteVariable(const ParserElement& element, const PageSubject&) {
    return Escaped(VariableValue(Attribute(element, "name")));
}

std::string PageElements::WritePhrase(const ParserElement& element, const PageSubject&) {
    return Escaped(Phrase(Attribute(element, "name")));
}

std::string PageElements::WriteScrap(const ParserElement& element, const PageSubject& subject) {
    return Parsed(ScrapText(element), subject);
}

std::string PageElements::WriteInclude(const ParserElement& element, const PageSubject& subject) {
    return Parsed(FileText(element), subject);
}

std::string PageElements::WriteNotice(const ParserElement& element, const PageSubject& subject) {
    const std::string until = Attribute(element, "until");
    if (!until.empty() && Today() > until) return {};
    const std::string text =
        element.Text.find("<!--") == std::string::npos ? element.Text : Inner(element, subject);
    const std::string said = Attribute(element, "text");
    const std::string colour = SafeColour(Attribute(element, "color"));
    const std::string style =
        colour.empty() ? "" : " style=\"border-color: " + Escaped(colour) + "\"";
    const std::string shown = said.empty() ? text : Escaped(said);
    if (TrimWhiteSpace(shown).empty()) return {};
    return "<div class=\"notice\" role=\"note\"" + style + ">" + shown + "</div>\n";
}

std::string PageElements::WriteContents(const ParserElement& element, const PageSubject& subject) {
    const auto section = element.Section.Lock();
    if (!section) return {};
    mSections.clear();
    bool isBehind = false;
    for (const auto& other : section->Elements) {
        if (other.get() == &element) {
            isBehind = true;
            continue;
        }
        if (!isBehind || other->ElementType != kParserTagElement ||
            EqualIgnoringCase(Attribute(*other, "type"), "contents"))
            continue;
        bool isKnown = false;
        std::string text = Provide(*other, subject, isKnown);
        if (isKnown) mReady[other.get()] = std::move(text);
    }
    if (mSections.size() < Number(element, "least", 2)) return {};
    std::string out =
        "<nav class=\"contents\" aria-label=\"" + Escaped(Phrase("On this page")) + "\">\n<ul>\n";
    for (const Section& entry : mSections)
        out += "<li><a href=\"#" + Escaped(PageHtml::Address(entry.Id)) + "\">" +
               Escaped(entry.Caption) + "</a></li>\n";
    return out + "</ul>\n</nav>\n";
}

} // namespace paperkite
