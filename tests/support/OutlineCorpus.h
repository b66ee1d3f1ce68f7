/// Generated outlines of the kinds that drawings are made of, flattened as the library flattens paths.
#pragma once

#include <QPointF>

#include <random>
#include <string>
#include <vector>

class QPainterPath;

namespace test {

enum class OutlineKind
{
    Circle,
    Ellipse,
    Glyph,
    Spiral,
    Spline,
    Polygon,
    NoisyTrace
};

struct GeneratedOutline
{
    OutlineKind kind;
    std::vector<QPointF> points;
};

std::string KindName(OutlineKind kind);

/// The first sub-path of a path, flattened at 1000-fold magnification.
std::vector<QPointF> FlattenedFinely(const QPainterPath& path);

/// All sub-paths of a path, flattened at a magnification; the chords leave their curves by less than 0.27 of its
/// reciprocal.
std::vector<std::vector<QPointF>> AllFlattened(const QPainterPath& path, double magnification);

/// count outlines, the kinds in turn, the same ones for every call. Glyphs need a QGuiApplication.
std::vector<GeneratedOutline> OutlineCorpus(int count);

/// Letters, digits and ellipses of a height, all of curves. Needs a QGuiApplication.
std::vector<QPainterPath> CurvedPaths(double height);

/// count points around (0, 0), closed.
std::vector<QPointF> RegularPolygon(int count, double radius);

} // namespace test
