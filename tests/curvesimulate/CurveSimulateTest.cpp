/// The reference plug-in as a host gets it: through the library, from the path of the process.
#include "host/ICurveSimulate.h"
#include "vector/CurveFit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

TEST(CurveSimulate, fits_runs_of_straight_points_and_leaves_all_others)
{
    std::vector<QPointF> points{{0, 0}};
    std::vector<unsigned char> types{2};
    for (int run = 0; run < 2; ++run) { // twice the same half circle; the second has a curve triple at its end
        for (int step = 0; step <= 90; ++step) {
            const double angle = step * 0.034906585039886591;
            points.emplace_back(5 * std::cos(angle), 5 * std::sin(angle));
            types.push_back(run == 1 && step > 87 ? 1 : 0);
        }
        points.emplace_back(0, 0);
        types.push_back(2);
    }
    std::vector<QPointF> outPoints;
    std::vector<unsigned char> outTypes;
    shapes::FitOutline(points, types, outPoints, outTypes);
    ASSERT_GT(outPoints.size(), 93U);
    const size_t fitted = outPoints.size() - 93; // separator and run
    EXPECT_LE(fitted, 1U + 10U);
    EXPECT_EQ(outTypes.size(), outPoints.size());
    EXPECT_EQ(outTypes[0], 2);
    EXPECT_EQ(outPoints[1], points[1]);
    EXPECT_EQ(outPoints[fitted - 1], points[91]);
    EXPECT_TRUE(std::equal(points.begin() + 92, points.end(), outPoints.end() - 93));
    EXPECT_TRUE(std::equal(types.begin() + 92, types.end(), outTypes.end() - 93));
}

} // namespace
