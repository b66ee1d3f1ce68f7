#include "machine/SelfCrossings.h"

#include "machine/RunPart.h"
#include "plane/BoxTree.h"

#include "geometry/Geometry.h"

#include <cmath>
#include <numbers>
#include <optional>
#include <vector>

namespace shapedocument {

using shapes::Cross;

namespace {

constexpr double kSamePlace = 1e-6;     // mm
constexpr double kSameDirection = 1e-9; // radians: lines closer in direction run along each other and do not cross

bool AreAtOnePlace(QPointF a, QPointF b)
{
    return Length(b - a) <= kSamePlace;
}

/// Signed distance (mm) from the line through a and b; 0 when the point is on it.
double Side(QPointF a, QPointF b, QPointF point)
{
    const double distance = Cross(b - a, point - a) / Length(b - a);
    return std::abs(distance) <= kSamePlace ? 0 : distance;
}

/// The angle from one direction to another, 0 to a full turn.
double Turn(QPointF from, QPointF to)
{
    const double turn = std::atan2(Cross(from, to), QPointF::dotProduct(from, to));
    return turn < 0 ? turn + 2 * std::numbers::pi : turn;
}

/// Compares pairs of segments of one contour. A segment has the index of the corner where it starts.
class Crossings
{
public:
    explicit Crossings(std::span<const QPointF> outline)
    {
        for (const QPointF& point : outline)
            if (m_corners.empty() || !AreAtOnePlace(point, m_corners.back()))
                m_corners.push_back(point);
        while (m_corners.size() > 1 && AreAtOnePlace(m_corners.front(), m_corners.back()))
            m_corners.pop_back();
    }

    size_t Count() const { return m_corners.size(); }

    Box BoxOf(size_t segment) const
    {
        Box box = Box::Of(Corner(segment));
        box.Add(Box::Of(Corner(segment + 1)));
        return box;
    }

    bool Follow(size_t a, size_t b) const { return (a + 1) % Count() == b || (b + 1) % Count() == a; }

    /// Where the segments cross, inside both or at the corner where one of them starts. A crossing at the end of one is
    /// found with the next segment.
    std::optional<QPointF> Between(size_t a, size_t b) const
    {
        const QPointF begin = Corner(b), end = Corner(b + 1);
        const double beginSide = Side(Corner(a), Corner(a + 1), begin), endSide = Side(Corner(a), Corner(a + 1), end);
        const double ofA = beginSide * endSide;
        if (ofA > 0)
            return std::nullopt;
        const double ownSide = Side(begin, end, Corner(a)), ofB = ownSide * Side(begin, end, Corner(a + 1));
        if (ofB > 0)
            return std::nullopt;
        if (ofA < 0 && ofB < 0)
            return begin + (end - begin) * (beginSide / (beginSide - endSide));
        if (AreAtOnePlace(Corner(a), begin))
            return AreCrossingCorners(a, b) ? std::optional(begin) : std::nullopt;
        if (ownSide == 0 && IsCrossingCorner(a, b))
            return Corner(a);
        return beginSide == 0 && IsCrossingCorner(b, a) ? std::optional(begin) : std::nullopt;
    }

private:
    QPointF Corner(size_t number) const { return m_corners[number % Count()]; }
    QPointF Before(size_t number) const { return Corner(number + Count() - 1); }

    /// Whether the line passes from one side of a segment to the other at a corner, which lies on the segment's line.
    bool IsCrossingCorner(size_t corner, size_t segment) const
    {
        const QPointF from = Corner(segment), to = Corner(segment + 1), at = Corner(corner);
        if (QPointF::dotProduct(at - from, to - from) <= 0 || QPointF::dotProduct(at - to, from - to) <= 0 ||
            AreAtOnePlace(at, from) || AreAtOnePlace(at, to))
            return false;
        return Side(from, to, Before(corner)) * Side(from, to, Corner(corner + 1)) < 0;
    }

    /// Whether the line crosses itself at two corners in one place: the two ends of one corner lie on different sides
    /// of the other.
    bool AreCrossingCorners(size_t a, size_t b) const
    {
        const QPointF in = Before(a) - Corner(a);
        const double out = Turn(in, Corner(a + 1) - Corner(a));
        const auto side = [&](QPointF way) {
            const double turn = Turn(in, way);
            const bool along = turn < kSameDirection || turn > 2 * std::numbers::pi - kSameDirection ||
                               std::abs(turn - out) < kSameDirection;
            return along ? 0 : turn < out ? 1 : -1;
        };
        return side(Before(b) - Corner(b)) * side(Corner(b + 1) - Corner(b)) < 0;
    }

    std::vector<QPointF> m_corners; ///< without the repeated last point
};

} // namespace

bool FindSelfCrossings(std::span<const QPointF> outline, size_t& pairs, const std::function<void(QPointF)>& found)
{
    const Crossings crossings(outline);
    if (crossings.Count() < 4)
        return true;
    std::vector<Box> boxes;
    for (size_t i = 0; i < crossings.Count(); ++i)
        boxes.push_back(crossings.BoxOf(i));
    BoxTree tree(boxes);
    std::vector<uint32_t> near;
    for (uint32_t i = 0; i < boxes.size(); ++i) { // only segments before this one are live
        near.clear();
        tree.FindOverlapping(boxes[i].Grown(kSamePlace), near);
        if (near.size() > pairs)
            return false;
        pairs -= near.size();
        std::ranges::sort(near);
        for (const uint32_t other : near)
            if (!crossings.Follow(other, i))
                if (const auto crossing = crossings.Between(other, i))
                    found(*crossing);
        tree.SetLive(i, true);
    }
    return true;
}

} // namespace shapedocument
