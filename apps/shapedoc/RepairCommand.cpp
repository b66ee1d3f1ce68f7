/// shapedoc repair: saves the intact shapes of a damaged document.
#include "Commands.h"
#include "DocumentArguments.h"
#include "Messages.h"
#include "Progress.h"
#include "document/InputBytes.h"
#include "document/InputFile.h"
#include "document/RepairedDocument.h"

#include "record/RecordFormat.h"

using namespace shapedocument;
using shapes::kFirstVersion;
using shapes::kLatestVersion;

namespace {

struct RepairOptions
{
    QString document;
    Target output;
    std::optional<int> version;
};

std::optional<FoundShapes> Search(const QString& file, Bytes bytes, std::optional<int> asked)
{
    const Progress progress(
        QString("searching %1 (%2 MB)").arg(file).arg(static_cast<double>(bytes.size()) / kMegabyte, 0, 'f', 1));
    return FindShapes(bytes, asked);
}

void Write(const Target& target, Bytes bytes, const FoundShapes& found)
{
    const Progress progress("writing " + OutputName(target));
    for (const QString& warning : WriteRepaired(target, bytes, found))
        Warn(warning);
}

int Repair(const RepairOptions& options)
{
    const QString name = InputName(options.document);
    const InputBytes input(options.document);
    const std::optional<FoundShapes> found = Search(name, input.All(), options.version);
    if (!found) {
        PrintError(name + ": holds no shape that can be saved");
        return kFaulty;
    }
    Write(options.output, input.All(), *found);
    std::FILE* report = ReportStream(options.output.file);
    QStringList lines = RepairLines(*found);
    lines.front().prepend(name + ": ");
    for (const QString& line : lines)
        PrintLine(report, line);
    return 0;
}

} // namespace

void AddRepair(CommandLine& program)
{
    CommandArguments& command = program.AddCommand(
        "repair", "Save what a damaged document or bare list stream still holds",
        "Keeps every shape before the damage, and those behind it that can be found. Groups stay groups of the members "
        "that are left, arrays without cells become groups, "
        "single values that cannot be are replaced and told. Writes a document of the present version, which check "
        "calls clean. Exit code 3: nothing could be saved, nothing was written.");
    const auto options = std::make_shared<RepairOptions>();
    AddDocument(command, options->document);
    AddOutput(command, options->output).Required();
    command.AddInteger(
        "--version=N", options->version, {kFirstVersion, kLatestVersion},
        "the version to read the records with; without it the header's, or else the one that saves most");
    command.AddExample("repair damaged.shapes -o saved.shapes", "what damage has left");
    command.Runs([options] { return Repair(*options); });
}
