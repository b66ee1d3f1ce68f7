#include "check/FileCheck.h"

namespace shapedocument {

FileCheck CheckFile(Bytes file, std::optional<int> asked, const ByteWatch& watch)
{
    const StreamStart start = FindStream(file);
    if (start.fault)
        return {std::nullopt, std::nullopt, {start.fault, 0}};
    if (!asked && start.Bare()) {
        const FittingVersions found = FindVersions(file, start.offset, watch);
        return {found.versions.empty() ? found.nearest : found.versions.back(), found, found.result};
    }
    const int version = asked.value_or(start.version);
    return {version, std::nullopt, CheckStream(file, start.offset, version, watch)};
}

} // namespace shapedocument
