/// Painting an SVG drawing onto a vector page.
#pragma once

#include "document/WorkProgress.h"
#include "svg/PaintedItems.h"

#include <QByteArray>
#include <QSizeF>
#include <QStringList>

#include <functional>

namespace shapedocument::drawing {

enum class Grid
{
    Fine,  ///< kGridPerMm
    Coarse ///< kCoarse times coarser, for what the fine one loses: letters above 1.6 m, clips 100 m away
};

struct PaintTask
{
    QByteArray svg;
    Grid grid = Grid::Fine;
    bool solid = false;             ///< without dashes
    QStringList texts;              ///< the ids of those to be painted by themselves, too; an empty one paints nothing
    ItemVisit overviewItem;         ///< may be null; of the drawing painted kOverview times coarser, before the others
    std::function<QString()> judge; ///< says after the overview why the drawing is refused; empty where it is not
    ItemVisit textItem;             ///< of every text by itself, each followed by a ground that fills the page
    ItemVisit item;                 ///< of the page
    WorkProgress progress;          ///< may be empty
};

struct PaintResult
{
    QSizeF page; ///< mm
    QString error;
};

/// Paints the drawing, at 96 user units to the inch, on a page large enough for what lies beside its own, and shows
/// what is painted on it; items in mm, y down, the page's corner at the origin. Filters, masks and blend modes are not
/// painted. Nothing is loaded: what is not embedded does not appear. The renderer follows references recursively; it
/// runs on a stack of its own that suffices for kMostNested levels.
/// Throws std::bad_alloc, and Stopped once the renderer has ended what it is at: the reading of the drawing, or the
/// painting of a page.
PaintResult PaintDrawing(PaintTask task);

constexpr double kMmPerUnit = 25.4 / 96; ///< of user units

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
