/// A ruler with one scale and one origin.
#pragma once

#include "host/IRuler.h"
#include "shapehost_export.h"

#include <QPointF>
#include <QRectF>

/// Pixel = origin + millimetre * pixels per millimetre, on both axes; lengths leave the origin out.
class SHAPEHOST_EXPORT LinearRuler : public IRuler
{
public:
    /// @param pixelsPerMillimetre scale, not zero
    /// @param origin pixel position of millimetre (0, 0)
    explicit LinearRuler(double pixelsPerMillimetre, QPointF origin = QPointF());

    QPointF MM2PixPoint(const QPointF& point) override;
    QRectF MM2PixRect(const QRectF& rect) override;
    QPointF Pix2MMPoint(const QPointF& point) override;
    QRectF Pix2MMRect(const QRectF& rect) override;
    double MM2PixLength(const double& length) override;
    double Pix2MMLength(const double& length) override;

private:
    double m_scale;
    QPointF m_origin;
};
