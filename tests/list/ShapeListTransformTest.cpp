/// CShapeList: what a transform of the whole list asks of each shape.
#include "image/ShapeImage.h"
#include "support/HostDouble.h"
#include "support/Lists.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <tuple>

using namespace test;

namespace {

class ShapeListTransform : public testing::Test
{
protected:
    StubShape shape{"s", QRectF(0, 0, 4, 5), ESHAPE_VECTOR};
    StubShape text{"t", QRectF(10, 20, 4, 6), ESHAPE_TEXT};
    StubShape image{"i", QRectF(4, 5, 6, 5), ESHAPE_CODEIMAGE};

    static std::string Trace(bool expected, const View& list, const std::function<bool(CShapeList&)>& transform)
    {
        StubShape::TakeTrace();
        EXPECT_EQ(transform(*list), expected);
        return StubShape::TakeTrace();
    }
};

TEST_F(ShapeListTransform, empty_lists_answer_false)
{
    const View none = MakeList();
    EXPECT_FALSE(none->Offset(1, 1, true) || none->Resize({0, 0, 1, 1}) || none->RotateLeft({0, 0}) ||
                 none->RotateRight({0, 0}) || none->Rotate(1, {0, 0}, Qt::ZAxis) || none->MirrorX(1) ||
                 none->MirrorY(1) || none->MirrorFixedOrMovingLine({0, 0}, {1, 1}, true) ||
                 none->MirrorAttachLine(1, true));
}

TEST_F(ShapeListTransform, moving_leaves_texts_out_unless_asked)
{
    const View list = MakeList({&shape, nullptr, &text});
    EXPECT_EQ(Trace(false, list, [](auto& l) { return l.Offset(-9e-7, 9e-7, true); }), "");
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Offset(0, -1e-6, true); }),
              "s.Offset(0,-1e-06) t.Offset(0,-1e-06)");
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Offset(0.5, 0, false); }), "s.Offset(0.5,0)");
}

TEST_F(ShapeListTransform, turns_and_line_mirrors_reach_every_shape_with_the_same_arguments)
{
    const View list = MakeList({&text, nullptr, &image});
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Rotate(30, QPointF(1, 2), Qt::YAxis); }),
              "t.Rotate(30,1,2,Y) i.Rotate(30,1,2,Y)");
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.RotateLeft(QPointF(1, 2)); }),
              "t.RotateLeft(1,2) t.Rotate(-90,1,2,Z) i.RotateLeft(1,2) i.Rotate(-90,1,2,Z)");
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.RotateRight(QPointF(1, 2)); }),
              "t.RotateRight(1,2) t.Rotate(90,1,2,Z) i.RotateRight(1,2) i.Rotate(90,1,2,Z)");
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.MirrorFixedOrMovingLine(QPointF(0, 0), QPointF(1, 2), true); }),
              "t.MirrorLine(0,0,1,2,true) i.MirrorLine(0,0,1,2,true)");
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.MirrorAttachLine(3, false); }),
              "t.MirrorAttachLine(3,false) t.MirrorY(3) i.MirrorAttachLine(3,false) i.MirrorY(3)");
}

TEST_F(ShapeListTransform, mirroring_moves_texts_across_the_axis_unless_alone)
{
    const View alone = MakeList({&text});
    EXPECT_EQ(Trace(true, alone, [](auto& l) { return l.MirrorX(5); }), "t.MirrorX(5)");
    EXPECT_EQ(Trace(true, alone, [](auto& l) { return l.MirrorY(5); }), "t.MirrorY(5)");
    const View list = MakeList({&shape, &text});
    // 2 * (5 - 10) - 4 and, from the unmoved rectangle, 2 * (5 - 20) - 6
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.MirrorX(5); }), "s.MirrorX(5) t.Offset(-14,0) t.MirrorX(5)");
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.MirrorY(5); }), "s.MirrorY(5) t.Offset(0,-36) t.MirrorY(5)");
}

TEST_F(ShapeListTransform, fitting_takes_texts_along_only_in_proportion)
{
    text.rect = QRectF(2, 2, 3, 3);
    const View list = MakeList({&shape, &text, &image});
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Resize(QRectF(5, 5, 20, 40)); }),
              "s.Offset(5,5) i.Offset(5,5) s.Resize(5,5,8,20) i.Resize(13,25,12,20)");
    EXPECT_EQ(shape.builds - image.builds, 1) << "a vector shape builds its path once more";
    shape.rect = QRectF(0, 0, 4, 5);
    image.rect = QRectF(4, 5, 6, 5);
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Resize(QRectF(5, 5, 20, 20)); }),
              "s.Offset(5,5) t.Offset(5,5) i.Offset(5,5) s.Resize(5,5,8,10) t.Resize(9,9,6,6) i.Resize(13,15,12,10)");
}

