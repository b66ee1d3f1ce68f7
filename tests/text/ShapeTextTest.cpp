/// Parameters, copies, units and hits of the text shape.
#include "text/ShapeText.h"
#include "geometry/Geometry.h"
#include "geometry/PathFlattening.h"
#include "support/HostDouble.h"
#include "support/Outline.h"
#include "text/MakeText.h"
#include "text/OutlineHit.h"

#include <QDataStream>
#include <QIODevice>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

using namespace test;

namespace {

/// Lets a test put up a temporary path, as a drag does.
class DraggedText : public CShapeText
{
public:
    using CShape::m_listPoints;
    using CShape::SetPathTmp;
};

std::ptrdiff_t Slot(bool (CShapeText::*member)(QPoint, int&))
{
    std::ptrdiff_t word = 0;
    std::memcpy(&word, &member, sizeof word);
    return (word - 1) / 8;
}

} // namespace

TEST(ShapeText, starts_with_the_published_defaults)
{
    const SText bare;
    EXPECT_STREQ(bare.font.szFamily, "Arial");
    EXPECT_EQ(bare.font.dSize, 14.761);
    EXPECT_EQ(std::string(bare.pText, TEXT_BUFFER_SIZE), std::string(TEXT_BUFFER_SIZE, '\0'));

    CShapeText shape;
    EXPECT_EQ(shape.GetText().font.dSize, 20.0);
    EXPECT_TRUE(shape.IsClose());
    EXPECT_EQ(shape.MeasureSize(*shape.GetTextP()), QSizeF(-1, -1));
    EXPECT_EQ(Slot(&CShapeText::Hit), 32) << "behind UpdatePainterPath, the last of the base";
}

TEST(ShapeText, parameters_copy_without_pending_mirrors)
{
    SText source = MakeText("one", "Serif", 7);
    source.bMirrorX = source.bMirrorLine = source.bMirrorAttach = 1;
    source.nReserved = -9;
    const SText fresh(source);
    EXPECT_STREQ(fresh.pText, "one");
    EXPECT_NE(fresh.pText, source.pText);
    EXPECT_STREQ(fresh.font.szFamily, "Serif");
    EXPECT_EQ(fresh.nReserved, -9);
    EXPECT_TRUE(fresh.bMirrorX && !fresh.bMirrorLine && !fresh.bMirrorAttach);

    SText waiting = MakeText("a longer text");
    waiting.bMirrorLine = waiting.bMirrorAttach = 1;
    const char* buffer = waiting.pText;
    waiting = fresh;
    EXPECT_TRUE(waiting.bMirrorLine && waiting.bMirrorAttach) << "the target's own";
    EXPECT_EQ(waiting.pText, buffer);
    EXPECT_STREQ(waiting.pText, "one");
    const SText& self = waiting;
    waiting = self;
    EXPECT_STREQ(waiting.pText, "one");

    std::memset(source.pText, 'x', TEXT_BUFFER_SIZE);
    waiting = source;
    EXPECT_EQ(std::string(waiting.pText, TEXT_BUFFER_SIZE), std::string(TEXT_BUFFER_SIZE, 'x'));
}

TEST(ShapeText, copies_are_deep_and_refuse_other_classes)
{
    SText text = MakeText("copy");
    CShapeText source;
    source.SetText(text);
    source.SetColor(0xFF0000);
    CShapeText copy;
    ASSERT_TRUE(copy.Copy(&source));
    EXPECT_EQ(copy.GetShapeId(), source.GetShapeId());
    EXPECT_EQ(copy.GetColor(), 0xFF0000u);
    EXPECT_EQ(PathText(copy), PathText(source));
    copy.GetTextP()->pText[0] = 'X';
    EXPECT_STREQ(source.GetTextP()->pText, "copy");

    CShapeVector vector;
    EXPECT_FALSE(copy.Copy(&vector));
    EXPECT_FALSE(copy.Copy(nullptr));
    EXPECT_STREQ(copy.GetTextP()->pText, "Xopy");

    CShapeText assigned;
    assigned = source;
    EXPECT_STREQ(assigned.GetTextP()->pText, "copy");
    CShape* clone = source.Clone();
    EXPECT_EQ(clone->GetShapeType(), ESHAPE_TEXT);
    EXPECT_EQ(PathText(*clone), PathText(source));
    CShape::Release(clone);
}

TEST(ShapeText, units_keep_the_outline_and_the_bias_of_half_a_pixel)
{
    SText text = MakeText("mm");
    text.ptCenter = {30, 50};
    text.dScaleX = 3;
    text.dScaleY = 5;
    CShapeText shape;
    shape.SetText(text);
    const std::string before = PathText(shape);
    const SText* now = shape.GetTextP();
    shape.MmToPix(2.0, {10, 10});
    EXPECT_EQ(Point(now->ptCenter), "10.49,20.49");
    EXPECT_EQ(Point({now->dScaleX, now->dScaleY}), "1.5,2.5");
    shape.PixToMm(2.0, {10, 10});
    EXPECT_EQ(Point(now->ptCenter), "30.98,50.98");
    EXPECT_EQ(Point({now->dScaleX, now->dScaleY}), "3,5");
    EXPECT_EQ(PathText(shape), before);
}

