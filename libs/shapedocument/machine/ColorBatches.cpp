#include "machine/ColorBatches.h"

#include <set>
#include <unordered_map>

namespace shapedocument {

namespace {

using Units = std::vector<uint32_t>;

/// Colours are numbered by their first use.
struct ColorState
{
    Units ready;     ///< everything inside these is in a batch already
    size_t left = 0; ///< units not in a batch yet
    /// Pairs of a unit of this colour and one of another colour inside it that is not in a batch yet.
    size_t foreign = 0;
};

class BatchMaker
{
public:
    BatchMaker(const OrderPlan& plan, std::span<const unsigned int> colors, std::span<const uint32_t> last)
        : m_plan(plan), m_last(plan.units.size()), m_inside(plan.units.size()), m_colors(plan.units.size())
    {
        for (const uint32_t unit : last)
            m_last[unit] = true;
        std::unordered_map<unsigned int, uint32_t> numbers;
        for (uint32_t unit = 0; unit < plan.units.size(); ++unit)
            m_colors[unit] = numbers.try_emplace(colors[unit], numbers.size()).first->second;
        m_states.resize(numbers.size());
        for (uint32_t unit = 0; unit < plan.units.size(); ++unit)
            Count(unit);
        for (uint32_t color = 0; color < m_states.size(); ++color)
            File(color);
    }

    std::vector<Units> Run()
    {
        std::vector<Units> batches;
        while (!m_whole.empty() || !m_begun.empty()) {
            const uint32_t color = m_whole.empty() ? *m_begun.begin() : *m_whole.begin();
            batches.push_back(ExtractBatch(color));
        }
        return batches;
    }

private:
    void Count(uint32_t unit)
    {
        if (m_last[unit])
            return;
        ColorState& state = m_states[m_colors[unit]];
        ++state.left;
        m_inside[unit] = m_plan.held.Of(unit).size();
        for (const uint32_t inner : m_plan.held.Of(unit))
            state.foreign += m_colors[inner] != m_colors[unit];
        if (m_inside[unit] == 0)
            state.ready.push_back(unit);
    }

    /// Updates whether the colour is among those that can be done as a whole, and those that can be started.
    void File(uint32_t color)
    {
        const ColorState& state = m_states[color];
        const auto keep = [&](std::set<uint32_t>& colors, bool in) {
            if (in)
                colors.insert(color);
            else
                colors.erase(color);
        };
        keep(m_whole, state.left > 0 && state.foreign == 0);
        keep(m_begun, !state.ready.empty());
    }

    Units ExtractBatch(uint32_t color)
    {
        Units batch;
        Units& ready = m_states[color].ready;
        while (!ready.empty()) {
            const uint32_t unit = ready.back();
            ready.pop_back();
            batch.push_back(unit);
            for (const uint32_t outer : m_plan.holders.Of(unit))
                if (!m_last[outer])
                    Release(outer, color);
        }
        m_states[color].left -= batch.size();
        File(color);
        std::sort(batch.begin(), batch.end());
        return batch;
    }

    /// Called when a unit of that colour inside outer is done.
    void Release(uint32_t outer, uint32_t color)
    {
        ColorState& state = m_states[m_colors[outer]];
        if (--m_inside[outer] == 0)
            state.ready.push_back(outer);
        if (m_colors[outer] == color)
            return;
        --state.foreign;
        File(m_colors[outer]);
    }

    const OrderPlan& m_plan;
    std::vector<bool> m_last;
    std::vector<size_t> m_inside; ///< of each unit: units inside it still to be done
    std::vector<uint32_t> m_colors;
    std::vector<ColorState> m_states;
    std::set<uint32_t> m_whole, m_begun;
};

} // namespace

std::vector<Units> MakeBatches(const OrderPlan& plan, std::span<const unsigned int> colors,
                               std::span<const uint32_t> last)
{
    std::vector<Units> batches = BatchMaker(plan, colors, last).Run();
    for (const uint32_t unit : last)
        batches.push_back({unit});
    return batches;
}

} // namespace shapedocument
