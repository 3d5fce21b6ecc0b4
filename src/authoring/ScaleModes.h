#pragma once

namespace paperkite {

/// The units in which sizes are told: 1 twips, 2 points, 3 pixels, 4 characters, 5 inches,
/// 6 millimetres, 7 centimetres.
enum class ScaleMode { Twips = 1, Points, Pixels, Characters, Inches, Millimetres, Centimetres };

/// A pixel counts as 15 twips, whatever the resolution of the screen.
inline constexpr double kTwipsPerPixel = 15;

/// A width or height in another unit. An unknown unit is error 5.
double ScaleX(double Width, ScaleMode FromScale, ScaleMode ToScale);
double ScaleY(double Height, ScaleMode FromScale, ScaleMode ToScale);

} // namespace paperkite
