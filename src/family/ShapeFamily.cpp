/// The operations of the base class that must know the concrete classes: the factory, colour and rectangle.
#include "group/ShapeArray.h"
#include "image/CodeShapeImage.h"
#include "list/ShapeWalk.h"
#include "shape/ShapeCast.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

using shapes::ShapeCast;

CShape* CShape::NewShape(ESHAPE_TYPE type)
{
    switch (type) {
    case ESHAPE_IMAGE:
        return new CShapeImage;
    case ESHAPE_VECTOR:
        return new CShapeVector;
    case ESHAPE_TEXT:
        return new CShapeText;
    case ESHAPE_GROUP:
        return new CShapeGroup;
    case ESHAPE_ARRAY:
        return new CShapeArray;
    case ESHAPE_CODEIMAGE:
        return new CCodeShapeImage;
    }
    return nullptr; // an unknown number from a stream
}

unsigned int CShape::GetColor()
{
    auto* group = ShapeCast<CShapeGroup>(this, ESHAPE_GROUP);
    CShape* first = group ? shapes::FirstShape(*group->GetShapeList()) : nullptr;
    return first ? first->GetColor() : m_nColor;
}

QRectF CShape::GetRect(bool bUpdate)
{
    if (auto* array = ShapeCast<CShapeArray>(this, ESHAPE_ARRAY))
        return array->GetRect(bUpdate);
    const QPainterPath* path = GetPath(false);
    return path ? path->boundingRect() : QRectF();
}
