/// The runs of an outline: its points between two separators.
#pragma once

#include <cstddef>
#include <iterator>
#include <span>

namespace shapes {

/// Half-open range of point indices between two separators; possibly empty.
struct PointRun
{
    size_t begin = 0;
    size_t end = 0;

    bool IsEmpty() const { return begin == end; }
};

/// The runs of an outline, in order: n separators give n + 1 runs, empty ones included.
class PointRuns
{
public:
    class Iterator
    {
    public:
        Iterator() = default;
        Iterator(const PointRuns* runs, size_t begin);
        PointRun operator*() const { return m_run; }
        Iterator& operator++();
        bool operator==(std::default_sentinel_t) const { return m_done; }

    private:
        const PointRuns* m_runs = nullptr;
        PointRun m_run;
        bool m_done = false;
    };

    /// @param types type byte per point; points beyond its end count as straight
    /// @param pointCount number of points
    PointRuns(std::span<const unsigned char> types, size_t pointCount);
    Iterator begin() const { return {this, 0}; }
    std::default_sentinel_t end() const { return {}; }

private:
    size_t EndOfRun(size_t begin) const;

    std::span<const unsigned char> m_types;
    size_t m_pointCount;
};

/// The first and the last run that hold points; empty ones when no run does.
struct OuterRuns
{
    PointRun first, last;
};
OuterRuns FindOuterRuns(std::span<const unsigned char> types, size_t pointCount);

} // namespace shapes
