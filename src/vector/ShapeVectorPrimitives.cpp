/// Primitives of the vector shape: rectangle, ellipse, line, regular polygon.
#include "geometry/Geometry.h"
#include "geometry/PlaneTransforms.h"
#include "geometry/Tolerances.h"
#include "vector/ShapeVector.h"

#include <QTransform>

#include <cmath>
#include <numbers>

using namespace shapes;

namespace {

constexpr double kShortestDrag = 0.01; ///< model units
constexpr int kMostVertices = 1'000'000;
constexpr double kSnapStep = std::numbers::pi / 4; ///< directions lock onto multiples of it
constexpr double kSnapReach = 0.06981317007977318; ///< within 4 degrees

/// Direction of the drag in [0, 2 pi), clockwise on screen. The sine of its angle to the horizontal is rounded, see
/// VertexAngle.
double DragDirection(QPointF centre, QPointF toward)
{
    constexpr double pi = std::numbers::pi;
    if (std::abs(centre.x() - toward.x()) <= kCoincident)
        return centre.y() <= toward.y() ? pi / 2 : 3 * pi / 2;
    if (std::abs(centre.y() - toward.y()) <= kCoincident)
        return centre.x() <= toward.x() ? 0 : pi;
    double angle = 0;
    DirectedAngle(toward, centre, {toward.x(), centre.y()}, angle);
    if (toward.x() < centre.x())
        angle += pi;
    return angle >= 2 * pi ? angle - 2 * pi : angle;
}

/// May return a full turn: 358 degrees lock onto 360.
double Snapped(double angle)
{
    if (std::fmod(angle, kSnapStep) < kSnapReach || std::fmod(angle + kSnapReach, kSnapStep) < kSnapReach)
        return std::round((angle + kSnapReach) / kSnapStep) * kSnapStep;
    return angle;
}

std::vector<QPointF> IsogonVertices(int n, double side, QPointF centre, double angle)
{
    const double step = 2 * std::numbers::pi / n;
    const double radius = side / 2 / std::sin(step / 2);
    std::vector<QPointF> vertices(static_cast<size_t>(n));
    for (size_t i = 0; i < vertices.size(); ++i) {
        const double direction = angle + static_cast<double>(i) * step;
        vertices[i] = centre + radius * QPointF(std::cos(direction), std::sin(direction));
    }
    return vertices;
}

/// Turns the vertices by half a step about the centre. Coordinates are truncated to whole numbers before and rounded
/// half away from zero after.
void TurnByHalfStep(std::vector<QPointF>& vertices, QPointF centre)
{
    const QTransform turn = RotationAbout(centre, 180.0 / static_cast<double>(vertices.size()));
    for (QPointF& vertex : vertices) {
        const QPointF turned = turn.map(QPointF(std::trunc(vertex.x()), std::trunc(vertex.y())));
        vertex = {std::round(turned.x()), std::round(turned.y())};
    }
}

QPainterPath ClosedPath(const std::vector<QPointF>& vertices)
{
    QPainterPath path(vertices.front());
    for (size_t i = 1; i < vertices.size(); ++i)
        path.lineTo(vertices[i]);
    path.lineTo(vertices.front());
    return path;
}

} // namespace

void CShapeVector::SetShapeRect(QRectF rect)
{
    ForgetOutline();
    m_listPoints = {rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft(), rect.topLeft()};
    m_listTypes.assign(m_listPoints.size(), ELINE_SEGMENT_STRAIGHT);
    QPainterPath path;
    path.addRect(rect);
    *EnsurePath() = path;
}

void CShapeVector::SetShapeEllipse(QRectF rect)
{
    const ArcCubics arc = ArcToCubics(rect, 0, -360);
    ForgetOutline();
    m_listPoints.assign(1, arc.start);
    m_listPoints.insert(m_listPoints.end(), arc.points.begin(), arc.points.end());
    m_listTypes.assign(m_listPoints.size(), ELINE_SEGMENT_CURVE);
    QPainterPath path;
    path.addEllipse(rect);
    *EnsurePath() = path;
}

void CShapeVector::SetShapeLine(QPointF a, QPointF b)
{
    QPainterPath* path = EnsurePath();
    *path = QPainterPath();
    path->moveTo(a);
    path->lineTo(b);
}

void CShapeVector::SetShapeBoundRect(QRectF) {}

void CShapeVector::SetCornerRadio(double) {}

CShape* CShapeVector::SetShapeIsogon(int n, float side, QPointF centre, QPointF toward, bool, ETOOL_MODE mode,
                                     double& angleDeg)
{
    const double drag = PointDistance(centre, toward);
    if (!(drag >= kShortestDrag) || n < 3 || n > kMostVertices)
        return nullptr;
    if (!IsFinite(centre) || !IsFinite(toward) || !std::isfinite(side) || !std::isfinite(drag))
        return nullptr;
    const double angle = Snapped(DragDirection(centre, toward));
    QPainterPath path;
    if (mode == ETOOL_ISOGON || mode == ETOOL_ISOGON_ROTATED) {
        std::vector<QPointF> vertices = IsogonVertices(n, side, centre, angle);
        if (mode == ETOOL_ISOGON_ROTATED)
            TurnByHalfStep(vertices, centre);
        path = ClosedPath(vertices);
    }
    if (!CanSetPath(path))
        return nullptr;
    angleDeg = angle * 180 / std::numbers::pi;
    CShape* empty = CShape::NewShape(ESHAPE_VECTOR);
    SetPath(&path);
    return empty;
}
