#include "PathRecorder.h"

#include <QGradient>
#include <QPaintEngine>
#include <QPen>
#include <QPolygonF>

#include <cmath>

class PathRecorder::Engine : public QPaintEngine
{
public:
    explicit Engine(std::function<void(size_t)> painted) : QPaintEngine(AllFeatures), m_painted(std::move(painted)) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& now) override
    {
        m_transform = now.transform();
        m_opacity = now.opacity();
        m_pen = now.pen();
        m_brush = now.brush();
    }

    void drawPath(const QPainterPath& path) override { Record(path, Fills(), false); }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(points, points + count)));
        Record(path, mode != PolylineMode && Fills(), mode != PolylineMode);
    }

    void drawLines(const QLineF* lines, int count) override
    {
        for (int i = 0; i < count; ++i) {
            QPainterPath path(lines[i].p1());
            path.lineTo(lines[i].p2());
            Record(path, false, false);
        }
    }

    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { ++m_pictures; }
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override { ++m_pictures; }
    void drawTiledPixmap(const QRectF&, const QPixmap&, const QPointF&) override { ++m_pictures; }

    std::vector<PaintedPath> m_paths;
    int m_pictures = 0;

private:
    bool Visible(const QColor& color) const { return color.alphaF() * m_opacity > 0; }
    bool Strokes() const
    {
        return m_pen.style() != Qt::NoPen && m_pen.brush().style() != Qt::NoBrush && Visible(Color(m_pen.brush()));
    }
    bool Fills() const { return m_brush.style() != Qt::NoBrush && Visible(Color(m_brush)); }

    /// A gradient counts as its first colour.
    static QColor Color(const QBrush& brush)
    {
        return brush.gradient() && !brush.gradient()->stops().isEmpty() ? brush.gradient()->stops().first().second
                                                                        : brush.color();
    }

    void Record(const QPainterPath& path, bool fills, bool polygon)
    {
        const bool strokes = Strokes();
        PaintedPath painted{m_transform.map(path), 0, fills, strokes, polygon};
        painted.path.setFillRule(Qt::OddEvenFill);
        if (painted.path.elementCount() < 2 || !(fills || strokes))
            return;
        painted.color = Color(strokes ? m_pen.brush() : m_brush).rgb() & RGB_MASK;
        if (IsStrokeOfLast(painted)) {
            m_paths.back().color = painted.color;
            m_paths.back().stroked = true;
            return;
        }
        m_paths.push_back(std::move(painted));
        m_painted(m_paths.size());
    }

    /// Drawings are painted with two calls where a path is both filled and stroked.
    bool IsStrokeOfLast(const PaintedPath& painted) const
    {
        return painted.stroked && !painted.filled && !m_paths.empty() && m_paths.back().filled &&
               !m_paths.back().stroked && m_paths.back().path == painted.path;
    }

    std::function<void(size_t)> m_painted;
    QTransform m_transform;
    QPen m_pen;
    QBrush m_brush;
    qreal m_opacity = 1;
};

PathRecorder::PathRecorder(QSize size, std::function<void(size_t)> painted)
    : m_engine(std::make_unique<Engine>(std::move(painted))), m_size(size)
{}

PathRecorder::~PathRecorder() = default;

const std::vector<PaintedPath>& PathRecorder::Paths() const
{
    return m_engine->m_paths;
}

int PathRecorder::PictureCount() const
{
    return m_engine->m_pictures;
}

QPaintEngine* PathRecorder::paintEngine() const
{
    return m_engine.get();
}

int PathRecorder::metric(PaintDeviceMetric metric) const
{
    constexpr int kDpi = 96;
    constexpr double kMmPerInch = 25.4;
    switch (metric) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmWidthMM:
        return qRound(m_size.width() * kMmPerInch / kDpi);
    case PdmHeightMM:
        return qRound(m_size.height() * kMmPerInch / kDpi);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return kDpi;
    case PdmDevicePixelRatioScaled:
        return qRound(devicePixelRatioFScale());
    default:
        return QPaintDevice::metric(metric);
    }
}

QPainterPath MachineOutline(const QPainterPath& path, bool closed)
{
    constexpr double kSamePoint = 1e-6; // mm, as CShape::IsClose
    QPainterPath outline;
    for (int begin = 0; begin < path.elementCount();) {
        int end = begin + 1;
        while (end < path.elementCount() && !path.elementAt(end).isMoveTo())
            ++end;
        if (end - begin > 1) {
            QPainterPath::Element start = path.elementAt(begin);
            outline.moveTo(start);
            for (int i = begin + 1; i < end; ++i) {
                if (path.elementAt(i).isCurveTo()) {
                    outline.cubicTo(path.elementAt(i), path.elementAt(i + 1), path.elementAt(i + 2));
                    i += 2;
                } else {
                    outline.lineTo(path.elementAt(i));
                }
            }
            const QPointF gap = QPointF(start) - outline.currentPosition();
            const bool open = std::abs(gap.x()) > kSamePoint || std::abs(gap.y()) > kSamePoint;
            if (closed && open && end - begin > 2) // two points enclose nothing
                outline.lineTo(start);
        }
        begin = end;
    }
    return outline;
}
