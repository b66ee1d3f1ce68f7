// G-code word by word, and what a machine reads out of it.
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "machine/Engraving.h"
#include "machine/GcodeMoves.h"
#include "machine/GcodeOutput.h"
#include "machine/HeadWay.h"
#include "machine/JobOrder.h"
#include "machine/LineOutput.h"
#include "machine/PathPasses.h"

#include "image/ImageStores.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <sstream>

using namespace shapedocument;

namespace {

/// A red square's first side and a blue line.
class GcodeTest : public testing::Test
{
protected:
    GcodeTest()
    {
        job.Append({1, PathKind::Cut, 0xFF0000}, {{{1, 2}}, {{4, 2}}});
        job.Append({2, PathKind::Cut, 0x0000FF}, {{{0, 4}}, {{0.25, 4}}, {{0.25, 3}}});
        job.Finish("test");
    }

    /// Without the comment that begins every file.
    template <class Write>
    std::string Written(Write write)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        write(buffer);
        return buffer.data().toStdString();
    }

    std::string Gcode(const MachineWork& work, const GcodeOptions& options)
    {
        const std::string text = Written([&](QIODevice& device) { WriteGcode(device, work, options); });
        return text.substr(text.find('\n') + 1);
    }

    ColorSettings Settings(const QByteArray& text)
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath("colors.ini"));
        file.open(QIODevice::WriteOnly);
        file.write(text);
        file.close();
        return ReadColorSettings(file.fileName());
    }

    MachineJob job{"test"};
};

/// A picture of 4 x 2 dots of a millimetre.
class EngravedGcodeTest : public GcodeTest
{
protected:
    EngravedGcodeTest()
    {
        auto* picture = new CShapeImage;
        picture->SetOrgRect(QRectF(0, 0, 4, 2), true);
        cv::Mat pixels(2, 4, CV_8UC1);
        const unsigned char greys[] = {0, 255, 51, 51, 255, 204, 204, 255};
        std::copy(std::begin(greys), std::end(greys), pixels.data);
        picture->SetImage(pixels, false);
        document->AddTail(picture);
        engraving.emplace(*document, EngraveOptions{1}, "test");
        work.engraving = &*engraving;
        options.leastPower = 0;
        options.mostPower = 255;
        options.engraveFeed = 3000;
    }

    ImageStores stores;
    Document document = NewDocument();
    std::optional<Engraving> engraving;
    MachineWork work{job};
    GcodeOptions options;
};

std::string Moves(const QByteArray& text)
{
    QByteArray copy = text;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    GcodeMoves moves(buffer);
    std::ostringstream list;
    while (const auto move = moves.Next())
        list << move->to.x() << "," << move->to.y() << " S" << move->power << " F" << move->feed << " Z" << move->height
             << "; ";
    for (const auto& [word, count] : moves.Ignored())
        list << count << " x " << word.toStdString();
    return list.str();
}

} // namespace

TEST_F(GcodeTest, dialects_say_the_same_in_their_own_words)
{
    GcodeOptions options;
    options.power = 100;
    options.air = AirAssist::Lines;
    EXPECT_EQ(Gcode(job, options), "G21\nG90\nG94\nM5\nM8\n"
                                   "; shape 1 #ff0000\nG0 X1.0000 Y2.0000\nM4 S100\nG1 X4.0000 Y2.0000 F1200\nM5\n"
                                   "; shape 2 #0000ff\nG0 X0.0000 Y0.0000\nM4 S100\nG1 X0.2500 Y0.0000 F1200\n"
                                   "G1 X0.2500 Y1.0000\nM5\nM9\nG0 X0 Y0\nM2\n");
    options.dialect = &kGcodeDialects[1];
    options.constantPower = true;
    EXPECT_EQ(Gcode(job, options), "G21\nG90\nM5 I\nM106 S255\n"
                                   "; shape 1 #ff0000\nG0 X1.0000 Y2.0000\nM3 I\nG1 X4.0000 Y2.0000 F1200 S100\nM5 I\n"
                                   "; shape 2 #0000ff\nG0 X0.0000 Y0.0000\nM3 I\nG1 X0.2500 Y0.0000 F1200 S100\n"
                                   "G1 X0.2500 Y1.0000\nM5 I\nM107\nG0 X0 Y0\nM400\n");
}

