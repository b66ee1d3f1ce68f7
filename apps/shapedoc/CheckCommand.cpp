/// shapedoc check: whether every byte of a document matches the layout of its records, and if not, the first fault.
#include "Commands.h"
#include "DocumentArguments.h"
#include "Messages.h"
#include "Progress.h"
#include "check/FileCheck.h"
#include "document/InputBytes.h"
#include "document/InputFile.h"

#include "record/RecordFormat.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>
#include <optional>

using namespace shapedocument;
using shapes::kFirstVersion;
using shapes::kLatestVersion;

namespace {

struct CheckOptions
{
    QString document;
    std::optional<int> version;
    bool json = false;
};

FileCheck FindingsOf(const QString& file, Bytes bytes, std::optional<int> asked)
{
    const Progress progress(
        QString("checking %1 (%2 MB)").arg(file).arg(static_cast<double>(bytes.size()) / kMegabyte, 0, 'f', 1));
    return CheckFile(bytes, asked);
}

void PrintClean(const QString& file, const FileCheck& found)
{
    PrintLine(stdout, file + QString(": clean, %1 shapes, ").arg(found.result.shapes) +
                          (found.versions ? "a bare stream of version " + found.versions->Text()
                                          : QString("version %1").arg(*found.version)));
}

/// For a bare stream: the fault of the version in which the walk gets furthest.
void PrintFault(const QString& file, const FileCheck& found)
{
    const Fault& fault = *found.result.fault;
    const QString remark =
        found.versions ? QString("a bare stream of no version, nearest is %1: ").arg(found.versions->nearest) : "";
    PrintError(file + ": " + remark + fault.path + QString(": byte %1: ").arg(fault.offset) + fault.reason);
}

void PrintJson(const QString& file, const FileCheck& found)
{
    const std::optional<Fault>& fault = found.result.fault;
    QJsonObject json{{"file", file},
                     {"clean", !fault},
                     {"shapes", qint64(found.result.shapes)},
                     {"version", found.version ? QJsonValue(*found.version) : QJsonValue()},
                     {"bareVersions", QJsonValue()},
                     {"fault", QJsonValue()}};
    if (found.versions) {
        QJsonArray versions;
        for (const int version : found.versions->versions)
            versions.append(version);
        json["bareVersions"] = versions;
    }
    if (fault)
        json["fault"] = QJsonObject{{"byte", qint64(fault->offset)}, {"path", fault->path}, {"reason", fault->reason}};
    std::fputs(QJsonDocument(json).toJson().constData(), stdout);
}

int Check(const CheckOptions& options)
{
    const InputBytes input(options.document);
    const QString file = InputName(options.document);
    const FileCheck found = FindingsOf(file, input.All(), options.version);
    if (options.json)
        PrintJson(file, found);
    else if (found.result.fault)
        PrintFault(file, found);
    else
        PrintClean(file, found);
    return found.result.fault ? kFaulty : 0;
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
    command.AddFlag(
        "--json", options->json,
        "print an object instead of a line: file, clean, shapes (whole ones before the fault), version (null "
        "when the header is faulty), bareVersions (in which a bare stream is clean; null for documents) and "
        "fault (byte, path, reason; null when clean)");
    command.AddExample("check badge.shapes", "says whether the document is whole");
    command.AddExample("check --json damaged.shapes", "the first fault as data");
    command.Runs([options] { return Check(*options); });
}
