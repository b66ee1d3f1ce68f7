/// The first search for a missing plug-in runs outside the main thread.
#include "ProcessTest.h"

#include <thread>

TEST(PluginThread, logs_only_and_no_box_follows_ever)
{
    test::Polyline shape;
    test::BoxCloser closer;
    std::thread([&shape] { shape.UpdatePainterPath(); }).join();
    EXPECT_TRUE(test::IsOneLine(test::TakeLog()));
    shape.UpdatePainterPath();
    EXPECT_TRUE(closer.boxes.empty());
    EXPECT_EQ(test::TakeLog(), "");
    EXPECT_EQ(Told(shape), "2 | 0,0 10,0 10,5");
}
