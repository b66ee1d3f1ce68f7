/// Transforms of the text shape: each becomes a change of parameters.
#include "geometry/Geometry.h"
#include "geometry/Tolerances.h"
#include "text/ShapeText.h"

#include <cmath>

using namespace shapes;

namespace {

constexpr double kRectInset = 0.5; ///< taken off every side of the rectangle whose rotation moves the text, model units

/// The scale that turns extent, measured at the old scale, into target. The old one if that is 0 or not finite.
double Rescaled(double scale, double extent, double target)
{
    const double rescaled = target / (extent / scale);
    return std::isfinite(rescaled) && rescaled != 0 ? rescaled : scale;
}

QPointF Rounded(QPointF point)
{
    return {std::round(point.x()), std::round(point.y())};
}

QRectF Inset(const QRectF& rect)
{
    return rect.adjusted(kRectInset, kRectInset, -kRectInset, -kRectInset);
}

} // namespace

bool CShapeText::Offset(double dx, double dy)
{
    if (!AllFinite({dx, dy}))
        return false;
    m_text.ptCenter += QPointF(dx, dy);
    UpdatePainterPath();
    return true;
}

bool CShapeText::Resize(QRectF target)
{
    if (!IsFinite(target))
        return false;
    const QRectF old = GetRect(false);
    m_text.dScaleX = Rescaled(m_text.dScaleX, old.width(), target.width());
    m_text.dScaleY = Rescaled(m_text.dScaleY, old.height(), target.height());
    m_text.ptCenter = target.center();
    DeletePath(this);
    return true;
}

bool CShapeText::RotateLeft(QPointF centre)
{
    return Rotate(-90.0, centre, Qt::ZAxis);
}

bool CShapeText::RotateRight(QPointF centre)
{
    return Rotate(90.0, centre, Qt::ZAxis);
}

bool CShapeText::Rotate(double angle, QPointF centre, Qt::Axis)
{
    if (!std::isfinite(angle) || !IsFinite(centre))
        return false;
    if (!RotateBefore(angle, centre))
        return false;
    m_text.dAngle = WithinFullTurn(m_text.dAngle + angle);
    DeletePath(this);
    return true;
}

/// Moves the text as far as the rotation moves the centre of its rectangle. False when that is not finite.
bool CShapeText::RotateBefore(double angle, QPointF centre)
{
    const QRectF before = Inset(GetRect(false));
    CShape* frame = NewShape(ESHAPE_VECTOR);
    frame->SetShapePoints(
        {before.topLeft(), before.topRight(), before.bottomRight(), before.bottomLeft(), before.topLeft()},
        ELINE_SEGMENT_STRAIGHT);
    frame->Rotate(angle, centre, Qt::ZAxis);
    const QPointF moved = Inset(frame->GetRect(false)).center() - before.center();
    Release(frame);
    return Offset(moved.x(), moved.y());
}

bool CShapeText::MirrorX(double)
{
    m_text.bMirrorX = !m_text.bMirrorX;
    DeletePath(this);
    return true;
}

bool CShapeText::MirrorY(double)
{
    m_text.bMirrorY = !m_text.bMirrorY;
    DeletePath(this);
    return true;
}

bool CShapeText::MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool)
{
    if (!IsFinite(p1) || !IsFinite(p2))
        return false;
    ptMirrorLine1 = p1;
    ptMirrorLine2 = p2;
    m_mirrorAxis = {Rounded(p1), Rounded(p2)};
    m_text.bMirrorLine = !m_text.bMirrorLine;
    DeletePath(this);
    return true;
}

bool CShapeText::MirrorAttachLine(double value, bool bVertical)
{
    if (!AllFinite({value}))
        return false;
    dAttachLine = value;
    bAttachLineFlag = bVertical;
    m_text.bMirrorAttach = !m_text.bMirrorAttach;
    DeletePath(this);
    return true;
}
