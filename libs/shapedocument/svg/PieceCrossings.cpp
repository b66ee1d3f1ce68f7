#include "svg/PieceCrossings.h"

#include "geometry/Geometry.h"

#include <algorithm>
#include <cmath>

namespace shapedocument::drawing {

using shapes::Cross;

namespace {

constexpr double kFlat = 1e-5; // mm; a curve this near to its chord counts as straight
constexpr double kNear = 1e-5; // mm

bool Overlap(const QRectF& a, const QRectF& b)
{
    return a.left() <= b.right() + kNear && b.left() <= a.right() + kNear && a.top() <= b.bottom() + kNear &&
           b.top() <= a.bottom() + kNear;
}

/// A part of a piece with the parameters of its ends.
struct Part
{
    CubicPiece piece;
    double from = 0;
    double to = 1;

    bool IsFlat() const
    {
        if (piece.line)
            return true;
        // The second differences bound the distance of each point of a cubic from that of its chord.
        const auto& p = piece.points;
        const QPointF bend1 = p[0] - 2 * p[1] + p[2], bend2 = p[1] - 2 * p[2] + p[3];
        const double bend =
            std::max({std::abs(bend1.x()), std::abs(bend1.y()), std::abs(bend2.x()), std::abs(bend2.y())});
        return bend < kFlat;
    }
    Part Half(bool second) const
    {
        const double middle = (from + to) / 2;
        return second ? Part{piece.Between(0.5, 1), middle, to} : Part{piece.Between(0, 0.5), from, middle};
    }
    double At(double share) const { return from + std::clamp(share, 0.0, 1.0) * (to - from); }
};

class Finder
{
public:
    Finder(std::vector<double>& onA, std::vector<double>& onB) : m_onA(onA), m_onB(onB) {}

    void Find(const Part& a, const Part& b)
    {
        if (!Overlap(a.piece.Bounds(), b.piece.Bounds()))
            return;
        const bool flatA = a.IsFlat(), flatB = b.IsFlat();
        if (flatA && flatB)
            return CrossChords(a, b);
        const bool splitA = !flatA && (flatB || a.to - a.from >= b.to - b.from);
        for (const bool second : {false, true})
            splitA ? Find(a.Half(second), b) : Find(a, b.Half(second));
    }

private:
    void CrossChords(const Part& a, const Part& b)
    {
        const QPointF startA = a.piece.points[0], alongA = a.piece.End() - startA;
        const QPointF startB = b.piece.points[0], alongB = b.piece.End() - startB;
        const double lengthA = std::hypot(alongA.x(), alongA.y()), lengthB = std::hypot(alongB.x(), alongB.y());
        const double turn = Cross(alongA, alongB);
        if (lengthA == 0 || lengthB == 0)
            return;
        if (std::abs(turn) <= 1e-9 * lengthA * lengthB)
            return AlongEachOther(a, b, startB - startA, alongA, alongB);
        const double shareA = Cross(startB - startA, alongB) / turn, shareB = Cross(startB - startA, alongA) / turn;
        const double slackA = kNear / lengthA, slackB = kNear / lengthB;
        if (shareA < -slackA || shareA > 1 + slackA || shareB < -slackB || shareB > 1 + slackB)
            return;
        m_onA.push_back(a.At(shareA));
        m_onB.push_back(b.At(shareB));
    }

    void AlongEachOther(const Part& a, const Part& b, QPointF apart, QPointF alongA, QPointF alongB)
    {
        const double squareA = QPointF::dotProduct(alongA, alongA), squareB = QPointF::dotProduct(alongB, alongB);
        if (std::abs(Cross(apart, alongA)) > kNear * std::sqrt(squareA))
            return;
        for (const QPointF end : {apart, apart + alongB})
            if (const double share = QPointF::dotProduct(end, alongA) / squareA; share >= 0 && share <= 1)
                m_onA.push_back(a.At(share));
        for (const QPointF end : {-apart, alongA - apart})
            if (const double share = QPointF::dotProduct(end, alongB) / squareB; share >= 0 && share <= 1)
                m_onB.push_back(b.At(share));
    }

    std::vector<double>& m_onA;
    std::vector<double>& m_onB;
};

bool IsSame(const CubicPiece& a, const CubicPiece& b)
{
    const size_t count = a.line ? 2 : 4;
    const auto near = [](QPointF p, QPointF q) { return std::abs(p.x() - q.x()) + std::abs(p.y() - q.y()) < kNear; };
    bool forward = a.line == b.line, backward = forward;
    for (size_t i = 0; i < count && (forward || backward); ++i) {
        forward = forward && near(a.points[i], b.points[i]);
        backward = backward && near(a.points[i], b.points[count - 1 - i]);
    }
    return forward || backward;
}

} // namespace

void AddCrossings(const CubicPiece& a, const CubicPiece& b, std::vector<double>& onA, std::vector<double>& onB)
{
    if (!Overlap(a.Bounds(), b.Bounds()))
        return;
    if (IsSame(a, b)) {
        onA.insert(onA.end(), {0, 1});
        onB.insert(onB.end(), {0, 1});
        return;
    }
    Finder(onA, onB).Find({a}, {b});
}

} // namespace shapedocument::drawing
