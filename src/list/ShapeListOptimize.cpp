/// Optimisation of the vector shapes of a list.
#include "host/Configuration.h"
#include "list/ShapeList.h"
#include "shape/ShapeCast.h"
#include "vector/ShapeVector.h"

void CShapeList::OptimizeShapeList(bool bKeepVectorType)
{
    if (!shapes::OptimizationEnabled())
        return;
    for (size_t i = 0; i < m_listShapes.size(); ++i) { // A plug-in's message box may let the host add shapes meanwhile.
        auto* vector = shapes::ShapeCast<CShapeVector>(m_listShapes[i], ESHAPE_VECTOR);
        if (!vector)
            continue;
        if (vector->GetVectorType() == EVECTOR_POLYLINE) {
            vector->GetPath(true);
        } else if (vector->GetVectorType() == EVECTOR_MIXED) {
            vector->RefitMixedOutline();
        }
        if (!bKeepVectorType)
            vector->MarkAsPolyline();
    }
}
