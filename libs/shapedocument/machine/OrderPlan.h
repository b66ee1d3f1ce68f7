/// The input of ordering: units that are followed without a break, and which must come before which.
#pragma once

#include "machine/PathOrder.h"
#include "plane/BoxTree.h"

#include "geometry/Geometry.h"

#include <cstdint>

namespace shapedocument {

/// One way of following a unit.
struct Entry
{
    QPointF begin; ///< where the head goes
    QPointF end;   ///< where the head is afterwards
    uint32_t unit;
    uint32_t first; ///< index of the point where a closed cut starts and ends; 0 for an open one, or kReversed

    static constexpr uint32_t kReversed = UINT32_MAX; ///< an open cut from its last point to its first
    bool IsReversed() const { return first == kReversed; }
};

/// A cut with its leads. The entries of one unit stand together, both directions of an open cut side by side.
struct Unit
{
    static constexpr uint32_t kNone = UINT32_MAX;

    uint32_t cut;
    uint32_t leadIn = kNone;
    uint32_t leadOut = kNone;
    uint32_t firstEntry = 0;
    uint32_t entries = 0;
    bool turnable = false; ///< may be followed either way: a run of such units costs the same backwards
    Box box = {};          ///< of the ends of all entries
};

/// Lists of units, one for each unit.
class UnitLists
{
public:
    UnitLists() = default;

    /// pairs: an owner, and a member of its list.
    UnitLists(size_t units, std::span<const std::pair<uint32_t, uint32_t>> pairs);

    std::span<const uint32_t> Of(uint32_t unit) const
    {
        return std::span(m_members).subspan(m_begins[unit], m_begins[unit + 1] - m_begins[unit]);
    }

private:
    std::vector<size_t> m_begins;
    std::vector<uint32_t> m_members;
};

struct OrderPlan
{
    /// The options are borrowed.
    explicit OrderPlan(const PathOrderOptions& options)
        : homes(options.homes), watch(options.progress, WorkStep::Ordering)
    {}

    std::vector<Unit> units;
    std::vector<Entry> entries;
    UnitLists holders;                          ///< of each unit the units around it: they come later
    UnitLists held;                             ///< of each unit the units inside it
    std::vector<uint32_t> unknown;              ///< units whose contents were not determined
    std::vector<std::vector<uint32_t>> batches; ///< units that may be mixed; the batches follow each other
    std::array<QPointF, 2> homes;
    WorkWatch watch; ///< to be asked regularly

    std::span<const Entry> EntriesOf(uint32_t unit) const
    {
        return std::span(entries).subspan(units[unit].firstEntry, units[unit].entries);
    }
};

OrderPlan MakePlan(std::span<const OrderedPath> paths, const PathOrderOptions& options);

/// Indices of entries in the order in which they are followed, one of each unit.
using Tour = std::vector<uint32_t>;

/// Length (mm) of the move to a point from the end of what stands before a place of the tour; from both homes, the
/// mean.
inline double MoveTo(const OrderPlan& plan, const Tour& tour, size_t place, QPointF point)
{
    if (place > 0)
        return shapes::PointDistance(plan.entries[tour[place - 1]].end, point);
    return (shapes::PointDistance(plan.homes[0], point) + shapes::PointDistance(plan.homes[1], point)) / 2;
}

/// Length (mm) of the move to the place's entry; 0 behind the last.
inline double MoveBefore(const OrderPlan& plan, const Tour& tour, size_t place)
{
    return place < tour.size() ? MoveTo(plan, tour, place, plan.entries[tour[place]].begin) : 0;
}

} // namespace shapedocument
