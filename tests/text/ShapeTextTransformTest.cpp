/// Transforms of the text shape.
#include "geometry/PlaneTransforms.h"
#include "support/Outline.h"
#include "text/MakeText.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <tuple>

using namespace test;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

/// "centre angle flags", flags being those of the glyph mirrors and of the waiting line mirrors.
std::string State(CShapeText& shape)
{
    const SText& text = *shape.GetTextP();
    return Point(text.ptCenter) + " " + Number(text.dAngle) + " " + (text.bMirrorX ? "X" : "") +
           (text.bMirrorY ? "Y" : "") + (text.bMirrorLine ? "l" : "") + (text.bMirrorAttach ? "a" : "");
}

double Farthest(const QPainterPath& a, const QPainterPath& b)
{
    if (a.elementCount() != b.elementCount() || a.isEmpty())
        return kInf;
    double distance = 0;
    for (int i = 0; i < a.elementCount(); ++i)
        distance = std::max(distance, (QPointF(a.elementAt(i)) - QPointF(b.elementAt(i))).manhattanLength());
    return distance;
}

} // namespace

TEST(ShapeTextTransform, angles_stay_within_a_turn)
{
    const std::tuple<double, double, double> rows[] = {{0, -30, 330}, {0, 400, 40},   {0, 360, 360},  {0, -360, 0},
                                                       {10, 0, 10},   {350, 10, 360}, {0, 1080, 360}, {0, -725, 355},
                                                       {360, 0, 360}, {350, 20, 10},  {-30, 0, 330},  {0, 720.5, 0.5}};
    for (const auto& [start, turn, result] : rows) {
        const auto text = TextAt({3, 4}, start);
        EXPECT_TRUE(text->Rotate(turn, {3, 4}, Qt::XAxis));
        EXPECT_NEAR(text->GetTextP()->dAngle, result, 1e-9) << start << " turned by " << turn;
    }
    const auto text = TextAt({3, 4});
    for (const double odd : {kNaN, kInf}) {
        EXPECT_FALSE(text->Rotate(odd, {0, 0}, Qt::ZAxis) || text->Rotate(10, {odd, 0}, Qt::ZAxis));
        EXPECT_FALSE(text->Offset(odd, 0) || text->Resize({0, 0, odd, 1}));
        EXPECT_FALSE(text->MirrorAttachLine(odd, true) || text->MirrorFixedOrMovingLine({0, odd}, {1, 1}, true));
        EXPECT_EQ(State(*text), "3,4 0 ");
    }
    for (const double odd : {-1e-20, 1e300, -1e300}) {
        EXPECT_TRUE(text->Rotate(odd, {3, 4}, Qt::ZAxis));
        EXPECT_TRUE(text->GetTextP()->dAngle >= 0 && text->GetTextP()->dAngle <= 360) << odd;
    }
}

TEST(ShapeTextTransform, turns_move_the_centre)
{
    const auto text = TextAt({10, 20});
    EXPECT_TRUE(text->RotateRight({0, 0}));
    EXPECT_EQ(State(*text), "-20,10 90 ");
    EXPECT_TRUE(text->RotateLeft({0, 0}));
    EXPECT_EQ(State(*text), "10,20 0 ");
    text->Rotate(33, text->GetRect(false).center(), Qt::ZAxis);
    EXPECT_EQ(State(*text), "10,20 33 ");
    const QRectF rect = text->GetRect(false);
    EXPECT_TRUE(text->Offset(1, -2));
    EXPECT_EQ(State(*text) + Rect(text->GetRect(false)), "11,18 33 " + Rect(rect.translated(1, -2)));
}

TEST(ShapeTextTransform, resize_scales_and_centres)
{
    const auto text = TextAt({10, 20});
    const QRectF box = text->GetRect(false);
    EXPECT_TRUE(text->Resize({100, 200, 2 * box.width(), 3 * box.height()}));
    EXPECT_NEAR(text->GetTextP()->dScaleX, 2, 1e-12);
    EXPECT_NEAR(text->GetTextP()->dScaleY, 3, 1e-12);
    EXPECT_EQ(Point(text->GetRect(false).center()), Point({100 + box.width(), 200 + 1.5 * box.height()}));
    EXPECT_TRUE(text->Resize(box));
    EXPECT_NEAR(text->GetTextP()->dScaleX, 1, 1e-12);
    EXPECT_NEAR(text->GetTextP()->dScaleY, 1.5, 1e-12) << "of the height that dScaleX has made";
    // A factor without a finite result stays.
    const auto empty = TextAt({10, 20}, 0, "");
    empty->Resize({0, 0, 50, 60});
    EXPECT_TRUE(empty->GetTextP()->dScaleX == 1 && empty->GetTextP()->dScaleY == 1);
    EXPECT_EQ(State(*empty), "25,30 0 ");
}

