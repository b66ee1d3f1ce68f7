/// An index over rectangles that come and go, for finding those nearby.
#pragma once

#include <QPointF>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace shapedocument {

/// mm, y down. Nothing lies in a new one; a point's has no width and no height.
struct Box
{
    double left = std::numeric_limits<double>::infinity();
    double top = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = -std::numeric_limits<double>::infinity();

    static Box Of(QPointF point) { return {point.x(), point.y(), point.x(), point.y()}; }

    void Add(const Box& other)
    {
        left = std::min(left, other.left);
        top = std::min(top, other.top);
        right = std::max(right, other.right);
        bottom = std::max(bottom, other.bottom);
    }

    Box Grown(double margin) const { return {left - margin, top - margin, right + margin, bottom + margin}; }
    double Area() const { return (right - left) * (bottom - top); }

    bool Overlaps(const Box& other) const
    {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }

    bool Contains(const Box& other) const
    {
        return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
    }

    /// 0 inside.
    double SquaredDistance(QPointF point) const
    {
        const double x = std::max({left - point.x(), point.x() - right, 0.0});
        const double y = std::max({top - point.y(), point.y() - bottom, 0.0});
        return x * x + y * y;
    }
    double Distance(QPointF point) const { return std::sqrt(SquaredDistance(point)); }
};

/// The boxes are given once; each of them takes part in searches while it is live. The tree is laid out once, with
/// eight boxes under a node, and the nodes count what is live below them: a search never goes where nothing is left.
class BoxTree
{
public:
    /// None is live.
    explicit BoxTree(std::span<const Box> boxes);

    void SetLive(uint32_t box, bool live);
    bool IsLive(uint32_t box) const { return m_levels.front()[m_places[box]].live > 0; }

    /// The live boxes that overlap a box, in an order that depends on the boxes alone.
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

    void Arrange(std::span<const Box> boxes, size_t begin, size_t end);
    void Search(size_t level, size_t node, QPointF point, size_t count, std::vector<Near>& found) const;

    std::vector<uint32_t> m_order;           ///< the boxes as they stand in the lowest level
    std::vector<uint32_t> m_places;          ///< the other way round
    std::vector<std::vector<Node>> m_levels; ///< a node's children stand side by side in the level before
};

} // namespace shapedocument
