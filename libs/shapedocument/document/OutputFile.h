/// Writes files completely or not at all.
#pragma once

#include "shapedocument_export.h"
#include <QString>

#include <functional>

class QFile;

namespace shapedocument {

/// Where to write.
struct Target
{
    QString file;       ///< "-": the standard output
    bool force = false; ///< replaces write-protected files, and those whose owner or group cannot be kept
};

/// The target's name in messages. Cost: O(1).
SHAPEDOCUMENT_EXPORT QString OutputName(const Target& target);

/// Calls write with a temporary file beside target, checks that all of it reached the disk and renames it to target.
/// Until then an existing file is untouched. The new file gets its owner, group and mode; symbolic links are kept and
/// point at the new file. Throws Failure and removes the temporary file; RemoveUnfinishedFiles removes it when a signal
/// ends the process. approve, when given, gets the finished file before it is renamed, and may throw to prevent that.
/// The standard output receives nothing before everything has been written and approved. Cost: that of write, and one
/// wait for the disk.
SHAPEDOCUMENT_EXPORT void WriteFile(const Target& target, const std::function<void(QFile&)>& write,
                                    const std::function<void(QFile&)>& approve = {});

} // namespace shapedocument
