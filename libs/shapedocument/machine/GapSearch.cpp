#include "machine/GapSearch.h"

#include "machine/BoxTree.h"
#include "machine/Contour.h"
#include "machine/RunJoining.h"

#include "geometry/Geometry.h"

#include <QLineF>

#include <array>
#include <cmath>

namespace shapedocument {

namespace {

constexpr double kGapMeeting = 0.01;    // mm: ends this near meet
constexpr double kWidthsOfGap = 8;      // of a gap: a contour that is narrower was not meant to be closed there
constexpr double kOvershoot = 4;        // gaps from its ends, within which a contour may close itself
constexpr size_t kMostNeighbours = 256; // lines near a gap that are looked at

MachineJob JoinedCuts(const MachineJob& job, const QString& file)
{
    MachineJob cuts(file);
    size_t shape = 0; // a shape with leads would not be joined
    JobReader reader(job);
    while (const auto path = reader.NextPath())
        if (path->kind == PathKind::Cut)
            cuts.Append({++shape, PathKind::Cut, path->color}, reader.Run());
    cuts.Finish(file);
    return JoinRuns(std::move(cuts), kGapMeeting, file);
}

/// A piece of a path.
struct Piece
{
    QPointF from, to;
    size_t path;
    double behind; ///< mm of the path from its begin up to here
};

double DistanceTo(QPointF point, const Piece& piece)
{
    return std::sqrt(shapes::SegmentDistance2(point, piece.from, piece.to));
}

bool Cross(const Piece& a, const Piece& b)
{
    return QLineF(a.from, a.to).intersects({b.from, b.to}, nullptr) == QLineF::BoundedIntersection;
}

/// An open path whose ends lie near each other, and the lines around them.
struct Opening
{
    size_t path;
    double length; ///< mm, of the path
    QLineF gap;    ///< from the path's begin to its end
    std::vector<Piece> neighbours = {};

    Box Around() const
    {
        Box box = Box::Of(gap.p1());
        box.Add(Box::Of(gap.p2()));
        return box.Grown(kOvershoot * gap.length() + kGapMeeting);
    }

    /// burned: mm, on either side of a line.
    bool IsClosed(double burned) const
    {
        return OvershootsItself(burned) || (LiesOnOthers(gap.p1(), burned) && LiesOnOthers(gap.p2(), burned));
    }

private:
    /// Near its begin, else near its end.
    bool IsFirstHalf(const Piece& piece) const { return piece.behind < length / 2; }

    /// Whether what comes first of the path and what comes last meet at the gap.
    bool OvershootsItself(double burned) const
    {
        for (const Piece& first : neighbours)
            for (const Piece& last : neighbours)
                if (first.path == path && last.path == path && IsFirstHalf(first) && !IsFirstHalf(last) &&
                    (DistanceTo(gap.p1(), last) <= burned || DistanceTo(gap.p2(), first) <= burned ||
                     Cross(first, last)))
                    return true;
        return false;
    }

    bool LiesOnOthers(QPointF end, double burned) const
    {
        return std::any_of(neighbours.begin(), neighbours.end(),
                           [&](const Piece& piece) { return piece.path != path && DistanceTo(end, piece) <= burned; });
    }
};

double LengthOf(std::span<const QPointF> points)
{
    double length = 0;
    for (size_t i = 1; i < points.size(); ++i)
        length += QLineF(points[i - 1], points[i]).length();
    return length;
}

std::vector<Opening> FindOpenings(const MachineJob& job, double widest)
{
    std::vector<Opening> openings;
    JobReader reader(job);
    for (size_t path = 0; const auto next = reader.NextPath(); ++path) {
        if (next->closed)
            continue;
        const std::vector<QPointF> points = ChordPoints(reader.Run());
        const QLineF gap(points.front(), points.back());
        if (gap.length() > widest)
            continue;
        if (const double length = LengthOf(points); kWidthsOfGap * gap.length() * length <= 4 * EnclosedArea(points))
            openings.push_back({path, length, gap});
    }
    return openings;
}

void FindNeighbours(const MachineJob& job, std::vector<Opening>& openings)
{
    std::vector<Box> boxes;
    for (const Opening& opening : openings)
        boxes.push_back(opening.Around());
    BoxTree tree(boxes);
    for (uint32_t i = 0; i < boxes.size(); ++i)
        tree.SetLive(i, true);
    std::vector<uint32_t> near;
    JobReader reader(job);
    for (size_t path = 0; reader.NextPath(); ++path) {
        const std::vector<QPointF> points = ChordPoints(reader.Run());
        double behind = 0;
        for (size_t i = 1; i < points.size(); ++i) {
            const Piece piece{points[i - 1], points[i], path, behind};
            behind += QLineF(piece.from, piece.to).length();
            near.clear();
            tree.FindOverlapping(BoxOf(std::array{piece.from, piece.to}), near);
            for (const uint32_t opening : near)
                if (openings[opening].neighbours.size() < kMostNeighbours)
                    openings[opening].neighbours.push_back(piece);
        }
    }
}

} // namespace

std::vector<Gap> FindGaps(const MachineJob& job, double widest, double beam, const QString& file)
{
    const MachineJob joined = JoinedCuts(job, file);
    std::vector<Opening> openings = FindOpenings(joined, widest);
    if (!openings.empty())
        FindNeighbours(joined, openings);
    std::vector<Gap> gaps;
    for (const Opening& opening : openings)
        if (!opening.IsClosed(beam / 2))
            gaps.push_back({opening.gap.center(), opening.gap.length()});
    return gaps;
}

} // namespace shapedocument
