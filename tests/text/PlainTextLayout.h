/// Text layout in its plain form: whole measure paths that grow, asked for their rectangle after every character.
/// Quadratic in the length of a line; what the library's own layout is compared and timed with.
#pragma once

#include "text/TextParameters.h"

#include <QList>
#include <QPainterPath>

namespace test {

QList<QRectF> PlainLineRects(const SText& text);
QPainterPath PlainOutline(const SText& text);

} // namespace test
