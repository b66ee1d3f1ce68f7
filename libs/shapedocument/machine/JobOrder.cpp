#include "machine/JobOrder.h"

#include "machine/JobView.h"
#include "machine/PathOrder.h"

namespace shapedocument {

MachineJob OrderedJob(const MachineJob& job, bool mixColors, const QString& file)
{
    const JobView view(job);
    std::vector<OrderedPath> paths;
    paths.reserve(view.Paths().size());
    for (const auto& [path, points] : view.Paths())
        paths.push_back({points, path.shape, path.kind, path.color, path.closed});
    PathOrderOptions options;
    options.mixColors = mixColors;
    options.homes = {QPointF(0, 0), QPointF(0, job.Rect().bottom())};
    MachineJob ordered(file);
    for (const PlacedPath& placed : OrderPaths(paths, options))
        ordered.Append(view.Paths()[placed.path].path, PlacedPoints(paths[placed.path].points, placed));
    ordered.Finish(file);
    return ordered;
}

} // namespace shapedocument
