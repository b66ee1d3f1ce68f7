/// What the machine is to follow, in order.
#pragma once

#include "document/WorkProgress.h"
#include "machine/ColorSettings.h"
#include "machine/DoubledLines.h"
#include "machine/MachineJob.h"
#include "shapedocument_export.h"

#include <map>

class CShapeList;

namespace shapedocument {

/// What becomes a job, and how.
struct JobOptions
{
    bool leads = false;        ///< lead-in and lead-out lines go before and behind shapes that have them active
    bool frames = false;       ///< the frames of pictures are followed, and the outlines of whatever else is engraved
    bool engraved = false;     ///< pictures and filled outlines are engraved, not left out or followed
    bool arcs = false;         ///< curves become arcs, else lines alone
    double join = 0.05;        ///< mm: ends of one colour that are no farther apart become one run; 0 joins none
    bool keepDoubles = false;  ///< lines that lie on each other are all cut
    bool fastOrder = true;     ///< inside before outside with short moves, else the order of reading
    bool mixColors = false;    ///< in fast order; else the paths of one colour stay together
    ColorSettings colors = {}; ///< whose orders count in fast order
    /// The shapes are freed once their lines are taken, since ordering needs as much memory. Not together with
    /// engraving, whose rows are made from the shapes.
    bool emptyDocument = false;
};

/// What has no lines in a job: how many there are of each kind, as "hidden vector" or "array without cells". Copies in
/// cells count each.
using LeftOut = std::map<QString, size_t>;

/// A job, and what is not in it.
struct PreparedJob
{
    MachineJob job;              ///< finished
    LeftOut leftOut;             ///< shapes without lines
    DoubledLines doubled;        ///< lines that lie on others
    bool tooManyToOrder = false; ///< the paths are in reading order though fast order was asked for
    size_t againstInside = 0;    ///< see OrderedJob
};

/// Optimises and sorts the document, makes runs of every shape that is shown and usable, one at a time, joins them, and
/// leaves out what would be cut twice. Throws Failure, naming file, when a coordinate is beyond kFarthest, or the
/// shapes are too many, and Stopped where progress, which may be empty, says so.
/// Cost: O(n log n) in the points, and that of OrderPaths and LeaveOutDoubles.
SHAPEDOCUMENT_EXPORT PreparedJob PrepareJob(CShapeList& document, const JobOptions& options, const QString& file,
                                            const WorkProgress& progress);

} // namespace shapedocument
