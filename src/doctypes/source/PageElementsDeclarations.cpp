#include "doctypes/source/PageElements.h"
#include "doctypes/source/PageHtml.h"
#include "doctypes/source/ParameterStep.h"
#include "foundation/Text.h"
#include "foundation/Utf8.h"

#include <algorithm>

namespace paperkite {

namespace {

using PageHtml::Escaped;

constexpr std::size_t kLongestLine = 80;
constexpr std::size_t kDeepestTree = 24;

/// Each parameter on a line of its own, below the first, where one line would be too long.
std::string Broken(const std::string& line) {
    const std::size_t open = line.find('(', line.rfind('\n') + 1);
    if (line.size() - line.rfind('\n') - 1 <= kLongestLine || open == line.npos) return line;
    const std::size_t close = line.rfind(')');
    if (close == line.npos || close <= open) return line;
    const auto parts =
        SplitTopLevel(std::string_view(line).substr(open + 1, close - open - 1), ',');
    if (parts.size() < 2) return line;
    const std::size_t column = open - line.rfind('\n', open); // npos + 1 is 0
    const std::string indent(std::min<std::size_t>(column, 40), ' ');
    std::string out = line.substr(0, open + 1);
    if (column > 40) out += "\n" + indent;
    for (std::size_t at = 0; at < parts.size(); ++at)
        out += (at == 0 ? "" : ",\n" + indent) + std::string(Trimmed(parts[at]));
    return out + line.substr(close);
}

/// As people write C and C++: marks of pointers and references at their types, a blank behind each
/// comma. Texts in quotes stay.
std::string Tightened(std::string_view text, SourceLanguage language) {
    if (language != SourceLanguage::C && language != SourceLanguage::Cpp) return std::string(text);
    std::string out;
    bool isQuoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char character = text[at];
        if (character == '"' || character == '\'') isQuoted = !isQuoted;
        const bool isMark = character == '*' || character == '&';
        if (!isQuoted && isMark && out.size() > 1 && out.back() == ' ' &&
            out[out.size() - 2] != '=')
            out.pop_back();
        out += character;
        if (!isQuoted && character == ',' && at + 1 < text.size() && text[at + 1] != ' ')
            out += ' ';
    }
    return out;
}

std::string_view KeywordOf(SourceKind kind, SourceLanguage language) {
    switch (kind) {
    case SourceKind::Class:
        return "class";
    case SourceKind::Interface:
        return "interface";
    case SourceKind::Trait:
        return "trait";
    case SourceKind::Struct:
        return "struct";
    case SourceKind::Union:
        return "union";
    case SourceKind::Enumeration:
        return "enum";
    case SourceKind::Annotation:
        return "@interface";
    case SourceKind::Namespace:
        return language == SourceLanguage::Ruby ? "module" : "namespace";
    case SourceKind::Package:
        return "package";
    default:
        return {};
    }
}

std::string_view CallableKeyword(SourceKind kind, SourceLanguage language) {
    const bool isFree = kind == SourceKind::Function;
    switch (language) {
    case SourceLanguage::Python:
    case SourceLanguage::Ruby:
        return "def ";
    case SourceLanguage::Go:
        return "func ";
    case SourceLanguage::Rust:
        return "fn ";
    case SourceLanguage::Php:
        return "function ";
    case SourceLanguage::JavaScript:
    case SourceLanguage::TypeScript:
        return isFree ? "function " : "";
    default:
        return {};
    }
}

/// What stands between a name and its type where the type stands behind; empty where it stands
/// before.
std::string_view TypeMark(SourceLanguage language, bool isCallable) {
    switch (language) {
    case SourceLanguage::Python:
    case SourceLanguage::Rust:
        return isCallable ? " -> " : ": ";
    case SourceLanguage::TypeScript:
    case SourceLanguage::JavaScript:
        return ": ";
    case SourceLanguage::Php:
        return isCallable ? ": " : "";
    case SourceLanguage::Go:
        return " ";
    default:
        return {};
    }
}

bool UsesColons(SourceLanguage language) {
    return language == SourceLanguage::C || language == SourceLanguage::Cpp ||
           language == SourceLanguage::Rust || language == SourceLanguage::Php ||
           language == SourceLanguage::Ruby;
}

/// What Python writes as a parameter and callers never give.
bool IsReceiver(const PageSubject& subject, const SourceParameter& first) {
    const SourceIndex::Id parent = subject.Index().Parent(subject.Entity);
    return subject.Index().Language(subject.Entity) == SourceLanguage::Python &&
           parent != SourceIndex::Nothing && IsType(subject.Index().Kind(parent)) &&
           (first.Name == "self" || first.Name == "cls");
}

/// The text of a comment without the tags that it begins with.
std::string_view WithoutLeadingTags(std::string_view text) {
    while (true) {
        text = Trimmed(text);
        const std::size_t close = text.starts_with('<') ? text.find('>') : text.npos;
        if (close == text.npos) return text;
        text.remove_prefix(close + 1);
    }
}

/// Whether a comment on parameters is about one of them: it says so, or begins with its name.
bool IsAbout(const TaggedComment& comment, const std::string& name) {
    if (name.empty()) return false;
    if (!comment.GetQualifier().empty()) return comment.GetQualifier() == name;
    const std::string_view text = WithoutLeadingTags(comment.GetText());
    if (!text.starts_with(name)) return false;
    if (text.size() == name.size()) return true;
    const auto next = static_cast<unsigned char>(text[name.size()]);
    return next < 0x80 && !std::isalnum(next) && next != '_';
}

} // namespace

