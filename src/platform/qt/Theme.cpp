#include "platform/qt/Theme.h"

#include "platform/qt/Icons.h"
#include "platform/qt/ThemeStyle.h"

#include <QEvent>
#include <QFont>
#include <QToolTip>

#include <algorithm>

namespace paperkite {

namespace {

struct Colours {
    const char* Window;
    const char* Base;
    const char* Text;
    const char* QuietText;
    const char* Lines;
    const char* Highlight;
    const char* HighlightedText;
    const char* Link;
    const char* HeaderRow;
    const char* Button;
    const char* UnfocusedSelection;
};

// Each text keeps a contrast of 4.5 to 1 on each ground that it stands on.
constexpr Colours kLight{"#eff0f1", "#ffffff", "#232629", "#5e6869", "#c9cdd1", "#3daee9",
                         "#17191b", "#2471a3", "#e3e5e7", "#fcfcfc", "#d3ecf9"};
constexpr Colours kDark{"#2a2e32", "#1b1e20", "#eceff1", "#9aa2a7", "#42474c", "#2a78a8",
                        "#ffffff", "#4fb3f0", "#31363b", "#31363b", "#1f3442"};

void Set(QPalette& palette, QPalette::ColorRole role, const char* colour) {
    palette.setColor(role, QColor(QLatin1String(colour)));
}

} // namespace

Theme::Theme(QApplication& application)
    : mApplication(application), mSystemFont(application.font()) {
    mApplication.setStyle(new ThemeStyle);
    Icons::UseBreeze();
    mApplication.installEventFilter(this);
    Apply();
}

void Theme::SetScheme(ColourScheme scheme) {
    mScheme = scheme;
    Apply();
}

void Theme::SetTextScale(int percent) {
    mTextScale = std::clamp(percent, 100, 200);
    mApplication.setProperty(kTextScaleProperty, mTextScale);
    QFont font = mSystemFont;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * mTextScale / 100);
    else
        font.setPixelSize(font.pixelSize() * mTextScale / 100);
    mApplication.setFont(font);
}

int Theme::Scaled(int length) {
    const QVariant scale = qApp->property(kTextScaleProperty);
    return scale.isValid() ? length * scale.toInt() / 100 : length;
}

QPalette Theme::PaletteOf(bool dark) {
    const Colours& colours = dark ? kDark : kLight;
    QPalette palette(QColor(QLatin1String(colours.Button)), QColor(QLatin1String(colours.Window)));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText})
        Set(palette, role, colours.Text);
    Set(palette, QPalette::Base, colours.Base);
    Set(palette, QPalette::ToolTipBase, colours.Base);
    Set(palette, QPalette::AlternateBase, colours.HeaderRow);
    Set(palette, QPalette::PlaceholderText, colours.QuietText);
    Set(palette, QPalette::Mid, colours.Lines);
    Set(palette, QPalette::Midlight, colours.UnfocusedSelection);
    Set(palette, QPalette::Highlight, colours.Highlight);
    Set(palette, QPalette::HighlightedText, colours.HighlightedText);
    Set(palette, QPalette::Link, colours.Link);
    Set(palette, QPalette::LinkVisited, colours.Link);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::PlaceholderText));
    return palette;
}

void Theme::Apply() {
    if (mApplying) return;
    mApplying = true;
    mDark = mScheme == ColourScheme::Dark || (mScheme == ColourScheme::System && SystemIsDark());
    Icons::UseDark(mDark);
    mApplication.setPalette(PaletteOf(mDark));
    QToolTip::setPalette(mApplication.palette());
    mApplying = false;
}

bool Theme::SystemIsDark() {
    // An unset palette is the window system's own.
    mApplication.setPalette(QPalette());
    return mApplication.palette().color(QPalette::Window).lightness() < 128;
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ThemeChange && mScheme == ColourScheme::System) Apply();
    return QObject::eventFilter(watched, event);
}

} // namespace paperkite