TEST_F(GcodeTest, colours_have_their_own_settings_and_order_and_passes_go_down)
{
    MachineWork work(job);
    work.colors = Settings("[#0000FF]\nfeed=300\npower=900.5\norder=1\npasses=2\n; a remark\n[#00ff00]\npasses=9\n");
    GcodeOptions options;
    options.passDepth = 0.5;
    options.yDown = true;
    const std::string blue = "G0 X0.0000 Y4.0000\nM4 S900.5\nG1 X0.2500 Y4.0000 F300\nG1 X0.2500 Y3.0000\nM5\n";
    EXPECT_EQ(Gcode(work, options), "G21\nG90\nG94\nM5\n; shape 2 #0000ff\n" + blue + "G0 Z-0.5000\n" + blue +
                                        "; shape 1 #ff0000\nG0 Z0.0000\n"
                                        "G0 X1.0000 Y2.0000\nM4 S500\nG1 X4.0000 Y2.0000 F1200\nM5\nG0 X0 Y0\nM2\n");
    EXPECT_EQ(Written([&](QIODevice& device) { WriteCsv(device, work); }),
              "shape,path,kind,x1,y1,x2,y2,color\n"
              "2,1,cut,0.0000,4.0000,0.2500,4.0000,#0000ff\n2,1,cut,0.2500,4.0000,0.2500,3.0000,#0000ff\n"
              "1,2,cut,1.0000,2.0000,4.0000,2.0000,#ff0000\n");
}

TEST_F(GcodeTest, settings_are_read_whatever_the_editor_and_refused_where_they_say_nothing_sensible)
{
    const ColorSettings colors =
        Settings("\xEF\xBB\xBF[#ff0000]\r\n feed = 30 ; slow\r\n\r\n# [#00ff00]\r\n[#0000FF]\rorder=-2");
    ASSERT_EQ(colors.size(), 2u);
    EXPECT_EQ(colors.at(0xFF0000).feed, 30);
    EXPECT_EQ(colors.at(0x0000FF).order, -2);
    const QByteArray written = "[#0000ff]\norder = -2\n[#00ff00]\nfeed = 0.1\npower = 1e+06\npasses = 1000\n";
    EXPECT_EQ(ColorSettingsText(Settings(written)), written);
    const std::pair<const char*, const char*> refused[] = {
        {"feed=3\n", "line 1 has \"feed\" in no section"},
        {"[red]\nfeed=3\n", "line 1: [red] is no colour as [#ff0000]"},
        {"[#ff0000]\nfeed=0\n", "line 2: feed \"0\" is no number from 0.001 to 1000000"},
        {"[#ff0000]\nfeed=nan\n", "line 2: feed \"nan\" is no number from 0.001 to 1000000"},
        {"[#ff0000]\npasses=1.5\n", "line 2: passes \"1.5\" is no whole number from 1 to 1000"},
        {"[#ff0000]\npasses=0\n", "line 2: passes \"0\" is no whole number from 1 to 1000"},
        {"[#ff0000]\nspeed=1\n", "line 2: \"speed\" is none of feed, power, passes and order"},
        {"[#ff0000]\npower=1,5\n", "line 2: power \"1,5\" is no number from 0 to 1000000"},
        {"[#ff0000]\nnonsense\n", "line 2 is neither a section nor a key with its value"},
        {"[#ff0000]\nfeed=1\nfeed=2\n", "line 3 has \"feed\" of [#ff0000] again, which stands on line 2"},
        {"[#ff0000]\n[#FF0000]\n", "line 2 has [#FF0000] again, which stands on line 1"},
    };
    for (const auto& [text, reason] : refused)
        try {
            Settings(text);
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.reason.toStdString(), reason);
        }
    EXPECT_THROW(ReadColorSettings("no/such/file.ini"), Failure);
}

