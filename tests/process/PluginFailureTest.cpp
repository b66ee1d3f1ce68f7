/// The curve-fitting plug-in is missing or broken. Linked once per way of failing, into the folder that holds the
/// plug-in; of the environment, FAILED_STEP is the word in the box's text, FAILED_REASON a part of the loader's reason.
/// Each test needs a process of its own.
#include "ProcessTest.h"

#include <array>
#include <atomic>
#include <thread>

TEST(PluginFailure, shows_one_box_and_logs_one_line_and_leaves_shapes_alone)
{
    test::Polyline shape, other;
    test::BoxCloser closer;
    std::string logged;
    closer.whileOpen = [&] { // the search is over by now: coming back neither blocks nor shows a second box
        logged = test::TakeLog();
        other.UpdatePainterPath();
    };
    shape.UpdatePainterPath();
    const std::string step = qgetenv("FAILED_STEP").toStdString();
    EXPECT_EQ(closer.boxes, std::vector<std::string>{"Tips|Load CurveSimulate " + step + "! \n|1 OK"});
    EXPECT_TRUE(test::IsOneLine(logged)) << logged;
    EXPECT_NE(logged.find(qgetenv("FAILED_REASON").toStdString()), std::string::npos) << logged;

    shape.UpdatePainterPath();
    EXPECT_EQ(closer.boxes.size(), 1U);
    EXPECT_EQ(test::TakeLog(), "");
    EXPECT_EQ(Told(shape) + "; " + Told(other), "2 | 0,0 10,0 10,5; 2 | 0,0 10,0 10,5");
}

/// The search begins on several threads at once, none of them the main thread.
TEST(PluginFailureOnThreads, logs_one_line_and_no_box_follows_ever)
{
    std::array<test::Polyline, 8> shapes;
    test::BoxCloser closer;
    std::atomic<size_t> missing = shapes.size();
    std::vector<std::thread> threads;
    for (test::Polyline& shape : shapes)
        threads.emplace_back([&] {
            test::Meet(missing);
            shape.UpdatePainterPath();
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(test::IsOneLine(test::TakeLog()));
    shapes[0].UpdatePainterPath();
    EXPECT_TRUE(closer.boxes.empty());
    EXPECT_EQ(test::TakeLog(), "");
    for (test::Polyline& shape : shapes)
        EXPECT_EQ(Told(shape), "2 | 0,0 10,0 10,5");
}
