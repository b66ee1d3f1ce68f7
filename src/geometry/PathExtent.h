/// Bounding rectangle of a path that grows piece by piece, without asking the whole path after each piece.
#pragma once

#include <QPointF>
#include <QRectF>

#include <optional>

class QPainterPath;

namespace shapes {

struct PathStep;

/// Rect() is bit for bit QPainterPath::boundingRect() of everything added: letters are placed by its right edge and
/// the font engine cuts positions to 1/64, so that the last bit of an edge can move a letter. Hence the platform's own
/// sums: a curve counts with its extremes, and far edges are near edges plus rounded extents. A move-to at the end counts
/// until the next one comes, which the platform puts in its place: letters may end in one, symbols in the main.
class PathExtent
{
public:
    /// Adds the path's elements from `first` on, each curve whole. A path that draws nothing, or holds the single move-to
    /// to (0, 0) with which the platform begins, adds nothing.
    void Add(const QPainterPath& path, int first = 0);

    /// Null as long as nothing was added.
    QRectF Rect() const;

    /// Whether something was added and no move-to stands at its end: Rect() then only ever grows.
    bool IsSettled() const { return m_any && !m_moveTo; }

private:
    void AddElements(const QPainterPath& path, int first);
    void AddStep(QPointF from, const PathStep& step);
    void AddPoint(QPointF point);
    void AddBox(double left, double top, double right, double bottom);

    std::optional<QPointF> m_moveTo = QPointF(); ///< at the end of what was added; not in the edges yet
    bool m_any = false;
    double m_left = 0;
    double m_top = 0;
    double m_right = 0;
    double m_bottom = 0;
};

} // namespace shapes
