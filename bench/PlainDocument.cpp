#include "PlainDocument.h"

#include "Drawings.h"

#include "vector/ShapeVector.h"

#include <QFile>

#include <cstdio>
#include <cstring>

namespace bench {

namespace {

constexpr size_t kPointBytes = 9;
constexpr size_t kOtherBytes = 4 + 4 + 4 + sizeof(SGuideLine) + 4 + 4 + 1;

class Packer
{
public:
    explicit Packer(char* bytes) : m_at(bytes) {}
    template <class Value>
    void Put(const Value& value)
    {
        std::memcpy(m_at, &value, sizeof value);
        m_at += sizeof value;
    }
    void PutPoints(const PlainShape& shape)
    {
        for (size_t i = 0; i < shape.points.size(); ++i, m_at += kPointBytes) {
            const float xy[2] = {static_cast<float>(shape.points[i].x()), static_cast<float>(shape.points[i].y())};
            std::memcpy(m_at, xy, sizeof xy);
            m_at[sizeof xy] = static_cast<char>(shape.types[i]);
        }
    }

private:
    char* m_at;
};

class Unpacker
{
public:
    explicit Unpacker(const char* bytes) : m_at(bytes) {}
    template <class Value>
    void Take(Value& value)
    {
        std::memcpy(&value, m_at, sizeof value);
        m_at += sizeof value;
    }
    void TakePoints(PlainShape& shape, uint32_t count)
    {
        shape.points.resize(count);
        shape.types.resize(count);
        for (uint32_t i = 0; i < count; ++i, m_at += kPointBytes) {
            float xy[2];
            std::memcpy(xy, m_at, sizeof xy);
            shape.points[i] = QPointF(xy[0], xy[1]);
            shape.types[i] = static_cast<unsigned char>(m_at[sizeof xy]);
        }
    }

private:
    const char* m_at;
};

} // namespace

PlainShapes PlainCopy(CShapeList& list)
{
    PlainShapes shapes;
    VisitShapes(list, [&shapes](CShape& source) {
        auto& vector = dynamic_cast<CShapeVector&>(source);
        PlainShape& shape = *shapes.emplace_back(std::make_unique<PlainShape>());
        vector.GetShapePathData(shape.points, shape.types);
        shape.vectorType = vector.GetVectorType();
        std::memset(static_cast<void*>(&shape.guideLine), 0, sizeof shape.guideLine);
        shape.guideLine.nMode = shape.guideLine.bInLine = shape.guideLine.bOutLine = 1;
        shape.guideLine.dInLength = shape.guideLine.dOutLength = 3;
    });
    return shapes;
}

size_t PackedBytes(const PlainShapes& shapes)
{
    size_t bytes = sizeof(uint32_t);
    for (const auto& shape : shapes)
        bytes += kOtherBytes + kPointBytes * shape->points.size();
    return bytes;
}

void Pack(const PlainShapes& shapes, char* bytes)
{
    Packer packer(bytes);
    packer.Put(static_cast<uint32_t>(shapes.size()));
    for (const auto& shape : shapes) {
        packer.Put(ESHAPE_VECTOR);
        packer.Put(shape->status);
        packer.Put(shape->color);
        packer.Put(shape->guideLine);
        packer.Put(static_cast<uint32_t>(shape->points.size()));
        packer.PutPoints(*shape);
        packer.Put(shape->vectorType);
        packer.Put(shape->contour);
    }
}

PlainShapes Unpack(const QByteArray& bytes)
{
    Unpacker unpacker(bytes.constData());
    uint32_t count = 0, tag = 0, points = 0;
    unpacker.Take(count);
    PlainShapes shapes;
    shapes.reserve(count);
    for (uint32_t i = 0; i < count; ++i) {
        PlainShape& shape = *shapes.emplace_back(std::make_unique<PlainShape>());
        unpacker.Take(tag);
        unpacker.Take(shape.status);
        unpacker.Take(shape.color);
        unpacker.Take(shape.guideLine);
        unpacker.Take(points);
        unpacker.TakePoints(shape, points);
        unpacker.Take(shape.vectorType);
        unpacker.Take(shape.contour);
    }
    return shapes;
}

void WriteSvg(const PlainShapes& shapes, const QString& path)
{
    QFile file(path);
    (void)file.open(QIODevice::WriteOnly);
    file.write(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1000mm\" height=\"1000mm\" viewBox=\"0 0 1000 1000\">\n");
    for (const auto& shape : shapes) {
        QByteArray line("<path fill=\"none\" stroke=\"#000\" d=\"");
        for (size_t i = 0; i < shape->points.size(); ++i) {
            const QPointF point = shape->points[i];
            char text[64];
            std::snprintf(text, sizeof text, "%c%.9g %.9g", i == 0 ? 'M' : 'L', static_cast<double>(float(point.x())),
                          static_cast<double>(float(point.y())));
            line += text;
        }
        file.write(line + "\"/>\n");
    }
    file.write("</svg>\n");
}

} // namespace bench
