#include "machine/MotionTimer.h"

#include <gtest/gtest.h>

#include <numbers>

using namespace shapedocument;

namespace {

/// Feed 20 mm/s, 500 mm/s², corners cut by 0.01 mm.
MachineSettings Machine()
{
    MachineSettings machine;
    machine.feed = machine.rapid = 1200;
    machine.acceleration = 500;
    machine.junctionDeviation = 0.01;
    return machine;
}

double TimeOf(const std::vector<QPointF>& points)
{
    MotionTimer timer(Machine());
    for (const QPointF& point : points)
        timer.Travel(point);
    return timer.Seconds();
}

} // namespace

TEST(MotionTimer, lines_take_the_time_of_their_trapezoids_and_corners)
{
    // 20 mm/s is reached in 0.04 s and 0.4 mm.
    EXPECT_NEAR(TimeOf({{100, 0}}), 0.08 + 99.2 / 20, 1e-9);
    EXPECT_NEAR(TimeOf({{0.2, 0}}), 2 * 10 / 500.0, 1e-9) << "too short for full speed: 10 mm/s at its middle";
    EXPECT_NEAR(TimeOf({{50, 0}, {100, 0}}), 5.04, 1e-9) << "no corner";
    EXPECT_NEAR(TimeOf({{50, 0}, {0, 0}}), 2 * (0.08 + 49.2 / 20), 1e-9) << "back: a stop";
    // A right angle at sqrt(500 * 0.01 * s / (1 - s)) = 3.4743 mm/s, s the sine of 45 degrees.
    EXPECT_NEAR(TimeOf({{50, 0}, {50, 50}}), 2 * (0.04 + 0.0330514 + 49.212071 / 20), 1e-6);
    EXPECT_NEAR(TimeOf({{0, 0}}), 0, 0);
}

TEST(MotionTimer, many_short_moves_take_the_time_of_one)
{
    std::vector<QPointF> points;
    for (int i = 1; i <= 10'000; ++i)
        points.emplace_back(i * 0.01, 0);
    EXPECT_NEAR(TimeOf(points), 5.04, 1e-6);
}

TEST(MotionTimer, curves_are_as_fast_as_their_radius_allows)
{
    MotionTimer timer(Machine());
    timer.Cut({{0, 0}, 1}, {0.04, 0}); // half a circle of 0.02 mm: sqrt(500 * 0.02) = 3.1623 mm/s
    const double speed = std::sqrt(10.0), length = 0.02 * std::numbers::pi;
    EXPECT_NEAR(timer.Seconds(), 2 * speed / 500 + (length - 0.02) / speed, 1e-9);
}
