#include "machine/DoubledLines.h"

#include "machine/DoubledStretches.h"

namespace shapedocument {

namespace {

double CutLength(const MachineJob& job)
{
    double length = 0;
    JobReader reader(job);
    while (const auto path = reader.NextPath())
        if (path->kind == PathKind::Cut)
            length += RunLength(reader.Run());
    return length;
}

/// What lies between the stretches of a run, in order; over the start of a closed run as one.
std::vector<std::vector<JobPoint>> RestOf(std::span<const JobPoint> run, const std::vector<Stretch>& stretches,
                                          bool closed)
{
    std::vector<std::vector<JobPoint>> rest;
    RunPlace begin;
    for (const Stretch& stretch : stretches) {
        rest.push_back(RunPart(run, begin, stretch.begin));
        begin = stretch.end;
    }
    rest.push_back(RunPart(run, begin, {run.size() - 2, 1}));
    if (closed && rest.size() > 1 && !rest.front().empty() && !rest.back().empty()) {
        std::vector<JobPoint>& last = rest.back();
        last.pop_back();
        last.insert(last.end(), rest.front().begin(), rest.front().end());
        rest.erase(rest.begin());
    }
    std::erase_if(rest, [](const std::vector<JobPoint>& part) { return part.empty(); });
    return rest;
}

} // namespace

MachineJob LeaveOutDoubles(MachineJob job, const QString& file, DoubledLines& doubled)
{
    KeptLines kept(job.Rect(), CutLength(job));
    StretchFinder finder(kept);
    MachineJob once(file);
    JobReader reader(job);
    while (const auto path = reader.NextPath()) {
        const std::vector<JobPoint> run = reader.Run();
        if (path->kind != PathKind::Cut) {
            once.Append(*path, run);
            continue;
        }
        const std::vector<Stretch> stretches = finder.Find(path->color, run);
        for (const Stretch& stretch : stretches)
            doubled.length += stretch.length;
        doubled.count += stretches.size();
        if (stretches.empty()) {
            once.Append(*path, run);
            continue;
        }
        for (const std::vector<JobPoint>& part : RestOf(run, stretches, path->closed))
            once.Append(*path, part);
    }
    once.Finish(file);
    return once;
}

} // namespace shapedocument
