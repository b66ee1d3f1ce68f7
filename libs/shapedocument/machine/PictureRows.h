/// A grey picture, placed in any way on the drawing, sampled along the machine's rows.
#pragma once

#include <QPointF>
#include <QRectF>

#include <opencv2/core/mat.hpp>

#include <array>
#include <span>

namespace shapedocument {

/// Dots from begin to behind end.
struct DotRange
{
    size_t begin = 0;
    size_t end = 0;
};

/// The number of rows, or of dots in a row, for an extent (mm): as many as fit, so that nothing is burned beyond the
/// picture; one at least. pitch: mm.
size_t DotCount(double extent, double pitch);

/// Square dots of one pitch over the upright rectangle around the picture, centred on it. A dot's grey is the picture's
/// at the dot's centre, bilinear between the centres of four pixels; where pixels are smaller than half a dot, it is
/// the mean of one such point for each pixel along and across the dot.
class PictureRows
{
public:
    /// corners: the picture's top left, top right, bottom right and bottom left (mm), a parallelogram with an area.
    /// pixels: 8 bits, one channel, not empty; they are shared, not copied. pitch: mm.
    PictureRows(cv::Mat pixels, const std::array<QPointF, 4>& corners, double pitch);

    size_t Rows() const { return m_rows; }
    size_t Dots() const { return m_dots; }
    /// Points of the picture that a dot is the mean of.
    size_t PointsPerDot() const { return static_cast<size_t>(m_pointsAlong) * static_cast<size_t>(m_pointsAcross); }

    /// The dots of a row whose centre lies in the picture; the others stay white.
    DotRange Covered(size_t row) const;

    /// Fills the range of the row's dots with grey. May be called by several threads at once.
    void Read(size_t row, DotRange range, std::span<unsigned char> dots) const;

    double CentreOf(size_t row) const { return m_top + (static_cast<double>(row) + 0.5) * m_pitch; }
    double Left() const { return m_left; }

private:
    class Greys;

    QPointF PixelAt(double x, double y) const;
    double Mean(const Greys& greys, QPointF pixel) const;

    cv::Mat m_pixels;
    double m_pitch;
    size_t m_rows;
    size_t m_dots;
    double m_left; ///< mm, of the first dot
    double m_top;  ///< mm, of the first row
    QPointF m_origin;
    QPointF m_along;  ///< pixels per mm to the right
    QPointF m_across; ///< pixels per mm downwards
    int m_pointsAlong;
    int m_pointsAcross;
};

} // namespace shapedocument
