#include "svg/CubicPiece.h"

#include <algorithm>
#include <cmath>

namespace shapedocument::drawing {

namespace {

QPointF Mix(QPointF a, QPointF b, double t)
{
    return a * (1 - t) + b * t;
}

/// The blossom of a cubic: De Casteljau's steps, each with its own parameter.
QPointF Blossom(const std::array<QPointF, 4>& p, double s, double t, double u)
{
    const QPointF a = Mix(p[0], p[1], s), b = Mix(p[1], p[2], s), c = Mix(p[2], p[3], s);
    return Mix(Mix(a, b, t), Mix(b, c, t), u);
}

} // namespace

QPointF CubicPiece::At(double t) const
{
    return line ? Mix(points[0], points[1], t) : Blossom(points, t, t, t);
}

CubicPiece CubicPiece::Between(double a, double b) const
{
    if (a <= 0 && b >= 1)
        return *this;
    if (line)
        return {{At(a), At(b)}, true};
    return {{At(a), Blossom(points, a, a, b), Blossom(points, a, b, b), At(b)}, false};
}

void CubicPiece::AppendTo(QPainterPath& path) const
{
    if (line)
        path.lineTo(points[1]);
    else
        path.cubicTo(points[1], points[2], points[3]);
}

QRectF CubicPiece::Bounds() const
{
    const auto x = [](QPointF a, QPointF b) { return a.x() < b.x(); };
    const auto y = [](QPointF a, QPointF b) { return a.y() < b.y(); };
    const auto end = points.begin() + (line ? 2 : 4);
    const auto [left, right] = std::minmax_element(points.begin(), end, x);
    const auto [top, bottom] = std::minmax_element(points.begin(), end, y);
    return {QPointF(left->x(), top->y()), QPointF(right->x(), bottom->y())};
}

LengthTable::LengthTable(const CubicPiece& piece) : m_steps(piece.line ? 1 : kSteps)
{
    m_lengths[0] = 0;
    QPointF last = piece.points[0];
    for (size_t i = 1; i <= m_steps; ++i) {
        const QPointF next = piece.At(static_cast<double>(i) / static_cast<double>(m_steps));
        m_lengths[i] = m_lengths[i - 1] + std::hypot(next.x() - last.x(), next.y() - last.y());
        last = next;
    }
}

double LengthTable::ParameterAt(double length) const
{
    const auto begin = m_lengths.begin(), end = begin + static_cast<std::ptrdiff_t>(m_steps) + 1;
    const auto above = std::upper_bound(begin, end, length);
    if (above == end)
        return 1;
    if (above == begin)
        return 0;
    const double low = above[-1];
    return (static_cast<double>(above - begin - 1) + (length - low) / (*above - low)) / static_cast<double>(m_steps);
}

} // namespace shapedocument::drawing
