/// CShapeVector: points into a painter path and back.
#include "geometry/PlainFlattening.h"
#include "support/Lists.h"
#include "vector/OutlinePath.h"

#include <tuple>

using namespace test;

namespace {

#define TWELVE "c4,0 c4,2 c2,4 c0,4 c-2,4 c-4,2 c-4,0 c-4,-2 c-2,-4 c0,-4 c2,-4 c4,-2"

/// The vector type, the outline and the painter path that it gets.
const std::tuple<int, const char*, const char*> kBuilds[] = {
    {0, "0,0 9,0 9,5 0,5 7,7", "M 0,0 L 9,0 L 9,5 L 0,5 L 0,0"}, // four points count
    {1, TWELVE " c4,0", "M 4,0 C 4,2 2,4 0,4 C -2,4 -4,2 -4,0 C -4,-2 -2,-4 0,-4 C 2,-4 4,-2 4,0"},
    {2, "| | 1,1 9,0 | | 5,5 6,6 |", "M 1,1 L 9,0 M 5,5 L 6,6"},
    {2, "1,1 c2,2 f3,3", "M 1,1 L 2,2 L 3,3"}, // every other type is drawn as a line
    {2, "| 0,0 c0,1 c1,2 c2,2 5,5 | 6,6 c7,7", "M 0,0 C 0,1 1,2 2,2 L 5,5 M 6,6 L 7,7"},
    {2, "c2,2 c1,2 c0,1 0,0 |", "M 2,2 C 1,2 0,1 0,0"}, // turned round
    {2, "0,0 c1e+101,1 c1,2 c2,2 c3,2 c4,1 c4,0 5,5", "M 2,2 C 3,2 4,1 4,0 L 5,5"},
    {2, "| c0,1 c1,2 c2,2 | 5,5 6,6", "M 0,1 L 1,2 L 2,2 M 5,5 L 6,6"},    // a triple needs a start
    {2, "f0,0 c9,9 c9,1 c9,0 0,0 |", "M 9,9 C 9,1 9,0 0,0"},               // a closing marker, turned round
    {2, "0,0 c0,1 c1,2 c2,2 f3,3 4,4", "M 0,0 C 0,1 1,2 2,2 L 3,3 L 4,4"}, // a marker elsewhere is drawn
    {4, "0,0 c0,1 c1,2 c2,2 c3,2 c4,1 c4,0", "M 0,0 C 0,1 1,2 2,2 C 3,2 4,1 4,0"},
    {4, "0,0 c0,1 c1,2 c2,2 c3,2 c4,1", "M 0,0 C 0,1 1,2 2,2"},
    {5, "0,0 0,1 1,2 2,2 2,2 3,2 4,1 4,0", "M 0,0 C 0,1 1,2 2,2 M 2,2 C 3,2 4,1 4,0"},
    {5, "0,0 0,1 1,2 2,2 2,2 3,2 4,1 4,0 5,5", "M 0,0 C 0,1 1,2 2,2"}, // 9 points: the first cubic alone
    {6, "| 0,0 9,0 c9,1 c8,2 c7,2 5,5 | 1,1 2,2", "M 0,0 L 9,0 C 9,1 8,2 7,2 L 5,5 M 1,1 L 2,2"},
    {6, "f0,0 9,0 8,8 | f5,5 6,6 7,7", "M 9,0 L 8,8 M 6,6 L 7,7"}, // fill markers start nothing
    {6, "0,0 9,0 c1,1 c2,2", "M 0,0 L 9,0"},
    {6, "0,0 c1,0 |2,7 c3,0 4,0", "M 0,0 C 1,0 2,7 3,0 L 4,0"}, // over the separator
    {3, "inf,0 0,0 1,0 2,0 3,0 4,0 nan,1 6,6 7,7 | 8,0 9,0", "M 0,0 L 1,0 L 2,0 L 3,0 L 4,0 M 6,6 L 7,7 M 8,0 L 9,0"},
    {6, "0,0 1,0 c2,0 c1e+101,0 c4,0 5,0 6,0", "M 0,0 L 1,0 M 5,0 L 6,0"},
    {6, "0,0 1,0 2,0 3,0 4,0 c5,0 c5,1 c5,2 7,7 9,9", "M 0,0 L 1,0 L 2,0 L 3,0 L 4,0 C 5,0 5,1 5,2 L 7,7 L 9,9"},
    {6, "0,0 ?1,1 ?2,2", "M 0,0 L 1,1 L 2,2"},
    {2, "0,0 1,1 +2", "M 0,0 L 1,1"},
    {7, "0,0 9,0", ""}};

TEST(ShapeVectorPath, is_built_as_the_vector_type_says)
{
    for (const auto& [type, outline, path] : kBuilds) {
        CShapeVector shape = Vector(type, outline);
        EXPECT_EQ(PathText(shape), path);
        EXPECT_EQ(std::to_string(shape.GetVectorType()) + " " + Outline(shape), std::to_string(type) + " " + outline);
    }
}

/// Curve points that belong to no triple, and the types with which a polyline's points are drawn as they were.
TEST(OutlineTypes, tell_curves_from_what_polylines_draw_as_lines)
{
    const std::tuple<const char*, bool, const char*> rows[] = {
        {"0,0 c1,1 c2,2 c3,3 4,4", false, "0,0 c1,1 c2,2 c3,3 4,4"},
        {"c0,0 1,1 2,2", false, "0,0 1,1 2,2"}, // a run may start with one
        {"0,0 c1,1 2,2 | 5,5 6,6", true, "0,0 1,1 2,2 | 5,5 6,6"},
        {"0,0 c1,1 c2,2 3,3 c4,4", true, "0,0 c1,1 c2,2 c3,3 4,4"},
        {"0,0 c1,1 c2,2 f3,3 | 0,0 f1,1 f0,0", true, "0,0 1,1 2,2 3,3 | 0,0 1,1 f0,0"}};
    for (const auto& [outline, stray, drawn] : rows) {
        CShapeVector shape = Vector(EVECTOR_POLYLINE, outline);
        std::vector<QPointF> points;
        std::vector<unsigned char> types;
        shape.GetShapePathData(points, types);
        EXPECT_EQ(shapes::HoldsStrayCurves({points, types}), stray) << outline;
        shapes::TypeAsDrawn(points, types);
        shape.SetShapePoints(points, types);
        EXPECT_EQ(Outline(shape), drawn);
    }
}

TEST(ShapeVectorPath, setting_a_path_keeps_its_curves_and_flattens_the_points)
{
    QPainterPath path({3.3, 4.7}), none;
    path.cubicTo(10.1, -4, 30, 22.2, 40.9, 7);
    path.lineTo(50, 60);
    path.addEllipse(QRectF(100, 5, 7, 3));
    CShapeVector shape;
    shape.SetPath(&path);
    EXPECT_TRUE(shape.GetVectorType() == EVECTOR_POLYLINE && *shape.GetPath(false) == path);
    std::string outline;
    for (const QPolygonF& polygon : PlainPolygons(path, 1000, false)) {
        outline += outline.empty() ? "|" : " |";
        for (const QPointF point : polygon)
            outline += " " + Point(point);
    }
    EXPECT_GT(outline.size(), 5'000u);
    EXPECT_EQ(Outline(shape), outline);
    shape.SetPath(nullptr);
    shape.SetPath(shape.GetPath(false));
    EXPECT_EQ(PathText(shape), PathText(path));
    shape.SetPath(&none);
    EXPECT_EQ(Outline(shape) + PathText(shape), "");
}

TEST(ShapeVectorPath, converting_a_path_keeps_its_elements_as_points)
{
    QPainterPath path({1, 1});
    path.lineTo(2, 0);
    path.cubicTo(3, 1, 4, 2, 5, 0);
    path.moveTo(7, 7);
    path.lineTo(8, 8);
    CShapeVector shape;
    shape.SetShapeLine({0, 0}, {1, 1});
    shape.ConvertPainterPathToLocalShapePoints(path);
    EXPECT_EQ(std::to_string(shape.GetVectorType()) + Outline(shape), "6| 1,1 2,0 c3,1 c4,2 c5,0 | 7,7 8,8");
    EXPECT_EQ(PathText(shape), "M 0,0 L 1,1") << "the painter path stays";
}

} // namespace
