/// Writing a machine's work in the formats that other programs take.
#pragma once

#include "machine/MachineWork.h"
#include "shapedocument_export.h"

class QIODevice;

namespace shapedocument {

/// A row per line: shape, path, kind (cut, lead-in, lead-out), both ends in mm (y down), colour. With an engraving
/// these lines come behind its own, whose kind is engrave, whose paths are the machine's rows, and all have a last
/// column: their grey, 0 for black. As the others, answers the number of rows that burn.
/// Cost: O(points + runs of dots).
SHAPEDOCUMENT_EXPORT size_t WriteCsv(QIODevice& device, const MachineWork& work);

/// A group per shape and a polyline per path, in mm, on a page that begins at the document's origin or the first line.
/// What is engraved is a group of class engrave, as wide as its rows, and in it a path per run in its grey.
/// Cost: O(points + runs of dots).
SHAPEDOCUMENT_EXPORT size_t WriteSvg(QIODevice& device, const MachineWork& work);

} // namespace shapedocument
