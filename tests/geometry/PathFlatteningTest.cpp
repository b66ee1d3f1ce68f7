/// Flattening in one pass, and its fallback, against the same pass by pass, bit for bit.
#include "geometry/PlainFlattening.h"

#include "geometry/PathFlattening.h"

#include <QFont>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <stdexcept>

using namespace shapes;

namespace {

constexpr unsigned int kStraight = 6;
constexpr unsigned int kWithCurves = 8;

/// Moves, lines and, among 8 kinds of steps, curves at random; ends often meet the next start, exactly, nearly or almost.
QPainterPath RandomPath(unsigned int seed, unsigned int kinds)
{
    std::mt19937 random(seed);
    const double size = std::pow(10.0, static_cast<int>(random() % 9) - 4);
    std::uniform_real_distribution<double> place(-size, size);
    const auto point = [&] { return QPointF(place(random), place(random)); };
    QPainterPath path;
    for (int i = 0; i < 40; ++i) {
        const QPointF here = path.currentPosition();
        switch (random() % kinds) {
        case 0:
            path.moveTo(point());
            break;
        case 1:
            path.moveTo(here);
            break;
        case 2:
            path.moveTo(here * (1 + 1e-13));
            break;
        case 3:
            path.moveTo(here * (1 + 1e-11));
            break;
        case 4:
            path.lineTo(point());
            break;
        case 5:
            path.closeSubpath();
            break;
        default:
            path.cubicTo(point(), point(), point());
        }
    }
    return path;
}

QPainterPath Odd(const char* name)
{
    const QByteArrayView what(name);
    QPainterPath path;
    if (what == "ellipses") {
        path.addEllipse(QPointF(3, 4), 20, 7);
        path.addEllipse(QPointF(-3e4, 4), 2e3, 7e-3);
    } else if (what == "polyline") {
        path.addPolygon(QPolygonF({{0.1, 0.2}, {7, 3}, {7, 3}, {-5, 1e-9}, {-0.0, -0.0}}));
    } else if (what == "closed") {
        path.addRect(1.1, 2.2, 3.3, 4.4);
    } else if (what == "single points") {
        for (const double x : {0.0, 1.0, 1.0, 5.0})
            path.moveTo(x, 0);
        path.lineTo(6, 0);
        path.moveTo(7, 7);
        path.moveTo(6, 0);
        path.cubicTo(8, 9, 10, 11, 12, 13);
        path.moveTo(12, 13);
    } else if (what == "a point") {
        path.moveTo(4, 2);
    } else if (what == "points as curves") {
        path.moveTo(4, 2);
        path.cubicTo(4, 2, 4, 2, 4, 2);
        path.lineTo(4, 2);
        path.cubicTo(4, 2, 4, 2, 4, 2 + 1e-14);
    } else if (what == "huge") {
        path.moveTo(-1e90, 1e91);
        path.cubicTo(3e93, 1, -7e94, 1e90, 0, 5e94);
        path.lineTo(1e95, 1e95);
    } else if (what == "cusp and loop") {
        path.moveTo(0, 0);
        path.cubicTo(100, 100, 0, 100, 100, 0);
        path.cubicTo(300, 100, -100, 100, 100, 0);
    } else if (what == "joined by curves") {
        path.moveTo(0, 0);
        path.cubicTo(1, 9, 8, 8, 9, 1);
        path.moveTo(9, 1 + 1e-13);
        path.cubicTo(1, 2, 3, 4, 50, 60);
    } else if (what == "too large to magnify") {
        path.moveTo(0, 0);
        path.lineTo(1e99, 1);
    }
    return path;
}

void ExpectSame(std::span<const SHAPE_VECTOR_PATHDATA> lines, const std::vector<SHAPE_VECTOR_PATHDATA>& plain)
{
    ASSERT_EQ(lines.size(), plain.size());
    for (size_t i = 0; i < plain.size(); ++i) {
        constexpr size_t kPoints = sizeof(QPointF) * 2;
        ASSERT_EQ(std::memcmp(&lines[i], &plain[i], kPoints), 0) << i;
        ASSERT_EQ(lines[i].eType, plain[i].eType) << i;
    }
}

void ExpectPlain(const QPainterPath& path)
{
    for (const double factor : {1.0, 0.37, 250.0, 1000.0})
        for (const Joining joining : {Joining::KeepSubpaths, Joining::JoinSubpaths}) {
            const auto plain =
                test::PlainMicroLines(test::PlainPolygons(path, factor, joining == Joining::JoinSubpaths));
            for (const Flattening by : {Flattening::InPlace, Flattening::ByPlatform}) {
                SCOPED_TRACE(testing::Message()
                             << "magnified by " << factor << (by == Flattening::InPlace ? "" : ", by platform"));
                ExpectSame(MicroLines(MagnifiedPolygons(path, factor, joining, by)), plain);
                std::vector<SHAPE_VECTOR_PATHDATA> lines(3);
                PutMicroLines(path, factor, joining, lines, by);
                ExpectSame(lines, plain);
            }
        }
}

TEST(PathFlattening, matches_the_plain_passes_bit_for_bit)
{
    for (const char* name : {"", "ellipses", "polyline", "closed", "single points", "a point", "points as curves",
                             "huge", "cusp and loop", "joined by curves"}) {
        SCOPED_TRACE(name);
        ExpectPlain(Odd(name));
    }
    QPainterPath letters;
    letters.addText(3, 4, QFont("Liberation Sans", 40), "Ag8&");
    ASSERT_GT(letters.elementCount(), 50);
    ExpectPlain(letters);
}

TEST(PathFlattening, matches_the_plain_passes_on_random_paths)
{
    for (unsigned int seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        ExpectPlain(RandomPath(seed, kWithCurves));
        ExpectPlain(RandomPath(seed, kStraight));
    }
}

TEST(PathFlattening, repeats_this_platform_s_rule)
{
    EXPECT_EQ(FlatteningForPlatform(), Flattening::InPlace)
        << "slower, but right: the platform splits curves otherwise";
}

TEST(PathFlattening, has_a_bound_where_one_is_given)
{
    QPainterPath circle;
    circle.addEllipse(QPointF(), 1e9, 1e9); // 4 curves of 512 pieces and a start
    const auto points = [&](size_t most) {
        return MagnifiedPolygons(circle, 1, Joining::KeepSubpaths, Flattening::InPlace, most).Points().size();
    };
    EXPECT_EQ(points(1 + 3 * 512), 1u + 4 * 512);
    EXPECT_THROW(points(3 * 512), std::length_error);
}

TEST(PathFlattening, of_what_cannot_be_magnified_is_nothing)
{
    for (const Flattening by : {Flattening::InPlace, Flattening::ByPlatform}) {
        EXPECT_EQ(MagnifiedPolygons(Odd("too large to magnify"), 250, Joining::KeepSubpaths, by).Count(), 0u);
        EXPECT_EQ(MagnifiedPolygons(Odd("too large to magnify"), 1, Joining::KeepSubpaths, by).Count(), 1u);
    }
}

} // namespace
