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
    JoinSubpaths ///< a sub-path that begins where the previous one ends continues it; order and direction stay. The two
                 ///< points are compared after magnification, with QPointF's fuzzy comparison
};

/// What flattens curves. Both give the same points bit for bit.
enum class Flattening
{
    InPlace,    ///< QtArithmetic.h, in one pass and without intermediate polygons
    ByPlatform, ///< QPainterPath::toSubpathPolygons
};

/// InPlace, unless the Qt in use subdivides curves otherwise than QtArithmetic.h does. Checked once per process.
Flattening FlatteningForPlatform();

/// Polygons stored one after the other in one array, each of at least two points.
class Polygons
{
public:
    size_t Count() const { return m_begins.size(); }
    std::span<const QPointF> operator[](size_t i) const
    {
        const size_t end = i + 1 < m_begins.size() ? m_begins[i + 1] : m_points.size();
        return std::span(m_points).subspan(m_begins[i], end - m_begins[i]);
    }
    /// The points of all polygons.
    std::span<const QPointF> Points() const { return m_points; }

private:
    friend class SubpathCollector;
    friend Polygons MagnifiedPolygons(const QPainterPath& path, double factor, Joining joining, Flattening flattening,
                                      size_t mostPoints);

    std::vector<QPointF> m_points;
    std::vector<size_t> m_begins;
};

/// One polygon per sub-path: flattened while magnified by factor about the centre of the path's bounding rectangle,
/// hence finer by that factor, then mapped back. No polygons for sub-paths of one point, nor for a path whose magnified
/// coordinates would not be finite (IsFinite). Throws std::length_error when a line or a curve begins after more than
/// mostPoints points; ByPlatform only after Qt has made all of them.
Polygons MagnifiedPolygons(const QPainterPath& path, double factor, Joining joining,
                           Flattening flattening = FlatteningForPlatform(),
                           size_t mostPoints = std::numeric_limits<size_t>::max());

/// One micro line per pair of neighbouring points: type 2 for the first of each polygon, 0 for the rest.
std::vector<SHAPE_VECTOR_PATHDATA> MicroLines(const QList<QPolygonF>& polygons);
std::vector<SHAPE_VECTOR_PATHDATA> MicroLines(const Polygons& polygons);
/// Replaces the content of lines by the polygons' micro lines, reusing its memory.
void PutMicroLines(const Polygons& polygons, std::vector<SHAPE_VECTOR_PATHDATA>& lines);
/// The same for MagnifiedPolygons(path, factor, joining, flattening); at factor 1 and without curves in one pass.
void PutMicroLines(const QPainterPath& path, double factor, Joining joining, std::vector<SHAPE_VECTOR_PATHDATA>& lines,
                   Flattening flattening = FlatteningForPlatform());
/// The same at factor 1 for a path without curves, at curveFactor for all others.
void PutPolylineMicroLines(const QPainterPath& path, double curveFactor, Joining joining,
                           std::vector<SHAPE_VECTOR_PATHDATA>& lines);

} // namespace shapes
