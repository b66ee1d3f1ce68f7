#include "text/TextAlignment.h"

#include <algorithm>

namespace shapes {

namespace {

void AlignLeftText(QList<QRectF>& lines)
{
    double left = lines.constFirst().left();
    for (const QRectF& line : lines)
        left = std::min(left, line.left());
    for (QRectF& line : lines)
        line.moveLeft(left);
}

/// The first line is the reference, also when others are wider.
void AlignHorzText(QList<QRectF>& lines)
{
    const auto centre = [](const QRectF& line) { return (line.left() + line.right()) / 2; };
    const double reference = centre(lines.constFirst());
    for (QRectF& line : lines)
        line.translate(reference - centre(line), 0);
}

void AlignRightText(QList<QRectF>& lines)
{
    double right = lines.constFirst().right();
    for (const QRectF& line : lines)
        right = std::max(right, line.right());
    for (QRectF& line : lines)
        if (line.right() < right)
            line.moveRight(right);
}

} // namespace

void AlignLines(QList<QRectF>& lines, ETEXTALIGNMENT_MODE mode)
{
    if (lines.isEmpty())
        return;
    switch (mode) {
    case ETEXTALIGNMENT_CENTER:
        return AlignHorzText(lines);
    case ETEXTALIGNMENT_RIGHT:
        return AlignRightText(lines);
    default:
        return AlignLeftText(lines);
    }
}

} // namespace shapes
