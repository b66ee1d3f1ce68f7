#include "machine/GapSearch.h"

#include "machine/Contour.h"
#include "machine/EndPairs.h"
#include "machine/RunJoining.h"
#include "plane/BoxTree.h"

#include "geometry/Geometry.h"

#include <QLineF>

#include <array>
#include <cmath>

namespace shapedocument {

namespace {

constexpr double kGapMeeting = 0.01; // mm: ends this near meet
// A contour whose mean width is below this many gaps was not meant to be closed there.
constexpr double kWidthsOfGap = 8;
// Gap widths around a gap's ends, within which a contour may close itself by overshooting.
constexpr double kOvershoot = 4;
constexpr size_t kMostNeighbours = 256; // pieces near a gap that are tested

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
    double behind; ///< mm along the path from its start to this piece
};

double DistanceTo(QPointF point, const Piece& piece)
{
    return std::sqrt(shapes::SegmentDistance2(point, piece.from, piece.to));
}

bool Cross(const Piece& a, const Piece& b)
{
    return QLineF(a.from, a.to).intersects({b.from, b.to}, nullptr) == QLineF::BoundedIntersection;
}

/// Two ends that lie near each other, of one open path or of two, and the lines around them.
struct Opening
{
    struct End
    {
        size_t path;
        double length; ///< mm, of the path
        bool isLast;   ///< where the path ends, not where it begins
    };

    End one, other;
    QLineF gap; ///< from one to the other
    std::vector<Piece> neighbours = {};

    Box Around() const
    {
        Box box = Box::Of(gap.p1());
        box.Add(Box::Of(gap.p2()));
        return box.Grown(kOvershoot * gap.length() + kGapMeeting);
    }

    /// burned: half the width that a line burns, mm.
    bool IsClosed(double burned) const
    {
        return Overshoots(burned) || (LiesOnOthers(one, gap.p1(), burned) && LiesOnOthers(other, gap.p2(), burned));
    }

private:
    /// Whether a piece belongs to the path of an end; where both ends are of one path, to the end's half of it.
    bool IsOf(const End& end, const Piece& piece) const
    {
        return piece.path == end.path && (one.path != other.path || (piece.behind >= end.length / 2) == end.isLast);
    }

    /// Whether the lines behind the two ends meet at the gap.
    bool Overshoots(double burned) const
    {
        for (const Piece& here : neighbours)
            for (const Piece& there : neighbours)
                if (IsOf(one, here) && IsOf(other, there) &&
                    (DistanceTo(gap.p1(), there) <= burned || DistanceTo(gap.p2(), here) <= burned ||
                     Cross(here, there)))
                    return true;
        return false;
    }

    bool LiesOnOthers(const End& end, QPointF place, double burned) const
    {
        return std::any_of(neighbours.begin(), neighbours.end(), [&](const Piece& piece) {
            return piece.path != end.path && DistanceTo(place, piece) <= burned;
        });
    }
};

/// Whether all gaps of a contour together are small beside it. length: mm, without them.
bool AreSmall(double gaps, double length, std::span<const QPointF> outline)
{
    return kWidthsOfGap * gaps * length <= 4 * EnclosedArea(outline);
}

/// Finds the openings of contours made of one open path, then of those made of several.
class OpeningSearch
{
public:
    OpeningSearch(const MachineJob& job, double widest) : m_reader(job), m_widest(widest) {}

    std::vector<Opening> Run()
    {
        for (size_t path = 0; const auto next = m_reader.NextPath(); ++path)
            if (!next->closed)
                AddOpenPath(path, next->color);
        m_partners = PairEnds(m_ends, std::vector<bool>(m_runs.size()), m_widest, [] {});
        m_done.resize(m_runs.size());
        for (uint32_t run = 0; run < m_runs.size(); ++run)
            FollowChain(run);
        return std::move(m_openings);
    }

private:
    /// An open path and its place in the job.
    struct OpenPath
    {
        size_t path;
        double length;
        qint64 place;
    };

    void AddOpenPath(size_t path, unsigned int color)
    {
        const qint64 place = m_reader.Place();
        const std::vector<QPointF> points = ChordPoints(m_reader.Run());
        const QLineF gap(points.front(), points.back());
        const double length = PolylineLength(points);
        if (gap.length() <= m_widest && AreSmall(gap.length(), length, points)) {
            m_openings.push_back({{path, length, false}, {path, length, true}, gap});
            return;
        }
        const auto run = static_cast<uint32_t>(m_runs.size());
        m_runs.push_back({path, length, place});
        m_ends.push_back({points.front(), color, run});
        m_ends.push_back({points.back(), color, run});
    }

    /// Follows paths whose ends are partners; takes them as a contour if that leads back to the first path. The ends of
    /// run i are 2 i and 2 i + 1.
    void FollowChain(uint32_t first)
    {
        std::vector<uint32_t> begins; // the end where each path of the chain is entered
        uint32_t end = 2 * first;
        while (end != kNoPartner && !m_done[end / 2]) {
            m_done[end / 2] = true;
            begins.push_back(end);
            end = m_partners[end ^ 1];
        }
        if (end == 2 * first && begins.size() > 1)
            AddContour(begins);
    }

    void AddContour(const std::vector<uint32_t>& begins)
    {
        std::vector<QPointF> outline;
        double length = 0, gaps = 0;
        std::vector<Opening> openings;
        for (size_t i = 0; i < begins.size(); ++i) {
            const uint32_t last = begins[i] ^ 1, next = begins[(i + 1) % begins.size()];
            AppendPoints(begins[i], outline);
            length += m_runs[begins[i] / 2].length;
            openings.push_back({EndOf(last), EndOf(next), {m_ends[last].point, m_ends[next].point}});
            gaps += openings.back().gap.length();
        }
        outline.push_back(outline.front());
        if (AreSmall(gaps, length, outline))
            m_openings.insert(m_openings.end(), openings.begin(), openings.end());
    }

    Opening::End EndOf(uint32_t end) const { return {m_runs[end / 2].path, m_runs[end / 2].length, end % 2 == 1}; }

    /// Appends the points of the end's path, starting at this end.
    void AppendPoints(uint32_t end, std::vector<QPointF>& outline)
    {
        m_reader.GoTo(m_runs[end / 2].place);
        m_reader.NextPath();
        std::vector<QPointF> points = ChordPoints(m_reader.Run());
        if (end % 2 == 1)
            std::reverse(points.begin(), points.end());
        outline.insert(outline.end(), points.begin(), points.end());
    }

    JobReader m_reader;
    double m_widest;
    std::vector<Opening> m_openings;
    std::vector<OpenPath> m_runs;
    std::vector<RunEnd> m_ends;
    std::vector<uint32_t> m_partners;
    std::vector<bool> m_done; ///< of every run: has been followed
};

void FindNeighbours(const MachineJob& job, std::vector<Opening>& openings)
{
    std::vector<Box> boxes;
    for (const Opening& opening : openings)
        boxes.push_back(opening.Around());
    const BoxTree tree = BoxTree::AllLive(std::move(boxes));
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
    std::vector<Opening> openings = OpeningSearch(joined, widest).Run();
    if (!openings.empty())
        FindNeighbours(joined, openings);
    std::vector<Gap> gaps;
    for (const Opening& opening : openings)
        if (!opening.IsClosed(beam / 2))
            gaps.push_back({opening.gap.center(), opening.gap.length()});
    return gaps;
}

} // namespace shapedocument
