#include "widgets/HeaderBar.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr int kMargin = 3;
constexpr int kPictureSize = 16;

} // namespace

HeaderBar::HeaderBar(std::string name)
    : Control(std::move(name)), imgPicture(MakeRef<PictureBox>("imgPicture")),
      lblText(MakeRef<Label>("lblText")) {
    zInitialise();
}

void HeaderBar::DumpVariables(VariableDump& dump) const {
    dump.Add("pLightFont", pLightFont)
        .Add("pRightAlignedImage", pRightAlignedImage)
        .Add("pHotTracking", pHotTracking)
        .Add("pPicture", pPicture.Name)
        .Add("iHot", iHot);
}

void HeaderBar::zInitialise() {
    Procedure(*this, "zInitialise", [&](Frame&) {
        mConnections.push_back(
            ioeTracking.Events.MouseHover.Connect([this] { ioeTracking_MouseHover(); }));
        mConnections.push_back(
            ioeTracking.Events.MouseLeave.Connect([this] { ioeTracking_MouseLeave(); }));
        mConnections.push_back(
            ControlEvents.Resize.Connect([this](int, int) { UserControl_Resize(); }));
        ioeTracking.Stop();
        zDraw();
    });
}

void HeaderBar::zDraw() {
    Procedure(*this, "zDraw", [&](Frame&) {
        lblText->SetFont(pLightFont ? FontDescription{"Tahoma", 8, false, false}
                                    : FontDescription{"Verdana", 10, true, false});
        mBandColor = iHot ? iColors.Highlight : kButtonShadow;
        mTextColor = iHot ? iColors.Text : kInverseWindowText;
        imgPicture->SetPicture(pPicture);
        imgPicture->SetVisible(!pPicture.IsEmpty());
        UserControl_Resize();
        TellChanged();
    });
}

void HeaderBar::SetHotTracking(bool value) {
    pHotTracking = value;
    zDraw();
}

void HeaderBar::SetRightAlignedImage(bool value) {
    pRightAlignedImage = value;
    zDraw();
}

void HeaderBar::SetLightFont(bool value) {
    pLightFont = value;
    zDraw();
}

void HeaderBar::SetPicture(const Picture& value) {
    pPicture = value;
    zDraw();
}

void HeaderBar::SetText(const std::string& value) {
    Procedure(*this, "Text", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        lblText->SetCaption(value);
        zDraw();
        Events.PropertyChanged.Raise("Text");
    });
}

void HeaderBar::zTrack() {
    Procedure(*this, "zTrack", [&](Frame&) {
        if (ioeTracking.GetHoverRunning() || !pHotTracking) return;
        ioeTracking.Start();
        iHot = true;
        zDraw();
    });
}

void HeaderBar::ioeTracking_MouseHover() {
    Procedure(*this, "ioeTracking_MouseHover", [&](Frame&) { ioeTracking.Start(); });
}

void HeaderBar::ioeTracking_MouseLeave() {
    Procedure(*this, "ioeTracking_MouseLeave", [&](Frame&) {
        // Lit bars go out here, also those whose tracking was turned off meanwhile.
        if (!pHotTracking && !iHot) return;
        iHot = false;
        zDraw();
    });
}

void HeaderBar::UserControl_Resize() {
    const int width = GetWidth();
    const int height = GetHeight();
    const bool hasPicture = !pPicture.IsEmpty();
    const int pictureLeft = pRightAlignedImage ? width - kMargin - kPictureSize : kMargin;
    imgPicture->Move(pictureLeft, (height - kPictureSize) / 2, kPictureSize, kPictureSize);
    const bool behindPicture = hasPicture && !pRightAlignedImage;
    const int left = behindPicture ? kMargin + kPictureSize + kMargin : kMargin;
    const bool beforePicture = hasPicture && pRightAlignedImage;
    const int right = beforePicture ? pictureLeft - kMargin : width - kMargin;
    // The view centres the line in the label, which is as high as the strip.
    lblText->Move(left, 0, std::max(0, right - left), height);
}

void HeaderBar::UserControl_ReadProperties(const PropertyBag& PropBag) {
    Procedure(*this, "UserControl_ReadProperties", [&](Frame&) {
        pHotTracking = PropBag.ReadProperty("HotTracking", false).ToBoolean();
        pRightAlignedImage = PropBag.ReadProperty("RightAlignedImage", false).ToBoolean();
        lblText->SetCaption(PropBag.ReadProperty("Text", std::string()).ToText());
        pLightFont = PropBag.ReadProperty("LightFont", false).ToBoolean();
        pPicture = {PropBag.ReadProperty("Picture", std::string()).ToText(), {}, {}};
        zDraw();
    });
}

void HeaderBar::UserControl_WriteProperties(PropertyBag& PropBag) const {
    Procedure(*this, "UserControl_WriteProperties", [&](Frame&) {
        PropBag.WriteProperty("HotTracking", pHotTracking);
        PropBag.WriteProperty("RightAlignedImage", pRightAlignedImage);
        PropBag.WriteProperty("Text", GetText());
        PropBag.WriteProperty("LightFont", pLightFont);
        PropBag.WriteProperty("Picture", pPicture.Name);
    });
}

Bounds HeaderBar::zPosition(int x, int y, Part part) const {
    Bounds position{x, y, 0, 0};
    if (part == Part::Strip) return position;
    const Bounds& child = part == Part::Picture ? imgPicture->GetBounds() : lblText->GetBounds();
    position.Left += child.Left;
    position.Top += child.Top;
    return position;
}

void HeaderBar::UserClick() {
    if (AcceptsGestures()) Events.Click.Raise();
}

void HeaderBar::UserDblClick() {
    if (AcceptsGestures()) Events.DblClick.Raise();
}

void HeaderBar::UserMouseDown(int button, int shift, int x, int y, Part part) {
    if (!AcceptsGestures()) return;
    const Bounds at = zPosition(x, y, part);
    Events.MouseDown.Raise(button, shift, at.Left, at.Top);
}

void HeaderBar::UserMouseMove(int button, int shift, int x, int y, Part part) {
    if (!AcceptsGestures()) return;
    zTrack();
    const Bounds at = zPosition(x, y, part);
    Events.MouseMove.Raise(button, shift, at.Left, at.Top);
}

void HeaderBar::UserMouseUp(int button, int shift, int x, int y, Part part) {
    if (!AcceptsGestures()) return;
    const Bounds at = zPosition(x, y, part);
    Events.MouseUp.Raise(button, shift, at.Left, at.Top);
}

} // namespace paperkite
