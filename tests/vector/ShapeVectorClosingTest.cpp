/// CShapeVector: closed or not, closing, and the fill marker.
#include "support/Outline.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

using namespace test;

namespace {

TEST(ShapeVectorClosing, every_sub_path_must_end_at_its_start)
{
    const std::pair<const char*, bool> rows[] = {
        {"", false},
        {"0,0 0,0", false},
        {"0,0 5,0 0.0000009,0.0000009", true},
        {"0,0 5,0 0.0000011,0", false},
        {"0,0 5,0 0,0.0000011", false},
        {"| 1,1 5,0 1,1 | 5,5 6,5 5,5", true},
        {"| 1,1 5,0 1,1 | 5,5 6,5 5,6", false},
        {"| 1,1 5,0 2,1 | 5,5 6,5 5,5", false},
        {"| | 1,1 5,0 1,1 |", true},
        {"0,0 5,0 5,5 f0,0", true},
    };
    for (const auto& [outline, closed] : rows) {
        CShapeVector shape;
        SetOutline(shape, outline);
        EXPECT_EQ(shape.IsClose(), closed) << outline;
    }
}

TEST(ShapeVectorClosing, closing_appends_the_start)
{
    const std::tuple<const char*, const char*, double, bool, const char*, EVECTOR_TYPE, bool> rows[] = {
        {"at_the_tolerance", "0,0 5,0 0,0.5", 0.5, false, "0,0 5,0 0,0.5 0,0", EVECTOR_MIXED, true},
        {"beyond_drops_the_path_alone", "0,0 5,0 0,0.6", 0.5, false, "0,0 5,0 0,0.6", EVECTOR_POLYLINE, true},
        {"each_axis_for_itself", "0,0 5,0 0.4,0.4", 0.45, false, "0,0 5,0 0.4,0.4 0,0", EVECTOR_MIXED, true},
        {"behind_a_separator", "| 1,1 5,0 1,1.3", 0.5, false, "| 1,1 5,0 1,1.3 1,1", EVECTOR_MIXED, true},
        {"fill_whatever_the_distance", "0,0 5,0 5,5", 0, true, "0,0 5,0 5,5 f0,0", EVECTOR_MIXED, true},
        {"fill_closes_the_last_run", "| 0,0 9,0 9,9 | 50,50 60,50", 0, true, "| 0,0 9,0 9,9 | 50,50 60,50 f50,50",
         EVECTOR_MIXED, true},
        {"fill_of_closed_runs", "| 0,0 9,0 0,0 | 5,5 6,5 5,5", 0, true, "| 0,0 9,0 0,0 | 5,5 6,5 5,5", EVECTOR_POLYLINE,
         false},
        {"before_a_last_separator", "5,5 5,0 0,0.3 |", 0, true, "5,5 5,0 0,0.3 f5,5 |", EVECTOR_MIXED, true},
        {"separators_are_no_ends", "9,9 5,0 9,9.5 |", 0.5, false, "9,9 5,0 9,9.5 9,9 |", EVECTOR_MIXED, true},
        {"nothing_but_separators", "| | |", 0.5, true, "| | |", EVECTOR_POLYLINE, false},
        {"already_closed", "0,0 5,0 0,0", 0.5, true, "0,0 5,0 0,0", EVECTOR_POLYLINE, false},
        {"too_few", "0,0 0,0.3", 0.5, true, "0,0 0,0.3", EVECTOR_POLYLINE, false},
    };
    for (const auto& [name, outline, tolerance, fill, expected, type, drops] : rows) {
        CShapeVector shape;
        shape.SetVectorType(EVECTOR_POLYLINE);
        SetOutline(shape, outline);
        shape.SetShapeLine({70, 70}, {80, 80}); // tells the kept path from a built one
        EXPECT_TRUE(shape.Close(tolerance, fill)) << name;
        EXPECT_EQ(Outline(shape), expected) << name;
        EXPECT_EQ(shape.GetVectorType(), type) << name;
        EXPECT_EQ(PathText(shape) != "M 70,70 L 80,80", drops) << name;
    }
}

class FillMarker : public testing::Test
{
protected:
    CShapeVector shape;

