#pragma once

#include "foundation/HTMLDocument.h"
#include "platform/html/GumboElement.h"
#include "platform/html/HtmlNode.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// A document with a tree of its own, which the gumbo parser's is copied into.
///
/// NUL characters, and bytes that are no UTF-8, are read as U+FFFD. Written is what the standard
/// says, and more: identifiers of the document type, and the line break at the beginning of "pre",
/// "textarea" and "listing".
class GumboDocument : public HTMLDocument {
public:
    /// Error 5 for a text that nests too deep.
    explicit GumboDocument(const std::string& html);
    ~GumboDocument() override;

    std::string TypeName() const override { return "HTMLDocument"; }
    Ref<HTMLElement> GetDocumentElement() const override;
    Ref<HTMLElement> GetBody() const override;
    std::vector<Ref<HTMLElement>> Tags(const std::string& tag) const override;
    Ref<HTMLElement> All(const std::string& idOrName) const override;
    Ref<HTMLElement> CreateElement(const std::string& tag) override;
    std::string Serialise() const override;

    /// Whether a node hangs in this document's tree.
    bool Holds(const HtmlNode& node) const;
    bool IsRoot(const HtmlNode& node) const { return mTree.get() == node.Parent; }

    /// Keep the tables of All right: elements of a subtree that is in the tree now, or is about to
    /// leave it; an attribute that is about to change, and has changed.
    void Learn(GumboElement& element);
    void Forget(GumboElement& element);
    void Learn(HtmlNode& subtree);
    void Forget(HtmlNode& subtree);

private:
    using Table = std::unordered_map<std::string, std::vector<GumboElement*>>;

    GumboElement* FirstOf(const Table& table, const std::string& key) const;
    void MakeTables() const;

    std::shared_ptr<DocumentTie> mTie;
    std::unique_ptr<HtmlParent> mTree;
    mutable bool mHasTables = false;
    mutable Table mById;
    mutable Table mByName;
};

} // namespace paperkite
