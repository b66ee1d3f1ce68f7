#include "document/ShapeFacts.h"

#include "document/ShapeWalk.h"

#include "record/RecordFormat.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <cstring>

namespace shapedocument {

namespace {

QString TypeName(ESHAPE_TYPE type)
{
    const shapes::RecordFormat* format = shapes::FormatOf(static_cast<uint32_t>(type));
    return format ? QString::fromLatin1(format->name) : QString::number(type);
}

QString VectorTypeName(EVECTOR_TYPE type)
{
    switch (type) {
    case EVECTOR_RECT:
        return "EVECTOR_RECT";
    case EVECTOR_ELLIPSE:
        return "EVECTOR_ELLIPSE";
    case EVECTOR_POLYLINE:
        return "EVECTOR_POLYLINE";
    case EVECTOR_POLYLINE_B:
        return "EVECTOR_POLYLINE_B";
    case EVECTOR_BEZIER_CHAIN:
        return "EVECTOR_BEZIER_CHAIN";
    case EVECTOR_BEZIER_SET:
        return "EVECTOR_BEZIER_SET";
    case EVECTOR_MIXED:
        return "EVECTOR_MIXED";
    }
    return QString::number(type);
}

qint64 CountPoints(CShape& shape)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    return qint64(points.size()) - std::count(types.begin(), types.end(), ELINE_SEGMENT_SEPARATOR);
}

TextFacts TextFactsOf(CShapeText& shape)
{
    const SText text = shape.GetText(); // a copy: parameters that are lent keep a large buffer
    TextFacts facts;
    facts.content = QString::fromUtf8(text.pText, static_cast<qsizetype>(strnlen(text.pText, kLongestText)));
    facts.setting = SettingOf(shape);
    facts.angle = text.dAngle;
    facts.centre = text.ptCenter;
    facts.mirrorX = text.bMirrorX;
    facts.mirrorY = text.bMirrorY;
    return facts;
}

} // namespace

ShapeFacts FactsOf(CShape& shape)
{
    ShapeFacts facts;
    facts.type = TypeName(shape.GetShapeType());
    if (auto* vector = dynamic_cast<CShapeVector*>(&shape); vector && shape.GetShapeType() == ESHAPE_VECTOR)
        facts.vectorType = VectorTypeName(vector->GetVectorType());
    if (auto* array = dynamic_cast<CShapeArray*>(&shape))
        facts.cells = array->GetShapeArrayInfo();
    // before the rectangle: building the path may fit curves to a polyline
    facts.points = CountPoints(shape);
    facts.closed = shape.IsClose();
    facts.selected = shape.IsSelect();
    facts.locked = shape.IsLock();
    facts.hidden = shape.IsHide();
    facts.grouped = shape.IsGroup();
    facts.color = shape.GetColor();
    facts.rect = shape.GetRect(false);
    if (auto* text = dynamic_cast<CShapeText*>(&shape))
        facts.text = TextFactsOf(*text);
    return facts;
}

size_t CountShapes(CShapeList& list)
{
    size_t count = 0;
    ForEachShape(list, [&](CShape&, int) { ++count; });
    return count;
}

} // namespace shapedocument
