/// shapedoc lines: a document becomes lines for the machine.
#include "Batch.h"
#include "Commands.h"
#include "EngraveOptions.h"
#include "FittingNote.h"
#include "LeftOutNote.h"
#include "Messages.h"
#include "Progress.h"
#include "RunOptions.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/ShapeWalk.h"
#include "machine/GcodeOutput.h"
#include "machine/LineOutput.h"
#include "machine/MachinePaths.h"

#include "OpenDocument.h"
#include "OrderOptions.h"

#include <QFile>
#include <QStringList>

using namespace shapedocument;

namespace {

struct LinesOptions
{
    InputsAndOutput files;
    std::string format;
    StreamFormat stream;
    JobOptions job;
    OrderOptions order;
    EngraveArguments engraving;
    GcodeArguments machine;
    GcodeOptions gcode;
};

const std::vector<Format> kFormats{{"csv", {"csv"}}, {"svg", {"svg"}}, {"gcode", {"gcode", "nc", "ngc", "gc"}}};

/// Returns the numbers of engraved rows.
RowCounts WriteWork(QFile& file, const std::string& format, const MachineWork& work, const GcodeOptions& gcode)
{
    if (format == "csv")
        return {WriteCsv(file, work)};
    return format == "svg" ? RowCounts{WriteSvg(file, work)} : WriteGcode(file, work, gcode);
}

PreparedJob Prepare(CShapeList& document, const JobOptions& options, const QString& name)
{
    Progress progress("making lines of shapes");
    const size_t count = OutlineCount(document);
    return PrepareJob(document, options, name, [&](size_t shapes) { progress.At(shapes, count); });
}

/// Of colours that have settings, those without lines.
void WarnOfColors(const QString& name, ColorSettings colors, const MachineJob& job)
{
    JobReader reader(job);
    while (const auto path = reader.NextPath())
        colors.erase(path->color & 0xFFFFFFU);
    QStringList without;
    for (const auto& [color, setting] : colors)
        without << QString("#%1").arg(color, 6, 16, QChar('0'));
    if (!without.isEmpty())
        Warn(name + ": no line has the colour " + without.join(", nor ") + " of --colors");
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

void WarnOfRunUp(const QString& name, const RowCounts& counts)
{
    if (counts.leftOfZero > 0)
        Warn(name + QString(": the run-up of %1 row%2 reaches left of 0, to X%3: move what is engraved to the right")
                        .arg(counts.leftOfZero)
                        .arg(counts.leftOfZero == 1 ? "" : "s")
                        .arg(counts.least, 0, 'f', 3));
}

Made MakeLines(const QString& input, const Target& output, const LinesOptions& options)
{
    const QString name = InputName(input);
    const Document document = OpenDocument(input, options.stream);
    const PreparedJob prepared = Prepare(*document, options.job, name);
    WarnOfLeftOut(name, prepared.leftOut);
    WarnOfDoubles(name, prepared.doubled);
    WarnOfOrder(name, prepared);
    WarnOfColors(name, options.job.colors, prepared.job);
    MachineWork work(prepared.job);
    work.colors = options.job.colors;
    const auto engraving = EngravingOf(*document, options.engraving, name);
    work.engraving = engraving.get();
    if (options.engraving.engrave && work.EngravedShapes() == 0)
        Warn(name + ": nothing to engrave: no picture and no outline with a fill marker");
    if (prepared.job.PathCount() == 0 && work.EngravedShapes() == 0)
        throw Failure{name, "has no line to follow"};
    Progress progress("writing " + OutputName(output));
    work.progress = [&progress](size_t rows, size_t all) { progress.At(rows, all); };
    RowCounts counts;
    WriteFile(output, [&](QFile& file) {
        counts = WriteWork(file, options.format, work, options.gcode);
        ExpectRows(name, counts.rows, work, options.engraving.options.dither);
    });
    WarnOfRunUp(name, counts);
    const QString engraved = QString(", %1 rows of %2 engraved").arg(counts.rows).arg(work.EngravedShapes());
    return {0, QString("%1 paths of %2 shapes").arg(prepared.job.PathCount()).arg(prepared.job.ShapeCount()) +
                   (counts.rows > 0 ? engraved : "")};
}

int Lines(LinesOptions& options)
{
    TakeOrder(options.order, options.job);
    options.format = FormatOf(options.files, options.format, kFormats);
    options.job.engraved = options.engraving.engrave;
    Complete(options.engraving, options.machine, options.gcode);
    options.job.colors = ColorsOf(options.machine, options.gcode);
    const int exitCode =
        MakeFiles(options.files, EndingOf(options.format, kFormats),
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
    GcodeOptions& gcode = options->gcode;
    AddDocuments(command, options->files);
    AddFormat(command, options->format, kFormats);
    AddStreamFormat(command, options->stream);
    command.AddFlag("--leads", options->job.leads, "with lead-in and lead-out lines where shapes have them active");
    command.AddFlag("--frames", options->job.frames,
                    "with the frames of pictures and the outlines of what is engraved");
    AddRunOptions(command, options->job);
    AddOrderOptions(command, options->order);
    AddEngraveOptions(command, options->engraving, gcode);
    AddGcodeOptions(command, options->machine, gcode);
    command.AddFlag("--constant-power", gcode.constantPower, "G-code: M3 instead of M4");
    const CommandOption yDown = command.AddFlag("--y-down", gcode.yDown, "G-code: y as in the document, not upwards");
    command
        .AddNumber("--height=MM", gcode.height, kReach,
                   "G-code: the document's y that becomes 0; without it the lowest line's")
        .Excludes(yDown);
    command.AddExample("lines badge.shapes -o badge.gcode --feed 900 --power 300", "G-code for the machine");
    command.AddExample("lines photo.shapes -o photo.gcode --engrave --lines-per-mm 8 --overscan 2",
                       "a picture in rows, the head at full speed where it burns");
    command.AddExample("lines *.shapes --out-dir jobs --format gcode --jobs 4", "a job of each document");
    command.Runs([options] { return Lines(*options); });
}
