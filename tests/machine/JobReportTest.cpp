#include "machine/JobReport.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "machine/BedCheck.h"
#include "machine/DoubledLines.h"
#include "machine/Engraving.h"
#include "machine/GcodeMoves.h"
#include "machine/GcodeOutput.h"
#include "machine/JobText.h"
#include "machine/MachineWork.h"
#include "machine/ReportText.h"

#include "image/ImageStores.h"
#include "image/ShapeImage.h"
#include "support/Lists.h"
#include "text/ShapeText.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QJsonArray>
#include <QTemporaryDir>

#include <cmath>
#include <cstring>
#include <numbers>

using namespace shapedocument;

namespace {

using Points = std::vector<JobPoint>;

Points Line(QPointF from, QPointF to)
{
    return {{from}, {to}};
}

Points Square(double side)
{
    return {{{0, 0}}, {{side, 0}}, {{side, side}}, {{0, side}}, {{0, 0}}};
}

ReportOptions OnBed(const QRectF& bed, std::optional<double> height = std::nullopt)
{
    ReportOptions options;
    options.bed = bed;
    options.strictBed = true;
    options.gcode.height = height;
    options.gcode.yDown = !height;
    return options;
}

/// "kind x,y size" of all findings, in thousandths.
std::string Told(const JobReport& report)
{
    std::string told;
    for (size_t kind = 0; kind < report.findings.size(); ++kind)
        for (const Finding& finding : report.findings[kind].first)
            told += QString("%1 %2,%3 %4; ")
                        .arg(WordsOf(static_cast<FindingKind>(kind)).name)
                        .arg(finding.place.x(), 0, 'g', 5)
                        .arg(finding.place.y(), 0, 'g', 5)
                        .arg(finding.size, 0, 'g', 4)
                        .toStdString();
    return told;
}

/// A picture of one dark pixel a millimetre.
CShapeImage* Picture(const QRectF& rect)
{
    auto* picture = new CShapeImage;
    picture->SetOrgRect(rect, true);
    cv::Mat pixels(int(rect.height()), int(rect.width()), CV_8UC1, cv::Scalar(0));
    picture->SetImage(pixels, false);
    return picture;
}

CShapeText* Text()
{
    SText text;
    std::strcpy(text.pText, "A");
    std::strcpy(text.font.szFamily, "No Such Family");
    auto* shape = new CShapeText;
    shape->SetText(text);
    return shape;
}

} // namespace

