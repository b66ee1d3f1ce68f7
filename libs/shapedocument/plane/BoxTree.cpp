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

BoxTree::BoxTree(std::vector<Box> boxes)
    : m_boxes(std::move(boxes)), m_live(m_boxes.size()), m_order(m_boxes.size()), m_places(m_boxes.size())
{
    std::iota(m_order.begin(), m_order.end(), 0);
    Arrange(0, m_boxes.size());
    PutInOrder();
    while (m_levels.empty() || m_levels.back().size() > 1) {
        const size_t below = m_levels.size();
        std::vector<Node> level((SizeOf(below) + kFan - 1) / kFan);
        for (size_t i = 0; i < SizeOf(below); ++i)
            level[i / kFan].box.Add(BoxAt(below, i));
        m_levels.push_back(std::move(level));
    }
}

BoxTree BoxTree::AllLive(std::vector<Box> boxes)
{
    BoxTree tree(std::move(boxes));
    tree.m_live.assign(tree.m_live.size(), true);
    size_t each = kFan; // boxes below a node of the level
    for (std::vector<Node>& level : tree.m_levels) {
        for (size_t i = 0; i < level.size(); ++i)
            level[i].live = static_cast<uint32_t>(std::min(each, tree.m_boxes.size() - i * each));
        each *= kFan;
    }
    return tree;
}

/// Halves the boxes across the longer side of their extent until they fit under one node. The cuts are at ends of
/// nodes.
void BoxTree::Arrange(size_t begin, size_t end)
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
        all.Add(m_boxes[m_order[i]]);
    const bool wide = all.right - all.left > all.bottom - all.top;
    const auto centre = [&](uint32_t i) {
        return wide ? m_boxes[i].left + m_boxes[i].right : m_boxes[i].top + m_boxes[i].bottom;
    };
    const auto place = [&](size_t i) { return m_order.begin() + static_cast<std::ptrdiff_t>(i); };
    std::nth_element(place(begin), place(middle), place(end),
                     [&](uint32_t a, uint32_t b) { return centre(a) != centre(b) ? centre(a) < centre(b) : a < b; });
    Arrange(begin, middle);
    Arrange(middle, end);
}

/// Sorts the boxes in place, one cycle of the permutation after the other.
void BoxTree::PutInOrder()
{
    for (size_t i = 0; i < m_order.size(); ++i)
        m_places[m_order[i]] = static_cast<uint32_t>(i);
    std::vector<bool> done(m_order.size());
    for (size_t begin = 0; begin < m_order.size(); ++begin) {
        Box held = m_boxes[begin];
        for (size_t box = begin; !done[box];) {
            done[box] = true;
            box = m_places[box];
            std::swap(held, m_boxes[box]);
        }
    }
}

void BoxTree::SetLive(uint32_t box, bool live)
{
    size_t node = m_places[box];
    if (m_live[node] == live)
        return;
    m_live[node] = live;
    for (std::vector<Node>& level : m_levels) {
        node /= kFan;
        level[node].live += live ? 1 : uint32_t(-1);
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
        Search(m_levels.size(), 0, point, count, found);
}

void BoxTree::Search(size_t level, size_t node, QPointF point, size_t count, std::vector<Near>& found) const
{
    if (level == 0) {
        const Near near{m_boxes[node].SquaredDistance(point), m_order[node]};
        found.insert(std::upper_bound(found.begin(), found.end(), near, IsNearer), near);
        found.resize(std::min(found.size(), count));
        return;
    }
    std::array<std::pair<double, size_t>, kFan> children; // the nearest first
    auto last = children.begin();
    for (size_t i = node * kFan; i < std::min((node + 1) * kFan, SizeOf(level - 1)); ++i)
        if (IsLive(level - 1, i)) {
            *last = {BoxAt(level - 1, i).SquaredDistance(point), i};
            std::rotate(std::upper_bound(children.begin(), last, *last), last, last + 1);
            ++last;
        }
    for (auto child = children.begin(); child != last; ++child)
        if (found.size() < count || child->first < found.back().squaredDistance)
            Search(level - 1, child->second, point, count, found);
}

} // namespace shapedocument
