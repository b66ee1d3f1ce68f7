/// Generated outlines of the kinds that drawings are made of, flattened as the library flattens paths.
#pragma once

#include <QPointF>

#include <string>
#include <vector>

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

/// count outlines, the kinds in turn, the same ones for every call. Glyphs need a QGuiApplication.
std::vector<GeneratedOutline> OutlineCorpus(int count);
