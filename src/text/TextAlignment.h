/// Alignment of line rectangles against each other.
#pragma once

#include "text/TextParameters.h"

#include <QList>
#include <QRectF>

namespace shapes {

/// Moves the rectangles horizontally as the mode says; unknown modes align left.
void AlignLines(QList<QRectF>& lines, ETEXTALIGNMENT_MODE mode);

} // namespace shapes
