#include "canvas/ViewTransform.h"

#include <algorithm>
#include <cmath>

void ViewTransform::ZoomAt(QPointF pixel, double factor)
{
    const QPointF fixed = ToMm(pixel);
    m_scale = std::clamp(m_scale * factor, kLeastScale, kMostScale);
    m_origin = pixel - fixed * m_scale;
}

void ViewTransform::Fit(const QRectF& mm, QSizeF canvas)
{
    constexpr double kMargin = 40; // pixels, for a selection's frame and handles
    constexpr double kLeast = 1;   // mm: single points are not shown larger than this
    const double width = std::max(mm.width(), kLeast), height = std::max(mm.height(), kLeast);
    const double scale = std::min((canvas.width() - 2 * kMargin) / width, (canvas.height() - 2 * kMargin) / height);
    if (!std::isfinite(scale) || scale <= 0)
        return;
    m_scale = std::clamp(scale, kLeastScale, kMostScale);
    m_origin = QRectF(QPointF(), canvas).center() - mm.center() * m_scale;
}
