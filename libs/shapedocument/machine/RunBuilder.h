/// Makes one run of the tool from exact lines and cubics.
#pragma once

#include "machine/MachineJob.h"

namespace shapedocument {

/// mm: greatest distance of a run from its outline, and of the outline from the run.
constexpr double kOutlineTolerance = 0.005;

/// Takes a run's outline piece by piece and makes the points that a machine needs for it.
class SHAPEDOCUMENT_EXPORT RunBuilder
{
public:
    /// arcs: cubics become arcs and lines; else lines only.
    explicit RunBuilder(bool arcs) : m_arcs(arcs) {}

    /// Clears the run and starts at start (mm).
    void Begin(QPointF start);
    /// Adds a straight line from Current() to end (mm).
    void LineTo(QPointF end);
    /// Adds a cubic from Current() to end (mm). Cost: O(samples).
    void CurveTo(QPointF control1, QPointF control2, QPointF end);

    /// The finished run, its ends as given; empty when it has no length. A run that ends within 0.000001 mm of its
    /// start ends exactly there. Cost: O(n log n) in the samples since Begin.
    const std::vector<JobPoint>& End();

    /// Whether the finished run holds each point of its outline, and the outline has lines only.
    bool IsExact() const { return m_exact; }

    /// The end of the piece added last.
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
    std::vector<QPointF> m_section; ///< since the last corner: line ends and dense points of curves
    bool m_curves = false;          ///< the section has curves
    bool m_exact = true;
    Piece m_piece = Piece::Line;    ///< the last piece
    QPointF m_direction;            ///< of the last piece at its end
    double m_length = 0;            ///< mm, of the last piece's chord
    QPointF m_farthest;             ///< of all points, the one farthest from the start
    std::vector<QPointF> m_thinned; ///< scratch buffer, kept to avoid allocations
    std::vector<JobPoint> m_points;
};

} // namespace shapedocument
