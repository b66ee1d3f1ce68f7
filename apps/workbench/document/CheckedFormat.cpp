#include "document/CheckedFormat.h"

#include "document/Failure.h"
#include "document/InputBytes.h"

#include <optional>

using shapedocument::Failure;

shapedocument::StreamFormat CheckedFormat(const QString& path)
{
    const shapedocument::InputBytes input(path);
    const shapedocument::StreamStart start = shapedocument::FindStream(input.All());
    std::optional<shapedocument::Fault> fault = start.fault;
    if (start.Bare() && !fault) {
        const shapedocument::FittingVersions fitting = shapedocument::FindVersions(input.All(), start.offset);
        if (!fitting.versions.empty())
            return {true, fitting.versions.back()};
        fault = fitting.result.fault;
    } else if (!fault) {
        fault = shapedocument::CheckStream(input.All(), start.offset, start.version).fault;
    }
    if (fault)
        throw Failure{path, QString("%1: byte %2: %3").arg(fault->path).arg(fault->offset).arg(fault->reason)};
    return {};
}
