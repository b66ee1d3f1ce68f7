/// CShapeList: what a transform of the whole list asks of each shape.
#include "support/Lists.h"

#include <functional>
#include <limits>

using namespace test;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN(), kFar = 1e101;

using Transform = std::function<bool(CShapeList&)>;

struct ShapeListTransform : testing::Test
{
    StubShape shape{"s", QRectF(0, 0, 4, 5), ESHAPE_VECTOR}, text{"t", QRectF(10, 20, 4, 6), ESHAPE_TEXT},
        image{"i", QRectF(4, 5, 6, 5), ESHAPE_CODEIMAGE};

    /// What the shapes see of it, behind "refused: " when it returns false.
    static std::string Trace(const View& list, const Transform& transform)
    {
        StubShape::TakeTrace();
        const bool done = transform(*list);
        return (done ? "" : "refused: ") + StubShape::TakeTrace();
    }
    static std::string Fitted(const View& list, QRectF target)
    {
        return Trace(list, [=](auto& l) { return l.Resize(target); });
    }
};

TEST_F(ShapeListTransform, reaches_every_shape_with_the_same_arguments)
{
    const View list = MakeList({&text, nullptr, &shape}), none = MakeList();
    const std::pair<const char*, Transform> rows[] = {
        // quarter turns and attached lines: with groups
        {"refused: ", [](auto& l) { return l.Offset(-9e-7, 9e-7, true); }},
        {"t.Offset(0,-1e-06) s.Offset(0,-1e-06)", [](auto& l) { return l.Offset(0, -1e-6, true); }},
        {"s.Offset(0.5,0)", [](auto& l) { return l.Offset(0.5, 0, false); }}, // texts only when asked
        {"t.Rotate(30,1,2,Y) s.Rotate(30,1,2,Y)", [](auto& l) { return l.Rotate(30, QPointF(1, 2), Qt::YAxis); }},
        {"t.MirrorLine(0,0,1,2,true) s.MirrorLine(0,0,1,2,true)",
         [](auto& l) { return l.MirrorFixedOrMovingLine(QPointF(0, 0), QPointF(1, 2), true); }},
        {"refused: ", [](auto& l) { return l.Offset(kNaN, 0, true) || l.Offset(1, kFar, true) || l.MirrorX(kNaN); }},
        {"refused: ",
         [](auto& l) {
             return l.Rotate(kNaN, {}, Qt::ZAxis) || l.Rotate(1, {kFar, 0}, Qt::ZAxis);
         }},
        {"refused: ", [](auto& l) { return l.RotateLeft(QPointF(kNaN, 0)) || l.RotateRight(QPointF(0, kNaN)); }},
        {"refused: ", [](auto& l) { return l.MirrorY(-kFar) || l.MirrorAttachLine(kNaN, true); }},
        {"refused: ", [](auto& l) { return l.MirrorFixedOrMovingLine(QPointF(kNaN, 0), QPointF(1, 1), true); }},
        {"refused: ", [](auto& l) { return l.MirrorFixedOrMovingLine(QPointF(0, 0), QPointF(1, kFar), true); }},
        {"refused: ", [](auto& l) { return l.Resize(QRectF(5, 5, -1, 20)) || l.Resize(QRectF(5, 5, 20, -1)); }},
    };
    for (const auto& [expected, transform] : rows) {
        EXPECT_EQ(Trace(list, transform), expected);
        EXPECT_EQ(Trace(none, transform), "refused: ");
    }
}

TEST_F(ShapeListTransform, a_turn_builds_the_outlines_of_pictures_anew)
{
    for (const auto& [type, builds] : {std::pair{ESHAPE_IMAGE, 1}, {ESHAPE_CODEIMAGE, 1}, {ESHAPE_VECTOR, 0}}) {
        StubShape turned("turned", {}, type);
        EXPECT_TRUE(MakeList({&turned})->RotateRight({}));
        EXPECT_EQ(turned.builds, builds) << type;
    }
}

