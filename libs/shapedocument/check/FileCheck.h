/// Checks a file from its first byte to its last.
#pragma once

#include "check/StreamCheck.h"
#include "shapedocument_export.h"

#include <optional>

namespace shapedocument {

/// The result of checking a whole file.
struct FileCheck
{
    std::optional<int> version;              ///< with which the stream was walked; empty where the header has a fault
    std::optional<FittingVersions> versions; ///< of a bare stream, which holds no version, if none was asked for
    CheckResult result;                      ///< the intact part, and the first fault
};

/// Walks a document or a bare list stream from its first byte to its last. Cost: O(bytes), of a bare stream for each
/// version with a layout of its own.
/// @param file the bytes of all of it; the result refers to none of them
/// @param asked the version to walk it with; empty: that of the header, and every one for a bare stream
/// @param watch told how far the walk has come; may be empty
SHAPEDOCUMENT_EXPORT FileCheck CheckFile(Bytes file, std::optional<int> asked = std::nullopt,
                                         const ByteWatch& watch = {});

} // namespace shapedocument
