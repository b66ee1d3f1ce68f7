/// The edits that an image shape remembers and replays.
#pragma once

#include <QMetaType>
#include <QPointF>
#include <QRectF>
#include <QVariant>

#include <cstdint>

/// Code of an edit, and in brackets the type of its argument. Lengths and positions are in the unit of the shape.
enum EIMAGE_OPERATION : int32_t
{
    EIMAGE_MOVE = 1,       ///< (QPointF) moves by the offset
    EIMAGE_ROTATE = 2,     ///< (SRotate) turns about a centre
    EIMAGE_MIRROR_X = 3,   ///< (double) mirrors across the vertical line at that x
    EIMAGE_MIRROR_Y = 4,   ///< (double) mirrors across the horizontal line at that y
    EIMAGE_INVERT = 5,     ///< (bool, true) asks for inverted pixels; kept, but replaying it changes nothing
    EIMAGE_CUT = 6,        ///< (SCut) keeps a part of the picture and gives it a new place
    EIMAGE_RESIZE = 7,     ///< (QRectF) fits the bounds onto the rectangle
    EIMAGE_MIRROR_LINE = 8 ///< (QLineF) turns and moves to where the mirrored outline lies; the pixels are not mirrored
};

/// Argument of a rotation.
struct SRotate
{
    double angle = 0.0; ///< degrees, clockwise on screen
    QPointF centre;     ///< what it turns about
};

/// Argument of a cut.
struct SCut
{
    QRectF cut;    ///< the part that is kept, in pixels of the picture before the cut
    QRectF target; ///< where that part lies on the design afterwards
};

/// One edit.
struct ImageOperation
{
    int32_t nCode = 0; ///< EIMAGE_OPERATION; other numbers are kept and do nothing
    QVariant argument; ///< of the type that the code has
};

Q_DECLARE_METATYPE(SRotate)
Q_DECLARE_METATYPE(SCut)
