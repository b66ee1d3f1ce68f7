/// Enumerations and plain records that every shape shares.
#pragma once

#include "geometry/SegmentTypes.h"

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

/// Bits of the status word that CShape::GetStatus returns.
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

/// Lead-in and lead-out setting of a shape. Its layout in memory is its layout in the document stream.
struct SGuideLine
{
    int32_t nMode = 1;   ///< 1: closed outlines are treated as open ones; else their leads follow the bisector of the
                         ///< corner at the start
    int32_t bInLine = 1; ///< lead-in line enabled when not zero
    double dInLength = 3.0;  ///< lead-in length, model units; 0 or less disables it
    int32_t bOutLine = 1;    ///< lead-out line enabled when not zero
    double dOutLength = 3.0; ///< lead-out length, model units; 0 or less disables it
};
static_assert(sizeof(SGuideLine) == 32 && offsetof(SGuideLine, bOutLine) == 16 &&
                  offsetof(SGuideLine, dOutLength) == 24,
              "records are laid out for 64-bit platforms, see docs/porting.md");