TEST(JobReport, finds_what_would_go_wrong_and_where)
{
    const unsigned int red = 0xFF0000;
    const QRectF bed(0, 0, 100, 50);
    const struct
    {
        std::vector<TestRun> runs;
        ReportOptions options;
        const char* told;
        bool spoils;
    } rows[] = {
        // Nearly closed: one run, a small one, a chain of runs.
        {{{0, {{{0, 0}}, {{40, 0}}, {{40, 40}}, {{0, 0.5}}}}}, {}, "gaps 0,0.25 0.5; ", true},
        {{{0, {{{0, 0}}, {{2, 0}}, {{2, 2}}, {{0, 2}}, {{0, 0.25}}}}}, {}, "gaps 0,0.125 0.25; ", true},
        {{{0, {{{0, 0}}, {{2, 0}}, {{2, 2}}, {{0, 2}}, {{0, 0.5}}}}}, {}, "", false},
        {{{0, Line({0, 0}, {40, 0})}, {0, Line({20, 40}, {0, 0.5})}, {0, Line({40, 0}, {20, 40})}},
         {},
         "gaps 0,0.25 0.5; ",
         true},
        {{{0, Line({0, 0}, {40, 0})}, {0, Line({20, 40}, {0, 0.5})}, {red, Line({40, 0}, {20, 40})}}, {}, "", false},
        {{{0, {{{0, 0}}, {{40, 0}}, {{40, 40}}, {{0, 1.25}}}}}, {}, "", false},
        // Two dashes, teeth of a comb, a tooth that is a run of its own.
        {{{0, Line({0, 0}, {20, 0})}, {0, Line({20.75, 0}, {40, 0})}}, {}, "", false},
        {{{0, Line({0, 0}, {0, 20})}, {0, Line({0.5, 0}, {0.5, 20})}, {0, Line({1, 0}, {1, 20})}}, {}, "", false},
        {{{0, {{{0, 0}}, {{0, 20}}, {{0.75, 20}}, {{0.75, 0}}}}}, {}, "", false},
        // Closed all the same: the line crosses its begin, or goes over it; both ends lie on another line.
        {{{0, {{{-0.5, 0}}, {{40, 0}}, {{40, 40}}, {{0, 40}}, {{0, -0.5}}}}}, {}, "", false},
        {{{0, {{{0, 0}}, {{40, 0}}, {{40, 40}}, {{0, 40}}, {{0, -0.5}}}}}, {}, "", false},
        {{{0, {{{0, 0}}, {{0, 40}}, {{40, 40}}, {{40, 1}}, {{0.5, 0}}}}, {0, Line({-5, 0.04}, {50, 0.04})}},
         {},
         "",
         false},
        // The bed in the document's frame; a place of its own; y upwards from the document's 60; an arc beyond its
        // ends,
        // a lead.
        {{{0, Line({-2, 5}, {20, 5})}}, OnBed(bed), "outOfBed -2,5 2; ", true},
        {{{0, Line({90, 5}, {104.5, 5})}}, OnBed(bed), "outOfBed 104.5,5 4.5; ", true},
        {{{0, Line({0, 0}, {100, 50})}}, OnBed(bed), "", false},
        {{{0, Line({-2, -5}, {20, 45})}}, OnBed(bed.translated(-2, -5)), "", false},
        {{{0, Line({0, 60}, {20, 8})}}, OnBed(bed, 60), "outOfBed 20,8 2; ", true},
        {{{0, Line({0, 60}, {20, 10})}}, OnBed(bed, 60), "", false},
        {{{0, {{{98, 20}, -1}, {{98, 10}}}}}, OnBed(bed), "outOfBed 103,15 3; ", true},
        {{{0, Line({5, 52}, {5, 40}), PathKind::LeadIn}, {0, Square(40)}}, OnBed(bed), "outOfBed 5,52 2; ", true},
        // Narrow contours, also askew; what is short in one direction alone is none, nor a lead.
        {{{0, Line({5, 5}, {5.0625, 5})}}, {}, "shortLines 5,5 0.0625; ", false},
        {{{0, Line({5, 5}, {5.0625, 5}), PathKind::LeadIn}}, {}, "", false},
        {{{0, Square(0.25)}}, {}, "tinyIslands 0.125,0.125 0.25; ", false},
        {{{0, {{{0, 0}}, {{8, 8}}, {{7.9, 8.1}}, {{-0.1, 0.1}}, {{0, 0}}}}},
         {},
         "tinyIslands 3.95,4.05 0.1414; ",
         false},
        {{{0, {{{0, 0}, 1}, {{0.2, 0}, 1}, {{0, 0}}}}}, {}, "tinyIslands 0.1,0 0.199; ", false},
        {{{0, Square(0.5)}}, {}, "", false},
        // A bow tie.
        {{{0, {{{0, 0}}, {{10, 10}}, {{10, 0}}, {{0, 10}}, {{0, 0}}}}}, {}, "selfCrossings 5,5 0; ", false},
    };
    for (const auto& [runs, options, told, spoils] : rows) {
        const JobReport report = ReportOf(JobOf(runs), options, "test");
        EXPECT_EQ(Told(report), told) << TextOf(JobOf(runs));
        EXPECT_EQ(report.Spoils(), spoils) << TextOf(JobOf(runs));
    }
}

