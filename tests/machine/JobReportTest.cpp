#include "machine/JobReport.h"
#include "machine/MachineJob.h"
#include "machine/MachineWork.h"
#include "machine/ReportText.h"

#include <gtest/gtest.h>

#include <QJsonArray>

#include <numbers>

using namespace shapedocument;

namespace {

struct Path
{
    std::vector<JobPoint> points;
    unsigned int color = 0;
};

MachineJob JobOf(const std::vector<Path>& paths)
{
    MachineJob job("test");
    size_t shape = 0;
    for (const Path& path : paths)
        job.Append({++shape, PathKind::Cut, path.color}, path.points);
    job.Finish("test");
    return job;
}

Path Line(QPointF from, QPointF to, unsigned int color = 0)
{
    return {{{from, 0}, {to, 0}}, color};
}

Path Open(const QPolygonF& points, unsigned int color = 0)
{
    Path path{{}, color};
    for (const QPointF& point : points)
        path.points.push_back({point, 0});
    return path;
}

Path Square(double side)
{
    return {{{{0, 0}, 0}, {{side, 0}, 0}, {{side, side}, 0}, {{0, side}, 0}, {{0, 0}, 0}}};
}

ReportOptions OnBed(double width, double height)
{
    ReportOptions options;
    options.bed = QSizeF(width, height);
    return options;
}

/// "kind x,y size" of all findings.
std::string Told(const JobReport& report)
{
    std::string told;
    for (size_t kind = 0; kind < report.findings.size(); ++kind)
        for (const Finding& finding : report.findings[kind].first)
            told += QString("%1 %2,%3 %4; ")
                        .arg(WordsOf(static_cast<FindingKind>(kind)).name)
                        .arg(finding.place ? finding.place->x() : NAN)
                        .arg(finding.place ? finding.place->y() : NAN)
                        .arg(finding.size)
                        .toStdString();
    return told;
}

} // namespace

TEST(JobReport, tells_lengths_of_lines_and_arcs_and_the_way_there_and_back)
{
    const Path halfCircle{{{{10, 0}, 1}, {{10, 8}, 0}}};
    const JobReport report = ReportOf(JobOf({Line({3, 4}, {10, 4}), halfCircle}), {}, "test");
    EXPECT_EQ(report.paths, 2u);
    EXPECT_NEAR(report.cutLength, 7 + 4 * std::numbers::pi, 1e-9);
    EXPECT_NEAR(report.travelLength, 5 + 4 + std::hypot(10, 8), 1e-9);
    EXPECT_GT(report.seconds, report.cutLength / 20 + report.travelLength / 100);
    EXPECT_FALSE(report.Spoils());
}

TEST(JobReport, finds_what_would_go_wrong_and_where)
{
    const struct
    {
        std::vector<Path> paths;
        ReportOptions options;
        const char* told;
        bool spoils;
    } rows[] = {
        // Nearly closed: one run, a small one, a chain of runs.
        {{Open({{0, 0}, {40, 0}, {40, 40}, {0, 0.5}})}, {}, "gaps 0,0.25 0.5; ", true},
        {{Open({{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0.25}})}, {}, "gaps 0,0.125 0.25; ", true},
        {{Open({{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0.5}})}, {}, "", false},
        {{Line({0, 0}, {40, 0}), Line({20, 40}, {0, 0.5}), Line({40, 0}, {20, 40})}, {}, "gaps 0,0.25 0.5; ", true},
        {{Line({0, 0}, {40, 0}), Line({20, 40}, {0, 0.5}), Line({40, 0}, {20, 40}, 1)}, {}, "", false},
        {{Open({{0, 0}, {40, 0}, {40, 40}, {0, 1.25}})}, {}, "", false},
        // Two dashes, teeth of a comb, a tooth that is a run of its own.
        {{Line({0, 0}, {20, 0}), Line({20.75, 0}, {40, 0})}, {}, "", false},
        {{Line({0, 0}, {0, 20}), Line({0.5, 0}, {0.5, 20}), Line({1, 0}, {1, 20})}, {}, "", false},
        {{Open({{0, 0}, {0, 20}, {0.75, 20}, {0.75, 0}})}, {}, "", false},
        // Closed all the same: the line crosses its begin, or goes over it; both ends lie on another line.
        {{Open({{-0.5, 0}, {40, 0}, {40, 40}, {0, 40}, {0, -0.5}})}, {}, "", false},
        {{Open({{0, 0}, {40, 0}, {40, 40}, {0, 40}, {0, -0.5}})}, {}, "", false},
        {{Open({{0, 0}, {0, 40}, {40, 40}, {40, 1}, {0.5, 0}}), Line({-5, 0}, {50, 0})}, {}, "", false},
        {{Line({-2, 5}, {20, 5})}, OnBed(100, 50), "outOfBed 9,5 2; ", true},
        {{Line({90, 5}, {104.5, 5})}, OnBed(100, 50), "outOfBed 97.25,5 4.5; ", true},
        {{Line({0, 0}, {100, 50})}, OnBed(100, 50), "", false},
        {{Line({5, 5}, {5.0625, 5})}, {}, "shortLines 5,5 0.0625; ", false},
        {{Square(0.25)}, {}, "tinyIslands 0.125,0.125 0.25; ", false},
        {{Square(10)}, {}, "", false},
        // A bow tie.
        {{{{{{0, 0}, 0}, {{10, 10}, 0}, {{10, 0}, 0}, {{0, 10}, 0}, {{0, 0}, 0}}}}, {}, "selfCrossings 5,5 0; ", false},
    };
    for (const auto& [paths, options, told, spoils] : rows) {
        const JobReport report = ReportOf(JobOf(paths), options, "test");
        EXPECT_EQ(Told(report), told);
        EXPECT_EQ(report.Spoils(), spoils) << told;
    }
}

TEST(JobReport, counts_all_findings_and_tells_the_first)
{
    std::vector<Path> paths;
    for (int i = 0; i < 1500; ++i)
        paths.push_back(Line({10.0 * i, 0}, {10.0 * i + 0.05, 0}));
    const JobReport report = ReportOf(JobOf(paths), {}, "test");
    EXPECT_EQ(report.Of(FindingKind::ShortLine).count, 1500u);
    EXPECT_EQ(report.Of(FindingKind::ShortLine).first.size(), kMostTold);
    EXPECT_EQ(ReportLines(report).last().toStdString(),
              "1500 paths shorter than the beam: 0, 0 (0.05 mm); 10, 0 (0.05 mm); 20, 0 (0.05 mm); …");
    const QJsonObject told = ReportJson(report)["findings"].toObject()["shortLines"].toObject();
    EXPECT_EQ(told["count"].toInt(), 1500);
    EXPECT_EQ(told["first"].toArray()[1].toObject()["x"].toDouble(), 10);
}
