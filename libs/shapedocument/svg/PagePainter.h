/// Painting an SVG drawing onto a vector page.
#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QStringList>
#include <QTransform>

#include <functional>

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
    PaintedPage texts; ///< every text by itself, each followed by a ground
};

/// Says why a drawing is refused; empty where it is not.
using JudgePage = std::function<QString(const PaintedPage&)>;

enum class Grid
{
    Fine,  ///< kGridPerMm
    Coarse ///< kCoarse times coarser, for what the fine one loses: letters above 1.6 m, clips 100 m away
};

/// Paints the drawing, at 96 user units to the inch, on a page large enough for what lies beside its own. Filters,
/// masks and blend modes are not painted. Nothing is loaded: what is not embedded does not appear. The renderer follows
/// references recursively; it runs on a stack of its own that suffices for kMostNested levels.
/// @param texts the ids of those to be painted by themselves, too; an empty one paints nothing.
/// @param judge may be null; is shown the drawing painted kOverview times coarser before the page is painted, so that
/// both are not held at the same time.
PaintedDrawing PaintDrawing(QByteArray svg, Grid grid, const QStringList& texts, const JudgePage& judge);

/// Steps of the grid on which the painted points stand: less than 0.0001 mm each. The page's corner is on it.
constexpr double kGridPerMm = 40 * 256;

/// mm from the page's corner; the page's numbers end not far behind and begin anew at the other side.
constexpr double kReach = 50'000;

/// No power of two: numbers too large for both pages do not end at the same place.
constexpr double kOverview = 500;

constexpr int kCoarse = 32;

/// Levels of elements, references included, that PaintDrawing has room for.
constexpr int kMostNested = 5000;

} // namespace shapedocument::drawing
