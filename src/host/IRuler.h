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

    /// A position in millimetres, as screen pixels.
    virtual QPointF MM2PixPoint(const QPointF& point) = 0;
    /// A rectangle in millimetres, as screen pixels.
    virtual QRectF MM2PixRect(const QRectF& rect) = 0;
    /// A position in screen pixels, as millimetres.
    virtual QPointF Pix2MMPoint(const QPointF& point) = 0;
    /// A rectangle in screen pixels, as millimetres.
    virtual QRectF Pix2MMRect(const QRectF& rect) = 0;
    /// A length in millimetres, as screen pixels; lengths have no origin.
    virtual double MM2PixLength(const double& length) = 0;
    /// A length in screen pixels, as millimetres.
    virtual double Pix2MMLength(const double& length) = 0;
};
