#include "OutlineDeviation.h"

#include "fit/OutlineDistance.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <set>

namespace test {

namespace {

constexpr double kCorner = 20.0; // degrees

double TurnDegrees(QPointF a, QPointF b)
{
    const double cross = a.x() * b.y() - a.y() * b.x();
    return std::abs(std::atan2(cross, QPointF::dotProduct(a, b))) * 180.0 / std::numbers::pi;
}

bool ByPlace(QPointF a, QPointF b)
{
    return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
}

using Places = std::set<QPointF, decltype(&ByPlace)>;

/// Calls visit(place, turn in degrees, whether a cubic meets there) for every joint, that of a closed outline's ends
/// included.
template <typename Visit>
void ForJoints(const std::vector<QPointF>& points, const std::vector<unsigned char>& types, Visit visit)
{
    struct Joint
    {
        QPointF place, arriving, leaving;
        bool curved;
    };
    std::vector<Joint> joints;
    QPointF here = points.front();
    joints.push_back({here, {}, {}, false});
    for (size_t i = 1; i < points.size(); ++i) {
        const bool curved = types[i] == 1 && i + 2 < points.size();
        const QPointF end = curved ? points[i + 2] : points[i];
        if (end == here && !curved)
            continue;
        joints.back().leaving = points[i] - here;
        joints.back().curved |= curved;
        joints.push_back({end, curved ? end - points[i + 1] : end - here, {}, curved});
        here = end;
        i += curved ? 2 : 0;
    }
    if (joints.size() > 2 && joints.front().place == joints.back().place) {
        joints.back().leaving = joints.front().leaving;
        joints.back().curved |= joints.front().curved;
    } else {
        joints.pop_back();
    }
    for (size_t i = 1; i < joints.size(); ++i)
        visit(joints[i].place, TurnDegrees(joints[i].arriving, joints[i].leaving), joints[i].curved);
}

} // namespace

FitQuality Compare(const std::vector<QPointF>& polyline, const std::vector<QPointF>& points,
                   const std::vector<unsigned char>& types)
{
    FitQuality quality;
    quality.deviation = shapedocument::OutlineDistance(polyline, shapedocument::DrawnRun(points, types));

    Places before(&ByPlace), after(&ByPlace);
    ForJoints(polyline, std::vector<unsigned char>(polyline.size(), 0), [&](QPointF place, double turn, bool) {
        if (turn > kCorner)
            before.insert(place);
    });
    ForJoints(points, types, [&](QPointF place, double turn, bool curved) {
        if (turn > kCorner) {
            after.insert(place);
            quality.cornersInvented += before.count(place) ? 0 : 1;
        } else if (curved) {
            quality.sharpestSmoothJoint = std::max(quality.sharpestSmoothJoint, turn);
        }
    });
    quality.cornersLost = static_cast<int>(
        std::count_if(before.begin(), before.end(), [&](QPointF place) { return after.count(place) == 0; }));
    return quality;
}

double VertexDistance(const std::vector<QPointF>& polyline, const std::vector<QPointF>& points,
                      const std::vector<unsigned char>& types)
{
    constexpr size_t window = 500; // pieces of the fit looked at on each side of the last place; all when that is worse
    const std::vector<QPointF> line = shapedocument::DrawnRun(points, types);
    double worst = 0.0;
    size_t at = 0;
    for (const QPointF& vertex : polyline) {
        double nearest = std::numeric_limits<double>::max();
        const auto look = [&](size_t from, size_t to) {
            for (size_t i = from; i + 1 < to; ++i) {
                const QPointF along = line[i + 1] - line[i], off = vertex - line[i];
                const double length2 = std::max(QPointF::dotProduct(along, along), std::numeric_limits<double>::min());
                const QPointF beside = off - along * std::clamp(QPointF::dotProduct(off, along) / length2, 0.0, 1.0);
                const double distance = std::hypot(beside.x(), beside.y());
                at = distance < nearest ? i : at;
                nearest = std::min(nearest, distance);
            }
        };
        look(at > window ? at - window : 0, std::min(at + window, line.size()));
        if (nearest > worst)
            look(0, line.size());
        worst = std::max(worst, nearest);
    }
    return worst;
}

} // namespace test
