/// The curve-fitting plug-in is missing or broken. Built once per way of failing; FAILED_STEP is the word in the box's text.
#include "ProcessTest.h"

namespace {

TEST(PluginFailure, ShowsOneBoxAndLogsOneLineAndLeavesShapesAlone)
{
    CShapeVector shape, other;
    test::MakePolyline(shape);
    test::MakePolyline(other);

    test::BoxCloser closer;
    size_t logged = 0;
    closer.whileOpen = [&] { // the search is over by now: coming back neither blocks nor shows a second box
        logged = test::s_log.size();
        other.UpdatePainterPath();
    };
    shape.UpdatePainterPath();
    EXPECT_EQ(closer.boxes, std::vector<std::string>{"Tips|Load CurveSimulate " FAILED_STEP "! \n|1 OK"});
    EXPECT_EQ(logged, 1U);

    shape.UpdatePainterPath();
    EXPECT_EQ(closer.boxes.size(), 1U);
    ASSERT_EQ(test::s_log.size(), 1U);
    EXPECT_EQ(test::s_log.front().substr(0, 2), "1 ");
    EXPECT_GT(test::s_log.front().size(), 2U);
    for (CShapeVector* each : {&shape, &other}) {
        EXPECT_EQ(test::PointCount(*each), 4U);
        EXPECT_EQ(each->GetVectorType(), EVECTOR_POLYLINE);
    }
}

} // namespace
