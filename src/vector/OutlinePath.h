/// Painter paths of outlines whose points say by their types how they are drawn.
#pragma once

#include "shape/ShapeTypes.h"

#include <QPointF>

#include <span>
#include <vector>

class QPainterPath;

namespace shapes {

struct PathStep;

inline constexpr size_t kEllipsePoints = 13; ///< of an EVECTOR_ELLIPSE: its start and four curves

/// The points of an outline and their types; points beyond the types count as straight.
struct OutlineView
{
    std::span<const QPointF> points;
    std::span<const unsigned char> types;

    unsigned char Type(size_t i) const
    {
        return i < types.size() ? types[i] : static_cast<unsigned char>(ELINE_SEGMENT_STRAIGHT);
    }
};

/// Whether all these can be drawn. Streams may hold others.
bool AreFinite(std::span<const QPointF> points);

/// Room for an outline of so many points. Only where something is drawn: an empty path outlives its shape.
void ReserveElements(QPainterPath& path, size_t points);

// Points that are not finite are left out together with what they belong to; no line crosses the gap.

/// Appends the runs between separators. A run's curve triples are drawn as curves, every other point of whatever type is
/// joined to the one before by a straight line; only a fill marker that closes its run is not drawn.
void AddPolylineOutline(QPainterPath& path, const OutlineView& outline);

/// Appends straight points and curve triples as their types say; separators start anew, fill markers are not drawn.
/// Triples are taken as they come: a malformed one may run over a separator.
void AddMixedOutline(QPainterPath& path, const OutlineView& outline);

/// Whether there are curve points that belong to no triple of their run, starts of runs aside.
bool HoldsStrayCurves(const OutlineView& outline);

/// Gives a polyline's points, all of which have types, those with which AddMixedOutline draws what AddPolylineOutline
/// draws: curve points for triples, straight ones for all the rest. Separators and markers that are not drawn stay.
void TypeAsDrawn(const std::vector<QPointF>& points, std::vector<unsigned char>& types);

/// Appends a step of a painter path to the points and types of a mixed outline: a curve as three curve points, else one
/// straight point.
void AppendStep(const PathStep& step, std::vector<QPointF>& points, std::vector<unsigned char>& types);

/// Whether a mixed outline draws anything that has a length.
bool DrawsAnything(const OutlineView& outline);

} // namespace shapes
