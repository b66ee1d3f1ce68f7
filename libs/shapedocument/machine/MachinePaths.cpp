#include "machine/MachinePaths.h"

#include "machine/JobBuilder.h"
#include "machine/ListPreparation.h"
#include "machine/RunJoining.h"

#include "document/ShapeWalk.h"
#include "machine/JobOrder.h"

#include "list/ShapeList.h"

#include <malloc.h>

namespace shapedocument {

namespace {

void PutInOrder(PreparedJob& prepared, const MachineJob* whole, const JobOptions& options, const QString& file,
                const WorkProgress& progress)
{
    if (prepared.job.PathCount() > kMostOrderedPaths) {
        prepared.tooManyToOrder = !whole;
        return;
    }
    OrderedJob ordered = PutInOrder(prepared.job, whole, options.mixColors, options.colors, file, progress);
    prepared.job = std::move(ordered.job);
    prepared.againstInside = ordered.againstInside;
    if (options.emptyDocument)
        malloc_trim(0); // free() keeps the memory of many small lists for the process
}

/// Behind everything that looks at whole contours, which are none any more afterwards. The parts that are left have
/// ends of their own, between which other ways are short.
void LeaveOutDoubles(PreparedJob& prepared, const JobOptions& options, const QString& file,
                     const WorkProgress& progress)
{
    const MachineJob whole = std::move(prepared.job);
    const size_t known = prepared.doubled.count;
    prepared.job = LeaveOutDoubles(whole, DoublesOf::Everything, file, prepared.doubled, progress);
    if (options.fastOrder && prepared.doubled.count > known)
        PutInOrder(prepared, &whole, options, file, progress);
}

} // namespace

PreparedJob PrepareJob(CShapeList& document, const JobOptions& options, const QString& file,
                       const WorkProgress& progress)
{
    ExpectFewOutlines(document, file);
    OptimizeShapes(document, WorkWatch(progress, WorkStep::Lines));
    SortShapes(document);
    PreparedJob prepared{MachineJob(file), {}, {}, false, 0};
    CountWithoutLines(document, prepared.leftOut);
    JobBuilder builder(prepared, options, file);
    WorkWatch watch(progress, WorkStep::Lines, progress ? OutlineCount(document) : 0);
    ForEachVisibleOutline(document, [&](CShape& shape) {
        builder.Add(shape);
        watch.Next();
    });
    prepared.job.Finish(file);
    if (options.emptyDocument) {
        document.DeleteAll();
        malloc_trim(0); // free() keeps the memory of small blocks for the process
    }
    if (options.join > 0) {
        if (!options.keepDoubles)
            prepared.job = LeaveOutDoubles(prepared.job, DoublesOf::WholeRuns, file, prepared.doubled, progress);
        prepared.job = JoinRuns(std::move(prepared.job), options.join, file, progress);
    }
    if (options.fastOrder)
        PutInOrder(prepared, nullptr, options, file, progress);
    if (!options.keepDoubles)
        LeaveOutDoubles(prepared, options, file, progress);
    return prepared;
}

} // namespace shapedocument
