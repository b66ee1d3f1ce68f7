/// Writing files so that nothing is ever half written.
#pragma once

#include "shapedocument_export.h"
#include <QString>

#include <functional>

class QFile;

namespace shapedocument {

/// Where something is to be written.
struct Target
{
    QString file;       ///< "-": the standard output
    bool force = false; ///< also in place of what is write-protected, or whose owner or group cannot be kept
};

/// How messages call the target.
SHAPEDOCUMENT_EXPORT QString OutputName(const Target& target);

/// Lets write fill a temporary file beside target, checks that all of it reached the disk and renames it to target.
/// Until then a file that stands there already is untouched; its owner, group and mode pass to the new one, and
/// symbolic links go on pointing at it. Throws Failure; the temporary file is gone then, and RemoveUnfinishedFiles
/// removes it. approve, when given, sees the finished file before it takes the target's place, and may throw to keep it
/// from that. The standard output receives nothing before everything has been written and approved.
SHAPEDOCUMENT_EXPORT void WriteFile(const Target& target, const std::function<void(QFile&)>& write,
                                    const std::function<void(QFile&)>& approve = {});

} // namespace shapedocument
