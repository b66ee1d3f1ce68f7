/// The parts of a work that lie outside the machine's bed.
#pragma once

#include "machine/JobReport.h"

#include <QRectF>

namespace shapedocument {

/// The bed in the document's frame (mm, y down). bed: mm, as the machine counts in the work's G-code. Cost: O(1).
SHAPEDOCUMENT_EXPORT QRectF BedInDocument(const QRectF& bed, const MachineWork& work, const GcodeOptions& options);

/// A finding for each path and each engraved shape (run-ups included) that leaves the bed by more than 0.001 mm: its
/// point farthest outside, and the distance (mm). Cost: O(segments + engraved rows).
SHAPEDOCUMENT_EXPORT Findings FindOutsideBed(const QRectF& bed, const MachineWork& work, const GcodeOptions& options);

} // namespace shapedocument
