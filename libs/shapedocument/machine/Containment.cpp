#include "machine/Containment.h"

#include "machine/Contour.h"

#include <numeric>
#include <optional>
#include <tuple>
#include <utility>

namespace shapedocument {

namespace {

/// Budget of tests of segments and boxes: about a second. Ordinary drawings need far fewer.
constexpr size_t kMostSteps = 100'000'000;

/// How large a path is. What lies inside it is smaller, or equal after rounding to float; open paths count as smaller
/// than closed ones of the same box.
struct Size
{
    float box = 0;
    float area = -1; ///< of closed paths

    bool operator==(const Size&) const = default;
    bool operator<(const Size& other) const { return std::tie(box, area) < std::tie(other.box, other.area); }
};

JobPoints OutlineOf(const OrderedPath& path)
{
    return path.whole.empty() ? path.points : path.whole;
}

bool IsClosed(const OrderedPath& path)
{
    return path.closed || !path.whole.empty();
}

class Search
{
public:
    Search(std::span<const OrderedPath> paths, const WorkWatch& watch)
        : m_paths(paths), m_watch(watch), m_inside(paths.size()), m_seen(paths.size())
    {
        std::vector<Box> boxes;
        boxes.reserve(paths.size());
        m_sizes.reserve(paths.size());
        for (const OrderedPath& path : paths) {
            watch.Ask();
            const std::vector<QPointF> points = ChordPoints(OutlineOf(path));
            boxes.push_back(BoxOf(points));
            const auto area = IsClosed(path) ? static_cast<float>(EnclosedArea(points)) : -1;
            m_sizes.push_back({static_cast<float>(boxes.back().Area()), area});
        }
        m_tops.emplace(std::move(boxes));
    }

    /// From the smallest path to the largest. Paths of equal size cannot hold each other, so they go into the tree
    /// together, after all of them have been searched.
    Enclosures Run()
    {
        std::vector<uint32_t> order(m_paths.size());
        std::iota(order.begin(), order.end(), 0);
        std::erase_if(order, [&](uint32_t i) { return m_paths[i].kind != PathKind::Cut; });
        std::stable_sort(order.begin(), order.end(), [&](uint32_t a, uint32_t b) { return m_sizes[a] < m_sizes[b]; });
        for (size_t begin = 0, end = 0; begin < order.size(); begin = end) {
            while (end < order.size() && m_sizes[order[end]] == m_sizes[order[begin]])
                LookInto(order[end++]);
            for (const uint32_t path : m_held)
                m_tops->SetLive(path, false);
            m_held.clear();
            for (size_t i = begin; i < end; ++i)
                m_tops->SetLive(order[i], true);
        }
        return std::move(m_result);
    }

private:
    /// Finds what lies directly inside outer. Starts with the paths that nothing holds yet, and does not descend into a
    /// path that outer holds: its contents lie inside outer, too.
    void LookInto(uint32_t outer)
    {
        if (!IsClosed(m_paths[outer]))
            return;
        const size_t known = m_result.steps.size();
        std::optional<Contour> contour;
        const Box reach = m_tops->BoxOf(outer).Grown(Contour::kMargin);
        if (m_steps <= kMostSteps)
            m_tops->FindOverlapping(reach, m_open);
        while (!m_open.empty() && m_steps <= kMostSteps) {
            const uint32_t path = m_open.back();
            m_open.pop_back();
            m_watch.Ask();
            ++m_steps;
            if (std::exchange(m_seen[path], outer + 1) == outer + 1 || !m_tops->BoxOf(path).Overlaps(reach))
                continue;
            if (reach.Contains(m_tops->BoxOf(path)) && Holds(contour, outer, path))
                m_result.steps.push_back({path, outer});
            else
                m_open.insert(m_open.end(), m_inside[path].begin(), m_inside[path].end());
        }
        for (size_t i = known; i < m_result.steps.size(); ++i)
            AddInner(outer, m_result.steps[i].inner);
        if (m_steps > kMostSteps)
            m_result.unknown.push_back(outer);
    }

    void AddInner(uint32_t outer, uint32_t inner)
    {
        m_inside[outer].push_back(inner);
        m_held.push_back(inner);
    }

    bool Holds(std::optional<Contour>& contour, uint32_t outer, uint32_t path)
    {
        if (!contour) {
            contour.emplace(ChordPoints(OutlineOf(m_paths[outer])));
            m_steps += OutlineOf(m_paths[outer]).size();
        }
        const JobPoints inner = OutlineOf(m_paths[path]);
        const size_t most = contour->Cost() * inner.size();
        if (most > kMostSteps - std::min(m_steps, kMostSteps)) {
            m_steps = kMostSteps + 1;
            return false;
        }
        const bool holds = contour->Holds(inner);
        m_steps += holds ? most : contour->Cost();
        return holds;
    }

    std::span<const OrderedPath> m_paths;
    const WorkWatch& m_watch;
    std::vector<Size> m_sizes;
    std::optional<BoxTree> m_tops;               ///< live: searched paths that nothing holds yet
    std::vector<std::vector<uint32_t>> m_inside; ///< paths directly inside each
    std::vector<uint32_t> m_seen;                ///< of each path: the outer path that tested it last, plus 1
    std::vector<uint32_t> m_open;                ///< still to be tested
    std::vector<uint32_t> m_held;                ///< by paths of the present size
    size_t m_steps = 0;
    Enclosures m_result;
};

} // namespace

Enclosures FindEnclosures(std::span<const OrderedPath> paths, const WorkWatch& watch)
{
    return Search(paths, watch).Run();
}

} // namespace shapedocument
