/// Outlines in pictures of pixels, where QPainter would take most of the time.
#pragma once

#include <QPolygonF>

#include <memory>

class QColor;
class QPainter;
class QPainterPath;

namespace shapedocument {

/// Follows outlines with a round pen. On an image that stands there without clip it does so by cairo, which takes less
/// than half of QPainter's time, and what no pixel shows is left out: points that lie within a sixteenth of a pixel of
/// a line. Everything else that a painter draws on is left to the painter.
class OutlineStrokes
{
public:
    /// The painter is borrowed, and its transform stays as it is now.
    explicit OutlineStrokes(QPainter& painter);
    ~OutlineStrokes();
    OutlineStrokes(const OutlineStrokes&) = delete;
    OutlineStrokes& operator=(const OutlineStrokes&) = delete;

    /// The width is in the painter's units. Cost: O(elements + pixels).
    void Draw(const QPainterPath& path, const QColor& color, double width);
    /// Cost: O(n log n) in the points, and the pixels.
    void Draw(const QPolygonF& polyline, const QColor& color, double width);

private:
    class Image;

    QPainter& m_painter;
    std::unique_ptr<Image> m_image; ///< null where the painter draws by itself
};

} // namespace shapedocument
