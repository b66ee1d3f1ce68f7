/// Walks a painter path step by step: a move, a line or a whole curve at a time.
#pragma once

#include <QPainterPath>

#include <array>
#include <iterator>

namespace shapes {

struct PathStep
{
    QPainterPath::ElementType type = QPainterPath::MoveToElement; ///< move-to, line-to or curve-to; never curve data
    int index = 0;                                                ///< of the step's first element in the path
    bool begins = true;            ///< a sub-path: a move, or what a path begins with instead; nothing is drawn to it
    std::array<QPointF, 3> points; ///< curve: control, control, end; else only the first counts

    bool IsMove() const { return type == QPainterPath::MoveToElement; }
    bool IsLine() const { return type == QPainterPath::LineToElement; }
    bool IsCurve() const { return type == QPainterPath::CurveToElement; }
    QPointF End() const { return IsCurve() ? points[2] : points[0]; }
    int EndIndex() const { return IsCurve() ? index + 2 : index; } ///< of the element that End() is
};

/// The steps of a path, in order. A curve without both of its data elements is left out, as are data elements that no
/// curve claims: only paths read from streams hold them. Such a path may also begin with another step than a move.
class PathSteps
{
public:
    class Iterator
    {
    public:
        Iterator(const QPainterPath& path, int first)
            : m_path(&path), m_count(path.elementCount()), m_next(first), m_begun(first > 0)
        {
            ++*this;
        }
        const PathStep& operator*() const { return m_step; }
        Iterator& operator++()
        {
            while (m_next < m_count)
                if (Read()) {
                    m_step.begins = !m_begun || m_step.IsMove();
                    m_begun = true;
                    return *this;
                }
            m_done = true;
            return *this;
        }
        bool operator==(std::default_sentinel_t) const { return m_done; }

    private:
        /// Reads the step at m_next and moves on; false when no whole step begins there.
        bool Read()
        {
            m_step.index = m_next++;
            const QPainterPath::Element element = m_path->elementAt(m_step.index);
            m_step.type = element.type;
            m_step.points[0] = element;
            if (m_step.IsMove() || m_step.IsLine())
                return true;
            return m_step.IsCurve() && ReadCurveData();
        }
        bool ReadCurveData()
        {
            if (m_next + 1 >= m_count)
                return false;
            const QPainterPath::Element control = m_path->elementAt(m_next), end = m_path->elementAt(m_next + 1);
            const auto data = QPainterPath::CurveToDataElement;
            if (control.type != data || end.type != data)
                return false;
            m_step.points[1] = control;
            m_step.points[2] = end;
            m_next += 2;
            return true;
        }

        const QPainterPath* m_path;
        int m_count;
        int m_next;
        PathStep m_step;
        bool m_begun; ///< a step has been read, or stands before the first to be read
        bool m_done = false;
    };

    /// @param path must outlive the walk and not change during it
    /// @param first index of the element to begin with
    explicit PathSteps(const QPainterPath& path, int first = 0) : m_path(path), m_first(first) {}
    Iterator begin() const { return {m_path, m_first}; }
    std::default_sentinel_t end() const { return {}; }

private:
    const QPainterPath& m_path;
    int m_first;
};

} // namespace shapes
