#include "Limits.h"

#include "vector/ShapeVector.h"

#include <QByteArray>
#include <QFile>
#include <QPainterPath>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace bench {

namespace {

using Block = std::unique_ptr<char[]>;
using Outlines = std::vector<std::vector<QPointF>>;

Outlines OutlinesOf(CShapeList& list)
{
    Outlines outlines;
    std::vector<unsigned char> types;
    VisitShapes(list, [&](CShape& shape) { shape.GetShapePathData(outlines.emplace_back(), types); });
    return outlines;
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    (void)file.open(QIODevice::ReadOnly);
    return file.readAll();
}

} // namespace

Side InFreshMemory(Side side)
{
    return {side.run, [prepare = side.prepare] {
                prepare();
                malloc_trim(0);
            }};
}

Side FillBlocks(const QString& path, size_t shapes, size_t pointsPerShape)
{
    const auto blocks = std::make_shared<std::vector<Block>>(shapes);
    const size_t bytes = sizeof(CShapeVector) + kPointBytes * pointsPerShape;
    const auto fill = [blocks, bytes, file = BytesOf(path)] {
        const size_t record = static_cast<size_t>(file.size()) / blocks->size();
        const char* from = file.constData();
        for (Block& block : *blocks) {
            block = std::make_unique_for_overwrite<char[]>(bytes);
            std::memcpy(block.get(), from, record);
            std::memset(block.get() + record, 0, bytes - record);
            from += record;
        }
        benchmark::DoNotOptimize(blocks->data());
        benchmark::ClobberMemory();
    };
    return {fill, [blocks] { std::fill(blocks->begin(), blocks->end(), nullptr); }};
}

Side WriteOnce(const QString& from, const QString& to)
{
    return {[bytes = BytesOf(from), to] {
        QFile file(to);
        (void)file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        file.write(bytes);
    }};
}

Side ReadAndWriteOnce(CShapeList& list, const QString& from, const QString& to)
{
    return {[outlines = OutlinesOf(list), write = WriteOnce(from, to)] {
        QPointF sum;
        for (const std::vector<QPointF>& outline : outlines)
            for (const QPointF& point : outline)
                sum += point;
        benchmark::DoNotOptimize(sum);
        write.run();
    }};
}

Side AddInPlace(CShapeList& list, Moved moved)
{
    struct Element
    {
        double x, y, type;
    };
    Outlines outlines = OutlinesOf(list);
    std::vector<std::vector<Element>> paths(outlines.size());
    for (size_t i = 0; moved == Moved::PointsAndPaths && i < paths.size(); ++i)
        paths[i].resize(outlines[i].size());
    return {[outlines, paths]() mutable {
        for (size_t i = 0; i < outlines.size(); ++i) {
            for (QPointF& point : outlines[i])
                point += QPointF(0.5, 0.25);
            for (Element& element : paths[i]) {
                element.x += 0.5;
                element.y += 0.25;
            }
        }
        benchmark::DoNotOptimize(outlines.data());
        benchmark::ClobberMemory();
    }};
}

Side WriteElements(CShapeList& list)
{
    using Elements = std::unique_ptr<QPainterPath::Element[]>;
    const Outlines outlines = OutlinesOf(list);
    const auto paths = std::make_shared<std::vector<Elements>>(outlines.size());
    return {[outlines, paths] {
        for (size_t i = 0; i < outlines.size(); ++i) {
            Elements& path = (*paths)[i];
            path.reset();
            path = std::make_unique_for_overwrite<QPainterPath::Element[]>(outlines[i].size());
            QPainterPath::Element* element = path.get();
            for (const QPointF& point : outlines[i])
                *element++ = {point.x(), point.y(), QPainterPath::LineToElement};
        }
        benchmark::DoNotOptimize(paths->data());
        benchmark::ClobberMemory();
    }};
}

Side CopyShapes(CShapeList& list)
{
    const Outlines outlines = OutlinesOf(list);
    const auto blocks = std::make_shared<std::vector<Block>>(outlines.size());
    const auto copy = [outlines, blocks] {
        for (size_t i = 0; i < outlines.size(); ++i) {
            const size_t points = outlines[i].size() * sizeof(QPointF);
            const size_t bytes = outlines[i].size() * kPointBytes + sizeof(CShapeVector);
            Block& block = (*blocks)[i];
            block = std::make_unique_for_overwrite<char[]>(bytes);
            std::memcpy(block.get(), outlines[i].data(), points);
            std::memset(block.get() + points, 0, bytes - points);
        }
        benchmark::DoNotOptimize(blocks->data());
        benchmark::ClobberMemory();
    };
    return {copy, [blocks] { std::fill(blocks->begin(), blocks->end(), nullptr); }};
}

} // namespace bench
