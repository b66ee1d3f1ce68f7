/// The lines and cubics of a path, and exact parts of them.
#pragma once

#include "geometry/PathSteps.h"

#include <QPainterPath>

#include <array>

namespace shapedocument::drawing {

/// A line (its two ends, then unused) or a cubic.
struct CubicPiece
{
    std::array<QPointF, 4> points;
    bool line = false;

    QPointF End() const { return line ? points[1] : points[3]; }
    QPointF At(double t) const;
    /// The part from t = a to t = b, exactly.
    CubicPiece Between(double a, double b) const;
    /// Appends the piece to a path that ends where it starts.
    void AppendTo(QPainterPath& path) const;
    QRectF Bounds() const; ///< of all its points, controls included
};

/// Finds the parameter of a piece at which a length is reached.
class LengthTable
{
public:
    explicit LengthTable(const CubicPiece& piece);
    double Total() const { return m_lengths[m_steps]; }
    double ParameterAt(double length) const;

private:
    static constexpr size_t kSteps = 256;
    size_t m_steps;
    std::array<double, kSteps + 1> m_lengths;
};

/// Calls visit(piece, first) for each piece; first: it starts a sub-path.
template <class Visit>
void ForEachPiece(const QPainterPath& path, Visit visit)
{
    bool first = false;
    QPointF at;
    for (const shapes::PathStep& step : shapes::PathSteps(path)) {
        const auto& [control1, control2, end] = step.points;
        if (step.IsLine())
            visit(CubicPiece{{at, step.End()}, true}, first);
        else if (step.IsCurve())
            visit(CubicPiece{{at, control1, control2, end}, false}, first);
        first = step.IsMove();
        at = step.End();
    }
}

} // namespace shapedocument::drawing
