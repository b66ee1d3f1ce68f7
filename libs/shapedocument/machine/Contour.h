/// Tool paths as outlines: their extent, and what lies inside closed ones.
#pragma once

#include "machine/PathOrder.h"
#include "plane/BoxTree.h"

namespace shapedocument {

/// The path's points, with so many points of its arcs between them that chords stay within a thousandth of a
/// millimetre.
std::vector<QPointF> ChordPoints(JobPoints path);

Box BoxOf(std::span<const QPointF> points);

/// The enclosed area without its sign; loops of opposite direction cancel.
double EnclosedArea(std::span<const QPointF> outline);

/// A closed outline that many points are held against.
class Contour
{
public:
    /// The last point is the first one again.
    explicit Contour(std::vector<QPointF> outline);

    /// Whether the outline goes round the point at all (its winding number there is not 0, so that a region that it
    /// goes round twice counts as well), or passes it within kMargin.
    bool Holds(QPointF point) const;

    /// Whether it holds the path's points and the middles of the path's arcs.
    bool Holds(JobPoints path) const;

    /// Segments that Holds looks at for a point, at most: what a call costs.
    size_t Cost() const { return m_cost; }

    /// mm: outlines that share a piece lie so close there once they are flattened, each with points of its own.
    static constexpr double kMargin = 0.01;

private:
    size_t SlabOf(double y) const;
    int Winding(QPointF point, std::span<const uint32_t> segments) const;
    bool Passes(QPointF point, std::span<const uint32_t> segments) const;
    void SpreadOverSlabs();

    std::vector<QPointF> m_points;
    Box m_box;
    size_t m_slabs = 1;               ///< equal slices across y
    std::vector<size_t> m_begins;     ///< of each slab's part of m_segments, and the end of the last
    std::vector<uint32_t> m_segments; ///< those that come within kMargin of a slab, by their first points
    size_t m_cost = 0;
};

} // namespace shapedocument
