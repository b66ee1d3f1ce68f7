#include "machine/RunJoining.h"

#include "machine/EndPairs.h"
#include "machine/RunBuilder.h"
#include "machine/RunPart.h"

#include "geometry/Tolerances.h"

#include <algorithm>

namespace shapedocument {

namespace {

constexpr double kLeastToClose = 10; ///< least length, in tolerances, of a run whose own ends may be joined

/// All paths of a job, in its order.
struct JobPaths
{
    std::vector<MachinePath> paths;
    std::vector<qint64> places;
    std::vector<uint32_t> runs; ///< indices in paths of those that may be joined
    std::vector<RunEnd> ends;   ///< two for each of runs
    std::vector<bool> mayClose; ///< one for each of runs
};

std::vector<bool> ShapesWithLeads(const MachineJob& job)
{
    std::vector<bool> leads(job.ShapeCount() + 1);
    JobReader reader(job);
    while (const auto path = reader.NextPath())
        if (path->kind != PathKind::Cut)
            leads[path->shape] = true;
    return leads;
}

JobPaths ReadPaths(const MachineJob& job, double tolerance, const WorkWatch& watch)
{
    JobPaths all;
    const std::vector<bool> leads = ShapesWithLeads(job);
    JobReader reader(job);
    while (const auto path = reader.NextPath()) {
        watch.Ask();
        const auto index = static_cast<uint32_t>(all.paths.size());
        all.paths.push_back(*path);
        all.places.push_back(reader.Place());
        if (path->kind != PathKind::Cut || path->closed || leads[path->shape])
            continue;
        const std::vector<JobPoint> points = reader.Run();
        const auto run = static_cast<uint32_t>(all.runs.size());
        all.ends.push_back({points.front().point, path->color, run});
        all.ends.push_back({points.back().point, path->color, run});
        all.mayClose.push_back(RunLength(points) >= kLeastToClose * tolerance);
        all.runs.push_back(index);
    }
    return all;
}

void Reverse(std::vector<JobPoint>& points)
{
    std::reverse(points.begin(), points.end());
    for (size_t i = 0; i + 1 < points.size(); ++i)
        points[i].bulge = -points[i + 1].bulge;
    points.back().bulge = 0;
}

/// Appends next to the run, with a line where there is a gap.
void AppendRun(std::vector<JobPoint>& run, const std::vector<JobPoint>& next)
{
    if (!run.empty() && shapes::SamePoint(run.back().point, next.front().point))
        run.back().bulge = next.front().bulge;
    else
        run.push_back(next.front());
    run.insert(run.end(), next.begin() + 1, next.end());
}

void CloseRun(std::vector<JobPoint>& run)
{
    if (shapes::SamePoint(run.front().point, run.back().point))
        run.back().point = run.front().point;
    else
        run.push_back({run.front().point, 0});
}

/// Runs one after the other. Exact parts are thinned as one outline, so that points where a line goes straight on are
/// dropped.
class Chain
{
public:
    void Append(const std::vector<JobPoint>& run, bool exact)
    {
        if (!exact)
            AppendLines();
        AppendRun(exact ? m_lines : m_points, run);
    }

    std::vector<JobPoint> Extract()
    {
        AppendLines();
        return std::move(m_points);
    }

private:
    void AppendLines()
    {
        if (m_lines.empty())
            return;
        RunBuilder thinned(false);
        thinned.Begin(m_lines.front().point);
        for (const JobPoint& point : m_lines)
            thinned.LineTo(point.point);
        const std::vector<JobPoint>& run = thinned.End();
        AppendRun(m_points, run.empty() ? m_lines : run);
        m_lines.clear();
    }

    std::vector<JobPoint> m_points;
    std::vector<JobPoint> m_lines; ///< exact part, not thinned yet
};

class Joiner
{
public:
    Joiner(const MachineJob& job, const JobPaths& all, const std::vector<uint32_t>& partners)
        : m_reader(job), m_all(all), m_partners(partners), m_done(all.runs.size())
    {}

    /// The points of the chain of run; empty when the chain has been extracted already. To be called in the order of
    /// the job.
    std::vector<JobPoint> ExtractChain(uint32_t run)
    {
        if (m_done[run])
            return {};
        Chain chain;
        const uint32_t first = FirstEnd(2 * run);
        uint32_t end = first;
        do {
            chain.Append(Points(end), m_all.paths[m_all.runs[end / 2]].exact);
            m_done[end / 2] = true;
            end = m_partners[end ^ 1];
        } while (end != kNoPartner && end != first);
        std::vector<JobPoint> points = chain.Extract();
        if (end == first)
            CloseRun(points);
        return points;
    }

    std::vector<JobPoint> PathPoints(size_t path)
    {
        m_reader.GoTo(m_all.places[path]);
        m_reader.NextPath();
        return m_reader.Run();
    }

private:
    /// The first end of the chain that this end belongs to; the end itself where the chain is closed.
    uint32_t FirstEnd(uint32_t end) const
    {
        const uint32_t begin = end;
        while (m_partners[end] != kNoPartner) {
            end = m_partners[end] ^ 1;
            if (end == begin)
                break;
        }
        return end;
    }

    /// The points of an end's run, starting at that end.
    std::vector<JobPoint> Points(uint32_t end)
    {
        std::vector<JobPoint> points = PathPoints(m_all.runs[end / 2]);
        if (end % 2 == 1)
            Reverse(points);
        return points;
    }

    JobReader m_reader;
    const JobPaths& m_all;
    const std::vector<uint32_t>& m_partners;
    std::vector<bool> m_done; ///< of every run
};

} // namespace

MachineJob JoinRuns(MachineJob job, double tolerance, const QString& file, const WorkProgress& progress)
{
    WorkWatch watch(progress, WorkStep::Joining, job.PathCount());
    const JobPaths all = ReadPaths(job, tolerance, watch);
    const std::vector<uint32_t> partners = PairEnds(all.ends, all.mayClose, tolerance, [&watch] { watch.Ask(); });
    if (std::all_of(partners.begin(), partners.end(), [](uint32_t partner) { return partner == kNoPartner; }))
        return job;
    Joiner joiner(job, all, partners);
    MachineJob joined(file);
    uint32_t run = 0;
    for (size_t i = 0; i < all.paths.size(); ++i) {
        watch.Next();
        const bool mayJoin = run < all.runs.size() && all.runs[run] == i;
        const std::vector<JobPoint> points = mayJoin ? joiner.ExtractChain(run++) : joiner.PathPoints(i);
        if (!points.empty())
            joined.Append(all.paths[i], points);
    }
    joined.Finish(file);
    return joined;
}

} // namespace shapedocument
