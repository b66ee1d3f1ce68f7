/// One run of the tool, made of exact lines and cubics.
#pragma once

#include "machine/MachineJob.h"

namespace shapedocument {

/// mm: no point of a run lies farther from the outline, and none of the outline farther from the run.
constexpr double kOutlineTolerance = 0.005;

/// Takes a run's outline piece by piece and makes the points that a machine needs for it.
class SHAPEDOCUMENT_EXPORT RunBuilder
{
public:
    /// With arcs, cubics become arcs and lines, else lines alone.
    explicit RunBuilder(bool arcs) : m_arcs(arcs) {}

    /// Forgets what there is and begins at start (mm).
    void Begin(QPointF start);
    /// A straight line from where the run stands.
    void LineTo(QPointF end);
    /// A cubic from where the run stands. Cost: O(samples).
    void CurveTo(QPointF control1, QPointF control2, QPointF end);

    /// The run so far, its ends as they were given; empty when it has no length. A run that ends where it began, within
    /// 0.000001 mm, ends there exactly. Cost: O(n log n) in the samples since Begin.
    const std::vector<JobPoint>& End();

    /// Whether the run that has ended holds each point of its outline, and that has lines alone.
    bool IsExact() const { return m_exact; }

    /// Where the run stands: the end of the piece added last.
    QPointF Current() const { return m_current; }

private:
    enum class Piece
    {
        Line,
        Curve
    };

    SHAPEDOCUMENT_NO_EXPORT void BeginPiece(Piece piece, QPointF direction, double length);
    SHAPEDOCUMENT_NO_EXPORT void AppendSamples(QPointF control1, QPointF control2, QPointF end);
    SHAPEDOCUMENT_NO_EXPORT void EndSection();
    SHAPEDOCUMENT_NO_EXPORT void KeepSomeLength();

    bool m_arcs;
    QPointF m_current;
    std::vector<QPointF> m_section; ///< from the last corner on: line ends and dense points of curves
    bool m_curves = false;          ///< the section has some
    bool m_exact = true;
    Piece m_piece = Piece::Line;    ///< the last one
    QPointF m_direction;            ///< at its end
    double m_length = 0;            ///< of its chord
    QPointF m_farthest;             ///< from the start, of all points
    std::vector<QPointF> m_thinned; ///< scratch buffer, kept to avoid allocations
    std::vector<JobPoint> m_points;
};

} // namespace shapedocument