TEST(ShapeTextTransform, mirrors_turn_the_glyphs_in_place)
{
    const auto text = TextAt({10, 20});
    const QPainterPath before = *text->GetPath(false);
    EXPECT_TRUE(text->MirrorX(500));
    EXPECT_EQ(State(*text), "10,20 0 X");
    EXPECT_LT(Farthest(*text->GetPath(false), shapes::MirrorAtX(10).map(before)), 1e-9);
    text->MirrorX(-7);
    EXPECT_EQ(State(*text), "10,20 0 ");
    EXPECT_EQ(PathText(*text), PathText(before));
    EXPECT_TRUE(text->MirrorY(kNaN));
    EXPECT_LT(Farthest(*text->GetPath(false), shapes::MirrorAtY(20).map(before)), 1e-9);
}

TEST(ShapeTextTransform, attach_line_mirrors_are_carried_out_once)
{
    const auto text = TextAt({10, 20}, 90);
    const QPainterPath before = *text->GetPath(false);
    EXPECT_TRUE(text->MirrorAttachLine(50, true));
    EXPECT_EQ(State(*text), "10,20 90 a");
    EXPECT_LT(Farthest(*text->GetPath(false), shapes::MirrorAtX(50).map(before)), 1e-9);
    EXPECT_EQ(State(*text), "90,20 -90 X");
    text->MirrorAttachLine(0, false);
    EXPECT_LT(Farthest(*text->GetPath(false), shapes::MirrorAtY(0).map(shapes::MirrorAtX(50).map(before))), 1e-9);
    EXPECT_EQ(State(*text), "90,-20 90 XY");
    text->MirrorAttachLine(0, false);
    text->MirrorAttachLine(3, true);
    text->UpdatePainterPath();
    EXPECT_EQ(State(*text), "90,-20 90 XY") << "a second request takes the first one back";
}

// Angles of a text at 10 degrees. A slope that is forced to 0 or to 45 degrees shows in the sums: t = 45, -45
// or 26.565. Where a mirror image comes out it is that across the line between the points, rounded to whole units.
TEST(ShapeTextTransform, free_line_mirrors_become_flag_and_angle)
{
    const QTransform diagonal(0, 1, 1, 0, 0, 0);
    const std::tuple<const char*, QPointF, QPointF, const char*, std::optional<QTransform>> rows[] = {
        {"down and right", {0, 0}, {100, 100}, "80 Y", diagonal},    // 2 * 45 - 10
        {"up and left", {100, 100}, {0, 0}, "-100 X", diagonal},     // 2 * 45 - 180 - 10
        {"down and left", {100, 0}, {0, 100}, "80 Y", {}},           // -2 * -45 - 10
        {"up and right", {0, 100}, {100, 0}, "260 X", {}},           // 180 - 2 * -45 - 10
        {"flat, down and right", {0, 0}, {2, 1}, "43.130102 Y", {}}, // 2 * 26.565051 - 10
        {"horizontal", {0, 30}, {100, 30}, "-10 Y", shapes::MirrorAtY(30)},
        {"horizontal, backwards", {100, 0}, {0, 0}, "-10 Y", shapes::MirrorAtY(0)},
        {"vertical", {49.6, 0}, {49.6, 7}, "-10 X", shapes::MirrorAtX(50)},
        {"no line", {50, 50}, {50, 50}, "-10 X", {}}};
    for (const auto& [name, from, to, angleAndFlags, mirror] : rows) {
        const auto text = TextAt({10, 20}, 10), upright = TextAt({10, 20});
        const QPainterPath before = *upright->GetPath(false);
        text->MirrorFixedOrMovingLine(from, to, false);
        text->UpdatePainterPath();
        const std::string state = State(*text);
        EXPECT_EQ(state.substr(state.find(' ') + 1), angleAndFlags) << name;
        EXPECT_TRUE(upright->MirrorFixedOrMovingLine(from, to, true));
        EXPECT_TRUE(!mirror || Farthest(*upright->GetPath(false), mirror->map(before)) < 1e-9) << name;
    }
}

TEST(ShapeTextTransform, both_line_mirrors_at_once_attach_line_first_in_the_text_and_its_copy)
{
    const auto text = TextAt({10, 20});
    text->MirrorFixedOrMovingLine({0, 0}, {100, 100}, true);
    text->MirrorAttachLine(50, true);
    CShapeText member(*text), copy;
    EXPECT_EQ(State(member), "10,20 0 ") << "fields alone do not carry them";
    copy.Copy(text.get());
    text->UpdatePainterPath();
    // (10,20) across x = 50 is (90,20), across the diagonal (20,90); X, then Y and 2 * 45 - 0.
    EXPECT_EQ(State(*text) + "; " + State(copy), "20,90 90 XY; 20,90 90 XY");
}
