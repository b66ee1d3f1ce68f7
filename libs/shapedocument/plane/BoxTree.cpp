#include "plane/BoxTree.h"

#include <array>
#include <numeric>

namespace shapedocument {

namespace {

bool IsNearer(const BoxTree::Near& a, const BoxTree::Near& b)
{
    return a.squaredDistance != b.squaredDistance ? a.squaredDistance < b.squaredDistance : a.box < b.box;
}

} // namespace

BoxTree::BoxTree(std::span<const Box> boxes) : m_order(boxes.size()), m_places(boxes.size())
{
    std::iota(m_order.begin(), m_order.end(), 0);
    Arrange(boxes, 0, boxes.size());
    m_levels.emplace_back(boxes.size());
    for (size_t i = 0; i < boxes.size(); ++i) {
        m_places[m_order[i]] = static_cast<uint32_t>(i);
        m_levels.front()[i].box = boxes[m_order[i]];
    }
    while (m_levels.back().size() > 1) {
        const std::vector<Node>& below = m_levels.back();
        std::vector<Node> level((below.size() + kFan - 1) / kFan);
        for (size_t i = 0; i < below.size(); ++i)
            level[i / kFan].box.Add(below[i].box);
        m_levels.push_back(std::move(level));
    }
}

BoxTree BoxTree::AllLive(std::span<const Box> boxes)
{
    BoxTree tree(boxes);
    size_t each = 1; // boxes below a node of the level
    for (std::vector<Node>& level : tree.m_levels) {
        for (size_t i = 0; i < level.size(); ++i)
            level[i].live = static_cast<uint32_t>(std::min(each, boxes.size() - i * each));
        each *= kFan;
    }
    return tree;
}

/// Halves the boxes across the longer side of their extent until they fit under one node. The cuts are at ends of
/// nodes.
void BoxTree::Arrange(std::span<const Box> boxes, size_t begin, size_t end)
{
    const size_t count = end - begin;
    if (count <= kFan)
        return;
    size_t step = kFan;
    while (step * kFan < count)
        step *= kFan;
    const size_t middle = begin + std::max<size_t>(1, count / step / 2) * step;
    Box all;
    for (size_t i = begin; i < end; ++i)
        all.Add(boxes[m_order[i]]);
    const bool wide = all.right - all.left > all.bottom - all.top;
    const auto centre = [&](uint32_t i) {
        return wide ? boxes[i].left + boxes[i].right : boxes[i].top + boxes[i].bottom;
    };
    const auto place = [&](size_t i) { return m_order.begin() + static_cast<std::ptrdiff_t>(i); };
    std::nth_element(place(begin), place(middle), place(end),
                     [&](uint32_t a, uint32_t b) { return centre(a) != centre(b) ? centre(a) < centre(b) : a < b; });
    Arrange(boxes, begin, middle);
    Arrange(boxes, middle, end);
}

void BoxTree::SetLive(uint32_t box, bool live)
{
    size_t node = m_places[box];
    if ((m_levels.front()[node].live > 0) == live)
        return;
    for (std::vector<Node>& level : m_levels) {
        level[node].live += live ? 1 : uint32_t(-1);
        node /= kFan;
    }
}

void BoxTree::FindOverlapping(const Box& box, std::vector<uint32_t>& found) const
{
    found.clear();
    ForEachOverlapping(box, [&](uint32_t index) {
        found.push_back(index);
        return true;
    });
}

void BoxTree::FindNearest(QPointF point, size_t count, std::vector<Near>& found) const
{
    found.clear();
    if (!m_order.empty() && count > 0 && m_levels.back().front().live > 0)
        Search(m_levels.size() - 1, 0, point, count, found);
}

void BoxTree::Search(size_t level, size_t node, QPointF point, size_t count, std::vector<Near>& found) const
{
    if (level == 0) {
        const Near near{m_levels[0][node].box.SquaredDistance(point), m_order[node]};
        found.insert(std::upper_bound(found.begin(), found.end(), near, IsNearer), near);
        found.resize(std::min(found.size(), count));
        return;
    }
    const std::vector<Node>& below = m_levels[level - 1];
    std::array<std::pair<double, size_t>, kFan> children; // the nearest first
    auto last = children.begin();
    for (size_t i = node * kFan; i < std::min((node + 1) * kFan, below.size()); ++i)
        if (below[i].live > 0) {
            *last = {below[i].box.SquaredDistance(point), i};
            std::rotate(std::upper_bound(children.begin(), last, *last), last, last + 1);
            ++last;
        }
    for (auto child = children.begin(); child != last; ++child)
        if (found.size() < count || child->first < found.back().squaredDistance)
            Search(level - 1, child->second, point, count, found);
}

} // namespace shapedocument
