/// Tool paths as outlines: their extent, and what lies inside closed ones.
#pragma once

#include "machine/PathOrder.h"
#include "plane/BoxTree.h"

namespace shapedocument {

/// The path's points, and points on its arcs so dense that chords stay within 0.001 mm of them.
std::vector<QPointF> ChordPoints(JobPoints path);

Box BoxOf(std::span<const QPointF> points);

/// The length (mm) along the points; the way back to the first one does not count.
double PolylineLength(std::span<const QPointF> points);

/// The enclosed area (mm²) without its sign; loops of opposite direction cancel.
double EnclosedArea(std::span<const QPointF> outline);

/// A closed outline, prepared for testing whether many points lie inside.
class Contour
{
public:
    /// The last point is the first one again.
    explicit Contour(std::vector<QPointF> outline);

    /// Whether the winding number at the point is not 0 (a region that the outline encircles twice is inside, too), or
    /// the outline passes the point within kMargin.
    bool Holds(QPointF point) const;

    /// Whether it holds the path's points and the middles of the path's arcs.
    bool Holds(JobPoints path) const;

    /// Upper bound of the segments that Holds tests for one point: what a call costs.
    size_t Cost() const { return m_cost; }

    /// mm: outlines that share a piece, flattened with different points, lie no farther apart there.
    static constexpr double kMargin = 0.01;

private:
    size_t SlabOf(double y) const;
    int Winding(QPointF point, std::span<const uint32_t> segments) const;
    bool Passes(QPointF point, std::span<const uint32_t> segments) const;
    void SpreadOverSlabs();

    std::vector<QPointF> m_points;
    Box m_box;
    size_t m_slabs = 1;           ///< equal slices across y
    std::vector<size_t> m_begins; ///< start of each slab's part of m_segments, and the end of the last
    /// for each slab the segments within kMargin of it, by the index of their first point
    std::vector<uint32_t> m_segments;
    size_t m_cost = 0;
};

} // namespace shapedocument
