/// How long a machine takes for its moves.
#pragma once

#include "machine/MachineJob.h"
#include "machine/MachineSettings.h"
#include "shapedocument_export.h"

#include <vector>

namespace shapedocument {

/// Adds up the time of moves as a controller plans them: each has a trapezoid of speed, corners are passed at the speed
/// of GRBL's junction deviation, and speeds are known some thousand moves ahead.
class SHAPEDOCUMENT_EXPORT MotionTimer
{
public:
    /// At rest at 0, 0.
    explicit MotionTimer(const MachineSettings& machine) : m_machine(machine) {}

    /// A straight move with the laser off.
    void Travel(QPointF to) { Line(to, m_machine.rapid); }

    /// From where the head is, by the point's own segment, to another point, with the laser on. Curves are no faster
    /// than their radius allows.
    void Cut(const JobPoint& from, QPointF to);

    /// A straight move at a speed (mm per minute).
    void Line(QPointF to, double speed);

    /// Seconds for everything so far, with a stop at the end.
    double Seconds();

private:
    struct Move
    {
        double length; ///< mm
        double speed;  ///< mm/s, wanted
        double corner; ///< mm/s, the most at its beginning
        double entry;  ///< mm/s, planned at its beginning
    };

    void Append(double length, double speed, QPointF begins, QPointF ends);
    double JunctionSpeed(QPointF begins) const;
    void Plan();
    void Spend(size_t moves);

    MachineSettings m_machine;
    std::vector<Move> m_moves; ///< whose time is not added yet
    QPointF m_head;            ///< mm
    QPointF m_direction;       ///< of length 1, at the end of the last move; null at rest
    double m_entry = 0;        ///< mm/s, reached at the beginning of the first of m_moves
    double m_seconds = 0;
};

} // namespace shapedocument
