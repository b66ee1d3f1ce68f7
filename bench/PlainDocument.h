/// The minimum for reading and writing a document of vectors: shapes with all fields and no behaviour.
#pragma once

#include "shape/ShapeTypes.h"

#include <QByteArray>
#include <QPointF>

#include <memory>
#include <vector>

class CShapeList;
class QString;

namespace bench {

struct PlainShape
{
    virtual ~PlainShape() = default;

    unsigned int status = 0;
    unsigned int color = 0;
    void* path = nullptr;
    int outlineType = 0;
    std::vector<SHAPE_VECTOR_PATHDATA> microLines;
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    SGuideLine guideLine;
    void* temporaries[2]{};
    unsigned int id = 0;
    int vectorType = 0;
    bool contour = false;
    int fillMarker = -1;
};
using PlainShapes = std::vector<std::unique_ptr<PlainShape>>;

PlainShapes PlainCopy(CShapeList& list);

size_t PackedBytes(const PlainShapes& shapes);
/// Writes the document's bytes; the caller provides room for PackedBytes.
void Pack(const PlainShapes& shapes, char* bytes);
PlainShapes Unpack(const QByteArray& bytes);

/// The same outlines as SVG, with as many digits as the document's coordinates have.
void WriteSvg(const PlainShapes& shapes, const QString& path);

} // namespace bench
