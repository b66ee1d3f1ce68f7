/// The rectangle around others.
#pragma once

#include <QRectF>

#include <algorithm>

/// Unlike unions of QRectF it includes rectangles without width or height: lines and points.
class RectAround
{
public:
    void Add(const QRectF& rect)
    {
        if (m_isEmpty)
            m_rect = rect;
        m_isEmpty = false;
        m_rect.setCoords(std::min(m_rect.left(), rect.left()), std::min(m_rect.top(), rect.top()),
                         std::max(m_rect.right(), rect.right()), std::max(m_rect.bottom(), rect.bottom()));
    }
    /// Null before the first Add.
    QRectF Rect() const { return m_rect; }

private:
    QRectF m_rect;
    bool m_isEmpty = true;
};
