#include "document/SnapLines.h"

#include "geometry/PathSteps.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

void Order(std::vector<double>& lines)
{
    std::ranges::sort(lines);
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
}

/// Compares the two lines beside each place; for a place that is not finite none is within reach.
std::optional<SnapLines::Snap> Nearest(const std::vector<double>& lines, std::span<const double> places, double reach)
{
    std::optional<SnapLines::Snap> nearest;
    const auto take = [&](double line, double place) {
        if (const double shift = line - place; std::abs(shift) <= reach) {
            nearest = {line, shift};
            reach = std::abs(shift);
        }
    };
    for (const double place : places) {
        const auto above = std::ranges::lower_bound(lines, place);
        if (above != lines.end())
            take(*above, place);
        if (above != lines.begin())
            take(*(above - 1), place);
    }
    return nearest;
}

} // namespace

SnapLines::SnapLines(const std::vector<QRectF>& rects)
{
    m_x.reserve(3 * rects.size());
    m_y.reserve(3 * rects.size());
    for (const QRectF& rect : rects) {
        const QPointF middle = rect.center();
        if (!std::isfinite(middle.x() + rect.width()) || !std::isfinite(middle.y() + rect.height()))
            continue;
        m_x.insert(m_x.end(), {rect.left(), middle.x(), rect.right()});
        m_y.insert(m_y.end(), {rect.top(), middle.y(), rect.bottom()});
    }
    Order(m_x);
    Order(m_y);
}

std::optional<SnapLines::Snap> SnapLines::NearestX(std::span<const double> x, double reach) const
{
    return Nearest(m_x, x, reach);
}

std::optional<SnapLines::Snap> SnapLines::NearestY(std::span<const double> y, double reach) const
{
    return Nearest(m_y, y, reach);
}

std::optional<QPointF> NearestNode(const QPainterPath& path, QPointF position, double reach)
{
    std::optional<QPointF> nearest;
    for (const shapes::PathStep& step : shapes::PathSteps(path)) {
        const double distance = QLineF(step.End(), position).length();
        if (distance <= reach) {
            nearest = step.End();
            reach = distance;
        }
    }
    return nearest;
}

} // namespace shapedocument
