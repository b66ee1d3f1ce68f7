#include "WorkReport.h"

#include "CommandLine.h"
#include "JobArguments.h"
#include "Progress.h"

using namespace shapedocument;

CommandOption AddGapOption(CommandArguments& command, double& widestGap)
{
    constexpr Range kGaps{kNarrowestGap, kWidestGap};
    return command.AddNumber("--gap=MM", widestGap, kGaps, "a contour that is open no wider was meant to be closed");
}

JobReport ReportOfWork(PreparedWork& work, CShapeList& document, const JobArguments& arguments, double widestGap,
                       const QString& file)
{
    ReportOptions options;
    options.machine = arguments.settings;
    options.gcode = arguments.gcode;
    options.bed = arguments.bed;
    options.strictBed = arguments.strict;
    options.widestGap = widestGap;
    Progress progress("looking at the work of " + file);
    work.Work().progress = [&progress](size_t rows, size_t all) { progress.At(rows, all); };
    JobReport report = ReportOf(work.Work(), options, file);
    work.Work().progress = nullptr;
    AddDoubledLines(report, work.Doubles());
    const EngraveArguments& engraving = arguments.engraving;
    AddShapeFindings(report, document, engraving.engrave ? std::optional(engraving.options.linesPerMm) : std::nullopt);
    return report;
}
