#include "svg/PathReach.h"

#include "svg/SourceNumbers.h"

#include <QPointF>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace shapedocument::drawing {

namespace {

double Largest(QPointF point)
{
    return std::max(std::abs(point.x()), std::abs(point.y()));
}

size_t NumbersOf(char command)
{
    switch (command) {
    case 'h':
    case 'v':
        return 1;
    case 'm':
    case 'l':
    case 't':
        return 2;
    case 's':
    case 'q':
        return 4;
    case 'c':
        return 6;
    case 'a':
        return 7;
    default:
        return 0;
    }
}

class PathWalk
{
public:
    explicit PathWalk(std::string_view text) : m_text(text) {}

    double Reach()
    {
        while (SkipSeparators(m_text), !m_text.empty()) {
            const char letter = m_text.front();
            m_text.remove_prefix(1);
            m_command = static_cast<char>(letter | 0x20); // lower case
            m_relative = letter == m_command;
            if (m_command == 'z')
                m_at = m_start;
            else if (NumbersOf(m_command) == 0)
                break; // the renderer stops here, too
            else
                Follow();
        }
        return m_reach;
    }

private:
    /// Reads the arguments of a command, which may be repeated without its letter.
    void Follow()
    {
        const size_t count = NumbersOf(m_command);
        for (bool first = true; ReadNumbers(count); first = false) {
            Step(count);
            if (first && m_command == 'm')
                m_start = m_at;
        }
    }

    bool ReadNumbers(size_t count)
    {
        for (size_t i = 0; i < count; ++i) {
            const bool flag = m_command == 'a' && (i == 3 || i == 4); // one digit, without a separator behind it
            const auto number = flag ? ReadSourceFlag(m_text) : ReadSourceNumber(m_text);
            if (!number)
                return false;
            m_numbers[i] = *number;
        }
        return true;
    }

    void Step(size_t count)
    {
        const QPointF from = m_at;
        const QPointF origin = m_relative ? from : QPointF();
        if (m_command == 'h')
            m_at.setX(origin.x() + m_numbers[0]);
        else if (m_command == 'v')
            m_at.setY(origin.y() + m_numbers[0]);
        else
            m_at = origin + QPointF(m_numbers[count - 2], m_numbers[count - 1]);
        double farthest = std::max(Largest(from), Largest(m_at));
        if (m_command == 'a')
            farthest += ArcBeyond(QPointF(m_at - from));
        for (size_t i = 0; m_command != 'a' && i + 3 < count; i += 2)
            farthest = std::max(farthest, Largest(origin + QPointF(m_numbers[i], m_numbers[i + 1])));
        if (m_command == 's' || m_command == 't') // the control point before, mirrored at the start
            farthest = std::max(farthest, 2 * Largest(from) + m_control);
        m_control = farthest;
        m_reach = std::max(m_reach, std::isnan(farthest) ? std::numeric_limits<double>::infinity() : farthest);
    }

    /// Bounds the distance of an arc from its start. Radii too short for the chord are scaled up, both by the same
    /// factor.
    double ArcBeyond(QPointF chord) const
    {
        const auto [shorter, longer] = std::minmax({std::abs(m_numbers[0]), std::abs(m_numbers[1])});
        if (shorter == 0)
            return 0; // a straight line
        return 2 * longer * std::max(1.0, std::hypot(chord.x(), chord.y()) / shorter);
    }

    std::string_view m_text;
    char m_command = 0;
    bool m_relative = false;
    std::array<double, 7> m_numbers{};
    QPointF m_at, m_start;
    double m_control = 0; ///< upper bound of the last control point's coordinates
    double m_reach = 0;
};

} // namespace

double ReachOfPath(std::string_view text)
{
    return PathWalk(text).Reach();
}

} // namespace shapedocument::drawing
