/// Notes on how a job was made, as lines for a person.
#pragma once

#include "machine/GcodeOutput.h"
#include "machine/MachinePaths.h"
#include "shapedocument_export.h"

#include <QStringList>

namespace shapedocument {

/// Shapes without lines, and whether the order differs from the requested one. Cost: O(notes).
SHAPEDOCUMENT_EXPORT QStringList MakingNotes(const PreparedJob& prepared);

/// The lines that were left out because they lie on others. Cost: O(1).
SHAPEDOCUMENT_EXPORT QStringList DoublesNotes(const DoubledLines& doubled);

/// Colours that have settings but no lines, as "no line has the colour #ff0000, nor #00ff00". Cost: O(paths).
SHAPEDOCUMENT_EXPORT QStringList ColorNotes(const ColorSettings& colors, const MachineJob& job);

/// Rows whose run-up the machine cannot take. Cost: O(1).
SHAPEDOCUMENT_EXPORT QStringList RunUpNotes(const RowCounts& counts);

} // namespace shapedocument
