/// shapedoc check: whether every byte of a document is as the records' layout wants it, and if not, what is wrong first.
#include "Arguments.h"
#include "Commands.h"
#include "InputBytes.h"
#include "InputFile.h"
#include "Messages.h"

#include <CLI/CLI.hpp>

namespace {

constexpr int kFaulty = 3;

struct CheckOptions
{
    std::string document;
    int version = -1;
};

int TellFault(const QString& file, const Fault& fault, const QString& remark = {})
{
    PrintLine(stderr, "shapedoc: " + file + ": " + remark + fault.path + QString(": byte %1: ").arg(fault.offset) +
                          fault.reason);
    return kFaulty;
}

int TellClean(const QString& file, const RecordWalk& walk, const QString& versions)
{
    PrintLine(stdout, file + QString(": clean, %1 shapes, ").arg(walk.ShapeCount()) + versions);
    return 0;
}

int CheckVersion(const QString& file, Bytes bytes, int64_t offset, int version)
{
    RecordWalk walk(bytes, version);
    if (!walk.Stream(offset))
        return TellFault(file, walk.FirstFault());
    return TellClean(file, walk, QString("version %1").arg(version));
}

/// Adds version to a list like "0, 3 to 6", which ends with `last`.
void AddVersion(QStringList& ranges, int& last, int& first, int version)
{
    if (!ranges.isEmpty() && last == version - 1)
        ranges.back() = QString("%1 to %2").arg(first).arg(version);
    else
        ranges.append(QString::number(first = version));
    last = version;
}

/// A bare stream says nothing about its version: the fault is that of the version that comes furthest.
int CheckEveryVersion(const QString& file, Bytes bytes, int64_t offset)
{
    QStringList fitting;
    int last = 0, first = 0, nearest = 0;
    std::optional<RecordWalk> clean;
    std::optional<Fault> fault;
    for (int version = kFirstVersion; version <= kLatestVersion; ++version) {
        RecordWalk walk(bytes, version);
        if (walk.Stream(offset)) {
            AddVersion(fitting, last, first, version);
            clean = walk;
        } else if (!fault || walk.FirstFault().offset >= fault->offset) {
            fault = walk.FirstFault();
            nearest = version;
        }
    }
    if (clean)
        return TellClean(file, *clean, "a bare stream of version " + fitting.join(", "));
    return TellFault(file, *fault, QString("a bare stream of no version, nearest is %1: ").arg(nearest));
}

int Check(const CheckOptions& options)
{
    const QString file = InputName(FileName(options.document));
    const InputBytes input(FileName(options.document));
    const StreamStart start = FindStream(input.All());
    if (start.fault)
        return TellFault(file, *start.fault);
    if (options.version >= 0)
        return CheckVersion(file, input.All(), start.offset, options.version);
    if (start.Bare())
        return CheckEveryVersion(file, input.All(), start.offset);
    return CheckVersion(file, input.All(), start.offset, start.version);
}

} // namespace

void AddCheck(CLI::App& app, Command& chosen)
{
    CLI::App* command = app.add_subcommand(
        "check",
        "Examine a document or a bare list stream byte by byte and name the first fault: the way to the field, "
        "its place in the file and the reason. Exit code 0: clean, 3: faulty");
    const auto options = std::make_shared<CheckOptions>();
    AddDocument(*command, options->document);
    command
        ->add_option("--version", options->version,
                     "take the records for that version's; without it documents tell theirs, and of a bare stream you "
                     "are told which versions it fits")
        ->check(CLI::Range(kFirstVersion, kLatestVersion));
    command->callback([&chosen, options] { chosen = [options] { return Check(*options); }; });
}
