/// ShapeIndex, where the drawing's shapes lie, so that most of them need not be asked.
#pragma once

#include <QPointF>
#include <QRectF>

#include <vector>

class CShape;
class CShapeList;

/// The shapes of a list with their rectangles, as of the last Renew.
class ShapeIndex
{
public:
    /// A shape of the list.
    struct Entry
    {
        QRectF rect; ///< mm
        CShape* shape;
    };

    /// To be called when the list or a shape in it has changed. Cost: O(shapes).
    /// @return around everything that left, came or changed its place in the order (mm); null for nothing
    QRectF Renew(CShapeList& shapes);
    /// All of them, in drawing order.
    const std::vector<Entry>& All() const { return m_entries; }
    /// Visits those whose rectangle touches the given one (mm), in drawing order. Cost: O(shapes), but quickly.
    template <class Visit>
    void ForEachIn(const QRectF& rect, Visit visit) const
    {
        for (const Entry& entry : m_entries)
            if (AreTouching(entry.rect, rect))
                visit(entry);
    }

    /// Whether the rectangles touch; those without width or height too.
    static bool AreTouching(const QRectF& a, const QRectF& b)
    {
        return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
    }

private:
    std::vector<Entry> m_entries;
};
