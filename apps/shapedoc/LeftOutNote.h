/// Tells the user what of a document is not in its job.
#pragma once

#include "machine/MachinePaths.h"

/// Shapes that have given no lines, as one line on standard error; nothing when nothing was left out.
void WarnOfLeftOut(const QString& file, const shapedocument::LeftOut& leftOut);

/// The same of doubled lines.
void WarnOfDoubles(const QString& file, const shapedocument::DoubledLines& doubled);
