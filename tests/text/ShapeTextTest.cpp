/// Parameters, copies, units and hits of the text shape.
#include "text/ShapeText.h"
#include "geometry/Geometry.h"
#include "geometry/PlainFlattening.h"
#include "support/HostDouble.h"
#include "support/Outline.h"
#include "text/MakeText.h"
#include "text/OutlineHit.h"
#include "text/TextLayout.h"

#include <QDataStream>
#include <QIODevice>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <new>
#include <tuple>

using namespace test;

namespace {

/// Opens what a drag does.
class DraggedText : public CShapeText
{
public:
    using CShape::SetPathTmp;
};

/// Finds no memory for its outline.
class StarvedText : public CShapeText
{
public:
    void UpdatePainterPath() override { throw std::bad_alloc(); }
};

} // namespace

TEST(ShapeText, starts_with_the_published_defaults)
{
    const SText bare;
    CShapeText shape;
    EXPECT_STREQ(bare.font.szFamily, "Arial");
    EXPECT_EQ(std::pair(bare.font.dSize, shape.GetText().font.dSize), std::pair(14.761, 20.0));
    EXPECT_EQ(std::string(bare.pText, TEXT_BUFFER_SIZE), std::string(TEXT_BUFFER_SIZE, '\0'));
    EXPECT_TRUE(shape.IsClose());
    EXPECT_EQ(shape.MeasureSize(*shape.GetTextP()), QSizeF(-1, -1));
}

TEST(ShapeText, parameters_copy_without_pending_mirrors)
{
    SText source = MakeText("one", "Serif", 7);
    source.bMirrorX = source.bMirrorLine = source.bMirrorAttach = 1;
    source.nReserved = -9;
    const SText fresh(source);
    EXPECT_NE(fresh.pText, source.pText);
    EXPECT_EQ(std::string(fresh.pText) + fresh.font.szFamily + std::to_string(fresh.nReserved), "oneSerif-9");
    EXPECT_TRUE(fresh.bMirrorX && !fresh.bMirrorLine && !fresh.bMirrorAttach);

    SText waiting = MakeText("a longer text");
    waiting.bMirrorLine = waiting.bMirrorAttach = 1;
    const char* buffer = waiting.pText;
    waiting = fresh;
    waiting = static_cast<const SText&>(waiting);
    EXPECT_TRUE(waiting.bMirrorLine && waiting.bMirrorAttach) << "the target's own";
    EXPECT_EQ(waiting.pText, buffer);
    EXPECT_STREQ(waiting.pText, "one");
}

TEST(ShapeText, copies_are_deep_and_refuse_other_classes)
{
    const auto source = TextAt({}, 0, "copy");
    CShapeText copy, assigned;
    source->SetColor(0xFF0000);
    ASSERT_TRUE(copy.Copy(source.get()));
    assigned = *source;
    const std::unique_ptr<CShape> clone(source->Clone());
    for (auto* each : {&copy, &assigned, dynamic_cast<CShapeText*>(clone.get())}) {
        EXPECT_EQ(std::tuple(each->GetShapeType(), each->GetShapeId(), each->GetColor()),
                  std::tuple(ESHAPE_TEXT, source->GetShapeId(), 0xFF0000u));
        EXPECT_EQ(PathText(*each), PathText(*source));
        each->GetTextP()->pText[0] = 'X';
        EXPECT_STREQ(source->GetTextP()->pText, "copy");
    }
    CShapeVector vector;
    EXPECT_FALSE(copy.Copy(&vector) || copy.Copy(nullptr));
    EXPECT_STREQ(copy.GetTextP()->pText, "Xopy");
}

TEST(ShapeText, units_keep_the_outline_and_the_bias_of_half_a_pixel)
{
    const auto shape = TextAt({30, 50}, 0, "mm");
    SText& text = *shape->GetTextP();
    text.dScaleX = 2;
    text.dScaleY = 5;
    shape->UpdatePainterPath();
    const std::string before = PathText(*shape);
    const auto place = [&] { return Rect({text.ptCenter, QSizeF(text.dScaleX, text.dScaleY)}); };
    shape->MmToPix(2.0, {10, 10});
    EXPECT_EQ(place(), "10.49,20.49,1,2.5");
    const std::pair<double, QPointF> unusable[] = {
        {0, {1, 1}}, {-0.0, {}}, {qQNaN(), {}}, {qInf(), {}}, {2, {qQNaN(), 0}}};
    for (const auto& [factor, origin] : unusable) {
        shape->PixToMm(factor, origin);
        shape->MmToPix(factor, origin);
        EXPECT_EQ(place(), "10.49,20.49,1,2.5") << factor;
    }
    shape->PixToMm(2.0, {10, 10});
    EXPECT_EQ(place() + " " + PathText(*shape), "30.98,50.98,2,5 " + before);
}

