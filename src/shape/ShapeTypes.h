/// Enumerations and plain records that every shape shares.
#pragma once

#include <QPointF>

#include <cstddef>
#include <cstdint>

/// Kind of a shape; the same numbers are the type tags of the document stream.
enum ESHAPE_TYPE : int32_t
{
    ESHAPE_IMAGE = 0,
    ESHAPE_VECTOR = 1,
    ESHAPE_TEXT = 2,
    ESHAPE_GROUP = 3,
    ESHAPE_ARRAY = 4,
    ESHAPE_CODEIMAGE = 16
};

/// Bits of the status word that CShape::GetStatus answers.
enum ESHAPE_STATUS : uint32_t
{
    SHAPE_STATUS_SELECT = 0x1, ///< selected
    SHAPE_STATUS_LOCK = 0x2,   ///< not editable
    SHAPE_STATUS_HIDE = 0x4,   ///< not shown
    SHAPE_STATUS_GROUP = 0x8   ///< member of a group
};

/// Kind of a vector outline as the base class keeps it; never stored. Any number may be held, see
/// CShape::SetShapeVectorType. Not to be mixed up with EVECTOR_TYPE, the stored layout of a vector shape's points.
enum ESHAPE_VECTOR_TYPE : int32_t
{
    ESHAPE_VECTOR_0 = 0,
    ESHAPE_VECTOR_1 = 1,
    ESHAPE_VECTOR_2 = 2,
    ESHAPE_VECTOR_3 = 3
};

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
    QPointF ptStart;
    QPointF ptEnd;
    ESHAPE_LINE_SEGMENT_TYPE eType = ELINE_SEGMENT_STRAIGHT;
};
static_assert(sizeof(SHAPE_VECTOR_PATHDATA) == 40);

/// Lead-in and lead-out setting of a shape. Its layout in memory is its layout in the document stream.
struct SGuideLine
{
    int32_t nMode = 1; ///< 1: closed outlines are treated as open ones; else their leads halve the corner at the start
    int32_t bInLine = 1;     ///< lead-in line enabled when not zero
    double dInLength = 3.0;  ///< lead-in length, model units; 0 or less disables it
    int32_t bOutLine = 1;    ///< lead-out line enabled when not zero
    double dOutLength = 3.0; ///< lead-out length, model units; 0 or less disables it
};
static_assert(sizeof(SGuideLine) == 32 && offsetof(SGuideLine, bOutLine) == 16 &&
              offsetof(SGuideLine, dOutLength) == 24);
