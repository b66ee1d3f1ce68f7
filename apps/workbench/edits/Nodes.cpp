#include "edits/Nodes.h"

#include "document/WorkDocument.h"
#include "edits/Tidy.h"

#include "shape/ShapeCast.h"
#include "vector/ShapeVector.h"

bool ReplaceOutline(WorkDocument& document, const QString& name, CShape* shape, const QPainterPath& path)
{
    auto* outline = shapes::ShapeCast<CShapeVector>(shape, ESHAPE_VECTOR);
    if (!outline || path == *outline->GetPath(false))
        return false;
    return document.Change(name, {shape}, [&](CShape& changed) {
        auto& vector = static_cast<CShapeVector&>(changed);
        const bool filled = vector.IsFilled();
        QPainterPath points = path;
        vector.ConvertPainterPathToLocalShapePoints(points);
        if (filled)
            FillOutline(vector);
        vector.UpdatePainterPath();
        return true;
    });
}
