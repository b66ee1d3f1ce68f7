/// CShapeVector: points into a painter path and back.
#include "support/Outline.h"
#include "vector/ShapeVector.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

#include <tuple>

using namespace test;

namespace {

struct Build
{
    const char* name;
    int type;
    const char *outline, *path;
};

#define TWELVE "c4,0 c4,2 c2,4 c0,4 c-2,4 c-4,2 c-4,0 c-4,-2 c-2,-4 c0,-4 c2,-4 c4,-2"

const Build kBuilds[] = {
    {"rect_uses_four_points", 0, "0,0 9,0 9,5 0,5 7,7", "M 0,0 L 9,0 L 9,5 L 0,5 L 0,0"},
    {"ellipse", 1, TWELVE " c4,0", "M 4,0 C 4,2 2,4 0,4 C -2,4 -4,2 -4,0 C -4,-2 -2,-4 0,-4 C 2,-4 4,-2 4,0"},
    {"ellipse_of_12", 1, TWELVE, ""},
    {"ellipse_of_14", 1, TWELVE " c4,0 c1,1", ""},
    {"polyline_separator_first", 2, "| 1,1 9,0 | 5,5 6,6", "M 1,1 L 9,0 M 5,5 L 6,6"},
    {"polyline_odd_separators", 2, "| | 1,1 9,0 | | 5,5 6,6 |", "M 1,1 L 9,0 M 5,5 L 6,6"},
    {"polyline_draws_every_other_type", 2, "1,1 c2,2 f3,3", "M 1,1 L 2,2 L 3,3"},
    {"polyline_draws_curve_triples", 2, "| 0,0 c0,1 c1,2 c2,2 5,5 | 6,6 c7,7", "M 0,0 C 0,1 1,2 2,2 L 5,5 M 6,6 L 7,7"},
    {"polyline_triples_of_one_run_leave_the_others_alone", 3, "| 0,0 c0,1 c1,2 c2,2 | 5,5 c6,6 | 8,8 9,9",
     "M 0,0 C 0,1 1,2 2,2 M 5,5 L 6,6 M 8,8 L 9,9"},
    {"polyline_triple_turned_round", 2, "c2,2 c1,2 c0,1 0,0 |", "M 2,2 C 1,2 0,1 0,0"},
    {"polyline_triple_that_is_not_finite", 2, "0,0 c1e+101,1 c1,2 c2,2 c3,2 c4,1 c4,0 5,5",
     "M 2,2 C 3,2 4,1 4,0 L 5,5"},
    {"polyline_b_draws_curve_triples", 3, "c0,0 c0,1 c1,2 c2,2", "M 0,0 C 0,1 1,2 2,2"},
    {"polyline_triple_needs_a_start", 2, "| c0,1 c1,2 c2,2 | 5,5 6,6", "M 0,1 L 1,2 L 2,2 M 5,5 L 6,6"},
    {"polyline_closing_marker_is_not_drawn", 2, "| 0,0 9,0 9,9 f0,0 | 5,5 6,6", "M 0,0 L 9,0 L 9,9 M 5,5 L 6,6"},
    {"polyline_closing_marker_turned_round", 2, "f0,0 c9,9 c9,1 c9,0 0,0 |", "M 9,9 C 9,1 9,0 0,0"},
    {"polyline_marker_elsewhere_is_drawn", 2, "0,0 c0,1 c1,2 c2,2 f3,3 4,4", "M 0,0 C 0,1 1,2 2,2 L 3,3 L 4,4"},
    {"polyline_b", 3, "| 1,1 9,0 | 5,5 6,6", "M 1,1 L 9,0 M 5,5 L 6,6"},
    {"polyline_missing_types", 2, "| 1,1 ?2,2", "M 1,1 L 2,2"},
    {"chain", 4, "0,0 c0,1 c1,2 c2,2 c3,2 c4,1 c4,0", "M 0,0 C 0,1 1,2 2,2 C 3,2 4,1 4,0"},
    {"chain_incomplete", 4, "0,0 c0,1 c1,2 c2,2 c3,2 c4,1", "M 0,0 C 0,1 1,2 2,2"},
    {"chain_too_short", 4, "0,0 c0,1 c1,2", "M 0,0"},
    {"set", 5, "0,0 0,1 1,2 2,2 2,2 3,2 4,1 4,0", "M 0,0 C 0,1 1,2 2,2 M 2,2 C 3,2 4,1 4,0"},
    {"set_of_9_draws_the_first", 5, "0,0 0,1 1,2 2,2 2,2 3,2 4,1 4,0 5,5", "M 0,0 C 0,1 1,2 2,2"},
    {"mixed", 6, "| 0,0 9,0 c9,1 c8,2 c7,2 5,5 | 1,1 2,2", "M 0,0 L 9,0 C 9,1 8,2 7,2 L 5,5 M 1,1 L 2,2"},
    {"mixed_fill_marker_is_not_drawn", 6, "0,0 9,0 9,9 f0,0", "M 0,0 L 9,0 L 9,9"},
    {"mixed_fill_marker_starts_nothing", 6, "f0,0 9,0 8,8 | f5,5 6,6 7,7", "M 9,0 L 8,8 M 6,6 L 7,7"},
    {"mixed_curve_point_starts", 6, "c0,0 c1,1 c2,2 c3,3", "M 0,0 C 1,1 2,2 3,3"},
    {"mixed_incomplete_triple", 6, "0,0 9,0 c1,1 c2,2", "M 0,0 L 9,0"},
    {"mixed_triple_runs_over_separator", 6, "0,0 c1,0 |2,7 c3,0 4,0", "M 0,0 C 1,0 2,7 3,0 L 4,0"},
    {"mixed_missing_types", 6, "0,0 ?1,1 ?2,2", "M 0,0 L 1,1 L 2,2"},
    {"unknown_7", 7, "0,0 9,0", ""},
};

TEST(ShapeVectorPath, is_built_as_the_vector_type_says)
{
    for (const Build& row : kBuilds) {
        SCOPED_TRACE(row.name);
        CShapeVector shape;
        shape.SetVectorType(static_cast<EVECTOR_TYPE>(row.type));
        SetOutline(shape, row.outline);
        EXPECT_EQ(PathText(shape), row.path);
        EXPECT_EQ(Outline(shape), row.outline);
        EXPECT_EQ(static_cast<int>(shape.GetVectorType()), row.type);
    }
}

TEST(ShapeVectorPath, lists_too_short_for_their_type_build_nothing_out_of_range)
{
    for (int type = -1; type <= 7; ++type)
        for (int count = 0; count < 16; ++count)
            for (size_t types = 0; types < 16; types += 5) {
                CShapeVector shape;
                shape.SetVectorType(static_cast<EVECTOR_TYPE>(type));
                shape.SetShapePoints(std::vector<QPointF>(count, {3, 4}), std::vector<unsigned char>(types, 1));
                int tolerance = 2;
                EXPECT_LE(shape.GetPath(true)->elementCount(), 16);
                shape.Hit({3, 4}, tolerance);
                shape.IsClose();
                shape.Close(1, true);
            }
}

TEST(ShapeVectorPath, setting_a_path_keeps_its_curves_and_flattens_the_points)
{
    QPainterPath path({3.3, 4.7});
    path.cubicTo(10.1, -4, 30, 22.2, 40.9, 7);
    path.lineTo(50, 60);
    path.addEllipse(QRectF(100, 5, 7, 3));
    CShapeVector shape;
    shape.SetPath(&path);
    EXPECT_EQ(shape.GetVectorType(), EVECTOR_POLYLINE);
    EXPECT_TRUE(*shape.GetPath(false) == path);
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    std::vector<QPointF> expected;
    std::vector<unsigned char> expectedTypes;
    for (const QPolygonF& polygon : FlattenedAt(1000.0, path)) {
        expected.emplace_back(0, 0);
        expected.insert(expected.end(), polygon.begin(), polygon.end());
        expectedTypes.push_back(2);
        expectedTypes.insert(expectedTypes.end(), polygon.size(), 0);
    }
    ASSERT_EQ(points.size(), expected.size());
    for (size_t i = 0; i < points.size(); ++i)
        ASSERT_TRUE(points[i].x() == expected[i].x() && points[i].y() == expected[i].y()) << i;
    EXPECT_EQ(types, expectedTypes);
    EXPECT_GT(points.size(), 500u);
}

TEST(ShapeVectorPath, setting_simple_paths)
{
    CShapeVector shape;
    QPainterPath path;
    path.addRect(1, 2, 4, 3);
    path.moveTo(8, 8);
    path.lineTo(9, 9);
    shape.SetPath(&path);
    EXPECT_EQ(Outline(shape), "| 1,2 5,2 5,5 1,5 1,2 | 8,8 9,9");
    shape.SetPath(nullptr);
    shape.SetPath(shape.GetPath(false));
    EXPECT_EQ(Outline(shape), "| 1,2 5,2 5,5 1,5 1,2 | 8,8 9,9");
    EXPECT_EQ(PathText(shape), PathText(path));
    QPainterPath none;
    shape.SetPath(&none);
    EXPECT_EQ(Outline(shape), "");
    EXPECT_EQ(PathText(shape), "");
}

/// A path with any element types, by the layout of QPainterPath in a data stream.
QPainterPath RawPath(const std::vector<QPainterPath::Element>& elements)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << static_cast<int>(elements.size());
    for (const QPainterPath::Element& element : elements)
        out << static_cast<int>(element.type) << element.x << element.y;
    out << 0 << static_cast<int>(Qt::OddEvenFill);
    QPainterPath path;
    QDataStream in(bytes);
    in >> path;
    return path;
}