// Carried out in millimetres, a mirror puts the text where it would have stood had it been carried out before.
TEST(ShapeText, units_convert_the_lines_of_pending_mirrors)
{
    const std::tuple<const char*, void (*)(CShapeText&), const char*> rows[] = {
        // (10,20) mirrored, times 0.1, plus (1,2)
        {"x = 50", [](CShapeText& s) { s.MirrorAttachLine(50, true); }, "10,4"},
        {"y = 33", [](CShapeText& s) { s.MirrorAttachLine(33, false); }, "2,6.6"},
        {"y = 33.4, rounded in pixels",
         [](CShapeText& s) { s.MirrorFixedOrMovingLine(QPointF(0, 33.4), QPointF(90, 33.4), true); }, "2,6.6"},
        {"diagonal", [](CShapeText& s) { s.MirrorFixedOrMovingLine(QPointF(0, 0), QPointF(7, 7), true); }, "3,3"}};
    for (const auto& [name, mirror, centre] : rows) {
        const auto shape = TextAt({10, 20}, 0, "H");
        mirror(*shape);
        shape->PixToMm(0.1, {1, 2});
        shape->MmToPix(0.1, {1, 2});
        shape->PixToMm(0.1, {0.951, 1.951}); // 0.49 pixels less
        shape->UpdatePainterPath();
        EXPECT_EQ(Point(shape->GetTextP()->ptCenter), centre) << name;
    }
}

TEST(ShapeText, outline_is_scaled_by_dScaleX_and_centred)
{
    const auto box = [](double scaleX, double scaleY) {
        const auto shape = TextAt({100, 200}, 0, "HI");
        shape->GetTextP()->dScaleX = scaleX;
        shape->GetTextP()->dScaleY = scaleY;
        shape->UpdatePainterPath();
        return shape->GetRect(false);
    };
    const QRectF plain = box(1, 1);
    EXPECT_EQ(Point(plain.center()), "100,200");
    EXPECT_EQ(Rect(box(1, 3)), Rect(plain));
    EXPECT_EQ(Point({box(3, 1).width(), box(3, 1).height()}), Point({3 * plain.width(), 3 * plain.height()}));
}

TEST(ShapeText, mirrors_turn_the_letters_over)
{
    // The corner of an L that is empty, seen from the middle; y grows downwards.
    const std::tuple<bool, bool, QPointF> rows[] = {
        {false, false, {1, -1}}, {true, false, {-1, -1}}, {false, true, {1, 1}}};
    for (const auto& [mirrorX, mirrorY, empty] : rows) {
        const auto shape = TextAt({}, 0, "L");
        shape->GetTextP()->bMirrorX = mirrorX;
        shape->GetTextP()->bMirrorY = mirrorY;
        shape->UpdatePainterPath();
        const QRectF half = shape->GetRect(false);
        for (const QPointF corner : {QPointF(1, 1), QPointF(1, -1), QPointF(-1, 1), QPointF(-1, -1)}) {
            const QPointF point(corner.x() * 0.49 * half.width(), corner.y() * 0.49 * half.height());
            EXPECT_EQ(shape->GetPath(false)->contains(point), corner != empty) << mirrorX << mirrorY << Point(corner);
        }
    }
}

TEST(ShapeText, a_text_that_draws_nothing_keeps_its_place)
{
    for (const char* letters : {"", "\n\n", "  "}) {
        const auto shape = TextAt({7, 8}, 45, letters);
        shape->MirrorX(0);
        shape->MirrorY(0);
        EXPECT_EQ(PathText(*shape), "M 7,8");
        EXPECT_TRUE(shape->Flatten(0.1).empty());
        EXPECT_TRUE(shape->Rotate(90, {0, 0}, Qt::ZAxis));
        EXPECT_EQ(Point(shape->GetTextP()->ptCenter), "-8,7");
    }
}

TEST(ShapeText, hits_and_containment_ask_the_rectangle)
{
    const auto shape = TextAt({}, 0, "O");
    EXPECT_TRUE(shape->Contains({0, 0}, 1000)) << "the middle of the ring";
    EXPECT_FALSE(shape->Contains({shape->GetRect(false).right() + 0.01, 0}, 0.001));
    int part = 77;
    shape->GetTextP()->ptCenter = {500, 500};
    EXPECT_FALSE(shape->Contains({500, 500}, 1)) << "as it was laid out";
    EXPECT_TRUE(shape->Hit(QPoint(500, 500), part)) << "lays the text out first";
    EXPECT_FALSE(shape->Hit(QPoint(0, 0), part));
    EXPECT_EQ(part, 77);
}