/// The machine's time of a whole job at each of its steps: that of a job that ends there.
TEST_F(EngravedGcodeTest, the_head_comes_to_every_step_at_the_time_of_the_moves_before_it)
{
    options.yDown = true;
    work.colors = Settings("[#0000ff]\npasses = 2\n");
    const HeadWay way = WayOfHead(work, options, {});
    std::ostringstream steps;
    for (const HeadStep& step : way.steps)
        steps << "TRP"[static_cast<int>(step.kind)] << step.to.x() << ',' << step.to.y() << ' ' << step.path
              << step.pass << "; ";
    EXPECT_EQ(steps.str(), "T0,0.5 00; R4,0.5 00; T3,1.5 00; R1,1.5 00; T1,2 00; P4,2 00; T0,4 00; P0.25,3 10; "
                           "T0,4 00; P0.25,3 11; T0,0 00; ");
    EXPECT_EQ(way.time.seconds, TimeGcode(work, options, {}).seconds);
    EXPECT_EQ(way.steps.back().end, way.time.seconds);
    EXPECT_TRUE(std::ranges::is_sorted(way.steps, {}, &HeadStep::end));
    // 3 mm of the first path at 20 mm/s, from stop to stop with 500 mm/s².
    EXPECT_NEAR(way.steps[5].end - way.steps[4].end, 0.08 + 2.2 / 20, 1e-9);
}

/// Squares inside each other, colours in turns from the outermost inwards.
TEST(PathPasses, finish_what_is_inside_before_what_is_around_it_unless_the_order_of_colours_is_against_it)
{
    constexpr size_t kCount = 4;
    MachineJob job("test");
    for (size_t i = 0; i < kCount; ++i) {
        const auto low = static_cast<double>(i), high = static_cast<double>(20 - i);
        job.Append({i + 1, PathKind::Cut, static_cast<unsigned int>(i % 2)},
                   {{{low, low}}, {{high, low}}, {{high, high}}, {{low, high}}, {{low, low}}});
    }
    job.Finish("test");
    for (int i = 0; i < 2 * 4 * 4 * 9; ++i) {
        SCOPED_TRACE(i);
        const int passes[] = {i / 2 % 4, i / 8 % 4}, orders[] = {i / 32 % 3, i / 96}; // 0: none of its own
        ColorSettings colors;
        for (unsigned int color : {0u, 1u}) {
            if (passes[color] > 0)
                colors[color].passes = passes[color];
            if (orders[color] > 0)
                colors[color].order = orders[color];
        }
        const auto order = [&](size_t square) { return SettingOf(colors, square % 2).order; };
        const OrderedJob ordered = PutInOrder(job, nullptr, i % 2, colors, "test");
        MachineWork work(ordered.job);
        work.colors = colors;
        std::vector<size_t> followed;
        ForEachPass(work, 2, [&](const PathPass& pass, JobReader&) { followed.push_back(pass.path.shape - 1); });
        size_t against = 0;
        for (size_t inner = 0; inner < kCount; ++inner) {
            const int own = passes[inner % 2];
            EXPECT_EQ(std::count(followed.begin(), followed.end(), inner), own > 0 ? own : 2);
            bool isAgainst = false;
            for (size_t outer = 0; outer < inner; ++outer) {
                const auto last = std::find(followed.rbegin(), followed.rend(), inner).base();
                const bool after = last > std::find(followed.begin(), followed.end(), outer);
                EXPECT_EQ(after, order(outer) < order(inner)) << inner << " in " << outer;
                isAgainst |= after;
            }
            against += isAgainst;
        }
        EXPECT_EQ(ordered.againstInside, against);
    }
}

TEST_F(EngravedGcodeTest, rows_are_short_and_off_over_white)
{
    const std::string lines = "; shape 2 #ff0000\nG0 X1.0000 Y2.0000\nM4 S500\nG1 X4.0000 Y2.0000 F1200\nM5\n"
                              "; shape 3 #0000ff\nG0 X0.0000 Y0.0000\nM4 S500\nG1 X0.2500 Y0.0000 F1200\n"
                              "G1 X0.2500 Y1.0000\nM5\nG0 X0 Y0\nM2\n";
    EXPECT_EQ(Gcode(work, options), "G21\nG90\nG94\nM5\nM4 S0\n; engraving 1 #000000\n"
                                    "G0X0Y3.5\nG1X1S255F3000\nG0X2S0\nG1X4S204\n"
                                    "G0X3Y2.5S0\nG1X1S51\nM5\n" +
                                        lines);
    options.overscan = 2.5;
    options.air = AirAssist::All;
    const std::string rows = Gcode(work, options);
    EXPECT_EQ(rows.substr(0, rows.find("; shape")),
              "G21\nG90\nG94\nM5\nM8\nM4 S0\n; engraving 1 #000000\n"
              "G0X-2.5Y3.5\nG1X0F3000\nX1S255\nG0X2S0\nG1X4S204\nX6.5S0\nG0X5.5Y2.5\nG1X3\nX1S51\nX-1.5S0\nM5\n");
    options.dialect = &kGcodeDialects[1];
    const std::string marlin = Gcode(work, options);
    EXPECT_EQ(marlin.substr(0, marlin.find("G0X5.5")), "G21\nG90\nM5 I\nM106 S255\nM4 I\n; engraving 1 #000000\n"
                                                       "G0X-2.5Y3.5\nG1X0S0F3000\nG1X1S255\nG0X2S0\nG1X4S204\n"
                                                       "G1X6.5S0\n");
}