std::string PageElements::ScopedName(const PageSubject& subject) {
    const SourceIndex& index = subject.Index();
    const std::string name(index.Name(subject.Entity));
    const SourceIndex::Id parent = index.Parent(subject.Entity);
    if (parent == SourceIndex::Nothing || !IsType(index.Kind(parent))) return name;
    return std::string(index.Name(parent)) +
           (UsesColons(index.Language(subject.Entity)) ? "::" : ".") + name;
}

std::string PageElements::SignatureOf(const PageSubject& subject) {
    const std::string_view signature = subject.Index().Signature(subject.Entity);
    std::string out;
    // Parameters that stand on lines of their own have blanks and a comma around them.
    for (const char character : signature) {
        const bool isBlank = character == ' ' || character == '\n' || character == '\t';
        if (isBlank && (out.ends_with('(') || out.ends_with(' '))) continue;
        if (character == ')')
            while (out.ends_with(' ') || out.ends_with(','))
                out.pop_back();
        out += isBlank ? ' ' : character;
    }
    return Tightened(out, subject.Index().Language(subject.Entity));
}

std::string PageElements::TypeOf(const PageSubject& subject) {
    const SourceIndex& index = subject.Index();
    return Tightened(index.Type(subject.Entity), index.Language(subject.Entity));
}

std::string PageElements::SyntaxOf(const PageSubject& subject) {
    const SourceIndex& index = subject.Index();
    const SourceKind kind = subject.Kind();
    const SourceLanguage language = index.Language(subject.Entity);
    const std::string name(index.Name(subject.Entity));
    const std::string type = TypeOf(subject);
    const std::string signature = SignatureOf(subject);
    if (kind == SourceKind::Project || kind == SourceKind::Module) return {};
    if (kind == SourceKind::Macro) return "#define " + name + signature;
    if (kind == SourceKind::Enumerator) return name;
    std::string out;
    if (!index.Template(subject.Entity).empty() && language == SourceLanguage::Cpp)
        out = "template " + std::string(index.Template(subject.Entity)) + "\n";
    if (const std::string_view keyword = KeywordOf(kind, language); !keyword.empty()) {
        const std::string bases(index.Inherits(subject.Entity));
        out += std::string(keyword) + " " + name;
        if (bases.empty()) return out;
        const bool isPython = language == SourceLanguage::Python;
        return out +
               (isPython                           ? "("
                : language == SourceLanguage::Ruby ? " < "
                                                   : " : ") +
               bases + (isPython ? ")" : "");
    }
    if (kind == SourceKind::Typedef)
        return type.empty() ? out + name : out + "typedef " + type + " " + name;
    const bool isCallable = IsCallable(kind);
    const std::string_view mark = TypeMark(language, isCallable);
    if (isCallable) out += CallableKeyword(kind, language);
    if (!type.empty() && mark.empty()) out += type + " ";
    out += name + signature;
    if (!type.empty() && !mark.empty()) out += std::string(mark) + type;
    return Broken(out);
}

