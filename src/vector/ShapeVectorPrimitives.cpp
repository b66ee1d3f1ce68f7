/// Primitives of the vector shape: rectangle, ellipse, line, regular polygon.
#include "shape/Tolerances.h"
#include "vector/Geometry.h"
#include "vector/ShapeVector.h"

#include <QPoint>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

using namespace shapes;

namespace {

constexpr double kShortestDrag = 0.01; ///< model units
constexpr int kMostVertices = 1'000'000;
constexpr double kSnapStep = std::numbers::pi / 4; ///< directions lock onto multiples of it
constexpr double kSnapReach = 0.06981317007977318; ///< within 4 degrees
constexpr double kLargestWhole = 1e9;              ///< coordinates that are safe as whole numbers

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

/// Not folded afterwards: 358 degrees lock onto 360.
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

QPoint Truncated(QPointF point)
{
    const auto whole = [](double value) { return static_cast<int>(std::clamp(value, -kLargestWhole, kLargestWhole)); };
    return {whole(point.x()), whole(point.y())};
}

/// Turned by half a step about the centre as whole numbers: truncated before, rounded after.
void TurnByHalfStep(std::vector<QPointF>& vertices, QPointF centre)
{
    QTransform turn;
    turn.translate(centre.x(), centre.y());
    turn.rotate(180.0 / static_cast<double>(vertices.size()), Qt::ZAxis);
    turn.translate(-centre.x(), -centre.y());
    for (QPointF& vertex : vertices)
        vertex = turn.map(Truncated(vertex));
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
    SetShapePoints({rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft(), rect.topLeft()},
                   ELINE_SEGMENT_STRAIGHT);
    NewPath()->addRect(rect);
}

void CShapeVector::SetShapeEllipse(QRectF rect)
{
    const ArcCubics arc = ArcToCubics(rect, 0, -360);
    std::vector<QPointF> points{arc.start};
    points.insert(points.end(), arc.points.begin(), arc.points.end());
    SetShapePoints(points, ELINE_SEGMENT_CURVE);
    NewPath()->addEllipse(rect);
}

void CShapeVector::SetShapeLine(QPointF a, QPointF b)
{
    QPainterPath* path = EnsurePath();
    *path = QPainterPath(a);
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
    angleDeg = angle * 180 / std::numbers::pi;
    CShape* empty = CShape::NewShape(ESHAPE_VECTOR);
    QPainterPath path;
    if (mode == ETOOL_ISOGON || mode == ETOOL_ISOGON_ROTATED) {
        std::vector<QPointF> vertices = IsogonVertices(n, side, centre, angle);
        if (mode == ETOOL_ISOGON_ROTATED)
            TurnByHalfStep(vertices, centre);
        path = ClosedPath(vertices);
    }
    SetPath(&path);
    return empty;
}
