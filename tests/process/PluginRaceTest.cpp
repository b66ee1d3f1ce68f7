/// The one search for the plug-in, begun by several threads at once; built with the thread sanitizer.
#include "ProcessTest.h"
#include "vector/CurveFit.h"

#include <atomic>
#include <thread>

namespace {

TEST(PluginRace, one_thread_searches_and_all_find_the_same)
{
    constexpr int kThreads = 8;
    const std::vector<QPointF> points{{0, 0}, {0, 0}, {10, 0}, {10, 5}};
    const std::vector<unsigned char> types{2, 0, 0, 0};
    std::atomic<int> missing = kThreads;
    std::vector<std::thread> threads;
    std::vector<size_t> fitted(kThreads, 99);
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            std::vector<QPointF> outPoints;
            std::vector<unsigned char> outTypes;
            for (--missing; missing > 0;)
                std::this_thread::yield();
            shapes::FitOutline(points, types, outPoints, outTypes);
            fitted[static_cast<size_t>(i)] = outPoints.size();
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(fitted, std::vector<size_t>(kThreads, 0)) << "there is no plug-in to fit with";
    EXPECT_TRUE(test::IsOneLine(test::TakeLog())) << "searched once";
}

} // namespace
