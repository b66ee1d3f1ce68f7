#include "Growth.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace bench {

namespace {

constexpr size_t kCaches = size_t{32} << 20; ///< bytes
constexpr int kTenth = 10;
constexpr double kMostGrowth = 11;
constexpr int kGrowthRounds = 7;

} // namespace

Side Cold(Side side)
{
    const auto cold = [prepare = side.prepare, other = std::make_shared<std::vector<char>>(kCaches)] {
        if (prepare)
            prepare();
        std::fill(other->begin(), other->end(), char(other->front() + 1));
        benchmark::DoNotOptimize(other->data());
    };
    return {side.run, cold};
}

Row GrowthRow(const std::string& name, int size, const std::function<Side(int)>& side)
{
    return {.name = name,
            .against = "a tenth of it, both with cold caches",
            .goal = AtMost(kMostGrowth),
            .sides =
                [=] {
                    return Sides{Cold(side(size)), Cold(side(size / kTenth))};
                },
            .rounds = kGrowthRounds};
}

} // namespace bench
