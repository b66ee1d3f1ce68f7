/// Flattening pass by pass: map, split, join, build a path of it, split again, map back. Slow, and the measure of the
/// library's own.
#pragma once

#include "shape/ShapeTypes.h"

#include <QList>
#include <QPolygonF>

#include <vector>

class QLineF;
class QPainterPath;

namespace test {

/// The sub-path polygons at a magnification about the centre of the path's rectangle, mapped back.
QList<QPolygonF> PlainPolygons(const QPainterPath& path, double magnification, bool join);

std::vector<SHAPE_VECTOR_PATHDATA> PlainMicroLines(const QList<QPolygonF>& polygons);

/// Micro lines as lines, with a null line between sub-paths.
std::vector<QLineF> PlainLines(const std::vector<SHAPE_VECTOR_PATHDATA>& microLines);

} // namespace test
