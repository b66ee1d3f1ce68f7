#include "machine/PathOrder.h"

#include "machine/NearestTour.h"
#include "machine/OrderPlan.h"
#include "machine/TourShaking.h"

namespace shapedocument {

namespace {

class Blocks
{
public:
    explicit Blocks(const OrderPlan& plan) : m_plan(plan), m_blocks(plan.units.size()), m_unknown(plan.units.size())
    {
        for (const uint32_t unit : plan.unknown)
            m_unknown[unit] = true;
    }

    /// The block of a unit; to be called in the order of the tour.
    uint32_t Next(uint32_t unit)
    {
        const auto held = m_plan.held.Of(unit);
        if (m_unknown[unit] ||
            std::any_of(held.begin(), held.end(), [this](uint32_t inner) { return m_blocks[inner] == m_block; }))
            ++m_block;
        return m_blocks[unit] = m_block;
    }

private:
    const OrderPlan& m_plan;
    std::vector<uint32_t> m_blocks; ///< of each unit so far
    std::vector<bool> m_unknown;
    uint32_t m_block = 0;
};

} // namespace

std::vector<PlacedPath> OrderPaths(std::span<const OrderedPath> paths, const PathOrderOptions& options)
{
    std::vector<PlacedPath> placed;
    if (paths.empty())
        return placed;
    const OrderPlan plan = MakePlan(paths, options);
    Tour tour = MakeNearestTour(plan);
    ImproveTour(plan, tour);
    Blocks blocks(plan);
    for (const uint32_t number : tour) {
        const Entry& entry = plan.entries[number];
        const Unit& unit = plan.units[entry.unit];
        const uint32_t block = blocks.Next(entry.unit);
        if (unit.leadIn != Unit::kNone)
            placed.push_back({unit.leadIn, false, 0, block});
        placed.push_back({unit.cut, entry.IsReversed(), entry.IsReversed() ? 0 : entry.first, block});
        if (unit.leadOut != Unit::kNone)
            placed.push_back({unit.leadOut, false, 0, block});
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