TEST(ShapeText, units_without_a_factor_change_nothing)
{
    SText text = MakeText("mm");
    text.ptCenter = {30, 50};
    CShapeText shape;
    shape.SetText(text);
    const SText* now = shape.GetTextP();
    const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    const struct
    {
        double factor;
        QPointF origin;
    } rows[] = {{0, {1, 1}}, {-0.0, {}}, {nan, {}}, {inf, {}}, {2, {nan, 0}}, {2, {0, inf}}};
    for (const auto& row : rows) {
        shape.PixToMm(row.factor, row.origin);
        shape.MmToPix(row.factor, row.origin);
        EXPECT_EQ(Point(now->ptCenter) + Point({now->dScaleX, now->dScaleY}), "30,501,1") << row.factor;
    }
}

// Carried out in millimetres, a mirror puts the text where it would have stood had it been carried out before.
TEST(ShapeText, units_convert_the_lines_of_pending_mirrors)
{
    const struct
    {
        const char* name;
        void (*mirror)(CShapeText&);
        const char* centre; ///< of (10,20) mirrored, times 0.1, plus (1,2)
    } rows[] = {
        {"x = 50", [](CShapeText& shape) { shape.MirrorAttachLine(50, true); }, "10,4"},
        {"y = 33", [](CShapeText& shape) { shape.MirrorAttachLine(33, false); }, "2,6.6"},
        {"y = 33.4, rounded in pixels",
         [](CShapeText& shape) {
             shape.MirrorFixedOrMovingLine({0, 33.4}, {90, 33.4}, true);
         },
         "2,6.6"},
        {"the diagonal",
         [](CShapeText& shape) {
             shape.MirrorFixedOrMovingLine({0, 0}, {7, 7}, true);
         },
         "3,3"},
    };
    for (const auto& row : rows) {
        SText text = MakeText("H");
        text.ptCenter = {10, 20};
        CShapeText mm, both;
        mm.SetText(text);
        both.SetText(text);
        row.mirror(mm);
        mm.PixToMm(0.1, {1, 2});
        mm.UpdatePainterPath();
        EXPECT_EQ(Point(mm.GetTextP()->ptCenter), row.centre) << row.name;
        row.mirror(both);
        both.PixToMm(0.1, {1, 2});
        both.MmToPix(0.1, {1, 2});
        both.PixToMm(0.1, {0.951, 1.951}); // 0.49 pixels less
        both.UpdatePainterPath();
        EXPECT_EQ(Point(both.GetTextP()->ptCenter), row.centre) << row.name << ", there and back";
    }
}

TEST(ShapeText, outline_is_scaled_by_dScaleX_and_centred)
{
    const auto box = [](double scaleX, double scaleY) {
        SText text = MakeText("HI");
        text.ptCenter = {100, 200};
        text.dScaleX = scaleX;
        text.dScaleY = scaleY;
        CShapeText shape;
        shape.SetText(text);
        return shape.GetRect(false);
    };
    const QRectF plain = box(1, 1);
    EXPECT_EQ(Point(plain.center()), "100,200");
    EXPECT_EQ(Rect(box(1, 3)), Rect(plain));
    EXPECT_EQ(Point({box(3, 1).width(), box(3, 1).height()}), Point({3 * plain.width(), 3 * plain.height()}));
}

TEST(ShapeText, a_text_that_draws_nothing_keeps_its_place)
{
    for (const char* letters : {"", "\n\n", "  "}) {
        SText text = MakeText(letters);
        text.ptCenter = {7, 8};
        text.bMirrorX = text.bMirrorY = 1;
        text.dAngle = 45;
        CShapeText shape;
        shape.SetText(text);
        EXPECT_EQ(PathText(shape), "M 7,8");
        EXPECT_TRUE(shape.Flatten(0.1).empty());
        EXPECT_TRUE(shape.Rotate(90, {0, 0}, Qt::ZAxis));
        EXPECT_EQ(Point(shape.GetTextP()->ptCenter), "-8,7");
    }
}

TEST(ShapeText, hits_and_containment_ask_the_rectangle)
{
    SText text = MakeText("O");
    CShapeText shape;
    shape.SetText(text);
    EXPECT_TRUE(shape.Contains({0, 0}, 1000)) << "the middle of the ring";
    const QRectF box = shape.GetRect(false);
    EXPECT_FALSE(shape.Contains({box.right() + 0.01, 0}, 0.001));

    int part = 77;
    shape.GetTextP()->ptCenter = {500, 500};
    EXPECT_TRUE(shape.Hit(QPoint(500, 500), part)) << "lays the text out first";
    EXPECT_FALSE(shape.Hit(QPoint(0, 0), part));
    EXPECT_EQ(part, 77);
    int tolerance = 1;
    EXPECT_FALSE(shape.Hit(QPointF(500, 500), tolerance)) << "the ring is too far away";
}

