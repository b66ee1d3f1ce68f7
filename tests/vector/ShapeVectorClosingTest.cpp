/// CShapeVector: closed or not, closing, and the fill marker.
#include "support/Lists.h"

#include <functional>
#include <tuple>

using namespace test;

namespace {

TEST(ShapeVectorClosing, every_sub_path_must_end_at_its_start)
{
    for (const char* closed : {"0,0 5,0 0.0000009,0.0000009", "| | 1,1 5,0 1,1 |", "0,0 5,0 5,5 f0,0"})
        EXPECT_TRUE(Vector(EVECTOR_POLYLINE, closed).IsClose()) << closed;
    for (const char* open :
         {"", "0,0 0,0", "0,0 5,0 0.0000011,0", "| 1,1 5,0 1,1 | 5,5 6,5 5,6", "| 1,1 5,0 2,1 | 5,5 6,5 5,5"})
        EXPECT_FALSE(Vector(EVECTOR_POLYLINE, open).IsClose()) << open;
}

TEST(ShapeVectorClosing, closing_appends_the_start)
{
    const std::tuple<const char*, double, bool, const char*, EVECTOR_TYPE, bool> rows[] = {
        {"0,0 5,0 0,0.5", 0.5, false, "0,0 5,0 0,0.5 0,0", EVECTOR_MIXED, true},
        {"0,0 5,0 0,0.6", 0.5, false, "0,0 5,0 0,0.6", EVECTOR_POLYLINE, true},       // only the path is dropped
        {"0,0 5,0 0.4,0.4", 0.45, false, "0,0 5,0 0.4,0.4 0,0", EVECTOR_MIXED, true}, // each axis for itself
        {"0,0 5,0 5,5", 0, true, "0,0 5,0 5,5 f0,0", EVECTOR_MIXED, true},            // filled whatever the distance
        {"| 0,0 9,0 9,9 | 5,5 6,5", 0, true, "| 0,0 9,0 9,9 | 5,5 6,5 f5,5", EVECTOR_MIXED, true}, // the last run
        {"| 0,0 9,0 0,0 | 5,5 6,5 5,5", 0, true, "| 0,0 9,0 0,0 | 5,5 6,5 5,5", EVECTOR_POLYLINE, false},
        {"5,5 5,0 0,0.3 |", 0, true, "5,5 5,0 0,0.3 f5,5 |", EVECTOR_MIXED, true}, // separators are no ends
        {"9,9 5,0 9,9.5 |", 0.5, false, "9,9 5,0 9,9.5 9,9 |", EVECTOR_MIXED, true},
        {"| | |", 0.5, true, "| | |", EVECTOR_POLYLINE, false},
        {"0,0 5,0 0,0", 0.5, true, "0,0 5,0 0,0", EVECTOR_POLYLINE, false},
        {"0,0 0,0.3", 0.5, true, "0,0 0,0.3", EVECTOR_POLYLINE, false},      // too few
        {"0,0 ?5,0 ?5,5", 0, true, "0,0 5,0 5,5 f0,0", EVECTOR_MIXED, true}, // points without a type
    };
    for (const auto& [outline, tolerance, fill, expected, type, drops] : rows) {
        CShapeVector shape = Vector(EVECTOR_POLYLINE, outline);
        shape.SetShapeLine({70, 70}, {80, 80}); // tells the kept path from a built one
        EXPECT_TRUE(shape.Close(tolerance, fill) && shape.GetVectorType() == type) << outline;
        EXPECT_EQ(Outline(shape), expected);
        EXPECT_EQ(PathText(shape) != "M 70,70 L 80,80", drops) << outline;
    }
}

TEST(FillMarker, is_restored_where_it_was_found_last)
{
    CShapeVector shape = Vector(EVECTOR_MIXED, "0,0 f1,1 5,5 f0,0");
    shape.SetShapeLine({70, 70}, {80, 80});
    shape.RestoreFilledShape();
    EXPECT_EQ(Outline(shape), "0,0 f1,1 5,5 f0,0") << "not looked for yet";
    EXPECT_TRUE(shape.IsFilled()) << "the first of several";
    shape.ProcessFilledShape();
    EXPECT_TRUE(Outline(shape) == "0,0 1,1 5,5 0,0" && !shape.IsFilled());
    shape.RestoreFilledShape();
    shape.RestoreFilledShape();
    EXPECT_EQ(Outline(shape) + ": " + PathText(shape), "0,0 5,5 0,0: M 70,70 L 80,80") << "once; the path stays";
    SetOutline(shape, "f0,0 5,5");
    EXPECT_TRUE(shape.IsFilled());
    shape.RestoreFilledShape();
    EXPECT_EQ(Outline(shape), "5,5") << "at the front";
}

/// Found in "| 0,0 5,0 5,5 f0,0", then the outline is changed, then restored.
TEST(FillMarker, place_is_forgotten_when_the_outline_is_replaced_or_moves_with_its_point)
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{0, 0}, {9, 0}, {9, 9}, {0, 9}}));
    CShapeVector other = Vector(EVECTOR_MIXED, "1,1 2,2 3,3 4,4 5,5");
    const std::pair<std::function<void(CShapeVector&)>, const char*> rows[] = {
        {[&](CShapeVector& s) { SetOutline(s, Outline(other)); }, "1,1 2,2 3,3 4,4 5,5"},
        {[&](CShapeVector& s) { s.SetPath(&path); }, "| 0,0 9,0 9,9 0,9"},
        {[&](CShapeVector& s) { s.ConvertPainterPathToLocalShapePoints(path); }, "| 0,0 9,0 9,9 0,9"},
        {[](CShapeVector& s) { s.SetShapeRect(QRectF(0, 0, 2, 1)); }, "0,0 2,0 2,1 0,1 0,0"},
        {[&](CShapeVector& s) { s.Copy(&other); }, "1,1 2,2 3,3 4,4 5,5"},
        {[](CShapeVector& s) { s.Copy(std::make_unique<CShapeVector>(s).get()); }, "| 0,0 5,0 5,5 f0,0"},
        {[](CShapeVector& s) { s.ReverseDir(); }, "f0,0 5,5 5,0 0,0 |"},
        {[](CShapeVector& s) { s.RestoreFilledShape(); }, "| 0,0 5,0 5,5"},
        {[](CShapeVector& s) { s.GetGuideLinePoints(nullptr); }, "0,0 5,0 5,5"}, // the separator goes
        {[](CShapeVector& s) { s = CShapeVector(s); }, "| 0,0 5,0 5,5"},         // assignment takes it over
    };
    for (const auto& [change, outline] : rows) {
        CShapeVector shape = Vector(EVECTOR_MIXED, "| 0,0 5,0 5,5 f0,0");
        EXPECT_TRUE(shape.IsFilled());
        change(shape);
        shape.RestoreFilledShape();
        EXPECT_EQ(Outline(shape), outline);
    }
}

} // namespace
