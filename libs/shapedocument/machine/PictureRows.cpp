#include "machine/PictureRows.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

/// Number of samples along one side of a dot, given as a vector in pixels: one for each pixel that it can pass.
int PointsAlong(QPointF side, const cv::Mat& pixels)
{
    const double columns = std::min<double>(pixels.cols, std::abs(side.x()));
    const double rows = std::min<double>(pixels.rows, std::abs(side.y()));
    return std::max(1, static_cast<int>(std::hypot(columns, rows)));
}

/// Keeps of range the dots whose centre lies from 0 to below size: start is the place of dot 0, step the way to the
/// next.
void Narrow(DotRange& range, double start, double step, double size)
{
    const auto inside = [=](size_t dot) {
        const double place = start + static_cast<double>(dot) * step;
        return place >= 0 && place < size;
    };
    if (step != 0) {
        const double first = step > 0 ? -start / step : (size - start) / step;
        const double last = step > 0 ? (size - start) / step : -start / step;
        const auto most = static_cast<double>(range.end);
        range.begin = std::max(range.begin, static_cast<size_t>(std::clamp(std::floor(first) - 1, 0.0, most)));
        range.end = std::min(range.end, static_cast<size_t>(std::clamp(std::ceil(last) + 2, 0.0, most)));
    }
    while (range.begin < range.end && !inside(range.begin))
        step != 0 ? ++range.begin : range.begin = range.end;
    while (range.end > range.begin && !inside(range.end - 1))
        --range.end;
    range.end = std::max(range.begin, range.end);
}

} // namespace

/// Samples the pixels. A local copy of the picture's fields, so that the compiler need not reload them after each dot
/// that is written.
class PictureRows::Greys
{
public:
    explicit Greys(const cv::Mat& pixels)
        : m_data(pixels.data), m_step(pixels.step[0]), m_lastColumn(pixels.cols - 1), m_lastRow(pixels.rows - 1)
    {}

    double At(QPointF pixel) const
    {
        const double x = std::clamp(pixel.x() - 0.5, 0.0, static_cast<double>(m_lastColumn));
        const double y = std::clamp(pixel.y() - 0.5, 0.0, static_cast<double>(m_lastRow));
        const int column = static_cast<int>(x);
        const int row = static_cast<int>(y);
        const size_t right = column < m_lastColumn ? 1 : 0;
        const unsigned char* upper = m_data + static_cast<size_t>(row) * m_step + column;
        const unsigned char* lower = row < m_lastRow ? upper + m_step : upper;
        const double above = upper[0] + (x - column) * (upper[right] - upper[0]);
        const double below = lower[0] + (x - column) * (lower[right] - lower[0]);
        return above + (y - row) * (below - above);
    }

private:
    const unsigned char* m_data;
    size_t m_step;
    int m_lastColumn;
    int m_lastRow;
};

size_t DotCount(double extent, double pitch)
{
    constexpr double kCountRounding = 1e-6;
    return static_cast<size_t>(std::max(1.0, std::floor(extent / pitch + kCountRounding)));
}

PictureRows::PictureRows(cv::Mat pixels, const std::array<QPointF, 4>& corners, double pitch)
    : m_pixels(std::move(pixels)), m_pitch(pitch), m_origin(corners[0])
{
    const QRectF rect = QPolygonF(QList<QPointF>(corners.begin(), corners.end())).boundingRect();
    m_rows = DotCount(rect.height(), pitch);
    m_dots = DotCount(rect.width(), pitch);
    m_left = rect.center().x() - static_cast<double>(m_dots) * pitch / 2;
    m_top = rect.center().y() - static_cast<double>(m_rows) * pitch / 2;

    const QPointF right = (corners[1] - corners[0]) / m_pixels.cols; // mm per pixel
    const QPointF down = (corners[3] - corners[0]) / m_pixels.rows;
    const double area = right.x() * down.y() - right.y() * down.x();
    m_along = QPointF(down.y(), -right.y()) / area;
    m_across = QPointF(-down.x(), right.x()) / area;
    m_pointsAlong = PointsAlong(m_along * pitch, m_pixels);
    m_pointsAcross = PointsAlong(m_across * pitch, m_pixels);
}

/// A place of the drawing (mm) in the picture, in pixels: 0, 0 is the outer corner of the first pixel.
QPointF PictureRows::PixelAt(double x, double y) const
{
    return m_along * (x - m_origin.x()) + m_across * (y - m_origin.y());
}

DotRange PictureRows::Covered(size_t row) const
{
    const QPointF first = PixelAt(m_left + m_pitch / 2, CentreOf(row));
    DotRange range{0, m_dots};
    Narrow(range, first.x(), m_along.x() * m_pitch, m_pixels.cols);
    Narrow(range, first.y(), m_along.y() * m_pitch, m_pixels.rows);
    return range;
}

void PictureRows::Read(size_t row, DotRange range, std::span<unsigned char> dots) const
{
    const Greys greys(m_pixels);
    const QPointF first = PixelAt(m_left + m_pitch / 2, CentreOf(row));
    const QPointF step = m_along * m_pitch;
    const bool single = m_pointsAlong == 1 && m_pointsAcross == 1;
    for (size_t i = range.begin; i < range.end; ++i) {
        const QPointF pixel = first + step * static_cast<double>(i);
        dots[i] = static_cast<unsigned char>((single ? greys.At(pixel) : Mean(greys, pixel)) + 0.5);
    }
}

double PictureRows::Mean(const Greys& greys, QPointF pixel) const
{
    const QPointF along = m_along * m_pitch / m_pointsAlong;
    const QPointF across = m_across * m_pitch / m_pointsAcross;
    const QPointF first = pixel - along * (m_pointsAlong - 1) / 2.0 - across * (m_pointsAcross - 1) / 2.0;
    double sum = 0;
    for (int j = 0; j < m_pointsAcross; ++j)
        for (int i = 0; i < m_pointsAlong; ++i)
            sum += greys.At(first + along * i + across * j);
    return sum / m_pointsAlong / m_pointsAcross;
}

} // namespace shapedocument
