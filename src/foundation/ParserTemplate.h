#pragma once

#include "foundation/DataProvider.h"
#include "foundation/Object.h"
#include "foundation/ParserSections.h"

#include <string>

namespace paperkite {

/// A text with tags that a data provider fills in.
class ParserTemplate : public Object {
public:
    std::string TypeName() const override { return "ParserTemplate"; }

    /// What a tag begins and ends with, opening and closing.
    virtual void SetStartTagPrefix(const std::string& value) = 0;
    virtual void SetStartTagSuffix(const std::string& value) = 0;
    virtual void SetEndTagPrefix(const std::string& value) = 0;
    virtual void SetEndTagSuffix(const std::string& value) = 0;
    /// True for a text that is edited as a layout: elements are found and what is in them is left
    /// alone, and their form is judged strictly. False for one that is published.
    virtual void SetMetaDocumentMode(bool value) = 0;
    /// Read behind each answer of the data provider: true, the answer takes the element's place;
    /// false, the element stays as it stands.
    virtual void SetUseProvidedText(bool value) = 0;

    /// Takes a text apart. Mistakes in its tags are no failure: see ParseErrors.
    virtual void LoadText(const std::string& text) = 0;
    /// The mistakes in the loaded text, one a line; empty when there are none.
    virtual std::string GetParseErrors() const = 0;
    virtual Ref<ParserSections> GetSections() = 0;
    virtual void SetDataProvider(const Ref<DataProvider>& value) = 0;
    /// An element with its tags: SourceText while it says the same, otherwise put together from its
    /// attributes and text.
    virtual std::string SourceOf(const ParserElement& element) const {
        return element.ElementType == kParserTagElement ? element.SourceText : element.Text;
    }
    /// The output: literal text as it stands, each tag element replaced by what the data provider
    /// gives for it, asked once for each in document order.
    virtual std::string Parse() = 0;
};

} // namespace paperkite
