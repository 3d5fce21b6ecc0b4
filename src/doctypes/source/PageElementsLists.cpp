#include "doctypes/source/PageElements.h"
#include "doctypes/source/PageHtml.h"
#include "doctypes/source/SourceNamespaceDefs.h"
#include "foundation/ScopeExit.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

using PageHtml::Escaped;

/// Above this a chain of base types is taken to be a circle.
constexpr std::size_t kLongestChain = 200;

/// "Method" of "kite.source:Method", or the word itself.
std::string KindOfLevel(const std::string& level) {
    const std::string kind = AfterColon(level);
    return TrimWhiteSpace(kind.empty() ? level : kind);
}

} // namespace

/// The declaration in short, with the name as a link.
std::string PageElements::NameCell(const PageSubject& subject) {
    const SourceIndex& index = subject.Index();
    const std::string name = Link(subject, Escaped(index.Name(subject.Entity)));
    std::string out = "<code>";
    const std::string type = TypeOf(subject);
    if (!type.empty() && subject.Kind() != SourceKind::Enumerator)
        out += "<span class=\"type\">" + Escaped(type) + "</span> ";
    out += name;
    if (const std::string signature = SignatureOf(subject); !signature.empty())
        out += "<span class=\"signature\">" + Escaped(signature) + "</span>";
    return out + "</code>" + FlagsOf(subject);
}

/// Where nobody said anything of any of them there is no column for it.
std::string PageElements::Table(const Members& members, const ParserElement& element,
                                const PageSubject& subject) {
    if (members.empty()) return {};
    const bool fromSource = IsOn(element, "fromsource");
    std::vector<std::string> texts;
    texts.reserve(members.size());
    for (const SourceIndex::Id member : members)
        texts.push_back(RowText(subject.With(member), fromSource));
    const bool hasTexts = std::any_of(texts.begin(), texts.end(),
                                      [](const std::string& text) { return !text.empty(); });
    std::string out = "<table class=\"members\">\n<thead><tr><th scope=\"col\">" +
                      Escaped(Phrase("Name")) + "</th>";
    if (hasTexts) out += "<th scope=\"col\">" + Escaped(Phrase("Description")) + "</th>";
    out += "</tr></thead>\n<tbody>\n";
    for (std::size_t row = 0; row < members.size(); ++row) {
        out += "<tr><td class=\"name\">" + NameCell(subject.With(members[row])) + "</td>";
        if (hasTexts) out += "<td class=\"text\">" + texts[row] + "</td>";
        out += "</tr>\n";
    }
    return out + "</tbody>\n</table>\n";
}

