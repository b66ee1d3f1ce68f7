/// CShapeVector: closed or not, closing, and the fill marker.
#include "support/Outline.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

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

TEST_F(FillMarker, restoring_with_too_few_types_stays_in_range)
{
    EXPECT_TRUE(shape.IsFilled());
    shape.SetShapePoints({{0, 0}, {1, 1}, {2, 2}, {3, 3}}, {0});
    shape.RestoreFilledShape();
    EXPECT_FALSE(shape.IsClose());
}

} // namespace
