#include "machine/NearestTour.h"

#include "plane/BoxTree.h"

namespace shapedocument {

namespace {

std::vector<Box> BeginsOf(const OrderPlan& plan)
{
    std::vector<Box> begins;
    begins.reserve(plan.entries.size());
    for (const Entry& entry : plan.entries)
        begins.push_back(Box::Of(entry.begin));
    return begins;
}

class NearestSearch
{
public:
    explicit NearestSearch(const OrderPlan& plan)
        : m_plan(plan), m_inside(plan.units.size()), m_batch(plan.units.size()), m_begins(BeginsOf(plan))
    {
        for (uint32_t unit = 0; unit < plan.units.size(); ++unit)
            m_inside[unit] = static_cast<uint32_t>(plan.held.Of(unit).size());
        for (uint32_t i = 0; i < plan.batches.size(); ++i)
            for (const uint32_t unit : plan.batches[i])
                m_batch[unit] = i;
    }

    Tour Run()
    {
        for (size_t i = 0; i < m_plan.batches.size(); ++i) {
            m_current = i;
            for (const uint32_t unit : m_plan.batches[i])
                Open(unit);
            for (size_t left = m_plan.batches[i].size(); left > 0; --left)
                Visit(Nearest());
        }
        return std::move(m_tour);
    }

private:
    void Open(uint32_t unit)
    {
        if (m_inside[unit] == 0 && m_batch[unit] == m_current)
            SetLive(unit, true);
    }

    void SetLive(uint32_t unit, bool live)
    {
        const Unit& entries = m_plan.units[unit];
        for (uint32_t i = 0; i < entries.entries; ++i)
            m_begins.SetLive(entries.firstEntry + i, live);
    }

    /// The nearest entry. Starts from the first home; the other one counts when the tour is improved.
    uint32_t Nearest()
    {
        const QPointF head = m_tour.empty() ? m_plan.homes[0] : m_plan.entries[m_tour.back()].end;
        m_begins.FindNearest(head, 1, m_found);
        return m_found.front().box;
    }

    void Visit(uint32_t entry)
    {
        m_plan.watch.Ask();
        m_tour.push_back(entry);
        const uint32_t unit = m_plan.entries[entry].unit;
        SetLive(unit, false);
        for (const uint32_t outer : m_plan.holders.Of(unit)) {
            --m_inside[outer];
            Open(outer);
        }
    }

    const OrderPlan& m_plan;
    std::vector<uint32_t> m_inside; ///< of each unit: units inside it still to be done
    std::vector<uint32_t> m_batch;
    size_t m_current = 0;
    BoxTree m_begins;
    std::vector<BoxTree::Near> m_found;
    Tour m_tour;
};

} // namespace

Tour MakeNearestTour(const OrderPlan& plan)
{
    return NearestSearch(plan).Run();
}

} // namespace shapedocument
