#include "svg/ClipCut.h"

#include "svg/PieceCrossings.h"

#include <QTransform>

#include <algorithm>
#include <cmath>

namespace shapedocument::drawing {

namespace {

constexpr double kMostPairs = 5e7; ///< of pieces
constexpr double kBeside = 1e-3;   ///< mm; how far from an edge its two sides are asked about
constexpr double kShortest = 2e-5; ///< mm; parts below are rounding
constexpr double kJoint = 1e-3;    ///< mm; ends this near to each other are one point

double Distance(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

/// Also rectangles without a width or a height.
bool AreApart(const QRectF& a, const QRectF& b)
{
    return a.left() > b.right() || a.right() < b.left() || a.top() > b.bottom() || a.bottom() < b.top();
}

/// Tells inside from outside. The painter path's own test is no finer than 0.01.
class Area
{
public:
    explicit Area(const QPainterPath& path) : m_path(QTransform::fromScale(kFiner, kFiner).map(path)) {}
    bool Holds(QPointF point) const { return m_path.contains(point * kFiner); }

private:
    static constexpr double kFiner = 1000;
    QPainterPath m_path;
};

/// A stretch of an outline between two cuts.
struct Run
{
    std::vector<CubicPiece> pieces;
    size_t subPath = 0;
    bool fromStart = false; ///< begins where the sub-path does
    bool toEnd = false;

    QPointF Start() const { return pieces.front().points[0]; }
    QPointF End() const { return pieces.back().End(); }

    void Reverse()
    {
        std::reverse(pieces.begin(), pieces.end());
        for (CubicPiece& piece : pieces)
            std::reverse(piece.points.begin(), piece.points.begin() + (piece.line ? 2 : 4));
    }
};

/// An outline's pieces with the parameters that they are cut at.
struct Outline
{
    struct Cut
    {
        CubicPiece piece;
        bool first;
        QRectF bounds;
        std::vector<double> at;
    };
    std::vector<Cut> cuts;

    explicit Outline(const QPainterPath& path)
    {
        ForEachPiece(path, [&](const CubicPiece& piece, bool first) {
            cuts.push_back({piece, first, piece.Bounds(), {}});
        });
    }

    std::vector<Run> Runs() const
    {
        std::vector<Run> runs;
        size_t subPath = 0;
        bool open = false; // the last run goes on
        for (const Cut& cut : cuts) {
            if (cut.first) {
                CloseSubPath(runs);
                ++subPath;
                open = false;
            }
            std::vector<double> at = cut.at;
            at.push_back(1);
            std::sort(at.begin(), at.end());
            double from = 0;
            open = open && at.front() > 0;
            for (const double to : at) {
                AppendPart(runs, cut.piece.Between(from, to), open, subPath, cut.first && from == 0);
                open = false;
                from = to;
            }
            open = std::count(at.begin(), at.end(), 1.0) == 1;
        }
        CloseSubPath(runs);
        return runs;
    }

private:
    static void CloseSubPath(std::vector<Run>& runs)
    {
        if (!runs.empty())
            runs.back().toEnd = true;
    }

    static void AppendPart(std::vector<Run>& runs, const CubicPiece& part, bool goesOn, size_t subPath, bool fromStart)
    {
        const QRectF size = part.Bounds();
        if (size.width() + size.height() < kShortest)
            return;
        if (!goesOn || runs.empty() || runs.back().subPath != subPath)
            runs.push_back({{}, subPath, fromStart, false});
        runs.back().pieces.push_back(part);
    }
};

/// The two points beside the middle of a run.
std::pair<QPointF, QPointF> Sides(const Run& run)
{
    const CubicPiece& piece = run.pieces[run.pieces.size() / 2];
    const QPointF middle = piece.At(0.5), along = piece.At(0.5 + 1e-3) - piece.At(0.5 - 1e-3);
    const double length = std::hypot(along.x(), along.y());
    const QPointF aside = length > 0 ? QPointF(-along.y(), along.x()) * (kBeside / length) : QPointF(kBeside, 0);
    return {middle + aside, middle - aside};
}

enum class Keep
{
    AreaInside,
    LinesInside,
    LinesOutside
};

class Cutter
{
public:
    Cutter(const QPainterPath& path, Keep keep, const QPainterPath& clip)
        : m_isArea(keep == Keep::AreaInside), m_outside(keep == Keep::LinesOutside), m_path(path), m_outline(path),
          m_clipOutline(clip), m_area(path), m_clip(clip)
    {}

    bool TakesTooLong() const
    {
        return static_cast<double>(m_outline.cuts.size()) * static_cast<double>(m_clipOutline.cuts.size()) > kMostPairs;
    }

    QPainterPath Cut()
    {
        for (Outline::Cut& a : m_outline.cuts)
            for (Outline::Cut& b : m_clipOutline.cuts)
                if (!AreApart(a.bounds, b.bounds))
                    AddCrossings(a.piece, b.piece, a.at, b.at);
        std::vector<Run> kept = m_outline.Runs();
        size_t changed = std::erase_if(kept, [this](const Run& run) { return !KeepsOutline(run); });
        JoinAtStarts(kept);
        if (m_isArea)
            for (Run& run : m_clipOutline.Runs())
                if (KeepsEdge(run)) {
                    kept.push_back(std::move(run));
                    ++changed;
                }
        if (changed == 0)
            return m_path;
        return m_isArea ? Chained(std::move(kept)) : Separate(kept);
    }

private:
    bool InBoth(QPointF point) const { return m_area.Holds(point) && m_clip.Holds(point); }

    bool KeepsOutline(const Run& run) const
    {
        const auto [left, right] = Sides(run);
        const bool inLeft = m_clip.Holds(left), inRight = m_clip.Holds(right);
        if (inLeft == inRight)
            return inLeft != m_outside;
        // Runs along the clip's edge.
        return !m_isArea || InBoth(left) != InBoth(right);
    }

    /// An edge that the outline itself runs along is there already.
    bool KeepsEdge(const Run& run) const
    {
        const auto [left, right] = Sides(run);
        return InBoth(left) != InBoth(right) && m_area.Holds(left) == m_area.Holds(right);
    }

    /// The last and the first run of a closed sub-path that is not cut where it begins are one.
    static void JoinAtStarts(std::vector<Run>& runs)
    {
        for (size_t first = 0, last; first < runs.size(); first = last + 1) {
            last = first;
            while (last + 1 < runs.size() && runs[last + 1].subPath == runs[first].subPath)
                ++last;
            if (last == first || !runs[first].fromStart || !runs[last].toEnd ||
                Distance(runs[last].End(), runs[first].Start()) > kShortest)
                continue;
            std::vector<CubicPiece>& joined = runs[last].pieces;
            joined.insert(joined.end(), runs[first].pieces.begin(), runs[first].pieces.end());
            runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(first));
            --last;
        }
    }

    static void Append(QPainterPath& path, const Run& run)
    {
        for (const CubicPiece& piece : run.pieces)
            piece.AppendTo(path);
    }

    static QPainterPath Separate(const std::vector<Run>& runs)
    {
        QPainterPath path;
        for (const Run& run : runs) {
            path.moveTo(run.Start());
            Append(path, run);
        }
        return path;
    }

    /// Moves on from run to the one that begins or ends where the path is.
    static QPainterPath Chained(std::vector<Run> runs)
    {
        QPainterPath path;
        while (!runs.empty()) {
            const Run run = std::move(runs.front());
            runs.erase(runs.begin());
            const QPointF start = run.Start();
            path.moveTo(start);
            Append(path, run);
            QPointF end = run.End();
            while (Distance(end, start) > kJoint) {
                const auto next = std::find_if(runs.begin(), runs.end(), [&](const Run& other) {
                    return Distance(other.Start(), end) <= kJoint || Distance(other.End(), end) <= kJoint;
                });
                if (next == runs.end())
                    break;
                if (Distance(next->Start(), end) > kJoint)
                    next->Reverse();
                Append(path, *next);
                end = next->End();
                runs.erase(next);
            }
            if (end != start)
                path.lineTo(start);
        }
        return path;
    }

    bool m_isArea;
    bool m_outside;
    QPainterPath m_path;
    Outline m_outline;
    Outline m_clipOutline;
    Area m_area;
    Area m_clip;
};

bool Cut(QPainterPath& path, Keep keep, const QPainterPath& clip)
{
    Cutter cutter(path, keep, clip);
    if (cutter.TakesTooLong())
        return false;
    const Qt::FillRule rule = path.fillRule();
    path = cutter.Cut();
    path.setFillRule(rule);
    return true;
}

bool IsUprightRect(const QPainterPath& path)
{
    if (path.elementCount() != 5)
        return false;
    for (int i = 1; i < 5; ++i) {
        const QPointF side = QPointF(path.elementAt(i)) - QPointF(path.elementAt(i - 1));
        if (!path.elementAt(i).isLineTo() || (side.x() != 0 && side.y() != 0))
            return false;
    }
    return true;
}

} // namespace

bool CutAtClip(QPainterPath& path, bool isArea, const QPainterPath& clip)
{
    const QRectF bounds = path.controlPointRect(), around = clip.controlPointRect();
    if (AreApart(bounds, around)) {
        path = {};
        return true;
    }
    if (IsUprightRect(clip) && around.adjusted(-kBeside, -kBeside, kBeside, kBeside).contains(bounds))
        return true;
    return Cut(path, isArea ? Keep::AreaInside : Keep::LinesInside, clip);
}

bool CutAway(QPainterPath& path, const QPainterPath& cover)
{
    return AreApart(path.controlPointRect(), cover.controlPointRect()) || Cut(path, Keep::LinesOutside, cover);
}

} // namespace shapedocument::drawing
