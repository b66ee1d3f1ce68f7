/// A job with its paths in the order that the machine is to follow.
#pragma once

#include "document/WorkProgress.h"
#include "machine/ColorSettings.h"
#include "machine/MachineJob.h"
#include "shapedocument_export.h"

namespace shapedocument {

/// With more paths ordering would take minutes, and more memory than many computers have.
constexpr size_t kMostOrderedPaths = 1'000'000;

/// A job in its order.
struct OrderedJob
{
    MachineJob job; ///< finished

    /// Paths that come after one around them, because that one's colour has a lower order.
    size_t againstInside = 0;
};

/// A finished job of the same paths in the order of OrderPaths; at most kMostOrderedPaths. Colours of a lower order
/// come first, whatever lies inside what. The head starts at 0,0: the document's origin, or with y upwards in the
/// G-code, x = 0 at the height of the lowest line. Which one is not known here, so one order is made for both. whole:
/// the job before doubles were left out, or null; what lay inside a contour comes before what is left of it. Throws
/// Failure, naming file, and Stopped. Cost: that of OrderPaths, and O(points).
SHAPEDOCUMENT_EXPORT OrderedJob PutInOrder(const MachineJob& job, const MachineJob* whole, bool mixColors,
                                           const ColorSettings& colors, const QString& file,
                                           const WorkProgress& progress = {});

} // namespace shapedocument
