#include "PlaceOptions.h"

#include "Arguments.h"
#include "Messages.h"
#include "document/Failure.h"
#include "document/Placement.h"

#include "shape/Shape.h"
#include "vector/ShapeVector.h"

using namespace shapedocument;

namespace {

constexpr size_t kMostCells = 1'000'000; ///< columns, and rows

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
    const auto impossible = [](size_t side) { return side == 0 || side > kMostCells; };
    if (sides.size() > 2 || std::any_of(sides.begin(), sides.end(), impossible))
        throw UsageError{"--grid: " + grid + " is neither COLUMNS nor COLUMNSxROWS"};
    if (sides.size() == 2 && sides[0] * sides[1] < drawings)
        throw UsageError{"--grid: " + grid + " has no room for " + std::to_string(drawings) + " drawings"};
    return sides[0];
}

/// Of a copy if it is a vector, which is cheap: asking a polyline for its rectangle may fit curves to it.
QRectF RectOf(CShape& shape)
{
    if (!dynamic_cast<CShapeVector*>(&shape))
        return shape.GetRect(false);
    const std::unique_ptr<CShape> copy(shape.Clone());
    const QRectF rect = copy->GetRect(false);
    CShape::DeletePath(copy.get());
    return rect;
}

/// How far a drawing is moved, and its rectangle afterwards.
struct Move
{
    QPointF by;
    QRectF rect;
};

std::vector<Move> Moves(const std::vector<ReadShapes>& drawings, const Places& places)
{
    std::vector<Move> moves;
    std::vector<QSizeF> sizes;
    for (const ReadShapes& drawing : drawings) {
        moves.push_back({{}, drawing.Rect()});
        sizes.push_back(moves.back().rect.size());
    }
    const std::vector<QPointF> corners = TableCorners(sizes, places.columns, places.gap);
    for (size_t i = 0; i < moves.size(); ++i) {
        if (!places.at.empty())
            moves[i].by = places.at[places.at.size() > 1 ? i : 0];
        if (places.columns > 0)
            moves[i].by += corners[i] - moves[i].rect.topLeft();
        moves[i].rect.translate(moves[i].by);
    }
    return moves;
}

void WarnOfOverlaps(const std::vector<ReadShapes>& drawings, const std::vector<Move>& moves)
{
    constexpr qsizetype kMostNames = 5;
    std::vector<QRectF> rects;
    for (const Move& move : moves)
        rects.push_back(move.rect);
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

QRectF ReadShapes::Rect() const
{
    QRectF rect;
    for (const std::unique_ptr<CShape>& shape : shapes)
        rect |= RectOf(*shape);
    return rect;
}

void MoveToPlaces(const std::vector<ReadShapes>& drawings, const Places& places)
{
    if (places.at.empty() && places.columns == 0)
        return;
    const std::vector<Move> moves = Moves(drawings, places);
    for (size_t i = 0; i < drawings.size(); ++i) {
        if (!WithinReach(moves[i].rect))
            throw Failure{drawings[i].file, "would go beyond a kilometre"};
        if (!moves[i].by.isNull())
            for (const std::unique_ptr<CShape>& shape : drawings[i].shapes)
                shape->Offset(moves[i].by.x(), moves[i].by.y());
    }
    WarnOfOverlaps(drawings, moves);
}
