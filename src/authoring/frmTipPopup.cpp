#include "authoring/frmTipPopup.h"

#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr int kMargin = 8;
constexpr int kTipWidth = 320;
// A view measures the text with its own font; without one a line holds some fifty letters.
constexpr int kLettersPerLine = 52;
constexpr int kLineHeight = 18;

std::size_t LinesOf(const std::string& html) {
    std::size_t lines = 1;
    std::size_t letters = 0;
    bool inTag = false;
    std::string tag;
    const auto endLine = [&] {
        ++lines;
        letters = 0;
    };
    for (const char letter : html) {
        if (letter == '<') {
            inTag = true;
            tag.clear();
        } else if (letter == '>') {
            inTag = false;
            if (EqualIgnoringCase(tag, "br") || EqualIgnoringCase(tag, "/p")) endLine();
        } else if (inTag) {
            tag += letter;
        } else if (++letters > kLettersPerLine) {
            endLine();
        }
    }
    return lines;
}

} // namespace

frmTipPopup::frmTipPopup() : Form("frmTipPopup") {
    Tip = Controls.Make<Label>("Tip");
    Tip->SetRichText(true);
    Tip->SetWordWrap(true);
    Tip->Move(kMargin, kMargin, kTipWidth, kLineHeight);
    SetLayout(FormLayout::Column({FormLayout::Item(Tip)}));
}

void frmTipPopup::SetTipText(const std::string& value) {
    Procedure(*this, "TipText", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        Tip->SetCaption(ReplaceAll(value, "\r\n", "<BR>"));
        Tip->SetHeight(static_cast<int>(LinesOf(Tip->GetCaption())) * kLineHeight);
        SetHeight(Tip->GetHeight() + 2 * Tip->GetTop());
        SetWidth(Tip->GetWidth() + 2 * Tip->GetLeft());
    });
}

} // namespace paperkite
