/// Painter paths of straight outlines: element by element what moveTo and lineTo for each point make.
#include "geometry/PolylinePath.h"

#include <QDataStream>
#include <QIODevice>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// Elements to the last bit, start of the current sub-path, fill rule.
std::string Bytes(const QPainterPath& path)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << path;
    return bytes.toStdString();
}

TEST(PolylinePath, equals_the_path_built_point_by_point)
{
    const std::vector<QPointF> run{{0, 0}, {5, 0}, {5, 5}, {0, 5}, {-3, 2}, {0.25, 1e99}};
    std::vector<std::vector<QPointF>> rows{{}};
    for (size_t count = 1; count <= run.size(); ++count)
        rows.emplace_back(run.begin(), run.begin() + long(count));
    // Two more beside each other, within the run or behind it: equal, fuzzily equal, just not equal.
    for (const QPointF beside : {QPointF(1, 1), QPointF(1e6, -1e6), QPointF(0, 0), QPointF(1e-13, 7)})
        for (const double step : {0.0, 1e-13, 9e-13, 1.1e-12, 1e-11, 9e-10, 2e-9, 1e-7})
            for (const size_t at : {size_t{1}, size_t{3}, run.size()}) {
                const double scaled = step * std::max(1.0, std::abs(beside.x()));
                rows.push_back(run);
                rows.back().insert(rows.back().begin() + long(at), {beside, beside + QPointF(scaled, -scaled / 2)});
            }
    for (const std::vector<QPointF>& points : rows) {
        QPainterPath plain, whole;
        for (int i = 0; i < 2; ++i) { // also behind what the path already holds
            for (const QPointF& point : points)
                &point == &points[0] ? plain.moveTo(point) : plain.lineTo(point);
            shapes::AddPolyline(whole, points);
            EXPECT_EQ(Bytes(whole), Bytes(plain)) << &points - rows.data();
        }
    }
}

} // namespace
