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

bool ByPlace(QPointF a, QPointF b)
{
    return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
}

using Places = std::set<QPointF, decltype(&ByPlace)>;

/// Vertices at which the line turns by more than kCorner, that of a closed line's ends included.
Places Corners(std::vector<QPointF> line)
{
    line.erase(std::unique(line.begin(), line.end()), line.end());
    if (line.size() > 2 && line.front() == line.back())
        line.push_back(line[1]);
    Places corners(&ByPlace);
    for (size_t i = 1; i + 1 < line.size(); ++i)
        if (TurnDegrees(line[i] - line[i - 1], line[i + 1] - line[i]) > kCorner)
            corners.insert(line[i]);
    return corners;
}

/// How many of the places are not among the others.
int CountMissing(const Places& places, const Places& others)
{
    return static_cast<int>(std::ranges::count_if(places, [&](QPointF place) { return !others.contains(place); }));
}

} // namespace

double TurnDegrees(QPointF a, QPointF b)
{
    const double cross = a.x() * b.y() - a.y() * b.x();
    return std::abs(std::atan2(cross, QPointF::dotProduct(a, b))) * 180.0 / std::numbers::pi;
}

FitQuality Compare(const std::vector<QPointF>& polyline, const std::vector<QPointF>& points,
                   const std::vector<unsigned char>& types)
{
    const std::vector<QPointF> drawn = shapedocument::DrawnRun(points, types);
    const Places before = Corners(polyline), after = Corners(drawn);
    return {shapedocument::OutlineDistance(polyline, drawn), CountMissing(before, after), CountMissing(after, before)};
}

double VertexDistance(const std::vector<QPointF>& polyline, const std::vector<QPointF>& points,
                      const std::vector<unsigned char>& types)
{
    const std::vector<QPointF> line = shapedocument::DrawnRun(points, types);
    double worst = 0.0;
    size_t at = 0; // each vertex is looked for from where the last one was found, and no closer than it matters
    for (const QPointF& vertex : polyline) {
        double nearest = std::numeric_limits<double>::max();
        for (size_t looked = 0; looked + 1 < line.size() && nearest > worst; ++looked) {
            at = (at + 1) % (line.size() - 1);
            const QPointF along = line[at + 1] - line[at], off = vertex - line[at];
            const double length2 = std::max(QPointF::dotProduct(along, along), std::numeric_limits<double>::min());
            const QPointF beside = off - along * std::clamp(QPointF::dotProduct(off, along) / length2, 0.0, 1.0);
            nearest = std::min(nearest, std::hypot(beside.x(), beside.y()));
        }
        worst = std::max(worst, nearest);
    }
    return worst;
}

} // namespace test
