#include "machine/LocalSearch.h"

#include <array>

namespace shapedocument {

namespace {

constexpr size_t kNeighbours = 8; // of an end
constexpr size_t kLongestMoved = 3;
constexpr size_t kShortestReach = 1000;
constexpr size_t kReachTimesUnits = 50'000'000; // bounds the cost of a move, which shifts all that lies between
constexpr size_t kStepsOfPair = 20;             // cost of one pair, in comparisons
constexpr size_t kStepsOfSearch = 300;
constexpr double kLeastGain = 1e-6; // mm; less is rounding

} // namespace

LocalSearch::LocalSearch(const OrderPlan& plan, Tour& tour, size_t& stepsLeft)
    : m_plan(plan), m_tour(tour), m_stepsLeft(stepsLeft),
      m_reach(std::max(kShortestReach, kReachTimesUnits / std::max<size_t>(tour.size(), 1))), m_places(tour.size()),
      m_bounds(tour.size()), m_firstNeighbours(tour.size()), m_neighbourCounts(tour.size()), m_waiting(tour.size())
{
    size_t begin = 0;
    for (const std::vector<uint32_t>& batch : plan.batches) {
        for (const uint32_t unit : batch)
            m_bounds[unit] = {begin, begin + batch.size()};
        begin += batch.size();
    }
    if (!tour.empty())
        Placed(0, tour.size() - 1);
    FindNeighbours();
    for (size_t i = 0; i < tour.size(); ++i)
        Wake(UnitAt(i));
}

bool LocalSearch::Improve()
{
    bool any = false;
    while (!m_queue.empty() && m_stepsLeft > 0) {
        m_plan.watch.Ask();
        const uint32_t unit = m_queue.front();
        m_queue.pop_front();
        m_waiting[unit] = false;
        while (m_stepsLeft > 0 && ImproveAround(unit))
            any = true;
    }
    return any;
}

bool LocalSearch::SwapRuns(size_t first, size_t middle, size_t end)
{
    for (size_t i = first; i < middle; ++i)
        if (IsHeldWithin(UnitAt(i), middle - 1, end - 1))
            return false;
    std::rotate(Place(first), Place(middle), Place(end));
    Placed(first, end - 1);
    Wake(UnitAt(first + end - middle));
    Wake(UnitAt(first + end - middle - 1));
    return true;
}

void LocalSearch::Restore(const Tour& tour)
{
    m_tour = tour;
    for (size_t i = 0; i < tour.size(); ++i)
        m_places[UnitAt(i)] = i;
    Spend(tour.size());
}

size_t LocalSearch::SearchesForNeighbours() const
{
    size_t searches = m_tour.size();
    for (size_t i = 0; i < m_tour.size(); ++i)
        searches += At(i).begin != At(i).end;
    return searches;
}

/// Both ends of each place are searched from where they differ. No search when it would use up all steps.
void LocalSearch::FindNeighbours()
{
    const size_t searches = SearchesForNeighbours();
    if (kStepsOfSearch * searches >= m_stepsLeft)
        return Spend(kStepsOfSearch * searches);
    m_neighbours.reserve((kNeighbours + 1) * searches);
    std::vector<Box> ends;
    ends.reserve(2 * m_tour.size());
    for (const uint32_t entry : m_tour) {
        ends.push_back(Box::Of(m_plan.entries[entry].begin));
        ends.push_back(Box::Of(m_plan.entries[entry].end));
    }
    BoxTree tree(std::move(ends));
    const auto setLive = [&](const Bounds& bounds, bool live) {
        for (size_t i = bounds.begin; i < bounds.end; ++i) {
            tree.SetLive(static_cast<uint32_t>(2 * i), live);
            tree.SetLive(static_cast<uint32_t>(2 * i + 1), live && At(i).begin != At(i).end);
        }
    };
    for (const std::vector<uint32_t>& batch : m_plan.batches) {
        const Bounds bounds = m_bounds[batch.front()];
        setLive(bounds, true);
        for (size_t i = bounds.begin; i < bounds.end; ++i)
            FindNeighbours(tree, i);
        setLive(bounds, false);
    }
}

void LocalSearch::FindNeighbours(const BoxTree& ends, size_t place)
{
    m_plan.watch.Ask();
    const uint32_t unit = UnitAt(place);
    std::array<uint32_t, 2 * (kNeighbours + 2)> found;
    auto end = found.begin();
    const auto add = [&](QPointF point) {
        ends.FindNearest(point, kNeighbours + 2, m_near); // two more: the place's own ends are among them
        for (const BoxTree::Near& near : m_near)
            *end++ = UnitAt(near.box / 2);
        Spend(kStepsOfSearch);
    };
    add(At(place).begin);
    if (At(place).begin != At(place).end)
        add(At(place).end);
    std::sort(found.begin(), end);
    end = std::remove(found.begin(), std::unique(found.begin(), end), unit);
    m_firstNeighbours[unit] = m_neighbours.size();
    m_neighbourCounts[unit] = static_cast<uint8_t>(end - found.begin());
    m_neighbours.insert(m_neighbours.end(), found.begin(), end);
}

/// Makes the first move found that shortens the tour beside one of the unit's neighbours. Skips a neighbour farther
/// away than the longer of the moves to and from the unit: it is tried from its own side.
bool LocalSearch::ImproveAround(uint32_t unit)
{
    const size_t place = m_places[unit];
    const Box& box = m_plan.units[unit].box;
    const double longest = std::max(MoveBefore(m_plan, m_tour, place), MoveBefore(m_plan, m_tour, place + 1));
    for (const uint32_t neighbour : NeighboursOf(unit)) {
        const Entry& other = At(m_places[neighbour]);
        Spend(1);
        if (std::min(box.Distance(other.begin), box.Distance(other.end)) > longest)
            continue;
        Spend(kStepsOfPair);
        if (TurnBetween(unit, neighbour) || MoveBeside(unit, neighbour))
            return true;
    }
    const Bounds bounds = m_bounds[unit];
    return Turn(bounds.begin, place) || Turn(place, bounds.end - 1) || Move(place, 1, bounds.begin) ||
           Move(place, 1, bounds.end);
}

/// 2-opt: reverses either of the runs whose reversal puts the two units side by side.
bool LocalSearch::TurnBetween(uint32_t a, uint32_t b)
{
    const auto [first, last] = std::minmax(m_places[a], m_places[b]);
    return Turn(first + 1, last) || Turn(first, last - 1);
}

bool LocalSearch::Turn(size_t first, size_t last)
{
    if (last <= first || last - first > m_reach)
        return false;
    double gain = MoveBefore(m_plan, m_tour, first) + MoveBefore(m_plan, m_tour, last + 1);
    gain -= MoveTo(m_plan, m_tour, first, At(last).end);
    if (last + 1 < m_tour.size())
        gain -= shapes::PointDistance(At(first).begin, At(last + 1).begin);
    if (gain < kLeastGain || !MayTurn(first, last))
        return false;
    TurnEntries(first, last);
    Placed(first, last);
    return true;
}

bool LocalSearch::MayTurn(size_t first, size_t last)
{
    for (size_t i = first; i <= last; ++i) {
        if (!m_plan.units[UnitAt(i)].turnable || IsHeldWithin(UnitAt(i), i, last))
            return false;
    }
    return true;
}

/// Whether a unit that must come behind this one stands after place, up to and including last.
bool LocalSearch::IsHeldWithin(uint32_t unit, size_t place, size_t last)
{
    const auto holders = m_plan.holders.Of(unit);
    Spend(1 + holders.size());
    return std::any_of(holders.begin(), holders.end(),
                       [&](uint32_t outer) { return m_places[outer] > place && m_places[outer] <= last; });
}

bool LocalSearch::HoldsWithin(uint32_t unit, size_t first, size_t place)
{
    const auto held = m_plan.held.Of(unit);
    Spend(1 + held.size());
    return std::any_of(held.begin(), held.end(),
                       [&](uint32_t inner) { return m_places[inner] >= first && m_places[inner] < place; });
}

/// Reverses the order of the entries, and each entry.
void LocalSearch::TurnEntries(size_t first, size_t last)
{
    std::reverse(Place(first), Place(last + 1));
    for (size_t i = first; i <= last; ++i) {
        const Unit& unit = m_plan.units[UnitAt(i)];
        if (At(i).IsReversed())
            m_tour[i] = unit.firstEntry;
        else if (unit.entries == 2 && m_plan.entries[unit.firstEntry + 1].IsReversed())
            m_tour[i] = unit.firstEntry + 1;
    }
    Spend(last - first);
}

/// Or-opt: moves runs that start or end with the unit to either side of the neighbour.
bool LocalSearch::MoveBeside(uint32_t unit, uint32_t neighbour)
{
    const Bounds bounds = m_bounds[unit];
    for (size_t count = 1; count <= kLongestMoved; ++count)
        for (const size_t to : {m_places[neighbour], m_places[neighbour] + 1}) {
            const size_t place = m_places[unit];
            if (place + count <= bounds.end && Move(place, count, to))
                return true;
            if (count > 1 && place + 1 >= bounds.begin + count && Move(place + 1 - count, count, to))
                return true;
        }
    return false;
}

/// Moves the run in front of the place to, counted before the move.
bool LocalSearch::Move(size_t first, size_t count, size_t to)
{
    const size_t end = first + count;
    if ((to >= first && to <= end) || (to > end ? to - first : end - to) > m_reach)
        return false;
    double gain = MoveBefore(m_plan, m_tour, first) + MoveBefore(m_plan, m_tour, end) + MoveBefore(m_plan, m_tour, to);
    if (end < m_tour.size())
        gain -= MoveTo(m_plan, m_tour, first, At(end).begin);
    gain -= kLeastGain;
    return gain > 0 && (count == 1 ? MoveUnit(first, to, gain) : MoveRun(first, end, to, gain));
}

/// Length (mm) of the moves from what stands before a place to a run, and from the run to what stands there.
double LocalSearch::WayOver(size_t to, QPointF begin, QPointF end) const
{
    return MoveTo(m_plan, m_tour, to, begin) + (to < m_tour.size() ? shapes::PointDistance(end, At(to).begin) : 0);
}

/// Moves a single unit, with the best of its entries.
bool LocalSearch::MoveUnit(size_t place, size_t to, double gain)
{
    const Unit& unit = m_plan.units[UnitAt(place)];
    const bool between = to > 0 && to < m_tour.size();
    if (between && unit.box.Distance(At(to - 1).end) + unit.box.Distance(At(to).begin) > gain)
        return false;
    uint32_t entry = Unit::kNone;
    for (uint32_t i = unit.firstEntry; i < unit.firstEntry + unit.entries; ++i) {
        const double way = WayOver(to, m_plan.entries[i].begin, m_plan.entries[i].end);
        if (way < gain) {
            gain = way;
            entry = i;
        }
    }
    Spend(unit.entries);
    if (entry == Unit::kNone || !MayMove(place, place + 1, to))
        return false;
    m_tour[place] = entry;
    Shift(place, place + 1, to);
    return true;
}

bool LocalSearch::MoveRun(size_t first, size_t end, size_t to, double gain)
{
    const double onwards = WayOver(to, At(first).begin, At(end - 1).end);
    const double turned = WayOver(to, At(end - 1).end, At(first).begin);
    if (std::min(onwards, turned) > gain || !MayMove(first, end, to))
        return false;
    if (turned < onwards && MayTurn(first, end - 1))
        TurnEntries(first, end - 1);
    else if (onwards > gain)
        return false;
    Shift(first, end, to);
    return true;
}

bool LocalSearch::MayMove(size_t first, size_t end, size_t to)
{
    for (size_t i = first; i < end; ++i)
        if (to > end ? IsHeldWithin(UnitAt(i), end - 1, to - 1) : HoldsWithin(UnitAt(i), to, first))
            return false;
    return true;
}

void LocalSearch::Shift(size_t first, size_t end, size_t to)
{
    if (to > end) {
        std::rotate(Place(first), Place(end), Place(to));
        Placed(first, to - 1);
    } else {
        std::rotate(Place(to), Place(first), Place(end));
        Placed(to, end - 1);
    }
}

/// Updates the units from first to last, which have moved, and queues those near both ends of that run.
void LocalSearch::Placed(size_t first, size_t last)
{
    for (size_t i = first; i <= last; ++i)
        m_places[UnitAt(i)] = i;
    Spend(last - first);
    for (size_t i = first > 0 ? first - 1 : 0; i <= std::min(last + 1, m_tour.size() - 1); ++i)
        if (i <= first + kLongestMoved || i + kLongestMoved >= last)
            Wake(UnitAt(i));
}

void LocalSearch::Wake(uint32_t unit)
{
    if (!m_waiting[unit])
        m_queue.push_back(unit);
    m_waiting[unit] = true;
}

} // namespace shapedocument
