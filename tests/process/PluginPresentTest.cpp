/// The curve-fitting plug-in is there: what it is sent, what is taken from it, and how plug-ins are loaded.
#include "ProcessTest.h"

#include "group/ShapeArray.h"
#include "list/ShapeList.h"
#include "support/Outline.h"
#include "support/plugin/ScriptedPlugin.h"
#include "vector/CurveFit.h"
#include "vector/PluginLibrary.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>
#include <QTemporaryFile>

#include <limits>
#include <stdexcept>
#include <tuple>

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

TEST_F(PluginPresent, AdoptedOutlineDrawsTheRunsThatWereNotFittedAsBefore)
{
    script->optimize = [](Points& points, Types& types) {
        if (points.size() == 6)
            points = {points.front(), points.back()}, types = {0, 0};
    };
    CShapeVector shape;
    shape.SetVectorType(EVECTOR_POLYLINE);
    test::SetOutline(shape, "| 0,0 c5,0 9,9 f7,7 c1,1 c2,2 c3,3 f0,0 | 20,0 21,0 22,0 23,0 24,0 25,0 | 5,5 c6,6");
    EXPECT_EQ(test::PathText(shape), "M 0,0 L 5,0 L 9,9 L 7,7 C 1,1 2,2 3,3 M 20,0 L 25,0 M 5,5 L 6,6");
    EXPECT_EQ(shape.GetVectorType(), EVECTOR_MIXED);
    EXPECT_EQ(test::Outline(shape), "| 0,0 5,0 9,9 7,7 c1,1 c2,2 c3,3 f0,0 | 20,0 25,0 | 5,5 6,6");
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

TEST_F(PluginPresent, RunThatComesBackUnusableKeepsItsPoints)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::tuple<const char*, Points, Types> rows[] = {
        {"empty", {}, {}},
        {"without_types", {{1, 1}, {2, 2}}, {}},
        {"without_points", {}, {0, 0}},
        {"all_alike", {{7, 7}, {7, 7}, {7, 7}}, {0, 0, 0}},
        {"curve_without_length", {{7, 7}, {7, 7}, {7, 7}, {7, 7}}, {0, 1, 1, 1}},
        {"one_point_a_run", {{1, 1}, {0, 0}, {2, 2}}, {0, 2, 0}},
        {"incomplete_triple", {{1, 1}, {2, 2}, {3, 3}}, {0, 1, 1}},
        {"line_and_incomplete_triple", {{1, 1}, {2, 2}, {3, 3}}, {0, 0, 1}},
        {"no_number", {{1, 1}, {nan, 2}}, {0, 0}},
    };
    for (const auto& [name, points, types] : rows) {
        script->optimize = [&points = points, &types = types](Points& run, Types& runTypes) {
            if (run.size() == 3)
                run = points, runTypes = types;
            else if (run.size() > 3)
                run.resize(2), runTypes.resize(2);
        };
        CShapeVector shape;
        shape.SetVectorType(EVECTOR_POLYLINE);
        shape.SetShapePoints(
            {{0, 0}, {1, 0}, {5, 5}, {5, 9}, {0, 0}, {20, 0}, {30, 0}, {40, 0}, {50, 0}, {0, 0}, {8, 8}},
            Types{2, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0}); // the last is a lone point: nobody's fault
        shape.GetPath(true);
        shape.GetShapePathData(outPoints, outTypes);
        EXPECT_EQ(outPoints, (Points{{0, 0}, {1, 0}, {5, 5}, {5, 9}, {0, 0}, {20, 0}, {30, 0}, {0, 0}, {8, 8}}))
            << name;
        EXPECT_EQ(outTypes, (Types{2, 0, 0, 0, 2, 0, 0, 2, 0})) << name;
        EXPECT_EQ(shape.GetVectorType(), EVECTOR_MIXED) << name;
        EXPECT_EQ(test::TakeLog(), "1 CurveSimulate: 1 of 4 runs came back unusable and keep their points") << name;
    }
}

