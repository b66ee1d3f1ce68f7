/// The curve-fitting plug-in is there: what it is sent, what is taken from it, and how plug-ins are loaded.
#include "ProcessTest.h"

#include "group/ShapeArray.h"
#include "list/ShapeList.h"
#include "support/plugin/ScriptedPlugin.h"
#include "vector/CurveFit.h"
#include "vector/PluginLibrary.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QTemporaryFile>

#include <stdexcept>

namespace {

using Points = std::vector<QPointF>;
using Types = std::vector<unsigned char>;

QString Beside(const char* name)
{
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

class PluginPresent : public testing::Test
{
protected:
    void SetUp() override
    {
        test::TakeLog();
        script = reinterpret_cast<test::PluginScript* (*)()>(QLibrary(Beside("CurveSimulate")).resolve("Script"))();
        *script = {};
    }

    void Fit(const Points& points, const Types& types)
    {
        outPoints.clear();
        outTypes.clear();
        shapes::FitOutline(points, types, outPoints, outTypes);
    }

    test::PluginScript* script = nullptr;
    Points outPoints;
    Types outTypes;
};

TEST_F(PluginPresent, SendsEveryRunTheEmptyOnesToo)
{
    Fit({{0, 0}, {1, 1}, {2, 2}, {7, 7}, {3, 3}, {0, 0}}, {2, 0, 3, 2, 0, 2});
    EXPECT_EQ(script->calls,
              "prepare 0; optimize 0/0; prepare 2; optimize 2/2; prepare 1; optimize 1/1; prepare 0; optimize 0/0; ");
    EXPECT_EQ(outPoints, (Points{{0, 0}, {1, 1}, {2, 2}, {0, 0}, {3, 3}, {0, 0}})); // separators stand at (0, 0)
    EXPECT_EQ(outTypes, (Types{2, 0, 3, 2, 0, 2}));

    script->calls.clear();
    Fit({{1, 1}, {2, 2}}, {0, 0});
    EXPECT_EQ(script->calls, "prepare 2; optimize 2/2; ");
}

TEST_F(PluginPresent, PairsListsOfUnequalLengthAsFarAsBothGo)
{
    script->optimize = [](Points& points, Types& types) {
        if (points.size() == 2)
            points.emplace_back(9, 9);
        else
            types.push_back(1);
    };
    Fit({{1, 1}, {2, 2}, {0, 0}, {3, 3}}, {0, 0, 2, 0});
    EXPECT_EQ(outPoints, (Points{{1, 1}, {2, 2}, {0, 0}, {3, 3}}));
    EXPECT_EQ(outTypes, (Types{0, 0, 2, 0}));
}

TEST_F(PluginPresent, ShorterOutlineIsAdoptedAndBecomesMixed)
{
    script->optimize = [](Points& points, Types& types) {
        if (!points.empty())
            points.erase(points.begin() + 1), types.pop_back();
    };
    CShapeVector shape;
    test::MakePolyline(shape);
    shape.UpdatePainterPath();
    EXPECT_EQ(shape.GetVectorType(), EVECTOR_MIXED);
    EXPECT_EQ(test::PointCount(shape), 3U);
    EXPECT_EQ(shape.GetPath(false)->elementCount(), 2);

    script->optimize = nullptr; // as many points as before: nothing is adopted
    CShapeVector same;
    test::MakePolyline(same);
    same.UpdatePainterPath();
    EXPECT_EQ(same.GetVectorType(), EVECTOR_POLYLINE);
    EXPECT_EQ(test::TakeLog(), "");
}

TEST_F(PluginPresent, MembersOfAnArrayThatWasReadAreSavedFitted)
{
    auto* shape = new CShapeVector;
    test::MakePolyline(*shape);
    CShapeArray array;
    array.GetShapeList()->AddTail(shape);
    QTemporaryFile first, second;
    ASSERT_TRUE(first.open() && second.open());
    array.Save(&first);
    script->optimize = [](Points& points, Types& types) {
        if (!points.empty())
            points.erase(points.begin() + 1), types.pop_back();
    };
    first.seek(0);
    CShapeArray read;
    read.Read(&first, 14);
    read.Save(&second);
    EXPECT_EQ(second.size(), first.size() - 9); // the bytes of a point
}

TEST_F(PluginPresent, RunThatComesBackEmptyLeavesTheShape)
{
    script->optimize = [](Points& points, Types&) { points.clear(); };
    CShapeVector shape;
    test::MakePolyline(shape);
    const size_t before = test::PointCount(shape);
    shape.UpdatePainterPath();
    EXPECT_EQ(test::PointCount(shape), before);
    EXPECT_EQ(test::TakeLog(), "1 CurveSimulate: a run came back empty");
}

TEST_F(PluginPresent, ExceptionsStayInsideAndLeaveTheShape)
{
    CShapeVector shape;
    test::MakePolyline(shape);
    script->optimize = [](Points& points, Types&) {
        points.clear();
        throw std::runtime_error("out of order");
    };
    shape.UpdatePainterPath();
    script->optimize = [](Points&, Types&) { throw 7; };
    shape.UpdatePainterPath();
    EXPECT_EQ(test::TakeLog(), "1 CurveSimulate: out of order; 1 CurveSimulate: unknown exception");
    EXPECT_EQ(shape.GetVectorType(), EVECTOR_POLYLINE);
    EXPECT_EQ(test::PointCount(shape), 4U);
}

TEST_F(PluginPresent, NullInterfaceIsUnavailableWithoutMessageOrLog)
{
    const shapes::PluginLoad load = shapes::LoadPluginInterface(Beside("NullInterface"), true);
    EXPECT_EQ(load.pluginInterface, nullptr);
    EXPECT_EQ(load.message, QString());
    EXPECT_EQ(test::TakeLog(), "");
}

TEST_F(PluginPresent, SlotOwnsThePluginAndSilenceStillLogs)
{
    shapes::PluginHolder slot;
    const shapes::PluginLoad load = shapes::LoadPluginInterface(Beside("CurveSimulate"), true, &slot);
    EXPECT_NE(load.pluginInterface, nullptr);
    EXPECT_EQ(slot.pluginInterface, load.pluginInterface);
    EXPECT_TRUE(slot.library->isLoaded());

    EXPECT_EQ(shapes::LoadPluginInterface(Beside("Nowhere"), false, &slot).message, QString());
    EXPECT_EQ(slot.pluginInterface, load.pluginInterface);
    EXPECT_TRUE(test::IsOneLine(test::TakeLog()));
}

} // namespace
