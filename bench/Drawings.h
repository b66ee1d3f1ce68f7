/// Drawings that the benchmarks work on.
#pragma once

#include "list/ShapeList.h"

#include <QPointF>

#include <memory>
#include <vector>

namespace bench {

struct ListDeleter
{
    void operator()(CShapeList* list) const
    {
        list->DeleteAll();
        CShapeList::Release(list);
    }
};
using ListOwner = std::unique_ptr<CShapeList, ListDeleter>;
using SharedList = std::shared_ptr<CShapeList>;

/// A wavy outline about centre, not closed.
std::vector<QPointF> WavyRing(QPointF centre, double radius, int points);

/// Free paths of straight points, so that no fitting is asked for, of radii 1 to 20, anywhere within 1000 by 1000.
ListOwner Drawing(int shapes, int pointsPerShape);

/// Calls visit with every shape of the list, in order.
template <class Visit>
void VisitShapes(CShapeList& list, Visit visit)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        visit(*list.GetShape(i));
}

} // namespace bench
