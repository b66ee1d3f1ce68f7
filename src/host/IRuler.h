/// The host's unit converter between screen pixels and millimetres.
#pragma once

class QPointF;
class QRectF;

/// Converts positions, rectangles and lengths between screen pixels and millimetres. How (scale, origin, screen
/// resolution) is the host's matter. The library never owns a ruler and keeps none beyond the call it is handed to.
class IRuler
{
public:
    virtual ~IRuler() = default;

    virtual QPointF MM2PixPoint(const QPointF& point) = 0;
    virtual QRectF MM2PixRect(const QRectF& rect) = 0;
    virtual QPointF Pix2MMPoint(const QPointF& point) = 0;
    virtual QRectF Pix2MMRect(const QRectF& rect) = 0;
    virtual double MM2PixLength(const double& length) = 0;
    virtual double Pix2MMLength(const double& length) = 0;
};
