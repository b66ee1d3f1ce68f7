/// Times the moves of a machine.
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
    /// Starts at rest at head (mm).
    explicit MotionTimer(const MachineSettings& machine, QPointF head = {}) : m_machine(machine), m_head(head) {}

    /// Where the head is, mm.
    QPointF Head() const { return m_head; }

    /// From where the head is to another point, straight. Returns the length (mm). Cost: O(1) on the average.
    double Line(QPointF to, double speed);

    /// Along the segment of from, which must start where the head is. Curves are no faster than their radius allows.
    /// Returns the length (mm). Cost: as Line, for each chord of an arc.
    double Segment(const JobPoint& from, QPointF to, double speed);

    /// Moves z by a length (mm), with a stop before and after.
    void Lift(double length, double speed);

    /// Brings the head to rest.
    void Stop();

    /// Notes the time at which the head is where it is now, without a stop there.
    void Mark() { m_marks.push_back(static_cast<double>(m_spent + m_moves.size())); }

    /// Seconds for everything so far, with a stop at the end.
    double Seconds();

    /// The seconds of all marks, in their order; known once Seconds has been called after them.
    const std::vector<double>& Marks() const { return m_marks; }

private:
    struct Move
    {
        double length; ///< mm
        double speed;  ///< mm/s, wanted
        double corner; ///< mm/s, limit at its start
        double entry;  ///< mm/s, planned at its start
    };

    SHAPEDOCUMENT_NO_EXPORT double PerSecond(double speed) const;
    SHAPEDOCUMENT_NO_EXPORT void Append(double length, double speed, QPointF begins, QPointF ends);
    SHAPEDOCUMENT_NO_EXPORT double JunctionSpeed(QPointF begins) const;
    SHAPEDOCUMENT_NO_EXPORT void Plan();
    SHAPEDOCUMENT_NO_EXPORT void Spend(size_t moves);
    SHAPEDOCUMENT_NO_EXPORT void TimeMarks();

    MachineSettings m_machine;
    std::vector<Move> m_moves; ///< moves whose time is not in m_seconds yet
    QPointF m_head;            ///< mm
    QPointF m_direction;       ///< unit vector at the end of the last move; null at rest
    double m_entry = 0;        ///< mm/s, reached at the start of the first of m_moves
    double m_seconds = 0;
    size_t m_spent = 0;          ///< moves whose time is added
    size_t m_timed = 0;          ///< marks whose time is known
    std::vector<double> m_marks; ///< seconds; from index m_timed on, the number of moves before the mark
};

} // namespace shapedocument
