/// The curve-fitting plug-in is there: what it is sent, what is taken from it, and how plug-ins are loaded.
#include "ProcessTest.h"

#include "group/ShapeArray.h"
#include "host/Configuration.h"
#include "support/Lists.h"
#include "support/plugin/ScriptedPlugin.h"
#include "vector/CurveFit.h"
#include "vector/PluginLibrary.h"

#include <QCoreApplication>
#include <QSettings>

#include <stdexcept>
#include <tuple>

using namespace test;

namespace {

using Points = std::vector<QPointF>;
using Types = std::vector<unsigned char>;

QString Beside(const char* name)
{
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

void DropSecond(Points& points, Types& types)
{
    if (!points.empty())
        points.erase(points.begin() + 1), types.pop_back();
}

class PluginPresent : public testing::Test
{
protected:
    PluginScript& script = ScriptOf("CurveSimulate");

    void SetUp() override
    {
        TakeLog();
        script = {};
    }
    void TearDown() override { script = {}; }

    /// Runs of as many points, or of any but 0, come back as the outline.
    void Answer(const std::string& outline, size_t count = 0)
    {
        Points points;
        Types types;
        Polyline(outline).GetShapePathData(points, types);
        script.optimize = [=](Points& run, Types& runTypes) {
            if (count ? run.size() == count : !run.empty())
                run = points, runTypes = types;
        };
    }

    static std::string Fitted(const std::string& outline)
    {
        Polyline shape(outline);
        Points points, outPoints;
        Types types, outTypes;
        shape.GetShapePathData(points, types);
        shapes::FitOutline(points, types, outPoints, outTypes);
        shape.SetShapePoints(outPoints, outTypes);
        return Outline(shape);
    }
};

TEST_F(PluginPresent, sends_every_run_the_empty_ones_too_and_pairs_what_comes_back)
{
    EXPECT_EQ(Fitted("| 1,1 f2,2 |7,7 3,3 |"), "| 1,1 f2,2 | 3,3 |") << "separators stand at (0, 0)";
    EXPECT_EQ(script.calls,
              "prepare 0; optimize 0/0; prepare 2; optimize 2/2; prepare 1; optimize 1/1; prepare 0; optimize 0/0; ");
    script.calls.clear();
    Fitted("1,1 2,2");
    EXPECT_EQ(script.calls, "prepare 2; optimize 2/2; ");
    script.optimize = [](Points& points, Types& types) {
        if (points.size() == 2)
            points.emplace_back(9, 9);
        else
            types.push_back(1);
    };
    EXPECT_EQ(Fitted("1,1 2,2 | 3,3"), "1,1 2,2 | 3,3") << "as far as both lists go";
}

TEST_F(PluginPresent, a_shorter_outline_is_adopted_and_becomes_mixed)
{
    Polyline same, shape, other("| 0,0 c5,0 9,9 f7,7 c1,1 c2,2 c3,3 f0,0 | 20,0 21,0 22,0 23,0 24,0 25,0 | 5,5 c6,6");
    same.UpdatePainterPath(); // as many points as before: nothing is adopted
    EXPECT_EQ(Told(same), "2 | 0,0 10,0 10,5");
    script.optimize = DropSecond;
    shape.UpdatePainterPath();
    EXPECT_EQ(Told(shape) + "; " + PathText(shape), "6 | 0,0 10,5; M 0,0 L 10,5");
    shape.SetVectorType(EVECTOR_POLYLINE);
    shape.UpdatePainterPath();
    EXPECT_EQ(Told(shape), "2 | 0,0 10,5") << "fitted once";
    QSettings settings(shapes::ResourcesDir() + "/Data/cfg.ini", QSettings::IniFormat);
    settings.setValue("APP_CFG/KEY_OPTIMIZATION", 0);
    same.UpdatePainterPath();
    EXPECT_EQ(Told(same), "2 | 0,0 10,0 10,5") << "switched off";
    settings.setValue("APP_CFG/KEY_OPTIMIZATION", 1);

    Answer("20,0 25,0", 6); // the runs that were not fitted are drawn as before
    EXPECT_EQ(PathText(other), "M 0,0 L 5,0 L 9,9 L 7,7 C 1,1 2,2 3,3 M 20,0 L 25,0 M 5,5 L 6,6");
    EXPECT_EQ(Told(other), "6 | 0,0 5,0 9,9 7,7 c1,1 c2,2 c3,3 f0,0 | 20,0 25,0 | 5,5 6,6");
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(PluginPresent, members_of_an_array_that_was_read_are_saved_fitted)
{
    StreamFile stream;
    MakeGroup<CShapeArray>({new Polyline})->Save(stream.File());
    script.optimize = DropSecond;
    stream.Rewind();
    CShapeArray read;
    read.Read(stream.File(), 14);
    EXPECT_EQ(StreamOf(read).size(), stream.Bytes().size() - 9) << "the bytes of a point";
}

TEST_F(PluginPresent, a_run_that_comes_back_unusable_keeps_its_points)
{
    const std::pair<const char*, const char*> rows[] = {
        {"empty", ""},
        {"without_types", "?1,1 ?2,2"},
        {"without_points", "+0 +0"},
        {"all_alike", "7,7 7,7 7,7"},
        {"curve_without_length", "7,7 c7,7 c7,7 c7,7"},
        {"one_point_a_run", "1,1 | 2,2"},
        {"incomplete_triple", "1,1 c2,2 c3,3"},
        {"line_and_incomplete_triple", "1,1 2,2 c3,3"},
        {"no_number", "1,1 nan,2"},
    };
    for (const auto& [name, answer] : rows) {
        Answer(answer, 3);
        script.optimize = [unusable = script.optimize](Points& run, Types& types) {
            unusable(run, types);
            if (run.size() > 4)
                run.resize(2), types.resize(2);
        };
        // The last is a lone point: nobody's fault.
        Polyline shape("| 1,0 5,5 5,9 | 20,0 30,0 40,0 50,0 60,0 | 8,8");
        shape.GetPath(true);
        EXPECT_EQ(Told(shape), "6 | 1,0 5,5 5,9 | 20,0 30,0 | 8,8") << name;
        EXPECT_EQ(TakeLog(), "1 CurveSimulate: 1 of 4 runs came back unusable and keep their points") << name;
    }
}

TEST_F(PluginPresent, faults_are_logged_once_a_shape_which_keeps_its_outline)
{
    const std::pair<const char*, std::function<void(Points&, Types&)>> rows[] = {
        {"1 CurveSimulate: 1 of 2 runs came back unusable and keep their points",
         [](Points& points, Types&) { points.clear(); }},
        {"1 CurveSimulate: out of order",
         [](Points& points, Types&) { points.clear(), throw std::runtime_error("out of order"); }},
        {"1 CurveSimulate: unknown exception", [](Points&, Types&) { throw 7; }},
    };
    for (const auto& [logged, optimize] : rows) {
        script.optimize = optimize;
        Polyline shape, copy;
        shape.UpdatePainterPath();
        EXPECT_EQ(TakeLog(), logged);
        copy.Copy(&shape);
        shape.UpdatePainterPath();
        copy.UpdatePainterPath();
        EXPECT_EQ(TakeLog(), "") << logged;
        EXPECT_EQ(Told(shape), "2 | 0,0 10,0 10,5") << logged;
    }
}

/// y = 3 x (1 - x / 100): a cubic whose x runs evenly.
constexpr char kArch[] = "0,0 c33.3333333333333,100 c66.6666666666667,100 c100,0";

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

TEST_F(PluginPresent, the_first_micro_lines_are_those_of_the_fitted_outline)
{
    Answer(kArch);
    Points sampled;
    for (int x = 0; x <= 100; ++x)
        sampled.emplace_back(x, HeightOfArch(x));
    Polyline shape;
    shape.SetShapePoints(sampled, ELINE_SEGMENT_STRAIGHT);
    ExpectFineArch(shape.Flatten(0.01));
    EXPECT_EQ(shape.GetVectorType(), EVECTOR_MIXED);
}

/// A list of one shape, optimised by a plug-in that always returns the same outline.
class FreePathPresent : public PluginPresent
{
protected:
    Document list = MakeList<Document>();

    CShapeVector& Set(const std::string& outline, EVECTOR_TYPE type = EVECTOR_MIXED)
    {
        list->DeleteAll();
        list->AddTail(new Polyline(outline, type));
        return Shape();
    }
    CShapeVector& Shape() { return dynamic_cast<CShapeVector&>(*list->GetShape(0)); }
    std::string Optimised(bool keepVectorType)
    {
        script.calls.clear();
        list->OptimizeShapeList(keepVectorType);
        return Told(Shape());
    }
    void Reread() { list = ListFrom(StreamOf(*list)); }
};

TEST_F(FreePathPresent, is_fitted_once_and_only_to_fewer_points_however_often_it_is_optimised)
{
    Set("0,0 50,70 100,0 150,0");
    for (const char* fitted : {"0,0 50,75 100,0 150,0", "0,0 50,75 150,0"}) { // as many, without and with a separator
        Answer(fitted);
        EXPECT_EQ(Optimised(true), "6 0,0 50,70 100,0 150,0");
        EXPECT_EQ(PathText(Shape()), "M 0,0 L 50,70 L 100,0 L 150,0");
    }
    Set("0,0 1,1 2,1 3,0 4,0 5,0");
    Answer("0,0 3,1 5,0");
    EXPECT_EQ(Optimised(true), "6 | 0,0 3,1 5,0") << "behind the separator of a set path";
    Answer("0,0 9,9");
    EXPECT_EQ(Optimised(true), "6 | 0,0 3,1 5,0");
    EXPECT_EQ(Optimised(false), "2 | 0,0 3,1 5,0");
    EXPECT_EQ(script.calls, "");
    SetOutline(Shape(), "0,0 1,1 2,1"); // another outline
    EXPECT_EQ(Optimised(true), "6 0,0 9,9");
}

/// What a record does not tell, that the outline is a fit, must not let it be fitted again and again.
TEST_F(FreePathPresent, is_not_worn_away_by_saving_reading_and_fitting_again)
{
    Set("0,0 c1,1 c2,1 c3,0 c4,-1 c5,-1 c6,0 7,1");
    for (int cycle = 0; cycle < 3; ++cycle) {
        Answer("0,0.1 7,1.1"); // far fewer points
        EXPECT_EQ(Optimised(true), "6 0,0 c1,1 c2,1 c3,0 c4,-1 c5,-1 c6,0 7,1") << cycle;
        Reread();
    }
}

TEST_F(FreePathPresent, keeps_its_fill_marker)
{
    for (const char* fitted : {"1,1 2,2", "1,1 2,2 3,3 4,4 4,9"}) { // fewer points, and as many
        const bool fewer = std::string(fitted).size() < 10;
        CShapeVector& shape = Set("1,1 2,2 3,3 4,4 4,9");
        shape.Close(0, true);
        Answer(fitted);
        EXPECT_EQ(Optimised(true), (fewer ? "6 | " : "6 ") + std::string(fitted) + " f1,1");
        EXPECT_TRUE(shape.IsFilled());
        shape.RestoreFilledShape();
        EXPECT_EQ(Outline(shape), (fewer ? "| " : "") + std::string(fitted));
    }
}

TEST_F(FreePathPresent, curves_of_documents_that_call_them_polylines_come_back)
{
    std::string poles = kArch;
    std::erase(poles, 'c');
    for (const EVECTOR_TYPE type : {EVECTOR_MIXED, EVECTOR_BEZIER_CHAIN, EVECTOR_BEZIER_SET}) {
        Set(type == EVECTOR_MIXED ? kArch : poles, type);
        EXPECT_EQ(Optimised(false).front(), '2');
        Shape().GetPath(true);
        ExpectFineArch(Shape().Flatten(0.01));
        Reread();
        ExpectFineArch(Shape().Flatten(0.01));
    }
}

TEST_F(PluginPresent, a_loaded_plugin_is_owned_by_its_slot_and_silence_still_logs)
{
    const shapes::PluginLoad none = shapes::LoadPluginInterface(Beside("NullInterface"), true);
    EXPECT_TRUE(!none.pluginInterface && none.message.isEmpty() && TakeLog().empty()) << "merely unavailable";

    shapes::PluginHolder slot;
    const shapes::PluginLoad load = shapes::LoadPluginInterface(Beside("CurveSimulate"), true, &slot);
    EXPECT_TRUE(load.pluginInterface && slot.pluginInterface == load.pluginInterface && slot.module->isLoaded());

    EXPECT_EQ(shapes::LoadPluginInterface(Beside("Nowhere"), false, &slot).message, QString());
    EXPECT_EQ(slot.pluginInterface, load.pluginInterface);
    EXPECT_TRUE(IsOneLine(TakeLog()));
}

} // namespace
