#include "svg/ClipCut.h"

#include "svg/OutlineRuns.h"
#include "svg/PieceCrossings.h"

#include <QTransform>

#include <algorithm>
#include <cmath>

namespace shapedocument::drawing {

namespace {

constexpr double kMostCuts = 5e7; ///< of pieces
constexpr double kBeside = 1e-3;  ///< mm; how far from an edge its two sides are asked about

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
        return static_cast<double>(m_outline.cuts.size()) * static_cast<double>(m_clipOutline.cuts.size()) > kMostCuts;
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
        return m_isArea ? ChainedAreas(std::move(kept)) : SeparateLines(kept);
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
    return true;
}

bool IsUprightRect(const QPainterPath& path)
{
    return path.elementCount() == 5 && HasUprightRect(path, 0);
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

QPainterPath WithoutSeams(const QPainterPath& area)
{
    int at = 0;
    while (HasUprightRect(area, at))
        at += 5;
    const bool onlyBoxes = at > 5 && at + 1 >= area.elementCount(); // a position without a line may follow
    if (!onlyBoxes)
        return area;
    QPainterPath joined = area.simplified();
    joined.setFillRule(Qt::OddEvenFill); // its outlines do not overlap
    return joined;
}

bool AreApart(const QRectF& a, const QRectF& b)
{
    return a.left() > b.right() || a.right() < b.left() || a.top() > b.bottom() || a.bottom() < b.top();
}

bool CutAway(QPainterPath& path, const QPainterPath& cover)
{
    return AreApart(path.controlPointRect(), cover.controlPointRect()) || Cut(path, Keep::LinesOutside, cover);
}

} // namespace shapedocument::drawing
