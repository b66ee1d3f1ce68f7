#include "machine/PathOrder.h"

#include "machine/NearestTour.h"
#include "machine/OrderPlan.h"
#include "machine/TourShaking.h"

namespace shapedocument {

std::vector<PlacedPath> OrderPaths(std::span<const OrderedPath> paths, const PathOrderOptions& options)
{
    std::vector<PlacedPath> placed;
    if (paths.empty())
        return placed;
    const OrderPlan plan = MakePlan(paths, options);
    Tour tour = MakeNearestTour(plan);
    ImproveTour(plan, tour);
    for (const uint32_t number : tour) {
        const Entry& entry = plan.entries[number];
        const Unit& unit = plan.units[entry.unit];
        if (unit.leadIn != Unit::kNone)
            placed.push_back({unit.leadIn, false, 0});
        placed.push_back({unit.cut, entry.reversed, entry.first});
        if (unit.leadOut != Unit::kNone)
            placed.push_back({unit.leadOut, false, 0});
    }
    return placed;
}

std::vector<JobPoint> PlacedPoints(JobPoints points, const PlacedPath& placed)
{
    std::vector<JobPoint> result(points.begin(), points.end());
    if (placed.reversed) {
        std::reverse(result.begin(), result.end());
        for (size_t i = 0; i + 1 < result.size(); ++i)
            result[i].bulge = -result[i + 1].bulge; // a bulge belongs to the segment behind its point
        result.back().bulge = 0;
    } else if (placed.first > 0) {
        result.pop_back();
        std::rotate(result.begin(), result.begin() + static_cast<std::ptrdiff_t>(placed.first), result.end());
        result.push_back({result.front().point, 0});
    }
    return result;
}

} // namespace shapedocument
