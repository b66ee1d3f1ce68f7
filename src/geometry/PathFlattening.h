/// Painter paths into polygons and micro lines.
#pragma once

#include "geometry/SegmentTypes.h"

#include <QList>
#include <QPolygonF>

#include <limits>
#include <span>
#include <vector>

class QPainterPath;

namespace shapes {

enum class Joining
{
    KeepSubpaths, ///< a polygon per sub-path
    JoinSubpaths ///< a sub-path that begins where the one before ends goes on with it; order and direction stay. Compared
                 ///< at the magnification, with QPointF's fuzzy comparison
};

/// Who turns curves into points. Both give the same points bit for bit.
enum class Flattening
{
    InPlace,    ///< this file's repetition of the platform's rule, in one pass and without polygons in between
    ByPlatform, ///< QPainterPath::toSubpathPolygons
};

/// InPlace, unless the platform is found to follow another rule, which is looked for once.
Flattening FlatteningForPlatform();

/// Polygons one behind the other in one block, each of at least two points.
class Polygons
{
public:
    size_t Count() const { return m_begins.size(); }
    std::span<const QPointF> operator[](size_t i) const
    {
        const size_t end = i + 1 < m_begins.size() ? m_begins[i + 1] : m_points.size();
        return std::span(m_points).subspan(m_begins[i], end - m_begins[i]);
    }
    /// Of all polygons.
    std::span<const QPointF> Points() const { return m_points; }

private:
    friend class SubpathCollector;
    friend Polygons MagnifiedPolygons(const QPainterPath& path, double factor, Joining joining, Flattening flattening,
                                      size_t mostPoints);

    std::vector<QPointF> m_points;
    std::vector<size_t> m_begins;
};

/// The path's sub-path polygons, flattened at a magnification about the centre of its bounding rectangle (hence finer
/// by that factor) and mapped back. Sub-paths of one point yield nothing, nor does a path that cannot be magnified
/// within finite numbers. Throws std::length_error when a line or a curve begins beyond mostPoints; ByPlatform notices it
/// when the platform has made all points.
Polygons MagnifiedPolygons(const QPainterPath& path, double factor, Joining joining,
                           Flattening flattening = FlatteningForPlatform(),
                           size_t mostPoints = std::numeric_limits<size_t>::max());

/// A record per pair of neighbouring points: kind 2 for the first of each polygon, 0 for the rest.
std::vector<SHAPE_VECTOR_PATHDATA> MicroLines(const QList<QPolygonF>& polygons);
std::vector<SHAPE_VECTOR_PATHDATA> MicroLines(const Polygons& polygons);
/// The same into lines, whose former content goes and whose room is used again.
void PutMicroLines(const Polygons& polygons, std::vector<SHAPE_VECTOR_PATHDATA>& lines);
/// The same of the magnified polygons of a path; without curves and at a factor of 1 they need not be made.
void PutMicroLines(const QPainterPath& path, double factor, Joining joining, std::vector<SHAPE_VECTOR_PATHDATA>& lines,
                   Flattening flattening = FlatteningForPlatform());
/// The same at a factor of 1 when the path has no curves, else at curveFactor.
void PutPolylineMicroLines(const QPainterPath& path, double curveFactor, Joining joining,
                           std::vector<SHAPE_VECTOR_PATHDATA>& lines);

} // namespace shapes
