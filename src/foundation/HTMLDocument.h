#pragma once

#include "foundation/Event.h"
#include "foundation/Object.h"

#include <optional>
#include <string>
#include <vector>

namespace paperkite {

class HTMLDocument;

/// Where a fragment goes, seen from an element.
enum class InsertPosition { BeforeBegin, AfterBegin, BeforeEnd, AfterEnd };

/// One element of an HTML document. An element that was taken out of its document, or whose
/// document is gone, keeps what it holds; parents and neighbours it then has none.
///
/// Fragments are parsed as the HTML standard says, in the context of the element that takes them
/// up, and written by its serialisation rules. Writing what was read is therefore the normalised
/// form, and normalising that changes nothing.
class HTMLElement : public Object {
public:
    std::string TypeName() const override { return "HTMLElement"; }

    /// In upper case for elements of HTML ("SPAN"), as written for those of SVG and MathML.
    virtual std::string GetTagName() const = 0;
    virtual Ref<HTMLElement> GetParentElement() const = 0;
    /// Nothing once the document is gone.
    virtual Ref<HTMLDocument> GetDocument() const = 0;

    /// Names are compared without regard to case. Nothing where there is no such attribute.
    virtual std::optional<std::string> GetAttribute(const std::string& name) const = 0;
    virtual void SetAttribute(const std::string& name, const std::string& value) = 0;
    virtual void RemoveAttribute(const std::string& name) = 0;

    virtual std::string GetInnerHTML() const = 0;
    virtual void SetInnerHTML(const std::string& html) = 0;
    virtual std::string GetOuterHTML() const = 0;
    /// Replaces the element, which is outside the document then. Nothing happens to an element
    /// that is outside already; replacing the root is error 5.
    virtual void SetOuterHTML(const std::string& html) = 0;
    /// The text without tags.
    virtual std::string GetInnerText() const = 0;

    virtual void InsertAdjacentHTML(InsertPosition where, const std::string& html) = 0;
    /// Takes the element from where it stood.
    virtual void InsertAdjacentElement(InsertPosition where, const Ref<HTMLElement>& element) = 0;
    /// Puts the contents in the element's place.
    virtual void RemoveKeepingContents() = 0;

    /// The elements below this one with that tag, in document order; letter case ignored, "*" for
    /// all.
    virtual std::vector<Ref<HTMLElement>> Tags(const std::string& tag) const = 0;

    std::string GetId() const { return GetAttribute("id").value_or(std::string()); }
    void SetId(const std::string& value) { SetAttribute("id", value); }
    std::string GetClassName() const { return GetAttribute("class").value_or(std::string()); }
};

/// An HTML document that components change and views show.
class HTMLDocument : public Object {
public:
    std::string TypeName() const override { return "HTMLDocument"; }

    /// The "html" element; there always is one.
    virtual Ref<HTMLElement> GetDocumentElement() const = 0;
    virtual Ref<HTMLElement> GetBody() const = 0;
    /// All elements of a tag, in document order; letter case ignored, "*" for all.
    virtual std::vector<Ref<HTMLElement>> Tags(const std::string& tag) const = 0;
    /// The first element with that id, or else that name (compared exactly), or nothing.
    virtual Ref<HTMLElement> All(const std::string& idOrName) const = 0;
    /// A new element outside the document.
    virtual Ref<HTMLElement> CreateElement(const std::string& tag) = 0;
    /// The whole document as text, document type and outer comments included.
    virtual std::string Serialise() const = 0;

    struct DocumentEvents {
        /// Something below that element, or one of its attributes, was changed by code.
        Event<const Ref<HTMLElement>&> Changed;
    } Events;
};

/// Makes documents. A text that nests deeper than the parser can follow is error 5 with a sentence
/// that says where; any other text gives a document.
class HTMLDOMFactory {
public:
    virtual ~HTMLDOMFactory() = default;
    virtual Ref<HTMLDocument> CreateFromString(const std::string& html,
                                               const Ref<Object>& reserved = {}) = 0;
    /// A file that cannot be read is an error.
    virtual Ref<HTMLDocument> CreateFromFile(const std::string& path,
                                             const Ref<Object>& reserved = {}) = 0;
};

/// Brings the text of a document into readable lines.
class HTMLTidy {
public:
    virtual ~HTMLTidy() = default;
    /// `bodyOnly`: the text is what stands inside a body. A text that cannot be tidied comes back
    /// as it was.
    virtual std::string TidyHTML(const std::string& html, bool bodyOnly) = 0;
};

} // namespace paperkite
