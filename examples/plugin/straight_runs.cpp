// A curve-fitting plug-in in seventy lines: leaves out points that lie on the line between their neighbours.
//
// The library loads libCurveSimulate.so from the library path, its own folder or the folder shapemodel beside it, asks
// NewInterface once, and calls the interface from one thread at a time. Points are model units, millimetres as a rule.
// The lists stay the caller's: replace their content in place. Throwing is not allowed.
#include "host/ICurveSimulate.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

constexpr double kTolerance = 0.002; // mm: what a workpiece does not show

/// Distance of point from the line through a and b; from a where they coincide.
double DistanceFromLine(QPointF point, QPointF a, QPointF b)
{
    const QPointF along = b - a, to = point - a;
    const double length = std::hypot(along.x(), along.y());
    if (length == 0)
        return std::hypot(to.x(), to.y());
    return std::abs(along.x() * to.y() - along.y() * to.x()) / length;
}

bool AreNear(std::span<const QPointF> points, QPointF a, QPointF b)
{
    return std::all_of(points.begin(), points.end(),
                       [=](QPointF point) { return DistanceFromLine(point, a, b) <= kTolerance; });
}

class StraightRuns final : public ICurveSimulate
{
public:
    void Reserved() override {}
    void Prepare(std::vector<QPointF>&) override {} // the same run comes with Optimize

    void Optimize(std::vector<QPointF>& points, std::vector<unsigned char>& types) override
    {
        // A point goes if all that was left out since the last kept one stays near the line from there to the next.
        std::vector<QPointF> kept;
        size_t last = 0;
        for (size_t i = 0; i < points.size(); ++i) {
            const bool isEnd = i == 0 || i + 1 == points.size();
            if (isEnd || !AreNear({points.begin() + last + 1, points.begin() + i + 1}, points[last], points[i + 1])) {
                kept.push_back(points[i]);
                last = i;
            }
        }
        points = kept;
        types.assign(kept.size(), 0); // 0: straight; curves would be 1, in triples of control, control, end
    }
};

} // namespace

// Both entries are C functions; the library frees what it got only through the second.

ICurveSimulate* NewInterface()
{
    return new StraightRuns;
}

void ReleaseInterface(ICurveSimulate* simulate)
{
    delete static_cast<StraightRuns*>(simulate);
}
