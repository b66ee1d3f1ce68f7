#include "PlaceOptions.h"

#include "DocumentArguments.h"
#include "Messages.h"
#include "document/Failure.h"

#include "shape/Shape.h"

using namespace shapedocument;

namespace {

constexpr size_t kMostTableSide = 1'000'000; ///< columns, and rows

QPointF PointOf(const std::string& text)
{
    const QStringList parts = QString::fromStdString(text).split(',');
    bool numbers[2] = {false, false};
    const QPointF point =
        parts.size() == 2 ? QPointF(parts[0].toDouble(&numbers[0]), parts[1].toDouble(&numbers[1])) : QPointF();
    if (!numbers[0] || !numbers[1] || !WithinReach(point.x()) || !WithinReach(point.y()))
        throw UsageError{"--at: " + text + " is no X,Y within a kilometre"};
    return point;
}

/// The columns of "4" or "4x3". Throws UsageError if the table is too small for the drawings.
size_t ColumnsOf(const std::string& grid, size_t drawings)
{
    const QStringList parts = QString::fromStdString(grid).split('x');
    std::vector<size_t> sides;
    for (const QString& part : parts)
        sides.push_back(part.toULongLong());
    const auto impossible = [](size_t side) { return side == 0 || side > kMostTableSide; };
    if (sides.size() > 2 || std::any_of(sides.begin(), sides.end(), impossible))
        throw UsageError{"--grid: " + grid + " is neither COLUMNS nor COLUMNSxROWS"};
    if (sides.size() == 2 && sides[0] * sides[1] < drawings)
        throw UsageError{"--grid: " + grid + " has no room for " + std::to_string(drawings) + " drawings"};
    return sides[0];
}

void WarnOfOverlaps(const std::vector<ReadShapes>& drawings, const std::vector<QRectF>& rects)
{
    constexpr qsizetype kMostNames = 5;
    QStringList names;
    for (const size_t i : Overlapping(rects))
        names << drawings[i].file;
    if (names.isEmpty())
        return;
    const QString all = names.first(std::min(names.size(), kMostNames)).join(", ");
    Warn(QString("%1 drawings lie on each other: ").arg(names.size()) + all +
         (names.size() > kMostNames ? ", ..." : ""));
}

} // namespace

void AddPlaceOptions(CommandArguments& command, PlaceOptions& options, const CommandOption& folder)
{
    command.AddTexts(
        "--at=X,Y", options.at,
        "mm: where the corner of the page goes, of all drawings (0,0 leaves them where they are) or of each "
        "in its turn; with --gap or --grid the corner of the table; without drawings that of the text");
    command.AddNumber("--gap=MM", options.gap, {0, kFarthest}, "between drawings in a table (default: 5)")
        .Excludes(folder);
    command
        .AddText("--grid=COLUMNS[xROWS]", options.grid,
                 "put the drawings in a table, row by row; without --at and --grid several drawings go side by side")
        .Excludes(folder);
}

Places PlacesOf(const PlaceOptions& options, size_t drawings)
{
    Places places;
    for (const std::string& text : options.at)
        places.at.push_back(PointOf(text));
    places.gap = options.gap.value_or(places.gap);
    if (!options.grid.empty())
        places.columns = ColumnsOf(options.grid, drawings);
    else if (drawings > 1 && (options.gap || places.at.empty()))
        places.columns = drawings;
    if (places.at.size() > 1 && places.columns > 0)
        throw UsageError{"--at: a table has one corner"};
    if (places.at.size() > 1 && places.at.size() != drawings)
        throw UsageError{"--at: " + std::to_string(places.at.size()) + " places for " + std::to_string(drawings) +
                         " drawings"};
    return places;
}

void MoveToPlaces(const std::vector<ReadShapes>& drawings, const Places& places)
{
    if (places.at.empty() && places.columns == 0)
        return;
    std::vector<QRectF> rects;
    for (const ReadShapes& drawing : drawings)
        rects.push_back(RectAroundShapes(drawing.shapes));
    const std::vector<QPointF> offsets = OffsetsTo(places, rects);
    for (size_t i = 0; i < drawings.size(); ++i) {
        rects[i].translate(offsets[i]);
        if (!WithinReach(rects[i]))
            throw Failure{drawings[i].file, "would go beyond a kilometre"};
        if (!offsets[i].isNull())
            for (const std::unique_ptr<CShape>& shape : drawings[i].shapes)
                shape->Offset(offsets[i].x(), offsets[i].y());
    }
    WarnOfOverlaps(drawings, rects);
}
