#include "Chords.h"

#include "Plane.h"

#include <algorithm>
#include <numbers>
#include <optional>

namespace curvesimulate {

namespace {

constexpr double kLongEdge = 8; ///< an edge this many times longer than its neighbours is straight
constexpr double kStandOut = 4; ///< a turn this many times sharper than its neighbours is a kink
constexpr double kLevel = 0.25; ///< share of its neighbour's rotation up to which an edge counts as not rotating
constexpr double kWaveEdge =
    3; ///< between opposite turns an edge this many times longer than its neighbours is straight
constexpr double kDenseEdge = 2;    ///< the same among chords finer than the tolerance
constexpr double kAlike = 6;        ///< a chord may be this many times farther from its curve than the next one
constexpr double kAlikeAtEnd = 1.5; ///< the same beside a corner, where there is only one neighbour to compare with
constexpr double kNoise = 8;        ///< tolerances by which noise may bend the edges of a trace
constexpr double kContinued =
    0.02; ///< a turn below this share of the one at the other end is ignored: a point was drawn on an edge
constexpr double kBulgeSlack = 1.5; ///< bulges are estimates

/// Judges the edges of one trace; keeps the turns at its points.
class Judge
{
public:
    Judge(const Trace& trace, const Limits& limits)
        : m_trace(trace), m_limits(limits), m_turns(trace.points.size(), 0.0)
    {
        for (size_t i = 1; i + 1 < m_turns.size(); ++i)
            m_turns[i] = SignedTurn(trace.points[i] - trace.points[i - 1], trace.points[i + 1] - trace.points[i]);
    }

    Chords Result() const
    {
        Chords chords;
        const size_t count = m_turns.size();
        chords.straight.assign(count, 0);
        chords.bulges.assign(count, 0.0);
        for (size_t i = 0; i + 1 < count; ++i) {
            chords.straight[i] = IsStraight(i);
            chords.bulges[i] = chords.straight[i] ? 0.0 : Bulge(i);
        }
        chords.breaks = Breaks(chords.straight);
        return chords;
    }

private:
    /// What is known of an edge at one of its ends.
    struct Side
    {
        double turn;      ///< at the end
        double neighbour; ///< length of the next edge
        double beyond;    ///< rotation of the next edge, estimated from the turn at its far end; 0 at a corner
    };

    double EdgeLength(size_t i) const { return m_trace.lengths[i + 1] - m_trace.lengths[i]; }

    /// Nothing at a corner. A turn is shared between the rotations of the two chords in proportion to their lengths.
    std::optional<Side> Before(size_t i) const
    {
        if (m_trace.corner[i])
            return std::nullopt;
        Side side{m_turns[i], EdgeLength(i - 1), 0.0};
        side.beyond =
            !m_trace.corner[i - 1] ? 2.0 * m_turns[i - 1] * side.neighbour / (side.neighbour + EdgeLength(i - 2)) : 0.0;
        return side;
    }

    std::optional<Side> After(size_t i) const
    {
        if (m_trace.corner[i + 1])
            return std::nullopt;
        Side side{m_turns[i + 1], EdgeLength(i + 1), 0.0};
        side.beyond =
            !m_trace.corner[i + 2] ? 2.0 * m_turns[i + 2] * side.neighbour / (side.neighbour + EdgeLength(i + 2)) : 0.0;
        return side;
    }

    /// The rotation of an edge. Between two chords of a smooth curve the turn is half the sum of their rotations; if
    /// the next chord's rotation is unknown or has the other sign, both count as chords of one circle.
    static double Rotation(const Side& side, double length)
    {
        return side.turn * side.beyond > 0.0 ? 2.0 * side.turn - side.beyond
                                             : 2.0 * side.turn * length / (length + side.neighbour);
    }

    /// Whether none of the turning at this end belongs to the edge.
    static bool IsLevel(const std::optional<Side>& side, double length)
    {
        return !side || (side->turn * side->beyond > 0.0 &&
                         std::abs(Rotation(*side, length)) <= kLevel * std::abs(side->beyond));
    }

