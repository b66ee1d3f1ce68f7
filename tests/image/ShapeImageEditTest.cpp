/// Edits of an image shape: what is recorded, and where the outline then lies.
#include "geometry/CornerQuad.h"
#include "image/OperationReplay.h"
#include "image/Pictures.h"
#include "support/Outline.h"
#include "support/ScaleRuler.h"

#include <QLineF>

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

using namespace test;

namespace {

class ShapeImageEdit : public testing::Test
{
protected:
    ShapeImageEdit() { Place(shape, Grey("10203040 50607080"), {0, 0, 40, 20}); }
    /// The corners after a replay, without the closing one.
    std::string Corners()
    {
        shape.UpdatePainterPath();
        const std::string outline = Outline(shape);
        return outline.substr(0, outline.rfind(' '));
    }
    /// Whether the edit drops the picture that is shown, the painter path, or both.
    std::string Dropped(const std::function<bool(CShapeImage&)>& edit)
    {
        shape.GetImage(false);
        EXPECT_TRUE(edit(shape));
        return std::string(stores.cache.Get(&shape) ? "" : "picture") + (shape.GetImageRect().isNull() ? "path" : "");
    }
    Stores stores;
    CShapeImage shape;
};

/// Corners of the rectangle 0,0,40,20 after the operations.
std::string Replayed(const QList<ImageOperation>& operations)
{
    shapes::CornerQuad quad({0, 0, 40, 20});
    shapes::Replay(operations, quad, nullptr);
    const auto& [a, b, c, d] = quad.Corners();
    return Point(a) + " " + Point(b) + " " + Point(c) + " " + Point(d);
}

QVariant Turn(double angle, QPointF centre)
{
    return QVariant::fromValue(SRotate{angle, centre});
}

} // namespace

TEST_F(ShapeImageEdit, move_the_outline_and_outdate_the_picture_or_the_painter_path)
{
    const std::tuple<std::function<bool(CShapeImage&)>, const char*, const char*> rows[] = {
        // one after the other
        {[](CShapeImage&) { return true; }, "", "0,0 40,0 40,20 0,20"},
        {[](CShapeImage& s) { return s.Offset(1, 2); }, "path", "1,2 41,2 41,22 1,22"},
        {[](CShapeImage& s) { return s.MirrorX(10); }, "picture", "19,2 -21,2 -21,22 19,22"},
        {[](CShapeImage& s) { return s.MirrorY(0); }, "picture", "19,-2 -21,-2 -21,-22 19,-22"},
        {[](CShapeImage& s) { return s.Rotate(90, QPointF(), Qt::XAxis); }, "picture", "2,19 2,-21 22,-21 22,19"},
        {[](CShapeImage& s) { return s.RotateLeft(QPointF(12, -1)); }, "picture", "32,9 -8,9 -8,-11 32,-11"},
        {[](CShapeImage& s) { return s.RotateRight(QPointF(12, -1)); }, "picture", "2,19 2,-21 22,-21 22,19"},
        {[](CShapeImage& s) { return s.Resize(QRectF(0, 0, 10, 10)); }, "picture", "0,10 0,0 10,0 10,10"},
        {[](CShapeImage& s) { return s.MirrorAttachLine(10, true); }, "picture", "20,10 20,0 10,0 10,10"},
        {[](CShapeImage& s) { return s.MirrorFixedOrMovingLine(QPointF(), QPointF(1, 1), true); }, "picture",
         "10,20 0,20 0,10 10,10"},
        {[](CShapeImage& s) { return s.UpdateCropImage(QRectF(0, 0, 5, 5), QRectF(3, 4, 5, 6)), true; }, "picture",
         "3,4 8,4 8,10 3,10"},
        {[](CShapeImage& s) { return s.Reverse() && s.Crop(QRectF(0, 0, 1, 1)); }, "", "3,4 8,4 8,10 3,10"},
        {[](CShapeImage& s) { return s.RemoveImageCache(), true; }, "picture", "3,4 8,4 8,10 3,10"},
        {[](CShapeImage& s) { return s.SetOrgRect(QRectF(0, 0, 2, 2), false), true; }, "", "3,4 8,4 8,10 3,10"},
        {[](CShapeImage& s) { return s.SetOrgRect(QRectF(0, 0, 2, 2), true), true; }, "", "0,0 2,0 2,2 0,2"}};
    for (const auto& [edit, dropped, corners] : rows) {
        EXPECT_EQ(Dropped(edit), dropped) << corners;
        EXPECT_EQ(Corners(), corners);
    }
}

