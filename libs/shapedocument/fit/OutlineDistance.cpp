#include "fit/OutlineDistance.h"

#include "geometry/Geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace shapedocument {

namespace {

/// Largest distance of points on line (vertices, and three between each two) from other. As both have the same
/// direction, the nearest place is searched around the last one, and everywhere only if that would be a new maximum.
double OneWay(const std::vector<QPointF>& line, const std::vector<QPointF>& other, WorkWatch& watch)
{
    double worst = 0.0;
    size_t at = 0;
    for (size_t i = 0; i + 1 < line.size(); ++i) {
        watch.Next();
        for (const double share : {0.0, 0.25, 0.5, 0.75, 1.0}) {
            const QPointF p = line[i] + (line[i + 1] - line[i]) * share;
            double nearest = std::numeric_limits<double>::max();
            const auto look = [&](size_t from, size_t to) {
                for (size_t k = from; k < to; ++k) {
                    const double distance = std::sqrt(shapes::SegmentDistance2(p, other[k], other[k + 1]));
                    if (distance < nearest) {
                        nearest = distance;
                        at = k;
                    }
                }
            };
            look(at > 40 ? at - 40 : 0, std::min(at + 40, other.size() - 1));
            if (nearest > worst) {
                look(0, other.size() - 1);
            }
            worst = std::max(worst, nearest);
        }
    }
    return worst;
}

} // namespace

std::vector<QPointF> DrawnRun(const std::vector<QPointF>& points, const std::vector<unsigned char>& types)
{
    constexpr int pieces = 512;
    std::vector<QPointF> line{points.front()};
    for (size_t i = 1; i < points.size(); ++i) {
        if (types[i] != 1 || i + 2 >= points.size()) {
            line.push_back(points[i]);
            continue;
        }
        const QPointF p0 = line.back(), p1 = points[i], p2 = points[i + 1], p3 = points[i + 2];
        for (int k = 1; k <= pieces; ++k) {
            const double t = static_cast<double>(k) / pieces, s = 1.0 - t;
            line.push_back(
                k == pieces ? p3 : p0 * (s * s * s) + p1 * (3 * s * s * t) + p2 * (3 * s * t * t) + p3 * (t * t * t));
        }
        i += 2;
    }
    return line;
}

double OutlineDistance(const std::vector<QPointF>& a, const std::vector<QPointF>& b, const WorkProgress& progress)
{
    WorkWatch watch(progress, WorkStep::Comparing, a.size() + b.size());
    const double there = OneWay(a, b, watch);
    return std::max(there, OneWay(b, a, watch));
}

} // namespace shapedocument
