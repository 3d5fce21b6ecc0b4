#pragma once

#include <QProxyStyle>

namespace paperkite {

/// Fusion, with the few parts drawn otherwise that it leaves hard to see: the state and the focus
/// of tool buttons, the edges of boxes to tick in the dark scheme, and plain lines as splitters.
/// What stands beside or around text grows with it.
class ThemeStyle : public QProxyStyle {
public:
    ThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
};

} // namespace paperkite
