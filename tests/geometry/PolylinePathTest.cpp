/// Painter paths of straight outlines: element by element what moveTo and lineTo for each point make.
#include "geometry/PolylinePath.h"
#include "support/Outline.h"
#include "vector/ShapeVector.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Elements to the last bit, start of the current sub-path, fill rule.
std::string Bytes(const QPainterPath& path)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << path;
    return bytes.toStdString();
}

void AddPointByPoint(QPainterPath& path, const std::vector<QPointF>& points)
{
    for (size_t i = 0; i < points.size(); ++i)
        i == 0 ? path.moveTo(points[i]) : path.lineTo(points[i]);
}

TEST(PolylinePath, equals_the_path_built_point_by_point)
{
    const std::vector<QPointF> run{{0, 0}, {5, 0}, {5, 5}, {0, 5}, {-3, 2}, {0.25, 1e99}};
    std::vector<std::pair<std::string, std::vector<QPointF>>> rows{{"none", {}}, {"all", run}};
    for (size_t count = 1; count < run.size(); ++count)
        rows.emplace_back("first " + std::to_string(count), std::vector(run.begin(), run.begin() + long(count)));
    // A seventh point beside the sixth, the second or the origin: equal, fuzzily equal, just not equal.
    for (const QPointF beside : {QPointF(1, 1), QPointF(1e6, -1e6), QPointF(0, 0), QPointF(1e-13, 7)})
        for (const double step : {0.0, 1e-13, 9e-13, 1.1e-12, 1e-11, 9e-10, 2e-9, 1e-7})
            for (const size_t at : {size_t{1}, size_t{3}, run.size()}) {
                std::vector<QPointF> points = run;
                const double scaled = step * std::max(1.0, std::abs(beside.x()));
                points.insert(points.begin() + long(at), {beside, beside + QPointF(scaled, -scaled / 2)});
                rows.emplace_back(std::to_string(beside.x()) + " + " + std::to_string(step * 1e12), points);
            }
    for (const auto& [name, points] : rows) {
        QPainterPath plain, whole;
        for (int i = 0; i < 2; ++i) { // also behind what the path already holds
            AddPointByPoint(plain, points);
            shapes::AddPolyline(whole, points);
            EXPECT_EQ(Bytes(whole), Bytes(plain)) << name;
        }
    }
}

/// The polyline and the mixed type as they are defined, on points of which only the finite ones are drawn.
QPainterPath PlainOutline(bool mixed, const std::vector<QPointF>& points, const std::vector<unsigned char>& types)
{
    QPainterPath path;
    bool start = true;
    const auto finite = [&](size_t i) { return std::abs(points[i].x()) <= 1e100 && std::abs(points[i].y()) <= 1e100; };
    for (size_t i = 0; i < points.size(); ++i) {
        if (mixed && types[i] == 3)
            continue;
        if (types[i] == 2 || !finite(i)) {
            start = true;
        } else if (start) {
            path.moveTo(points[i]);
            start = false;
        } else if (!mixed || types[i] == 0) {
            path.lineTo(points[i]);
        }
    }
    return path;
}

TEST(PolylinePath, shapes_with_gaps_repeats_and_strange_points_build_as_they_did_point_by_point)
{
    std::mt19937 random(5);
    const auto pick = [&random](int count) { return static_cast<int>(random() % static_cast<unsigned int>(count)); };
    for (int round = 0; round < 2000; ++round) {
        const int gaps = 2 + pick(20);
        std::vector<QPointF> points;
        std::vector<unsigned char> types;
        for (int i = pick(40); i > 0; --i) {
            QPointF point(pick(100) / 8.0, pick(100) - 50);
            if (const int odd = pick(4 * gaps); odd < 4)
                point.rx() = std::array{kNan, 2e100, 1e308, -HUGE_VAL}[static_cast<size_t>(odd)];
            if (pick(gaps) == 0 && !points.empty())
                point = points.back() * (1 + pick(3) * 6e-13);
            points.push_back(point);
            types.push_back(pick(gaps) ? 0
                                       : static_cast<unsigned char>(std::array{2, 3, 7}[static_cast<size_t>(pick(3))]));
        }
        for (const EVECTOR_TYPE type : {EVECTOR_POLYLINE_B, EVECTOR_MIXED}) {
            CShapeVector shape;
            shape.SetVectorType(type);
            shape.SetShapePoints(points, types);
            ASSERT_EQ(Bytes(*shape.GetPath(true)), Bytes(PlainOutline(type == EVECTOR_MIXED, points, types)))
                << round << " " << type;
        }
    }
}

} // namespace
