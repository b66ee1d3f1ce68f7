/// Painter path of the vector shape: from its points, one builder per layout, and back.
#include "geometry/Geometry.h"
#include "geometry/PathFlattening.h"
#include "geometry/PathSteps.h"
#include "geometry/Tolerances.h"
#include "vector/OutlinePath.h"
#include "vector/ShapeVector.h"

#include <QTransform>

#include <algorithm>
#include <span>

using namespace shapes;

namespace {

constexpr size_t kRectPoints = 4; ///< the fifth repeats the first and is not drawn
constexpr double kSetPathMagnification = 1000;
constexpr double kMagnifiedReach =
    2 * kSetPathMagnification; ///< no edge gets farther than this times its distance from the origin

} // namespace

void CShapeVector::UpdatePainterPath()
{
    const bool polyline = m_eVectorType == EVECTOR_POLYLINE || m_eVectorType == EVECTOR_POLYLINE_B;
    if (polyline && AdoptOptimizedOutline())
        m_eVectorType = EVECTOR_MIXED;
    BuildOutline(*NewPath());
}

void CShapeVector::BuildOutline(QPainterPath& path) const
{
    if (m_listPoints.empty())
        return;
    const OutlineView outline{m_listPoints, m_listTypes};
    switch (m_eVectorType) {
    case EVECTOR_RECT:
        return BuildRect(path);
    case EVECTOR_ELLIPSE:
        return BuildEllipse(path);
    case EVECTOR_POLYLINE:
    case EVECTOR_POLYLINE_B: // OptimizeShapeList marks outlines with curves as polylines, too.
        return AddPolylineOutline(path, outline);
    case EVECTOR_BEZIER_CHAIN:
        return BuildBezierChain(path);
    case EVECTOR_BEZIER_SET:
        return BuildBezierSet(path);
    case EVECTOR_MIXED:
        return AddMixedOutline(path, outline);
    }
}

void CShapeVector::BuildRect(QPainterPath& path) const
{
    const size_t corners = std::min(kRectPoints, m_listPoints.size());
    if (!AreFinite(std::span(m_listPoints).first(corners)))
        return;
    path.moveTo(m_listPoints[0]);
    for (size_t i = 1; i < corners; ++i)
        path.lineTo(m_listPoints[i]);
    path.lineTo(m_listPoints[0]);
}

void CShapeVector::BuildEllipse(QPainterPath& path) const
{
    if (m_listPoints.size() == kEllipsePoints)
        BuildBezierChain(path);
}

void CShapeVector::BuildBezierChain(QPainterPath& path) const
{
    ReserveElements(path, m_listPoints.size());
    path.moveTo(m_listPoints[0]);
    for (size_t i = 0; i + 3 < m_listPoints.size(); i += 3) {
        if (AreFinite(std::span(m_listPoints).subspan(i, 4)))
            path.cubicTo(m_listPoints[i + 1], m_listPoints[i + 2], m_listPoints[i + 3]);
        else
            path.moveTo(m_listPoints[i + 3]);
    }
}

/// A count that is no multiple of 4 draws only its first cubic.
void CShapeVector::BuildBezierSet(QPainterPath& path) const
{
    const size_t count = m_listPoints.size();
    CubicSet cubics;
    for (size_t i = 0; i + 3 < count; i += 4) {
        if (AreFinite(std::span(m_listPoints).subspan(i, 4)))
            cubics.push_back({m_listPoints[i], m_listPoints[i + 1], m_listPoints[i + 2], m_listPoints[i + 3]});
        if ((count - (i + 4)) % 4 != 0)
            break;
    }
    AddCubics(path, cubics);
}

/// Whether the path stays finite when magnified: one that cannot be flattened would lose its points.
bool CShapeVector::CanSetPath(const QPainterPath& path)
{
    return IsFinite(QTransform::fromScale(kMagnifiedReach, kMagnifiedReach).mapRect(path.controlPointRect()));
}

void CShapeVector::SetPath(QPainterPath* path)
{
    if (!path || !CanSetPath(*path))
        return;
    CShape::SetPath(path);
    ForgetOutline();
    const Polygons polygons = MagnifiedPolygons(*CachedPath(), kSetPathMagnification, Joining::KeepSubpaths);
    m_listPoints.clear();
    m_listTypes.clear();
    m_eVectorType = EVECTOR_POLYLINE;
    const size_t total = polygons.Count() + polygons.Points().size();
    m_listPoints.reserve(total);
    m_listTypes.reserve(total);
    for (size_t i = 0; i < polygons.Count(); ++i) {
        const std::span<const QPointF> polygon = polygons[i];
        m_listPoints.emplace_back(0, 0);
        m_listTypes.push_back(ELINE_SEGMENT_SEPARATOR);
        m_listPoints.insert(m_listPoints.end(), polygon.begin(), polygon.end());
        m_listTypes.resize(m_listPoints.size(), ELINE_SEGMENT_STRAIGHT);
    }
}

void CShapeVector::ConvertPainterPathToLocalShapePoints(QPainterPath& path)
{
    m_eVectorType = EVECTOR_MIXED;
    ForgetOutline();
    m_listPoints.clear();
    m_listTypes.clear();
    for (const PathStep& step : PathSteps(path)) {
        if (step.IsMove()) {
            m_listPoints.emplace_back(0, 0);
            m_listTypes.push_back(ELINE_SEGMENT_SEPARATOR);
        }
        AppendStep(step, m_listPoints, m_listTypes);
    }
}
