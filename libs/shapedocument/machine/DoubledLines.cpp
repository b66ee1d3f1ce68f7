#include "machine/DoubledLines.h"

#include "machine/Bulge.h"
#include "machine/DoubledStretches.h"
#include "machine/NearPieces.h"

#include <cmath>
#include <optional>
#include <tuple>
#include <utility>

namespace shapedocument {

namespace {

/// mm: shorter stretches occur where lines cross or touch at an acute angle; leaving them out would not pay for a move.
constexpr double kShortestStretch = 1;

/// mm: a lead this near to the end of a cut belongs to it.
constexpr double kMeeting = 0.01;

double CutLength(const MachineJob& job)
{
    double length = 0;
    JobReader reader(job);
    while (const auto path = reader.NextPath())
        if (path->kind == PathKind::Cut)
            length += RunLength(reader.Run());
    return length;
}

/// The parts of a run between its stretches, in order; those at both ends of a closed run become one part.
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

/// Copies a job without its doubles. Where a cut loses some of its length, a lead stays only if what is left still
/// starts or ends at it.
class DoublesFilter
{
public:
    DoublesFilter(MachineJob& once, StretchFinder& finder, DoubledLines& doubled)
        : m_once(once), m_finder(finder), m_doubled(doubled)
    {}

    void Add(const MachinePath& path, std::vector<JobPoint> run)
    {
        if (path.kind == PathKind::Cut)
            return AddCut(path, run);
        AppendLeadIn(); // a lead-in that no cut follows
        if (path.kind == PathKind::LeadIn) {
            m_leadInPath = path;
            m_leadIn = std::move(run);
        } else if (m_isWhole || (m_end && Meet(*m_end, run.front()))) {
            m_once.Append(path, run);
        }
    }

    void Finish() { AppendLeadIn(); }

private:
    static bool Meet(const JobPoint& a, const JobPoint& b)
    {
        return std::hypot(a.point.x() - b.point.x(), a.point.y() - b.point.y()) < kMeeting;
    }

    void AppendLeadIn()
    {
        if (!m_leadIn.empty())
            m_once.Append(m_leadInPath, m_leadIn);
        m_leadIn.clear();
    }

    void AddCut(const MachinePath& path, const std::vector<JobPoint>& run)
    {
        const std::vector<Stretch> stretches = m_finder.Find(path.color, run);
        for (const Stretch& stretch : stretches)
            Count(run, stretch);
        m_isWhole = stretches.empty();
        if (!m_isWhole)
            return AddRest(path, run, stretches);
        AppendLeadIn();
        m_once.Append(path, run);
    }

    void Count(const std::vector<JobPoint>& run, const Stretch& stretch)
    {
        ++m_doubled.count;
        m_doubled.length += stretch.length;
        if (m_doubled.first.size() == DoubledLines::kMostFirst)
            return;
        const auto& [segment, part] = stretch.begin;
        const QPointF begin = PointOnSegment(run[segment].point, run[segment + 1].point, run[segment].bulge, part);
        m_doubled.first.push_back({begin, stretch.length});
    }

    void AddRest(const MachinePath& path, const std::vector<JobPoint>& run, const std::vector<Stretch>& stretches)
    {
        const bool mayBeginElsewhere = path.closed && m_leadIn.empty();
        const std::vector<std::vector<JobPoint>> rest = RestOf(run, stretches, mayBeginElsewhere);
        if (!m_leadIn.empty() && (rest.empty() || !Meet(m_leadIn.back(), rest.front().front())))
            m_leadIn.clear();
        AppendLeadIn();
        for (const std::vector<JobPoint>& part : rest)
            m_once.Append(path, part);
        m_end.reset();
        if (!rest.empty())
            m_end = rest.back().back();
    }

    MachineJob& m_once;
    StretchFinder& m_finder;
    DoubledLines& m_doubled;
    // The lead-in of the next cut; empty: none.
    MachinePath m_leadInPath;
    std::vector<JobPoint> m_leadIn;
    // Of the last cut.
    bool m_isWhole = true;
    std::optional<JobPoint> m_end; ///< of what is left, where it is not whole
};

} // namespace

MachineJob LeaveOutDoubles(const MachineJob& job, DoublesOf which, const QString& file, DoubledLines& doubled,
                           const WorkProgress& progress)
{
    WorkWatch watch(progress, WorkStep::Doubles, job.PathCount());
    const double most = MostPieceLength(CutLength(job));
    const std::vector<bool> near = FindNearPieces(job, most, watch);
    KeptLines kept(job.Rect(), most, near.size());
    StretchFinder finder(kept, most, near, watch, which == DoublesOf::WholeRuns ? HUGE_VAL : kShortestStretch);
    MachineJob once(file);
    DoublesFilter filter(once, finder, doubled);
    JobReader reader(job);
    for (uint32_t number = 0; auto path = reader.NextPath(); ++number) {
        watch.Next();
        path->whole = number;
        filter.Add(*path, reader.Run());
    }
    filter.Finish();
    doubled.gaveUp = doubled.gaveUp || kept.HasGivenUp();
    once.Finish(file);
    return once;
}

} // namespace shapedocument
