/// Painter path of the vector shape: from its points, one builder per layout, and back.
#include "geometry/Geometry.h"
#include "geometry/PathFlattening.h"
#include "geometry/PolylinePath.h"
#include "geometry/Tolerances.h"
#include "host/Configuration.h"
#include "vector/CurveFit.h"
#include "vector/ShapeVector.h"

#include <QTransform>

#include <algorithm>
#include <limits>
#include <span>

using namespace shapes;

namespace {

constexpr size_t kRectPoints = 4; ///< the fifth repeats the first and is not drawn
constexpr size_t kEllipsePoints = 13;
constexpr double kSetPathMagnification = 1000;
constexpr double kMagnifiedReach = 2 * kSetPathMagnification; ///< about the centre, a rectangle's edges go no further

/// Room for an outline of so many points. Only where something is drawn: an empty path outlives its shape.
void ReserveElements(QPainterPath& path, size_t points)
{
    path.reserve(static_cast<int>(std::min<size_t>(points, std::numeric_limits<int>::max())));
}

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
    switch (m_eVectorType) {
    case EVECTOR_RECT:
        return BuildRect(path);
    case EVECTOR_ELLIPSE:
        return BuildEllipse(path);
    case EVECTOR_POLYLINE:
    case EVECTOR_POLYLINE_B:
        return BuildPolyline(path);
    case EVECTOR_BEZIER_CHAIN:
        return BuildBezierChain(path);
    case EVECTOR_BEZIER_SET:
        return BuildBezierSet(path);
    case EVECTOR_MIXED:
        return BuildMixed(path);
    }
}

void CShapeVector::OptimizeShape(std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes)
{
    FitOutline(m_listPoints, m_listTypes, outPoints, outTypes);
}

/// Takes the fitted outline when there is one, it is shorter and it can be drawn: plug-ins are foreign code.
bool CShapeVector::AdoptOptimizedOutline()
{
    if (m_listPoints.empty() || !OptimizationEnabled())
        return false;
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    OptimizeShape(points, types);
    if (points.empty() || points.size() >= m_listPoints.size())
        return false;
    if (!std::all_of(points.begin(), points.end(), [](QPointF point) { return IsFinite(point); }))
        return false;
    m_listPoints = std::move(points);
    m_listTypes = std::move(types);
    return true;
}

/// Whether count points from first on can be drawn. Streams may hold others; what they belong to is left out, so that no
/// line is drawn across the gap.
bool CShapeVector::AreFinite(size_t first, size_t count) const
{
    const auto begin = m_listPoints.begin() + static_cast<std::ptrdiff_t>(first);
    return std::all_of(begin, begin + static_cast<std::ptrdiff_t>(count),
                       [](QPointF point) { return IsFinite(point); });
}

void CShapeVector::BuildRect(QPainterPath& path) const
{
    const size_t corners = std::min(kRectPoints, m_listPoints.size());
    if (!AreFinite(0, corners))
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

/// Behind the last of the finite points from first on, the first being one of them, that drawn() accepts by their type.
/// It accepts straight ones, so missing types as well.
template <class Drawn>
size_t CShapeVector::EndOfRun(size_t first, Drawn drawn) const
{
    const QPointF* points = m_listPoints.data();
    const unsigned char* types = m_listTypes.data();
    const size_t count = m_listPoints.size(), typed = std::min(m_listTypes.size(), count);
    size_t end = first + 1;
    while (end < typed && drawn(types[end]) && IsFinite(points[end]))
        ++end;
    if (end >= typed)
        while (end < count && IsFinite(points[end]))
            ++end;
    return end;
}

void CShapeVector::BuildPolyline(QPainterPath& path) const
{
    const auto drawn = [](unsigned char type) { return type != ELINE_SEGMENT_SEPARATOR; };
    const std::span<const QPointF> points(m_listPoints);
    for (size_t i = 0; i < points.size();) {
        if (!drawn(PointType(i)) || !IsFinite(points[i])) {
            ++i;
            continue;
        }
        const size_t end = EndOfRun(i, drawn);
        ReserveElements(path, points.size());
        AddPolyline(path, points.subspan(i, end - i));
        i = end;
    }
}

void CShapeVector::BuildBezierChain(QPainterPath& path) const
{
    ReserveElements(path, m_listPoints.size());
    path.moveTo(m_listPoints[0]);
    for (size_t i = 0; i + 3 < m_listPoints.size(); i += 3) {
        if (AreFinite(i, 4))
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
        if (AreFinite(i, 4))
            cubics.push_back({m_listPoints[i], m_listPoints[i + 1], m_listPoints[i + 2], m_listPoints[i + 3]});
        if ((count - (i + 4)) % 4 != 0)
            break;
    }
    AddCubics(path, cubics);
}

/// Curve triples are taken as they come: a malformed one may run over a separator.
void CShapeVector::BuildMixed(QPainterPath& path) const
{
    const size_t count = m_listPoints.size();
    bool newSubpath = true;
    for (size_t i = 0; i < count; ++i) {
        switch (PointType(i)) {
        case ELINE_SEGMENT_SEPARATOR:
            newSubpath = true;
            continue;
        case ELINE_SEGMENT_FILL:
            continue;
        default:
            break;
        }
        const bool curve = !newSubpath && PointType(i) == ELINE_SEGMENT_CURVE;
        if (curve && i + 2 >= count)
            continue;
        if (!AreFinite(i, curve ? 3 : 1)) {
            newSubpath = true;
            i += curve ? 2 : 0;
            continue;
        }
        if (newSubpath) {
            const size_t end = EndOfRun(i, [](unsigned char type) { return type == ELINE_SEGMENT_STRAIGHT; });
            ReserveElements(path, count);
            AddPolyline(path, std::span(m_listPoints).subspan(i, end - i));
            newSubpath = false;
            i = end - 1;
            continue;
        }
        if (curve) {
            path.cubicTo(m_listPoints[i], m_listPoints[i + 1], m_listPoints[i + 2]);
            i += 2;
        }
        if (PointType(i) == ELINE_SEGMENT_STRAIGHT)
            path.lineTo(m_listPoints[i]);
    }
}

void CShapeVector::SetPath(QPainterPath* path)
{
    // With room for the magnification: points that could not be flattened must not be lost.
    if (!path || !IsFinite(QTransform::fromScale(kMagnifiedReach, kMagnifiedReach).mapRect(path->controlPointRect())))
        return;
    CShape::SetPath(path);
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
    m_listPoints.clear();
    m_listTypes.clear();
    const auto append = [this](QPointF point, ESHAPE_LINE_SEGMENT_TYPE type) {
        m_listPoints.push_back(point);
        m_listTypes.push_back(static_cast<unsigned char>(type));
    };
    const auto isCurveData = [&path](int i) { return path.elementAt(i).type == QPainterPath::CurveToDataElement; };
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element& element = path.elementAt(i);
        switch (element.type) {
        case QPainterPath::MoveToElement:
            append({0, 0}, ELINE_SEGMENT_SEPARATOR);
            append(element, ELINE_SEGMENT_STRAIGHT);
            break;
        case QPainterPath::LineToElement:
            append(element, ELINE_SEGMENT_STRAIGHT);
            break;
        case QPainterPath::CurveToElement:
            if (i + 2 < path.elementCount() && isCurveData(i + 1) && isCurveData(i + 2)) {
                append(element, ELINE_SEGMENT_CURVE);
                append(path.elementAt(++i), ELINE_SEGMENT_CURVE);
                append(path.elementAt(++i), ELINE_SEGMENT_CURVE);
            }
            break;
        case QPainterPath::CurveToDataElement:
            break;
        }
    }
}