std::string PageElements::WriteSyntax(const ParserElement& element, const PageSubject& subject) {
    const std::string syntax = SyntaxOf(subject);
    if (syntax.empty()) return {};
    const std::string body = "<pre><code>" + Escaped(syntax) + "</code></pre>\n";
    return IsOn(element, "bare") ? body : InSection(element, "syntax", "Syntax", body);
}

std::string PageElements::WritePlace(const ParserElement&, const PageSubject& subject) {
    const SourcePlace place = subject.Index().Place(subject.Entity);
    if (place.File.empty()) return {};
    return "<span class=\"sourceplace\">" +
           Escaped(PrintableUtf8(place.File) + ":" + std::to_string(place.Line)) + "</span>";
}

std::string PageElements::ParameterRow(const PageSubject& subject,
                                       const std::vector<SourceParameter>& parameters,
                                       std::size_t position, const Comments& notes,
                                       std::set<const TaggedComment*>& used) {
    const SourceParameter& parameter = parameters[position];
    const std::string name = subject.QualifiedName() + "~" + ParameterStep(parameters, position);
    std::string out = "<tr><td class=\"name\"><code>";
    out += parameter.Name.empty() ? std::to_string(position + 1) : Escaped(parameter.Name);
    out += "</code>";
    if (!parameter.Type.empty())
        out += " <span class=\"type\">" + Escaped(parameter.Type) + "</span>";
    if (!parameter.Default.empty())
        out += " <span class=\"default\">= " + Escaped(parameter.Default) + "</span>";
    out += "</td><td class=\"text\">";
    const auto own = GeneralCommentsOf(name);
    if (mSettings.ForEdit)
        out += EditPlaces(name, "##", own, Phrase("Click to describe this parameter"));
    else if (!own.empty())
        out += TextOf(*own.front());
    for (const auto& note : notes) {
        if (!IsAbout(*note, parameter.Name)) continue;
        used.insert(note.get());
        if (own.empty()) out += "<div class=\"comment\">" + TextOf(*note) + "</div>";
    }
    return out + "</td></tr>\n";
}

std::string PageElements::WriteParameters(const ParserElement& element,
                                          const PageSubject& subject) {
    const auto parameters = subject.Index().Parameters(subject.Entity);
    const auto notes = CommentsOf(subject.QualifiedName(), "##param");
    std::set<const TaggedComment*> used;
    std::string rows;
    const bool hasReceiver = !parameters.empty() && IsReceiver(subject, parameters.front());
    for (std::size_t position = hasReceiver ? 1 : 0; position < parameters.size(); ++position)
        rows += ParameterRow(subject, parameters, position, notes, used);
    std::string body;
    if (!rows.empty())
        body = "<table class=\"parameters\">\n<thead><tr><th scope=\"col\">" +
               Escaped(Phrase("Name")) + "</th><th scope=\"col\">" +
               Escaped(Phrase("Description")) + "</th></tr></thead>\n<tbody>\n" + rows +
               "</tbody>\n</table>\n";
    // What is about no parameter that there is was written all the same.
    Comments others;
    std::copy_if(notes.begin(), notes.end(), std::back_inserter(others),
                 [&](const auto& note) { return !used.contains(note.get()); });
    return InSection(element, "parameters", "Parameters", body + Joined(others));
}

