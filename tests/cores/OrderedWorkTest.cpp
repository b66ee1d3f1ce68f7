// Steps on several threads: taken in order on the adding one, failures where they would have been taken.
#include "cores/OrderedWork.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace shapedocument;

namespace {

constexpr size_t kThreads[] = {1, 2, 5};

TEST(OrderedWork, steps_are_taken_in_order_on_the_adding_thread)
{
    for (const size_t threads : kThreads) {
        constexpr size_t kSteps = 500;
        std::vector<size_t> made(kSteps), taken;
        const std::thread::id here = std::this_thread::get_id();
        OrderedWork work(threads);
        size_t most = 0, elsewhere = 0;
        for (size_t i = 0; i < kSteps; ++i) {
            work.Add([&made, i] { made[i] = i + 1; },
                     [&, i] {
                         elsewhere += std::this_thread::get_id() != here;
                         taken.push_back(made[i]);
                     });
            most = std::max(most, i + 1 - taken.size());
        }
        work.Finish();
        std::vector<size_t> expected(kSteps);
        for (size_t i = 0; i < kSteps; ++i)
            expected[i] = i + 1;
        EXPECT_EQ(taken, expected) << threads;
        EXPECT_EQ(elsewhere, 0u) << threads;
        EXPECT_LE(most, threads > 1 ? 2 * threads : 0) << "under way, which memory is needed for";
    }
}

TEST(OrderedWork, two_threads_make_two_steps_at_once)
{
    std::promise<void> begun[2];
    std::future<void> other[] = {begun[1].get_future(), begun[0].get_future()};
    bool met[2] = {};
    OrderedWork work(2);
    for (size_t i = 0; i < 2; ++i)
        work.Add(
            [&, i] {
                begun[i].set_value();
                met[i] = other[i].wait_for(std::chrono::seconds(60)) == std::future_status::ready;
            },
            [] {});
    work.Finish();
    EXPECT_TRUE(met[0] && met[1]);
}

TEST(OrderedWork, failures_come_where_the_step_would_be_taken)
{
    for (const size_t threads : kThreads)
        for (const bool inMake : {true, false}) {
            std::string taken;
            const auto fail = [] { throw std::runtime_error("third"); };
            const auto run = [&] {
                OrderedWork work(threads);
                for (int i = 0; i < 40; ++i) {
                    const auto take = [&taken, i] { taken += std::to_string(i) + ' '; };
                    if (i != 2)
                        work.Add([] {}, take);
                    else if (inMake)
                        work.Add(fail, take);
                    else
                        work.Add([] {}, fail);
                }
                work.Finish();
            };
            EXPECT_THROW(run(), std::runtime_error) << threads << inMake;
            EXPECT_EQ(taken, "0 1 ") << threads << inMake;
        }
}

} // namespace
