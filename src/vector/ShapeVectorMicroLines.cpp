/// Micro lines of the vector shape.
#include "host/ILog.h"
#include "vector/Geometry.h"
#include "vector/PathFlattening.h"
#include "vector/ShapeVector.h"

using namespace shapes;

namespace {

constexpr size_t kEllipsePoints = 13;
constexpr double kEllipseStep = 0.03; ///< parameter step per piece
constexpr double kComplexMagnification = 250;

} // namespace

std::vector<SHAPE_VECTOR_PATHDATA> CShapeVector::PathPolygons(ESHAPE_LINE_SEGMENT_TYPE, QList<QPolygonF> polygons)
{
    return MicroLines(polygons);
}

std::vector<SHAPE_VECTOR_PATHDATA> CShapeVector::GenRectMicroLine()
{
    const QPainterPath* path = GetPath(false);
    return PathPolygons(ELINE_SEGMENT_STRAIGHT, MagnifiedPolygons(*path, 1, Joining::JoinSubpaths));
}

std::vector<SHAPE_VECTOR_PATHDATA> CShapeVector::GenLineMicroLine()
{
    return GenRectMicroLine();
}

std::vector<SHAPE_VECTOR_PATHDATA> CShapeVector::GenEllipseMicroLine()
{
    if (m_listPoints.size() < kEllipsePoints)
        return {};
    std::vector<PointF32> points;
    for (size_t i = 0; i + 3 < kEllipsePoints; i += 3)
        FlattenCubic(points, m_listPoints[i], m_listPoints[i + 1], m_listPoints[i + 2], m_listPoints[i + 3],
                     kEllipseStep);
    const auto widened = [](PointF32 point) { return QPointF(point.x, point.y); };
    std::vector<SHAPE_VECTOR_PATHDATA> lines;
    lines.reserve(points.size());
    for (size_t i = 0; i + 1 < points.size(); ++i)
        lines.push_back({widened(points[i]), widened(points[i + 1]), ELINE_SEGMENT_CURVE});
    ILog_WriteLogF(1, "microlines size = %d", static_cast<int>(points.size()));
    return lines;
}

std::vector<SHAPE_VECTOR_PATHDATA> CShapeVector::GenComplextMicroLine()
{
    const QPainterPath* path = GetPath(false);
    if (!path)
        return {};
    return MicroLines(MagnifiedPolygons(*path, kComplexMagnification, Joining::JoinSubpaths));
}

std::vector<QLineF> CShapeVector::Flatten(double tolerance)
{
    switch (m_eVectorType) {
    case EVECTOR_RECT:
        m_listPathData = GenRectMicroLine();
        break;
    case EVECTOR_ELLIPSE:
        m_listPathData = GenEllipseMicroLine();
        break;
    case EVECTOR_POLYLINE:
    case EVECTOR_POLYLINE_B:
        m_listPathData = GenLineMicroLine();
        break;
    case EVECTOR_BEZIER_CHAIN:
    case EVECTOR_MIXED:
        m_listPathData = GenComplextMicroLine();
        break;
    case EVECTOR_BEZIER_SET:
        break; // Keeps the micro lines it had, as unknown types do.
    }
    return CShape::Flatten(tolerance);
}
