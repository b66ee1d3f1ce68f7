/// An index over rectangles that come and go, for finding those nearby.
#pragma once

#include "plane/Box.h"

#include <cstdint>
#include <span>
#include <vector>

namespace shapedocument {

/// The boxes are given once; each of them takes part in searches while it is live. The tree is laid out once, with
/// eight boxes under a node, and the nodes count what is live below them: a search never goes where nothing is left.
class BoxTree
{
public:
    /// None is live.
    explicit BoxTree(std::span<const Box> boxes);
    static BoxTree AllLive(std::span<const Box> boxes);

    void SetLive(uint32_t box, bool live);

    /// Calls visit(box) for each live box that overlaps one, in an order that depends on the boxes alone; ends when it
    /// returns false.
    template <class Visit>
    void ForEachOverlapping(const Box& box, Visit visit) const
    {
        if (!m_order.empty())
            VisitNode(m_levels.size() - 1, 0, box, visit);
    }

    /// The same boxes in the same order.
    void FindOverlapping(const Box& box, std::vector<uint32_t>& found) const;

    struct Near
    {
        double squaredDistance;
        uint32_t box;
    };

    /// At most count live boxes, the nearest first. Which of several at equal distances depends on the boxes alone.
    void FindNearest(QPointF point, size_t count, std::vector<Near>& found) const;

private:
    struct Node
    {
        Box box;
        uint32_t live = 0;
    };

    static constexpr size_t kFan = 8; ///< children of a node

    template <class Visit>
    bool VisitNode(size_t level, size_t node, const Box& box, Visit& visit) const
    {
        const Node& here = m_levels[level][node];
        if (here.live == 0 || !here.box.Overlaps(box))
            return true;
        if (level == 0)
            return visit(m_order[node]);
        for (size_t i = std::min((node + 1) * kFan, m_levels[level - 1].size()); i > node * kFan; --i)
            if (!VisitNode(level - 1, i - 1, box, visit))
                return false;
        return true;
    }

    void Arrange(std::span<const Box> boxes, size_t begin, size_t end);
    void Search(size_t level, size_t node, QPointF point, size_t count, std::vector<Near>& found) const;

    std::vector<uint32_t> m_order;           ///< the boxes as they stand in the lowest level
    std::vector<uint32_t> m_places;          ///< the other way round
    std::vector<std::vector<Node>> m_levels; ///< a node's children stand side by side in the level before
};

} // namespace shapedocument
