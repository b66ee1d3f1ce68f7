/// shapedoc repair: saves the intact shapes of a damaged document.
#include "Arguments.h"
#include "Commands.h"
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

constexpr qsizetype kPlacesToTell = 10;

struct RepairOptions
{
    QString document;
    Target output;
    std::optional<int> version;
};

void TellFault(std::FILE* report, const QString& file, const std::optional<Fault>& fault, int version)
{
    const QString text =
        fault ? QString("%1: byte %2: %3").arg(fault->path).arg(fault->offset).arg(fault->reason) : "no fault";
    PrintLine(report, QString("%1: version %2, ").arg(file).arg(version) + text);
}

/// ": 12, 345 and 7 more"; empty if there are no places.
QString Places(const QStringList& places)
{
    const auto told = std::min<qsizetype>(places.size(), kPlacesToTell);
    QString text = places.isEmpty() ? "" : ": " + QStringList(places.first(told)).join(", ");
    if (places.size() > told)
        text += QString(" and %1 more").arg(places.size() - told);
    return text;
}

QStringList Numbers(const std::vector<int64_t>& numbers)
{
    QStringList texts;
    for (const int64_t number : numbers)
        texts.append(QString::number(number));
    return texts;
}

void TellSalvage(std::FILE* report, const Salvage& salvage, int version)
{
    QStringList skipped;
    for (const ByteRange& range : salvage.skipped)
        skipped.append(QString("%1 to %2").arg(range.begin).arg(range.end - 1));
    PrintLine(report,
              QString("kept: %1 shapes before the fault, %2 behind it").arg(salvage.keptBefore).arg(salvage.recovered));
    if (salvage.openGroups > 0)
        PrintLine(report, QString("groups and arrays that have lost members or cells: %1").arg(salvage.openGroups));
    if (!salvage.mended.empty())
        PrintLine(report, "replaced values, at byte" + Places(Numbers(salvage.mended)) + "; look at shape" +
                              Places(Numbers(salvage.mendedShapes)) +
                              (version <= shapes::kLastVersionOfSplitVectors ? " of the damaged file" : ""));
    PrintLine(report, QString("left out: %1 bytes").arg(salvage.SkippedBytes()) + Places(skipped) +
                          (salvage.gaveUp ? "; the search was given up before the end" : ""));
}

std::optional<FoundShapes> Search(const QString& file, Bytes bytes, std::optional<int> asked)
{
    constexpr double kMegabyte = 1e6;
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
        PrintLine(stderr, "shapedoc: " + name + ": holds no shape that can be saved");
        return kFaulty;
    }
    Write(options.output, input.All(), *found);
    std::FILE* report = ReportStream(options.output.file);
    TellFault(report, name, found->fault, found->version);
    TellSalvage(report, found->salvage, found->version);
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