TEST(ShapeText, micro_lines_follow_the_outline_finely)
{
    const auto shape = TextOf(MakeText("lO", "Liberation Sans", 100));
    const auto thousandfold = PlainMicroLines(PlainPolygons(*shape->GetPath(false), 1000, false));
    EXPECT_EQ(shape->Flatten(0.1), PlainLines(thousandfold));
    shape->GetTextP()->dScaleX = 1e308;
    shape->UpdatePainterPath();
    EXPECT_TRUE(shape->Flatten(0.1).empty()) << "beyond finite numbers";
    (void)TakeLog();
    EXPECT_TRUE(StarvedText().Flatten(0.1).empty());
    EXPECT_EQ(TakeLog(), "3 no micro lines of a text: std::bad_alloc");
}

// Every position against the distance to all micro lines.
TEST(ShapeText, hits_are_those_of_the_micro_lines)
{
    SText text = MakeText("S&g\ni8", "Liberation Serif", 60);
    text.dAngle = 20;
    CShapeText shape;
    shape.SetText(text);
    const std::vector<QLineF> lines = shape.Flatten(0.1);
    const QRectF box = shape.GetRect(false);
    int hits[2] = {0, 0};
    for (double y = box.top() - 1; y < box.bottom() + 1; y += 7.3)
        for (double x = box.left() - 1; x < box.right() + 1; x += 5.9) {
            double nearest = 99999; // the distance to nothing, beyond which everything in the box is hit
            for (const QLineF& line : lines)
                if (!line.isNull())
                    nearest = std::min(nearest, shapes::PointSegmentDistance({x, y}, line.p1(), line.p2()));
            for (int tolerance : {0, 1, 5, 100'000}) {
                const bool wanted = box.contains({x, y}) && nearest < tolerance;
                EXPECT_EQ(shape.Hit(QPointF(x, y), tolerance), wanted) << x << ", " << y << " within " << tolerance;
                ++hits[wanted];
            }
        }
    EXPECT_GT(std::min(hits[0], hits[1]), 100);

    // A path of the host that ends within a curve: "M 0,0 L 9,0", then a curve's first point.
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << 3 << 0 << 0.0 << 0.0 << 1 << 9.0 << 0.0 << 2 << 9.0 << 50.0 << 0 << 0;
    QPainterPath cut;
    QDataStream in(bytes);
    in >> cut;
    ASSERT_EQ(cut.elementCount(), 3);
    EXPECT_TRUE(shapes::IsNearOutline(cut, 1000, {4, 0}, 1));
    EXPECT_FALSE(shapes::IsNearOutline(cut, 1000, {9, 50}, 1)) << "no micro line goes there";
}

TEST(ShapeText, glyph_mirrors_map_the_points_of_the_record_along)
{
    CShapeText shape;
    SText text = MakeText("H"), unplaced = MakeText("H");
    text.bMirrorX = 1;
    text.ptCenter = {1000, 1000}; // the points' mirror is that of the layout, before it is put in its place
    const double middle = shapes::TextLayout(unplaced).Outline().boundingRect().center().x();
    for (int round = 0; round < 3; ++round) { // once, however often it is rebuilt; points set anew count as unmirrored
        if (round != 1)
            shape.SetShapePoints({{3, 4}}, ELINE_SEGMENT_STRAIGHT);
        shape.SetText(text);
        EXPECT_EQ(Outline(shape), Point({2 * middle - 3, 4})) << round;
    }
    shape.MirrorX(0);
    shape.UpdatePainterPath();
    EXPECT_EQ(Outline(shape), "3,4");
}

TEST(ShapeText, line_mirrors_wait_while_a_temporary_path_is_shown)
{
    const auto shape = TextAt<DraggedText>({10, 20});
    shape->MirrorAttachLine(50, true);
    shape->SetPathTmp(std::make_unique<QPainterPath>());
    for (const char* centre : {"10,20", "90,20"}) {
        shape->UpdatePainterPath();
        EXPECT_EQ(Point(shape->GetTextP()->ptCenter), centre);
        EXPECT_EQ(shape->GetPathTmp(), nullptr) << "a rebuild ends it";
    }
}
