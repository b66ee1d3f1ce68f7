#include "svg/BoxTree.h"

#include <algorithm>
#include <numeric>

namespace shapedocument::drawing {

Box Box::United(const Box& other) const
{
    return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
            std::max(bottom, other.bottom)};
}

BoxTree::BoxTree(std::vector<Box> boxes) : m_boxes(std::move(boxes)), m_order(m_boxes.size())
{
    std::iota(m_order.begin(), m_order.end(), 0U);
    if (!m_boxes.empty())
        Build(0, static_cast<uint32_t>(m_boxes.size()));
}

uint32_t BoxTree::Build(uint32_t begin, uint32_t end)
{
    constexpr uint32_t kFew = 8;
    const auto at = static_cast<uint32_t>(m_nodes.size());
    Box around = m_boxes[m_order[begin]];
    for (uint32_t i = begin + 1; i < end; ++i)
        around = around.United(m_boxes[m_order[i]]);
    m_nodes.push_back({around, begin, end});
    if (end - begin <= kFew)
        return at;
    const bool wide = around.right - around.left > around.bottom - around.top;
    const auto twiceCentre = [&](uint32_t index) {
        const Box& box = m_boxes[index];
        return wide ? box.left + box.right : box.top + box.bottom;
    };
    const uint32_t middle = begin + (end - begin) / 2;
    std::nth_element(m_order.begin() + begin, m_order.begin() + middle, m_order.begin() + end,
                     [&](uint32_t a, uint32_t b) { return twiceCentre(a) < twiceCentre(b); });
    Build(begin, middle);
    const uint32_t second = Build(middle, end);
    m_nodes[at].second = second;
    return at;
}

} // namespace shapedocument::drawing
