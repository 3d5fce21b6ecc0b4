#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
#include "foundation/PropertyBag.h"
#include "widgets/Control.h"
#include "widgets/Label.h"
#include "widgets/MouseTracker.h"
#include "widgets/PictureBox.h"

#include <cstdint>
#include <string>
#include <vector>

namespace paperkite {

/// A caption strip: a picture at one end and a line of text on a filled band, which lights up while
/// the pointer rests on it where HotTracking is on.
///
/// Colours with the highest bit set are the system's own, by number; others are 0xRRGGBB.
class HeaderBar : public Control, public Shielded {
public:
    explicit HeaderBar(std::string name = {});

    const char* ModuleName() const override { return "HeaderBar"; }
    void DumpVariables(VariableDump& dump) const override;

    static constexpr std::uint32_t kButtonShadow = 0x80000010;
    static constexpr std::uint32_t kInverseWindowText = 0x80000009;
    static constexpr std::uint32_t kHighlight = 0x8000000D;
    static constexpr std::uint32_t kHighlightText = 0x8000000E;

    bool GetHotTracking() const { return pHotTracking; }
    /// A bar that is lit when it is turned off stays so until the pointer leaves.
    void SetHotTracking(bool value);
    /// Returns or sets if the image is aligned to the right of the control
    bool GetRightAlignedImage() const { return pRightAlignedImage; }
    void SetRightAlignedImage(bool value);
    bool GetLightFont() const { return pLightFont; }
    void SetLightFont(bool value);
    const Picture& GetPicture() const { return pPicture; }
    void SetPicture(const Picture& value);
    const std::string& GetText() const { return lblText->GetCaption(); }
    void SetText(const std::string& value);

    /// Whether the pointer is over the bar while it is tracked.
    bool GetHot() const { return iHot; }
    std::uint32_t GetBandColor() const { return mBandColor; }
    std::uint32_t GetTextColor() const { return mTextColor; }

    void UserControl_ReadProperties(const PropertyBag& PropBag);
    void UserControl_WriteProperties(PropertyBag& PropBag) const;

    struct {
        Event<> Click;
        Event<> DblClick;
        Event<int, int, int, int> MouseDown; ///< Button, Shift, X and Y in pixels
        Event<int, int, int, int> MouseMove;
        Event<int, int, int, int> MouseUp;
        Event<const std::string&> PropertyChanged; ///< name in the property bag
    } Events;

    /// What the pointer is on; positions on a child are relative to that child.
    enum class Part { Strip, Picture, Text };

    void UserClick();
    void UserDblClick();
    void UserMouseDown(int button, int shift, int x, int y, Part part = Part::Strip);
    void UserMouseMove(int button, int shift, int x, int y, Part part = Part::Strip);
    void UserMouseUp(int button, int shift, int x, int y, Part part = Part::Strip);

    /// 16 pixels wide and high; not visible without a picture.
    Ref<PictureBox> imgPicture;
    Ref<Label> lblText;

    MouseTracker ioeTracking;

private:
    struct ColourPair {
        std::uint32_t Highlight = kHighlight;
        std::uint32_t Text = kHighlightText;
    };

    void zInitialise();
    void zDraw();
    void zTrack();
    void ioeTracking_MouseHover();
    void ioeTracking_MouseLeave();
    void UserControl_Resize();
    /// A position on a child as one on the bar.
    Bounds zPosition(int x, int y, Part part) const;

    InstanceCount mInstanceCount{"HeaderBar", ComponentType::Control};
    bool pLightFont = false;
    bool pRightAlignedImage = false;
    bool pHotTracking = false;
    Picture pPicture;
    bool iHot = false;
    ColourPair iColors;
    std::uint32_t mBandColor = kButtonShadow;
    std::uint32_t mTextColor = kInverseWindowText;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
