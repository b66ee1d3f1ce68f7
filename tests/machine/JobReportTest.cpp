#include "machine/JobReport.h"

#include "document/DocumentFile.h"
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
#include <QJsonObject>

#include <cmath>
#include <cstring>
#include <numbers>

using namespace shapedocument;

namespace {

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
/// Islands to two digits: round ones are measured by chords.
std::string Told(const JobReport& report)
{
    std::string told;
    for (size_t kind = 0; kind < report.findings.size(); ++kind)
        for (const Finding& finding : report.findings[kind].first)
            told += QString("%1 %2,%3 %4; ")
                        .arg(WordsOf(static_cast<FindingKind>(kind)).name)
                        .arg(finding.place.x(), 0, 'g', 5)
                        .arg(finding.place.y(), 0, 'g', 5)
                        .arg(finding.size, 0, 'g', kind == static_cast<size_t>(FindingKind::TinyIsland) ? 2 : 4)
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
    const QRectF bed(0, 0, 100, 50);
    const struct
    {
        const char* job;
        ReportOptions options;
        std::string told;
    } rows[] = {
        // Nearly closed: one run, a small one, a chain of runs.
        {"0,0 40,0 40,40 0,0.5", {}, "gaps 0,0.25 0.5; "},
        {"0,0 2,0 2,2 0,2 0,0.25", {}, "gaps 0,0.125 0.25; "},
        {"0,0 2,0 2,2 0,2 0,0.5", {}, ""},
        {"0,0 40,0; 20,40 0,0.5; 40,0 20,40", {}, "gaps 0,0.25 0.5; "},
        {"0,0 40,0; 20,40 0,0.5; *40,0 20,40", {}, ""},
        {"0,0 40,0 40,40 0,1.25", {}, ""},
        // In two places, of which overshooting closes one; too wide together; of two colours.
        {"0,0 40,0 40,40; 39.5,40 0,40 0,0.5", {}, "gaps 39.75,40 0.5; gaps 0,0.25 0.5; "},
        {"0,0 40,0 40,40.25; 40.25,40 0,40 0,0.5", {}, "gaps 0,0.25 0.5; "},
        {"0.5,0 7.5,0; 8,0.5 8,7.5; 7.5,8 0.5,8; 0,7.5 0,0.5", {}, ""},
        {"0,0 40,0 40,40; *39.5,40 0,40 0,0.5", {}, ""},
        // Two dashes, teeth of a comb, a tooth that is a run of its own.
        {"0,0 20,0; 20.75,0 40,0", {}, ""},
        {"0,0 0,20; 0.5,0 0.5,20; 1,0 1,20", {}, ""},
        {"0,0 0,20 0.75,20 0.75,0", {}, ""},
        // Closed all the same: the line crosses its begin, or goes over it; both ends lie on another line.
        {"-0.5,0 40,0 40,40 0,40 0,-0.5", {}, ""},
        {"0,0 40,0 40,40 0,40 0,-0.5", {}, ""},
        {"0,0 0,40 40,40 40,1 0.5,0; -5,0.04 50,0.04", {}, ""},
        // In the document's frame; on a bed with an offset; y upwards from 60; an arc beyond its ends; a lead.
        {"-2,5 20,5", OnBed(bed), "outOfBed -2,5 2; "},
        {"90,5 104.5,5", OnBed(bed), "outOfBed 104.5,5 4.5; "},
        {"0,0 100,50", OnBed(bed), ""},
        {"-2,-5 20,45", OnBed(bed.translated(-2, -5)), ""},
        {"0,60 20,8", OnBed(bed, 60), "outOfBed 20,8 2; "},
        {"0,60 20,10", OnBed(bed, 60), ""},
        {"98,20(-1) 98,10", OnBed(bed), "outOfBed 103,15 3; "},
        {">5,52 5,40; 5,40 9,40", OnBed(bed), "outOfBed 5,52 2; "},
        // A short line, which a lead may be; contours that are narrow, also askew or round, and one that is not.
        {"5,5 5.0625,5; >7,7 7.0625,7", {}, "shortLines 5,5 0.0625; "},
        {"0,0 0.25,0 0.25,0.25 0,0.25 0,0", {}, "tinyIslands 0.125,0.125 0.25; "},
        {"0,0 8,8 7.9,8.1 -0.1,0.1 0,0", {}, "tinyIslands 3.95,4.05 0.14; "},
        {"0,0(1) 0.2,0(1) 0,0", {}, "tinyIslands 0.1,0 0.2; "},
        {"0,0 0.5,0 0.5,0.5 0,0.5 0,0", {}, ""},
        // Crossings inside two lines, at a corner, at two, where the contour begins; touching, and going on along
        // itself.
        {"0,0 10,10 10,0 0,10 0,0", {}, "selfCrossings 5,5 0; "},
        {"0,0 10,10 10,0 5,5 0,10 0,0", {}, "selfCrossings 5,5 0; "},
        {"0,0 5,5 10,10 10,0 5,5 0,10 0,0", {}, "selfCrossings 5,5 0; "},
        {"5,5 10,10 10,0 5,5 0,10 0,0 5,5", {}, "selfCrossings 5,5 0; "},
        {"5,1 4,2 1,4 1,3 2,1 4,5 5,1", {}, "selfCrossings 2.875,2.75 0; "},
        {"0,0 5,5 0,10 10,10 5,5 10,0 0,0", {}, ""},
        {"0,0 10,0 10,10 5,0 0,10 0,0", {}, ""},
        {"0,0 10,0 10,5 7,0 3,0 3,-5 0,-5 0,0", {}, ""},
    };
    for (const auto& [job, options, told] : rows) {
        const JobReport report = ReportOf(JobOf(job), options, "test");
        EXPECT_EQ(Told(report), told) << job;
        EXPECT_EQ(report.Spoils(), told.starts_with("gaps") || told.starts_with("outOfBed")) << job;
    }
}

TEST(JobReport, counts_all_findings_and_tells_the_first)
{
    QString job;
    for (int i = 0; i < 1001; ++i)
        job += QString("%1,0 %1.05,0;").arg(10 * i);
    JobReport report = ReportOf(JobOf(job), {}, "test");
    AddDoubledLines(report, {3, 340, {{{1, 2}, 300}, {{3, 4}, 30}, {{5, 6}, 10}}});
    EXPECT_EQ(report.Of(FindingKind::ShortLine).first.size(), kMostTold);
    EXPECT_EQ(ReportLines(report).mid(2).join("\n").toStdString(),
              "3 doubled lines of 340 mm: 1, 2 (300 mm); 3, 4 (30 mm); 5, 6 (10 mm)\n"
              "1001 paths shorter than the beam: 0, 0 (0.05 mm); 10, 0 (0.05 mm); 20, 0 (0.05 mm); …");
    const QJsonObject told = ReportJson(report)["findings"].toObject();
    EXPECT_EQ(told["shortLines"]["count"].toInt(), 1001);
    EXPECT_EQ(told["shortLines"]["first"][1]["x"].toDouble(), 10);
    EXPECT_EQ(told["doubledLines"]["total"].toDouble(), 340);
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
struct WrittenJob
{
    double seconds = 0, cut = 0, travel = 0;

    /// rapid: mm per minute of G0, and at most; 0 where G0 goes as the move before, at first with 1500.
    WrittenJob(const MachineWork& work, const GcodeOptions& options, double rapid)
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
    const MachineJob job = JobOf("*3,4 10,4; 10,20 10,20.1");
    ColorSettings slow;
    slow[1].feed = 300;
    slow[1].passes = 3;
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
    } rows[] = {{plain, {}, 6000}, {passes, slow, 6000}, {marlin, slow, 0}, {fast, {}, 6000}};
    for (const auto& [options, colors, rapid] : rows) {
        MachineWork work(job);
        work.colors = colors;
        const WrittenJob written(work, options, rapid);
        const GcodeTime time = TimeGcode(work, options, {});
        EXPECT_NEAR(time.cutLength, written.cut, 1e-3);
        EXPECT_NEAR(time.travelLength, written.travel, 1e-3);
        EXPECT_NEAR(time.seconds, written.seconds, 1e-3) << written.travel;
    }
}

TEST(GcodeTime, counts_the_length_of_arcs_and_the_way_there_and_back)
{
    const MachineJob job = JobOf("3,4 10,4; 10,0(1) 10,8");
    GcodeOptions options;
    options.yDown = true;
    const GcodeTime time = TimeGcode(job, options, {});
    EXPECT_NEAR(time.cutLength, 7 + 4 * std::numbers::pi, 1e-9);
    EXPECT_NEAR(time.travelLength, 5 + 4 + std::hypot(10, 8), 1e-9);
}

/// One row of 8 mm, with 2 mm of run-up on either side: down to it, round the corner at sqrt(500 * 0.01 * s / (1 - s))
/// mm/s, s the sine of 45 degrees, along it and back.
TEST(GcodeTime, counts_run_ups_of_rows)
{
    const ImageStores stores;
    const Document document = NewDocument();
    document->AddTail(Picture({2, 0, 8, 1}));
    const Engraving engraving(*document, {1}, "test");
    const MachineJob none = JobOf("");
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
