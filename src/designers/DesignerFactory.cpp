#include "designers/DesignerFactory.h"

#include "designers/dsrHTMLEdit.h"
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
