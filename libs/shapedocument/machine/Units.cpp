#include "machine/Units.h"

#include "machine/Contour.h"
#include "plane/Length.h"

#include <numbers>
#include <numeric>

namespace shapedocument {

namespace {

constexpr size_t kMostEntries = 600'000; // of all closed cuts together, about
constexpr size_t kMostOfOne = 128;       // of a closed cut
constexpr size_t kFewestOfOne = 4;
constexpr double kCornerTurn = std::numbers::pi / 6; // sharper turns are corners; those of flattened curves are flatter

/// Half of the angle that the segment's arc sweeps.
double HalfSweep(const JobPoint& from)
{
    return from.bulge == 0 ? 0 : 2 * std::atan(from.bulge);
}

double Heading(JobPoints points, size_t from)
{
    const QPointF way = points[from + 1].point - points[from].point;
    return std::atan2(way.y(), way.x());
}

bool IsCorner(double arriving, double leaving)
{
    return std::abs(std::remainder(leaving - arriving, 2 * std::numbers::pi)) > kCornerTurn;
}

/// Indices of the points where a closed cut may start: its corners, or all points when it has none.
std::vector<uint32_t> StartsOf(JobPoints points)
{
    const auto count = static_cast<uint32_t>(points.size() - 1);
    std::vector<uint32_t> starts;
    double arriving = Heading(points, count - 1) + HalfSweep(points[count - 1]);
    for (uint32_t i = 0; i < count; ++i) {
        const double heading = Heading(points, i), half = HalfSweep(points[i]);
        if (IsCorner(arriving, heading - half))
            starts.push_back(i);
        arriving = heading + half;
    }
    if (starts.empty()) {
        starts.resize(count);
        std::iota(starts.begin(), starts.end(), 0);
    }
    return starts;
}

class UnitMaker
{
public:
    UnitMaker(std::span<const OrderedPath> paths, OrderPlan& plan) : m_paths(paths), m_plan(plan)
    {
        m_mostOfOne = std::clamp(kMostEntries / std::max<size_t>(paths.size(), 1), kFewestOfOne, kMostOfOne);
    }

    /// Expects the paths of one shape side by side.
    void Run()
    {
        m_plan.units.reserve(m_paths.size());
        m_plan.entries.reserve(MostEntries()); // of which no memory is taken until they are there
        for (uint32_t begin = 0, end = 0; begin < m_paths.size(); begin = end) {
            while (end < m_paths.size() && m_paths[end].shape == m_paths[begin].shape)
                ++end;
            AddShape(begin, end);
        }
        for (uint32_t i = 0; i < m_plan.units.size(); ++i)
            AddEntries(i);
    }

private:
    void AddShape(uint32_t begin, uint32_t end)
    {
        const size_t known = m_plan.units.size();
        for (uint32_t i = begin; i < end; ++i)
            if (m_paths[i].kind == PathKind::Cut)
                m_plan.units.push_back({i});
        const std::span<Unit> cuts = std::span(m_plan.units).subspan(known);
        for (uint32_t i = begin; i < end; ++i)
            if (m_paths[i].kind != PathKind::Cut && !Attach(cuts, i))
                m_loose.push_back({i});
        m_plan.units.insert(m_plan.units.end(), m_loose.begin(), m_loose.end());
        m_loose.clear();
    }

    size_t MostEntries() const
    {
        size_t most = 0;
        for (const OrderedPath& path : m_paths)
            most += path.closed ? std::clamp<size_t>(path.points.size(), 2, m_mostOfOne) : 2;
        return most;
    }

    /// Attaches a lead-in to the first cut that starts at it, a lead-out to the first that ends at it.
    bool Attach(std::span<Unit> cuts, uint32_t lead)
    {
        const JobPoints line = m_paths[lead].points;
        const bool in = m_paths[lead].kind == PathKind::LeadIn;
        const auto meets = [&](const Unit& unit) {
            const JobPoints cut = m_paths[unit.cut].points;
            const QPointF gap = in ? cut.front().point - line.back().point : line.front().point - cut.back().point;
            return (in ? unit.leadIn : unit.leadOut) == Unit::kNone && Length(gap) <= Contour::kMargin;
        };
        const auto found = std::find_if(cuts.begin(), cuts.end(), meets);
        if (found != cuts.end())
            (in ? found->leadIn : found->leadOut) = lead;
        return found != cuts.end();
    }

    void AddEntries(uint32_t number)
    {
        Unit& unit = m_plan.units[number];
        const OrderedPath& cut = m_paths[unit.cut];
        const bool leads = unit.leadIn != Unit::kNone || unit.leadOut != Unit::kNone || cut.kind != PathKind::Cut;
        unit.turnable = !leads;
        unit.firstEntry = static_cast<uint32_t>(m_plan.entries.size());
        if (!leads && cut.closed)
            AddStarts(cut.points, number);
        else
            AddEnds(unit, number);
        unit.entries = static_cast<uint32_t>(m_plan.entries.size()) - unit.firstEntry;
        for (const Entry& entry : m_plan.EntriesOf(number)) {
            unit.box.Add(Box::Of(entry.begin));
            unit.box.Add(Box::Of(entry.end));
        }
    }

    void AddStarts(JobPoints points, uint32_t number)
    {
        const std::vector<uint32_t> starts = StartsOf(points);
        const size_t count = std::min(starts.size(), m_mostOfOne);
        for (size_t i = 0; i < count; ++i) {
            const uint32_t first = starts[i * starts.size() / count];
            m_plan.entries.push_back({points[first].point, points[first].point, number, first});
        }
    }

    void AddEnds(const Unit& unit, uint32_t number)
    {
        const QPointF begin = m_paths[unit.leadIn != Unit::kNone ? unit.leadIn : unit.cut].points.front().point;
        const QPointF end = m_paths[unit.leadOut != Unit::kNone ? unit.leadOut : unit.cut].points.back().point;
        m_plan.entries.push_back({begin, end, number, 0});
        if (unit.turnable)
            m_plan.entries.push_back({end, begin, number, Entry::kReversed});
    }

    std::span<const OrderedPath> m_paths;
    OrderPlan& m_plan;
    size_t m_mostOfOne = 0;
    std::vector<Unit> m_loose; ///< leads without a cut
};

} // namespace

void MakeUnits(std::span<const OrderedPath> paths, OrderPlan& plan)
{
    UnitMaker(paths, plan).Run();
}

} // namespace shapedocument
