#include "Batch.h"

#include "Messages.h"
#include "Progress.h"
#include "WorkerProcesses.h"
#include "document/Failure.h"
#include "document/InputFile.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

using namespace shapedocument;

namespace {

constexpr int kMostJobs = 256;

[[noreturn]] void Refuse(const QString& text)
{
    throw UsageError{text.toStdString()};
}

/// The outputs of all inputs, in their order. Throws UsageError.
QStringList OutputsOf(const InputsAndOutput& files, const QString& ending)
{
    QStringList outputs;
    QHash<QString, QString> sources;
    QSet<QString> inputs;
    for (const QString& input : files.inputs)
        inputs.insert(QFileInfo(input).canonicalFilePath());
    for (const QString& input : files.inputs) {
        if (input == kStandardStream)
            Refuse("--out-dir: the standard input has no name for a file; use --output");
        const QString output = QDir(files.folder).filePath(QFileInfo(input).completeBaseName() + "." + ending);
        if (sources.contains(output))
            Refuse(sources[output] + " and " + input + " would both become " + output);
        if (QFileInfo::exists(output) && inputs.contains(QFileInfo(output).canonicalFilePath()))
            Refuse(input + " would replace the input " + output);
        sources[output] = input;
        outputs << output;
    }
    return outputs;
}

void MakeFolder(const QString& folder)
{
    if (!QDir().mkpath(folder))
        throw Failure{folder, "is no folder, and none can be made there"};
}

int MakeOne(const QString& input, const Target& output, const MakeFile& make, std::FILE* report)
{
    const Made made = make(input, output);
    PrintLine(report, input + ": " + output.file + (made.summary.isEmpty() ? "" : ", " + made.summary));
    return made.exitCode;
}

int MakeAll(const InputsAndOutput& files, const QString& ending, const MakeFile& make, std::FILE* report)
{
    const QStringList outputs = OutputsOf(files, ending);
    MakeFolder(files.folder);
    int notMade = 0, highest = 0;
    bool failed = false;
    size_t count = 0;
    const auto all = static_cast<size_t>(outputs.size());
    Progress progress("making files");
    const auto at = [](size_t i) { return static_cast<qsizetype>(i); };
    const auto work = [&](size_t i) {
        return MakeOne(files.inputs[at(i)], {outputs[at(i)], files.output.force}, make, report);
    };
    const auto ended = [&](size_t i, const ProcessEnd& end) {
        const QString& input = files.inputs[at(i)];
        if (end.signal != 0)
            PrintError(QString("%1: its process was ended by signal %2").arg(input).arg(end.signal));
        const bool isMade = end.exitCode == 0 || (end.exitCode == kNotAsPainted && QFileInfo::exists(outputs[at(i)]));
        notMade += !isMade;
        failed |= !isMade && end.exitCode != kNotAsPainted;
        highest = std::max(highest, end.exitCode);
        progress.At(++count, all);
    };
    RunInProcesses(all, static_cast<size_t>(files.jobs), work, ended);
    PrintLine(report,
              QString("%1 of %2 files made, %3 failed").arg(outputs.size() - notMade).arg(outputs.size()).arg(notMade));
    return failed ? kFailed : highest;
}

} // namespace

CommandOption AddOutputOrFolder(CommandArguments& command, InputsAndOutput& files)
{
    const CommandOption output = AddOutput(command, files.output);
    const CommandOption folder =
        command
            .AddFolder(
                "--out-dir=FOLDER", files.folder,
                "instead of --output: a file of each input in that folder, under the input's name; what fails is "
                "told and the others are made all the same")
            .Excludes(output);
    command.AddInteger("--jobs=N", files.jobs, {1, kMostJobs}, "files that are made at the same time").Needs(folder);
    return folder;
}

void AddDocuments(CommandArguments& command, InputsAndOutput& files)
{
    command.AddFiles("FILE", files.inputs, "the document; - for the standard input; several with --out-dir").Required();
    AddOutputOrFolder(command, files);
}

std::string FormatOf(const InputsAndOutput& files, const std::string& asked, const std::vector<Format>& formats)
{
    if (files.IsBatch() && asked.empty())
        throw UsageError{"--out-dir: which files to make is told by --format"};
    if (!files.IsBatch() && files.output.file.isEmpty())
        throw UsageError{"--output or --out-dir is required"};
    return FormatOf(files.output, asked, formats);
}

QString EndingOf(const std::string& format, const std::vector<Format>& formats)
{
    for (const Format& known : formats)
        if (known.name == format)
            return known.endings.first();
    return QString::fromStdString(format);
}

int MakeFiles(const InputsAndOutput& files, const QString& ending, const MakeFile& make, std::FILE* report)
{
    if (files.IsBatch())
        return MakeAll(files, ending, make, report);
    if (files.inputs.size() != 1)
        throw UsageError{"several inputs are made into files by --out-dir"};
    return make(files.inputs.first(), files.output).exitCode;
}
