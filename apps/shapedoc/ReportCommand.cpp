/// shapedoc report: what there is to know of a document's job before anything burns.
#include "Batch.h"
#include "Commands.h"
#include "EngraveOptions.h"
#include "Escaped.h"
#include "LeftOutNote.h"
#include "Messages.h"
#include "OpenDocument.h"
#include "OrderOptions.h"
#include "Progress.h"
#include "RunOptions.h"
#include "document/InputFile.h"
#include "document/ShapeWalk.h"
#include "machine/JobReport.h"
#include "machine/MachinePaths.h"
#include "machine/MachineWork.h"
#include "machine/ReportText.h"

#include <QFile>
#include <QJsonDocument>

using namespace shapedocument;

namespace {

struct ReportCommandOptions
{
    InputsAndOutput files;
    bool json = false;
    StreamFormat stream;
    JobOptions job;
    OrderOptions order;
    EngraveArguments engraving;
    GcodeOptions gcode; ///< what engraving says of G-code, of no effect here
    QString machine;
    std::vector<double> bed; ///< mm, width and height
    ReportOptions report;
};

JobReport ReportOfDocument(const QString& input, const ReportCommandOptions& options)
{
    const Document document = OpenDocument(input, options.stream);
    Progress progress("making lines of shapes");
    const size_t count = OutlineCount(*document);
    const auto told = [&](size_t shapes) { progress.At(shapes, count); };
    PreparedJob prepared = PrepareJob(*document, options.job, InputName(input), told);
    WarnOfLeftOut(InputName(input), prepared.leftOut);
    WarnOfOrder(InputName(input), prepared);
    MachineWork work(prepared.job);
    const auto engraving = EngravingOf(*document, options.engraving, InputName(input));
    work.engraving = engraving.get();
    JobReport report = ReportOf(work, options.report, InputName(input));
    if (options.job.keepDoubles) // they are cut, and told
        LeaveOutDoubles(std::move(prepared.job), DoublesOf::Everything, InputName(input), prepared.doubled);
    AddDoubledLines(report, prepared.doubled);
    AddShapeFindings(report, *document, options.report);
    return report;
}

QByteArray TextOf(const QString& name, const JobReport& report, bool json)
{
    if (json) {
        QJsonObject object = ReportJson(report);
        object["file"] = name;
        return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    }
    QString text;
    for (const QString& line : ReportLines(report))
        text += name + ": " + Escaped(line) + '\n';
    return text.toUtf8();
}

Made MakeReport(const QString& input, const Target& output, const ReportCommandOptions& options)
{
    const JobReport report = ReportOfDocument(input, options);
    WriteFile(output, [&](QFile& file) { file.write(TextOf(InputName(input), report, options.json)); });
    return {report.Spoils() ? kNotAsPainted : 0, ReportLines(report).first()};
}

/// One report behind the other. A document that fails leaves the others; the exit code is then kFailed.
int PrintReports(const ReportCommandOptions& options)
{
    int highest = 0;
    bool failed = false;
    for (const QString& input : options.files.inputs) {
        const int exitCode = RunReported([&] { return MakeReport(input, {kStandardStream}, options).exitCode; });
        failed |= exitCode == kFailed;
        highest = std::max(highest, exitCode);
    }
    return failed ? kFailed : highest;
}

int Report(ReportCommandOptions& options)
{
    TakeOrder(options.order, options.job);
    options.job.engraved = options.engraving.engrave;
    if (options.engraving.engrave)
        options.report.linesPerMm = options.engraving.options.linesPerMm;
    if (!options.machine.isEmpty())
        options.report.machine = ReadMachineSettings(options.machine);
    if (!options.bed.empty())
        options.report.bed = QSizeF(options.bed[0], options.bed[1]);
    if (!options.files.IsBatch() && options.files.output.file.isEmpty())
        return PrintReports(options);
    return MakeFiles(options.files, options.json ? "json" : "txt",
                     [&](const QString& input, const Target& output) { return MakeReport(input, output, options); });
}

} // namespace

void AddReport(CommandLine& program)
{
    CommandArguments& command = program.AddCommand("report", "Tell what a document's job is, and what would spoil it",
                                                   "Paths, lengths and an estimate of the time; contours that are not "
                                                   "quite closed, paths outside the bed, doubled "
                                                   "lines, crossings, tiny parts, hidden and locked shapes, missing "
                                                   "fonts, coarse pictures, with their places in mm. "
                                                   "Exit code 4: the work would not be what the drawing shows.");
    const auto options = std::make_shared<ReportCommandOptions>();
    AddDocuments(command, options->files);
    command.AddFlag("--json", options->json, "as data, places included: an object a line");
    command.AddFlag("--leads", options->job.leads, "with lead-in and lead-out lines where shapes have them active");
    command.AddFlag("--frames", options->job.frames,
                    "with the frames of pictures and the outlines of what is engraved");
    AddStreamFormat(command, options->stream);
    command.AddNumbers("--bed=WIDTH,HEIGHT", options->bed, 2, {1, kReach.high}, "the machine's bed in mm, from 0,0");
    command.AddFile("--machine=FILE", options->machine,
                    "settings under [machine]: feed, engraveFeed and rapid (mm per minute), acceleration (mm/s²), "
                    "junctionDeviation and beam (mm)");
    command.AddNumber("--gap=MM", options->report.widestGap, {0.001, 100}, "ends this near were meant to meet");
    AddRunOptions(command, options->job);
    AddOrderOptions(command, options->order);
    AddEngraveOptions(command, options->engraving, options->gcode);
    command.AddExample("report badge.shapes --bed 400,300", "Whether the badge can be cut on a small bed");
    command.AddExample("report *.shapes --json --out-dir reports --jobs 4", "A report of each document as data");
    command.Runs([options] { return Report(*options); });
}
