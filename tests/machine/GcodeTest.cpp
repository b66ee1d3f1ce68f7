// G-code word by word, and what a machine reads out of it.
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "machine/Engraving.h"
#include "machine/GcodeMoves.h"
#include "machine/GcodeOutput.h"
#include "machine/LineOutput.h"

#include "image/ImageStores.h"

#include <gtest/gtest.h>

#include <QBuffer>
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

TEST_F(GcodeTest, settings_that_say_nothing_sensible_are_refused)
{
    for (const char* text : {"feed=3\n", "[red]\nfeed=3\n", "[#ff0000]\nfeed=0\n", "[#ff0000]\nfeed=nan\n",
                             "[#ff0000]\npasses=1.5\n", "[#ff0000]\npasses=0\n", "[#ff0000]\nspeed=1\n",
                             "[#ff0000]\npower=-1\n", "[#ff0000]\npower=1,5\n", "[#ff0000]\nnonsense\n"})
        EXPECT_THROW(Settings(text), Failure) << text;
    EXPECT_THROW(ReadColorSettings("no/such/file.ini"), Failure);
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
    options.overscan = 0;
    options.dialect = &kGcodeDialects[1];
    const std::string marlin = Gcode(work, options);
    EXPECT_EQ(marlin.substr(0, marlin.find("G0X3")), "G21\nG90\nM5 I\nM106 S255\nM4 I\n; engraving 1 #000000\n"
                                                     "G0X0Y3.5\nG1X1S255F3000\nG0X2S0\nG1X4S204\n");
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

TEST(GcodeMoves, words_stay_until_they_change)
{
    EXPECT_EQ(Moves("G21 G90 (a note) ; another\nm4 s80\nG0X1Y2\nG1 X3 F600 S+9\nX4\nG0 X5 Z-1\nG1 Y3\nM5\nY4\nG28\n"),
              "1,2 S0 F0 Z0; 3,2 S9 F600 Z0; 4,2 S9 F600 Z0; 5,2 S0 F0 Z-1; 5,3 S9 F600 Z-1; 5,4 S0 F600 Z-1; 1 x G28");
    EXPECT_EQ(Moves("G91\nM3 S1\nG1 X1 Y1\nX1\nG90 G20\nX1Y0"), "1,1 S1 F0 Z0; 2,1 S1 F0 Z0; 25.4,0 S1 F0 Z0; ");
    EXPECT_EQ(Moves("G1 X1 X Ynan Z\nX2 Yinf\nX1e999\nG1 X-1\n"), Moves("G1 X-1\n")) << "places that are no numbers";
}

TEST(GcodeMoves, arcs_keep_to_their_circle)
{
    QByteArray text = "G0 X10 Y0\nG3 X0 Y10 I-10 J0\nG2 X0 Y10 I0 J-10\n";
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    GcodeMoves moves(buffer);
    moves.Next();
    double angle = 0;
    QPointF end;
    while (const auto move = moves.Next()) {
        EXPECT_NEAR(std::hypot(move->to.x(), move->to.y()), 10, 1e-9);
        angle += std::remainder(std::atan2(move->to.y(), move->to.x()) - std::atan2(move->from.y(), move->from.x()),
                                2 * M_PI);
        end = move->to;
    }
    EXPECT_NEAR(angle, M_PI / 2 - 2 * M_PI, 1e-6) << "a quarter forward, a whole circle back";
    EXPECT_NEAR(end.y(), 10, 1e-9);
}
