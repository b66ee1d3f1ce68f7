// Lead-in (green) and lead-out (red) of every mode, as a picture; the dot is where the outline begins.
#include "Board.h"

#include "vector/ShapeVector.h"

#include <QGuiApplication>
#include <QTextStream>

#include <array>
#include <optional>

namespace {

using Points = std::vector<QPointF>;
using Leads = std::array<QPointF, 4>; ///< lead-in from and to, lead-out from and to

constexpr int kFollowsCorner = 0, kAsOpen = 1; ///< SGuideLine::nMode

std::optional<Leads> LeadsOf(CShapeVector& shape, int mode, double in, double out)
{
    shape.SetGuideLine({mode, in > 0, in, out > 0, out}); // millimetres; the outline stays
    Leads leads;
    if (!shape.GetGuideLinePoints(leads.data()))
        return std::nullopt;
    return leads;
}

void DrawLine(Board& board, QPointF from, QPointF to, const QColor& color)
{
    QPainterPath line(from);
    line.lineTo(to);
    board.Draw(line, color, 0.6);
}

void Draw(Board& board, const QString& title, const Points& points, int mode, double in, double out)
{
    CShapeVector shape;
    shape.SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
    shape.SetVectorType(EVECTOR_MIXED);
    board.Next(title);
    board.Draw(*shape.GetPath(false), Qt::black);
    const std::optional<Leads> leads = LeadsOf(shape, mode, in, out);
    if (leads) {
        DrawLine(board, (*leads)[0], (*leads)[1], Qt::darkGreen);
        DrawLine(board, (*leads)[2], (*leads)[3], Qt::red);
    }
    board.Dot(points.front(), Qt::black);
    QTextStream text(stdout);
    text << title << ':';
    for (const QPointF& end : leads.value_or(Leads()))
        text << ' ' << qRound(end.x() * 100) / 100.0 << ' ' << qRound(end.y() * 100) / 100.0 << ',';
    text << (leads ? "" : " none") << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 2)
        return 2;
    const Points open{{10, 20}, {20, 10}, {30, 20}, {36, 20}};
    const Points corner{{12, 8}, {34, 8}, {34, 24}, {12, 24}, {12, 8}};
    const Points middle{{23, 8}, {34, 8}, {34, 24}, {12, 24}, {12, 8}, {23, 8}};
    Board board({50, 32}, 3, 9);
    Draw(board, "open: along its ends", open, kAsOpen, 5, 5);
    Draw(board, "open, lead-in alone", open, kAsOpen, 5, 0);
    Draw(board, "open, lead-out alone", open, kAsOpen, 0, 5);
    Draw(board, "closed, mode 0: the corner's bisector", corner, kFollowsCorner, 5, 3);
    Draw(board, "closed, mode 0, from within a side", middle, kFollowsCorner, 5, 3);
    Draw(board, "the same, drawn the other way round", {middle.rbegin(), middle.rend()}, kFollowsCorner, 5, 3);
    Draw(board, "closed, mode 1: as an open one", corner, kAsOpen, 5, 3);
    Draw(board, "closed, mode 1, lead-in alone", corner, kAsOpen, 5, 0);
    Draw(board, "no lead: both lengths 0", corner, kAsOpen, 0, 0);
    return board.Save(argv[1]);
}
