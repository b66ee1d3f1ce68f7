/// CShapeVector: micro lines and what is made of them.
#include "geometry/Geometry.h"
#include "geometry/PlainFlattening.h"
#include "support/HostDouble.h"
#include "support/Outline.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <tuple>

using namespace test;

namespace {

CShapeVector Vector(int type, const char* outline)
{
    CShapeVector shape;
    shape.SetVectorType(static_cast<EVECTOR_TYPE>(type));
    SetOutline(shape, outline);
    return shape;
}

TEST(MicroLines, of_polygons)
{
    CShapeVector shape;
    const QList<QPolygonF> polygons = {QPolygonF({{0, 0}, {1, 0}, {1, 1}}), QPolygonF({{5, 5}}), QPolygonF(),
                                       QPolygonF({{7, 7}, {8, 8}})};
    EXPECT_EQ(LinesText(shape.PathPolygons(ELINE_SEGMENT_CURVE, polygons)), "2:0,0>1,0 0:1,0>1,1 2:7,7>8,8");
}

TEST(MicroLines, sub_paths_join_end_to_start_in_order)
{
    const char* const rows[][2] = {
        {"| 0,0 9,0 | 9,0 9,5 | 20,20 30,20", "2:0,0>9,0 0:9,0>9,5 2:20,20>30,20"},
        {"| 9,0 20,0 | 0,0 9,0", "2:9,0>20,0 2:0,0>9,0"}, // never the other way round
        {"| 0,0 9,0 | 5,5 9,0", "2:0,0>9,0 2:5,5>9,0"},   // never reversed
        {"| 0,0 9,0 | 9,0 9,5 | 9,5 0,0", "2:0,0>9,0 0:9,0>9,5 0:9,5>0,0"},
        {"| 0,0 9,0 | 3,3 4,4 | 9,0 9,5", "2:0,0>9,0 2:3,3>4,4 2:9,0>9,5"}, // with the one before only
        {"", ""},
    };
    for (const auto& row : rows) {
        CShapeVector polyline = Vector(2, row[0]);
        EXPECT_EQ(LinesText(polyline.GenLineMicroLine()), row[1]) << row[0];
        EXPECT_EQ(LinesText(polyline.GenRectMicroLine()), row[1]) << row[0];
        CShapeVector mixed = Vector(6, row[0]);
        EXPECT_EQ(LinesText(mixed.GenComplextMicroLine()), row[1]) << row[0];
    }
}

TEST(MicroLines, of_an_ellipse)
{
    CShapeVector shape;
    shape.SetShapeEllipse({0, 0, 20, 10});
    TakeLog();
    const std::vector<SHAPE_VECTOR_PATHDATA> lines = shape.GenEllipseMicroLine();
    EXPECT_EQ(TakeLog(), "1 microlines size = 140");
    ASSERT_EQ(lines.size(), 139u);
    // The first quarter at t = 0.03: 20 - 3 t^2 (1 - t) 4.477153 - 10 t^3, 5 + 3 t (1 - t)^2 2.761424 + 3 t^2 (1 - t) 5 + 5 t^3
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
}

/// A cubic that single precision cannot hold is left out, and no line crosses the gap.
TEST(MicroLines, of_an_ellipse_with_odd_points)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::tuple<size_t, double, size_t, const char*> rows[] = {
        {5, nan, 103, "2:0,5>0"},      // the second of four
        {1, 1e39, 104, "2:10,10>9"},   // the first
        {6, -1e39, 68, "2:10,0>10"},   // between the second and the third
        {12, nan, 104, "1:20,5>19.9"}, // the last
    };
    for (const auto& [place, odd, count, start] : rows) {
        CShapeVector shape;
        shape.SetShapeEllipse({0, 0, 20, 10});
        std::vector<QPointF> points;
        std::vector<unsigned char> types;
        shape.GetShapePathData(points, types);
        points[place].setX(odd);
        shape.SetShapePoints(points, types);
        const std::vector<SHAPE_VECTOR_PATHDATA> lines = shape.GenEllipseMicroLine();
        EXPECT_EQ(lines.size(), count) << place;
        bool found = false;
        for (const SHAPE_VECTOR_PATHDATA& line : lines) {
            EXPECT_LT(std::hypot(line.ptEnd.x() - line.ptStart.x(), line.ptEnd.y() - line.ptStart.y()), 1) << place;
            found |= LinesText({line}).starts_with(start);
        }
        EXPECT_TRUE(found) << place;
    }
}

