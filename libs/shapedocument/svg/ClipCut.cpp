#include "svg/ClipCut.h"

#include "svg/PieceCrossings.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace shapedocument::drawing {

namespace {

constexpr size_t kMostCuts = 5'000'000; ///< pairs of pieces whose boxes overlap; takes some seconds
constexpr double kBeside = 1e-3;        ///< mm; distance from an edge at which its two sides are tested

/// The two points beside the middle of a piece.
std::pair<QPointF, QPointF> Sides(const CubicPiece& piece)
{
    const QPointF middle = piece.At(0.5), along = piece.At(0.5 + 1e-3) - piece.At(0.5 - 1e-3);
    const double length = std::hypot(along.x(), along.y());
    const QPointF aside = length > 0 ? QPointF(-along.y(), along.x()) * (kBeside / length) : QPointF(kBeside, 0);
    return {middle + aside, middle - aside};
}

/// The piece that decides for the run: the sides of one that is shorter than kBeside may lie beyond a corner.
const CubicPiece& LongestOf(const Run& run)
{
    const auto reach = [](const CubicPiece& piece) {
        const QRectF size = piece.Bounds();
        return size.width() + size.height();
    };
    return *std::ranges::max_element(run.pieces, {}, reach);
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
    Cutter(const QPainterPath& path, Keep keep, const ClipEdge& clip)
        : m_isArea(keep == Keep::AreaInside), m_outside(keep == Keep::LinesOutside), m_path(path), m_outline(path),
          m_clip(clip), m_around(Box::Of(path.controlPointRect()))
    {
        if (m_isArea)
            m_area.emplace(path);
    }

    /// Returns false when there are more than kMostCuts pairs.
    bool FindCrossings()
    {
        size_t pairs = 0;
        for (size_t i = 0; i < m_outline.pieces.size() && pairs <= kMostCuts; ++i)
            m_clip.pieces.ForEachOverlapping(m_outline.boxes[i], [&](size_t k) {
                AddCuts(i, k);
                return ++pairs <= kMostCuts;
            });
        return pairs <= kMostCuts;
    }

    QPainterPath Cut()
    {
        std::vector<Run> kept;
        for (size_t i = 0; i < m_outline.subPaths.size(); ++i)
            m_outline.AppendRuns(i, m_cuts, kept);
        size_t changed = std::erase_if(kept, [this](const Run& run) { return !KeepsOutline(run); });
        JoinAtStarts(kept);
        if (m_isArea)
            changed += AppendEdges(kept);
        if (changed == 0)
            return m_path;
        return m_isArea ? ChainedAreas(std::move(kept)) : SeparateLines(kept);
    }

private:
    void AddCuts(size_t i, size_t k)
    {
        m_onPath.clear();
        m_onClip.clear();
        AddCrossings(m_outline.pieces[i], m_clip.outline.pieces[k], m_onPath, m_onClip);
        const auto append = [](Cuts& cuts, size_t piece, const std::vector<double>& found) {
            if (!found.empty())
                cuts[piece].insert(cuts[piece].end(), found.begin(), found.end());
        };
        append(m_cuts, i, m_onPath);
        append(m_clipCuts, k, m_onClip);
    }

    /// Appends the parts of the clip's edge that the path must follow. Returns how many.
    size_t AppendEdges(std::vector<Run>& kept) const
    {
        const size_t before = kept.size();
        std::vector<Run> runs;
        for (size_t i = 0; i < m_clip.outline.subPaths.size(); ++i) {
            if (!MayKeepEdge(i))
                continue;
            runs.clear();
            m_clip.outline.AppendRuns(i, m_clipCuts, runs);
            for (Run& run : runs)
                if (KeepsEdge(LongestOf(run)))
                    kept.push_back(std::move(run));
        }
        return kept.size() - before;
    }

    /// Where a sub-path is not cut, one of its pieces decides for all.
    bool MayKeepEdge(size_t subPath) const
    {
        const Outline::SubPath& edge = m_clip.outline.subPaths[subPath];
        if (!edge.around.Overlaps(m_around))
            return false;
        const auto cut = m_clipCuts.lower_bound(edge.begin);
        if (cut != m_clipCuts.end() && cut->first < edge.end)
            return true;
        const CubicPiece* piece = m_clip.outline.LongPieceOf(subPath);
        return piece && KeepsEdge(*piece);
    }

    bool InBoth(QPointF point) const { return m_area->Holds(point) && m_clip.area.Holds(point); }

    bool KeepsOutline(const Run& run) const
    {
        const auto [left, right] = Sides(LongestOf(run));
        const bool inLeft = m_clip.area.Holds(left), inRight = m_clip.area.Holds(right);
        if (inLeft == inRight)
            return inLeft != m_outside;
        // Runs along the clip's edge.
        return !m_isArea || InBoth(left) != InBoth(right);
    }

    /// False also for an edge that the outline runs along: it is in the path already.
    bool KeepsEdge(const CubicPiece& piece) const
    {
        const auto [left, right] = Sides(piece);
        return InBoth(left) != InBoth(right) && m_area->Holds(left) == m_area->Holds(right);
    }

    bool m_isArea;
    bool m_outside;
    QPainterPath m_path;
    Outline m_outline;
    const ClipEdge& m_clip;
    Box m_around;                      ///< of the path
    std::optional<PointInArea> m_area; ///< of the path, if it is an area
    Cuts m_cuts, m_clipCuts;
    std::vector<double> m_onPath, m_onClip; ///< scratch buffers for two pieces
};

bool Cut(QPainterPath& path, Keep keep, const ClipEdge& clip)
{
    Cutter cutter(path, keep, clip);
    if (!cutter.FindCrossings())
        return false;
    const Qt::FillRule rule = path.fillRule();
    path = cutter.Cut();
    path.setFillRule(rule);
    return true;
}

/// Whether the path begins with a closed upright rectangle at this element.
bool HasUprightRect(const QPainterPath& path, int begin)
{
    if (path.elementCount() < begin + 5)
        return false;
    for (int i = begin + 1; i < begin + 5; ++i) {
        const QPointF side = QPointF(path.elementAt(i)) - QPointF(path.elementAt(i - 1));
        if (!path.elementAt(i).isLineTo() || (side.x() != 0 && side.y() != 0))
            return false;
    }
    return QPointF(path.elementAt(begin)) == QPointF(path.elementAt(begin + 4));
}

} // namespace