TEST(JobReport, counts_all_findings_and_tells_the_first)
{
    std::vector<TestRun> runs;
    for (int i = 0; i < 1001; ++i)
        runs.push_back({0, Line({10.0 * i, 0}, {10.0 * i + 0.05, 0})});
    JobReport report = ReportOf(JobOf(runs), {}, "test");
    AddDoubledLines(report, {3, 340, {{{1, 2}, 300}, {{3, 4}, 30}, {{5, 6}, 10}}});
    EXPECT_EQ(report.Of(FindingKind::ShortLine).count, 1001u);
    EXPECT_EQ(report.Of(FindingKind::ShortLine).first.size(), kMostTold);
    EXPECT_EQ(ReportLines(report).mid(2).join("\n").toStdString(),
              "3 doubled lines of 340 mm: 1, 2 (300 mm); 3, 4 (30 mm); 5, 6 (10 mm)\n"
              "1001 paths shorter than the beam: 0, 0 (0.05 mm); 10, 0 (0.05 mm); 20, 0 (0.05 mm); …");
    const QJsonObject told = ReportJson(report)["findings"].toObject();
    EXPECT_EQ(told["shortLines"].toObject()["count"].toInt(), 1001);
    EXPECT_EQ(told["shortLines"].toObject()["first"].toArray()[1].toObject()["x"].toDouble(), 10);
    EXPECT_EQ(told["doubledLines"].toObject()["total"].toDouble(), 340);
}

TEST(JobReport, tells_of_hidden_shapes_only_that_they_are_hidden)
{
    const ImageStores stores;
    const Document document = NewDocument();
    const auto told = [&] {
        JobReport report;
        AddShapeFindings(report, *document, 10);
        std::string counts;
        for (size_t kind = 0; kind < report.findings.size(); ++kind)
            if (const size_t count = report.findings[kind].count)
                counts += std::string(WordsOf(static_cast<FindingKind>(kind)).name) + " " + std::to_string(count) + " ";
        return counts;
    };
    CShape* const group = test::MakeGroup({Picture({0, 0, 4, 4}), Text()}).release();
    document->AddTail(group);
    document->AddTail(Picture({10, 0, 4, 4}));
    EXPECT_EQ(told(), "coarsePictures 2 missingFonts 1 ");
    group->Hide(true);
    EXPECT_EQ(told(), "coarsePictures 1 hidden 1 ");
    document->GetShape(1)->Hide(true);
    document->GetShape(1)->Lock(true);
    EXPECT_EQ(told(), "hidden 2 locked 1 ");
}

namespace {

/// Seconds for a straight line from stop to stop at a speed (mm per minute), with 500 mm/s².
double StopToStop(double length, double speed)
{
    const double perSecond = speed / 60, acceleration = 500;
    return length < perSecond * perSecond / acceleration ? 2 * std::sqrt(length / acceleration)
                                                         : length / perSecond + perSecond / acceleration;
}

/// Of written G-code whose moves all end at a stop.
struct Written
{
    double seconds = 0, cut = 0, travel = 0;

    /// rapid: mm per minute of G0, and at most; 0 where G0 goes as the move before, at first with 1500.
    Written(const MachineWork& work, const GcodeOptions& options, double rapid)
    {
        QBuffer gcode;
        gcode.open(QIODevice::ReadWrite);
        WriteGcode(gcode, work, options);
        gcode.seek(0);
        GcodeMoves moves(gcode);
        double feed = 1500, height = 0;
        while (const auto move = moves.Next()) {
            if (move->height != height)
                seconds += StopToStop(std::abs(move->height - height), rapid > 0 ? rapid : feed);
            height = move->height;
            feed = move->feed > 0 ? move->feed : feed;
            const double length = std::hypot(move->to.x() - move->from.x(), move->to.y() - move->from.y());
            (move->power > 0 ? cut : travel) += length;
            seconds += StopToStop(length, move->feed > 0 || rapid == 0 ? std::min(feed, 6000.0) : rapid);
        }
    }
};

} // namespace

TEST(GcodeTime, is_that_of_the_written_moves)
{
    const MachineJob job = JobOf({{0xFF0000, Line({3, 4}, {10, 4})}, {0x0000FF, Line({10, 20}, {10, 20.1})}});
    ColorSettings slowRed;
    slowRed[0xFF0000].feed = 300;
    slowRed[0xFF0000].passes = 3;
    GcodeOptions plain, passes, marlin, fast;
    passes.passes = 2;
    passes.passDepth = 0.5;
    marlin.dialect = &kGcodeDialects[1];
    fast.feed = 50'000;
    fast.yDown = true;
    const struct
    {
        const GcodeOptions& options;
        const ColorSettings& colors;
        double rapid;
    } rows[] = {{plain, {}, 6000}, {passes, slowRed, 6000}, {marlin, slowRed, 0}, {fast, {}, 6000}};
    for (const auto& [options, colors, rapid] : rows) {
        MachineWork work(job);
        work.colors = colors;
        const Written written(work, options, rapid);
        const GcodeTime time = TimeGcode(work, options, {});
        EXPECT_NEAR(time.cutLength, written.cut, 1e-3);
        EXPECT_NEAR(time.travelLength, written.travel, 1e-3);
        EXPECT_NEAR(time.seconds, written.seconds, 1e-3) << written.travel;
    }
}

