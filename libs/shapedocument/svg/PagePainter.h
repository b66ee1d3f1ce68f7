/// Painting an SVG drawing onto a vector page.
#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QString>
#include <QTransform>

namespace shapedocument::drawing {

/// A drawing as its renderer has painted it: an SVG of a small closed vocabulary, above a ground that fills the page.
struct PaintedPage
{
    QByteArray vectors;       ///< empty when error is not
    QTransform toMillimetres; ///< from the coordinates of vectors; y down, the page's corner at the origin
    QSizeF size;              ///< of the page, mm
    QString error;
};

struct PaintedDrawing
{
    PaintedPage page;
    PaintedPage overview; ///< the same, kOverview times coarser; of no use where page has an error
};

/// Paints the drawing, at 96 user units to the inch, on a page large enough for what lies beside its own. Filters, masks
/// and blend modes are not painted. Nothing is loaded: what is not embedded does not appear. The renderer follows
/// references recursively; it runs on a stack of its own that suffices for kMostNested levels.
PaintedDrawing PaintDrawing(QByteArray svg);

/// Steps of the grid on which the painted points stand: less than 0.0001 mm each. The page's corner is on it.
constexpr double kGridPerMm = 40 * 256;

/// mm from the page's corner; the page's numbers end not far behind and begin anew at the other side.
constexpr double kReach = 50'000;

/// No power of two: numbers too large for both pages do not end at the same place.
constexpr double kOverview = 500;

/// Levels of elements, references included, that PaintDrawing has room for.
constexpr int kMostNested = 5000;

} // namespace shapedocument::drawing
