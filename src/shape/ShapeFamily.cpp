/// What the base class must know of its family; the only file of the base that looks up at the concrete shapes.
#include "shape/Shape.h"
#include "vector/ShapeVector.h"

CShape* CShape::NewShape(ESHAPE_TYPE type)
{
    switch (type) {
    case ESHAPE_IMAGE:
        return nullptr;
    case ESHAPE_VECTOR:
        return new CShapeVector;
    case ESHAPE_TEXT:
        return nullptr;
    case ESHAPE_GROUP:
        return nullptr;
    case ESHAPE_ARRAY:
        return nullptr;
    case ESHAPE_CODEIMAGE:
        return nullptr;
    }
    return nullptr; // A number from a stream that names no type.
}

unsigned int CShape::GetColor()
{
    return m_nColor;
}

QRectF CShape::GetRect(bool)
{
    const QPainterPath* path = GetPath(false);
    return path ? path->boundingRect() : QRectF();
}
