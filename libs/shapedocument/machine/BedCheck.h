/// What of a work lies outside the machine's bed.
#pragma once

#include "machine/JobReport.h"

#include <QRectF>

namespace shapedocument {

/// The bed in the document's frame (mm, y down). bed: mm, as the machine counts in the work's G-code.
SHAPEDOCUMENT_EXPORT QRectF BedInDocument(const QRectF& bed, const MachineWork& work, const GcodeOptions& options);

/// The paths, and as one each the engraved shapes with their run-ups, that leave the bed by more than 0.001 mm; with
/// the place of each that lies farthest outside, and how far. Cost: O(segments + engraved rows).
SHAPEDOCUMENT_EXPORT Findings FindOutsideBed(const QRectF& bed, const MachineWork& work, const GcodeOptions& options);

} // namespace shapedocument
