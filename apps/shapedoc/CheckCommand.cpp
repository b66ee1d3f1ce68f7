/// shapedoc check: whether every byte of a document is as the records' layout wants it, and if not, what is wrong first.
#include "Arguments.h"
#include "Commands.h"
#include "Messages.h"
#include "document/InputBytes.h"
#include "document/InputFile.h"

#include "record/RecordFormat.h"

using namespace shapedocument;
using shapes::kFirstVersion;
using shapes::kLatestVersion;

namespace {

struct CheckOptions
{
    QString document;
    std::optional<int> version;
};

int TellFault(const QString& file, const Fault& fault, const QString& remark = {})
{
    PrintLine(stderr, "shapedoc: " + file + ": " + remark + fault.path + QString(": byte %1: ").arg(fault.offset) +
                          fault.reason);
    return kFaulty;
}

int TellClean(const QString& file, const CheckResult& result, const QString& versions)
{
    PrintLine(stdout, file + QString(": clean, %1 shapes, ").arg(result.shapes) + versions);
    return 0;
}

int CheckVersion(const QString& file, Bytes bytes, int64_t offset, int version)
{
    const CheckResult result = CheckStream(bytes, offset, version);
    return result.fault ? TellFault(file, *result.fault) : TellClean(file, result, QString("version %1").arg(version));
}

/// "0, 3 to 6" of numbers in rising order.
QString Ranges(const std::vector<int>& numbers)
{
    QStringList ranges;
    for (size_t first = 0, last = 0; first < numbers.size(); first = ++last) {
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1)
            ++last;
        ranges.append(first == last ? QString::number(numbers[first])
                                    : QString("%1 to %2").arg(numbers[first]).arg(numbers[last]));
    }
    return ranges.join(", ");
}

/// A bare stream says nothing about its version: the fault is that of the version that comes furthest.
int CheckEveryVersion(const QString& file, Bytes bytes, int64_t offset)
{
    const FittingVersions found = FindVersions(bytes, offset);
    if (!found.versions.empty())
        return TellClean(file, found.result, "a bare stream of version " + Ranges(found.versions));
    return TellFault(file, *found.result.fault,
                     QString("a bare stream of no version, nearest is %1: ").arg(found.nearest));
}

int Check(const CheckOptions& options)
{
    const QString file = InputName(options.document);
    const InputBytes input(options.document);
    const StreamStart start = FindStream(input.All());
    if (start.fault)
        return TellFault(file, *start.fault);
    if (options.version)
        return CheckVersion(file, input.All(), start.offset, *options.version);
    if (start.Bare())
        return CheckEveryVersion(file, input.All(), start.offset);
    return CheckVersion(file, input.All(), start.offset, start.version);
}

} // namespace

void AddCheck(CommandLine& program)
{
    CommandArguments& command = program.AddCommand(
        "check", "Examine a document or a bare list stream byte by byte",
        "Names the first fault: the way to the field, its place in the file and the reason. Exit code 0: clean, 3: "
        "faulty.");
    const auto options = std::make_shared<CheckOptions>();
    AddDocument(command, options->document);
    command.AddInteger("--version=N", options->version, {kFirstVersion, kLatestVersion},
                       "take the records for that version's; without it documents tell theirs, and of a bare stream "
                       "you are told which versions it fits");
    command.Runs([options] { return Check(*options); });
}
