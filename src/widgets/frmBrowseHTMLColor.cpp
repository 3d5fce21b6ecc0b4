#include "widgets/frmBrowseHTMLColor.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"
#include "widgets/DialogButtons.h"
#include "widgets/PropertyValues.h"
#include "widgets/WebColours.h"

namespace paperkite {

namespace {

/// 0xRRGGBB, as controls are painted.
std::uint32_t Painted(std::int32_t colour) {
    const auto parts = WebColours::ToComponents(colour);
    return static_cast<std::uint32_t>(parts.Red << 16 | parts.Green << 8 | parts.Blue);
}

std::string WhyNoColour(const std::string& text) {
    return (TrimWhiteSpace(text).empty() ? std::string("No color is chosen.")
                                         : PropertyValues::Quoted(text) + " is no color.") +
           " Choose one from the list, or type one, such as #FAEBD7 or 250,235,215.";
}

} // namespace

frmBrowseHTMLColor::frmBrowseHTMLColor() : Form("frmBrowseHTMLColor") {
    SetCaption("Browse Color");
    Move(0, 0, 560, 380);
    MakeControls();
    MakeList();
    LayOut();
    Connect();
    Initialize(0);
}

void frmBrowseHTMLColor::DumpVariables(VariableDump& dump) const {
    dump.Add("Cancelled", Cancelled);
}

void frmBrowseHTMLColor::MakeControls() {
    chxBase = Controls.Make<ColourHexagon>("chxBase");
    chxBase->SetAccessibleName("Base colors");
    lblColor = Controls.Make<Label>("lblColor");
    lblColor->SetCaption("C&olor:");
    cboColor = Controls.Make<ComboBox>("cboColor");
    cboColor->SetEditable(true);
    cboColor->SetAccessibleName("Color");
    cboColor->SetToolTipText("Choose a color, or type one, such as #FAEBD7 or 250,235,215");
    swaPreview = Controls.Make<ColourSwatch>("swaPreview");
    swaPreview->SetAccessibleName("Chosen color");
    cmdCustom = Controls.Make<Button>("cmdCustom");
    cmdCustom->SetCaption("&Custom...");
    cpkWork = Controls.Make<ColourPicker>("cpkWork");
    const DialogButtons buttons = MakeDialogButtons(Controls);
    cmdOK = buttons.OK;
    cmdCancel = buttons.Cancel;
}

void frmBrowseHTMLColor::MakeList() {
    for (const auto& named : WebColours::NamedColours()) {
        cboColor->AddItem(named.Text);
        const int index = cboColor->GetListCount() - 1;
        cboColor->SetItemData(index, named.Tag);
        cboColor->SetItemToolTipText(index, named.ToolTipText);
        cboColor->SetItemKey(index, named.Key);
    }
}

// The swatches are made from the entries' own numbers, whoever put them there.
void frmBrowseHTMLColor::MakeSwatches() {
    for (int index = 0; index < cboColor->GetListCount(); ++index)
        cboColor->SetItemSwatch(index, Painted(std::stoi(cboColor->GetItemData(index))));
}

void frmBrowseHTMLColor::LayOut() {
    SetLayout(FormLayout::Column({
        FormLayout::Row(
            {
                FormLayout::Item(chxBase, 1),
                FormLayout::Column({
                    FormLayout::Item(lblColor),
                    FormLayout::Item(cboColor),
                    FormLayout::Item(swaPreview),
                    FormLayout::Item(cmdCustom),
                    FormLayout::Stretch(),
                }),
            },
            1),
        FormLayout::Buttons({cmdOK, cmdCancel}),
    }));
}

void frmBrowseHTMLColor::Connect() {
    const auto keep = [this](Connection connection) {
        mConnections.push_back(std::move(connection));
    };
    keep(Events.Shown.Connect([this] {
        Procedure(*this, "Form_Load", [&](Frame&) {
            Cancelled = true;
            MakeSwatches();
        });
    }));
    keep(Events.QueryClose.Connect([this](bool& cancel) { Form_QueryUnload(cancel); }));
    keep(chxBase->Events.Change.Connect([this] { chxBase_Change(); }));
    keep(chxBase->Events.DblClick.Connect([this] { cmdOK_Click(); }));
    keep(cboColor->Events.Click.Connect([this] { cboColor_Click(); }));
    keep(cboColor->Events.Change.Connect([this] { cboColor_Change(); }));
    keep(cmdCustom->Events.Click.Connect([this] { cmdCustom_Click(); }));
    keep(cmdOK->Events.Click.Connect([this] { cmdOK_Click(); }));
    keep(cmdCancel->Events.Click.Connect([this] { cmdCancel_Click(); }));
}

void frmBrowseHTMLColor::Initialize(std::int32_t Color) {
    Procedure(*this, "Initialize", [&](Frame& frame) {
        Watch watchColor(frame, "Color", Color);
        const bool changes = chxBase->GetColor() != Color;
        chxBase->SetColor(Color);
        // The hexagon tells of new colours only; the list is to follow in any case.
        if (!changes) chxBase_Change();
    });
}

std::int32_t frmBrowseHTMLColor::GetSelectedColor() {
    return Procedure<std::int32_t>(*this, "SelectedColor", [&](std::int32_t& result, Frame&) {
        const int index = cboColor->GetListIndex();
        if (index >= 0)
            result = std::stoi(cboColor->GetItemData(index));
        else
            result = zColorOfText().value_or(0);
    });
}

std::optional<std::int32_t> frmBrowseHTMLColor::zColorOfText() {
    int Red = 0;
    int Green = 0;
    int Blue = 0;
    if (!cpkWork->TextToComponents(cboColor->GetText(), Red, Green, Blue)) return {};
    return WebColours::FromComponents({Red, Green, Blue});
}

void frmBrowseHTMLColor::cboColor_Click() {
    Procedure(*this, "cboColor_Click", [&](Frame&) {
        const int index = cboColor->GetListIndex();
        if (index >= 0) chxBase->SetColor(std::stoi(cboColor->GetItemData(index)));
    });
}

// What the author types shows in the hexagon and the preview as soon as it is a colour, and stays
// as it was typed.
void frmBrowseHTMLColor::cboColor_Change() {
    Procedure(*this, "cboColor_Change", [&](Frame&) {
        const auto colour = zColorOfText();
        if (!colour || mTyping) return;
        mTyping = true;
        const ScopeExit done([this] { mTyping = false; });
        chxBase->SetColor(*colour);
    });
}

void frmBrowseHTMLColor::chxBase_Change() {
    Procedure(*this, "chxBase_Change", [&](Frame&) {
        const std::int32_t Color = chxBase->GetColor();
        const std::string Tag = std::to_string(Color);
        int found = -1;
        // All entries are looked at: the last one of that colour counts.
        for (int index = 0; index < cboColor->GetListCount(); ++index)
            if (cboColor->GetItemData(index) == Tag) found = index;
        if (!mTyping) {
            cboColor->SetListIndex(found);
            if (found < 0) cboColor->SetText(cpkWork->ColorToText(Color));
        }
        zShowPreview();
    });
}

void frmBrowseHTMLColor::zShowPreview() {
    const std::int32_t colour = chxBase->GetColor();
    swaPreview->SetColor(colour);
    swaPreview->SetCaption(WebColours::Text(colour) + "\n" + WebColours::ComponentsText(colour));
}

void frmBrowseHTMLColor::cmdCustom_Click() {
    Procedure(*this, "cmdCustom_Click", [&](Frame&) {
        const auto colour = cpkWork->ShowCustom(chxBase->GetColor());
        if (colour) Initialize(*colour);
    });
}

void frmBrowseHTMLColor::cmdOK_Click() {
    Procedure(*this, "cmdOK_Click", [&](Frame&) {
        if (cboColor->GetListIndex() < 0 && !zColorOfText()) {
            Required(CurrentServices().MessageBox)
                .Show(WhyNoColour(cboColor->GetText()), GetCaption(), MessageIcon::Warning);
            cboColor->SetFocus();
            return;
        }
        Cancelled = false;
        Hide();
    });
}

void frmBrowseHTMLColor::cmdCancel_Click() {
    Procedure(*this, "cmdCancel_Click", [&](Frame&) {
        Cancelled = true;
        Hide();
    });
}

void frmBrowseHTMLColor::Form_QueryUnload(bool& Cancel) {
    Procedure(*this, "Form_QueryUnload", [&](Frame&) {
        Cancel = true;
        cmdCancel_Click();
    });
}

} // namespace paperkite
