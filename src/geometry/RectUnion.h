/// Union of rectangles by their smallest and largest edges.
#pragma once

#include "geometry/Tolerances.h"

#include <QRectF>

#include <algorithm>

namespace shapes {

/// Unlike in QRectF::united, every rectangle counts, empty and null ones too; only those that are not finite (IsFinite)
/// are left out.
class RectUnion
{
public:
    void Add(const QRectF& rect)
    {
        if (!IsFinite(rect))
            return;
        if (m_empty) {
            m_left = rect.left();
            m_top = rect.top();
            m_right = rect.right();
            m_bottom = rect.bottom();
            m_empty = false;
            return;
        }
        m_left = std::min(m_left, rect.left());
        m_top = std::min(m_top, rect.top());
        m_right = std::max(m_right, rect.right());
        m_bottom = std::max(m_bottom, rect.bottom());
    }

    /// Null when nothing was added.
    QRectF Result() const { return m_empty ? QRectF() : QRectF(m_left, m_top, m_right - m_left, m_bottom - m_top); }

private:
    bool m_empty = true;
    double m_left = 0;
    double m_top = 0;
    double m_right = 0;
    double m_bottom = 0;
};

} // namespace shapes
