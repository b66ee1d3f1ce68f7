/// A ruler with exact results: 4 pixels per millimetre, millimetre (0, 0) at pixel (100, 200).
#pragma once

#include "host/IRuler.h"

#include <QRectF>

namespace test {

class ScaleRuler : public IRuler
{
public:
    QPointF MM2PixPoint(const QPointF& mm) override { return mm * 4.0 + QPointF(100, 200); }
    QRectF MM2PixRect(const QRectF& mm) override { return {MM2PixPoint(mm.topLeft()), mm.size() * 4.0}; }
    QPointF Pix2MMPoint(const QPointF& pixel) override { return (pixel - QPointF(100, 200)) / 4.0; }
    QRectF Pix2MMRect(const QRectF& pixel) override { return {Pix2MMPoint(pixel.topLeft()), pixel.size() / 4.0}; }
    double MM2PixLength(const double& mm) override { return mm * 4.0; }
    double Pix2MMLength(const double& pixel) override { return pixel / 4.0; }
};

} // namespace test
