#include "designers/DesignerFactory.h"

#include "designers/dsrCommentsFrom.h"
#include "designers/dsrExampleSource.h"
#include "designers/dsrHTMLEdit.h"
#include "designers/dsrIsExample.h"
#include "designers/dsrIsNew.h"
#include "designers/dsrKeywords.h"
#include "designers/dsrMenuItem.h"
#include "designers/dsrSubItem.h"
#include "designers/dsrXMLIsland.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

struct DesignerClass {
    const char* ProgID;
    Ref<DesignerControl> (*Make)(const std::string& name);
};

template <class Designer>
Ref<DesignerControl> Make(const std::string& name) {
    return MakeRef<Designer>(name);
}

constexpr DesignerClass kClasses[] = {
    {"GlossmakerDesigners.dsrHTMLEdit", &Make<dsrHTMLEdit>},
    {"Kite4CommentDesigners.dsrHTMLEdit", &Make<dsrHTMLEdit>},
    {"Kite4CommentDesigners.dsrIsExample", &Make<dsrIsExample>},
    {"Kite4CommentDesigners.dsrCommentsFrom", &Make<dsrCommentsFrom>},
    {"Kite4CommentDesigners.dsrMenuItem", &Make<dsrMenuItem>},
    {"Kite4CommentDesigners.dsrKeywords", &Make<dsrKeywords>},
    {"Kite4CommentDesigners.dsrExampleSource", &Make<dsrExampleSource>},
    {"Kite4CommentDesigners.dsrXMLIsland", &Make<dsrXMLIsland>},
    {"Kite4CommentDesigners.dsrSubItem", &Make<dsrSubItem>},
    {"Kite4CommentDesigners.dsrIsNew", &Make<dsrIsNew>},
};

} // namespace

Ref<DesignerControl> MakeDesigner(const std::string& progID) {
    for (const DesignerClass& entry : kClasses)
        if (EqualIgnoringCase(entry.ProgID, progID))
            return entry.Make(ReplaceAll(entry.ProgID, ".", ""));
    RaiseError(
        ErrorNumber::CannotCreateComponent,
        "There is no comment designer \"" + progID +
            "\". Look at the attribute DesignerProgID of the tag in the configuration of the "
            "comment tags.");
}

} // namespace paperkite