TEST(MicroLines, of_an_edited_ellipse)
{
    CShapeVector shape = Vector(1, "c1,1 c2,2 c3,3 c4,4 c5,5 c6,6 c7,7 c8,8 c9,9 c10,10 c11,11 c12,12");
    TakeLog();
    EXPECT_TRUE(shape.GenEllipseMicroLine().empty());
    EXPECT_TRUE(shape.Flatten(0.01).empty());
    EXPECT_EQ(TakeLog(), "");
}

TEST(MicroLines, of_curves_are_flattened_at_250_fold)
{
    CShapeVector shape = Vector(6, "| 3.3,4.7 c10.1,-4 c30,22.2 c40.9,7 50,60 | 0.1,0.2 c0.3,0.4 c5,0.6 c7,9");
    const QPainterPath path = *shape.GetPath(false);
    const std::vector<SHAPE_VECTOR_PATHDATA> lines = shape.GenComplextMicroLine();
    size_t i = 0;
    for (const QPolygonF& fine : FlattenedAt(250.0, path))
        for (qsizetype k = 0; k + 1 < fine.size(); ++k, ++i) {
            ASSERT_LT(i, lines.size());
            ASSERT_TRUE(lines[i].ptStart.x() == fine[k].x() && lines[i].ptStart.y() == fine[k].y()) << i;
            ASSERT_TRUE(lines[i].ptEnd.x() == fine[k + 1].x() && lines[i].ptEnd.y() == fine[k + 1].y()) << i;
            ASSERT_EQ(lines[i].eType, k ? 0 : 2) << i;
        }
    EXPECT_EQ(lines.size(), i);
    EXPECT_GT(i, 200u);
}

TEST(Flatten, chooses_the_generator_by_the_vector_type)
{
    const std::tuple<int, const char*, const char*> rows[] = {
        {0, "0,0 2,0 2,1 0,1 0,0", "0,0>2,0 2,0>2,1 2,1>0,1 0,1>0,0"},
        {2, "| 0,0 1,0 | 5,5 6,5 7,5", "0,0>1,0 null 5,5>6,5 6,5>7,5"},
        {3, "| 0,0 1,0 | 1,0 6,5", "0,0>1,0 1,0>6,5"},
        {4, "1,1 c2,1 c3,1 c4,1", "1,1>4,1"},
        {6, "| 1,1 4,1 | 7,7 8,8", "1,1>4,1 null 7,7>8,8"},
    };
    for (const auto& [type, outline, lines] : rows) {
        CShapeVector shape = Vector(type, outline);
        EXPECT_EQ(LinesText(shape.Flatten(0.01)), lines) << type;
    }
    CShapeVector ellipse;
    ellipse.SetVectorType(EVECTOR_ELLIPSE);
    ellipse.SetShapeEllipse({0, 0, 20, 10});
    EXPECT_EQ(ellipse.Flatten(0.01).size(), 139u);
}

TEST(Flatten, shows_the_curves_of_polylines_as_finely_as_those_of_free_paths)
{
    QPainterPath path;
    path.addEllipse(QPointF(60, 60), 50, 50);
    CShapeVector given, typed;
    given.SetPath(&path);
    typed.ConvertPainterPathToLocalShapePoints(path);
    typed.SetVectorType(EVECTOR_POLYLINE);
    for (CShapeVector* shape : {&given, &typed}) {
        int reach = 1;
        const std::string flattened = LinesText(shape->Flatten(0.01));
        EXPECT_EQ(shape->GetVectorType(), EVECTOR_POLYLINE);
        for (const QLineF& line : shape->Flatten(0.01)) // a chord's sagitta and the cubics' own 0.03 % of the radius
            EXPECT_NEAR(std::hypot(line.center().x() - 60, line.center().y() - 60), 50, 0.02);
        EXPECT_FALSE(shape->Hit({60, 60}, reach));
        EXPECT_EQ(LinesText(shape->CShape::Flatten(0)), flattened) << "the lines that the last Hit within made";
        EXPECT_TRUE(shape->Hit({10, 60}, reach));
    }
}

/// A host's class that leaves no painter path.
class Pathless : public CShapeVector
{
public:
    void UpdatePainterPath() override { DeletePath(this); }
};

