#include "shape/Shape.h"

#include "geometry/OutlineParts.h"
#include "geometry/PlaneTransforms.h"
#include "geometry/Tolerances.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// The path with its rectangles computed. QPainterPath computes them in const calls and writes them into the data that
/// all its copies share, unguarded: copies in documents on two threads must find them there.
const QPainterPath& ReadyToShare(const QPainterPath& path)
{
    (void)path.boundingRect();
    (void)path.controlPointRect();
    return path;
}

} // namespace

std::atomic<unsigned int> CShape::s_nID = 0;

CShape::CShape() : m_nShapeId(s_nID.fetch_add(1, std::memory_order_relaxed)) {}

CShape::CShape(const CShape&) = default;
CShape& CShape::operator=(const CShape&) = default;

CShape::~CShape()
{
    // Hosts keep pointers to empty painter paths and to temporary paths beyond the shape's end.
    if (m_pPath.m_path && m_pPath.m_path->isEmpty())
        (void)m_pPath.m_path.release();
    (void)m_pPathTmp.m_path.release();
}

void CShape::Release(CShape* shape)
{
    delete shape;
}

void CShape::DeletePath(CShape* shape)
{
    if (!shape)
        return;
    shape->m_pPath.m_path.reset();
    shape->m_pathParts.m_value.reset();
    shape->m_pathDeferred.m_value = false;
}

void CShape::DeferPathRebuild()
{
    DeletePath(this);
    m_pathDeferred.m_value = true;
}

void CShape::BuildDeferredPath()
{
    if (m_pathDeferred.m_value)
        UpdatePainterPath();
}

bool CShape::HasPath() const
{
    return m_pPath.m_path || m_pathParts.m_value;
}

void CShape::SetPathParts(std::shared_ptr<const shapes::OutlineParts> parts)
{
    DeletePath(this);
    m_pathParts.m_value = std::move(parts);
}

void CShape::DropPathParts()
{
    if (m_pathParts.m_value)
        DeletePath(this);
}

void CShape::AddPathTo(shapes::OutlineParts& parts, CShape& shape)
{
    if (!shape.HasPath())
        shape.UpdatePainterPath();
    if (shape.m_pathParts.m_value)
        parts.Add(shape.m_pathParts.m_value);
    else if (shape.m_pPath.m_path)
        parts.Add(ReadyToShare(*shape.m_pPath.m_path));
}

/// Touches the own path last: building the source's path may run host code.
void CShape::CopyPath(CShape& source)
{
    if (!source.HasPath())
        source.UpdatePainterPath();
    if (source.m_pathParts.m_value) {
        SetPathParts(source.m_pathParts.m_value);
        return;
    }
    DropPathParts();
    *EnsurePath() = source.m_pPath.m_path ? ReadyToShare(*source.m_pPath.m_path) : QPainterPath();
}

bool CShape::Copy(CShape* src)
{
    if (!src)
        return false;
    if (src == this)
        return true;
    m_nColor = src->m_nColor;
    m_nStatus = src->m_nStatus;
    m_guideLine = src->m_guideLine;
    // The path is copied before the points: building it may replace the source's points and run host code.
    CopyPath(*src);
    m_eShapeVectorType = src->m_eShapeVectorType;
    m_listPathData = src->m_listPathData;
    m_listPoints = src->m_listPoints;
    m_listTypes = src->m_listTypes;
    m_outlineNotes = src->m_outlineNotes;
    m_outlineNotes.fillMarker = -1;
    m_nShapeId = src->m_nShapeId;
    return true;
}

unsigned int CShape::GetShapeId()
{
    return m_nShapeId;
}

unsigned int CShape::GetStatus()
{
    return m_nStatus;
}

void CShape::Select(bool bSelect)
{
    if (bSelect)
        m_nStatus |= SHAPE_STATUS_SELECT;
    else if (IsSelect())
        m_nStatus -= SHAPE_STATUS_SELECT;
}

void CShape::Lock(bool bLock)
{
    if (bLock)
        m_nStatus |= SHAPE_STATUS_LOCK;
    else if (IsLock())
        m_nStatus -= SHAPE_STATUS_LOCK;
}

void CShape::Hide(bool bHide)
{
    if (bHide)
        m_nStatus |= SHAPE_STATUS_HIDE;
    else if (IsHide())
        m_nStatus -= SHAPE_STATUS_HIDE;
}

void CShape::SetGroup(bool bGroup)
{
    if (bGroup)
        m_nStatus |= SHAPE_STATUS_GROUP;
    else if (IsSelect()) // The select bit decides, not the group bit.
        m_nStatus -= SHAPE_STATUS_GROUP;
}

bool CShape::IsSelect()
{
    return m_nStatus & SHAPE_STATUS_SELECT;
}

bool CShape::IsLock()
{
    return m_nStatus & SHAPE_STATUS_LOCK;
}

bool CShape::IsHide()
{
    return m_nStatus & SHAPE_STATUS_HIDE;
}

bool CShape::IsGroup()
{
    return m_nStatus & SHAPE_STATUS_GROUP;
}

void CShape::SetColor(unsigned int color)
{
    m_nColor = color;
}