/// The base types around a list that holds the type, innermost last.
std::string PageElements::BaseTree(const PageSubject& subject, std::size_t depth,
                                   const std::string& inner) {
    const auto& bases = subject.Provider->GetTypeRelations(subject.Root).BasesOf(subject.Entity);
    if (bases.empty() || depth == 0) return inner;
    // The first base leads on; the others stand beside it.
    std::string others;
    for (std::size_t at = 1; at < bases.size(); ++at)
        others += "<li>" +
                  (bases[at].Entity == SourceIndex::Nothing
                       ? Escaped(bases[at].Name)
                       : Link(subject.With(bases[at].Entity), Escaped(bases[at].Name))) +
                  "</li>\n";
    const auto& first = bases.front();
    const bool isKnown = first.Entity != SourceIndex::Nothing;
    const std::string name =
        isKnown ? Link(subject.With(first.Entity), Escaped(first.Name)) : Escaped(first.Name);
    const std::string around = "<li>" + name + "\n<ul>\n" + inner + "</ul>\n</li>\n" + others;
    return isKnown ? BaseTree(subject.With(first.Entity), depth - 1, around) : around;
}

/// Types that the project leaves out are named in it all the same, without a link.
std::string PageElements::WriteInheritance(const ParserElement& element,
                                           const PageSubject& subject) {
    const TypeRelations& relations = subject.Provider->GetTypeRelations(subject.Root);
    const auto& derived = relations.DerivedFrom(subject.Entity);
    if (relations.BasesOf(subject.Entity).empty() && derived.empty()) return {};
    const std::size_t most = Number(element, "most", 50);
    std::string inner =
        "<li><strong>" + Escaped(subject.Index().Name(subject.Entity)) + "</strong>";
    if (!derived.empty()) {
        inner += "\n<ul>\n";
        for (std::size_t at = 0; at < std::min(most, derived.size()); ++at)
            inner += "<li>" +
                     Link(subject.With(derived[at]), Escaped(subject.Index().Name(derived[at]))) +
                     "</li>\n";
        if (derived.size() > most)
            inner += "<li>" + Escaped(Phrase("and more")) + " (" +
                     std::to_string(derived.size() - most) + ")</li>\n";
        inner += "</ul>\n";
    }
    inner += "</li>\n";
    const std::size_t depth = std::min(Number(element, "depth", kDeepestTree), kDeepestTree);
    return InSection(element, "inheritance", "Inheritance",
                     "<ul class=\"tree\">\n" + BaseTree(subject, depth, inner) + "</ul>\n");
}

std::string PageElements::WriteBases(const ParserElement& element, const PageSubject& subject) {
    std::string entries;
    for (const auto& base :
         subject.Provider->GetTypeRelations(subject.Root).BasesOf(subject.Entity))
        entries += "<li>" +
                   (base.Entity == SourceIndex::Nothing
                        ? Escaped(base.Name)
                        : Link(subject.With(base.Entity), Escaped(base.Name))) +
                   "</li>\n";
    if (entries.empty()) return {};
    return InSection(element, "bases", "Base Types", "<ul>\n" + entries + "</ul>\n");
}

PageElements::Members PageElements::DerivedOf(const PageSubject& subject) const {
    Members derived = subject.Provider->GetTypeRelations(subject.Root).DerivedFrom(subject.Entity);
    std::erase_if(derived, [&](SourceIndex::Id id) {
        return !IsShown(subject.With(id)) || !HasPage(subject.With(id));
    });
    return derived;
}

std::string PageElements::WriteDerived(const ParserElement& element, const PageSubject& subject) {
    return InSection(element, "derived", "Derived Types",
                     Table(DerivedOf(subject), element, subject));
}

} // namespace paperkite
