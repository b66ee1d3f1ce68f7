/// Outline and edits of the image shape.
#include "geometry/CornerQuad.h"
#include "geometry/Geometry.h"
#include "geometry/PathFlattening.h"
#include "geometry/PlaneTransforms.h"
#include "geometry/Tolerances.h"
#include "host/IRuler.h"
#include "image/OperationReplay.h"
#include "image/ShapeImage.h"

#include <QLineF>
#include <QPainterPathStroker>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

using shapes::AllFinite;
using shapes::IsFinite;

namespace {

constexpr double kSameCentre = 1e-5; ///< model units
constexpr size_t kClosedCorners = 5;

QPainterPath Polyline(const std::vector<QPointF>& points)
{
    QPainterPath path;
    for (size_t i = 0; i < points.size(); ++i) {
        if (i == 0)
            path.moveTo(points[i]);
        else
            path.lineTo(points[i]);
    }
    return path;
}

bool SameCentre(QPointF a, QPointF b)
{
    return std::abs(a.x() - b.x()) <= kSameCentre && std::abs(a.y() - b.y()) <= kSameCentre;
}

} // namespace

void CShapeImage::SetPoints(QRectF rect)
{
    m_listPoints = {rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft(), rect.topLeft()};
    m_listTypes.assign(kClosedCorners, ELINE_SEGMENT_STRAIGHT);
}

void CShapeImage::SetOrgRect(QRectF rect, bool bClearOperations)
{
    if (!IsFinite(rect))
        return;
    m_storeNotes.bRead = m_storeNotes.bOriginalRead = false;
    OutdateCache();
    m_rcOrg = rect;
    SetPoints(rect);
    *NewPath() = Polyline(m_listPoints);
    if (bClearOperations)
        m_listOperations.clear();
}

QRectF CShapeImage::GetOrgRect()
{
    return m_rcOrg;
}

/// Makes the rectangle the painter path.
void CShapeImage::ShowRect(const QRectF& rect)
{
    NewPath()->addRect(rect);
}

/// Makes the corners the outline if that has five points, rebuilds the painter path and drops the temporary one.
void CShapeImage::AdoptCorners(const std::array<QPointF, 4>& corners)
{
    if (m_listPoints.size() == kClosedCorners) {
        std::copy(corners.begin(), corners.end(), m_listPoints.begin());
        m_listPoints.back() = corners.front();
    }
    *NewPath() = Polyline(m_listPoints);
    ExitPathTmp();
}

void CShapeImage::UpdatePainterPath()
{
    shapes::CornerQuad quad(m_rcOrg);
    shapes::Replay(m_listOperations, quad, nullptr);
    AdoptCorners(quad.Corners());
}

QRectF CShapeImage::GetImageRect()
{
    const QPainterPath* path = CachedPath();
    return path ? path->boundingRect() : QRectF();
}

QRectF CShapeImage::GetRect(bool bUpdate)
{
    if (bUpdate)
        UpdatePainterPath();
    return CShape::GetRect(bUpdate);
}

QPainterPath CShapeImage::GetShapeImagePath()
{
    if (const QPainterPath* temporary = GetPathTmp())
        return *temporary;
    return *GetPath(false);
}

bool CShapeImage::IsClose()
{
    return true;
}

bool CShapeImage::Contains(QPointF p, double)
{
    return GetRect(false).contains(p);
}

bool CShapeImage::Hit(QPointF p, int& tolerance)
{
    const QPainterPath* path = CachedPath();
    if (!path)
        return false;
    if (path->contains(p))
        return true;
    QPainterPathStroker stroker;
    stroker.setWidth(2.0 * tolerance);
    return stroker.createStroke(*path).contains(p);
}

std::vector<QLineF> CShapeImage::Flatten(double tolerance)
{
    m_listPathData = shapes::MicroLines(GetPath(false)->toSubpathPolygons());
    return CShape::Flatten(tolerance);
}

void CShapeImage::Append(EIMAGE_OPERATION code, const QVariant& argument)
{
    m_listOperations.append({code, argument});
}

bool CShapeImage::Offset(double dx, double dy)
{
    const QPointF way(dx, dy);
    if (!IsFinite(way))
        return false;
    DeletePath(this);
    ExitPathTmp();
    if (!m_listOperations.isEmpty() && m_listOperations.last().nCode == EIMAGE_MOVE)
        m_listOperations.last().argument = m_listOperations.last().argument.toPointF() + way;
    else
        Append(EIMAGE_MOVE, way);
    return true;
}

