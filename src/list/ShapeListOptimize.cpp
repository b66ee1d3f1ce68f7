/// Optimisation of the vector shapes of a list.
#include "list/Configuration.h"
#include "list/ShapeList.h"
#include "shape/ShapeCast.h"
#include "vector/ShapeVector.h"

void CShapeList::OptimizeShapeList(bool bKeepVectorType)
{
    if (!shapes::OptimizationEnabled())
        return;
    for (CShape* shape : m_listShapes) {
        auto* vector = shapes::ShapeCast<CShapeVector>(shape, ESHAPE_VECTOR);
        if (!vector)
            continue;
        if (vector->GetVectorType() == EVECTOR_POLYLINE) {
            vector->GetPath(true);
        } else if (vector->GetVectorType() == EVECTOR_MIXED) {
            vector->SetPath(vector->GetPath(false));
            vector->GetPath(true);
        }
        if (!bKeepVectorType)
            vector->SetVectorType(EVECTOR_POLYLINE);
    }
}