/// A merged turn goes about the first centre: the last one lies a little off.
TEST_F(ShapeImageEdit, turns_are_kept_within_a_full_one_and_merged_about_one_centre)
{
    shape.Rotate(40, {0, 0}, Qt::ZAxis);
    shape.Rotate(50, {1e-5, -1e-5}, Qt::ZAxis);
    EXPECT_EQ(Corners(), "0,0 0,40 -20,40 -20,0");
    shape.Rotate(-90, {1.1e-5, 0}, Qt::ZAxis);
    EXPECT_EQ(Corners(), "1.1e-05,1.1e-05 40.000011,1.1e-05 40.000011,20.000011 1.1e-05,20.000011");
    const std::pair<double, double> rows[] = {{-30, 330}, {30, 30}, {361, 1}, {360, 360}, {-360, 0}, {0, 0}};
    for (const auto& [angle, kept] : rows) {
        EXPECT_TRUE(shape.Rotate(angle, {0, 0}, Qt::ZAxis));
        EXPECT_EQ(shape.GetRotateAngle(), kept) << "of the last call alone, " << angle;
    }
    shape.RotateLeft({0, 0});
    EXPECT_EQ(shape.GetRotateAngle(), 270);
}

TEST_F(ShapeImageEdit, refuse_what_is_not_finite_or_empty)
{
    for (const double odd : {qQNaN(), qInf(), 1e300, -1e300})
        EXPECT_FALSE(shape.Offset(odd, 0) || shape.Rotate(1, {odd, 0}, Qt::ZAxis) || shape.MirrorX(odd) ||
                     shape.MirrorY(odd) || shape.Resize({0, 0, odd, 5}))
            << odd;
    EXPECT_FALSE(shape.Rotate(qInf(), {0, 0}, Qt::ZAxis) || shape.Resize({0, 0, 0, 5}) || shape.Resize({0, 0, -5, 5}));
    shape.UpdateCropImage({0, 0, qQNaN(), 5}, {0, 0, 5, 5});
    shape.UpdateCropImage({0, 0, 5, 5}, {0, -qInf(), 5, 5});
    shape.SetOrgRect({0, 0, qInf(), 5}, true);
    shape.MovePos({qQNaN(), 0});
    for (const bool commit : {false, true}) {
        EXPECT_FALSE(shape.MirrorFixedOrMovingLine({3, 3}, {3, 3}, commit));
        EXPECT_FALSE(shape.MirrorFixedOrMovingLine({3, qQNaN()}, {4, 3}, commit));
        EXPECT_FALSE(CShapeImage().MirrorFixedOrMovingLine({0, 0}, {1, 1}, commit)) << "no outline yet";
    }
    EXPECT_EQ(Rect(shape.GetOrgRect()) + ": " + Corners(), "0,0,40,20: 0,0 40,0 40,20 0,20");
    EXPECT_EQ(shape.GetPathTmp(), nullptr);
}

TEST_F(ShapeImageEdit, mirror_across_a_line_becomes_flip_turn_and_move)
{
    EXPECT_TRUE(shape.MirrorFixedOrMovingLine({0, 0}, {1, 1}, false));
    EXPECT_EQ(PathText(*shape.GetPathTmp()), "M 0,0 L 0,40 L 20,40 L 20,0 L 0,0");
    EXPECT_EQ(PathText(shape.GetShapeImagePath()), PathText(*shape.GetPathTmp()));
    EXPECT_EQ(Corners(), "0,0 40,0 40,20 0,20") << "nothing was recorded";
    EXPECT_EQ(shape.GetPathTmp(), nullptr);
    EXPECT_TRUE(shape.MirrorFixedOrMovingLine({0, 0}, {1, 1}, true));
    EXPECT_EQ(Corners(), "0,0 0,40 20,40 20,0");
    shape.MirrorFixedOrMovingLine({0, 10}, {100, 10}, true);
    EXPECT_EQ(Corners(), "0,20 0,-20 20,-20 20,20");
    EXPECT_EQ(shape.GetRotateAngle(), 0) << "no Rotate was called";
    // The move of the mirror and this one are merged, the turn of the mirror with a Rotate is not.
    shape.Offset(1, 0);
    EXPECT_EQ(Corners(), "1,20 1,-20 21,-20 21,20");
}

TEST_F(ShapeImageEdit, move_pos_moves_rectangle_and_outline_but_no_edits)
{
    shape.Rotate(90, {0, 0}, Qt::ZAxis);
    shape.UpdatePainterPath();
    shape.MovePos({120, 110});
    EXPECT_EQ(Rect(shape.GetOrgRect()), "100,100,40,20");
    EXPECT_EQ(Outline(shape), "100,100 100,140 80,140 80,100 100,100");
    EXPECT_EQ(Rect(shape.GetImageRect()), "80,100,20,40") << "the painter path goes along";
    EXPECT_EQ(Corners(), "-100,100 -100,140 -120,140 -120,100") << "the turn is still about 0,0";
}

