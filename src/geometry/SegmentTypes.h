/// Types of an outline's points, and the micro line.
#pragma once

#include <QPointF>

#include <cstdint>

/// Type of an outline's point (one byte per point), and kind of a micro line. Any stored number may be held.
enum ESHAPE_LINE_SEGMENT_TYPE : int32_t
{
    ELINE_SEGMENT_STRAIGHT = 0,  ///< point: straight line to it; micro line: continues from the one before
    ELINE_SEGMENT_CURVE = 1,     ///< point: member of a cubic triple; micro line: piece of a flattened ellipse
    ELINE_SEGMENT_SEPARATOR = 2, ///< point: ends a sub-path, never drawn; micro line: first of a sub-path
    ELINE_SEGMENT_FILL = 3       ///< point: fill marker, a copy of the start point
};

/// One micro line: a short straight piece for the machine (model units).
struct SHAPE_VECTOR_PATHDATA
{
    QPointF ptStart;                                         ///< where it begins
    QPointF ptEnd;                                           ///< where it ends
    ESHAPE_LINE_SEGMENT_TYPE eType = ELINE_SEGMENT_STRAIGHT; ///< what it is
};
static_assert(sizeof(SHAPE_VECTOR_PATHDATA) == 40, "records are laid out for 64-bit platforms, see docs/porting.md");