TEST_F(PluginPresent, FaultsAreLoggedOnceAShapeWhichKeepsItsOutline)
{
    const std::tuple<const char*, std::function<void(Points&, Types&)>, const char*> rows[] = {
        {"empty", [](Points& points, Types&) { points.clear(); },
         "1 CurveSimulate: 1 of 2 runs came back unusable and keep their points"},
        {"exception",
         [](Points& points, Types&) {
             points.clear();
             throw std::runtime_error("out of order");
         },
         "1 CurveSimulate: out of order"},
        {"foreign_exception", [](Points&, Types&) { throw 7; }, "1 CurveSimulate: unknown exception"},
    };
    for (const auto& [name, optimize, logged] : rows) {
        script->optimize = optimize;
        CShapeVector shape, copy;
        test::MakePolyline(shape);
        shape.UpdatePainterPath();
        EXPECT_EQ(test::TakeLog(), logged) << name;
        copy.Copy(&shape);
        shape.UpdatePainterPath();
        copy.UpdatePainterPath();
        EXPECT_EQ(test::TakeLog(), "") << name;
        EXPECT_EQ(shape.GetVectorType(), EVECTOR_POLYLINE) << name;
        EXPECT_EQ(test::PointCount(shape), 4U) << name;
    }
}

/// Arch of the free paths below, y = 3 x (1 - x / 100): a cubic whose x runs evenly.
const Points kArch{{0, 0}, {100.0 / 3, 100}, {200.0 / 3, 100}, {100, 0}};
const Types kArchTypes{0, 1, 1, 1};

double HeightOfArch(double x)
{
    return 3 * x * (1 - x / 100);
}

/// As many lines as a fine flattening needs, none of them off the arch.
void ExpectFineArch(const std::vector<QLineF>& lines)
{
    EXPECT_GT(lines.size(), 60U);
    for (const QLineF& line : lines)
        EXPECT_NEAR(line.center().y(), HeightOfArch(line.center().x()), 0.01);
}

TEST_F(PluginPresent, FirstMicroLinesAreThoseOfTheFittedOutline)
{
    script->optimize = [](Points& points, Types& types) { points = kArch, types = kArchTypes; };
    CShapeVector shape;
    Points sampled;
    for (int x = 0; x <= 100; ++x)
        sampled.emplace_back(x, HeightOfArch(x));
    shape.SetVectorType(EVECTOR_POLYLINE);
    shape.SetShapePoints(sampled, ELINE_SEGMENT_STRAIGHT);
    ExpectFineArch(shape.Flatten(0.01));
    EXPECT_EQ(shape.GetVectorType(), EVECTOR_MIXED);
}

/// A list of one free path, optimised by a plug-in that answers with the same outline whatever it gets.
class FreePathPresent : public PluginPresent
{
protected:
    ~FreePathPresent() override
    {
        list->DeleteAll();
        CShapeList::Release(list);
    }

    CShapeList* list = CShapeList::New();
    CShapeVector* shape = new CShapeVector;

    void SetUp() override
    {
        PluginPresent::SetUp();
        list->AddTail(shape);
        shape->SetVectorType(EVECTOR_MIXED);
    }

    void Answer(const Points& points, const Types& types)
    {
        script->optimize = [=](Points& run, Types& runTypes) {
            if (!run.empty())
                run = points, runTypes = types;
        };
    }

    void Optimise(bool keepVectorType)
    {
        script->calls.clear();
        list->OptimizeShapeList(keepVectorType);
        shape->GetShapePathData(outPoints, outTypes);
    }
};

TEST_F(FreePathPresent, KeepsItsPointsUnlessTheyBecomeFewer)
{
    const Points bend{{0, 0}, {50, 70}, {100, 0}};
    shape->SetShapePoints(bend, ELINE_SEGMENT_STRAIGHT);
    Answer({{0, 0}, {50, 75}, {100, 0}}, {0, 0, 0}); // as many
    for (int round = 0; round < 2; ++round) {
        Optimise(true);
        EXPECT_EQ(outPoints, bend);
        EXPECT_EQ(outTypes, (Types{0, 0, 0}));
        EXPECT_EQ(shape->GetVectorType(), EVECTOR_MIXED);
        EXPECT_EQ(test::PathText(*shape), "M 0,0 L 50,70 L 100,0");
    }
}

