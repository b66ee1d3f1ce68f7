/// Documents, flattening, transforms, order and hit test of vector drawings, each beside the limit it cannot beat.
#include "host/ILog.h"
#include "list/ShapeList.h"
#include "vector/ShapeVector.h"

#include <QFile>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTransform>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <random>

namespace {

constexpr int kDocumentVersion = 14;

struct ListDeleter
{
    void operator()(CShapeList* list) const
    {
        list->DeleteAll();
        CShapeList::Release(list);
    }
};
using ListOwner = std::unique_ptr<CShapeList, ListDeleter>;

std::vector<QPointF> WavyRing(std::mt19937& random, int points)
{
    std::uniform_real_distribution<double> place(0, 1000), size(1, 20);
    const QPointF centre(place(random), place(random));
    const double radius = size(random);
    std::vector<QPointF> ring;
    for (int i = 0; i < points; ++i) {
        const double angle = 6.283185307179586 * i / points, reach = radius * (1 + 0.2 * std::sin(7 * angle));
        ring.push_back(centre + reach * QPointF(std::cos(angle), std::sin(angle)));
    }
    return ring;
}

/// Free paths of straight points, so that no fitting is asked for.
ListOwner Drawing(int shapes, int pointsPerShape)
{
    std::mt19937 random(1);
    ListOwner list(CShapeList::New());
    for (int i = 0; i < shapes; ++i) {
        auto* shape = new CShapeVector;
        shape->SetVectorType(EVECTOR_MIXED);
        shape->SetShapePoints(WavyRing(random, pointsPerShape), ELINE_SEGMENT_STRAIGHT);
        list->AddTail(shape);
    }
    return list;
}

const QTemporaryDir& Folder()
{
    static const QTemporaryDir folder;
    return folder;
}

/// A drawing of a million points as document and as SVG of the same outlines.
struct Files
{
    QString document;
    QString svg;
};

Files MakeFiles(int pointsPerShape)
{
    const Files files{Folder().filePath(QString("%1.bin").arg(pointsPerShape)),
                      Folder().filePath(QString("%1.svg").arg(pointsPerShape))};
    if (QFile::exists(files.document))
        return files;
    const ListOwner list = Drawing(1'000'000 / pointsPerShape, pointsPerShape);
    QFile document(files.document);
    (void)document.open(QIODevice::WriteOnly);
    list->Save(&document);
    QFile svg(files.svg);
    (void)svg.open(QIODevice::WriteOnly);
    svg.write("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 1000 1000'>");
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    for (unsigned int i = 0; i < list->GetCount(); ++i) {
        list->GetShape(i)->GetShapePathData(points, types);
        QByteArray data = "<path d='";
        for (size_t k = 0; k < points.size(); ++k)
            data += (k ? "L" : "M") + QByteArray::number(points[k].x()) + "," + QByteArray::number(points[k].y());
        svg.write(data + "'/>");
    }
    svg.write("</svg>");
    return files;
}

void ReadDocument(benchmark::State& state)
{
    const Files files = MakeFiles(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QFile file(files.document);
        (void)file.open(QIODevice::ReadOnly);
        ListOwner list(CShapeList::New());
        list->Read(&file, kDocumentVersion);
        benchmark::DoNotOptimize(list->GetCount());
        state.PauseTiming();
        list.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * 1'000'000);
}

/// The limit: one readAll, and each record decoded into a shape's lists.
void ReadAllAndDecode(benchmark::State& state)
{
    struct Decoded
    {
        std::vector<QPointF> points;
        std::vector<unsigned char> types;
    };
    const Files files = MakeFiles(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QFile file(files.document);
        (void)file.open(QIODevice::ReadOnly);
        const QByteArray bytes = file.readAll();
        const char* at = bytes.constData();
        const auto take = [&at](auto& value) {
            std::memcpy(&value, at, sizeof value);
            at += sizeof value;
        };
        uint32_t count = 0;
        take(count);
        std::vector<std::unique_ptr<Decoded>> shapes;
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
        benchmark::DoNotOptimize(shapes.data());
        state.PauseTiming();
        shapes.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * 1'000'000);
}

void ReadSvg(benchmark::State& state)
{
    const Files files = MakeFiles(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QSvgRenderer renderer;
        benchmark::DoNotOptimize(renderer.load(files.svg));
    }
    state.SetItemsProcessed(state.iterations() * 1'000'000);
}

void WriteDocument(benchmark::State& state)
{
    const int points = static_cast<int>(state.range(0));
    const ListOwner list = Drawing(1'000'000 / points, points);
    for (auto _ : state) {
        QFile file(Folder().filePath("write.bin"));
        (void)file.open(QIODevice::WriteOnly);
        list->Save(&file);
    }
    state.SetItemsProcessed(state.iterations() * 1'000'000);
}

/// The limit: the same bytes, already packed, in one write.
void WritePacked(benchmark::State& state)
{
    QFile document(MakeFiles(static_cast<int>(state.range(0))).document);
    (void)document.open(QIODevice::ReadOnly);
    const QByteArray bytes = document.readAll();
    for (auto _ : state) {
        QFile file(Folder().filePath("write.bin"));
        (void)file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
    state.SetItemsProcessed(state.iterations() * 1'000'000);
}

void FlattenDrawing(benchmark::State& state)
{
    const ListOwner list = Drawing(10'000, 100);
    list->GetRect(false);
    for (auto _ : state)
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            benchmark::DoNotOptimize(list->GetShape(i)->Flatten(0.01));
}

void SubpathPolygonsAlone(benchmark::State& state)
{
    const ListOwner list = Drawing(10'000, 100);
    list->GetRect(false);
    for (auto _ : state)
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            benchmark::DoNotOptimize(
                list->GetShape(i)->GetPath(false)->toSubpathPolygons(QTransform::fromScale(250, 250)));
}

void OffsetDrawing(benchmark::State& state)
{
    const ListOwner list = Drawing(10'000, 100);
    list->GetRect(false);
    for (auto _ : state)
        list->Offset(0.5, 0.25, true);
}

void CopyPoints(benchmark::State& state)
{
    const ListOwner list = Drawing(10'000, 100);
    std::vector<std::vector<QPointF>> points(list->GetCount());
    std::vector<unsigned char> types;
    for (unsigned int i = 0; i < list->GetCount(); ++i)
        list->GetShape(i)->GetShapePathData(points[i], types);
    std::vector<QPointF> target(100);
    for (auto _ : state)
        for (const auto& of : points) {
            std::memcpy(target.data(), of.data(), of.size() * sizeof(QPointF));
            benchmark::DoNotOptimize(target.data());
        }
}

/// 999 squares, each inside the one before, outermost first.
ListOwner NestedSquares()
{
    ListOwner list(CShapeList::New());
    for (int i = 0; i < 999; ++i) {
        auto* shape = new CShapeVector;
        shape->SetShapeRect(QRectF(i, i, 3000 - 2 * i, 3000 - 2 * i));
        list->AddTail(shape);
    }
    return list;
}

void SortNested(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        const ListOwner list = NestedSquares();
        list->GetRect(false);
        state.ResumeTiming();
        list->Sort();
    }
}

void TestEveryPair(benchmark::State& state)
{
    const ListOwner list = NestedSquares();
    std::vector<QRectF> rects;
    for (unsigned int i = 0; i < list->GetCount(); ++i)
        rects.push_back(list->GetShape(i)->GetRect(false));
    for (auto _ : state) {
        int held = 0;
        for (size_t i = 0; i < rects.size(); ++i)
            for (size_t j = i + 1; j < rects.size(); ++j)
                held += rects[i].contains(rects[j]);
        benchmark::DoNotOptimize(held);
    }
}

void HitDrawing(benchmark::State& state)
{
    const ListOwner list = Drawing(10'000, 100);
    list->GetRect(false);
    int reach = 2;
    for (auto _ : state)
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            benchmark::DoNotOptimize(list->GetShape(i)->Hit(QPointF(500, 500), reach));
}

void RectanglesAlone(benchmark::State& state)
{
    const ListOwner list = Drawing(10'000, 100);
    list->GetRect(false);
    for (auto _ : state)
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            benchmark::DoNotOptimize(list->GetShape(i)->GetRect(false).contains(500, 500));
}

BENCHMARK(ReadAllAndDecode)->Arg(100)->Arg(4)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadDocument)->Arg(100)->Arg(4)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadSvg)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(WritePacked)->Arg(100)->Arg(4)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteDocument)->Arg(100)->Arg(4)->Unit(benchmark::kMillisecond);
BENCHMARK(SubpathPolygonsAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(FlattenDrawing)->Unit(benchmark::kMillisecond);
BENCHMARK(CopyPoints)->Unit(benchmark::kMillisecond);
BENCHMARK(OffsetDrawing)->Unit(benchmark::kMillisecond);
BENCHMARK(TestEveryPair)->Unit(benchmark::kMillisecond);
BENCHMARK(SortNested)->Unit(benchmark::kMillisecond);
BENCHMARK(RectanglesAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(HitDrawing)->Unit(benchmark::kMillisecond);

} // namespace
