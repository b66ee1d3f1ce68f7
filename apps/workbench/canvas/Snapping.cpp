#include "canvas/Snapping.h"

#include "canvas/CanvasView.h"
#include "canvas/Sheet.h"
#include "document/WorkDocument.h"
#include "look/Look.h"

#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using shapedocument::SnapLines;

namespace {

constexpr double kSnapPixels = 6; // pixels
constexpr double kLeastSize = 8;  // pixels: smaller shapes give no lines, which would be everywhere

} // namespace

void Snapping::SetOn(bool on)
{
    m_on = on;
    End();
}

double Snapping::Reach() const
{
    return m_view.View().LengthToMm(kSnapPixels);
}

const SnapLines& Snapping::Lines(Selected selected)
{
    if (m_lines && m_selected == selected)
        return *m_lines;
    m_selected = selected;
    std::vector<QRectF> rects;
    const double least = m_view.View().LengthToMm(kLeastSize);
    m_view.ForEachShapeIn(m_view.View().ToMm(QRectF(m_view.rect())), [&](CShape& shape, const QRectF& rect) {
        const bool isDragged = selected == Selected::IsDragged && m_view.Document().IsSelected(&shape);
        if (!isDragged && std::max(rect.width(), rect.height()) >= least)
            rects.push_back(rect);
    });
    return m_lines.emplace(rects);
}

/// Lines of shapes come before those of the grid.
double Snapping::ShiftAlong(const std::optional<SnapLines::Snap>& line, std::span<const double> places,
                            std::optional<double>& guide) const
{
    guide.reset();
    if (line) {
        guide = line->line;
        return line->shift;
    }
    double nearest = 0, reach = m_view.IsGridShown() ? Reach() : -1;
    const double step = GridOf(m_view.View().Scale()).fine;
    for (const double place : places)
        if (const double shift = std::round(place / step) * step - place; std::abs(shift) <= reach) {
            nearest = shift;
            reach = std::abs(shift);
        }
    return nearest;
}

void Snapping::KeepGuidesOf(const QRectF& rect)
{
    constexpr double kOn = 1e-6; // mm
    const auto keep = [](std::optional<double>& guide, const std::array<double, 3>& places) {
        const auto isOn = [&guide](double place) { return std::abs(place - *guide) < kOn; };
        if (guide && std::ranges::none_of(places, isOn))
            guide.reset();
    };
    keep(m_guideX, {rect.left(), rect.center().x(), rect.right()});
    keep(m_guideY, {rect.top(), rect.center().y(), rect.bottom()});
}

QPointF Snapping::Shift(std::span<const double> x, std::span<const double> y, Qt::KeyboardModifiers keys,
                        Selected selected)
{
    End();
    if (!m_on || keys & Qt::ControlModifier)
        return {};
    const SnapLines& lines = Lines(selected);
    return {ShiftAlong(lines.NearestX(x, Reach()), x, m_guideX), ShiftAlong(lines.NearestY(y, Reach()), y, m_guideY)};
}

std::optional<QPointF> Snapping::NodeNear(QPointF mm, Selected selected) const
{
    std::optional<QPointF> nearest;
    double reach = Reach();
    const QRectF around = QRectF(mm, mm).adjusted(-reach, -reach, reach, reach);
    m_view.ForEachShapeIn(around, [&](CShape& shape, const QRectF&) {
        const QPainterPath* path = shape.GetPath(false);
        if (!path || (selected == Selected::IsDragged && m_view.Document().IsSelected(&shape)))
            return;
        if (const std::optional<QPointF> node = shapedocument::NearestNode(*path, mm, reach)) {
            nearest = node;
            reach = QLineF(*node, mm).length();
        }
    });
    return nearest;
}

QPointF Snapping::Place(QPointF mm, Qt::KeyboardModifiers keys, Selected selected)
{
    const std::array x{mm.x()}, y{mm.y()};
    const QPointF shift = Shift(x, y, keys, selected);
    if (m_on && !(keys & Qt::ControlModifier))
        m_node = NodeNear(mm, selected);
    if (!m_node)
        return mm + shift;
    m_guideX.reset();
    m_guideY.reset();
    return *m_node;
}

void Snapping::Paint(QPainter& painter) const
{
    constexpr double kRing = 5; // pixels
    const ViewTransform& view = m_view.View();
    painter.setPen(QPen(look::Hint(), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    if (m_guideX)
        painter.drawLine(
            QLineF(view.ToPixel({*m_guideX, 0}).x(), 0, view.ToPixel({*m_guideX, 0}).x(), m_view.height()));
    if (m_guideY)
        painter.drawLine(QLineF(0, view.ToPixel({0, *m_guideY}).y(), m_view.width(), view.ToPixel({0, *m_guideY}).y()));
    painter.setPen(QPen(look::Hint(), 2));
    if (m_node)
        painter.drawEllipse(view.ToPixel(*m_node), kRing, kRing);
}

void Snapping::End()
{
    m_guideX.reset();
    m_guideY.reset();
    m_node.reset();
}
