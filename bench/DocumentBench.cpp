/// Reading and writing documents of vectors.
// Before Qt: "signals" is a keyword of Qt and a member name in glib.
#include <librsvg/rsvg.h>

#include "Drawings.h"
#include "Goals.h"
#include "PlainDocument.h"

#include "vector/ShapeVector.h"

#include <QFile>
#include <QPainter>
#include <QSvgGenerator>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace {

using namespace bench;

constexpr int kDocumentVersion = 14;
constexpr int kMillion = 1'000'000;

QString FilePath(const QString& name)
{
    static const QTemporaryDir folder;
    return folder.filePath(name);
}

/// The path of a document.
QString Document(int points, int pointsPerShape)
{
    const QString path = FilePath(QString("%1-%2.bin").arg(points).arg(pointsPerShape));
    if (QFile::exists(path))
        return path;
    QFile document(path);
    (void)document.open(QIODevice::WriteOnly);
    Drawing(points / pointsPerShape, pointsPerShape)->Save(&document);
    return path;
}

/// The path of an SVG with the outlines of the same document.
QString Svg(int pointsPerShape)
{
    const QString path = FilePath("drawing.svg");
    WriteSvg(PlainCopy(*Drawing(kMillion / pointsPerShape, pointsPerShape)), path);
    return path;
}

Side Read(int pointsPerShape, int points = kMillion)
{
    const auto list = std::make_shared<ShapeListOwner>();
    const auto read = [list, path = Document(points, pointsPerShape)] {
        QFile file(path);
        (void)file.open(QIODevice::ReadOnly);
        (*list)->Read(&file, kDocumentVersion);
    };
    return {read, [list] { list->reset(CShapeList::New()); }};
}

/// Every run takes its memory from the system anew; otherwise only small drawings would reuse freed memory.
Side ReadIntoFreshMemory(int points)
{
    const Side read = Read(100, points);
    return {read.run, [prepare = read.prepare] {
                prepare();
                malloc_trim(0);
            }};
}

/// The limit: one readAll, and each record decoded into a shape.
Side ReadAllAndDecode(int pointsPerShape)
{
    const auto shapes = std::make_shared<PlainShapes>();
    const auto read = [shapes, path = Document(kMillion, pointsPerShape)] {
        QFile file(path);
        (void)file.open(QIODevice::ReadOnly);
        *shapes = Unpack(file.readAll());
    };
    return {read, [shapes] { shapes->clear(); }};
}

Side ReadSvgByQt(int pointsPerShape)
{
    return {[path = Svg(pointsPerShape)] {
        QSvgRenderer renderer;
        benchmark::DoNotOptimize(renderer.load(path));
    }};
}

Side ReadSvgByRsvg(int pointsPerShape)
{
    return {[path = Svg(pointsPerShape).toUtf8()] {
        RsvgHandle* handle = rsvg_handle_new_from_file(path.constData(), nullptr);
        benchmark::DoNotOptimize(handle);
        g_object_unref(handle);
    }};
}

Side Write(const SharedList& list)
{
    return {[list] {
        QFile file(FilePath("write.bin"));
        (void)file.open(QIODevice::WriteOnly);
        list->Save(&file);
    }};
}

/// The limit: everything packed in memory that is already there, and one write.
Side PackAndWrite(CShapeList& list)
{
    const auto shapes = std::make_shared<PlainShapes>(PlainCopy(list));
    return {[shapes, bytes = std::vector<char>(PackedBytes(*shapes))]() mutable {
        QFile file(FilePath("packed.bin"));
        (void)file.open(QIODevice::WriteOnly);
        Pack(*shapes, bytes.data());
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }};
}

Side WriteSvgByQt(const SharedList& list)
{
    return {[list] {
        QSvgGenerator generator;
        generator.setFileName(FilePath("generated.svg"));
        generator.setSize(QSize(1000, 1000));
        QPainter painter(&generator);
        VisitShapes(*list, [&painter](CShape& shape) { painter.drawPath(*shape.GetPath(false)); });
    }};
}

Sides WriteAgainstPacked(int pointsPerShape)
{
    const SharedList list = Drawing(kMillion / pointsPerShape, pointsPerShape);
    return {Write(list), PackAndWrite(*list)};
}

const bool kRegistered = Register({
    {.name = "D1 read 1 M points, 100 a shape",
     .against = "readAll and decode into shapes",
     .goal = AtMost(1.3),
     .sides =
         [] {
             return Sides{Read(100), ReadAllAndDecode(100)};
         }},
    {.name = "D1 read 1 M points, 4 a shape",
     .against = "readAll and decode into shapes",
     .goal = AtMost(1.7),
     .sides =
         [] {
             return Sides{Read(4), ReadAllAndDecode(4)};
         }},
    {.name = "D2 read 1 M points, beside Qt",
     .against = "QSvgRenderer, the same drawing as SVG",
     .goal = TimesFaster(40),
     .sides =
         [] {
             return Sides{Read(100), ReadSvgByQt(100)};
         },
     .rounds = 3},
    {.name = "D2 read 1 M points, beside librsvg",
     .against = "librsvg, the same drawing as SVG",
     .goal = TimesFaster(40),
     .sides =
         [] {
             return Sides{Read(100), ReadSvgByRsvg(100)};
         },
     .rounds = 3},
    {.name = "D3 write 1 M points, 100 a shape",
     .against = "all packed in memory, one write",
     .goal = AtMost(1.6),
     .sides = [] { return WriteAgainstPacked(100); }},
    {.name = "D3 write 1 M points, 4 a shape",
     .against = "all packed in memory, one write",
     .goal = AtMost(2),
     .sides = [] { return WriteAgainstPacked(4); }},
    {.name = "D3 write 1 M points, beside Qt",
     .against = "QSvgGenerator, the same outlines",
     .goal = TimesFaster(60),
     .sides =
         [] {
             const SharedList list = Drawing(10'000, 100);
             return Sides{Write(list), WriteSvgByQt(list)};
         },
     .rounds = 3},
    {.name = "D4 read 10 M points",
     .against = "reading 1 M points",
     .goal = AtMost(11),
     .sides =
         [] {
             return Sides{ReadIntoFreshMemory(10 * kMillion), ReadIntoFreshMemory(kMillion)};
         },
     .rounds = 5},
});

} // namespace