TEST_F(ShapeListTransform, scales_agree_below_a_thousandth)
{
    text.rect = QRectF(0, 0, 10, 10);
    const View list = MakeList({&text});
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Resize(QRectF(0, 0, 20, 20.009)); }), "t.Resize(0,0,20,20.009)");
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Resize(QRectF(0, 0, 20, 20.011)); }), "");
}

TEST_F(ShapeListTransform, fitting_members_without_extent)
{
    // Setting the left edge keeps the right one: without extent the width turns negative.
    shape.rect = QRectF(2, 0, 0, 10);
    image.rect = QRectF(0, 0, 10, 10);
    const View list = MakeList({&shape, &image});
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Resize(QRectF(5, 5, 20, 40)); }),
              "s.Offset(5,5) i.Offset(5,5) s.Resize(9,5,-2,40) i.Resize(5,5,20,40)");
    // A list without extent in x keeps scale 1 there.
    shape.rect = QRectF(2, 0, 0, 10);
    const View line = MakeList({&shape});
    EXPECT_EQ(Trace(true, line, [](auto& l) { return l.Resize(QRectF(7, 0, 20, 20)); }),
              "s.Offset(5,0) s.Resize(7,0,0,20)");
}

TEST_F(ShapeListTransform, images_are_fitted_by_their_outline)
{
    StubShape picture("p", QRectF(0, 0, 10, 10), ESHAPE_IMAGE);
    SetOutline(picture, "0,0 5,4");
    const View list = MakeList({&picture});
    EXPECT_EQ(Trace(true, list, [](auto& l) { return l.Resize(QRectF(5, 5, 20, 20)); }),
              "p.Offset(5,5) p.Resize(5,5,10,8)");
}

TEST_F(ShapeListTransform, unusable_targets_change_nothing)
{
    const View list = MakeList({&shape});
    const double kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const QRectF target : {QRectF(5, 5, -1, 20), QRectF(5, 5, 20, -1), QRectF(kNaN, 5, 20, 20)})
        EXPECT_EQ(Trace(false, list, [&](auto& l) { return l.Resize(target); }), "") << Rect(target);
    EXPECT_EQ(Rect(*shape.rect), "0,0,4,5");
}

TEST_F(ShapeListTransform, arguments_that_are_no_numbers_change_nothing)
{
    const double kNaN = std::numeric_limits<double>::quiet_NaN(), kFar = 1e101;
    const std::tuple<const char*, std::function<bool(CShapeList&)>> rows[] = {
        {"Offset", [=](CShapeList& l) { return l.Offset(kNaN, 0, true) || l.Offset(1, kFar, true); }},
        {"RotateLeft",
         [=](CShapeList& l) {
             return l.RotateLeft({kNaN, 0});
         }},
        {"RotateRight",
         [=](CShapeList& l) {
             return l.RotateRight({0, kNaN});
         }},
        {"Rotate",
         [=](CShapeList& l) {
             return l.Rotate(kNaN, {}, Qt::ZAxis) || l.Rotate(1, {kFar, 0}, Qt::ZAxis);
         }},
        {"MirrorX", [=](CShapeList& l) { return l.MirrorX(kNaN) || l.MirrorX(-kFar); }},
        {"MirrorY", [=](CShapeList& l) { return l.MirrorY(kNaN) || l.MirrorY(-kFar); }},
        {"MirrorLine",
         [=](CShapeList& l) {
             return l.MirrorFixedOrMovingLine({kNaN, 0}, {1, 1}, true);
         }},
        {"MirrorLineEnd",
         [=](CShapeList& l) {
             return l.MirrorFixedOrMovingLine({0, 0}, {1, kFar}, true);
         }},
        {"MirrorAttachLine", [=](CShapeList& l) { return l.MirrorAttachLine(kNaN, true); }},
    };
    for (const auto& [name, transform] : rows)
        for (const bool alone : {true, false})
            EXPECT_EQ(Trace(false, alone ? MakeList({&text}) : MakeList({&shape, &text}), transform), "") << name;
    // A picture turned by itself keeps its outline until it is asked for the new one; a refusal does not ask.
    CShapeImage picture;
    picture.SetOrgRect({0, 0, 20, 8}, true);
    picture.Rotate(30, {}, Qt::ZAxis);
    const std::string before = PathText(picture);
    const View list = MakeList({&picture});
    EXPECT_FALSE(list->Resize({0, 0, -1, 5}));
    for (const auto& [name, transform] : rows) {
        EXPECT_FALSE(transform(*list)) << name;
        EXPECT_EQ(PathText(picture), before) << name;
    }
    EXPECT_TRUE(list->Rotate(30, {}, Qt::ZAxis));
    EXPECT_NE(PathText(picture), before);
    TakeLog(); // the picture has no pixels
}

} // namespace