    bool IsStraight(size_t i) const
    {
        auto before = Before(i), after = After(i);
        if (!before && !after)
            return true;
        if (before && after) {
            if (std::abs(before->turn) <= kContinued * std::abs(after->turn))
                before.reset();
            else if (std::abs(after->turn) <= kContinued * std::abs(before->turn))
                after.reset();
        }
        const double length = EdgeLength(i);
        double turns = 0.0, longest = 0.0;
        for (const auto& side : {before, after}) {
            turns += side ? std::abs(side->turn) : 0.0;
            longest = std::max(longest, side ? side->neighbour : 0.0);
        }
        // The arc that turns as much as the trace does here leaves its chord by length * turn / 8.
        const double bulge = length * turns / (before && after ? 16.0 : 8.0);
        if (length > kLongEdge * longest || bulge > m_limits.bulge)
            return true;
        const bool wave = before && after && before->turn * after->turn < 0.0;
        const bool coarse = bulge > m_limits.tolerance;
        if (wave && coarse && (before->turn * before->beyond < 0.0 || after->turn * after->beyond < 0.0))
            return true; // a zigzag
        const double enough = wave ? kWaveEdge : coarse ? 1.0 : kDenseEdge;
        return length >= enough * longest && IsLevel(before, length) && IsLevel(after, length);
    }

    /// The smaller estimate of the two ends, limited by the neighbours': chords of one flattened curve have similar
    /// distances from it. A single bend beside a corner is no sign of a curve.
    double Bulge(size_t i) const
    {
        const auto before = Before(i), after = After(i);
        if (before && after) {
            const double agreed =
                before->turn * after->turn > 0.0 ? std::min(BulgeBy(*before, i), BulgeBy(*after, i)) : 0.0;
            return std::min(agreed, kAlike * std::max(NextBulge(*before, i), NextBulge(*after, i)));
        }
        const Side& side = before ? *before : *after;
        return side.turn * side.beyond > 0.0 ? std::min(BulgeBy(side, i), kAlikeAtEnd * NextBulge(side, i)) : 0.0;
    }

    double BulgeBy(const Side& side, size_t i) const
    {
        const double length = EdgeLength(i);
        const double rotation = std::max(0.0, Rotation(side, length) * (side.turn > 0.0 ? 1.0 : -1.0));
        return std::min(kBulgeSlack * length * rotation / 8.0, m_limits.bulge);
    }

    /// Distance of the next chord from its curve.
    double NextBulge(const Side& side, size_t i) const
    {
        const double rotation = side.turn * side.beyond > 0.0
                                    ? side.beyond
                                    : 2.0 * side.turn * side.neighbour / (EdgeLength(i) + side.neighbour);
        return side.neighbour * std::abs(rotation) / 8.0;
    }

    /// By how much the turn at a point exceeds what its two chords' rotations explain, estimated from the turns beside
    /// it.
    double Excess(size_t i) const
    {
        const double before = EdgeLength(i - 1), after = EdgeLength(i);
        double trend = 0.0;
        trend += m_trace.corner[i - 1] ? 0.0 : m_turns[i - 1] * before / (before + EdgeLength(i - 2));
        trend += m_trace.corner[i + 1] ? 0.0 : m_turns[i + 1] * after / (after + EdgeLength(i + 1));
        return std::abs(m_turns[i] - trend);
    }

    std::vector<char> Breaks(const std::vector<char>& straight) const
    {
        std::vector<char> breaks(m_trace.corner);
        for (size_t i = 1; i + 1 < breaks.size(); ++i) {
            if (breaks[i])
                continue;
            const double here = std::abs(m_turns[i]), excess = Excess(i);
            const bool hidden = excess >= m_limits.corner &&
                                excess * std::min(EdgeLength(i - 1), EdgeLength(i)) > kNoise * m_limits.tolerance;
            const bool standsOut = i > 1 && i + 2 < breaks.size() && here > m_limits.kink &&
                                   here > kStandOut * std::max(std::abs(m_turns[i - 1]), std::abs(m_turns[i + 1]));
            breaks[i] = hidden || straight[i - 1] || straight[i] || standsOut;
        }
        return breaks;
    }

    const Trace& m_trace;
    const Limits& m_limits;
    std::vector<double> m_turns; ///< signed, radians; 0 at both ends
};

} // namespace

Chords JudgeChords(const Trace& trace, const Limits& limits)
{
    return Judge(trace, limits).Result();
}

} // namespace curvesimulate
