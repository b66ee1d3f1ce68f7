/// CShapeList: rebuilding the vectors and taking out what is unusable.
#include "group/ShapeArray.h"
#include "host/Configuration.h"
#include "image/ShapeImage.h"
#include "support/HostDouble.h"
#include "support/Lists.h"

#include <QSettings>

#include <tuple>

using namespace test;

namespace {

struct ShapeListOptimize : testing::Test
{
    CShapeVector rectangle = Vector(EVECTOR_RECT, "0,0 2,0 2,1 0,1 0,0");
    CShapeVector mixed = Vector(EVECTOR_MIXED, "0,0 c1,0 c2,0 c3,0");
    StubShape stub{"s"}; // says vector, but is none
    View list = MakeList({&rectangle, &stub, nullptr, &mixed});

    static std::string Told(CShapeVector& shape)
    {
        return std::to_string(shape.GetVectorType()) + " " + Outline(shape);
    }
    std::string Optimized(bool keepVectorType)
    {
        list->OptimizeShapeList(keepVectorType);
        return Told(mixed);
    }
};

TEST_F(ShapeListOptimize, marks_every_vector_as_polyline_unless_the_type_is_kept)
{
    // A free path is flattened to its polyline; the straight curve needs its two ends alone.
    EXPECT_EQ(Optimized(true), "2 | 0,0 3,0");
    EXPECT_EQ(PathText(mixed), "M 0,0 L 3,0");
    EXPECT_EQ(Told(rectangle), "0 0,0 2,0 2,1 0,1 0,0");
    list->OptimizeShapeList(false);
    EXPECT_EQ(Told(rectangle), "2 0,0 2,0 2,1 0,1 0,0");
    EXPECT_EQ(stub.builds, 0);

    mixed = Vector(EVECTOR_MIXED, "0,0 c10,30 c20,30 c30,0"); // y = 3 x (1 - x / 30): all points lie on the curve
    EXPECT_EQ(Optimized(true).substr(0, 7), "2 | 0,0");
    const std::vector<QLineF> lines = mixed.Flatten(0);
    EXPECT_GT(lines.size(), 50u);
    for (const QLineF& line : lines)
        EXPECT_NEAR(line.y2(), 3 * line.x2() * (1 - line.x2() / 30), 1e-3);
}

TEST_F(ShapeListOptimize, keeps_fill_markers)
{
    mixed = Vector(EVECTOR_MIXED, "0,0 3,0 3,3 f0,0");
    EXPECT_EQ(Optimized(true), "6 | 0,0 3,0 3,3 f0,0");
    mixed = Vector(EVECTOR_MIXED, "0,0 f1,1 c1,0 c2,0 c3,0");
    EXPECT_EQ(Optimized(true), "6 0,0 f1,1 c1,0 c2,0 c3,0") << "not at the end";

    // An exact copy of where the last run begins: else a closing line appears.
    mixed = Vector(EVECTOR_POLYLINE, "| 0.1,0.2 0.7,0.9 | 3.3,4.7 10.1,4.7 20.7,30.9 3.1,29.3");
    const std::string open = PathText(mixed);
    mixed.Close(0, true);
    list->OptimizeShapeList(false);
    mixed.GetPath(true);
    EXPECT_EQ(PathText(mixed), open);
    EXPECT_TRUE(mixed.IsFilled());
}

TEST_F(ShapeListOptimize, calls_cubics_polylines_without_losing_points)
{
    const std::tuple<EVECTOR_TYPE, const char*, const char*> rows[] = {
        {EVECTOR_BEZIER_CHAIN, "0,0 0,1 1,2 2,2 3,2 4,1 4,0 9,9", "2 | 0,0 c0,1 c1,2 c2,2 c3,2 c4,1 c4,0 | 9,9"},
        {EVECTOR_BEZIER_CHAIN, "0,0 c0,1 c1,2", "2 | 0,0 | 0,1 1,2"},
        {EVECTOR_BEZIER_SET, "0,0 0,1 1,2 2,2 2,2 3,2 4,1 4,0", "2 | 0,0 c0,1 c1,2 c2,2 | 2,2 c3,2 c4,1 c4,0"},
        {EVECTOR_BEZIER_SET, "0,0 0,1 1,2 2,2 5,5 6,6 7,7 8,8 9,9", "2 | 0,0 c0,1 c1,2 c2,2 | 5,5 6,6 7,7 8,8 9,9"},
        {EVECTOR_BEZIER_SET, "", "2 "},
    };
    for (const auto& [type, outline, expected] : rows) {
        mixed = Vector(type, outline);
        EXPECT_EQ(Optimized(false), expected);
    }
}

TEST_F(ShapeListOptimize, does_nothing_when_switched_off)
{
    QSettings settings(shapes::ResourcesDir() + "/Data/cfg.ini", QSettings::IniFormat);
    settings.setValue("APP_CFG/KEY_OPTIMIZATION", 0);
    EXPECT_EQ(Optimized(false) + "; " + Told(rectangle), "6 0,0 c1,0 c2,0 c3,0; 0 0,0 2,0 2,1 0,1 0,0");
    settings.setValue("APP_CFG/KEY_OPTIMIZATION", 1);
}

TEST(ShapeListCleanup, takes_out_the_invalid_and_frees_nothing)
{
    StubShape text("text", {}, ESHAPE_TEXT), point = Outlined("1,1"), good = Outlined("0,0 1,1");
    StubShape typeless = Outlined("0,0 ?1,1");
    good.name = "good";
    const View list = MakeList({&point, nullptr, &text, &good, &typeless});
    StubShape::TakeTrace();
    TakeLog();
    list->RemoveInvalidShapeItem();
    EXPECT_EQ(Names(*list), "- text good");
    EXPECT_EQ(TakeLog(), "1 图元链表_移除无效图元; 1 图元链表_移除无效图元");
    EXPECT_EQ(StubShape::TakeTrace(), "");
    CShapeImage image;
    CShapeArray array;
    const View empty = MakeList({&image, &array, &good});
    empty->RemoveInvalidShapeItem();
    EXPECT_EQ(Names(*empty), "good");
    EXPECT_EQ(TakeLog(), "1 图元链表_移除无效图元,数组数据已经无效; 1 Input image is empty.; 3 CShapeImage::GetImage: "
                         "There is no image to transform.; 1 图元链表_移除无效图元,图片数据已经无效");
}

} // namespace
