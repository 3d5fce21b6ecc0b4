#include "pagelayout/ParsedLayout.h"

#include "foundation/Services.h"

namespace paperkite {

Ref<ParserTemplate> ParsedLayout(const std::string& html) {
    const auto& create = CurrentServices().CreateParserTemplate;
    if (!create) RaiseError(ErrorNumber::CannotCreateComponent);
    const Ref<ParserTemplate> layout = create();
    layout->SetMetaDocumentMode(true);
    layout->SetStartTagPrefix("<!--KITEMETADATA start");
    layout->SetStartTagSuffix("-->");
    layout->SetEndTagPrefix("<!--KITEMETADATA end");
    layout->SetEndTagSuffix("-->");
    layout->LoadText(html);
    return layout;
}

} // namespace paperkite
