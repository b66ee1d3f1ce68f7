/// Paints an SVG drawing on a vector page.
#pragma once

#include "document/WorkProgress.h"
#include "plane/Length.h"
#include "svg/HeldPictures.h"
#include "svg/PaintedItems.h"

#include <QByteArray>
#include <QSizeF>
#include <QStringList>

#include <functional>
#include <vector>

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
    bool solid = false;            ///< without dashes
    std::vector<HeldPicture> held; ///< whose places the drawing holds
    QStringList texts;             ///< ids of texts that are also painted singly; an empty id paints nothing
    /// may be null; receives the items of an overview, painted first and kOverview times coarser
    ItemVisit overviewItem;
    /// called after the overview; returns why the drawing is refused, empty if it is not
    std::function<QString()> judge;
    ItemVisit textItem;    ///< receives the items of texts, each text followed by a ground that fills the page
    ItemVisit item;        ///< receives the items of the page
    WorkProgress progress; ///< may be empty
};

struct PaintResult
{
    QSizeF page; ///< mm
    QString error;
};

/// Paints the drawing, at 96 user units to the inch, on a page large enough for what lies beside the drawing's own
/// page, and calls the visitors with what is painted; items in mm, y down, the page's corner at the origin. Filters,
/// masks and blend modes are not painted. No files are loaded: only embedded pictures appear. The renderer follows
/// references recursively; it runs in a thread whose stack suffices for kMostNested levels. Throws std::bad_alloc, and
/// Stopped after the renderer has finished its present step: reading the drawing, or painting a page.
PaintResult PaintDrawing(PaintTask task);

/// Whether a picture that is painted on a page is found on it. Where it is not, HoldPictures helps.
bool PagesKeepPictures();

/// Whether a path is painted that has points farther than kPaintedReach. Newer renderers leave it out without a word.
bool PagesKeepFarPaths();

constexpr double kMmPerUnit = kMmPerInch / 96; ///< of user units

/// Steps per mm of the grid of painted points: one is less than 0.0001 mm. The page's corner is on it.
constexpr double kGridPerMm = 40 * 256;

/// mm from the page's corner; a little beyond, the page's coordinates wrap around.
constexpr double kPageReach = 50'000;

/// mm from the page's corner; what lies farther has no place even on the overview.
constexpr double kPaintedReach = 55e6;

/// Not a power of two, so that a coordinate that wraps on both pages does not appear at the same place.
constexpr double kOverview = 500;

constexpr int kCoarse = 32;

/// Levels of nested elements, references included, for which PaintDrawing has a stack.
constexpr int kMostNested = 5000;

} // namespace shapedocument::drawing
