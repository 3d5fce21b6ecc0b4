#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Collection.h"
#include "foundation/DataProvider.h"
#include "foundation/ParserElement.h"
#include "foundation/ParserTemplate.h"
#include "foundation/Procedure.h"

#include <string>

namespace paperkite {

/// The data provider of a page layout that is brought into the form in which it is edited: it
/// answers each element with a span that holds the element's number, and keeps the elements under
/// their numbers. A span document means nothing without the provider that made it.
///
/// What other providers are asked for it does not have: those members do nothing and give nothing.
class SpanProvider : public DataProvider, public Shielded {
public:
    std::string TypeName() const override { return "SpanProvider"; }
    const char* ModuleName() const override { return "SpanProvider"; }
    void DumpVariables(VariableDump& dump) const override;

    /// Numbers of elements that stay as they are, as decimal keys; the items are never read.
    Collection<int> ExcludedElements;
    /// Every tag element of the layout in document order, and those that the author added.
    Collection<Ref<ParserElement>> Elements;
    /// True while spans are to be made.
    bool OutputSpans = false;

    /// Making spans: the element's span, or nothing and the parser's own text for an excluded one;
    /// the element gets the next number either way. Otherwise the element as it is written.
    std::string ProvideData(const Ref<ParserElement>& Element,
                            const Ref<FileSystem>& FileSystemObject) override;
    /// Drops the elements.
    void Terminate() { Elements.Clear(); }

    Ref<DataProvider> Clone() override { return {}; }
    Ref<Object> GetCurrentItem() override { return {}; }
    std::string GetCurrentItemType() override { return {}; }
    Ref<Object> GetCurrentParentItem() override { return {}; }
    Ref<Object> GetCurrentRootItem() override { return {}; }
    void SetCurrentRootItem(const Ref<Object>&) override {}
    Ref<paperkite::NamespaceDef> GetNamespaceDef() override { return {}; }
    std::string GetProperty(const std::string&) override { return {}; }
    void Initialise(const Ref<ParserTemplate>&) override {}
    std::string ParseForProperties(const std::string&) override { return {}; }
    /// A parser that is done with its provider leaves the elements.
    void DataProvider_Terminate() override {}
    void SetCurrentItem(Ref<paperkite::NamespaceDef>&, const Ref<Object>&, const std::string&,
                        const Ref<Object>&) override {}

private:
    InstanceCount mInstanceCount{"SpanProvider", ComponentType::Class};
};

/// The span that stands for an element in a span document, under a number of its provider.
std::string ElementToSpan(const ParserElement& Element, std::size_t Index);

} // namespace paperkite