TEST(ShapeText, micro_lines_follow_the_outline_finely)
{
    SText text = MakeText("lO", "Liberation Sans", 100);
    CShapeText shape;
    shape.SetText(text);
    const std::vector<QLineF> lines = shape.Flatten(0.1);
    ASSERT_GT(lines.size(), 300u) << "curves at a thousandfold magnification";
    // l: a bar of four sides, O: two rings, each behind a null line.
    EXPECT_EQ(std::count(lines.begin(), lines.end(), QLineF(0, 0, 0, 0)), 2);
    EXPECT_EQ(lines[4], QLineF(0, 0, 0, 0));
    QRectF box(lines[0].p1(), QSizeF(0, 0));
    for (const QLineF& line : lines)
        box = box.united(QRectF(line.p1(), QSizeF(1e-9, 1e-9)));
    EXPECT_NEAR(box.width(), shape.GetRect(false).width(), 1e-3);

    shape.GetTextP()->dScaleX = 1e308;
    shape.UpdatePainterPath();
    EXPECT_TRUE(shape.Flatten(0.1).empty()) << "beyond finite numbers";

    QPainterPath straight;
    for (int i = 0; i < 4; ++i)
        straight.lineTo(i, 1);
    for (const auto flattening : {shapes::Flattening::InPlace, shapes::Flattening::ByPlatform}) {
        const auto made = [&](size_t most) {
            return shapes::MagnifiedPolygons(straight, 1000, shapes::Joining::KeepSubpaths, flattening, most);
        };
        EXPECT_EQ(made(4).Points().size(), 5U);
        EXPECT_THROW(made(3), std::length_error) << "lines count as curves do";
    }
}

namespace {

/// Finds no memory for its outline.
class StarvedText : public CShapeText
{
public:
    void UpdatePainterPath() override { throw std::bad_alloc(); }
};

} // namespace

TEST(ShapeText, micro_lines_without_memory_are_none)
{
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
    int hits = 0, misses = 0;
    for (double y = box.top() - 1; y < box.bottom() + 1; y += 3.7)
        for (double x = box.left() - 1; x < box.right() + 1; x += 3.3)
            for (int tolerance : {0, 1, 5}) {
                double nearest = 99999;
                for (const QLineF& line : lines)
                    if (line.length() > 0)
                        nearest = std::min(nearest, shapes::PointSegmentDistance({x, y}, line.p1(), line.p2()));
                const bool wanted = box.contains({x, y}) && nearest < tolerance;
                EXPECT_EQ(shape.Hit(QPointF(x, y), tolerance), wanted) << x << ", " << y << " within " << tolerance;
                ++(wanted ? hits : misses);
            }
    EXPECT_GT(hits, 100);
    EXPECT_GT(misses, 100);
    int everywhere = 100000;
    EXPECT_TRUE(shape.Hit(box.center(), everywhere)) << "beyond the distance to nothing";

    // A path of the host that ends within a curve: "M 0,0 L 9,0", then a curve's first point.
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << qint32{3} << qint32{0} << 0.0 << 0.0 << qint32{1} << 9.0 << 0.0 << qint32{2} << 9.0 << 50.0;
    out << qint32{0} << qint32{0};
    QPainterPath cut;
    QDataStream in(bytes);
    in >> cut;
    ASSERT_EQ(cut.elementCount(), 3);
    EXPECT_TRUE(shapes::IsNearOutline(cut, 1000, {4, 0}, 1));
    EXPECT_FALSE(shapes::IsNearOutline(cut, 1000, {9, 50}, 1)) << "no micro line goes there";
}

TEST(ShapeText, glyph_mirrors_map_the_points_of_the_record_along)
{
    DraggedText shape;
    SText text = MakeText("H");
    text.bMirrorX = 1;
    shape.SetShapePoints({{3, 4}}, ELINE_SEGMENT_STRAIGHT);
    shape.SetText(text);
    EXPECT_NE(Outline(shape), "3,4");
    EXPECT_EQ(shape.m_listPoints[0].y(), 4);
    const std::string mirrored = Outline(shape);
    shape.UpdatePainterPath();
    EXPECT_EQ(Outline(shape), mirrored) << "once, however often it is rebuilt";
    shape.MirrorX(0);
    shape.UpdatePainterPath();
    EXPECT_EQ(Outline(shape), "3,4");
}

TEST(ShapeText, line_mirrors_wait_while_a_temporary_path_is_shown)
{
    SText text = MakeText("H");
    text.ptCenter = {10, 20};
    DraggedText shape;
    shape.SetText(text);
    shape.MirrorAttachLine(50, true);
    shape.SetPathTmp(std::make_unique<QPainterPath>());
    shape.UpdatePainterPath();
    EXPECT_EQ(Point(shape.GetTextP()->ptCenter), "10,20");
    EXPECT_TRUE(shape.GetTextP()->bMirrorAttach);
    EXPECT_EQ(shape.GetPathTmp(), nullptr) << "a rebuild ends it";
    shape.UpdatePainterPath();
    EXPECT_EQ(Point(shape.GetTextP()->ptCenter), "90,20");
    EXPECT_EQ(shape.GetPathTmp(), nullptr);
}
