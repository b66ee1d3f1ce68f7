/// Finding rectangles that meet another one, or hold a point, without looking at all of them.
#pragma once

#include <QRectF>

#include <cstdint>
#include <vector>

namespace shapedocument::drawing {

/// A closed rectangle, which may have no width or height.
struct Box
{
    double left = 0, top = 0, right = 0, bottom = 0;

    static Box Of(const QRectF& rect) { return {rect.left(), rect.top(), rect.right(), rect.bottom()}; }
    Box United(const Box& other) const;
    bool Meets(const Box& other) const
    {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }
};

/// Boxes in halves of halves; built in n log n steps.
class BoxTree
{
public:
    explicit BoxTree(std::vector<Box> boxes);

    /// Calls visit(index) for each box that meets the given one; ends when it returns false.
    template <class Visit>
    void ForEachMeeting(const Box& box, Visit visit) const
    {
        if (!m_nodes.empty())
            VisitNode(0, box, visit);
    }

private:
    /// Of boxes m_order[begin] to m_order[end]; its first half, if there is one, is the node behind it.
    struct Node
    {
        Box around;
        uint32_t begin, end;
        uint32_t second = 0; ///< 0 where it has no halves
    };

    uint32_t Build(uint32_t begin, uint32_t end);

    template <class Visit>
    bool VisitNode(uint32_t at, const Box& box, Visit& visit) const
    {
        const Node& node = m_nodes[at];
        if (!node.around.Meets(box))
            return true;
        if (node.second != 0)
            return VisitNode(at + 1, box, visit) && VisitNode(node.second, box, visit);
        for (uint32_t i = node.begin; i < node.end; ++i)
            if (m_boxes[m_order[i]].Meets(box) && !visit(size_t{m_order[i]}))
                return false;
        return true;
    }

    std::vector<Box> m_boxes;
    std::vector<uint32_t> m_order;
    std::vector<Node> m_nodes;
};

} // namespace shapedocument::drawing
