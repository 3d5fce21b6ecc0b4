#include "host/ItemPage.h"

#include "foundation/PreviewLog.h"
#include "foundation/Text.h"
#include "model/TemplateParser.h"

namespace paperkite {

Ref<SourceItem> ItemWithPage(const Ref<Object>& item) {
    const auto parameter = item.As<ParameterItem>();
    return parameter ? parameter->GetCallable() : item.As<SourceItem>();
}

std::string LevelOf(const SourceItem& item) {
    return std::string(kSourceMoniker) + ":" +
           std::string(KindText(item.GetIndex().Kind(item.GetEntity())));
}

bool Serves(const PageLayout& layout, const std::string& level) {
    for (const std::string& name : Split(layout.Namespaces, ","))
        if (EqualIgnoringCase(TrimWhiteSpace(name), level)) return true;
    return false;
}

ItemPage MakeItemPage(ProjectSession& session, const Ref<SourceItem>& item,
                      const Ref<PageTemplate>& from, const std::string& layout,
                      const ItemPageOptions& options) {
    const auto log = MakeRef<PreviewLog>();
    session.GetProject()->Log = log;
    const auto provider = session.GetProvider()->GetDataProvider()->Clone();
    provider->Set("ForEdit", Value(options.IsForEdit));
    provider->Set("PageLinks", Value(false));
    provider->Set("InlineStyles", Value(!options.HasFiles));
    provider->Set("Template", Value(from));
    provider->Set("Project", Value(Ref<Object>(session.GetProject())));
    provider->Call("Prepare", {Value(Ref<NamespaceDef>()), Value(item), Value(""), Value()});
    const auto parser = MakeRef<TemplateParser>();
    parser->SetPageLayoutTags();
    parser->LoadText(layout);
    parser->SetDataProvider(provider);
    parser->SetUseProvidedText(true);
    return {parser->Parse(), Split(parser->GetParseErrors(), "\n"), log->Messages};
}

} // namespace paperkite
