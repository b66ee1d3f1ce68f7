/// Painter paths into polygons and micro lines.
#pragma once

#include "shape/ShapeTypes.h"

#include <QList>
#include <QPolygonF>

#include <vector>

class QPainterPath;

namespace shapes {

enum class Joining
{
    KeepSubpaths, ///< a polygon per sub-path
    JoinSubpaths ///< a sub-path that begins where the one before ends goes on with it; order and direction stay. Compared
                 ///< at the magnification, with QPointF's fuzzy comparison
};

/// The path's sub-path polygons, flattened at a magnification about the centre of its bounding rectangle (hence finer
/// by that factor) and mapped back. Sub-paths of one point yield nothing, nor does a path that cannot be magnified
/// within finite numbers.
QList<QPolygonF> MagnifiedPolygons(const QPainterPath& path, double factor, Joining joining);

/// A record per pair of neighbouring points: kind 2 for the first of each polygon, 0 for the rest.
std::vector<SHAPE_VECTOR_PATHDATA> MicroLines(const QList<QPolygonF>& polygons);

} // namespace shapes
