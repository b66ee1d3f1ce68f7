#include "canvas/CanvasView.h"

#include "document/WorkDocument.h"
#include "look/LengthUnit.h"

#include "shape/ShapeCast.h"
#include "vector/ShapeVector.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kHitPixels = 5; // pixels: distance from a line at which a click still hits it

/// Stands for a tool until the first one is set.
class NoTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;
};

/// The library's hit test takes a reach in whole millimetres; where these are many pixels, its test at the view's scale
/// decides.
bool IsHit(CShape& shape, QPointF mm, double scale)
{
    int reach = std::max(1, static_cast<int>(std::lround(kHitPixels / scale)));
    if (!shape.Hit(mm, reach))
        return false;
    const bool coarse = scale > 2 * kHitPixels && shape.GetShapeType() == ESHAPE_VECTOR;
    return !coarse || shape.Contains(mm, scale);
}

} // namespace

CanvasView::CanvasView(WorkDocument& document, QWidget* parent)
    : QWidget(parent), m_document(document), m_tool(std::make_unique<NoTool>(*this))
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Drawing"));
    connect(&document, &WorkDocument::ShapesLeft, this, &CanvasView::OnShapesLeft);
    connect(this, &CanvasView::ViewChanged, this, [this] { m_snapping.Forget(); });
    connect(&look::LengthUnit::Shown(), &look::LengthUnit::Changed, this, &CanvasView::Renew);
    connect(&document, &WorkDocument::SelectionChanged, this, [this] {
        OnSelectionChanged();
        m_tool->SelectionChanged();
    });
    connect(&document, &WorkDocument::DrawingReplaced, this, &CanvasView::Renew);
    m_index.Renew(document.Shapes());
    connect(&document, &WorkDocument::Changed, this, [this] {
        const QRectF changed = m_index.Renew(m_document.Shapes());
        m_snapping.End();
        OnSelectionChanged();
        m_tool->DrawingChanged();
        RenewPart(changed);
    });
}

CanvasView::~CanvasView() = default;

void CanvasView::Renew()
{
    m_isStillOld = true;
    update();
}

/// Repaints the changed part (mm) of the drawing, with a margin because lines reach beyond their shapes.
void CanvasView::RenewPart(const QRectF& mm)
{
    constexpr double kLine = 3; // pixels
    const QRectF pixels = m_view.ToPixel(mm).adjusted(-kLine, -kLine, kLine, kLine).intersected(QRectF(rect()));
    constexpr int kManyParts = 8; // more are cheaper to paint together
    if (!mm.isNull() && !pixels.isEmpty())
        m_oldParts += pixels.toAlignedRect();
    if (m_oldParts.rectCount() > kManyParts)
        m_oldParts = m_oldParts.boundingRect();
    update();
}

void CanvasView::OnShapesLeft(const std::vector<CShape*>& shapes)
{
    m_painter.Forget(shapes);
    for (CShape* shape : shapes)
        m_knownLeads.erase(shape);
    if (std::find(shapes.begin(), shapes.end(), m_hover) != shapes.end())
        m_hover = nullptr;
}

void CanvasView::OnSelectionChanged()
{
    const bool wasStill = std::exchange(m_areHighlightsStill, AreHighlightsStill());
    m_snapping.Forget();
    m_selectionRect = m_document.SelectionRect();
    if (wasStill || m_areHighlightsStill || m_preview)
        m_isStillOld = true;
    update();
}

void CanvasView::SetBed(const QRectF& bed)
{
    m_bed = bed;
    Renew();
    emit ViewChanged();
}

void CanvasView::ShowGrid(bool shown)
{
    m_grid = shown;
    Renew();
}

void CanvasView::ShowLeads(bool shown)
{
    m_leads = shown;
    Renew();
}

void CanvasView::ZoomAt(QPointF pixel, double factor)
{
    m_view.ZoomAt(pixel, factor);
    Renew();
    emit ViewChanged();
}

/// Moves the visible part of the pixmap and paints only the new edges.
void CanvasView::Pan(QPoint pixels)
{
    m_view.Pan(pixels);
    if (!m_isStillOld && !m_still.isNull()) {
        QPixmap moved(m_still.size());
        moved.setDevicePixelRatio(m_still.devicePixelRatio());
        QPainter painter(&moved);
        painter.drawPixmap(pixels, m_still);
        const QRegion fresh = QRegion(rect()) - QRegion(rect().translated(pixels));
        for (const QRect& part : fresh)
            RenderPart(painter, part);
        painter.end();
        m_still = moved;
        m_oldParts.translate(pixels);
    }
    update();
    emit ViewChanged();
}

void CanvasView::Fit(const QRectF& mm)
{
    m_view.Fit(mm, size());
    Renew();
    emit ViewChanged();
}

void CanvasView::FitDrawing()
{
    CShapeList& shapes = m_document.Shapes();
    Fit(shapes.IsEmpty() ? m_bed : shapes.GetRect(false));
}

void CanvasView::FitSelection()
{
    if (!m_document.Selection().empty())
        Fit(m_selectionRect);
}

void CanvasView::ShowPlace(const QRectF& mm)
{
    constexpr double kAround = 10; // mm
    m_place = mm;
    Fit(mm.adjusted(-kAround, -kAround, kAround, kAround));
}

void CanvasView::SetTool(std::unique_ptr<CanvasTool> tool)
{
    m_tool->Leave();
    m_snapping.End();
    m_tool = std::move(tool);
    m_keyPointer.reset();
    m_keyPressed = false;
    SetHover(nullptr);
    setCursor(m_tool->Cursor());
    update();
    emit ToolChanged();
}

CShape* CanvasView::ShapeAt(QPointF mm) const
{
    // mm: thin shapes can be hit beside their rectangle
    const double around = std::max(1.0, kHitPixels * 2 / m_view.Scale());
    const QRectF near = QRectF(mm, mm).adjusted(-around, -around, around, around);
    const std::vector<ShapeIndex::Entry>& all = m_index.All();
    for (auto entry = all.rbegin(); entry != all.rend(); ++entry) {
        CShape& shape = *entry->shape;
        if (ShapeIndex::AreTouching(entry->rect, near) && !shape.IsHide() && !shape.IsLock() &&
            IsHit(shape, mm, m_view.Scale()))
            return &shape;
    }
    return nullptr;
}

std::vector<CShape*> CanvasView::ShapesIn(const QRectF& mm, bool touching) const
{
    std::vector<CShape*> found;
    m_index.ForEachIn(mm, [&](const ShapeIndex::Entry& entry) {
        const QRectF& rect = entry.rect;
        const bool inside = mm.left() <= rect.left() && rect.right() <= mm.right() && mm.top() <= rect.top() &&
                            rect.bottom() <= mm.bottom();
        if (inside || touching)
            found.push_back(entry.shape);
    });
    return found;
}

void CanvasView::SetHover(CShape* shape)
{
    if (m_hover == shape)
        return;
    m_hover = shape;
    update();
}

void CanvasView::SetPreview(const QTransform& transform)
{
    const bool begins = !m_preview;
    m_preview = transform;
    if (begins)
        RenewPart(m_selectionRect);
    update();
}

void CanvasView::ClearPreview()
{
    if (!m_preview)
        return;
    m_preview.reset();
    RenewPart(m_selectionRect);
}