TEST_F(ShapeImageEdit, hit_contains_and_flatten)
{
    int tolerance = 2;
    EXPECT_TRUE(shape.Hit({20, 10}, tolerance)) << "the rectangle that was set is the painter path";
    shape.Offset(0, 0);
    EXPECT_FALSE(shape.Hit({20, 10}, tolerance)) << "the move dropped it";
    EXPECT_TRUE(shape.Contains({20, 10}, 1) && shape.IsClose());
    EXPECT_TRUE(shape.Hit({-1.9, 10}, tolerance) && !shape.Hit({-2.1, 10}, tolerance));
    EXPECT_EQ(LinesText(shape.Flatten(0)), "0,0>40,0 40,0>40,20 40,20>0,20 0,20>0,0");
    shape.Rotate(45, {20, 10}, Qt::ZAxis);
    shape.UpdatePainterPath();
    EXPECT_TRUE(shape.Contains({0, -9}, 1)) << "the bounds count, not the outline";
    EXPECT_FALSE(shape.Hit({0, -9}, tolerance));
    EXPECT_TRUE(CShapeImage().Flatten(0).empty());
}

/// A line mirror goes to the mirrored place and direction; the pixels' order of corners stays.
TEST(OperationReplay, covers_operations_that_no_edit_records)
{
    const char* const unmoved = "0,0 40,0 40,20 0,20";
    const std::pair<QList<ImageOperation>, const char*> rows[] = {
        {{{EIMAGE_INVERT, true}}, unmoved},
        {{{99, 5.0}, {-1, {}}}, unmoved},
        {{{EIMAGE_MIRROR_LINE, QLineF(50, 0, 50, 10)}}, "100,20 60,20 60,0 100,0"},
        {{{EIMAGE_MIRROR_LINE, QLineF(0, 0, 1, 1)}}, "20,0 20,40 0,40 0,0"},
        {{{EIMAGE_ROTATE, Turn(90, {0, 0})}, {EIMAGE_MIRROR_LINE, QLineF(0, 50, 1, 50)}}, "-20,100 -20,60 0,60 0,100"},
        {{{EIMAGE_MIRROR_LINE, QLineF(5, 5, 5, 5)}}, unmoved}};
    for (const auto& [operations, corners] : rows)
        EXPECT_EQ(Replayed(operations), corners);
    for (int code = EIMAGE_MOVE; code <= EIMAGE_MIRROR_LINE; ++code)
        EXPECT_EQ(Replayed({{code, QStringList{"text"}}, {code, {}}}), unmoved) << "arguments of another type " << code;
    CShapeImage registers;
    EXPECT_EQ(QMetaType::fromName("SRotate"), QMetaType::fromType<SRotate>());
    EXPECT_EQ(QMetaType::fromName("SCut"), QMetaType::fromType<SCut>());
}

/// The ruler: 4 pixels per millimetre, its origin at pixel (100, 200); lengths know no origin.
TEST_F(ShapeImageEdit, changes_units_of_the_edits_only)
{
    const std::pair<std::function<bool(CShapeImage&)>, const char*> rows[] = {
        {[](CShapeImage& s) { return s.Offset(1, -2); }, "4,-8 44,-8 44,12 4,12"},
        {[](CShapeImage& s) { return s.Rotate(90, QPointF(1, 2), Qt::ZAxis); }, "312,104 312,144 292,144 292,104"},
        {[](CShapeImage& s) { return s.MirrorX(5); }, "240,0 200,0 200,20 240,20"},
        {[](CShapeImage& s) { return s.MirrorY(5); }, "0,440 40,440 40,420 0,420"},
        {[](CShapeImage& s) { return s.Reverse(); }, "0,0 40,0 40,20 0,20"},
        {[](CShapeImage& s) { return s.Resize(QRectF(1, 1, 2, 2)); }, "104,204 112,204 112,212 104,212"},
        {[](CShapeImage& s) { return s.UpdateCropImage(QRectF(0, 0, 1, 1), QRectF(2, 2, 3, 3)), true; },
         "108,208 120,208 120,220 108,220"}};
    ScaleRuler ruler;
    for (const auto& [edit, corners] : rows) {
        shape.SetOrgRect({0, 0, 40, 20}, true);
        edit(shape);
        const std::string before = Corners();
        shape.ChangeMM2Pix(&ruler);
        EXPECT_EQ(Rect(shape.GetOrgRect()) + ": " + Corners(), std::string("0,0,40,20: ") + corners);
        shape.ChangePix2MM(&ruler);
        shape.ChangePix2MM(nullptr);
        shape.ChangeMM2Pix(nullptr);
        EXPECT_EQ(Corners(), before);
    }
    shape.ChangeMM2Pix(&ruler);
    EXPECT_TRUE(shape.GetImage(false).empty()) << "the last cut lies outside of the picture now";
}
