#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
#include "widgets/Button.h"
#include "widgets/ColourHexagon.h"
#include "widgets/ColourPicker.h"
#include "widgets/ColourSwatch.h"
#include "widgets/ComboBox.h"
#include "widgets/Form.h"
#include "widgets/Label.h"

#include <cstdint>
#include <optional>

namespace paperkite {

/// The dialog that asks for a colour: from a honeycomb of base colours, from a list of named ones,
/// or from the system's own dialog. Colours are R + 256 * G + 65536 * B.
///
///     auto form = MakeRef<frmBrowseHTMLColor>();
///     form->Initialize(colour);
///     form->Show(FormMode::Modal);
///     if (!form->GetCancelled()) colour = form->GetSelectedColor();
///
/// Needs the services MessageBox and, for the button, ChooseColour.
class frmBrowseHTMLColor : public Form, public Shielded {
public:
    frmBrowseHTMLColor();

    const char* ModuleName() const override { return "frmBrowseHTMLColor"; }
    void DumpVariables(VariableDump& dump) const override;

    /// Begins with that colour.
    void Initialize(std::int32_t Color);

    /// The colour of the chosen list entry, otherwise that of the list's text; 0 for a text that
    /// names no colour.
    std::int32_t GetSelectedColor();

    /// True unless the author left the dialog with OK.
    bool GetCancelled() const { return Cancelled; }

    Ref<ColourHexagon> chxBase;
    Ref<Label> lblColor;
    /// Each entry bears the colour's name, its number as data, "#" and its digits as key, both
    /// forms as tool tip, and a swatch.
    Ref<ComboBox> cboColor;
    Ref<ColourSwatch> swaPreview;
    Ref<Button> cmdCustom;
    Ref<ColourPicker> cpkWork;
    Ref<Button> cmdOK;
    Ref<Button> cmdCancel;

private:
    void MakeControls();
    void MakeList();
    void MakeSwatches();
    void LayOut();
    void Connect();
    void chxBase_Change();
    void cboColor_Click();
    void cboColor_Change();
    void cmdCustom_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void Form_QueryUnload(bool& Cancel);
    void zShowPreview();
    std::optional<std::int32_t> zColorOfText();

    InstanceCount mInstanceCount{"frmBrowseHTMLColor", ComponentType::Form};
    bool Cancelled = true;
    bool mTyping = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
