/// The font that a text's parameters ask for.
#pragma once

#include <QFont>

struct STextFont;

namespace shapes {

/// Size is a pixel size without its fraction; below 1 the platform's default size applies. In vertical writing the font
/// draws no underline. A family that is not installed is replaced by the platform.
QFont MakeFont(const STextFont& font);

/// Without its fraction; beyond int the nearest int, 0 for what is no number.
int WholePixels(double value);

} // namespace shapes
