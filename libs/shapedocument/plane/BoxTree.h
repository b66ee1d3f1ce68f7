/// A spatial index over rectangles that can be switched on and off.
#pragma once

#include "plane/Box.h"

#include <cstdint>
#include <span>
#include <vector>

namespace shapedocument {

/// The boxes are given once; a box takes part in searches while it is live. The tree is built once, with eight children
/// for each node. A node counts the live boxes below it, so that searches skip nodes without any.
class BoxTree
{
public:
    /// No box is live. Keeps the boxes: move large lists in. Cost: O(n log n).
    explicit BoxTree(std::vector<Box> boxes);
    static BoxTree AllLive(std::vector<Box> boxes);

    const Box& BoxOf(uint32_t box) const { return m_boxes[m_places[box]]; }

    void SetLive(uint32_t box, bool live);

    /// Calls visit(box) for each live box that overlaps one, in an order that depends on the boxes only; ends when
    /// visit returns false.
    template <class Visit>
    void ForEachOverlapping(const Box& box, Visit visit) const
    {
        if (!m_order.empty())
            VisitNode(m_levels.size(), 0, box, visit);
    }

    /// Sets found to the boxes that ForEachOverlapping visits, in the same order.
    void FindOverlapping(const Box& box, std::vector<uint32_t>& found) const;

    struct Near
    {
        double squaredDistance;
        uint32_t box;
    };

    /// Sets found to at most count live boxes, the nearest first. Ties are resolved in a way that depends on the boxes
    /// only.
    void FindNearest(QPointF point, size_t count, std::vector<Near>& found) const;

private:
    struct Node
    {
        Box box;
        uint32_t live = 0; ///< number of live boxes below
    };

    static constexpr size_t kFan = 8; ///< children of a node

    /// Level 0 is the boxes, level i is m_levels[i - 1].
    size_t SizeOf(size_t level) const { return level == 0 ? m_boxes.size() : m_levels[level - 1].size(); }
    bool IsLive(size_t level, size_t node) const
    {
        return level == 0 ? m_live[node] : m_levels[level - 1][node].live > 0;
    }
    const Box& BoxAt(size_t level, size_t node) const
    {
        return level == 0 ? m_boxes[node] : m_levels[level - 1][node].box;
    }

    template <class Visit>
    bool VisitNode(size_t level, size_t node, const Box& box, Visit& visit) const
    {
        if (!IsLive(level, node) || !BoxAt(level, node).Overlaps(box))
            return true;
        if (level == 0)
            return visit(m_order[node]);
        for (size_t i = std::min((node + 1) * kFan, SizeOf(level - 1)); i > node * kFan; --i)
            if (!VisitNode(level - 1, i - 1, box, visit))
                return false;
        return true;
    }

    void Arrange(size_t begin, size_t end);
    void PutInOrder();
    void Search(size_t level, size_t node, QPointF point, size_t count, std::vector<Near>& found) const;

    // Each box is stored once, because trees over a million points take most of the memory of long jobs.
    std::vector<Box> m_boxes;                ///< in the order of m_order
    std::vector<bool> m_live;                ///< of the box at the same index in m_boxes
    std::vector<uint32_t> m_order;           ///< of each of m_boxes: its index as given
    std::vector<uint32_t> m_places;          ///< of each box: its place in m_order
    std::vector<std::vector<Node>> m_levels; ///< a node's children stand side by side in the level below
};

} // namespace shapedocument
