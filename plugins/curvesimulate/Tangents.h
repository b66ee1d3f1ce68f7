/// Directions of travel at the vertices of a trace, where pieces of the fitted outline meet.
#pragma once

#include "Chords.h"

namespace curvesimulate {

/// Unit tangents of a thinned trace. At a vertex of a smooth stretch both are the same, so that joints stay smooth; at
/// a break each side has its own, which is that of an adjoining straight edge where curve and edge meet smoothly.
class Tangents
{
public:
    /// All arguments must outlive the object.
    Tangents(const Trace& trace, const Chords& chords, const Limits& limits);

    /// Direction in which a piece leaves vertex i.
    QPointF Leaving(size_t i);
    /// Direction in which a piece arrives at vertex i.
    QPointF Arriving(size_t i);
    /// Angles by which Leaving and Arriving may be off because vertices are few; 0 where a straight edge or another
    /// cubic fixes the direction.
    double LeavingFreedom(size_t i);
    double ArrivingFreedom(size_t i);

private:
    QPointF Smooth(size_t i);
    double SmoothFreedom(size_t i) const;
    QPointF JoinedTo(size_t edge, size_t i, QPointF tangent) const;
    QPointF Estimate(size_t i, bool before, bool after) const;

    const Trace& m_trace;
    const Chords& m_chords;
    const Limits& m_limits;
    std::vector<QPointF> m_smooth; ///< tangents known so far; a null vector is not known
};

} // namespace curvesimulate
