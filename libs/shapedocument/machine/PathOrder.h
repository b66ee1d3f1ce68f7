/// The order in which a machine follows paths: what lies inside comes first, with short moves in between.
#pragma once

#include "document/WorkProgress.h"
#include "machine/MachineJob.h"
#include "shapedocument_export.h"

#include <array>
#include <span>

namespace shapedocument {

/// The points of a path, borrowed.
using JobPoints = std::span<const JobPoint>;

/// A path as it stands in a job. The points belong to the caller.
struct OrderedPath
{
    JobPoints points;              ///< two at least, all of them numbers within kFarthest
    size_t shape = 0;              ///< leads stay with a cut of the same shape
    PathKind kind = PathKind::Cut; ///< leads go with their cut
    unsigned int color = 0;        ///< those of one stay together
    bool closed = false;           ///< the last point is the first one again
    JobPoints whole = {}; ///< a closed path that this is a part of: what lies inside that one comes first; or none
};

/// What an order is to keep.
struct PathOrderOptions
{
    bool mixColors = false; ///< else the paths of one colour stay together, in the order of first use

    /// Where the head stands before the first path, in either of two frames; the first move counts by the mean of both.
    std::array<QPointF, 2> homes{};

    WorkProgress progress = {}; ///< may be empty
};

/// How a path is followed.
struct PlacedPath
{
    size_t path;   ///< its number among those given
    bool reversed; ///< from its last point to its first; open paths only
    size_t first;  ///< the point where a closed path begins and ends; 0 for every other one

    /// Counts up from 0. Nothing lies inside a path of its own block: whoever goes through all blocks, and each as
    /// often as it likes, is done with what is inside before it comes to what is around it.
    uint32_t block = 0;
};

/// Each path once. What lies inside a closed path comes before it, at every depth and whatever the colours; where
/// colours lie inside each other in turns, a colour is taken up more than once. A lead-in comes right before its cut, a
/// lead-out right behind it, and that cut begins where it did. Equal paths give equal answers: the work is bounded by
/// counted steps. Throws Stopped. Cost: about O(n log n) in paths and points, and 40 million steps of improving at
/// most.
SHAPEDOCUMENT_EXPORT std::vector<PlacedPath> OrderPaths(std::span<const OrderedPath> paths,
                                                        const PathOrderOptions& options);

/// The points of a path as it is to be followed. Cost: O(points).
SHAPEDOCUMENT_EXPORT std::vector<JobPoint> PlacedPoints(JobPoints points, const PlacedPath& placed);

} // namespace shapedocument
