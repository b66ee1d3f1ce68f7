#include "canvas/ShapeIndex.h"

#include "list/ShapeList.h"
#include "shape/Shape.h"

void ShapeIndex::Renew(CShapeList& shapes)
{
    m_entries.clear();
    m_entries.reserve(shapes.GetCount());
    for (unsigned int i = 0; i < shapes.GetCount(); ++i)
        m_entries.push_back({shapes.GetShape(i)->GetRect(false), shapes.GetShape(i)});
}
