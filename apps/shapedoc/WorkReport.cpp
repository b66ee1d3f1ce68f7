#include "WorkReport.h"

#include "CommandLine.h"
#include "JobArguments.h"

using namespace shapedocument;

CommandOption AddGapOption(CommandArguments& command, double& widestGap)
{
    constexpr Range kGaps{0.001, 100};
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
    JobReport report = ReportOf(work.Work(), options, file);
    AddDoubledLines(report, work.Doubles());
    const EngraveArguments& engraving = arguments.engraving;
    AddShapeFindings(report, document, engraving.engrave ? std::optional(engraving.options.linesPerMm) : std::nullopt);
    return report;
}
