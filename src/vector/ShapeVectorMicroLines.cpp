/// Micro lines of the vector shape.
#include "geometry/Geometry.h"
#include "geometry/PathFlattening.h"
#include "host/ILog.h"
#include "vector/OutlinePath.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

using namespace shapes;

namespace {

constexpr double kEllipseStep = 0.03; ///< parameter step per piece
constexpr double kComplexMagnification = 250;
constexpr double kSinglePrecisionReach = std::numeric_limits<float>::max() / 2; ///< leaves room for rounding

bool FitsSinglePrecision(QPointF point)
{
    return std::abs(point.x()) <= kSinglePrecisionReach && std::abs(point.y()) <= kSinglePrecisionReach;
}

} // namespace

std::vector<SHAPE_VECTOR_PATHDATA> CShapeVector::PathPolygons(ESHAPE_LINE_SEGMENT_TYPE, QList<QPolygonF> polygons)
{
    return MicroLines(polygons);
}

std::vector<SHAPE_VECTOR_PATHDATA> CShapeVector::GenRectMicroLine()
{
    const QPainterPath* path = GetPath(false);
    if (!path) // A subclass may build none.
        return {};
    return MicroLines(MagnifiedPolygons(*path, 1, Joining::JoinSubpaths));
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
    std::vector<SHAPE_VECTOR_PATHDATA> lines;
    const auto addLine = [&](size_t end, ESHAPE_LINE_SEGMENT_TYPE type) {
        const PointF32 from = points[end - 1], to = points[end];
        lines.push_back({QPointF(from.x, from.y), QPointF(to.x, to.y), type});
    };
    bool gap = false;
    for (size_t i = 0; i + 3 < kEllipsePoints; i += 3) {
        const std::span<const QPointF> cubic = std::span(m_listPoints).subspan(i, 4);
        if (!std::all_of(cubic.begin(), cubic.end(), FitsSinglePrecision)) {
            gap = true;
            continue;
        }
        const size_t begin = points.size();
        FlattenCubic(points, cubic[0], cubic[1], cubic[2], cubic[3], kEllipseStep);
        if (begin > 0 && !gap)
            addLine(begin, ELINE_SEGMENT_CURVE); // of length 0, where two cubics meet
        for (size_t end = begin + 1; end < points.size(); ++end)
            addLine(end, std::exchange(gap, false) ? ELINE_SEGMENT_SEPARATOR : ELINE_SEGMENT_CURVE);
    }
    ILog_WriteLogF(ELOG_NOTE, "microlines size = %d", static_cast<int>(points.size()));
    return lines;
}

std::vector<SHAPE_VECTOR_PATHDATA> CShapeVector::GenComplextMicroLine()
{
    const QPainterPath* path = GetPath(false);
    if (!path)
        return {};
    return MicroLines(MagnifiedPolygons(*path, kComplexMagnification, Joining::JoinSubpaths));
}

/// Replaces the kept micro lines by those of the generator for the vector type. The type is read after the path was
/// built, which may turn a polyline into EVECTOR_MIXED. A polyline's path may hold curves too, from SetPath or by its
/// point types.
void CShapeVector::RenewMicroLines()
{
    if (m_eVectorType == EVECTOR_ELLIPSE) {
        m_listPathData = GenEllipseMicroLine();
        return;
    }
    const QPainterPath none; // for a subclass that builds none
    const QPainterPath* built = GetPath(false);
    const QPainterPath& path = built ? *built : none;
    switch (m_eVectorType) {
    case EVECTOR_RECT:
        PutMicroLines(path, 1, Joining::JoinSubpaths, m_listPathData);
        break;
    case EVECTOR_POLYLINE:
    case EVECTOR_POLYLINE_B:
        PutPolylineMicroLines(path, kComplexMagnification, Joining::JoinSubpaths, m_listPathData);
        break;
    case EVECTOR_BEZIER_CHAIN:
    case EVECTOR_MIXED:
        PutMicroLines(path, kComplexMagnification, Joining::JoinSubpaths, m_listPathData);
        break;
    case EVECTOR_ELLIPSE:
    case EVECTOR_BEZIER_SET:
        break; // Cubic sets keep the micro lines they had, as unknown types do.
    }
}

std::vector<QLineF> CShapeVector::Flatten(double tolerance)
{
    RenewMicroLines();
    return CShape::Flatten(tolerance);
}
