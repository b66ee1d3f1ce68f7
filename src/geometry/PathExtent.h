/// Bounding rectangle of a path that is built piece by piece, updated with each piece instead of measured anew.
#pragma once

#include <QPointF>
#include <QRectF>

#include <optional>

class QPainterPath;

namespace shapes {

struct PathStep;

/// Rect() equals QPainterPath::boundingRect() of everything added, bit for bit: letters are placed by its right edge,
/// and the font engine truncates positions to 1/64, so the last bit of an edge can move a letter. As in Qt, a curve
/// counts with its extremes, and a trailing move-to counts until the next move-to replaces it; the outlines of some
/// letters, mainly symbols, end in one.
class PathExtent
{
public:
    /// Adds the elements of path from index first on, which must not lie inside a curve. Adds nothing for an empty path
    /// and for one that holds only the move-to (0, 0) with which Qt starts a path.
    void Add(const QPainterPath& path, int first = 0);

    /// Null until something is added.
    QRectF Rect() const;

    /// Whether something was added and no trailing move-to is pending: from then on Rect() can only grow.
    bool IsSettled() const { return m_any && !m_moveTo; }

private:
    void AddElements(const QPainterPath& path, int first);
    void AddStep(QPointF from, const PathStep& step);
    void AddPoint(QPointF point);
    void AddBox(double left, double top, double right, double bottom);

    std::optional<QPointF> m_moveTo = QPointF(); ///< trailing move-to, not part of the edges yet
    bool m_any = false;
    double m_left = 0;
    double m_top = 0;
    double m_right = 0;
    double m_bottom = 0;
};

} // namespace shapes
