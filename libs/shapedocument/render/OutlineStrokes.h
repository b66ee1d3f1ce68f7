/// Draws outlines on images faster than QPainter.
#pragma once

#include <QPolygonF>

#include <memory>

class QColor;
class QPainter;
class QPainterPath;

namespace shapedocument {

/// Draws outlines with a round pen. On an image without clip it uses cairo, which takes less than half of QPainter's
/// time, and leaves out points within 1/16 pixel of a line, which no pixel would show. On other devices the painter
/// draws.
class OutlineStrokes
{
public:
    /// The painter is borrowed; its transform must not change, and its image must not be copied meanwhile.
    explicit OutlineStrokes(QPainter& painter);
    ~OutlineStrokes();
    OutlineStrokes(const OutlineStrokes&) = delete;
    OutlineStrokes& operator=(const OutlineStrokes&) = delete;

    /// The width is in the painter's units. Throws std::bad_alloc. Cost: O(elements + pixels).
    void Draw(const QPainterPath& path, const QColor& color, double width);
    /// Throws std::bad_alloc. Cost: O(n log n) in the points, and the pixels.
    void Draw(const QPolygonF& polyline, const QColor& color, double width);

private:
    class Image;

    QPainter& m_painter;
    std::unique_ptr<Image> m_image; ///< null where the painter draws
};

} // namespace shapedocument
