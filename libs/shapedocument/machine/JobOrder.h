/// A job with its paths in the order that the machine is to follow.
#pragma once

#include "document/WorkProgress.h"
#include "machine/ColorSettings.h"
#include "machine/MachineJob.h"
#include "shapedocument_export.h"

namespace shapedocument {

/// Beyond, ordering would take minutes and more memory than many computers have.
constexpr size_t kMostOrderedPaths = 1'000'000;

/// A job in its order.
struct OrderedJob
{
    MachineJob job; ///< finished

    /// Paths behind one around them, because that one's colour has a lower order.
    size_t againstInside = 0;
};

/// A finished job of the same paths, as OrderPaths puts them; at most kMostOrderedPaths. Colours of a lower order come
/// first, whatever lies inside what. The head starts at 0,0. In which corner that lies only the machine knows: in the
/// document's, above, or where G-code with y upwards has it, at the height of the lowest line. One order is made for
/// both. Where doubles have been left out, whole is the job before: what lay inside a contour comes before what is left
/// of it. Throws Failure, naming file, and Stopped. Cost: that of OrderPaths, and O(points).
SHAPEDOCUMENT_EXPORT OrderedJob PutInOrder(const MachineJob& job, const MachineJob* whole, bool mixColors,
                                           const ColorSettings& colors, const QString& file,
                                           const WorkProgress& progress = {});

} // namespace shapedocument
