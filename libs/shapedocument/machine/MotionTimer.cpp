#include "machine/MotionTimer.h"

#include "machine/Bulge.h"

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

constexpr size_t kPlanned = 4096;   // moves planned ahead; far more than any machine needs to stop
constexpr double kStraight = 1e-12; // a turn with a cosine this near to 1 is straight

/// The speed after a length at full acceleration (mm, mm/s, mm/s²).
double SpeedAfter(double speed, double acceleration, double length)
{
    return std::sqrt(speed * speed + 2 * acceleration * length);
}

/// Seconds for a length with given speeds at its ends, no faster than most.
double TrapezoidTime(double length, double entry, double exit, double most, double acceleration)
{
    const double peak = std::min(most, std::sqrt(acceleration * length + (entry * entry + exit * exit) / 2));
    const double ramps = (2 * peak * peak - entry * entry - exit * exit) / (2 * acceleration);
    return (2 * peak - entry - exit) / acceleration + std::max(0.0, length - ramps) / peak;
}

} // namespace

double MotionTimer::PerSecond(double speed) const
{
    return std::min(speed, m_machine.rapid) / 60;
}

double MotionTimer::Line(QPointF to, double speed)
{
    const QPointF way = to - m_head;
    const double length = std::hypot(way.x(), way.y());
    m_head = to;
    if (length > 0)
        Append(length, PerSecond(speed), way / length, way / length);
    return length;
}

double MotionTimer::Segment(const JobPoint& from, QPointF to, double speed)
{
    if (from.bulge == 0)
        return Line(to, speed);
    const CircleArc arc = ArcOf(from.point, to, from.bulge);
    const double turn = arc.sweep < 0 ? -1 : 1;
    const auto direction = [turn](double angle) { return turn * QPointF(-std::sin(angle), std::cos(angle)); };
    const double length = arc.radius * std::abs(arc.sweep);
    m_head = to;
    Append(length, std::min(PerSecond(speed), std::sqrt(m_machine.acceleration * arc.radius)), direction(arc.begin),
           direction(arc.begin + arc.sweep));
    return length;
}

void MotionTimer::Lift(double length, double speed)
{
    Stop();
    if (length > 0)
        Append(length, PerSecond(speed), {}, {});
    Stop();
}

/// The next move begins at speed 0, as the first one does.
void MotionTimer::Stop()
{
    m_direction = {};
}

void MotionTimer::Append(double length, double speed, QPointF begins, QPointF ends)
{
    const double before = m_moves.empty() ? 0 : m_moves.back().speed;
    m_moves.push_back({length, speed, std::min({JunctionSpeed(begins), before, speed}), 0});
    m_direction = ends;
    if (m_moves.size() >= kPlanned) {
        Plan();
        Spend(kPlanned / 2);
    }
}

/// The fastest speed through the corner with the move before: that on a circle which passes the corner at the distance
/// of the junction deviation and touches both moves (as GRBL's planner has it).
double MotionTimer::JunctionSpeed(QPointF begins) const
{
    if (m_direction.isNull())
        return 0;
    const double halfAngleSine = std::sqrt(std::max(0.0, (1 + QPointF::dotProduct(m_direction, begins)) / 2));
    if (1 - halfAngleSine < kStraight)
        return HUGE_VAL;
    return std::sqrt(m_machine.acceleration * m_machine.junctionDeviation * halfAngleSine / (1 - halfAngleSine));
}

/// Entry speeds that can be reached from both sides, with a stop at the end.
void MotionTimer::Plan()
{
    double exit = 0;
    for (size_t i = m_moves.size(); i-- > 0;) {
        Move& move = m_moves[i];
        move.entry = std::min(move.corner, SpeedAfter(exit, m_machine.acceleration, move.length));
        exit = move.entry;
    }
    if (!m_moves.empty())
        m_moves.front().entry = m_entry;
    for (size_t i = 0; i + 1 < m_moves.size(); ++i) {
        const double reached = SpeedAfter(m_moves[i].entry, m_machine.acceleration, m_moves[i].length);
        m_moves[i + 1].entry = std::min(m_moves[i + 1].entry, reached);
    }
}

/// Sets the times of the marks that the timed moves have reached.
void MotionTimer::TimeMarks()
{
    while (m_timed < m_marks.size() && m_marks[m_timed] <= static_cast<double>(m_spent))
        m_marks[m_timed++] = m_seconds;
}

/// Adds the time of the first planned moves.
void MotionTimer::Spend(size_t moves)
{
    TimeMarks();
    for (size_t i = 0; i < moves; ++i) {
        const Move& move = m_moves[i];
        const double exit = i + 1 < m_moves.size() ? m_moves[i + 1].entry : 0;
        m_seconds += TrapezoidTime(move.length, move.entry, exit, move.speed, m_machine.acceleration);
        m_entry = exit;
        ++m_spent;
        TimeMarks();
    }
    m_moves.erase(m_moves.begin(), m_moves.begin() + static_cast<std::ptrdiff_t>(moves));
}

double MotionTimer::Seconds()
{
    Plan();
    Spend(m_moves.size());
    Stop();
    return m_seconds;
}

} // namespace shapedocument
