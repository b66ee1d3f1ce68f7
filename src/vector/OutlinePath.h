/// Painter paths of outlines whose points are drawn as their types say.
#pragma once

#include "shape/ShapeTypes.h"

#include <QPointF>

#include <span>
#include <vector>

class QPainterPath;

namespace shapes {

struct PathStep;

inline constexpr size_t kEllipsePoints = 13; ///< of an EVECTOR_ELLIPSE: its start and four curves
inline constexpr size_t kTriple = 3;         ///< points of a cubic behind its start: control, control, end

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

/// Whether all points are finite. Records may hold others.
bool AreFinite(std::span<const QPointF> points);

/// Reserves memory for an outline of that many points. Only for paths that draw something: a shape does not free an
/// empty path.
void ReserveElements(QPainterPath& path, size_t points);

// Points that are not finite are left out together with their line or curve; no line bridges the gap.

/// Appends one sub-path per run. Curve triples of the run are drawn as curves; every other point, whatever its type, is
/// joined to the one before by a straight line. Only a fill marker that closes its run is not drawn.
void AddPolylineOutline(QPainterPath& path, const OutlineView& outline);

/// Appends straight points and curve triples as their types say. A separator starts a sub-path, fill markers are not
/// drawn. A malformed triple may extend across a separator.
void AddMixedOutline(QPainterPath& path, const OutlineView& outline);

/// Whether any curve point other than the start of a run belongs to no triple.
bool HoldsStrayCurves(const OutlineView& outline);

/// Changes the types of a polyline, one per point, so that AddMixedOutline draws what AddPolylineOutline draws: triples
/// become curve points, all other drawn points straight ones. Separators and closing markers stay.
void TypeAsDrawn(const std::vector<QPointF>& points, std::vector<unsigned char>& types);

/// Appends a step of a painter path to the points and types of a mixed outline: a curve as three curve points, else one
/// straight point.
void AppendStep(const PathStep& step, std::vector<QPointF>& points, std::vector<unsigned char>& types);

/// Whether a mixed outline draws anything that has a length.
bool DrawsAnything(const OutlineView& outline);

} // namespace shapes
