/// CShapeVector: micro lines and what is made of them.
#include "geometry/PlainFlattening.h"
#include "support/HostDouble.h"
#include "support/Lists.h"

#include <cmath>
#include <tuple>

using namespace test;

namespace {

CShapeVector Ellipse()
{
    CShapeVector shape = Vector(EVECTOR_ELLIPSE, "");
    shape.SetShapeEllipse({0, 0, 20, 10});
    return shape;
}

TEST(MicroLines, join_sub_paths_and_magnify_250_fold_in_one_generator_alone)
{
    CShapeVector shape =
        Vector(6, "| 3.3,4.7 c10.1,-4 c30,22.2 c40.9,7 50,60 | 50,60 c0.3,0.4 c5,0.6 c7,9 | 1,1 50,60");
    const QPainterPath path = *shape.GetPath(false);
    const auto at = [&path](double factor) { return LinesText(PlainMicroLines(PlainPolygons(path, factor, true))); };
    EXPECT_EQ(LinesText(shape.GenComplextMicroLine()), at(250));
    EXPECT_TRUE(LinesText(shape.GenRectMicroLine()) == at(1) && LinesText(shape.GenLineMicroLine()) == at(1));
}

TEST(MicroLines, of_an_ellipse)
{
    CShapeVector shape = Ellipse();
    TakeLog();
    const std::vector<SHAPE_VECTOR_PATHDATA> lines = shape.GenEllipseMicroLine();
    ASSERT_EQ(lines.size(), 139u);
    // The first quarter at t = 0.03: 20 - 3 t^2 (1 - t) 4.477153 - 10 t^3, 5 + 3 t (1 - t)^2 2.761424 + 3 t^2 (1 - t) 5
    // + 5 t^3
    EXPECT_NEAR(lines[0].ptEnd.x(), 19.988005, 1e-5);
    EXPECT_NEAR(lines[0].ptEnd.y(), 5.247069, 1e-5);
    for (const SHAPE_VECTOR_PATHDATA& line : lines) {
        const QPointF p = line.ptEnd - QPointF(10, 5);
        EXPECT_NEAR(p.x() * p.x() / 100 + p.y() * p.y() / 25, 1.0, 1e-3);
        EXPECT_EQ(line.eType, ELINE_SEGMENT_CURVE);
        EXPECT_EQ(line.ptEnd.x(), static_cast<double>(static_cast<float>(line.ptEnd.x()))) << "single precision";
    }
    EXPECT_EQ(LinesText({lines[34], lines[69], lines[104]}), "1:10,10>10,10 1:0,5>0,5 1:10,0>10,0")
        << "junctions keep their line without length";
    EXPECT_EQ(Point(lines.back().ptEnd), "20,5");

    EXPECT_TRUE(Vector(1, "c1,1 c2,2 c3,3 c4,4 c5,5 c6,6 c7,7 c8,8 c9,9 c10,10 c11,11 c12,12").Flatten(0.01).empty());
    EXPECT_EQ(TakeLog(), "1 microlines size = 140");
}

/// A cubic that single precision cannot hold is left out, and no line crosses the gap.
TEST(MicroLines, of_an_ellipse_with_odd_points)
{
    const std::tuple<size_t, double, size_t, const char*> rows[] = {
        {1, 1e39, 104, " 2:10,10>9"},   // the first of four
        {6, -1e39, 68, " 2:10,0>10"},   // between the second and the third
        {12, NAN, 104, " 1:20,5>19.9"}, // the last
    };
    for (const auto& [place, odd, count, start] : rows) {
        CShapeVector shape = Ellipse();
        std::vector<QPointF> points;
        std::vector<unsigned char> types;
        shape.GetShapePathData(points, types);
        points[place].setX(odd);
        shape.SetShapePoints(points, types);
        const std::vector<SHAPE_VECTOR_PATHDATA> lines = shape.GenEllipseMicroLine();
        EXPECT_EQ(lines.size(), count) << place;
        EXPECT_NE((" " + LinesText(lines)).find(start), std::string::npos) << place;
        for (const SHAPE_VECTOR_PATHDATA& line : lines)
            EXPECT_LT(QLineF(line.ptStart, line.ptEnd).length(), 1) << place;
    }
}

TEST(Flatten, chooses_the_generator_by_the_vector_type)
{
    const std::tuple<int, const char*, const char*> rows[] = {
        {0, "0,0 2,0 2,1 0,1 0,0", "0,0>2,0 2,0>2,1 2,1>0,1 0,1>0,0"},
        {2, "| 0,0 1,0 | 5,5 6,5 7,5", "0,0>1,0 null 5,5>6,5 6,5>7,5"},
        {3, "| 0,0 1,0 | 1,0 6,5", "0,0>1,0 1,0>6,5"},
        {4, "1,1 c2,1 c3,1 c4,1", "1,1>4,1"},
        {6, "| 1,1 4,1 | 7,7 8,8", "1,1>4,1 null 7,7>8,8"}};
    for (const auto& [type, outline, lines] : rows)
        EXPECT_EQ(LinesText(Vector(type, outline).Flatten(0.01)), lines) << type;
}

TEST(Flatten, keeps_the_old_lines_of_cubic_sets_and_unknown_types)
{
    for (int type : {5, 7, -1}) {
        CShapeVector shape = Vector(2, "| 0,0 1,0");
        shape.Flatten(0.01);
        shape.SetVectorType(static_cast<EVECTOR_TYPE>(type));
        SetOutline(shape, "0,0 5,5 9,9 8,8");
        EXPECT_EQ(LinesText(shape.Flatten(0.01)), "0,0>1,0") << type;
    }
}

TEST(Flatten, shows_the_curves_of_polylines_as_finely_as_those_of_free_paths)
{
    CShapeVector shape = Vector(EVECTOR_POLYLINE, "");
    shape.SetShapeEllipse({10, 10, 100, 100});
    SetOutline(shape, Outline(shape).substr(1)); // begins with a straight point
    const std::vector<QLineF> lines = shape.Flatten(0.01);
    for (const QLineF& line : lines) // a chord's sagitta and the cubics' own 0.03 % of the radius
        EXPECT_NEAR(QLineF(line.center(), {60, 60}).length(), 50, 0.02);
    int reach = 1;
    EXPECT_TRUE(shape.Hit({10, 60}, reach) && !shape.Hit({60, 60}, reach));
    EXPECT_EQ(shape.CShape::Flatten(0), lines) << "the lines that the last Hit within made";
}

/// A host's class that leaves no painter path.
struct Pathless : CShapeVector
{
    void UpdatePainterPath() override { DeletePath(this); }
};

TEST(Flatten, of_a_subclass_without_a_path_is_empty)
{
    for (int type = 0; type <= 7; ++type) {
        Pathless shape;
        SetOutline(shape, "0,0 5,0 5,5 0,5");
        shape.SetVectorType(static_cast<EVECTOR_TYPE>(type));
        int reach = 2;
        EXPECT_TRUE(shape.Flatten(0.01).empty() && !shape.Hit({0, 0}, reach)) << type;
        EXPECT_TRUE(shape.GenRectMicroLine().empty() && shape.GenComplextMicroLine().empty()) << type;
    }
}

TEST(Hit, measures_against_the_micro_lines_within_the_rectangle)
{
    const char *const flat = "| 0,0 10,0", *const upright = "| 0,0 0,10", *const square = "0,0 20,0 20,20 0,20 0,0";
    const std::tuple<int, const char*, QPointF, int, bool> rows[] = {
        {2, flat, {0.5, 1.9}, 2, true},
        {2, flat, {9.5, -1.9}, 2, true},
        {2, flat, {5, 2}, 2, false},    // at the tolerance
        {2, flat, {10.5, 0}, 2, false}, // near, but beyond the rectangle, which is widened across the line alone
        {2, upright, {-1.9, 0.5}, 2, true},
        {2, upright, {1.9, 9.5}, 2, true},
        {2, upright, {0, 10.5}, 2, false},
        {6, flat, {5, 1.9}, 2, true}, // as fitting leaves it
        {3, flat, {5, 0}, 2, false},  // not widened
        {0, square, {0, 0}, 1, true}, // at the rectangle's edges
        {0, square, {20, 20}, 1, true},
        {0, square, {10, -0.5}, 1, false},
        {0, square, {10, 10}, 5, false},
        {2, "| -9,-9 9,-9 | -9,9 9,9", {0, 0}, 5, false}, // null lines between sub-paths do not count
        {2, "", {0, 0}, 5, false}};
    for (const auto& [type, outline, point, reach, hit] : rows) {
        int tolerance = reach;
        EXPECT_EQ(Vector(type, outline).Hit(point, tolerance), hit) << type << " " << outline << " " << Point(point);
        EXPECT_EQ(tolerance, reach) << "is not written";
    }
}

/// Asks Flatten for its lines, as a host's class may.
struct Replaced : CShapeVector
{
    std::vector<QLineF> Flatten(double) override
    {
        m_listPathData = {{{0, 0}, {0, 10}, ELINE_SEGMENT_SEPARATOR}};
        return {};
    }
};

TEST(Hit, goes_by_the_lines_of_a_subclass)
{
    Replaced shape;
    shape.SetShapeRect({0, 0, 100, 100});
    int reach = 2;
    EXPECT_TRUE(shape.Hit({1, 5}, reach) && !shape.Hit({50, 99}, reach));
}

} // namespace
