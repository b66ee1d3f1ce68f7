#include "Drawings.h"

#include "vector/ShapeVector.h"

#include <cmath>
#include <random>

namespace bench {

std::vector<QPointF> Ring(QPointF centre, int points, const std::function<double(double)>& reach)
{
    std::vector<QPointF> ring;
    ring.reserve(static_cast<size_t>(points));
    for (int i = 0; i < points; ++i) {
        const double angle = 6.283185307179586 * i / points;
        ring.push_back(centre + reach(angle) * QPointF(std::cos(angle), std::sin(angle)));
    }
    return ring;
}

ShapeListOwner Drawing(int shapes, int pointsPerShape)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(0, 1000), size(1, 20);
    ShapeListOwner list(CShapeList::New());
    for (int i = 0; i < shapes; ++i) {
        auto* shape = new CShapeVector;
        const double x = place(random), y = place(random), radius = size(random);
        const auto wavy = [radius](double angle) { return radius * (1 + 0.2 * std::sin(7 * angle)); };
        shape->SetVectorType(EVECTOR_MIXED);
        shape->SetShapePoints(Ring({x, y}, pointsPerShape, wavy), ELINE_SEGMENT_STRAIGHT);
        list->AddTail(shape);
    }
    return list;
}

} // namespace bench