TEST_F(ShapeListTransform, mirroring_moves_texts_across_the_axis_unless_alone)
{
    const Transform x = [](auto&l) { return l.MirrorX(5); }, y = [](auto&l) { return l.MirrorY(5); };
    const View alone = MakeList({&text}), list = MakeList({&shape, &text});
    EXPECT_EQ(Trace(alone, x) + " " + Trace(alone, y), "t.MirrorX(5) t.MirrorY(5)");
    // 2 * (5 - 10) - 4 and, from the unmoved rectangle, 2 * (5 - 20) - 6
    EXPECT_EQ(Trace(list, x), "s.MirrorX(5) t.Offset(-14,0) t.MirrorX(5)");
    EXPECT_EQ(Trace(list, y), "s.MirrorY(5) t.Offset(0,-36) t.MirrorY(5)");
    EXPECT_EQ(Trace(MakeList(), x) + Trace(MakeList(), y), "refused: refused: ");
}

TEST_F(ShapeListTransform, fitting_takes_texts_along_only_in_proportion)
{
    text.rect = QRectF(2, 2, 3, 3);
    const View list = MakeList({&shape, &text, &image});
    EXPECT_EQ(Fitted(list, {5, 5, 20, 40}), "s.Offset(5,5) i.Offset(5,5) s.Resize(5,5,8,20) i.Resize(13,25,12,20)");
    EXPECT_EQ(shape.builds - image.builds, 1) << "a vector shape builds its path once more";
    shape.rect = QRectF(0, 0, 4, 5);
    image.rect = QRectF(4, 5, 6, 5);
    EXPECT_EQ(Fitted(list, {5, 5, 20, 20}),
              "s.Offset(5,5) t.Offset(5,5) i.Offset(5,5) s.Resize(5,5,8,10) t.Resize(9,9,6,6) i.Resize(13,15,12,10)");
    // Scales that differ by less than a thousandth agree.
    text.rect = QRectF(0, 0, 10, 10);
    const View alone = MakeList({&text});
    EXPECT_EQ(Fitted(alone, {0, 0, 20, 20.009}), "t.Resize(0,0,20,20.009)");
    EXPECT_EQ(Fitted(alone, {0, 0, 20, 20.011}) + Fitted(MakeList(), {0, 0, 1, 1}), "refused: ");
}

TEST_F(ShapeListTransform, fitting_members_without_extent)
{
    // Setting the left edge keeps the right one: without extent the width turns negative.
    shape.rect = QRectF(2, 0, 0, 10);
    image.rect = QRectF(0, 0, 10, 10);
    const View list = MakeList({&shape, &image}), line = MakeList({&shape});
    EXPECT_EQ(Fitted(list, {5, 5, 20, 40}), "s.Offset(5,5) i.Offset(5,5) s.Resize(9,5,-2,40) i.Resize(5,5,20,40)");
    shape.rect = QRectF(2, 0, 0, 10); // A list without extent on an axis keeps scale 1 there.
    EXPECT_EQ(Fitted(line, {7, 0, 20, 20}), "s.Offset(5,0) s.Resize(7,0,0,20)");
    shape.rect = QRectF(0, 2, 10, 0);
    EXPECT_EQ(Fitted(line, {0, 7, 20, 20}), "s.Offset(0,5) s.Resize(0,7,20,0)");
    shape.rect = QRectF(0, 0, 10, 10); // A target without extent is taken.
    EXPECT_EQ(Fitted(line, {7, 7, 20, 0}), "s.Offset(7,7) s.Resize(7,7,20,0)");
    shape.rect = QRectF(0, 0, 10, 10);
    EXPECT_EQ(Fitted(line, {7, 7, 0, 20}), "s.Offset(7,7) s.Resize(7,7,0,20)");
    // Images are fitted by their outline.
    StubShape picture("p", QRectF(0, 0, 10, 10), ESHAPE_IMAGE);
    SetOutline(picture, "0,0 5,4");
    EXPECT_EQ(Fitted(MakeList({&picture}), {5, 5, 20, 20}), "p.Offset(5,5) p.Resize(5,5,10,8)");
    EXPECT_EQ(picture.builds, 2) << "before and after, not for each look";
}

} // namespace
