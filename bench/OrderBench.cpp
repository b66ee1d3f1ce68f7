/// The order in which a machine follows paths.
#include "Goals.h"

#include "machine/PathOrder.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <random>

namespace {

using namespace bench;
using namespace shapedocument;

constexpr int kPoints = 32; ///< of a path

/// Rings that often overlap or contain each other, at the same density for every count.
struct Rings
{
    std::vector<JobPoint> points;
    std::vector<OrderedPath> paths;
};

std::shared_ptr<const Rings> MakeRings(size_t count)
{
    const auto rings = std::make_shared<Rings>();
    std::mt19937 random(3);
    const double side = 3 * std::sqrt(double(count));
    std::uniform_real_distribution<double> place(0, side), radius(0.5, 10);
    for (size_t i = 0; i < count; ++i) {
        const double x = place(random), y = place(random), reach = radius(random);
        for (int k = 0; k <= kPoints; ++k) {
            const double angle = 6.283185307179586 * (k % kPoints) / kPoints;
            rings->points.push_back({{x + reach * std::cos(angle), y + reach * std::sin(angle)}, 0});
        }
    }
    for (size_t i = 0; i < count; ++i)
        rings->paths.push_back(
            {JobPoints(rings->points).subspan(i * (kPoints + 1), kPoints + 1), i + 1, PathKind::Cut, 0, true});
    return rings;
}

Side Order(size_t count)
{
    return {[rings = MakeRings(count)] { benchmark::DoNotOptimize(OrderPaths(rings->paths, {})); }};
}

/// The limit: one pass along all points, which every program that follows the paths needs.
Side PassOverPoints(size_t count)
{
    return {[rings = MakeRings(count)] {
        double length = 0;
        for (size_t i = 1; i < rings->points.size(); ++i) {
            const QPointF way = rings->points[i].point - rings->points[i - 1].point;
            length += std::sqrt(QPointF::dotProduct(way, way));
        }
        benchmark::DoNotOptimize(length);
    }};
}

const bool kRegistered = Register({
    {.name = "O1 order of 100,000 paths of 33 points",
     .against = "one pass over the points",
     .goal = AtMost(1000),
     .sides =
         [] {
             return Sides{Order(100'000), PassOverPoints(100'000)};
         },
     .rounds = 3},
    {.name = "O1 order of 100,000 paths",
     .against = "10,000 paths",
     .goal = AtMost(13),
     .sides =
         [] {
             return Sides{Order(100'000), Order(10'000)};
         },
     .rounds = 3},
});

} // namespace
