#include "machine/JobReport.h"

#include "machine/BedCheck.h"
#include "machine/Contour.h"
#include "machine/DoubledLines.h"
#include "machine/GapSearch.h"
#include "machine/MachineWork.h"
#include "machine/OutlineWidth.h"
#include "machine/RunPart.h"
#include "machine/SelfCrossings.h"

namespace shapedocument {

namespace {

constexpr std::array<FindingWords, static_cast<size_t>(FindingKind::Count_)> kWords{{
    {"gaps", "gap in a contour that is not quite closed", "gaps in contours that are not quite closed", true},
    {"outOfBed", "path outside the bed", "paths outside the bed", false},
    {"doubledLines", "doubled line", "doubled lines", false},
    {"selfCrossings", "crossing of a contour with itself", "crossings of contours with themselves", false},
    {"shortLines", "path shorter than the beam", "paths shorter than the beam", false},
    {"tinyIslands", "contour that the beam burns away", "contours that the beam burns away", false},
    {"coarsePictures", "picture coarser than the engraving", "pictures coarser than the engraving", false},
    {"missingFonts", "text not as it should be", "texts not as they should be", true},
    {"hidden", "hidden shape", "hidden shapes", false},
    {"locked", "locked shape", "locked shapes", false},
}};

constexpr double kIslandBeams = 3;        // a contour narrower than this many beams leaves nothing inside
constexpr size_t kMostPairs = 50'000'000; // of segments; takes some seconds

void FindTinyIsland(JobReport& report, const std::vector<QPointF>& outline, double beam)
{
    if (const double width = OutlineWidth(outline, kIslandBeams * beam); width < kIslandBeams * beam) {
        const Box box = BoxOf(outline);
        report.Add(FindingKind::TinyIsland, {{(box.left + box.right) / 2, (box.top + box.bottom) / 2}, width, {}});
    }
}

/// pairs: the budget of pairs of segments, which is lowered.
void FindCrossings(JobReport& report, const std::vector<QPointF>& outline, size_t& pairs)
{
    Findings& crossings = report.Of(FindingKind::SelfCrossing);
    if (crossings.isComplete)
        crossings.isComplete = FindSelfCrossings(outline, pairs, [&](QPointF place) { crossings.Add({place, 0, {}}); });
}

void FindInPaths(JobReport& report, const MachineWork& work, double beam)
{
    size_t pairs = kMostPairs, seen = 0;
    JobReader reader(work.job);
    while (const auto path = reader.NextPath()) {
        if (work.pathProgress)
            work.pathProgress(++seen, work.job.PathCount());
        if (path->kind != PathKind::Cut)
            continue;
        const std::vector<JobPoint> run = reader.Run();
        if (path->closed) {
            const std::vector<QPointF> outline = ChordPoints(run);
            FindTinyIsland(report, outline, beam);
            FindCrossings(report, outline, pairs);
        } else if (const double length = RunLength(run); length < beam) {
            report.Add(FindingKind::ShortLine, {run.front().point, length, {}});
        }
    }
}

} // namespace

const FindingWords& WordsOf(FindingKind kind)
{
    return kWords[static_cast<size_t>(kind)];
}

void Findings::Add(Finding finding)
{
    if (++count <= kMostTold)
        first.push_back(std::move(finding));
}

bool JobReport::Spoils(FindingKind kind) const
{
    return WordsOf(kind).spoils || (kind == FindingKind::OutOfBed && strictBed);
}

bool JobReport::Spoils() const
{
    for (size_t kind = 0; kind < findings.size(); ++kind)
        if (findings[kind].count > 0 && Spoils(static_cast<FindingKind>(kind)))
            return true;
    return false;
}

JobReport ReportOf(const MachineWork& work, const ReportOptions& options, const QString& file)
{
    JobReport report;
    report.paths = work.job.PathCount();
    report.time = TimeGcode(work, options.gcode, options.machine);
    for (const Gap& gap : FindGaps(work.job, options.widestGap, options.machine.beam, file))
        report.Add(FindingKind::Gap, {gap.place, gap.width, {}});
    report.strictBed = options.strictBed;
    if (options.bed)
        report.Of(FindingKind::OutOfBed) = FindOutsideBed(*options.bed, work, options.gcode);
    FindInPaths(report, work, options.machine.beam);
    return report;
}

void AddDoubledLines(JobReport& report, const DoubledLines& doubled)
{
    Findings& all = report.Of(FindingKind::DoubledLine);
    for (const DoubledLines::Line& line : doubled.first)
        all.Add({line.begin, line.length, {}});
    all.count = doubled.count;
    if (doubled.count > 0)
        all.total = doubled.length;
}

} // namespace shapedocument
