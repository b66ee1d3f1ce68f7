#include "svg/ReferenceGraph.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace shapedocument::drawing {

size_t ReferenceGraph::IndexOf(const QString& id)
{
    const auto found = m_index.constFind(id);
    if (found != m_index.constEnd())
        return *found;
    m_index.insert(id, m_named.size());
    m_named.emplace_back();
    return m_named.size() - 1;
}

void ReferenceGraph::Open(const QString& id, bool painted)
{
    Level level{m_open.back().named, m_open.back().below + 1};
    const size_t self = id.isEmpty() ? m_open.back().named : IndexOf(id);
    // where an id stands twice, references lead to the first
    if (id.isEmpty() || std::exchange(m_named[self].found, true)) {
        m_named[level.named].height = std::max(m_named[level.named].height, level.below + 1);
        ++m_named[level.named].elements;
    } else {
        m_named[level.named].edges.push_back({self, level.below, painted});
        level = {self, 0};
    }
    m_open.push_back(level);
}

void ReferenceGraph::Refer(const QString& target, int64_t times)
{
    const size_t to = IndexOf(target);
    m_named[m_open.back().named].edges.push_back({to, m_open.back().below + 1, times});
}

void ReferenceGraph::ReferFromRule(const QString& target)
{
    m_fromRules.insert(IndexOf(target));
}

void ReferenceGraph::Close()
{
    m_open.pop_back();
}

/// Bounds the depth also where references form a cycle, because no element is open twice at a time.
int64_t ReferenceGraph::SumOfHeights() const
{
    return std::accumulate(m_named.begin(), m_named.end(), int64_t{0},
                           [](int64_t sum, const Named& named) { return sum + named.height; });
}

/// Depth-first walk over the references, starting at the drawing. A reference back to an open element is not painted.
ReferenceGraph::Extent ReferenceGraph::Measure() const
{
    enum class State : char
    {
        New,
        OnTheWay,
        Done
    };
    struct Visit
    {
        size_t named;
        size_t next = 0;
    };
    std::vector<State> states(m_named.size(), State::New);
    std::vector<Extent> extents(m_named.size());
    bool circles = false;
    std::vector<Visit> way{{0}};
    while (!way.empty()) {
        Visit& visit = way.back();
        const Named& named = m_named[visit.named];
        Extent& extent = extents[visit.named];
        if (visit.next == 0) {
            states[visit.named] = State::OnTheWay;
            extent = {named.height, named.elements};
        } else if (const Edge& edge = named.edges[visit.next - 1]; states[edge.to] == State::Done) {
            extent.depth = std::max(extent.depth, edge.levels + extents[edge.to].depth);
            extent.elements =
                std::min(extent.elements + std::min(edge.times, kMost) * extents[edge.to].elements, kMost);
        }
        if (visit.next == named.edges.size()) {
            states[visit.named] = State::Done;
            way.pop_back();
            continue;
        }
        const size_t to = named.edges[visit.next++].to;
        circles = circles || states[to] == State::OnTheWay;
        if (states[to] == State::New)
            way.push_back({to});
    }
    Extent whole = extents[0];
    const auto rules = static_cast<int64_t>(m_fromRules.size());
    whole.depth = circles ? SumOfHeights() : std::min(whole.depth * (rules + 1), SumOfHeights());
    return whole;
}

} // namespace shapedocument::drawing
