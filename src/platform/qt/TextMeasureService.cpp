#include "platform/qt/TextMeasureService.h"

#include "platform/qt/Conversions.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>

namespace paperkite {

std::string TextMeasureService::FitWithEllipsis(const std::string& text, int width) const {
    const QFontMetrics metrics(QApplication::font("QCheckBox"));
    return FromQString(metrics.elidedText(ToQString(text), Qt::ElideRight, width));
}

int TextMeasureService::CheckBoxGlyphWidth() const {
    const QStyle& style = *QApplication::style();
    return style.pixelMetric(QStyle::PM_IndicatorWidth) +
           style.pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
}

} // namespace paperkite