TEST_F(FreePathPresent, IsFittedOnceHoweverOftenItIsOptimised)
{
    shape->SetShapePoints({{0, 0}, {1, 1}, {2, 1}, {3, 0}, {4, 0}, {5, 0}}, ELINE_SEGMENT_STRAIGHT);
    Answer({{0, 0}, {3, 1}, {5, 0}}, {0, 0, 0});
    Optimise(true);
    EXPECT_EQ(outPoints, (Points{{0, 0}, {0, 0}, {3, 1}, {5, 0}})); // behind the separator of a set path
    Answer({{0, 0}, {9, 9}}, {0, 0});
    for (int round = 0; round < 2; ++round) {
        Optimise(round == 0);
        EXPECT_EQ(outPoints, (Points{{0, 0}, {0, 0}, {3, 1}, {5, 0}}));
        EXPECT_EQ(script->calls, "");
    }
    EXPECT_EQ(shape->GetVectorType(), EVECTOR_POLYLINE);
    shape->SetShapePoints({{0, 0}, {1, 1}, {2, 1}}, ELINE_SEGMENT_STRAIGHT); // another outline
    Optimise(true);
    EXPECT_EQ(outPoints, (Points{{0, 0}, {9, 9}}));
}

/// What a record does not tell, that the outline is a fit, must not let it be fitted again and again.
TEST_F(FreePathPresent, IsNotWornAwayBySavingReadingAndFittingAgain)
{
    const Points wave{{0, 0}, {1, 1}, {2, 1}, {3, 0}, {4, -1}, {5, -1}, {6, 0}, {7, 1}};
    const Types types{0, 1, 1, 1, 1, 1, 1, 0};
    shape->SetShapePoints(wave, types);
    QTemporaryDir folder;
    for (int cycle = 0; cycle < 3; ++cycle) {
        Answer({{0, 0.1}, {7, 1.1}}, {0, 0}); // far fewer points
        Optimise(true);
        EXPECT_EQ(outPoints, wave) << cycle;
        EXPECT_EQ(outTypes, types) << cycle;
        QFile file(folder.filePath("document"));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        list->Save(&file);
        file.seek(0);
        list->DeleteAll();
        ASSERT_EQ(list->Read(&file, 14), 0);
        shape = dynamic_cast<CShapeVector*>(list->GetShape(0U));
    }
}

TEST_F(FreePathPresent, KeepsItsFillMarker)
{
    const Points open{{1, 1}, {2, 2}, {3, 3}, {4, 4}, {4, 9}};
    for (const Types& fitted : {Types{0, 0}, Types{0, 0, 0, 0, 0}}) { // fewer points, and as many
        shape->SetShapePoints(open, ELINE_SEGMENT_STRAIGHT);
        shape->Close(0, true);
        Answer(Points(open.begin(), open.begin() + static_cast<std::ptrdiff_t>(fitted.size())), fitted);
        Optimise(true);
        EXPECT_EQ(outPoints.back(), open.front());
        EXPECT_TRUE(shape->IsFilled());
        EXPECT_EQ(shape->GetVectorType(), EVECTOR_MIXED);
        shape->RestoreFilledShape();
        shape->GetShapePathData(outPoints, outTypes);
        EXPECT_EQ(outTypes, fitted.size() == 2 ? Types({2, 0, 0}) : fitted);
    }
}

TEST_F(FreePathPresent, CurvesOfDocumentsThatCallThemPolylinesComeBack)
{
    const std::tuple<EVECTOR_TYPE, Types> rows[] = {
        {EVECTOR_MIXED, kArchTypes},
        {EVECTOR_BEZIER_CHAIN, {0, 0, 0, 0}},
        {EVECTOR_BEZIER_SET, {0, 0, 0, 0}},
    };
    QTemporaryDir folder;
    for (const auto& [type, types] : rows) {
        shape->SetVectorType(type);
        shape->SetShapePoints(kArch, types);
        Optimise(false);
        EXPECT_EQ(shape->GetVectorType(), EVECTOR_POLYLINE);
        shape->GetPath(true);
        ExpectFineArch(shape->Flatten(0.01));
        QFile file(folder.filePath("document"));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        list->Save(&file);
        file.seek(0);
        CShapeList* read = CShapeList::New();
        ASSERT_EQ(read->Read(&file, 14), 0);
        ExpectFineArch(read->GetShape(0U)->Flatten(0.01));
        read->DeleteAll();
        CShapeList::Release(read);
    }
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
