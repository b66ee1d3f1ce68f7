/// Reads SVG drawings into shapes.
#pragma once

#include "document/WorkProgress.h"
#include "svg/DrawingReport.h"

#include "shape/Shape.h"

#include <QByteArray>
#include <QSizeF>
#include <QString>

#include <memory>
#include <vector>

namespace shapedocument {

/// How a drawing is read.
struct DrawingOptions
{
    bool flatten = false;    ///< polylines of fine straight pieces instead of curves
    bool solid = false;      ///< dashed lines become solid
    bool visible = false;    ///< what later opaque fills hide is left out
    bool crop = false;       ///< outlines are cut at the page
    bool fills = false;      ///< filled areas get the fill marker, so that machines can engrave them; white ones do not
    bool textAsText = false; ///< texts stay texts where a text shape draws what is painted, within 0.05 mm
};

/// A drawing as it was read.
struct DrawingImport
{
    std::vector<std::unique_ptr<CShape>> shapes; ///< in painting order; mm, y down, the page's corner at the origin
    QSizeF page;                                 ///< mm
    DrawingReport report;                        ///< differences from the painted drawing
    QString error;                               ///< why nothing was read; empty when the drawing was
};

/// Imports the outlines of everything that the drawing paints, at 96 user units to the inch: one shape for each painted
/// path, with exact curves. Pictures are imported where the image stores are set (CShapeImage::SetImageMgr). Filled
/// areas are closed; a line with a width becomes its centre line. What a clip hides is cut off; filters and masks are
/// ignored. Cost: the renderer's, and O(n log n) in the painted elements; docs/drawings.md has figures.
/// @param bytes the drawing, plain or compressed.
/// @param baseFile its file, for pictures that lie beside it; empty for none.
/// @param options how the drawing is read.
/// @param progress may be empty.
/// @throw Stopped where progress returns false, after the renderer has finished its present step.
SHAPEDOCUMENT_EXPORT DrawingImport ImportDrawing(QByteArray bytes, const QString& baseFile,
                                                 const DrawingOptions& options, const WorkProgress& progress = {});

} // namespace shapedocument
