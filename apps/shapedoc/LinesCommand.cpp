/// shapedoc lines: a document becomes lines for the machine.
#include "Batch.h"
#include "Commands.h"
#include "FittingNote.h"
#include "LeftOutNote.h"
#include "Messages.h"
#include "Progress.h"
#include "RunOptions.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/ShapeWalk.h"
#include "machine/LineOutput.h"
#include "machine/MachinePaths.h"

#include "OpenDocument.h"
#include "OrderOptions.h"

#include <QFile>

using namespace shapedocument;

namespace {

struct LinesOptions
{
    InputsAndOutput files;
    std::string format;
    StreamFormat stream;
    JobOptions job;
    OrderOptions order;
    GcodeOptions gcode;
};

const std::vector<Format> kFormats{{"csv", {"csv"}}, {"svg", {"svg"}}, {"gcode", {"gcode", "nc", "ngc", "gc"}}};

void WriteJob(QFile& file, const std::string& format, const MachineJob& job, const GcodeOptions& gcode)
{
    if (format == "csv")
        WriteCsv(file, job);
    else if (format == "svg")
        WriteSvg(file, job);
    else
        WriteGcode(file, job, gcode);
}

PreparedJob Prepare(const QString& input, const LinesOptions& options)
{
    const Document document = OpenDocument(input, options.stream);
    Progress progress("making lines of shapes");
    const size_t count = OutlineCount(*document);
    return PrepareJob(*document, options.job, InputName(input), [&](size_t shapes) { progress.At(shapes, count); });
}

Made MakeLines(const QString& input, const Target& output, const LinesOptions& options)
{
    const QString name = InputName(input);
    const PreparedJob prepared = Prepare(input, options);
    WarnOfLeftOut(name, prepared.leftOut);
    WarnOfDoubles(name, prepared.doubled);
    WarnOfOrder(name, prepared);
    const MachineJob& job = prepared.job;
    if (job.PathCount() == 0)
        throw Failure{name, "has no line to follow"};
    const Progress progress("writing " + OutputName(output));
    WriteFile(output, [&](QFile& file) { WriteJob(file, options.format, job, options.gcode); });
    return {0, QString("%1 paths of %2 shapes").arg(job.PathCount()).arg(job.ShapeCount())};
}

int Lines(LinesOptions& options)
{
    TakeOrder(options.order, options.job);
    options.format = FormatOf(options.files, options.format, kFormats);
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
    command.AddFlag("--frames", options->job.frames, "with the frames of pictures, which are left out otherwise");
    AddRunOptions(command, options->job);
    AddOrderOptions(command, options->order);
    constexpr double kMost = 1e6;
    command.AddNumber("--feed=MM", gcode.feed, {0.001, kMost}, "G-code: mm per minute");
    command.AddNumber("--power=S", gcode.power, {0, kMost}, "G-code: S word of the laser");
    command.AddFlag("--constant-power", gcode.constantPower, "G-code: M3 instead of M4");
    const CommandOption yDown = command.AddFlag("--y-down", gcode.yDown, "G-code: y as in the document, not upwards");
    command
        .AddNumber("--height=MM", gcode.height, kReach,
                   "G-code: the document's y that becomes 0; without it the lowest line's")
        .Excludes(yDown);
    command.AddExample("lines badge.shapes -o badge.gcode --feed 900 --power 300", "G-code for the machine");
    command.AddExample("lines *.shapes --out-dir jobs --format gcode --jobs 4", "a job of each document");
    command.Runs([options] { return Lines(*options); });
}
