/// Tells the user which shapes have given no lines.
#pragma once

#include "machine/MachinePaths.h"

/// One line on standard error; nothing when nothing was left out.
void WarnOfLeftOut(const QString& file, const shapedocument::LeftOut& leftOut);
