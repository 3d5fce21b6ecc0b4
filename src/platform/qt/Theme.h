#pragma once

#include <QApplication>
#include <QFont>
#include <QObject>
#include <QPalette>

namespace paperkite {

enum class ColourScheme { System, Light, Dark };

/// The look of the whole application: the Fusion style, the light or dark colours, the icon theme
/// that goes with them, and the size of text. Views take their colours from the palette alone:
///
/// | role            | use                                        |
/// |-----------------|--------------------------------------------|
/// | PlaceholderText | quiet text                                 |
/// | Mid             | lines between parts                        |
/// | AlternateBase   | header rows and captions                   |
/// | Midlight        | the ground of a selected row without focus |
///
///     QApplication application(argc, argv);
///     Theme theme(application);
///     theme.SetScheme(ColourScheme::Dark);
class Theme : public QObject {
public:
    /// Takes the system's scheme and follows it live.
    explicit Theme(QApplication& application);

    ColourScheme GetScheme() const { return mScheme; }

    void SetScheme(ColourScheme scheme);

    /// Whether the colours in force are the dark ones.
    bool IsDark() const { return mDark; }

    /// Per cent of the system's text size, kept from 100 to 200.
    int GetTextScale() const { return mTextScale; }

    void SetTextScale(int percent);
    /// The application's property with that number, for what is not drawn in its font.
    static constexpr const char* kTextScaleProperty = "paperkiteTextScale";
    /// A length of 100 per cent, in pixels, at the text size of the application.
    static int Scaled(int length);

    static QPalette PaletteOf(bool dark);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Apply();
    bool SystemIsDark();

    QApplication& mApplication;
    QFont mSystemFont;
    ColourScheme mScheme = ColourScheme::System;
    int mTextScale = 100;
    bool mDark = false;
    bool mApplying = false;
};

} // namespace paperkite
