/// Check and repair of documents' bytes.
#include "Application.h"
#include "Arguments.h"
#include "Buffer.h"
#include "Entry.h"
#include "Progress.h"
#include "StreamOptions.h"
#include "Structs.h"
#include "check/FileCheck.h"
#include "document/Failure.h"
#include "document/InputBytes.h"
#include "document/RepairedDocument.h"

#include <algorithm>
#include <cstring>

using namespace capi;
using namespace shapedocument;

namespace {

/// Copies as many whole characters as fit.
template <size_t N>
void CopyText(const QString& text, char (&room)[N])
{
    const QByteArray bytes = text.toUtf8();
    auto length = std::min<qsizetype>(bytes.size(), N - 1);
    while (length < bytes.size() && length > 0 && (static_cast<unsigned char>(bytes[length]) & 0xC0) == 0x80)
        --length;
    std::memcpy(room, bytes.constData(), static_cast<size_t>(length));
    room[length] = 0;
}

void FillResult(const CheckResult& found, sm_check_result& result)
{
    result.clean = !found.fault;
    result.shapes = static_cast<uint64_t>(found.shapes);
    if (!found.fault)
        return;
    result.fault_offset = static_cast<uint64_t>(found.fault->offset);
    CopyText(found.fault->path + ": " + found.fault->reason, result.fault);
}

sm_check_result CheckOf(Bytes bytes, const sm_document_options& options)
{
    const std::optional<int> asked = VersionOf(options);
    Progress told(options);
    const WorkProgress progress = told.OfWork();
    const ByteWatch watch = WatchOf(progress, WorkStep::Checking, bytes);
    sm_check_result result{};
    const StreamStart start = FindStream(bytes);
    result.bare = start.Bare();
    const FileCheck found = CheckFile(bytes, asked, watch);
    result.version = found.version.value_or(asked.value_or(start.version));
    FillResult(found.result, result);
    return result;
}

/// Throws Failure where nothing can be saved.
FoundShapes Find(Bytes bytes, const QString& name, std::optional<int> version, const WorkProgress& progress)
{
    std::optional<FoundShapes> found = FindShapes(bytes, version, progress);
    if (!found)
        throw Failure{name, "holds no shape that can be saved"};
    return std::move(*found);
}

void FillResult(const FoundShapes& found, sm_repair_result* result)
{
    if (!result)
        return;
    const Salvage& salvage = found.salvage;
    sm_repair_result told{};
    told.version = found.version;
    told.kept_before = static_cast<uint64_t>(salvage.keptBefore);
    told.recovered = static_cast<uint64_t>(salvage.recovered);
    told.open_groups = static_cast<uint64_t>(salvage.openGroups);
    told.mended_values = salvage.mended.size();
    told.skipped_bytes = static_cast<uint64_t>(salvage.SkippedBytes());
    told.gave_up = salvage.gaveUp;
    Answer(result, told);
}

void ExpectSome(Bytes bytes)
{
    if (bytes.empty())
        throw Failure{kBytes, "is empty"};
}

} // namespace

sm_status sm_check(const char* file, const sm_document_options* options, sm_check_result* result)
{
    return Enter([=] {
        ExpectAnswerable(result);
        const sm_document_options taken = StreamOptionsOf(options);
        const InputBytes input(FileOf(file));
        Answer(result, CheckOf(input.All(), taken));
    });
}

sm_status sm_check_bytes(const void* data, size_t size, const sm_document_options* options, sm_check_result* result)
{
    return Enter([=] {
        ExpectAnswerable(result);
        const sm_document_options taken = StreamOptionsOf(options);
        const Bytes bytes = BytesOf(data, size);
        ExpectSome(bytes);
        Answer(result, CheckOf(bytes, taken));
    });
}

sm_status sm_repair(const char* file, const char* target, const sm_document_options* options, sm_repair_result* result)
{
    return Enter([=] {
        if (result)
            ExpectAnswerable(result);
        const sm_document_options taken = StreamOptionsOf(options);
        const Target output = TargetOf(target, taken);
        const QString name = FileOf(file);
        ExpectApplication();
        const InputBytes input(name); // stays valid when the target is the same file: that is replaced, not overwritten
        Progress told(taken);
        const WorkProgress progress = told.OfWork();
        const FoundShapes found = Find(input.All(), name, VersionOf(taken), progress);
        Writing([&] { Warn(WriteRepaired(output, input.All(), found, progress)); });
        FillResult(found, result);
    });
}

sm_status sm_repair_bytes(const void* data, size_t size, const sm_document_options* options, sm_buffer* repaired,
                          sm_repair_result* result)
{
    return Enter([=] {
        Clear(repaired, "repaired");
        if (result)
            ExpectAnswerable(result);
        const sm_document_options taken = StreamOptionsOf(options);
        const Bytes bytes = BytesOf(data, size);
        ExpectSome(bytes);
        ExpectApplication();
        Progress told(taken);
        const WorkProgress progress = told.OfWork();
        const FoundShapes found = Find(bytes, kBytes, VersionOf(taken), progress);
        QStringList warnings;
        const QByteArray document = RepairedBytes(bytes, found, kBytes, warnings, progress);
        Warn(warnings);
        FillResult(found, result);
        *repaired = Lent(document);
    });
}
