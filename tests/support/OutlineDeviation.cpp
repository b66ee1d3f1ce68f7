#include "OutlineDeviation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <set>

namespace support {

namespace {

constexpr double kCorner = 20.0; // degrees

double Distance(QPointF p, QPointF a, QPointF b)
{
    const QPointF along = b - a;
    const double length2 = QPointF::dotProduct(along, along);
    const double at = length2 > 0.0 ? std::clamp(QPointF::dotProduct(p - a, along) / length2, 0.0, 1.0) : 0.0;
    const QPointF off = p - a - along * at;
    return std::hypot(off.x(), off.y());
}

/// Largest distance of points on line (vertices, and three between each two) from other. Both lines run alike, so the
/// nearest place is sought from the last one on, and anywhere before it counts as the worst.
double OneWay(const std::vector<QPointF>& line, const std::vector<QPointF>& other)
{
    double worst = 0.0;
    size_t at = 0;
    for (size_t i = 0; i + 1 < line.size(); ++i) {
        for (const double share : {0.0, 0.25, 0.5, 0.75, 1.0}) {
            const QPointF p = line[i] + (line[i + 1] - line[i]) * share;
            double nearest = std::numeric_limits<double>::max();
            const auto look = [&](size_t from, size_t to) {
                for (size_t k = from; k < to; ++k) {
                    const double distance = Distance(p, other[k], other[k + 1]);
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

/// Calls visit(place, turn in degrees, whether a cubic meets there) for every joint, that of a closed outline's ends included.
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
        if (end == here && !curved) {
            continue;
        }
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
    for (size_t i = 1; i < joints.size(); ++i) {
        visit(joints[i].place, TurnDegrees(joints[i].arriving, joints[i].leaving), joints[i].curved);
    }
}

} // namespace

std::vector<QPointF> Drawn(const std::vector<QPointF>& points, const std::vector<unsigned char>& types)
{
    constexpr int pieces = 512;
    std::vector<QPointF> line{points.front()};
    for (size_t i = 1; i < points.size(); ++i) {
        if (types[i] != 1) {
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

FitQuality Compare(const std::vector<QPointF>& polyline, const std::vector<QPointF>& points,
                   const std::vector<unsigned char>& types)
{
    FitQuality quality;
    const std::vector<QPointF> drawn = Drawn(points, types);
    quality.deviation = std::max(OneWay(polyline, drawn), OneWay(drawn, polyline));

    Places before(&ByPlace), after(&ByPlace);
    ForJoints(polyline, std::vector<unsigned char>(polyline.size(), 0), [&](QPointF place, double turn, bool) {
        if (turn > kCorner) {
            before.insert(place);
        }
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

} // namespace support
