#include "authoring/PageName.h"
#include "authoring/ProjectEditor.h"

#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr const char* kTitle = "Paperkite";
constexpr std::string_view kFileScheme = "file://";
constexpr std::string_view kPageEnding = ".html";
constexpr int kShowMaximised = 3;

void Tell(const std::string& text) {
    Required(CurrentServices().MessageBox).Show(text, kTitle, MessageIcon::Information);
}

} // namespace

void ProjectEditor::cEditor_HyperlinkClick(const std::string& hRef) {
    Procedure(*this, "cEditor_HyperlinkClick", [&](Frame& frame) {
        Watch watchRef(frame, "hRef", hRef);
        const std::string link = ReplaceAll(hRef, "%20", " ");
        Local watchLink(frame, "link", link);
        if (link.find(kFileScheme) == std::string::npos) {
            Required(CurrentServices().Shell)
                .ShellExecute(static_cast<std::intptr_t>(splitMain->GetHWnd()), "open", link, {},
                              {}, kShowMaximised);
            return;
        }
        std::string sTmp = link.substr(link.rfind('/') + 1);
        Local watchTmp(frame, "sTmp", sTmp);
        if (sTmp.starts_with('#')) sTmp = PageName::Decoded(sTmp);
        if (sTmp == "#")
            Tell("This hyperlink shows a popup bubble");
        else if (sTmp.starts_with('#'))
            Tell("This hyperlink navigates to a bookmark in this topic (" + sTmp + ")");
        if (sTmp.empty() || sTmp.starts_with('#')) return;
        sTmp = PageName::Decoded(PageName::OfAddress(link));
        std::string PageLayoutSuffix;
        if (!Project.SelectItem(sTmp)) {
            PageLayoutSuffix = PageName::CutLayoutSuffix(sTmp);
            if (!Project.SelectItem(sTmp))
                Tell("Could not navigate this link as it appears to point to an item outside of "
                     "this project (" +
                     sTmp + ")");
        }
        zSelectLayout(sTmp, PageLayoutSuffix);
    });
}

void ProjectEditor::zSelectLayout(const std::string& sTmp, const std::string& PageLayoutSuffix) {
    const auto nd = cEditor.GetCurrentNamespaceDef();
    const auto pageTemplate = cEditor.GetInPlaceTemplate();
    if (!nd || !pageTemplate) return;
    for (const auto& pl : *pageTemplate->PageLayouts) {
        const bool candidate = (!pl->FileNameTemplate.empty() || PageLayoutSuffix.empty()) &&
                               EqualIgnoringCase(pl->Namespaces, nd->Name);
        if (!candidate) continue;
        const std::string fileName =
            ReplaceAllIgnoringCase(pl->FileNameTemplate, "%%itemqualifiedname%%",
                                   cEditor.GetCurrentCodeElement()->Get("QualifiedName").ToText());
        if (!PageLayoutSuffix.empty() &&
            !EqualIgnoringCase(sTmp + PageLayoutSuffix + std::string(kPageEnding), fileName))
            continue;
        cEditor.SelectInPlaceEditLayout(pl->Name);
        return;
    }
}

} // namespace paperkite
