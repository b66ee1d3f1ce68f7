#include "machine/JobOrder.h"

#include "machine/Containment.h"
#include "machine/JobView.h"
#include "machine/PathOrder.h"

#include <map>
#include <memory>

namespace shapedocument {

namespace {

/// Indices of paths by the order of their colours.
using Groups = std::map<int, std::vector<uint32_t>>;

Groups GroupsOf(std::span<const OrderedPath> paths, const ColorSettings& colors)
{
    Groups groups;
    for (uint32_t i = 0; i < paths.size(); ++i)
        groups[SettingOf(colors, paths[i].color).order].push_back(i);
    return groups;
}

std::vector<OrderedPath> Chosen(std::span<const OrderedPath> paths, std::span<const uint32_t> members)
{
    std::vector<OrderedPath> chosen;
    chosen.reserve(members.size());
    for (const uint32_t path : members)
        chosen.push_back(paths[path]);
    return chosen;
}

size_t CountAgainstInside(std::span<const OrderedPath> paths, const Groups& groups, const WorkWatch& watch)
{
    if (groups.size() < 2)
        return 0;
    std::vector<int> orders(paths.size());
    for (const auto& [order, members] : groups)
        for (const uint32_t path : members)
            orders[path] = order;
    std::vector<int> lowest(orders); // of a path and all paths around it
    const std::vector<Enclosure> steps = FindEnclosures(paths, watch).steps;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) // from outside inwards
        lowest[step->inner] = std::min(lowest[step->inner], lowest[step->outer]);
    size_t count = 0;
    for (size_t i = 0; i < paths.size(); ++i)
        count += lowest[i] < orders[i];
    return count;
}

} // namespace

OrderedJob PutInOrder(const MachineJob& job, const MachineJob* whole, bool mixColors, const ColorSettings& colors,
                      const QString& file, const WorkProgress& progress)
{
    const JobView view(job);
    const std::unique_ptr<JobView> wholes = whole ? std::make_unique<JobView>(*whole) : nullptr;
    std::vector<OrderedPath> paths;
    paths.reserve(view.Paths().size());
    for (const MachinePath* path : view.Paths()) {
        paths.push_back({JobView::PointsOf(*path), path->shape, path->kind, path->color, path->closed});
        if (wholes && wholes->Paths()[path->whole]->closed)
            paths.back().whole = JobView::PointsOf(*wholes->Paths()[path->whole]);
    }
    if (wholes)
        wholes->ForgetPaths();
    const Groups groups = GroupsOf(paths, colors);
    OrderedJob ordered{MachineJob(file), CountAgainstInside(paths, groups, {progress, WorkStep::Ordering})};
    PathOrderOptions options{mixColors, {QPointF(0, 0), QPointF(0, job.Rect().bottom())}, progress};
    for (const auto& [order, members] : groups) {
        const std::vector<OrderedPath> some = groups.size() > 1 ? Chosen(paths, members) : std::vector<OrderedPath>();
        const std::span<const OrderedPath> group = groups.size() > 1 ? some : paths;
        for (const PlacedPath& placed : OrderPaths(group, options)) {
            const std::vector<JobPoint> points = PlacedPoints(group[placed.path].points, placed);
            MachinePath path = *view.Paths()[members[placed.path]];
            path.block = placed.block;
            ordered.job.Append(path, points);
            options.homes.fill(points.back().point);
        }
    }
    ordered.job.Finish(file);
    return ordered;
}

} // namespace shapedocument
