/// Drawings that the benchmarks work on.
#pragma once

#include "list/ShapeListOwner.h"

#include <QPointF>

#include <functional>
#include <memory>
#include <vector>

namespace bench {

using SharedList = std::shared_ptr<CShapeList>;

/// Points about centre, reach(angle) away; not closed.
std::vector<QPointF> Ring(QPointF centre, int points, const std::function<double(double)>& reach);

/// Free paths of straight points, so that no fitting is asked for, of radii 1 to 20, anywhere within 1000 by 1000.
ShapeListOwner Drawing(int shapes, int pointsPerShape);

/// Calls visit with every shape of the list, in order.
template <class Visit>
void VisitShapes(CShapeList& list, Visit visit)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        visit(*list.GetShape(i));
}

} // namespace bench
