/// The curve-fitting plug-in is missing or broken. Built once per way of failing; FAILED_STEP is the word in the box's
/// text, the environment's FAILED_REASON a part of the loader's reason.
#include "ProcessTest.h"

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
    EXPECT_EQ(closer.boxes, std::vector<std::string>{"Tips|Load CurveSimulate " FAILED_STEP "! \n|1 OK"});
    EXPECT_TRUE(test::IsOneLine(logged)) << logged;
    EXPECT_NE(logged.find(qgetenv("FAILED_REASON").toStdString()), std::string::npos) << logged;

    shape.UpdatePainterPath();
    EXPECT_EQ(closer.boxes.size(), 1U);
    EXPECT_EQ(test::TakeLog(), "");
    EXPECT_EQ(Told(shape) + "; " + Told(other), "2 | 0,0 10,0 10,5; 2 | 0,0 10,0 10,5");
}
