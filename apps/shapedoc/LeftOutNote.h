/// Tells the user which parts of a document are not in its job.
#pragma once

#include "machine/MachinePaths.h"

/// Prints one line on standard error about the shapes that gave no lines; nothing if there are none.
void WarnOfLeftOut(const QString& file, const shapedocument::LeftOut& leftOut);

/// The same about doubled lines.
void WarnOfDoubles(const QString& file, const shapedocument::DoubledLines& doubled);
