/// Generated outlines of the kinds that drawings are made of, flattened as the library flattens paths.
#pragma once

#include <QPointF>

#include <random>
#include <string>
#include <vector>

class QPainterPath;

namespace support {

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

/// All sub-paths of a path.
std::vector<std::vector<QPointF>> AllFlattenedFinely(const QPainterPath& path);

/// count outlines, the kinds in turn, the same ones for every call. Glyphs need a QGuiApplication.
std::vector<GeneratedOutline> OutlineCorpus(int count);

/// count points around (0, 0), closed.
std::vector<QPointF> RegularPolygon(int count, double radius);

} // namespace support
