#include "commenttexts/CommentForm.h"
#include "doctypes/source/PageElements.h"
#include "doctypes/source/PageHtml.h"
#include "foundation/GlobalConfig.h"
#include "foundation/ParserSection.h"
#include "foundation/Text.h"
#include "model/TemplateParser.h"

#include <algorithm>

namespace paperkite {

namespace {

using PageHtml::Escaped;

constexpr const char* kGeneralTag = "##";
constexpr const char* kSeeAlsoTag = "##seealso";
constexpr const char* kParameterTag = "##param";

bool IsGeneral(const TaggedComment& comment) {
    if (EqualIgnoringCase(comment.GetTagIdentifier(), kGeneralTag)) return true;
    const auto definition = comment.GetTaggedCommentDef();
    return definition && definition->IsGeneral;
}

std::string NameOfTag(const std::string& tag) {
    const auto definition = GlobalConfig().TaggedCommentDefs->Find(tag);
    return definition ? definition->DisplayName : tag;
}

/// The tag as an id or class of the page.
std::string ClassOfTag(const std::string& tag) {
    std::string name;
    for (const char letter : LowerCase(tag))
        if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9')) name += letter;
    return name.empty() ? "description" : name;
}

bool IsFlag(const TaggedCommentDef& definition) {
    return EqualIgnoringCase(definition.TagType, "f");
}

} // namespace

/// Those of the item itself, otherwise of the first of those whose comments it takes. Where one can
/// write only its own are shown.
PageElements::Comments PageElements::CommentsOf(const std::string& qualifiedName,
                                                const std::string& tag) const {
    Comments found = OwnCommentsOf(qualifiedName, tag);
    if (!found.empty() || mSettings.ForEdit) return found;
    for (const std::string& other : SourcesOf(qualifiedName))
        if (found = OwnCommentsOf(other, tag); !found.empty()) break;
    return found;
}

PageElements::Comments PageElements::OwnCommentsOf(const std::string& qualifiedName,
                                                   const std::string& tag) const {
    Comments found;
    if (EqualIgnoringCase(tag, kGeneralTag)) return GeneralCommentsOf(qualifiedName);
    const auto all = mProvider->GetComments()->Find(qualifiedName);
    if (!all) return found;
    for (const auto& comment : *all)
        if (comment->GetState() != kTaggedCommentTombstone &&
            EqualIgnoringCase(comment->GetTagIdentifier(), tag))
            found.push_back(comment);
    return found;
}

PageElements::Comments PageElements::GeneralCommentsOf(const std::string& qualifiedName) const {
    Comments found;
    const auto all = mProvider->GetComments()->Find(qualifiedName);
    if (!all) return found;
    for (const auto& comment : *all)
        if (comment->GetState() != kTaggedCommentTombstone && IsGeneral(*comment))
            found.push_back(comment);
    return found;
}

std::string PageElements::TextOf(const TaggedComment& comment) const {
    const CommentForm form = FormOf(comment.GetTaggedCommentDef());
    if (form != CommentForm::Html && form != CommentForm::SubItems) return FormText(comment);
    const std::string& text =
        comment.GetResolvedText().empty() ? comment.GetText() : comment.GetResolvedText();
    return mSettings.LinksTo == PageSettings::Links::None ? PageHtml::WithoutPageLinks(text) : text;
}

std::string PageElements::Joined(const Comments& comments) const {
    std::string out;
    for (const auto& comment : comments)
        if (const std::string text = TextOf(*comment); !text.empty())
            out += "<div class=\"comment\">" + text + "</div>\n";
    return out;
}

bool PageElements::MayWrite(const std::string& tag, const std::string& level) const {
    if (EqualIgnoringCase(tag, kGeneralTag)) return true;
    const auto definition = GlobalConfig().TaggedCommentDefs->Find(tag);
    // What is no text has a designer of its own, and is only shown on pages.
    if (!definition || IsFlag(*definition) || FormOf(definition) != CommentForm::Html) return false;
    if (mSettings.EditCommentType == CommentType::XMLCommentTags && definition->XMLTags.empty())
        return false;
    for (const std::string& name : Split(definition->Namespaces, ","))
        if (EqualIgnoringCase(TrimWhiteSpace(name), level)) return true;
    return false;
}

/// The id is the whole protocol between a page and who edits it.
std::string PageElements::Place(const std::string& qualifiedName, const std::string& tag,
                                const std::string& text, const std::string& placeholder) const {
    return "<span id=\"TaggedComment|" + Escaped(ReplaceAll(qualifiedName, "|", "%7C")) + "|" +
           Escaped(tag) + "\" contenteditable=\"true\" data-placeholder=\"" + Escaped(placeholder) +
           "\">" + text + "</span>";
}

/// The first comment of a tag can be edited on the page; further ones are shown behind it.
std::string PageElements::EditPlaces(const std::string& qualifiedName, const std::string& tag,
                                     const Comments& comments,
                                     const std::string& placeholder) const {
    const std::string own = comments.empty() ? std::string() : comments.front()->GetText();
    const std::string shownTag = comments.empty() ? tag : comments.front()->GetTagIdentifier();
    std::string out = Place(qualifiedName, shownTag, own, placeholder);
    if (comments.size() > 1) out += Joined({comments.begin() + 1, comments.end()});
    return out;
}

std::string PageElements::PlaceholderFor(const std::string& tag, const std::string& kind) const {
    if (EqualIgnoringCase(tag, kGeneralTag))
        return Phrase("Click to describe this") + " " + LowerCase(kind);
    return Phrase("Click to add") + " " + LowerCase(NameOfTag(tag));
}

/// The general description; as a whole, with what other tags append to it.
std::string PageElements::GeneralText(const PageSubject& subject, bool isWhole) const {
    if (!isWhole) {
        const auto comments = CommentsOf(subject.QualifiedName(), kGeneralTag);
        return comments.empty() ? std::string() : TextOf(*comments.front());
    }
    const auto item = mProvider->ItemOf(subject.Root, subject.Entity);
    std::string text = item->Get("TaggedDescription").ToText();
    if (text.empty()) {
        for (const auto& comment : *item->GetTaggedComments()) {
            const auto definition = comment->GetTaggedCommentDef();
            const bool appends = definition
                                     ? EqualIgnoringCase(definition->AppendsToDescription, "True")
                                     : IsGeneral(*comment);
            if (!appends || comment->GetState() == kTaggedCommentTombstone) continue;
            const std::string format = definition && !definition->DescriptionFormat.empty()
                                           ? definition->DescriptionFormat
                                           : "%text%";
            text += ReplaceAllIgnoringCase(format, "%text%", comment->GetText());
        }
    }
    if (text.empty()) return GeneralText(subject, false);
    return mSettings.LinksTo == PageSettings::Links::None ? PageHtml::WithoutPageLinks(text) : text;
}

std::string PageElements::CommentBody(const std::string& tag, const PageSubject& subject,
                                      const std::string& placeholder) {
    const std::string name = subject.QualifiedName();
    const auto comments = CommentsOf(name, tag);
    if (mSettings.ForEdit && MayWrite(tag, subject.Level()))
        return "<div class=\"place\">" +
               EditPlaces(name, tag, comments,
                          placeholder.empty() ? PlaceholderFor(tag, KindCaption(subject.Kind()))
                                              : placeholder) +
               "</div>\n";
    if (!EqualIgnoringCase(tag, kGeneralTag)) return Joined(comments);
    const std::string text = GeneralText(subject, true);
    return text.empty() ? text : "<div class=\"comment\">" + text + "</div>\n";
}

/// What a table says of an item.
std::string PageElements::RowText(const PageSubject& subject, bool fromSource) {
    if (mSettings.ForEdit) {
        const std::string name = subject.QualifiedName();
        return EditPlaces(name, kGeneralTag, GeneralCommentsOf(name),
                          PlaceholderFor(kGeneralTag, KindCaption(subject.Kind())));
    }
    std::string text = GeneralText(subject, false);
    if (!text.empty() || !fromSource) return text;
    const auto comment = mProvider->CommentInSource(subject.Root, subject.Entity);
    const std::string said = comment ? PageHtml::FirstSentence(comment->Lines) : std::string();
    return said.empty() ? said : "<span class=\"fromsource\">" + said + "</span>";
}

std::string PageElements::WriteComment(const ParserElement& element, const PageSubject& subject) {
    return CommentBody(Attribute(element, "tag", kGeneralTag), subject,
                       Attribute(element, "placeholder"));
}

std::string PageElements::WriteSection(const ParserElement& element, const PageSubject& subject) {
    const std::string tag = Attribute(element, "tag", kGeneralTag);
    const bool isList = EqualIgnoringCase(tag, "##exception");
    const std::string placeholder = Attribute(element, "placeholder");
    const std::string body =
        isList ? ListEntries(tag, subject, placeholder) : CommentBody(tag, subject, placeholder);
    return InSection(element, ClassOfTag(tag), NameOfTag(tag),
                     isList && !body.empty() ? "<ul>\n" + body + "</ul>\n" : body);
}

PageElements::Tags PageElements::TagsNamedIn(const std::string& layout) const {
    TemplateParser parser;
    parser.SetPageLayoutTags();
    parser.LoadText(layout);
    Tags named;
    std::set<std::string> seen;
    AddNamedTags(parser.GetSections()->Item(std::size_t{1})->Elements, 0, named, seen);
    return named;
}

/// Those of elements in other elements too, where both speak of the same item.
void PageElements::AddNamedTags(const Collection<Ref<ParserElement>>& elements, int depth,
                                Tags& named, std::set<std::string>& seen) const {
    for (const auto& element : elements) {
        const std::string type = LowerCase(Attribute(*element, "type"));
        if (const std::string tag = Attribute(*element, "tag"); !tag.empty())
            named.insert(LowerCase(tag));
        if (type == "parameters") named.insert(kParameterTag);
        if (type == "seealso") named.insert(kSeeAlsoTag);
        std::string inner;
        if (type == "if" || type == "notice" || type == "link") inner = element->Text;
        // A scrap may hold itself.
        if (type == "scrap" && seen.insert("scrap " + Attribute(*element, "name")).second)
            inner = ScrapText(*element);
        if (type == "include" && seen.insert("file " + Attribute(*element, "file")).second)
            inner = FileText(*element);
        if (depth >= kDeepest || inner.find(kTagBeginning) == std::string::npos) continue;
        TemplateParser parser;
        parser.SetPageLayoutTags();
        parser.LoadText(inner);
        AddNamedTags(parser.GetSections()->Item(std::size_t{1})->Elements, depth + 1, named, seen);
    }
}

const PageElements::Tags& PageElements::NamedTags() {
    if (mNamedTags) return *mNamedTags;
    mNamedTags.emplace();
    std::set<std::string> seen;
    if (const auto layout = mLayout.Lock()) AddNamedTags(layout->Elements, 0, *mNamedTags, seen);
    return *mNamedTags;
}

/// Comments of tags that no other element of the layout names.
std::string PageElements::WriteOtherComments(const ParserElement& element,
                                             const PageSubject& subject) {
    const Tags& named = NamedTags();
    std::string out;
    for (const auto& definition : *GlobalConfig().TaggedCommentDefs) {
        const std::string& tag = definition->TagIdentifier;
        const CommentForm form = FormOf(definition);
        const bool standsElsewhere = form == CommentForm::Keywords || form == CommentForm::IsNew ||
                                     form == CommentForm::CommentsFrom;
        if (IsFlag(*definition) || definition->IsGeneral || standsElsewhere ||
            named.contains(LowerCase(tag)))
            continue;
        out += InSection(element, ClassOfTag(tag), NameOfTag(tag), CommentBody(tag, subject, {}));
    }
    return out;
}

std::string PageElements::WriteSourceComment(const ParserElement& element,
                                             const PageSubject& subject) {
    const auto comment = mProvider->CommentInSource(subject.Root, subject.Entity);
    if (!comment || PageHtml::FirstSentence(comment->Lines).empty()) return {};
    return InSection(element, "sourcecomment", "In the Source",
                     "<div class=\"sourcetext\">" + PageHtml::Paragraphs(comment->Lines) +
                         "</div>\n");
}

std::string PageElements::ListEntries(const std::string& tag, const PageSubject& subject,
                                      const std::string& placeholder) {
    const std::string name = subject.QualifiedName();
    auto comments = CommentsOf(name, tag);
    std::string out;
    if (mSettings.ForEdit && MayWrite(tag, subject.Level())) {
        const Comments first(comments.begin(), comments.begin() + (comments.empty() ? 0 : 1));
        const std::string hint =
            placeholder.empty() ? PlaceholderFor(tag, KindCaption(subject.Kind())) : placeholder;
        out += "<li>" + EditPlaces(name, tag, first, hint) + "</li>\n";
        comments.erase(comments.begin(), comments.begin() + (comments.empty() ? 0 : 1));
    }
    for (const auto& comment : comments) {
        std::string text = TextOf(*comment);
        // A name alone is a link.
        const auto named = text.find('<') == std::string::npos
                               ? mProvider->GetItem(TrimWhiteSpace(text)).As<SourceItem>()
                               : Ref<SourceItem>();
        if (named) {
            const PageSubject other{mProvider, named->GetRoot(), named->GetEntity()};
            text = Link(other, Escaped(ScopedName(other)));
        }
        out += "<li>" + text + "</li>\n";
    }
    return out;
}

std::string PageElements::WriteSeeAlso(const ParserElement& element, const PageSubject& subject) {
    std::string entries = ListEntries(kSeeAlsoTag, subject, Attribute(element, "placeholder"));
    const bool mayLink = mSettings.LinksTo == PageSettings::Links::Pages;
    for (SourceIndex::Id around = subject.Index().Parent(subject.Entity);
         mayLink && IsOn(element, "around") && around != SourceIndex::Nothing;
         around = subject.Index().Parent(around)) {
        const PageSubject other = subject.With(around);
        entries += "<li>" +
                   Link(other, Escaped(ScopedName(other) + " " + KindCaption(other.Kind()))) +
                   "</li>\n";
    }
    if (entries.empty()) return {};
    return InSection(element, "seealso", "See Also", "<ul>\n" + entries + "</ul>\n");
}

std::string PageElements::FlagsOf(const PageSubject& subject) const {
    std::string out;
    const auto add = [&](const std::string& name, const std::string& caption) {
        out += " <span class=\"flag " + name + "\">" + Escaped(Phrase(caption)) + "</span>";
    };
    switch (subject.Index().Access(subject.Entity)) {
    case SourceAccess::Protected:
        add("protected", "Protected");
        break;
    case SourceAccess::Friend:
        add("friend", "Friend");
        break;
    case SourceAccess::Private:
        add("private", "Private");
        break;
    case SourceAccess::Public:
        break;
    }
    const auto comments = mProvider->GetComments()->Find(subject.QualifiedName());
    if (!comments) return out;
    for (const auto& comment : *comments) {
        const auto definition = comment->GetTaggedCommentDef();
        const bool isNew = FormOf(definition) == CommentForm::IsNew;
        if (!definition || comment->GetState() == kTaggedCommentTombstone) continue;
        if (IsFlag(*definition))
            add(ClassOfTag(definition->TagIdentifier), definition->DisplayName);
        else if (isNew)
            out += " <span class=\"flag new\">" + FormText(*comment) + "</span>";
    }
    return out;
}

std::string PageElements::WriteFlags(const ParserElement&, const PageSubject& subject) {
    const std::string flags = FlagsOf(subject);
    return flags.empty() ? flags : "<div class=\"flags\">" + flags.substr(1) + "</div>\n";
}

} // namespace paperkite
