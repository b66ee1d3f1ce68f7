/// Shortens tours by moving and reversing runs of units beside their neighbours.
#pragma once

#include "machine/OrderPlan.h"
#include "plane/BoxTree.h"

#include <deque>

namespace shapedocument {

/// 2-opt and Or-opt. Keeps the batches, and inside before outside. Draws on a budget of steps, so that the result does
/// not depend on the machine's speed.
class LocalSearch
{
public:
    /// The tour is improved in place. Neighbours are determined once, for the entries that it has now.
    LocalSearch(const OrderPlan& plan, Tour& tour, size_t& stepsLeft);

    /// Makes moves around changed units (at first all) until none helps or the budget is used up. Returns whether one
    /// has helped.
    bool Improve();

    /// Exchanges the runs of units from first to middle and from middle to end. Returns false, unchanged, where inside
    /// before outside forbids it.
    bool SwapRuns(size_t first, size_t middle, size_t end);

    /// Replaces the tour by another one of the same units.
    void Restore(const Tour& tour);

    struct Bounds
    {
        size_t begin, end;
    };

    /// The places of the batch that the unit at a place belongs to.
    Bounds BatchAt(size_t place) const { return m_bounds[UnitAt(place)]; }

private:
    const Entry& At(size_t place) const { return m_plan.entries[m_tour[place]]; }
    uint32_t UnitAt(size_t place) const { return At(place).unit; }
    Tour::iterator Place(size_t place) { return m_tour.begin() + static_cast<std::ptrdiff_t>(place); }
    void Spend(size_t steps) { m_stepsLeft -= std::min(m_stepsLeft, steps); }

    void FindNeighbours();
    void FindNeighbours(const BoxTree& ends, size_t place);
    size_t SearchesForNeighbours() const;
    std::span<const uint32_t> NeighboursOf(uint32_t unit) const
    {
        return std::span(m_neighbours).subspan(m_firstNeighbours[unit], m_neighbourCounts[unit]);
    }

    bool ImproveAround(uint32_t unit);
    bool TurnBetween(uint32_t a, uint32_t b);
    bool Turn(size_t first, size_t last);
    bool MoveBeside(uint32_t unit, uint32_t neighbour);
    bool Move(size_t first, size_t count, size_t to);
    double WayOver(size_t to, QPointF begin, QPointF end) const;
    bool MoveUnit(size_t place, size_t to, double gain);
    bool MoveRun(size_t first, size_t end, size_t to, double gain);

    bool MayTurn(size_t first, size_t last);
    bool MayMove(size_t first, size_t end, size_t to);
    bool IsHeldWithin(uint32_t unit, size_t place, size_t last);
    bool HoldsWithin(uint32_t unit, size_t first, size_t place);

    void TurnEntries(size_t first, size_t last);
    void Shift(size_t first, size_t end, size_t to);
    void Placed(size_t first, size_t last);
    void Wake(uint32_t unit);

    const OrderPlan& m_plan;
    Tour& m_tour;
    size_t& m_stepsLeft;
    size_t m_reach;                         ///< limit of the places over which a run is moved or reversed
    std::vector<size_t> m_places;           ///< of each unit: its place in the tour
    std::vector<Bounds> m_bounds;           ///< of each unit's batch
    std::vector<uint32_t> m_neighbours;     ///< units beside each unit, those of one side by side
    std::vector<size_t> m_firstNeighbours;  ///< of each unit
    std::vector<uint8_t> m_neighbourCounts; ///< likewise; none where there were no steps left to look for them
    std::vector<BoxTree::Near> m_near;
    std::deque<uint32_t> m_queue; ///< units around which something has changed
    std::vector<bool> m_waiting;  ///< in the queue
};

} // namespace shapedocument
