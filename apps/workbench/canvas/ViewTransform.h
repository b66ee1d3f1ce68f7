/// ViewTransform: maps the drawing's millimetres to pixels of the canvas.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

/// One scale and one origin: pixel = origin + millimetre * scale. Pixels are those of the widget, whatever the screen's
/// density.
class ViewTransform
{
public:
    static constexpr double kLeastScale = 0.01; ///< pixels per mm: a bed of a kilometre still fits
    static constexpr double kMostScale = 2000;  ///< pixels per mm
    static constexpr double kZoomStep = 1.25;   ///< factor of a key or menu entry that zooms

    double Scale() const { return m_scale; } ///< pixels per mm
    QPointF ToPixel(QPointF mm) const { return m_origin + mm * m_scale; }
    QPointF ToMm(QPointF pixel) const { return (pixel - m_origin) / m_scale; }
    QRectF ToPixel(const QRectF& mm) const { return {ToPixel(mm.topLeft()), mm.size() * m_scale}; }
    QRectF ToMm(const QRectF& pixels) const { return {ToMm(pixels.topLeft()), pixels.size() / m_scale}; }
    double LengthToMm(double pixels) const { return pixels / m_scale; }
    QTransform Matrix() const { return {m_scale, 0, 0, m_scale, m_origin.x(), m_origin.y()}; }

    /// Zooms so that the point under the pixel stays there. The scale is limited to the bounds above.
    void ZoomAt(QPointF pixel, double factor);
    /// Moves the drawing on the canvas.
    void Pan(QPointF pixels) { m_origin += pixels; }
    /// Shows the rectangle (mm) in the middle, as large as fits with a margin. Does nothing where no scale fits.
    void Fit(const QRectF& mm, QSizeF canvas);

private:
    double m_scale = 2;
    QPointF m_origin{40, 40};
};
