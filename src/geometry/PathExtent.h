/// Bounding rectangle of a path that grows piece by piece, without asking the whole path after each piece.
#pragma once

#include <QRectF>

class QPainterPath;
class QPointF;

namespace shapes {

/// Rect() is bit for bit QPainterPath::boundingRect() of everything added: letters are placed by its right edge and
/// the font engine cuts positions to 1/64, so that the last bit of an edge can move a letter. Hence the platform's own
/// sums: a curve counts with its extremes, and far edges are near edges plus rounded extents.
class PathExtent
{
public:
    /// Adds the path's elements from `first` on, each curve whole. A path that draws nothing adds nothing.
    void Add(const QPainterPath& path, int first = 0);

    /// Null as long as nothing was added.
    QRectF Rect() const;

private:
    void AddPoint(QPointF point);
    void AddBox(double left, double top, double right, double bottom);

    bool m_any = false;
    double m_left = 0;
    double m_top = 0;
    double m_right = 0;
    double m_bottom = 0;
};

} // namespace shapes
