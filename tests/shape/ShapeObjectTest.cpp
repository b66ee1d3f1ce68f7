/// CShape: status, identity, outline, painter path and copies.
#include "geometry/OutlineParts.h"
#include "support/Lists.h"

#include <tuple>

using namespace test;

namespace {

TEST(ShapeStatus, bits_are_set_by_or_and_cleared_by_subtraction)
{
    const std::tuple<const char*, void (*)(CShape&), unsigned int> rows[] = {
        {"all_set", [](CShape& s) { s.Select(true), s.Lock(true), s.Hide(true), s.SetGroup(true), s.Lock(true); }, 0xF},
        {"clear_unset", [](CShape& s) { s.Select(false), s.Lock(false), s.Hide(false); }, 0},
        {"clear_set", [](CShape& s) { s.Lock(true), s.Hide(true), s.Select(true), s.Lock(false), s.Hide(false); }, 1},
        {"ungroup_unselected_keeps_bit", [](CShape& s) { s.SetGroup(true), s.SetGroup(false); }, 0x8},
        {"ungroup_selected", [](CShape& s) { s.Select(true), s.SetGroup(true), s.SetGroup(false); }, 0x1},
        {"ungroup_selected_not_grouped_borrows", [](CShape& s) { s.Select(true), s.SetGroup(false); }, 0xFFFFFFF9}};
    for (const auto& [name, edit, status] : rows) {
        StubShape shape;
        edit(shape);
        EXPECT_EQ(shape.GetStatus(), status) << name;
    }
    StubShape shape;
    shape.selected = true; // the clearing operations ask the virtual IsSelect
    shape.Select(false);
    EXPECT_EQ(shape.GetStatus(), 0xFFFFFFFFu);
    shape.SetGroup(false);
    EXPECT_TRUE(shape.GetStatus() == 0xFFFFFFF7 && shape.IsLock() && shape.IsHide() && !shape.IsGroup());
}

TEST(ShapeIdentity, every_copy_keeps_the_number_and_only_construction_draws_one)
{
    CShapeVector source;
    const CShapeVector copy(source);
    CShapeVector assigned;
    EXPECT_EQ(assigned.GetShapeId(), source.GetShapeId() + 1) << "the copy constructor drew a number";
    assigned = copy;
    EXPECT_EQ(assigned.GetShapeId(), source.GetShapeId());
}

TEST(ShapeVectorTypeOfBase, integers_are_limited_and_enumerators_are_not)
{
    StubShape shape;
    for (const auto& [type, taken] : {std::pair{1, 1}, {-1, 0}, {3, 3}, {4, 0}}) {
        shape.SetShapeVectorType(type);
        EXPECT_EQ(shape.GetShapeVectorType(), taken) << type;
    }
    shape.SetShapeVectorType(static_cast<ESHAPE_VECTOR_TYPE>(7));
    EXPECT_EQ(static_cast<int>(shape.GetShapeVectorType()), 7);
}

TEST(ShapeOutline, validity_closing_and_ends)
{
    const std::tuple<const char*, bool, bool, const char*> rows[] = {
        {"", false, false, "77,77 88,88"}, // the ends stay as they were
        {"0,0 ?10,0", false, false, "0,0 10,0"},
        {"?3,3 ?3,3", false, true, "3,3 3,3"},
        {"0,0 1,1 +0", false, false, "0,0 1,1"},
        {"0,0 10,0 0,0.0000005", true, true, "0,0 0,1e-06"},
        {"0,0 10,0 0.00001,0", true, false, "0,0 1e-05,0"},
        {"|5,5 0,0 10,0 0,0", true, true, "0,0 0,0"},
        {"|0,0 1,1 10,0 0,0", true, false, "1,1 0,0"}};
    for (const auto& [outline, valid, closed, ends] : rows) {
        StubShape shape = Outlined(outline);
        EXPECT_TRUE(shape.IsValid() == valid && shape.IsClose() == closed) << outline;
        QPointF in(77, 77), out(88, 88);
        shape.GetInAndOutPoint(in, out);
        EXPECT_EQ(Point(in) + " " + Point(out), ends) << outline;
    }
}

TEST(ShapeOutline, reversing_turns_both_lists_and_keeps_the_painter_path)
{
    StubShape shape = Outlined("0,0 c1,1 ?2,2");
    shape.GetPath(false);
    shape.ReverseDir();
    EXPECT_EQ(Outline(shape) + "; " + PathText(shape), "c2,2 1,1 ?0,0; M 0,0 L 1,1 L 2,2");
}

TEST(ShapeOutline, may_be_set_from_the_shapes_own_lists)
{
    StubShape shape = Outlined("1,1 c2,2 |3,3");
    shape.SetShapePoints(shape.m_listPoints, shape.m_listTypes);
    EXPECT_EQ(Outline(shape), "1,1 c2,2 |3,3");
    shape.SetShapePoints(shape.m_listPoints, ELINE_SEGMENT_FILL);
    EXPECT_EQ(Outline(shape), "f1,1 f2,2 f3,3");
}

/// Opens what classes do with their paths.
struct OpenStub : StubShape
{
    using CShape::BuildDeferredPath;
    using CShape::DeferPathRebuild;
    using CShape::SetPathParts;
    using CShape::SetPathTmp;
};

TEST(PainterPath, is_built_when_absent_asked_for_or_waiting)
{
    OpenStub shape = Outlined<OpenStub>("0,0 10,0 10,5");
    EXPECT_EQ(PathText(shape) + ", " + PathText(shape), "M 0,0 L 10,0 L 10,5, M 0,0 L 10,0 L 10,5");
    EXPECT_EQ(shape.builds, 1);
    shape.GetPath(true);
    EXPECT_EQ(shape.builds, 2);
    CShape::DeletePath(&shape);
    shape.BuildDeferredPath();
    EXPECT_EQ(shape.builds, 2) << "absent, but nobody has let it wait";
    shape.DeferPathRebuild();
    shape.BuildDeferredPath();
    shape.BuildDeferredPath();
    EXPECT_EQ(shape.builds, 3);
    shape.SetShapePoints({{1, 1}, {2, 2}}, ELINE_SEGMENT_STRAIGHT);
    EXPECT_EQ(PathText(shape), "M 1,1 L 2,2");
    SetOutline(shape, "1,1 3,3");
    EXPECT_EQ(PathText(shape), "M 1,1 L 3,3");
}

TEST(PainterPath, is_set_by_value_even_from_itself)
{
    StubShape shape = Outlined("0,0 10,0");
    QPainterPath path({5, 5});
    shape.SetPath(&path);
    path.lineTo(7, 7);
    shape.SetPath(shape.GetPath(false));
    shape.SetPath(nullptr);
    EXPECT_EQ(PathText(shape) + "; " + Outline(shape), "M 5,5; 0,0 10,0");
    EXPECT_EQ(shape.builds, 0);
}

TEST(PainterPath, stays_with_the_host_when_empty_at_destruction)
{
    const std::unique_ptr<QPainterPath> kept(std::make_unique<StubShape>()->GetPath(false));
    EXPECT_TRUE(kept->isEmpty());
}

TEST(PainterPath, of_a_drag_looks_at_the_rectangle_first)
{
    OpenStub shape;
    shape.InitPathTmp();
    shape.SetPathTmp(std::make_unique<QPainterPath>());
    shape.InitPathTmp();
    EXPECT_EQ(shape.rectFlags, std::vector<bool>{false}) << "not again when one is shown already";
    shape.ExitPathTmp();
    EXPECT_EQ(shape.GetPathTmp(), nullptr);
}

TEST(ShapeCopy, takes_everything_but_the_temporaries_after_the_source_built_its_path)
{
    StubShape source = Outlined("9,9 8,8"), copy;
    source.outlineFromBuild = "0,0 c10,0 10,5"; // building may replace the points
    source.SetColor(0xABCDEF);
    source.Select(true);
    source.Hide(true);
    source.SetGuideLine({2, 0, 1.5, 0, 2.5});
    source.SetShapeVectorType(ESHAPE_VECTOR_3);
    source.m_listPathData = {{{0, 0}, {1, 0}, ELINE_SEGMENT_SEPARATOR}};
    source.SetShapeTmp(&source);
    EXPECT_TRUE(copy.Copy(&source) && !copy.Copy(nullptr) && copy.Copy(&copy));
    EXPECT_EQ(StreamOf(copy), StreamOf(source)) << "status, colour, guide line and outline";
    EXPECT_TRUE(copy.GetShapeVectorType() == ESHAPE_VECTOR_3 && copy.GetShapeId() == source.GetShapeId());
    EXPECT_TRUE(!copy.GetShapeTmp() && copy.builds == 0);
    EXPECT_EQ(Outline(copy) + "; " + PathText(copy) + "; " + LinesText(copy.m_listPathData),
              "0,0 c10,0 10,5; M 0,0 L 10,0 L 10,5; 2:0,0>1,0");
}

TEST(ShapeCopy, builds_the_sources_path_before_it_looks_at_its_own)
{
    OpenStub source = Outlined<OpenStub>("0,0 10,0"), copy = Outlined<OpenStub>("5,5 6,6"), joined;
    OpenStub pathless = Outlined<OpenStub>("1,1 2,2");
    copy.GetPath(false);
    source.within = [&copy] { CShape::DeletePath(&copy); };
    EXPECT_TRUE(copy.Copy(&source));
    EXPECT_EQ(PathText(copy), "M 0,0 L 10,0");

    pathless.buildsPath = false;
    EXPECT_TRUE(copy.Copy(&pathless));
    EXPECT_EQ(Outline(copy) + "; " + PathText(copy), "1,1 2,2; ") << "the path of other points is gone";

    const auto parts = std::make_shared<shapes::OutlineParts>();
    parts->Add(*source.GetPath(false));
    joined.SetPathParts(parts);
    EXPECT_TRUE(copy.Copy(&joined));
    EXPECT_EQ(PathText(copy) + "; " + PathText(joined), "M 0,0 L 10,0; M 0,0 L 10,0");
    copy.SetPathParts(parts);
    EXPECT_TRUE(copy.Copy(&pathless) && PathText(copy).empty()) << "parts are dropped like any path";
}

TEST(ShapeCopy, member_wise_copies_share_no_path)
{
    StubShape source = Outlined("0,0 10,0"), assigned;
    const QPainterPath* path = source.GetPath(false);
    StubShape copy(source);
    assigned.GetPath(false);
    assigned = source;
    for (StubShape* other : {&copy, &assigned}) {
        EXPECT_NE(other->GetPath(false), path);
        EXPECT_EQ(PathText(*other), "M 0,0 L 10,0");
    }
    StubShape& alias = source;
    source = alias;
    EXPECT_EQ(Outline(source) + ": " + PathText(source), "0,0 10,0: M 0,0 L 10,0");
}

} // namespace
