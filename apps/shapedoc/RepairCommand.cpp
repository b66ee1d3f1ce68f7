/// shapedoc repair: a clean document of the shapes that damage has left.
#include "Arguments.h"
#include "Commands.h"
#include "Failure.h"
#include "InputBytes.h"
#include "OutputFile.h"

#include "check/StreamRepair.h"
#include "record/RecordFormat.h"

#include <CLI/CLI.hpp>
#include <QTemporaryFile>

#include <cstdio>

using namespace shapedocument;
using shapes::kFirstVersion;
using shapes::kLatestVersion;

namespace {

constexpr int kNothingToSave = 3;
constexpr qsizetype kPlacesToTell = 10;

struct RepairOptions
{
    std::string document;
    std::string output;
    int version = -1;
};

void TellFault(const std::string& file, const std::optional<Fault>& fault, int version)
{
    const QString text =
        fault ? QString("%1: byte %2: %3").arg(fault->path).arg(fault->offset).arg(fault->reason) : "no fault";
    std::printf("%s: version %d, %s\n", file.c_str(), version, qPrintable(text));
}

/// ": 12, 345 and 7 more" of places; nothing without any.
std::string Places(const QStringList& places)
{
    const auto told = std::min<qsizetype>(places.size(), kPlacesToTell);
    QString text = places.isEmpty() ? "" : ": " + QStringList(places.first(told)).join(", ");
    if (places.size() > told)
        text += QString(" and %1 more").arg(places.size() - told);
    return text.toStdString();
}

QStringList Numbers(const std::vector<int64_t>& numbers)
{
    QStringList texts;
    for (const int64_t number : numbers)
        texts.append(QString::number(number));
    return texts;
}

void TellSalvage(const Salvage& salvage, int version)
{
    QStringList skipped;
    for (const ByteRange& range : salvage.skipped)
        skipped.append(QString("%1 to %2").arg(range.begin).arg(range.end - 1));
    std::printf("kept: %lld shapes before the fault, %lld behind it\n", static_cast<long long>(salvage.keptBefore),
                static_cast<long long>(salvage.recovered));
    if (salvage.openGroups > 0)
        std::printf("groups and arrays that have lost members or cells: %lld\n",
                    static_cast<long long>(salvage.openGroups));
    if (!salvage.mended.empty())
        std::printf("replaced values, at byte%s; look at shape%s%s\n", Places(Numbers(salvage.mended)).c_str(),
                    Places(Numbers(salvage.mendedShapes)).c_str(),
                    version <= shapes::kLastVersionOfSplitVectors ? " of the damaged file" : "");
    std::printf("left out: %lld bytes%s%s\n", static_cast<long long>(salvage.SkippedBytes()), Places(skipped).c_str(),
                salvage.gaveUp ? "; the search was given up before the end" : "");
}

/// The stream as the present version has it. Older ones go through the library, which knows what became of their shapes.
Document Upgraded(const QString& target, const QByteArray& stream, int version)
{
    QTemporaryFile file;
    if (!file.open() || file.write(stream) != stream.size() || !file.flush())
        throw Failure{target, "cannot be made: no room for a temporary file"};
    return ReadDocument(file.fileName(), {true, version});
}

/// Nothing takes the place of a document before it is known to be clean.
void ExpectClean(QFile& file, const QString& target)
{
    const InputBytes written(file.fileName());
    const StreamStart start = FindStream(written.All());
    if (const auto fault = CheckStream(written.All(), start.offset, kLatestVersion).fault)
        throw Failure{target, QString("would not be clean, %1: %2").arg(fault->path, fault->reason)};
}

void WriteStream(const QString& target, const QByteArray& stream, int version)
{
    const bool present = version >= shapes::FirstVersionLike(kLatestVersion);
    const Document old = present ? NewDocument() : Upgraded(target, stream, version);
    const auto write = [&](QFile& file) {
        WriteHeader(file);
        if (present)
            file.write(stream);
        else
            old->Save(&file);
    };
    WriteFile(target, write, [&](QFile& file) { ExpectClean(file, target); });
}

int Repair(const RepairOptions& options)
{
    const InputBytes input(FileName(options.document));
    const Bytes bytes = input.All();
    const StreamStart start = FindStream(bytes);
    const int version = RepairVersion(bytes, start, options.version);
    const auto streamFault = CheckStream(bytes, start.offset, version).fault;
    const Salvage salvage = SalvageStream(bytes, start.offset, version);
    if (salvage.Empty() && streamFault) {
        std::fprintf(stderr, "shapedoc: %s: holds no shape that can be saved\n", options.document.c_str());
        return kNothingToSave;
    }
    WriteStream(FileName(options.output), SavedStream(bytes, salvage), version);
    TellFault(options.document, start.fault ? start.fault : streamFault, version);
    TellSalvage(salvage, version);
    return 0;
}

} // namespace

void AddRepair(CLI::App& app, Command& chosen)
{
    CLI::App* command = app.add_subcommand(
        "repair",
        "Save what a damaged document or bare list stream still holds: every shape before the damage, and those behind "
        "it that can be found. Groups stay groups of the members that are left, arrays without cells become groups, "
        "single values that cannot be are replaced and told. Writes a document of the present version, which check "
        "calls clean. Exit code 3: nothing could be saved, nothing was written");
    const auto options = std::make_shared<RepairOptions>();
    AddDocument(*command, options->document);
    AddOutput(*command, options->output);
    command
        ->add_option("--version", options->version,
                     "the version to read the records with; without it the header's, or else the one that saves most")
        ->check(CLI::Range(kFirstVersion, kLatestVersion));
    command->callback([&chosen, options] { chosen = [options] { return Repair(*options); }; });
}
