#include "geometry/PointRuns.h"

#include "geometry/SegmentTypes.h"

#include <algorithm>

namespace shapes {

PointRuns::PointRuns(std::span<const unsigned char> types, size_t pointCount)
    : m_types(types.first(std::min(types.size(), pointCount))), m_pointCount(pointCount)
{}

size_t PointRuns::EndOfRun(size_t begin) const
{
    if (begin >= m_types.size())
        return m_pointCount;
    const auto separator = std::find(m_types.begin() + static_cast<std::ptrdiff_t>(begin), m_types.end(),
                                     static_cast<unsigned char>(ELINE_SEGMENT_SEPARATOR));
    return separator == m_types.end() ? m_pointCount : static_cast<size_t>(separator - m_types.begin());
}

PointRuns::Iterator::Iterator(const PointRuns* runs, size_t begin) : m_runs(runs), m_run{begin, runs->EndOfRun(begin)}
{}

PointRuns::Iterator& PointRuns::Iterator::operator++()
{
    if (m_run.end == m_runs->m_pointCount)
        m_done = true;
    else
        m_run = {m_run.end + 1, m_runs->EndOfRun(m_run.end + 1)};
    return *this;
}

OuterRuns FindOuterRuns(std::span<const unsigned char> types, size_t pointCount)
{
    OuterRuns outer;
    for (const PointRun run : PointRuns(types, pointCount)) {
        if (run.IsEmpty())
            continue;
        if (outer.first.IsEmpty())
            outer.first = run;
        outer.last = run;
    }
    return outer;
}

} // namespace shapes
