/// Reading and writing documents of a million points.
#include "Drawings.h"
#include "Goals.h"

#include "vector/ShapeVector.h"

#include <QFile>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

using namespace bench;

constexpr int kDocumentVersion = 14;
constexpr int kPoints = 1'000'000;

QString FilePath(const QString& name)
{
    static const QTemporaryDir folder;
    return folder.filePath(name);
}

/// The path of a document with a million points.
QString Document(int pointsPerShape)
{
    const QString path = FilePath(QString("%1.bin").arg(pointsPerShape));
    if (QFile::exists(path))
        return path;
    QFile document(path);
    (void)document.open(QIODevice::WriteOnly);
    Drawing(kPoints / pointsPerShape, pointsPerShape)->Save(&document);
    return path;
}

/// The path of an SVG with the outlines of the same document.
QString Svg(int pointsPerShape)
{
    const QString path = FilePath(QString("%1.svg").arg(pointsPerShape));
    QFile svg(path);
    (void)svg.open(QIODevice::WriteOnly);
    svg.write("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 1000 1000'>");
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    const ListOwner list = Drawing(kPoints / pointsPerShape, pointsPerShape);
    for (unsigned int i = 0; i < list->GetCount(); ++i) {
        list->GetShape(i)->GetShapePathData(points, types);
        QByteArray data = "<path d='";
        for (size_t k = 0; k < points.size(); ++k)
            data += (k ? "L" : "M") + QByteArray::number(points[k].x()) + "," + QByteArray::number(points[k].y());
        svg.write(data + "'/>");
    }
    svg.write("</svg>");
    return path;
}

Side Read(int pointsPerShape)
{
    const auto list = std::make_shared<ListOwner>();
    const auto read = [list, path = Document(pointsPerShape)] {
        QFile file(path);
        (void)file.open(QIODevice::ReadOnly);
        (*list)->Read(&file, kDocumentVersion);
    };
    return {read, [list] { list->reset(CShapeList::New()); }};
}

struct Decoded
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
};
using DecodedShapes = std::vector<std::unique_ptr<Decoded>>;

DecodedShapes Decode(const QByteArray& bytes)
{
    const char* at = bytes.constData();
    const auto take = [&at](auto& value) {
        std::memcpy(&value, at, sizeof value);
        at += sizeof value;
    };
    uint32_t count = 0;
    take(count);
    DecodedShapes shapes;
    for (uint32_t i = 0; i < count; ++i) {
        uint32_t points = 0;
        at += 44; // tag, status, colour, guide line
        take(points);
        auto& shape = *shapes.emplace_back(std::make_unique<Decoded>());
        shape.points.reserve(points);
        shape.types.reserve(points);
        for (uint32_t k = 0; k < points; ++k) {
            float x = 0, y = 0;
            take(x);
            take(y);
            shape.points.emplace_back(x, y);
            shape.types.push_back(static_cast<unsigned char>(*at++));
        }
        at += 5; // vector type, contour flag
    }
    return shapes;
}

/// The limit: one readAll, and each record decoded into a shape's lists.
Side ReadAllAndDecode(int pointsPerShape)
{
    const auto shapes = std::make_shared<DecodedShapes>();
    const auto read = [shapes, path = Document(pointsPerShape)] {
        QFile file(path);
        (void)file.open(QIODevice::ReadOnly);
        *shapes = Decode(file.readAll());
    };
    return {read, [shapes] { shapes->clear(); }};
}

Side ReadSvg(int pointsPerShape)
{
    return {[path = Svg(pointsPerShape)] {
        QSvgRenderer renderer;
        benchmark::DoNotOptimize(renderer.load(path));
    }};
}

Side Write(int pointsPerShape)
{
    return {[list = SharedList(Drawing(kPoints / pointsPerShape, pointsPerShape))] {
        QFile file(FilePath("write.bin"));
        (void)file.open(QIODevice::WriteOnly);
        list->Save(&file);
    }};
}

/// The limit: the same bytes, already packed, in one write.
Side WritePacked(int pointsPerShape)
{
    QFile document(Document(pointsPerShape));
    (void)document.open(QIODevice::ReadOnly);
    return {[bytes = document.readAll()] {
        QFile file(FilePath("write.bin"));
        (void)file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }};
}

const bool kRegistered = Register({
    {.name = "D1 read 1 M points, 100 a shape",
     .against = "readAll and decode",
     .goal = AtMost(1.3),
     .sides =
         [] {
             return Sides{Read(100), ReadAllAndDecode(100)};
         }},
    {.name = "D1 read 1 M points, 4 a shape",
     .against = "readAll and decode",
     .goal = AtMost(1.7),
     .sides =
         [] {
             return Sides{Read(4), ReadAllAndDecode(4)};
         }},
    {.name = "D2 read 1 M points, 100 a shape",
     .against = "QSvgRenderer, the same drawing as SVG",
     .goal = TimesFaster(40),
     .sides =
         [] {
             return Sides{Read(100), ReadSvg(100)};
         },
     .rounds = 3},
    {.name = "D3 write 1 M points, 100 a shape",
     .against = "the packed bytes in one write",
     .goal = AtMost(1.6),
     .sides =
         [] {
             return Sides{Write(100), WritePacked(100)};
         }},
    {.name = "D3 write 1 M points, 4 a shape",
     .against = "the packed bytes in one write",
     .goal = AtMost(2),
     .sides =
         [] {
             return Sides{Write(4), WritePacked(4)};
         }},
});

} // namespace