    void SetUp() override
    {
        SetOutline(shape, "0,0 5,0 5,5");
        shape.Close(0, true);
    }
};

TEST_F(FillMarker, is_restored_where_it_was_found_last)
{
    shape.RestoreFilledShape();
    EXPECT_EQ(Outline(shape), "0,0 5,0 5,5 f0,0") << "not looked for yet";
    EXPECT_TRUE(shape.IsFilled());
    shape.SetShapeLine({70, 70}, {80, 80});
    shape.RestoreFilledShape();
    EXPECT_EQ(Outline(shape), "0,0 5,0 5,5");
    EXPECT_EQ(PathText(shape), "M 70,70 L 80,80") << "the painter path stays";
    EXPECT_FALSE(shape.IsFilled());
    shape.RestoreFilledShape();
    EXPECT_EQ(Outline(shape), "0,0 5,0 5,5") << "past the end";

    SetOutline(shape, "0,0 f1,1 5,5 f0,0");
    EXPECT_TRUE(shape.IsFilled()) << "the first of several";
    shape.SetShapeLine({70, 70}, {80, 80});
    shape.ProcessFilledShape();
    EXPECT_EQ(Outline(shape), "0,0 1,1 5,5 0,0");
    EXPECT_EQ(PathText(shape), "M 70,70 L 80,80") << "the painter path stays";
    EXPECT_FALSE(shape.IsFilled());
    shape.RestoreFilledShape();
    EXPECT_EQ(Outline(shape), "0,0 5,5 0,0");
}

TEST_F(FillMarker, place_is_assigned_but_not_copied)
{
    EXPECT_TRUE(shape.IsFilled());
    CShapeVector assigned;
    assigned = shape;
    assigned.RestoreFilledShape();
    EXPECT_EQ(Outline(assigned), "0,0 5,0 5,5");
    CShapeVector copied;
    copied.Copy(&shape);
    copied.RestoreFilledShape();
    EXPECT_EQ(Outline(copied), "0,0 5,0 5,5 f0,0");
}

TEST(FillMarkerPlace, is_forgotten_when_the_outline_is_replaced_or_moves_with_its_point)
{
    QPainterPath path({0, 0});
    path.lineTo(9, 0);
    path.lineTo(9, 9);
    path.lineTo(0, 9);
    CShapeVector other;
    SetOutline(other, "1,1 2,2 3,3 4,4 5,5");
    const std::tuple<const char*, std::function<void(CShapeVector&)>, const char*> rows[] = {
        {"points", [](CShapeVector& shape) { SetOutline(shape, "1,1 2,2 3,3 4,4 5,5"); }, "1,1 2,2 3,3 4,4 5,5"},
        {"points_of_one_type",
         [](CShapeVector& shape) {
             shape.SetShapePoints({{1, 1}, {2, 2}, {3, 3}, {4, 4}}, ELINE_SEGMENT_STRAIGHT);
         },
         "1,1 2,2 3,3 4,4"},
        {"path", [&](CShapeVector& shape) { shape.SetPath(&path); }, "| 0,0 9,0 9,9 0,9"},
        {"converted", [&](CShapeVector& shape) { shape.ConvertPainterPathToLocalShapePoints(path); },
         "| 0,0 9,0 9,9 0,9"},
        {"rectangle",
         [](CShapeVector& shape) {
             shape.SetShapeRect({0, 0, 2, 1});
         },
         "0,0 2,0 2,1 0,1 0,0"},
        {"copy", [&](CShapeVector& shape) { shape.Copy(&other); }, "1,1 2,2 3,3 4,4 5,5"},
        {"reversed", [](CShapeVector& shape) { shape.ReverseDir(); }, "f0,0 5,5 5,0 0,0 |"},
        {"restored", [](CShapeVector& shape) { shape.RestoreFilledShape(); }, "| 0,0 5,0 5,5"},
        {"separator_gone", [](CShapeVector& shape) { shape.GetGuideLinePoints(nullptr); }, "0,0 5,0 5,5"},
    };
    for (const auto& [name, change, outline] : rows) {
        CShapeVector shape;
        SetOutline(shape, "| 0,0 5,0 5,5");
        shape.Close(0, true);
        EXPECT_TRUE(shape.IsFilled()) << name;
        change(shape);
        shape.RestoreFilledShape();
        EXPECT_EQ(Outline(shape), outline) << name;
    }
}

} // namespace
