// What a job gives back of the paths that it was given.
#include "machine/MachineJob.h"

#include <gtest/gtest.h>

using namespace shapedocument;

TEST(MachineJob, gives_back_points_and_bulges_and_knows_closed_paths)
{
    MachineJob job("test");
    job.Append({1, PathKind::Cut, 0xFF0000}, {{{0, 0}, 0.5}, {{10, 0}, -1}, {{0, 0}, 0}});
    job.Append({2, PathKind::LeadIn, 0}, {{{0, 0}, 0}, {{1e-13, 0}, 0}});
    job.Finish("test");
    JobReader reader(job);

    const auto closed = reader.NextPath();
    ASSERT_TRUE(closed);
    EXPECT_TRUE(closed->closed);
    EXPECT_EQ(closed->points, 3u);
    EXPECT_EQ(reader.NextPoint()->bulge, 0.5);
    const auto middle = reader.NextPoint();
    EXPECT_EQ(middle->point, QPointF(10, 0));
    EXPECT_EQ(middle->bulge, -1);

    const auto open = reader.NextPath(); // skips the point that is left
    ASSERT_TRUE(open);
    EXPECT_FALSE(open->closed) << "the ends are near, not the same";
    EXPECT_EQ(open->kind, PathKind::LeadIn);
    EXPECT_EQ(reader.Points().size(), 2);
    EXPECT_FALSE(reader.NextPath());
}
