#include "geometry/PathExtent.h"

#include "geometry/PathSteps.h"
#include "geometry/QtArithmetic.h"

#include <algorithm>

namespace shapes {

void PathExtent::Add(const QPainterPath& path, int first)
{
    const bool nothing = path.isEmpty() && (path.elementCount() == 0 || QPointF(path.elementAt(0)).isNull());
    if (!nothing)
        AddElements(path, first);
}

void PathExtent::AddElements(const QPainterPath& path, int first)
{
    QPointF from = first > 0 ? QPointF(path.elementAt(first - 1)) : QPointF();
    for (const PathStep& step : PathSteps(path, first)) {
        if (step.IsMove()) {
            m_moveTo = step.End();
        } else {
            if (m_moveTo)
                AddPoint(*m_moveTo);
            m_moveTo.reset();
            AddStep(from, step);
        }
        from = step.End();
    }
}

void PathExtent::AddStep(QPointF from, const PathStep& step)
{
    if (step.IsLine())
        return AddPoint(step.End());
    const QRectF curve = CubicBounds({from, step.points[0], step.points[1], step.points[2]});
    AddBox(curve.x(), curve.y(), curve.right(), curve.bottom());
}

QRectF PathExtent::Rect() const
{
    if (!m_moveTo)
        return {m_left, m_top, m_right - m_left, m_bottom - m_top};
    PathExtent whole = *this;
    whole.m_moveTo.reset();
    whole.AddPoint(*m_moveTo);
    return whole.Rect();
}

void PathExtent::AddPoint(QPointF point)
{
    AddBox(point.x(), point.y(), point.x(), point.y());
}

void PathExtent::AddBox(double left, double top, double right, double bottom)
{
    m_left = m_any ? std::min(m_left, left) : left;
    m_top = m_any ? std::min(m_top, top) : top;
    m_right = m_any ? std::max(m_right, right) : right;
    m_bottom = m_any ? std::max(m_bottom, bottom) : bottom;
    m_any = true;
}

} // namespace shapes