TEST(ShapeVectorPath, converting_a_path_keeps_its_elements_as_points)
{
    using Path = QPainterPath;
    Path plain({1, 1});
    plain.lineTo(2, 0);
    plain.cubicTo(3, 1, 4, 2, 5, 0);
    plain.moveTo(7, 7);
    plain.lineTo(8, 8);
    const std::tuple<const char*, Path, const char*> rows[] = {
        {"plain", plain, "| 1,1 2,0 c3,1 c4,2 c5,0 | 7,7 8,8"},
        {"empty", {}, ""},
        {"curve_with_one_data_element",
         RawPath({{1, 1, Path::MoveToElement},
                  {2, 2, Path::CurveToElement},
                  {3, 3, Path::CurveToDataElement},
                  {4, 4, Path::LineToElement}}),
         "| 1,1 4,4"},
        {"curve_cut_off",
         RawPath({{1, 1, Path::MoveToElement}, {2, 2, Path::CurveToElement}, {3, 3, Path::CurveToDataElement}}),
         "| 1,1"},
    };
    for (const auto& [name, source, outline] : rows) {
        CShapeVector shape;
        shape.SetShapeLine({0, 0}, {1, 1});
        Path path = source;
        shape.ConvertPainterPathToLocalShapePoints(path);
        EXPECT_EQ(Outline(shape), outline) << name;
        EXPECT_EQ(shape.GetVectorType(), EVECTOR_MIXED) << name;
        EXPECT_EQ(PathText(shape), "M 0,0 L 1,1") << name << ": the painter path stays";
    }
}

} // namespace
