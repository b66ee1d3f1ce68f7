#include "machine/OrderPlan.h"

#include "machine/ColorBatches.h"
#include "machine/Containment.h"
#include "machine/Units.h"

#include <malloc.h>

namespace shapedocument {

namespace {

constexpr size_t kMany = 50'000; // paths whose search leaves megabytes in small blocks

}

UnitLists::UnitLists(size_t units, std::span<const std::pair<uint32_t, uint32_t>> pairs)
    : m_begins(units + 1), m_members(pairs.size())
{
    for (const auto& [owner, member] : pairs)
        ++m_begins[owner + 1];
    for (size_t i = 0; i < units; ++i)
        m_begins[i + 1] += m_begins[i];
    std::vector<size_t> next(m_begins);
    for (const auto& [owner, member] : pairs)
        m_members[next[owner]++] = member;
}

OrderPlan MakePlan(std::span<const OrderedPath> paths, const PathOrderOptions& options)
{
    OrderPlan plan(options);
    MakeUnits(paths, plan);
    std::vector<uint32_t> unitOf(paths.size());
    for (uint32_t i = 0; i < plan.units.size(); ++i)
        unitOf[plan.units[i].cut] = i;
    const Enclosures enclosures = FindEnclosures(paths, plan.watch);
    if (paths.size() > kMany)
        malloc_trim(0); // before the tour's lists, which are the largest
    std::vector<std::pair<uint32_t, uint32_t>> pairs;
    for (const Enclosure& step : enclosures.steps)
        pairs.emplace_back(unitOf[step.inner], unitOf[step.outer]);
    plan.holders = UnitLists(plan.units.size(), pairs);
    for (auto& [inner, outer] : pairs)
        std::swap(inner, outer);
    plan.held = UnitLists(plan.units.size(), pairs);
    for (const uint32_t path : enclosures.unknown)
        plan.unknown.push_back(unitOf[path]);
    std::vector<unsigned int> colors;
    for (const Unit& unit : plan.units)
        colors.push_back(options.mixColors ? 0 : paths[unit.cut].color);
    plan.batches = MakeBatches(plan, colors, plan.unknown);
    return plan;
}

} // namespace shapedocument