/// A machine that keeps its power on G0, as without laser mode, or that has none behind G0 until a word says so.
TEST_F(EngravedGcodeTest, laser_is_off_in_rapids_and_its_power_said_where_it_burns)
{
    for (int i = 0; i < 16; ++i) {
        SCOPED_TRACE(i);
        options.dialect = &kGcodeDialects[i % 2];
        options.constantPower = i & 2;
        options.overscan = i & 4 ? 1 : 0;
        options.passes = i & 8 ? 2 : 1;
        const bool keepsPower = options.dialect->powerWithOn;
        std::istringstream lines(Gcode(work, options));
        bool on = true; // whatever there was before
        std::optional<double> power;
        size_t burning = 0, rapids = 0;
        char motion = 0;
        for (std::string line; std::getline(lines, line);) {
            line = line.substr(0, line.find(';'));
            if (line.rfind("M3", 0) == 0 || line.rfind("M4", 0) == 0)
                on = line.rfind("M400", 0) != 0;
            if (line.rfind("M5", 0) == 0)
                on = false;
            if (line.rfind("G0", 0) == 0 || line.rfind("G1", 0) == 0)
                motion = line[1];
            if (const size_t word = line.find('S'); word != std::string::npos && (keepsPower || motion == '1'))
                power = std::stod(line.substr(word + 1));
            if (line.find_first_of("XY") == std::string::npos)
                continue;
            if (motion == '0') {
                ++rapids;
                EXPECT_TRUE(!on || !keepsPower || power == 0) << line;
                power = keepsPower ? power : std::nullopt;
            } else {
                ++burning;
                EXPECT_TRUE(on && power) << line;
            }
        }
        EXPECT_FALSE(on);
        EXPECT_GT(burning, 5u);
        EXPECT_GT(rapids, 4u);
    }
}

TEST_F(EngravedGcodeTest, rows_whose_run_up_leaves_the_machine_are_counted)
{
    job = MachineJob("test");
    for (const auto& [overscan, rows] : {std::pair(0.0, 0u), std::pair(0.5, 1u), std::pair(1.5, 2u)}) {
        options.overscan = overscan;
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        const RowCounts counts = WriteGcode(buffer, work, options);
        EXPECT_EQ(counts.rows, 2u);
        EXPECT_EQ(counts.leftOfZero, rows); // rows begin at 0 and at 1
        EXPECT_EQ(counts.least, -overscan);
    }
}

/// Digits are ten-thousandths of a millimetre.
TEST_F(GcodeTest, moves_without_length_are_left_out)
{
    MachineJob small("test");
    small.Append({1, PathKind::Cut, 0}, {{{1, 2}}, {{1.00004, 2}}, {{1.00004, 2.00004}}, {{1.0001, 2}}, {{3, 2}}});
    small.Append({2, PathKind::Cut, 0}, {{{3, 2.00002}}, {{3, 4}}});
    small.Append({3, PathKind::Cut, 0}, {{{7, 7}}, {{7.00001, 7}}});
    small.Finish("test");
    GcodeOptions options;
    options.yDown = true;
    EXPECT_EQ(Gcode(small, options), "G21\nG90\nG94\nM5\n; shape 1 #000000\nG0 X1.0000 Y2.0000\nM4 S500\n"
                                     "G1 X1.0001 Y2.0000 F1200\nG1 X3.0000 Y2.0000\nM5\n"
                                     "; shape 2 #000000\nM4 S500\nG1 X3.0000 Y4.0000 F1200\nM5\nG0 X0 Y0\nM2\n");
}

