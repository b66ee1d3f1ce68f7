/// Flattening in one pass, and its fallback, against the same pass by pass, bit for bit.
#include "geometry/PathFlattening.h"
#include "geometry/PlainFlattening.h"

#include <QDataStream>
#include <QFont>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <random>
#include <stdexcept>

using namespace shapes;

namespace {

/// Moves, lines and, for even seeds, curves at random, on a plane of any size. Ends often meet the next start, exactly,
/// nearly or almost, and points those before them.
QPainterPath RandomPath(unsigned int seed)
{
    std::mt19937 random(seed);
    const unsigned int kinds = seed % 2 ? 6 : 8;
    const double size = seed % 10 == 9 ? 1e94 : std::pow(10.0, static_cast<int>(random() % 9) - 4);
    std::uniform_real_distribution<double> place(-size, size);
    QPainterPath path;
    const auto point = [&] { return random() % 4 ? QPointF(place(random), place(random)) : path.currentPosition(); };
    for (int i = 0; i < 40; ++i) {
        const QPointF here = path.currentPosition(), there = point();
        const unsigned int kind = random() % kinds;
        if (kind < 4)
            path.moveTo(std::array{there, here, here * (1 + 1e-13), here * (1 + 1e-11)}[kind]);
        else if (kind == 4)
            path.lineTo(there);
        else if (kind == 5)
            path.closeSubpath();
        else
            path.cubicTo(there, point(), kind == 6 ? point() : here);
    }
    return path;
}

void ExpectSame(std::span<const SHAPE_VECTOR_PATHDATA> lines, const std::vector<SHAPE_VECTOR_PATHDATA>& plain)
{
    ASSERT_EQ(lines.size(), plain.size());
    for (size_t i = 0; i < plain.size(); ++i) {
        ASSERT_EQ(std::memcmp(&lines[i], &plain[i], sizeof(QPointF) * 2), 0) << i;
        ASSERT_EQ(lines[i].eType, plain[i].eType) << i;
    }
}

void ExpectPlain(const QPainterPath& path)
{
    for (const double factor : {1.0, 0.37, 2.0, 250.0, 1000.0})
        for (const Joining joining : {Joining::KeepSubpaths, Joining::JoinSubpaths}) {
            const auto plain =
                test::PlainMicroLines(test::PlainPolygons(path, factor, joining == Joining::JoinSubpaths));
            for (const Flattening by : {Flattening::InPlace, Flattening::ByPlatform}) {
                SCOPED_TRACE(testing::Message() << factor << (by == Flattening::InPlace ? "" : ", by platform"));
                ExpectSame(MicroLines(MagnifiedPolygons(path, factor, joining, by)), plain);
                std::vector<SHAPE_VECTOR_PATHDATA> lines(3);
                PutMicroLines(path, factor, joining, lines, by);
                ExpectSame(lines, plain);
            }
        }
}

TEST(PathFlattening, matches_the_plain_passes_bit_for_bit)
{
    QPainterPath letters({-0.0, -0.0});
    ExpectPlain(letters);
    letters.addText(3, 4, QFont("Liberation Sans", 40), "Ag8&");
    ASSERT_GT(letters.elementCount(), 50);
    letters.addEllipse(QPointF(-3e4, 4), 2e3, 7e-3);
    ExpectPlain(letters);
    for (unsigned int seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        ExpectPlain(RandomPath(seed));
    }
}

/// Curve data that no curve claims stands first: a host's stream can say so, and nothing leads to it or from it.
TEST(PathFlattening, begins_where_the_first_step_ends)
{
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly)
        << 4 << 3 << 5.0 << 5.0 << 3 << 6.0 << 6.0 << 1 << 8.0 << 2.0 << 1 << 16.0 << 2.0 << 0 << 0;
    QPainterPath path;
    QDataStream in(bytes);
    in >> path;
    ASSERT_EQ(path.elementCount(), 4);
    for (const double factor : {1.0, 250.0})
        for (const Flattening by : {Flattening::InPlace, Flattening::ByPlatform}) {
            std::vector<SHAPE_VECTOR_PATHDATA> lines;
            PutMicroLines(path, factor, Joining::JoinSubpaths, lines, by);
            ExpectSame(lines, {{{8, 2}, {16, 2}, ELINE_SEGMENT_SEPARATOR}});
        }
}

TEST(PathFlattening, repeats_this_platform_s_rule)
{
    EXPECT_EQ(FlatteningForPlatform(), Flattening::InPlace)
        << "slower, but right: the platform splits curves otherwise";
}

TEST(PathFlattening, has_a_bound_where_one_is_given)
{
    QPainterPath circle, lines, far;
    circle.addEllipse(QPointF(), 1e9, 1e9); // 4 curves of 512 pieces and a start
    lines.addPolygon(QPolygonF({{0, 0}, {0, 1}, {1, 1}, {2, 1}, {3, 1}}));
    far.lineTo(1e99, 1);
    for (const Flattening by : {Flattening::InPlace, Flattening::ByPlatform}) {
        const auto points = [by](const QPainterPath& path, size_t most, double factor = 1) {
            return MagnifiedPolygons(path, factor, Joining::KeepSubpaths, by, most).Points().size();
        };
        EXPECT_EQ(points(lines, 4), 5u);
        EXPECT_THROW(points(lines, 3), std::length_error);
        EXPECT_EQ(points(far, 9), 2u);
        EXPECT_EQ(points(far, 9, 250), 0u) << "cannot be magnified within finite numbers";
        EXPECT_EQ(points(circle, 4 * 512), 1u + 4 * 512);
        EXPECT_THROW(points(circle, 3 * 512), std::length_error);
    }
}

} // namespace
