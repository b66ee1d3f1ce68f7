/// Writing files so that nothing is ever half written.
#pragma once

#include <QString>

#include <functional>

class QFile;

/// Lets write fill a temporary file beside target, checks that all of it reached the disk and renames it to target.
/// Until then a file that stands there already is untouched. Throws Failure; the temporary file is gone then.
/// approve, when given, sees the finished file before it takes the target's place, and may throw to keep it from that.
void WriteFile(const QString& target, const std::function<void(QFile&)>& write,
               const std::function<void(QFile&)>& approve = {});
