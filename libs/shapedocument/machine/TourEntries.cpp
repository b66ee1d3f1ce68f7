#include "machine/TourEntries.h"

namespace shapedocument {

namespace {

constexpr size_t kMost = 24; // entries of a unit that are tried

/// The candidate entries of one place of the tour. For the shortest way, each entry stores the best one of the layer
/// before.
struct Layer
{
    std::vector<uint32_t> entries;
    std::vector<uint8_t> before; ///< indices in the layer before
};
static_assert(kMost < 256);

/// The entries nearest to the present tour, the present entry included.
std::vector<uint32_t> Candidates(const OrderPlan& plan, const Tour& tour, size_t place)
{
    const Unit& unit = plan.units[plan.entries[tour[place]].unit];
    std::vector<std::pair<double, uint32_t>> ways;
    for (uint32_t i = unit.firstEntry; i < unit.firstEntry + unit.entries; ++i) {
        const Entry& entry = plan.entries[i];
        const double onwards =
            place + 1 < tour.size() ? shapes::PointDistance(entry.end, plan.entries[tour[place + 1]].begin) : 0;
        ways.emplace_back(i == tour[place] ? 0 : MoveTo(plan, tour, place, entry.begin) + onwards, i);
    }
    const size_t count = std::min(ways.size(), kMost);
    std::partial_sort(ways.begin(), ways.begin() + static_cast<std::ptrdiff_t>(count), ways.end());
    std::vector<uint32_t> entries;
    for (size_t i = 0; i < count; ++i)
        entries.push_back(ways[i].second);
    return entries;
}

/// Lengths (mm) of the shortest ways to the entries of a layer, from those to the layer before.
std::vector<double> Extend(const OrderPlan& plan, const Layer& before, const std::vector<double>& lengths, Layer& layer)
{
    std::vector<double> longer;
    for (const uint32_t entry : layer.entries) {
        double best = std::numeric_limits<double>::infinity();
        size_t from = 0;
        for (size_t i = 0; i < lengths.size(); ++i) {
            const double length =
                lengths[i] + shapes::PointDistance(plan.entries[before.entries[i]].end, plan.entries[entry].begin);
            if (length < best) {
                best = length;
                from = i;
            }
        }
        longer.push_back(best);
        layer.before.push_back(static_cast<uint8_t>(from));
    }
    return longer;
}

} // namespace

void ChooseEntries(const OrderPlan& plan, Tour& tour)
{
    std::vector<Layer> layers(tour.size());
    std::vector<double> lengths;
    for (size_t i = 0; i < tour.size(); ++i) {
        layers[i].entries = Candidates(plan, tour, i);
        if (i > 0)
            lengths = Extend(plan, layers[i - 1], lengths, layers[i]);
        else
            for (const uint32_t entry : layers[0].entries)
                lengths.push_back(MoveTo(plan, tour, 0, plan.entries[entry].begin));
    }
    auto best = static_cast<size_t>(std::min_element(lengths.begin(), lengths.end()) - lengths.begin());
    for (size_t i = tour.size(); i-- > 0;) {
        tour[i] = layers[i].entries[best];
        best = i > 0 ? layers[i].before[best] : 0;
    }
}

} // namespace shapedocument