TEST_F(EngravedGcodeTest, other_formats_begin_with_the_rows)
{
    const std::string csv = Written([&](QIODevice& device) { WriteCsv(device, work); });
    EXPECT_EQ(csv.substr(0, csv.find("2,4")), "shape,path,kind,x1,y1,x2,y2,color,grey\n"
                                              "1,1,engrave,0.0000,0.5000,1.0000,0.5000,#000000,0\n"
                                              "1,1,engrave,2.0000,0.5000,4.0000,0.5000,#000000,51\n"
                                              "1,2,engrave,3.0000,1.5000,1.0000,1.5000,#000000,204\n"
                                              "2,3,cut,1.0000,2.0000,4.0000,2.0000,#ff0000,\n"
                                              "3,4,cut,0.0000,4.0000,0.2500,4.0000,#0000ff,\n"
                                              "3,4,cut,0.2500,4.0000,0.2500,3.0000,#0000ff,\n");
    const std::string svg = Written([&](QIODevice& device) { WriteSvg(device, work); });
    EXPECT_NE(svg.find("    <g class=\"engrave\" id=\"shape1\" stroke-width=\"1.0000\">\n"
                       "        <path d=\"M0 0.5H1\" stroke=\"#000000\"/>\n"
                       "        <path d=\"M2 0.5H4\" stroke=\"#333333\"/>\n"
                       "        <path d=\"M3 1.5H1\" stroke=\"#cccccc\"/>\n"
                       "    </g>\n    <g id=\"shape2\" stroke=\"#ff0000\">\n"),
              std::string::npos)
        << svg;
}

TEST_F(EngravedGcodeTest, a_shape_that_is_come_back_to_has_its_id_once)
{
    MachineJob turns("test");
    for (const size_t shape : {2, 1, 2})
        turns.Append({shape, PathKind::Cut, 0}, {{{0, 0}}, {{1, 0}}});
    turns.Finish("test");
    const QString svg = QString::fromStdString(Written([&](QIODevice& device) { WriteSvg(device, turns); }));
    std::string groups;
    for (const QRegularExpressionMatch& match : QRegularExpression("<g (\\S+)").globalMatch(svg))
        groups += match.captured(1).toStdString() + ' ';
    EXPECT_EQ(groups, "id=\"shape2\" id=\"shape1\" class=\"shape2\" ");
}

TEST(GcodeMoves, words_stay_until_they_change)
{
    EXPECT_EQ(Moves("G21 G90 (a note) ; another\nm4 s80\nG0X1Y2\nG1 X3 F600 S+9\nX4\nG0 X5 Z-1\nG1 Y3\nM5\nY4\nG28\n"),
              "1,2 S0 F0 Z0; 3,2 S9 F600 Z0; 4,2 S9 F600 Z0; 5,2 S0 F0 Z-1; 5,3 S9 F600 Z-1; 5,4 S0 F600 Z-1; 1 x G28");
    EXPECT_EQ(Moves("M3 S9\nX1 F600\n"), "1,0 S0 F0 Z0; ") << "no word of motion yet";
    EXPECT_EQ(Moves("G91\nM3 S1\nG1 X1 Y1\nX1\nG90 G20\nX1Y0"), "1,1 S1 F0 Z0; 2,1 S1 F0 Z0; 25.4,0 S1 F0 Z0; ");
    EXPECT_EQ(Moves("G1 X1 X Ynan Z\nX2 Yinf\nX1e999\nG1 X-1\n"), Moves("G1 X-1\n")) << "places that are no numbers";
}

/// In degrees about 0,0; the distance from there must stay.
TEST(GcodeMoves, arcs_keep_to_their_circle)
{
    std::istringstream moves(Moves("G0 X10 Y0\nM3 S1\nG3 X0 Y10 I-10 J0\nG2 X0 Y10 I0 J-10\n"));
    double turned = 0, last = 0;
    for (std::string move; std::getline(moves, move, ';') && move.find(',') != std::string::npos;) {
        const double x = std::stod(move), y = std::stod(move.substr(move.find(',') + 1));
        EXPECT_NEAR(std::hypot(x, y), 10, 1e-4);
        turned += std::remainder(std::atan2(y, x) - last, 2 * M_PI);
        last = std::atan2(y, x);
    }
    EXPECT_NEAR(turned, M_PI / 2 - 2 * M_PI, 1e-4) << "a quarter forward, a whole circle back";
}
