/// shapedoc lines: a document becomes lines for the machine.
#include "Batch.h"
#include "Commands.h"
#include "FittingNote.h"
#include "JobArguments.h"
#include "Messages.h"
#include "OpenDocument.h"
#include "Progress.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "machine/BedCheck.h"
#include "machine/GcodeOutput.h"
#include "machine/JobNotes.h"
#include "machine/LineOutput.h"
#include "machine/ReportText.h"

#include <QFile>

using namespace shapedocument;

namespace {

struct LinesOptions
{
    InputsAndOutput files;
    std::string format;
    StreamFormat stream;
    JobArguments job;
};

const std::vector<Format> kJobFormats{{"csv", {"csv"}}, {"svg", {"svg"}}, {"gcode", {"gcode", "nc", "ngc", "gc"}}};

/// Returns the numbers of engraved rows.
RowCounts WriteWork(QFile& file, const std::string& format, const MachineWork& work, const GcodeOptions& gcode)
{
    if (format == "csv")
        return {WriteCsv(file, work)};
    return format == "svg" ? RowCounts{WriteSvg(file, work)} : WriteGcode(file, work, gcode);
}

/// Throws Failure, or warns if there are lines to cut, when nothing is engraved because all is white, or so light that
/// dithering leaves no dot of it.
void ExpectRows(const QString& name, size_t rows, const MachineWork& work, bool dither)
{
    if (rows > 0 || work.EngravedShapes() == 0)
        return;
    const QString reason = dither ? "all is white, or too light for a dot of --dither" : "all is white";
    if (work.job.PathCount() == 0)
        throw Failure{name, "has nothing to engrave: " + reason};
    Warn(name + ": nothing is engraved: " + reason);
}

/// CSV and SVG are in the document's frame.
void ExpectOnBed(const QString& name, const MachineWork& work, const LinesOptions& options)
{
    if (!options.job.bed)
        return;
    GcodeOptions gcode = options.job.gcode;
    gcode.yDown |= options.format != "gcode";
    const Findings outside = FindOutsideBed(*options.job.bed, work, gcode);
    if (outside.count == 0)
        return;
    const QString line = FindingLine(FindingKind::OutOfBed, outside);
    if (options.job.strict)
        throw NotAsAsked{name, line};
    Warn(name + ": " + line);
}

Made MakeLines(const QString& input, const Target& output, const LinesOptions& options)
{
    const QString name = InputName(input);
    const Document document = OpenDocument(input, options.stream);
    PreparedWork prepared(*document, options.job, name);
    prepared.WarnOfDoubles();
    MachineWork& work = prepared.Work();
    if (options.job.engraving.engrave && work.EngravedShapes() == 0)
        Warn(name + ": nothing to engrave: no picture and no outline with a fill marker");
    if (work.job.PathCount() == 0 && work.EngravedShapes() == 0)
        throw Failure{name, "has no line to follow"};
    ExpectOnBed(name, work, options);
    Progress progress("writing " + OutputName(output));
    work.progress = [&progress](size_t rows, size_t all) { progress.At(rows, all); };
    RowCounts counts;
    WriteFile(output, [&](QFile& file) {
        counts = WriteWork(file, options.format, work, options.job.gcode);
        ExpectRows(name, counts.rows, work, options.job.engraving.options.dither);
    });
    for (const QString& note : RunUpNotes(counts))
        Warn(name + ": " + note);
    const QString engraved = QString(", %1 rows of %2 engraved").arg(counts.rows).arg(work.EngravedShapes());
    return {0, QString("%1 paths of %2 shapes").arg(work.job.PathCount()).arg(work.job.ShapeCount()) +
                   (counts.rows > 0 ? engraved : "")};
}

int Lines(LinesOptions& options)
{
    options.format = FormatOf(options.files, options.format, kJobFormats);
    CompleteJob(options.job);
    options.job.job.emptyDocument = !options.job.engraving.engrave;
    const int exitCode =
        MakeFiles(options.files, EndingOf(options.format, kJobFormats),
                  [&](const QString& input, const Target& output) { return MakeLines(input, output, options); });
    SayWhetherFitted(ReportStream(options.files.output.file));
    return exitCode;
}

} // namespace

void AddLines(CommandLine& program)
{
    CommandArguments& command =
        program.AddCommand("lines", "Write the machine lines of all shapes that are not hidden, in order");
    const auto options = std::make_shared<LinesOptions>();
    AddDocuments(command, options->files);
    AddFormat(command, options->format, kJobFormats);
    AddStreamFormat(command, options->stream);
    AddJobOptions(command, options->job);
    command.AddExample("lines badge.shapes -o badge.gcode --feed 900 --power 300", "G-code for the machine");
    command.AddExample("lines photo.shapes -o photo.gcode --engrave --lines-per-mm 8 --overscan 2",
                       "a picture in rows, the head at full speed where it burns");
    command.AddExample("lines *.shapes --out-dir jobs --format gcode --jobs 4", "a job of each document");
    command.Runs([options] { return Lines(*options); });
}
