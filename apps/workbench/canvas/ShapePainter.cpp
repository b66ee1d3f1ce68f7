#include "canvas/ShapePainter.h"

#include "canvas/ShapeIndex.h"
#include "document/ShapeWalk.h"
#include "look/Look.h"

#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "list/ShapeList.h"
#include "shape/ShapeCast.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

constexpr double kDot = 1.5;     // pixels: smaller shapes are one dot
constexpr double kBox = 6;       // pixels: smaller shapes of many points are their rectangle
constexpr int kFewElements = 12; // limit for a painter path
constexpr double kTinyCell = 3;  // pixels: smaller cells are one tinted area
constexpr int kFillOpacity = 40; // of 255
constexpr unsigned kColorBits = 0xFFFFFF;

bool IsPicture(CShape& shape)
{
    return shape.GetShapeType() == ESHAPE_IMAGE || shape.GetShapeType() == ESHAPE_CODEIMAGE;
}

PaintFrame Moved(const PaintFrame& frame, QPointF offset)
{
    return {frame.visible.translated(-offset), frame.scale};
}

} // namespace

void ShapePainter::Paint(QPainter& painter, CShape& shape, const PaintFrame& frame)
{
    if (shape.IsHide())
        return;
    const QRectF rect = shape.GetRect(false);
    if (!ShapeIndex::AreTouching(rect, frame.visible))
        return;
    if (auto* array = shapes::ShapeCast<CShapeArray>(&shape, ESHAPE_ARRAY))
        PaintCells(painter, *array, frame);
    else if (CShapeList* members = shapedocument::MembersOf(shape))
        PaintMembers(painter, *members, frame);
    else if (IsPicture(shape) && !m_inPen)
        PaintPicture(painter, shape);
    else
        PaintOutline(painter, shape, rect, frame);
}

void ShapePainter::Begin()
{
    m_penColor.reset();
}

void ShapePainter::PaintOutlines(QPainter& painter, CShape& shape, const PaintFrame& frame)
{
    m_inPen = true;
    Paint(painter, shape, frame);
    m_inPen = false;
}

void ShapePainter::PaintMembers(QPainter& painter, CShapeList& members, const PaintFrame& frame)
{
    for (unsigned int i = 0; i < members.GetCount(); ++i)
        Paint(painter, *members.GetShape(i), frame);
}

void ShapePainter::PaintCells(QPainter& painter, CShapeArray& array, const PaintFrame& frame)
{
    const QRectF cell = array.CShapeGroup::GetRect(false);
    if (std::max(cell.width(), cell.height()) * frame.scale < kTinyCell) {
        painter.fillRect(array.GetAllRect(), QColor::fromRgba((array.GetColor() & kColorBits) | 0x60000000u));
        return;
    }
    const QTransform before = painter.worldTransform();
    for (const ShapeArrayInfo& info : array.GetShapeArrayInfo()) {
        const QPointF offset = info.ptPos - cell.topLeft();
        if (!info.bValid || !ShapeIndex::AreTouching(cell.translated(offset), frame.visible))
            continue;
        painter.setWorldTransform(QTransform::fromTranslate(offset.x(), offset.y()) * before);
        PaintMembers(painter, *array.GetShapeList(), Moved(frame, offset));
    }
    painter.setWorldTransform(before);
}

void ShapePainter::SetColor(QPainter& painter, CShape& shape)
{
    if (m_inPen)
        return;
    const QRgb color = shape.GetColor() & kColorBits;
    if (m_penColor == color)
        return;
    m_penColor = color;
    QPen pen(look::LineColor(color), 1);
    pen.setCosmetic(true);
    painter.setPen(pen);
}

void ShapePainter::PaintOutline(QPainter& painter, CShape& shape, const QRectF& rect, const PaintFrame& frame)
{
    const QPainterPath* path = shape.GetPath(false);
    if (!path || path->isEmpty())
        return;
    SetColor(painter, shape);
    const double size = std::max(rect.width(), rect.height()) * frame.scale;
    if (size < kDot) {
        painter.drawPoint(rect.center());
        return;
    }
    if (size < kBox && path->elementCount() > kFewElements) {
        painter.drawRect(rect);
        return;
    }
    if (!m_inPen && shape.IsFilled()) {
        QColor tint = painter.pen().color();
        tint.setAlpha(kFillOpacity);
        painter.fillPath(*path, tint);
    }
    painter.drawPath(*path);
}

void ShapePainter::PaintPicture(QPainter& painter, CShape& shape)
{
    auto* picture = dynamic_cast<CShapeImage*>(&shape);
    if (!picture)
        return;
    const QImage& image = m_pictures.Image(*picture);
    if (image.isNull())
        return;
    const QPainterPath* outline = look::IsDark() ? picture->GetPath(false) : nullptr;
    if (outline)
        painter.fillPath(*outline, look::Card()); // on the dark bed burns would not be seen
    painter.drawImage(picture->GetRect(false), image);
}

void ShapePainter::Forget(const std::vector<CShape*>& shapes)
{
    for (CShape* shape : shapes) {
        m_pictures.Forget(*shape);
        if (CShapeList* members = shapedocument::MembersOf(*shape))
            shapedocument::ForEachShape(*members, [this](CShape& member, int) { m_pictures.Forget(member); });
    }
}
