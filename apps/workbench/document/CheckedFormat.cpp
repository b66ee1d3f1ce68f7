#include "document/CheckedFormat.h"

#include "check/FileCheck.h"
#include "document/Failure.h"
#include "document/InputBytes.h"

#include <optional>

using shapedocument::Failure;

shapedocument::StreamFormat CheckedFormat(const QString& path)
{
    const shapedocument::InputBytes input(path);
    const shapedocument::FileCheck found = shapedocument::CheckFile(input.All());
    if (const std::optional<shapedocument::Fault>& fault = found.result.fault)
        throw Failure{path, QString("%1: byte %2: %3").arg(fault->path).arg(fault->offset).arg(fault->reason)};
    return found.versions ? shapedocument::StreamFormat{true, *found.version} : shapedocument::StreamFormat{};
}
