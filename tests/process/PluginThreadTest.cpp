/// The first search for a missing plug-in runs outside the main thread.
#include "ProcessTest.h"

#include <thread>

namespace {

TEST(PluginThread, LogsOnlyAndNoBoxFollowsEver)
{
    CShapeVector shape;
    test::MakePolyline(shape);
    test::BoxCloser closer;
    std::thread([&shape] { shape.UpdatePainterPath(); }).join();
    EXPECT_TRUE(test::IsOneLine(test::TakeLog()));
    shape.UpdatePainterPath();
    EXPECT_TRUE(closer.boxes.empty());
    EXPECT_EQ(test::TakeLog(), "");
    EXPECT_EQ(test::PointCount(shape), 4U);
}

} // namespace
