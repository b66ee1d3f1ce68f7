/// Paints CanvasView.
#include "canvas/CanvasView.h"
#include "canvas/Sheet.h"
#include "document/WorkDocument.h"
#include "look/Look.h"

#include "list/ShapeOwner.h"
#include "vector/ShapeVector.h"

#include <QEvent>
#include <QPainter>

#include <array>
#include <utility>

namespace {

constexpr size_t kFewHighlights = 2000; // more are painted into m_still
const QColor kLeadColor(0x00, 0x99, 0x55);

QPen Cosmetic(const QColor& color, double width = 1, Qt::PenStyle style = Qt::SolidLine)
{
    QPen pen(color, width, style);
    pen.setCosmetic(true);
    return pen;
}

/// The lead-in and lead-out of the shape, made on a copy, because making them may change an outline.
std::vector<QLineF> MadeLeads(CShape& shape)
{
    if (shape.GetShapeType() != ESHAPE_VECTOR)
        return {};
    const ShapeOwner copy(shape.Clone());
    auto* vector = dynamic_cast<CShapeVector*>(copy.get());
    std::array<QPointF, 4> points;
    if (!vector || !vector->GetGuideLinePoints(points.data()))
        return {};
    return {QLineF(points[0], points[1]), QLineF(points[2], points[3])};
}

} // namespace

PaintFrame CanvasView::Frame(const QRectF& pixels) const
{
    return {m_view.ToMm(pixels.adjusted(-1, -1, 1, 1)), m_view.Scale()};
}

bool CanvasView::AreHighlightsStill() const
{
    return m_document.Selection().size() > kFewHighlights;
}

void CanvasView::paintEvent(QPaintEvent*)
{
    RenderStill();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_still);
    PaintOver(painter);
}

void CanvasView::resizeEvent(QResizeEvent*)
{
    Renew();
    emit ViewChanged();
}

/// Shows the whole bed when the canvas is first shown.
void CanvasView::showEvent(QShowEvent* event)
{
    if (!std::exchange(m_wasShown, true))
        FitBed();
    QWidget::showEvent(event);
}

void CanvasView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        Renew();
    QWidget::changeEvent(event);
}

void CanvasView::RenderStill()
{
    const double density = devicePixelRatioF();
    const QSize size = (QSizeF(this->size()) * density).toSize();
    if (m_isStillOld || m_still.size() != size)
        m_oldParts = rect();
    if (m_still.size() != size)
        m_still = QPixmap(size);
    m_still.setDevicePixelRatio(density);
    QPainter painter(&m_still);
    for (const QRect& part : m_oldParts)
        RenderPart(painter, part);
    m_painter.DropLeft();
    m_isStillOld = false;
    m_oldParts = {};
}

void CanvasView::RenderPart(QPainter& painter, const QRectF& pixels)
{
    painter.save();
    painter.setClipRect(pixels);
    PaintSheet(painter, m_bed, m_view.Matrix(), pixels, m_grid);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setWorldTransform(m_view.Matrix(), true);
    const PaintFrame frame = Frame(pixels);
    m_painter.Begin();
    m_index.ForEachIn(frame.visible, [&](const ShapeIndex::Entry& entry) {
        if (!m_preview || !m_document.IsSelected(entry.shape))
            m_painter.Paint(painter, *entry.shape, frame);
    });
    if (AreHighlightsStill() && !m_preview)
        PaintHighlights(painter);
    painter.restore();
}

void CanvasView::PaintOver(QPainter& painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setWorldTransform(m_view.Matrix(), true);
    if (m_preview)
        PaintPreview(painter);
    else if (!AreHighlightsStill())
        PaintHighlights(painter);
    PaintLeads(painter);
    PaintPlace(painter);
    painter.restore();
    painter.setRenderHint(QPainter::Antialiasing);
    m_tool->Paint(painter);
    m_snapping.Paint(painter);
    if (m_keyPointer) {
        painter.setPen(Cosmetic(look::Hint(), 2));
        constexpr double kArm = 8; // pixels
        painter.drawLine(*m_keyPointer - QPointF(kArm, 0), *m_keyPointer + QPointF(kArm, 0));
        painter.drawLine(*m_keyPointer - QPointF(0, kArm), *m_keyPointer + QPointF(0, kArm));
    }
}

void CanvasView::PaintPreview(QPainter& painter)
{
    painter.save();
    bool invertible = false;
    const QTransform back = m_preview->inverted(&invertible);
    painter.setWorldTransform(*m_preview * painter.worldTransform());
    PaintFrame frame = Frame(rect());
    if (invertible)
        frame.visible = back.mapRect(frame.visible);
    m_painter.Begin();
    for (CShape* shape : m_document.Selection())
        m_painter.Paint(painter, *shape, frame);
    painter.restore();
    painter.setPen(Cosmetic(look::Marker(), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(m_preview->map(QPolygonF(m_selectionRect)));
}

void CanvasView::PaintHighlights(QPainter& painter)
{
    const PaintFrame frame = Frame(rect());
    painter.setPen(Cosmetic(look::Marker()));
    painter.setBrush(Qt::NoBrush);
    for (CShape* shape : m_document.Selection())
        m_painter.PaintOutlines(painter, *shape, frame);
    if (m_hover && !m_document.IsSelected(m_hover)) {
        painter.setPen(Cosmetic(look::Hint()));
        m_painter.PaintOutlines(painter, *m_hover, frame);
    }
}

const std::vector<QLineF>& CanvasView::LeadsOf(CShape& shape)
{
    const auto known = m_knownLeads.find(&shape);
    return known != m_knownLeads.end() ? known->second : m_knownLeads[&shape] = MadeLeads(shape);
}

void CanvasView::PaintLeads(QPainter& painter)
{
    if (m_preview || AreHighlightsStill())
        return;
    painter.setPen(Cosmetic(kLeadColor));
    if (!m_leads) {
        for (CShape* shape : m_document.Selection())
            for (const QLineF& lead : LeadsOf(*shape))
                painter.drawLine(lead);
        return;
    }
    m_index.ForEachIn(Frame(rect()).visible, [&](const ShapeIndex::Entry& entry) {
        if (!entry.shape->IsHide())
            for (const QLineF& lead : LeadsOf(*entry.shape))
                painter.drawLine(lead);
    });
}

void CanvasView::PaintPlace(QPainter& painter)
{
    if (m_place.isNull())
        return;
    const double around = m_view.LengthToMm(6);
    painter.setPen(Cosmetic(look::Problem(), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_place.adjusted(-around, -around, around, around));
}
