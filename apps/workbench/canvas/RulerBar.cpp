#include "canvas/RulerBar.h"

#include "canvas/CanvasView.h"
#include "canvas/Sheet.h"
#include "look/LengthUnit.h"
#include "look/Look.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr int kBreadth = 22; // pixels
} // namespace

RulerBar::RulerBar(CanvasView& view, Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), m_view(view), m_orientation(orientation)
{
    const bool across = orientation == Qt::Horizontal;
    across ? setFixedHeight(kBreadth) : setFixedWidth(kBreadth);
    QFont small = font();
    small.setPixelSize(10);
    setFont(small);
    connect(&view, &CanvasView::ViewChanged, this, qOverload<>(&QWidget::update));
    connect(&look::LengthUnit::Shown(), &look::LengthUnit::Changed, this, qOverload<>(&QWidget::update));
    connect(&view, &CanvasView::PointerMoved, this, [this, across](QPointF mm) {
        m_marked = across ? mm.x() : mm.y();
        update();
    });
}

QSize RulerBar::sizeHint() const
{
    return {kBreadth, kBreadth};
}

void RulerBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), look::RulerBack());
    painter.setPen(look::RulerText());
    const bool across = m_orientation == Qt::Horizontal;
    const ViewTransform& view = m_view.View();
    const QPointF origin = view.ToPixel(QPointF());
    const RulerSteps steps = RulerOf(view.Scale());
    const double zero = across ? origin.x() : origin.y(), perUnit = view.Scale() * steps.unit;
    const double length = across ? width() : height();
    const double step = steps.number / steps.ticks;
    if (!across) {
        painter.rotate(-90); // upright ruler: texts and x run upwards
        painter.translate(-length, 0);
    }
    const auto place = [&](double pixel) { return across ? pixel : length - pixel; };
    for (double tick = std::floor(-zero / perUnit / step); tick * step * perUnit + zero <= length; ++tick) {
        const double at = place(tick * step * perUnit + zero);
        const bool numbered = std::fmod(std::abs(tick), steps.ticks) < 0.5;
        const bool half = std::fmod(std::abs(tick), steps.ticks / 2) < 0.5;
        painter.drawLine(QPointF(at, numbered ? 0 : half ? kBreadth - 8 : kBreadth - 4), QPointF(at, kBreadth));
        if (numbered)
            painter.drawText(QPointF(at + 3, 10), RulerNumber(tick * step));
    }
    painter.setPen(QPen(look::Marker(), 2));
    const double at = place(m_marked * view.Scale() + zero);
    painter.drawLine(QPointF(at, 0), QPointF(at, kBreadth));
}
