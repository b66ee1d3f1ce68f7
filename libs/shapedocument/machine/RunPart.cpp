#include "machine/RunPart.h"

#include "machine/Bulge.h"

namespace shapedocument {

namespace {

QPointF PointAt(std::span<const JobPoint> run, RunPlace place)
{
    const JobPoint& from = run[place.segment];
    return PointOnSegment(from.point, run[place.segment + 1].point, from.bulge, place.part);
}

} // namespace

double RunLength(std::span<const JobPoint> run)
{
    double length = 0;
    for (size_t i = 0; i + 1 < run.size(); ++i)
        length += SegmentLength(run[i].point, run[i + 1].point, run[i].bulge);
    return length;
}

std::vector<JobPoint> RunPart(std::span<const JobPoint> run, RunPlace begin, RunPlace end)
{
    std::vector<JobPoint> part;
    for (size_t i = begin.segment; i <= end.segment; ++i) {
        const double from = i == begin.segment ? begin.part : 0, to = i == end.segment ? end.part : 1;
        if (from < to)
            part.push_back({PointAt(run, {i, from}), PartOfBulge(run[i].bulge, to - from)});
    }
    if (!part.empty())
        part.push_back({PointAt(run, end), 0});
    return part;
}

} // namespace shapedocument
