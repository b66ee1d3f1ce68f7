/// How long a machine takes for its moves.
#pragma once

#include "machine/MachineJob.h"
#include "machine/MachineSettings.h"
#include "shapedocument_export.h"

#include <vector>

namespace shapedocument {

/// Adds up the time of moves as a controller plans them: each has a trapezoid of speed, corners are passed at the speed
/// of GRBL's junction deviation, and speeds are known some thousand moves ahead. Speeds are mm per minute; none is
/// faster than the machine's rapid.
class SHAPEDOCUMENT_EXPORT MotionTimer
{
public:
    /// At rest at a place (mm).
    explicit MotionTimer(const MachineSettings& machine, QPointF head = {}) : m_machine(machine), m_head(head) {}

    /// Where the head is, mm.
    QPointF Head() const { return m_head; }

    /// From where the head is to another point, straight. Returns the length (mm). Cost: O(1) on the average.
    double Line(QPointF to, double speed);

    /// By the point's own segment, which begins where the head is. Curves are no faster than their radius allows.
    /// Cost: as Line, for each chord of an arc.
    double Segment(const JobPoint& from, QPointF to, double speed);

    /// Up or down by a length (mm), from stop to stop.
    void Lift(double length, double speed);

    /// The head comes to rest.
    void Stop();

    /// Notes the time at which the head is where it is now, without a stop there.
    void Mark() { m_marks.push_back(static_cast<double>(m_spent + m_moves.size())); }

    /// Seconds for everything so far, with a stop at the end.
    double Seconds();

    /// The seconds of all marks, in their order; known once Seconds has been called behind them.
    const std::vector<double>& Marks() const { return m_marks; }

private:
    struct Move
    {
        double length; ///< mm
        double speed;  ///< mm/s, wanted
        double corner; ///< mm/s, the most at its beginning
        double entry;  ///< mm/s, planned at its beginning
    };

    SHAPEDOCUMENT_NO_EXPORT double PerSecond(double speed) const;
    SHAPEDOCUMENT_NO_EXPORT void Append(double length, double speed, QPointF begins, QPointF ends);
    SHAPEDOCUMENT_NO_EXPORT double JunctionSpeed(QPointF begins) const;
    SHAPEDOCUMENT_NO_EXPORT void Plan();
    SHAPEDOCUMENT_NO_EXPORT void Spend(size_t moves);
    SHAPEDOCUMENT_NO_EXPORT void TimeMarks();

    MachineSettings m_machine;
    std::vector<Move> m_moves; ///< whose time is not added yet
    QPointF m_head;            ///< mm
    QPointF m_direction;       ///< of length 1, at the end of the last move; null at rest
    double m_entry = 0;        ///< mm/s, reached at the beginning of the first of m_moves
    double m_seconds = 0;
    size_t m_spent = 0;          ///< moves whose time is added
    size_t m_timed = 0;          ///< marks whose time is known
    std::vector<double> m_marks; ///< seconds; behind m_timed the number of moves before the mark
};

} // namespace shapedocument
