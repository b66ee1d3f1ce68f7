/// Writing a machine's work in the formats that other programs take.
#pragma once

#include "machine/MachineWork.h"
#include "shapedocument_export.h"

class QIODevice;

namespace shapedocument {

/// A row per line: shape, path, kind (cut, lead-in, lead-out), both ends in mm (y down), colour. With an engraving its
/// lines come first, of the kind engrave and with the machine's rows as paths; then all lines have a last column, the
/// grey, 0 for black. Returns the number of rows that burn. Cost: O(points + runs of dots).
SHAPEDOCUMENT_EXPORT size_t WriteCsv(QIODevice& device, const MachineWork& work);

/// A group per shape and a polyline per path, in mm, on a page that begins at the document's origin or the first line.
/// An engraved shape is a group of class engrave, its stroke as wide as a row, with a path for each span in its grey.
/// Returns the number of rows that burn. Cost: O(points + runs of dots).
SHAPEDOCUMENT_EXPORT size_t WriteSvg(QIODevice& device, const MachineWork& work);

} // namespace shapedocument
