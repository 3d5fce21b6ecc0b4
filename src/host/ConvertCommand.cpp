#include "host/ConvertCommand.h"

#include "foundation/HtmlAttributes.h"
#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"
#include "host/CommandLine.h"
#include "model/PageTemplateDocument.h"
#include "model/SafeFile.h"
#include "pagelayout/LayoutEnvelope.h"
#include "pagelayout/MetaDocumentEdit.h"

#include <filesystem>
#include <ostream>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

/// The template that a layout belongs to by its folder; otherwise one that names this program's
/// ordinary tool.
Ref<PageTemplate> TemplateOf(const std::string& layout) {
    const auto opened = PageTemplateDocument::Open(fs::absolute(layout).parent_path().string());
    if (opened.Template && !opened.Template->Namespaces.empty()) return opened.Template;
    auto standard = MakeRef<PageTemplate>();
    auto space = MakeRef<TemplateNamespace>();
    space->Moniker = "kite.source";
    standard->Namespaces.push_back(space);
    return standard;
}

/// The first id of a span that means an element which the layout does not have; empty for none.
std::string UnknownSpan(const std::string& html, std::size_t elements) {
    constexpr std::string_view kStart = "metaspanstart";
    HtmlTokens tokens(html);
    for (HtmlToken token; tokens.Next(token);) {
        if (token.What != HtmlToken::Kind::StartTag || !EqualIgnoringCase(token.Name, "span"))
            continue;
        HtmlAttributes attributes(std::string_view(html).substr(token.From, token.To - token.From));
        while (attributes.Next()) {
            const std::string id = attributes.Value();
            if (!EqualIgnoringCase(attributes.Name(), "id") || !id.starts_with(kStart)) continue;
            const double number = LeadingNumber(std::string_view(id).substr(kStart.size()));
            if (number < 1 || number > static_cast<double>(elements)) return id;
        }
    }
    return {};
}

} // namespace

int ConvertCommand::Run(Output& output) const {
    const bool isBack = To == "meta";
    if (!isBack && !Layout.empty())
        return output.Fail("--layout belongs to --to meta: it names the layout that FILE was made "
                           "from. Leave it out.");
    std::string html;
    if (const auto problem = SafeFile::Read(File, html)) return output.Fail(problem->Message());
    std::string layout = html;
    if (!Layout.empty())
        if (const auto problem = SafeFile::Read(Layout, layout))
            return output.Fail(problem->Message());
    const std::string& layoutFile = Layout.empty() ? File : Layout;
    const auto owner = TemplateOf(layoutFile);
    MetaDocumentEdit edit;
    edit.SetTemplate(owner);
    const LayoutEnvelope envelope(html);
    const std::string spans = edit.ConvertMetaDocumentToSpanDocument(
        Layout.empty() ? envelope.GetRoot() : LayoutEnvelope(layout).GetRoot());
    if (!isBack) {
        output.Out << envelope.Around(spans);
        return kExitDone;
    }
    const std::string& source = Layout.empty() ? spans : envelope.GetRoot();
    const std::string unknown = UnknownSpan(source, edit.GetSpanProvider()->Elements.Count());
    if (!unknown.empty())
        return output.Fail(File + ": the span \"" + unknown + "\" means an element that " +
                           layoutFile + " does not have. " +
                           (Layout.empty() ? "If this is a span document, name the layout that it "
                                             "was made from with --layout."
                                           : "Name the layout that it was made from."));
    const std::string meta = edit.ConvertSpanDocumentToMetaDocument(source);
    if (meta.empty())
        return output.Fail(File + " was not converted; what went wrong stands above.");
    output.Out << envelope.Around(meta);
    return kExitDone;
}

} // namespace paperkite
