/// Reading SVG drawings into machine outlines.
#pragma once

#include <QPainterPath>
#include <QRgb>
#include <QString>

#include <vector>

/// One painted path in millimetres, y down.
struct DrawnPath
{
    QPainterPath path;
    QRgb color = 0; ///< 0xRRGGBB
};

struct SvgDrawing
{
    std::vector<DrawnPath> paths; ///< in painting order
    int pictures = 0;             ///< pixel pictures, which have no outline
};

/// The outlines of everything that the drawing paints, at 96 user units to the inch. Filled areas are closed. Throws
/// Failure.
SvgDrawing ReadSvg(const QString& file);
