#include "render/OutlineStrokes.h"

#include "machine/PointThinning.h"

#include "geometry/PathSteps.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QTransform>

#include <cairo.h>

#include <cmath>
#include <new>
#include <vector>

namespace shapedocument {

namespace {

constexpr double kThinning = 1.0 / 16;   // pixels
constexpr size_t kFewest = 4;            // points of a polyline from which on thinning pays
constexpr double kFarthestPixel = 32767; // pixels: cairo 1.16 loses slanted lines that reach 100,000
constexpr double kThinnest = 0.25;       // pixels: cairo 1.16 draws nothing of pens up to 0.05
constexpr size_t kMostStroked = 1024;    // of one stroke, whose cost grows with the square of its crossings

struct Release
{
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

/// Whether the painter draws opaque colours on a whole image in a pixel format that cairo has, too.
bool IsPlainImage(const QPainter& painter)
{
    const QPaintDevice* device = painter.device();
    if (!device || device->devType() != QInternal::Image || painter.paintEngine()->type() != QPaintEngine::Raster)
        return false;
    return static_cast<const QImage*>(device)->format() == QImage::Format_RGB32 && !painter.hasClipping() &&
           painter.opacity() == 1 && painter.compositionMode() == QPainter::CompositionMode_SourceOver &&
           painter.testRenderHint(QPainter::Antialiasing) && device->devicePixelRatio() == 1 &&
           painter.combinedTransform().type() <= QTransform::TxScale;
}

QPen RoundPen(const QColor& color, double width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

} // namespace

/// A cairo surface on the pixels of a painter's image.
class OutlineStrokes::Image
{
public:
    explicit Image(const QPainter& painter)
        : m_toPixels(painter.combinedTransform()), m_scale(std::sqrt(std::abs(m_toPixels.determinant())))
    {
        auto& image = *static_cast<QImage*>(painter.device());
        m_surface.reset(cairo_image_surface_create_for_data(image.bits(), CAIRO_FORMAT_RGB24, image.width(),
                                                            image.height(), static_cast<int>(image.bytesPerLine())));
        m_context.reset(cairo_create(m_surface.get()));
        cairo_set_line_cap(m_context.get(), CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(m_context.get(), CAIRO_LINE_JOIN_ROUND);
    }

    bool IsUsable() const { return cairo_status(m_context.get()) == CAIRO_STATUS_SUCCESS && m_scale > 0; }

    /// Whether cairo draws lines of that width within rect as exactly as the painter does.
    bool Takes(const QRectF& rect, double width) const
    {
        const QRectF pixels = m_toPixels.mapRect(rect);
        return width * m_scale >= kThinnest && pixels.left() > -kFarthestPixel && pixels.right() < kFarthestPixel &&
               pixels.top() > -kFarthestPixel && pixels.bottom() < kFarthestPixel;
    }

    void SetPen(const QColor& color, double width)
    {
        cairo_set_source_rgb(m_context.get(), color.redF(), color.greenF(), color.blueF());
        cairo_set_line_width(m_context.get(), width * m_scale);
    }

    void MoveTo(QPointF point)
    {
        EndLines();
        m_lines.push_back(m_toPixels.map(point));
        cairo_move_to(m_context.get(), m_lines.back().x(), m_lines.back().y());
    }

    void LineTo(QPointF point) { m_lines.push_back(m_toPixels.map(point)); }

    void CurveTo(QPointF control1, QPointF control2, QPointF end)
    {
        EndLines();
        const QPointF one = m_toPixels.map(control1), two = m_toPixels.map(control2);
        m_lines.push_back(m_toPixels.map(end));
        cairo_curve_to(m_context.get(), one.x(), one.y(), two.x(), two.y(), m_lines.back().x(), m_lines.back().y());
        CountElement(m_lines.back());
    }

    /// Throws std::bad_alloc: cairo would leave out this outline and all later ones without a word.
    void Stroke()
    {
        EndLines();
        cairo_stroke(m_context.get());
        m_elements = 0;
        if (cairo_status(m_context.get()) != CAIRO_STATUS_SUCCESS)
            throw std::bad_alloc();
    }

private:
    /// Appends connected lines; cairo is at their first point already.
    void EndLines()
    {
        m_thinned.clear();
        if (m_lines.size() >= kFewest)
            AppendThinned(m_lines, kThinning, m_thinned);
        else if (!m_lines.empty())
            m_thinned.assign(m_lines.begin() + 1, m_lines.end());
        for (const QPointF& point : m_thinned) {
            cairo_line_to(m_context.get(), point.x(), point.y());
            CountElement(point);
        }
        m_lines.clear();
    }

    /// Strokes a long path in parts. Where parts overlap, pixels at the edges of lines become a little darker.
    void CountElement(QPointF end)
    {
        if (++m_elements < kMostStroked)
            return;
        cairo_stroke(m_context.get());
        cairo_move_to(m_context.get(), end.x(), end.y());
        m_elements = 0;
    }

    QTransform m_toPixels;
    double m_scale;
    std::unique_ptr<cairo_surface_t, Release> m_surface;
    std::unique_ptr<cairo_t, Release> m_context;
    size_t m_elements = 0;          ///< of cairo's path
    std::vector<QPointF> m_lines;   ///< pixels: cairo's current point, and the points that follow
    std::vector<QPointF> m_thinned; ///< scratch buffer, kept to avoid allocations
};

OutlineStrokes::OutlineStrokes(QPainter& painter) : m_painter(painter)
{
    if (!IsPlainImage(painter))
        return;
    m_image = std::make_unique<Image>(painter);
    if (!m_image->IsUsable())
        m_image.reset();
}

OutlineStrokes::~OutlineStrokes() = default;

void OutlineStrokes::Draw(const QPainterPath& path, const QColor& color, double width)
{
    if (!m_image || !m_image->Takes(path.controlPointRect(), width)) {
        m_painter.setPen(RoundPen(color, width));
        m_painter.drawPath(path);
        return;
    }
    m_image->SetPen(color, width);
    for (const shapes::PathStep& step : shapes::PathSteps(path)) {
        if (step.begins)
            m_image->MoveTo(step.End());
        else if (step.IsLine())
            m_image->LineTo(step.End());
        else
            m_image->CurveTo(step.points[0], step.points[1], step.points[2]);
    }
    m_image->Stroke();
}

void OutlineStrokes::Draw(const QPolygonF& polyline, const QColor& color, double width)
{
    if (polyline.isEmpty())
        return;
    if (!m_image || !m_image->Takes(polyline.boundingRect(), width)) {
        m_painter.setPen(RoundPen(color, width));
        m_painter.drawPolyline(polyline);
        return;
    }
    m_image->SetPen(color, width);
    m_image->MoveTo(polyline.front());
    for (auto point = polyline.begin() + 1; point != polyline.end(); ++point)
        m_image->LineTo(*point);
    m_image->Stroke();
}

} // namespace shapedocument