TEST(Flatten, of_a_subclass_without_a_path_is_empty)
{
    for (int type = 0; type <= 7; ++type) {
        Pathless shape;
        shape.SetShapePoints({{0, 0}, {5, 0}, {5, 5}, {0, 5}}, ELINE_SEGMENT_STRAIGHT);
        shape.SetVectorType(static_cast<EVECTOR_TYPE>(type));
        EXPECT_TRUE(shape.Flatten(0.01).empty()) << type;
        EXPECT_TRUE(shape.GenRectMicroLine().empty() && shape.GenLineMicroLine().empty()) << type;
        EXPECT_TRUE(shape.GenComplextMicroLine().empty()) << type;
        int reach = 2;
        EXPECT_FALSE(shape.Hit({0, 0}, reach)) << type;
    }
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

TEST(Hit, measures_against_the_micro_lines_within_the_rectangle)
{
    const char* const line = "| 0,0 10,0";
    const char* const square = "0,0 20,0 20,20 0,20 0,0";
    const std::tuple<const char*, int, const char*, QPointF, int, bool> rows[] = {
        {"near_flat_polyline", 2, line, {5, 1.9}, 2, true},
        {"at_the_tolerance", 2, line, {5, 2}, 2, false},
        {"beyond_the_flat_polyline", 2, line, {10.5, 0}, 2, false},
        {"near_upright_polyline", 2, "| 0,0 0,10", {-1.9, 5}, 2, true},
        {"beside_upright_polyline", 2, "| 0,0 0,10", {0, -1}, 2, false},
        {"flat_free_path_as_fitting_leaves_it", 6, line, {5, 1.9}, 2, true},
        {"polyline_of_another_kind_is_not_widened", 3, line, {5, 0}, 2, false},
        {"inside_near_the_edge", 0, square, {10, 0.5}, 1, true},
        {"outside_near_the_edge", 0, square, {10, -0.5}, 1, false},
        {"deep_inside", 0, square, {10, 10}, 5, false},
        {"null_lines_between_sub_paths_do_not_count", 2, "| -9,-9 9,-9 | -9,9 9,9", {0, 0}, 5, false},
        {"empty", 2, "", {0, 0}, 5, false},
    };
    for (const auto& [name, type, outline, point, reach, hit] : rows) {
        CShapeVector shape = Vector(type, outline);
        int tolerance = reach;
        EXPECT_EQ(shape.Hit(point, tolerance), hit) << name;
        EXPECT_EQ(tolerance, reach) << name;
    }
}

/// Every distance is worked out and compared, whatever the boxes say.
TEST(Hit, agrees_with_all_the_distances)
{
    std::mt19937 random(5);
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned int>(n + 1)); };
    int hits = 0;
    for (int round = 0; round < 400; ++round) {
        const double size = round % 4 ? 30 : 1e9;
        std::vector<QPointF> points;
        for (int i = 0; i < 12; ++i)
            points.emplace_back(size * upTo(100) / 100, size * upTo(100) / 100);
        CShapeVector shape;
        shape.SetVectorType(round % 3 ? EVECTOR_MIXED : EVECTOR_POLYLINE_B);
        shape.SetShapePoints(points, round % 3 == 1 ? ELINE_SEGMENT_CURVE : ELINE_SEGMENT_STRAIGHT);
        const QPointF p = points[3] + QPointF(upTo(12) - 6, upTo(12) - 6) * (size / 200);
        double nearest = 99999;
        const auto lines = test::PlainMicroLines(test::PlainPolygons(*shape.GetPath(false), round % 3 ? 250 : 1, true));
        for (const SHAPE_VECTOR_PATHDATA& line : lines)
            nearest = std::min(nearest, shapes::PointSegmentDistance(p, line.ptStart, line.ptEnd));
        int reach = std::array{-1, 0, 1, 2, 100'000}[upTo(4)];
        const bool hit = shape.GetRect(false).contains(p) && reach > nearest;
        EXPECT_EQ(shape.Hit(p, reach), hit) << round;
        EXPECT_EQ(LinesText(shape.CShape::Flatten(0)).empty(), !shape.GetRect(false).contains(p)) << "lines made anew";
        hits += hit;
    }
    EXPECT_GT(hits, 40);
}

/// Asks Flatten for its lines, as a host's class may.
class Replaced : public CShapeVector
{
public:
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
    EXPECT_TRUE(shape.Hit({1, 5}, reach));
    EXPECT_FALSE(shape.Hit({50, 99}, reach));
}

} // namespace
