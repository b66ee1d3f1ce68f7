/// The font that a text's parameters describe.
#pragma once

#include <QFont>

struct STextFont;

namespace shapes {

/// The size is in pixels, its fraction dropped; below 1 Qt's default size applies. In vertical writing the font draws
/// no underline. A family that is not installed is replaced by Qt.
QFont MakeFont(const STextFont& font);

/// value without its fraction, clamped to the range of int; 0 for NaN.
int WholePixels(double value);

} // namespace shapes
