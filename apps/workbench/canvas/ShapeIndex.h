/// ShapeIndex: the rectangles of the drawing's shapes, so that most shapes need not be asked for theirs.
#pragma once

#include <QPointF>
#include <QRectF>

#include <vector>

class CShape;
class CShapeList;

/// The shapes of a list and their rectangles at the last Renew.
class ShapeIndex
{
public:
    /// A shape of the list.
    struct Entry
    {
        QRectF rect; ///< mm
        CShape* shape;
    };

    /// Call when the list or a shape in it has changed. Cost: O(shapes).
    /// @return the rectangle (mm) around all shapes that were removed, added or moved in the order; null for none
    QRectF Renew(CShapeList& shapes);
    /// All of them, in drawing order.
    const std::vector<Entry>& All() const { return m_entries; }
    /// Visits, in drawing order, those whose rectangle touches the given one (mm). Cost: O(shapes), with a comparison
    /// for each.
    template <class Visit>
    void ForEachIn(const QRectF& rect, Visit visit) const
    {
        for (const Entry& entry : m_entries)
            if (AreTouching(entry.rect, rect))
                visit(entry);
    }

    /// Whether the rectangles touch, also without width or height.
    static bool AreTouching(const QRectF& a, const QRectF& b)
    {
        return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
    }

private:
    std::vector<Entry> m_entries;
};
