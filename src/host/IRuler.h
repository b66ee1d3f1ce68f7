/// The host's unit converter between screen pixels and millimetres.
#pragma once

class QPointF;
class QRectF;

/// Converts positions, rectangles and lengths between screen pixels and millimetres, by the host's own scale, origin
/// and screen resolution. The caller owns the ruler; the library keeps no pointer to it beyond the call.
class IRuler
{
public:
    virtual ~IRuler() = default;

    // Millimetres to pixels (MM2Pix…) and back (Pix2MM…). Lengths have no origin.

    virtual QPointF MM2PixPoint(const QPointF& point) = 0;
    virtual QRectF MM2PixRect(const QRectF& rect) = 0;
    virtual QPointF Pix2MMPoint(const QPointF& point) = 0;
    virtual QRectF Pix2MMRect(const QRectF& rect) = 0;
    virtual double MM2PixLength(const double& length) = 0;
    virtual double Pix2MMLength(const double& length) = 0;
};
