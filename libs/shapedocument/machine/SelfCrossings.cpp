#include "machine/SelfCrossings.h"

#include "machine/BoxTree.h"

#include "geometry/Geometry.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace shapedocument {

using shapes::Cross;

namespace {

bool AreOpposite(double a, double b)
{
    return (a < 0 && b > 0) || (a > 0 && b < 0);
}

/// The point inside both segments.
std::optional<QPointF> Crossing(QPointF a, QPointF b, QPointF c, QPointF d)
{
    const double beginSide = Cross(b - a, c - a), endSide = Cross(b - a, d - a);
    if (!AreOpposite(beginSide, endSide) || !AreOpposite(Cross(d - c, a - c), Cross(d - c, b - c)))
        return std::nullopt;
    return c + (d - c) * (beginSide / (beginSide - endSide));
}

} // namespace

bool FindSelfCrossings(std::span<const QPointF> points, bool closed, size_t& pairs,
                       const std::function<void(QPointF)>& found)
{
    if (points.size() < 4)
        return true;
    const size_t segments = points.size() - 1;
    std::vector<Box> boxes(segments);
    for (size_t i = 0; i < segments; ++i) {
        boxes[i] = Box::Of(points[i]);
        boxes[i].Add(Box::Of(points[i + 1]));
    }
    BoxTree tree(boxes);
    std::vector<uint32_t> near;
    for (size_t i = 0; i < segments; ++i) { // only segments before this one are live
        near.clear();
        tree.FindOverlapping(boxes[i], near);
        if (near.size() > pairs)
            return false;
        pairs -= near.size();
        std::ranges::sort(near);
        for (const uint32_t other : near) {
            const bool follows = other + 1 == i || (closed && other == 0 && i + 1 == segments);
            const auto crossing =
                follows ? std::nullopt : Crossing(points[other], points[other + 1], points[i], points[i + 1]);
            if (crossing)
                found(*crossing);
        }
        tree.SetLive(static_cast<uint32_t>(i), true);
    }
    return true;
}

} // namespace shapedocument
