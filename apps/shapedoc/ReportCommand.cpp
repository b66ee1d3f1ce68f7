/// shapedoc report: figures and possible faults of a document's job.
#include "Batch.h"
#include "Commands.h"
#include "Escaped.h"
#include "JobArguments.h"
#include "Messages.h"
#include "OpenDocument.h"
#include "WorkReport.h"
#include "document/InputFile.h"
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
    JobArguments job;
    double widestGap = ReportOptions().widestGap;
};

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
    const Document document = OpenDocument(input, options.stream);
    PreparedWork work(*document, options.job, InputName(input));
    const JobReport report = ReportOfWork(work, *document, options.job, options.widestGap, InputName(input));
    WriteFile(output, [&](QFile& file) { file.write(TextOf(InputName(input), report, options.json)); });
    return {report.Spoils() ? kNotAsPainted : 0, ReportLines(report).first()};
}

/// Prints one report after the other. If a document fails the others are still reported; the exit code is kFailed.
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
    CompleteJob(options.job);
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
    AddStreamFormat(command, options->stream);
    AddGapOption(command, options->widestGap);
    AddJobOptions(command, options->job);
    command.AddExample("report badge.shapes --bed 400x300 --strict", "Whether the badge can be cut on a small bed");
    command.AddExample("report *.shapes --json --out-dir reports --jobs 4", "A report of each document as data");
    command.Runs([options] { return Report(*options); });
}
