/// Reading and writing documents of vectors.
// Before Qt: "signals" is a keyword of Qt and a member name in glib.
#include <librsvg/rsvg.h>

#include "Drawings.h"
#include "Goals.h"
#include "Limits.h"

#include "record/DocumentVersion.h"
#include "vector/ShapeVector.h"

#include <QFile>
#include <QPainter>
#include <QSvgGenerator>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
namespace {

using namespace bench;

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

/// The path of an SVG with the outlines of the same document, with as many digits as the document's coordinates have.
QString Svg(int pointsPerShape)
{
    const QString path = FilePath("drawing.svg");
    QFile file(path);
    (void)file.open(QIODevice::WriteOnly);
    file.write(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1000mm\" height=\"1000mm\" viewBox=\"0 0 1000 1000\">\n");
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    VisitShapes(*Drawing(kMillion / pointsPerShape, pointsPerShape), [&](CShape& shape) {
        shape.GetShapePathData(points, types);
        QByteArray line("<path fill=\"none\" stroke=\"#000\" d=\"");
        for (size_t i = 0; i < points.size(); ++i) {
            char text[64];
            std::snprintf(text, sizeof text, "%c%.9g %.9g", i == 0 ? 'M' : 'L',
                          static_cast<double>(float(points[i].x())), static_cast<double>(float(points[i].y())));
            line += text;
        }
        file.write(line + "\"/>\n");
    });
    file.write("</svg>\n");
    return path;
}

Side Read(int pointsPerShape, int points = kMillion)
{
    const auto list = std::make_shared<ShapeListOwner>();
    const auto read = [list, path = Document(points, pointsPerShape)] {
        QFile file(path);
        (void)file.open(QIODevice::ReadOnly);
        (*list)->Read(&file, SHAPE_DOCUMENT_VERSION);
    };
    return {read, [list] { list->reset(CShapeList::New()); }};
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

Side Fill(int pointsPerShape)
{
    const auto perShape = static_cast<size_t>(pointsPerShape);
    return FillBlocks(Document(kMillion, pointsPerShape), kMillion / perShape, perShape);
}

Row ReadRow(int pointsPerShape, double factor)
{
    return {.name = QString("D1 read 1 M points, %1 a shape").arg(pointsPerShape).toStdString(),
            .against = "the file's bytes copied, a fresh block a shape",
            .goal = AtMost(factor),
            .sides = [=] {
                return Sides{InFreshMemory(Read(pointsPerShape)), InFreshMemory(Fill(pointsPerShape))};
            }};
}

Row ReadAgainRow(int pointsPerShape, double factor)
{
    return {.name = QString("D1 the same, %1 a shape, into freed memory").arg(pointsPerShape).toStdString(),
            .against = "the file's bytes copied, a freed block a shape",
            .goal = AtMost(factor),
            .sides = [=] {
                return Sides{Read(pointsPerShape), Fill(pointsPerShape)};
            }};
}

Row WriteRow(int pointsPerShape, double factor)
{
    return {.name = QString("D3 write 1 M points, %1 a shape").arg(pointsPerShape).toStdString(),
            .against = "its points read, one write of ready bytes",
            .goal = AtMost(factor),
            .sides = [=] {
                const SharedList list = Drawing(kMillion / pointsPerShape, pointsPerShape);
                return Sides{Write(list),
                             ReadAndWriteOnce(*list, Document(kMillion, pointsPerShape), FilePath("once.bin"))};
            }};
}

const bool kRegistered = Register({
    ReadRow(100, 1.5),
    ReadRow(4, 2),
    ReadAgainRow(100, 1.7),
    ReadAgainRow(4, 2.2),
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
    WriteRow(100, 1.5),
    WriteRow(4, 2.5),
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
             return Sides{InFreshMemory(Read(100, 10 * kMillion)), InFreshMemory(Read(100))};
         },
     .rounds = 5},
});

} // namespace
