/// Curves as drawings have them, and the polylines that flattening makes of them.
#pragma once

#include <QPainterPath>

#include <vector>

namespace test {

/// All sub-paths of a path, flattened at a magnification; the chords leave their curves by less than 0.27 of its
/// reciprocal.
std::vector<std::vector<QPointF>> AllFlattened(const QPainterPath& path, double magnification);

/// The first sub-path of a path, flattened at 1000-fold magnification.
std::vector<QPointF> FlattenedFinely(const QPainterPath& path);

/// Letters, digits and ellipses of a height, all of curves. Needs a QGuiApplication.
std::vector<QPainterPath> CurvedPaths(double height);

} // namespace test