void CShape::SetGuideLine(SGuideLine guideLine)
{
    m_guideLine = guideLine;
}

SGuideLine CShape::GetGuideLine()
{
    return m_guideLine;
}

ESHAPE_VECTOR_TYPE CShape::GetShapeVectorType()
{
    return m_eShapeVectorType;
}

void CShape::SetShapeVectorType(ESHAPE_VECTOR_TYPE type)
{
    m_eShapeVectorType = type;
}

void CShape::SetShapeVectorType(int type)
{
    const bool known = type >= ESHAPE_VECTOR_0 && type <= ESHAPE_VECTOR_3;
    m_eShapeVectorType = known ? static_cast<ESHAPE_VECTOR_TYPE>(type) : ESHAPE_VECTOR_0;
}

void CShape::SetShapePoints(const std::vector<QPointF>& points, ESHAPE_LINE_SEGMENT_TYPE type)
{
    ForgetOutline();
    m_listPoints = points;
    m_listTypes.assign(m_listPoints.size(), static_cast<unsigned char>(type));
    DeletePath(this);
}

void CShape::SetShapePoints(const std::vector<QPointF>& points, const std::vector<unsigned char>& types)
{
    ForgetOutline();
    m_listPoints = points;
    m_listTypes = types;
    DeletePath(this);
}

void CShape::GetShapePathData(std::vector<QPointF>& points, std::vector<unsigned char>& types)
{
    points = m_listPoints;
    types = m_listTypes;
}

bool CShape::IsValid() const
{
    return m_listPoints.size() == m_listTypes.size() && m_listPoints.size() >= 2;
}

unsigned char CShape::PointType(size_t i) const
{
    return i < m_listTypes.size() ? m_listTypes[i] : static_cast<unsigned char>(ELINE_SEGMENT_STRAIGHT);
}

size_t CShape::FirstPointIndex() const
{
    return PointType(0) == ELINE_SEGMENT_SEPARATOR ? 1 : 0;
}

void CShape::GetInAndOutPoint(QPointF& in, QPointF& out)
{
    if (m_listPoints.size() < 2)
        return;
    in = m_listPoints[FirstPointIndex()];
    out = m_listPoints.back();
}

void CShape::ReverseDir()
{
    std::reverse(m_listPoints.begin(), m_listPoints.end());
    std::reverse(m_listTypes.begin(), m_listTypes.end());
    m_outlineNotes.fillMarker = -1;
}

bool CShape::IsClose()
{
    return m_listPoints.size() >= 2 && shapes::SamePoint(m_listPoints.back(), m_listPoints[FirstPointIndex()]);
}

bool CShape::Close(double, bool)
{
    return false;
}

bool CShape::IsFilled()
{
    return false;
}

void CShape::RestoreFilledShape() {}

void CShape::ProcessFilledShape() {}

QPainterPath* CShape::NewPath()
{
    DeletePath(this);
    return EnsurePath();
}

QPainterPath* CShape::EnsurePath()
{
    if (!CachedPath())
        m_pPath.m_path = std::make_unique<QPainterPath>();
    m_pathDeferred.m_value = false;
    return m_pPath.m_path.get();
}

QPainterPath* CShape::CachedPath() const
{
    if (m_pathParts.m_value) {
        m_pPath.m_path = std::make_unique<QPainterPath>(m_pathParts.m_value->Joined());
        m_pathParts.m_value.reset();
    }
    return m_pPath.m_path.get();
}

void CShape::SetPath(QPainterPath* path)
{
    if (path)
        *EnsurePath() = ReadyToShare(*path); // path may be another shape's
}

QPainterPath* CShape::GetPath(bool bUpdate)
{
    if (bUpdate || !HasPath())
        UpdatePainterPath();
    return CachedPath();
}

QPainterPath* CShape::GetPathUI(double)
{
    return nullptr;
}

bool CShape::HasCloseFlag(unsigned char)
{
    return false;
}

bool CShape::HasCloseFlag()
{
    return false;
}

void CShape::SetInPoint(QPainterPath*, unsigned int, double) {}

void CShape::SetInPoint(unsigned int index, double scale)
{
    SetInPoint(CachedPath(), index, scale);
}

void CShape::UpdatePathDataByClose(bool, CShape*) const {}

ESHAPE_LINE_SEGMENT_TYPE CShape::LineSegmentType(QPainterPath*)
{
    return ELINE_SEGMENT_FILL;
}

void CShape::InitPathTmp()
{
    if (!GetPathTmp())
        (void)GetRect(false);
}

void CShape::ExitPathTmp()
{
    SetPathTmp(nullptr);
}

void CShape::SetPathTmp(std::unique_ptr<QPainterPath> path)
{
    m_pPathTmp.m_path = std::move(path);
}

QPainterPath* CShape::GetPathTmp()
{
    return m_pPathTmp.m_path.get();
}

std::vector<SHAPE_VECTOR_PATHDATA> CShape::GetPathDataTmp()
{
    return {};
}

void CShape::SetShapeTmp(CShape* shape)
{
    m_pShapeTmp = shape;
}

CShape* CShape::GetShapeTmp()
{
    return m_pShapeTmp;
}