/// Sorted by name, overloads in the order of the source; enumerators in that order altogether.
PageElements::Members PageElements::MembersOf(const PageSubject& subject, SourceKind kind) const {
    Members members;
    const SourceIndex& index = subject.Index();
    for (const SourceIndex::Id child : index.Children(subject.Entity))
        if (index.Kind(child) == kind && IsShown(subject.With(child))) members.push_back(child);
    if (kind == SourceKind::Enumerator) return members;
    std::vector<std::pair<std::string, SourceIndex::Id>> named;
    named.reserve(members.size());
    for (const SourceIndex::Id member : members)
        named.emplace_back(LowerCase(index.Name(member)), member);
    std::stable_sort(named.begin(), named.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(named.begin(), named.end(), members.begin(),
                   [](const auto& entry) { return entry.second; });
    return members;
}

/// An empty set means all.
std::set<SourceKind> PageElements::WantedKinds(const ParserElement& element) const {
    std::set<SourceKind> wanted;
    for (const std::string& level : Split(Attribute(element, "level"), ","))
        for (std::size_t kind = 0; kind < kSourceKindCount; ++kind)
            if (EqualIgnoringCase(KindOfLevel(level), KindText(static_cast<SourceKind>(kind))))
                wanted.insert(static_cast<SourceKind>(kind));
    return wanted;
}

std::string PageElements::WriteMembers(const ParserElement& element, const PageSubject& subject) {
    const auto wanted = WantedKinds(element);
    if (wanted.empty() && !TrimWhiteSpace(Attribute(element, "level")).empty()) return {};
    const bool hasPattern = element.Text.find(kTagBeginning) != std::string::npos;
    // What a pattern names it names of the member.
    std::optional<Tags> own;
    if (hasPattern) own = TagsNamedIn(element.Text);
    if (hasPattern) std::swap(mNamedTags, own);
    const ScopeExit putBack([&] {
        if (hasPattern) std::swap(mNamedTags, own);
    });
    std::string out;
    for (std::size_t number = 0; number < kSourceKindCount; ++number) {
        const auto kind = static_cast<SourceKind>(number);
        if (!wanted.empty() && !wanted.contains(kind)) continue;
        const Members members = MembersOf(subject, kind);
        if (hasPattern) {
            for (const SourceIndex::Id member : members)
                out += Inner(element, subject.With(member));
            continue;
        }
        const std::string plural(PluralText(kind));
        out += InSection(element, ReplaceAll(LowerCase(plural), " ", "-"), plural,
                         Table(members, element, subject));
    }
    return out;
}

PageElements::Members PageElements::OverloadsOf(const PageSubject& subject) const {
    Members overloads;
    const SourceIndex& index = subject.Index();
    const SourceIndex::Id parent = index.Parent(subject.Entity);
    if (!IsCallable(subject.Kind()) || parent == SourceIndex::Nothing) return overloads;
    for (const SourceIndex::Id sibling : index.Children(parent))
        if (sibling != subject.Entity && IsCallable(index.Kind(sibling)) &&
            index.Name(sibling) == index.Name(subject.Entity) && IsShown(subject.With(sibling)))
            overloads.push_back(sibling);
    return overloads;
}

std::string PageElements::WriteOverloads(const ParserElement& element, const PageSubject& subject) {
    return InSection(element, "overloads", "Overloads",
                     Table(OverloadsOf(subject), element, subject));
}

/// What a type has from its base types, as far as the code holds them.
std::string PageElements::WriteInherited(const ParserElement& element, const PageSubject& subject) {
    const TypeRelations& relations = subject.Provider->GetTypeRelations(subject.Root);
    const SourceIndex& index = subject.Index();
    std::vector<SourceIndex::Id> chain{subject.Entity};
    std::set<SourceIndex::Id> seen{subject.Entity};
    std::set<std::string_view> names;
    for (const SourceIndex::Id own : index.Children(subject.Entity))
        names.insert(index.Name(own));
    std::string out;
    for (std::size_t at = 0; at < chain.size() && at < kLongestChain; ++at) {
        for (const auto& base : relations.BasesOf(chain[at]))
            if (base.Entity != SourceIndex::Nothing && seen.insert(base.Entity).second)
                chain.push_back(base.Entity);
        if (at == 0) continue;
        std::vector<std::pair<std::string_view, SourceIndex::Id>> members;
        for (const SourceIndex::Id member : index.Children(chain[at])) {
            const SourceKind kind = index.Kind(member);
            const bool isOwnAffair =
                kind == SourceKind::Constructor || kind == SourceKind::Destructor;
            if (!isOwnAffair && index.Access(member) != SourceAccess::Private &&
                IsShown(subject.With(member)) && names.insert(index.Name(member)).second)
                members.emplace_back(index.Name(member), member);
        }
        if (members.empty()) continue;
        std::sort(members.begin(), members.end());
        const PageSubject base = subject.With(chain[at]);
        out += "<h3>" + Escaped(Phrase("From")) + " " + Link(base, Escaped(ScopedName(base))) +
               "</h3>\n<ul class=\"inline\">\n";
        for (const auto& [name, member] : members)
            out += "<li><code>" + Link(subject.With(member), Escaped(name)) + "</code></li>\n";
        out += "</ul>\n";
    }
    return InSection(element, "inherited", "Inherited Members", out);
}

std::string PageElements::WriteBreadcrumb(const ParserElement&, const PageSubject& subject) {
    const auto from = mSettings.RootItem.As<SourceItem>();
    std::vector<SourceIndex::Id> way;
    for (SourceIndex::Id at = subject.Entity; at != SourceIndex::Nothing;
         at = subject.Index().Parent(at)) {
        way.push_back(at);
        if (from && from->GetRoot() == subject.Root && from->GetEntity() == at) break;
    }
    std::string out =
        "<nav class=\"breadcrumb\" aria-label=\"" + Escaped(Phrase("Breadcrumb")) + "\">\n<ol>\n";
    for (auto at = way.rbegin(); at != way.rend(); ++at) {
        const std::string name = Escaped(subject.Index().Name(*at));
        const bool isLast = *at == subject.Entity;
        out += isLast ? "<li aria-current=\"page\">" + name + "</li>\n"
                      : "<li>" + Link(subject.With(*at), name) + "</li>\n";
    }
    return out + "</ol>\n</nav>\n";
}

} // namespace paperkite
