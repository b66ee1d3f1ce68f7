/// The order in which a machine follows paths: inside before outside, with short moves in between.
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
    JobPoints points;              ///< two at least, all within kFarthest
    size_t shape = 0;              ///< leads stay with a cut of the same shape
    PathKind kind = PathKind::Cut; ///< leads stay with their cut
    unsigned int color = 0;        ///< paths of one colour stay together
    bool closed = false;           ///< the last point is the first one again
    JobPoints whole = {}; ///< the closed path that this is a part of: what lies inside it comes first; empty: none
};

/// Rules of an order.
struct PathOrderOptions
{
    bool mixColors = false; ///< else the paths of one colour stay together, in the order of first use

    /// Two possible places (mm) of the head before the first path; the first move counts by the mean of both.
    std::array<QPointF, 2> homes{};

    WorkProgress progress = {}; ///< may be empty
};

/// How a path is followed.
struct PlacedPath
{
    size_t path;   ///< its index among those given
    bool reversed; ///< from its last point to its first; open paths only
    size_t first;  ///< index of the point where a closed path starts and ends; 0 for open ones

    /// Counts up from 0. No path lies inside another one of its block: when each block is followed in turn, as many
    /// times as wanted, what is inside is done before what is around it.
    uint32_t block = 0;
};

/// Each path once. What lies inside a closed path comes before it, at every depth and whatever the colours; where two
/// colours each hold paths of the other, a colour is used more than once. A lead-in comes right before its cut, a
/// lead-out right behind it, and such a cut keeps its start. Equal input gives equal results: the work is bounded by
/// counted steps, not by time. Throws Stopped. Cost: about O(n log n) in paths and points, and at most 40 million steps
/// of improvement.
SHAPEDOCUMENT_EXPORT std::vector<PlacedPath> OrderPaths(std::span<const OrderedPath> paths,
                                                        const PathOrderOptions& options);

/// The points of a path as it is to be followed. Cost: O(points).
SHAPEDOCUMENT_EXPORT std::vector<JobPoint> PlacedPoints(JobPoints points, const PlacedPath& placed);

} // namespace shapedocument