bool IsUprightRect(const QPainterPath& path)
{
    const int elements = path.elementCount(); // a move without a line may follow
    return (elements == 5 || (elements == 6 && path.elementAt(5).isMoveTo())) && HasUprightRect(path, 0);
}

ClipEdge::ClipEdge(const QPainterPath& path)
    : around(path.controlPointRect()), isUprightRect(IsUprightRect(path)), outline(path),
      pieces(BoxTree::AllLive(outline.boxes)), area(path)
{}

bool CutAtClip(QPainterPath& path, bool isArea, const ClipEdge& clip)
{
    const QRectF bounds = path.controlPointRect();
    if (AreApart(bounds, clip.around)) {
        path = {};
        return true;
    }
    if (clip.isUprightRect && clip.around.adjusted(-kBeside, -kBeside, kBeside, kBeside).contains(bounds))
        return true;
    return Cut(path, isArea ? Keep::AreaInside : Keep::LinesInside, clip);
}

QPainterPath WithoutSeams(const QPainterPath& area)
{
    int at = 0;
    while (HasUprightRect(area, at))
        at += 5;
    const bool onlyBoxes = at > 5 && at + 1 >= area.elementCount(); // a move without a line may follow
    if (!onlyBoxes)
        return area;
    QPainterPath joined = area.simplified();
    joined.setFillRule(Qt::OddEvenFill); // the joined outlines do not overlap
    return joined;
}

bool AreApart(const QRectF& a, const QRectF& b)
{
    return a.left() > b.right() || a.right() < b.left() || a.top() > b.bottom() || a.bottom() < b.top();
}

bool CutAway(QPainterPath& path, const ClipEdge& cover)
{
    return AreApart(path.controlPointRect(), cover.around) || Cut(path, Keep::LinesOutside, cover);
}

} // namespace shapedocument::drawing