/// One row of 8 mm, with 2 mm of run-up on either side: down to it, round the corner at sqrt(500 * 0.01 * s / (1 - s))
/// mm/s, s the sine of 45 degrees, along it and back.
TEST(GcodeTime, counts_run_ups_of_rows)
{
    const ImageStores stores;
    const Document document = NewDocument();
    document->AddTail(Picture({2, 0, 8, 1}));
    const Engraving engraving(*document, {1}, "test");
    const MachineJob none = JobOf({});
    MachineWork work(none);
    work.engraving = &engraving;
    GcodeOptions options;
    options.overscan = 2;
    options.yDown = true;
    const GcodeTime time = TimeGcode(work, options, {});
    const double corner = std::sqrt(5 * std::sqrt(0.5) / (1 - std::sqrt(0.5))), back = std::hypot(12, 0.5);
    const double there = (2 * std::sqrt(500 * 0.5 + corner * corner / 2) - corner) / 500;
    const double along = (40 - corner) / 500 + (12 - (800 - corner * corner) / 1000) / 20;
    EXPECT_NEAR(time.seconds, there + along + StopToStop(back, 6000), 1e-9);
    EXPECT_NEAR(time.travelLength, 0.5 + 4 + back, 1e-9);
    EXPECT_NEAR(time.engraveTravelLength, 0.5 + 4, 1e-9);
    EXPECT_NEAR(time.engravedArea, 8, 1e-9);
    EXPECT_EQ(time.engravedRows, 1u);
    const Findings outside = FindOutsideBed({0.5, 0, 10, 10}, work, options);
    ASSERT_EQ(outside.count, 1u) << "the run-ups leave the bed";
    EXPECT_NEAR(outside.first[0].size, 1.5, 1e-9);
}

TEST(MachineSettings, are_read_or_refused_with_their_line)
{
    const char* const names = "feed, engraveFeed, rapid, acceleration, junctionDeviation, beam";
    const std::pair<QByteArray, std::string> rows[] = {
        {"\xEF\xBB\xBF[machine]\r\nfeed = 2400 ; mm\r\n\r\n# laser\r\nbeam=0.2\r\n", "feed 2400, beam 0.2"},
        {"", "feed 0, beam 0.1"},
        {"feed = 5\n", "line 1: feed stands before [machine]"},
        {"[machine]\nfeed = 5\n\nfeed = 6\n", "line 4: feed has been set in line 2 already"},
        {"[machine]\nfeed = -5\n", "line 2: feed is \"-5\", no number from 0.001 to 1000000"},
        {"[machine]\nrapid = nan\n", "line 2: rapid is \"nan\", no number from 0.001 to 1000000"},
        {"[machine]\nfree = 1\n", std::string("line 2: \"free\" is none of ") + names},
        {"[laser]\nfeed = 1\n", "line 1: [laser] is no section of a machine, which has [machine] alone"},
        {"[machine]\n" + QByteArray(50, 'x'),
         "line 2: \"" + std::string(40, 'x') + "\u2026\" is no setting as feed = 1200"},
        {QByteArray(70'000, '\n'), "is larger than 65536 bytes: no settings of a machine"},
    };
    const QTemporaryDir folder;
    for (const auto& [text, wanted] : rows) {
        QFile file(folder.filePath("machine.ini"));
        file.open(QIODevice::WriteOnly);
        file.write(text);
        file.close();
        std::string got;
        try {
            const MachineSettings settings = ReadMachineSettings(file.fileName());
            got = QString("feed %1, beam %2").arg(settings.feed.value_or(0)).arg(settings.beam).toStdString();
        } catch (const Failure& failure) {
            got = failure.reason.toStdString();
        }
        EXPECT_EQ(got, wanted);
    }
}