bool CShapeImage::Rotate(double angle, QPointF centre, Qt::Axis)
{
    if (!std::isfinite(angle) || !IsFinite(centre))
        return false;
    RemoveImageCache();
    m_dRotateAngle = shapes::WithinFullTurn(angle);
    SRotate turn{m_dRotateAngle, centre};
    if (!m_listOperations.isEmpty() && m_listOperations.last().nCode == EIMAGE_ROTATE) {
        const auto last = m_listOperations.last().argument.value<SRotate>();
        if (SameCentre(last.centre, centre)) {
            turn = {last.angle + m_dRotateAngle, last.centre};
            m_listOperations.removeLast();
        }
    }
    Append(EIMAGE_ROTATE, QVariant::fromValue(turn));
    return true;
}

bool CShapeImage::MirrorX(double axis)
{
    if (!AllFinite({axis}))
        return false;
    Append(EIMAGE_MIRROR_X, axis);
    RemoveImageCache();
    return true;
}

bool CShapeImage::MirrorY(double axis)
{
    if (!AllFinite({axis}))
        return false;
    Append(EIMAGE_MIRROR_Y, axis);
    RemoveImageCache();
    return true;
}

bool CShapeImage::MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit)
{
    if (!IsFinite(p1) || !IsFinite(p2) || p1 == p2)
        return false;
    UpdatePainterPath();
    if (m_listPoints.size() < 2)
        return false;
    const std::vector<QPointF> mirrored = shapes::MirrorAcross(m_listPoints, QLineF(p1, p2));
    if (!bCommit) {
        SetPathTmp(std::make_unique<QPainterPath>(Polyline(mirrored)));
        return true;
    }
    const QPointF centre = GetImageRect().center();
    const double flippedX = 2 * centre.x();
    const QLineF flippedEdge(flippedX - m_listPoints[0].x(), m_listPoints[0].y(), flippedX - m_listPoints[1].x(),
                             m_listPoints[1].y());
    const double turn = -flippedEdge.angleTo(QLineF(mirrored[0], mirrored[1]));
    Append(EIMAGE_MIRROR_X, centre.x());
    Append(EIMAGE_ROTATE, QVariant::fromValue(SRotate{turn, centre}));
    Append(EIMAGE_MOVE, Polyline(mirrored).boundingRect().center() - centre);
    RemoveImageCache();
    return true;
}

bool CShapeImage::Resize(QRectF target)
{
    if (target.isEmpty() || !IsFinite(target))
        return false;
    Append(EIMAGE_RESIZE, target);
    RemoveImageCache();
    return true;
}

void CShapeImage::UpdateCropImage(QRectF cut, QRectF target)
{
    if (!IsFinite(cut) || !IsFinite(target))
        return;
    Append(EIMAGE_CUT, QVariant::fromValue(SCut{cut, target}));
    RemoveImageCache();
}

bool CShapeImage::Crop(QRectF)
{
    return true;
}

void CShapeImage::MovePos(QPointF pos)
{
    if (!IsFinite(pos))
        return;
    const QPointF way = pos - m_rcOrg.center();
    m_rcOrg.moveCenter(pos);
    for (QPointF& point : m_listPoints)
        point += way;
    if (QPainterPath* path = CachedPath())
        path->translate(way);
}

void CShapeImage::ChangePix2MM(IRuler* ruler)
{
    if (!ruler)
        return;
    m_listOperations =
        shapes::Converted(m_listOperations, {[ruler](const QPointF& point) { return ruler->Pix2MMPoint(point); },
                                             [ruler](const QRectF& rect) { return ruler->Pix2MMRect(rect); },
                                             [ruler](double length) { return ruler->Pix2MMLength(length); }});
}

void CShapeImage::ChangeMM2Pix(IRuler* ruler)
{
    if (!ruler)
        return;
    m_listOperations =
        shapes::Converted(m_listOperations, {[ruler](const QPointF& point) { return ruler->MM2PixPoint(point); },
                                             [ruler](const QRectF& rect) { return ruler->MM2PixRect(rect); },
                                             [ruler](double length) { return ruler->MM2PixLength(length); }});
}
