/// Cubics into pieces by the rule of the platform's painter paths, with the same points bit for bit.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace shapes {

inline constexpr double kFlatness = 0.5;   ///< the platform's: of control points beside the chord, at the magnification
inline constexpr size_t kMostHalvings = 9; ///< the platform's: 512 pieces of a cubic at most
inline constexpr double kShortChord = 1;   ///< up to this, the control points' distance counts instead

/// x and y, reckoned side by side.
using Pair [[gnu::vector_size(2 * sizeof(double))]] = double;

struct Cubic
{
    Pair p1, p2, p3, p4;
};

inline bool IsFlat(const Cubic& c)
{
    const Pair chord = c.p4 - c.p1, a = c.p1 - c.p2, b = c.p1 - c.p3;
    const double length = std::abs(chord[0]) + std::abs(chord[1]);
    if (length > kShortChord) {
        const Pair beside = chord[0] * Pair{a[1], b[1]} - chord[1] * Pair{a[0], b[0]};
        return std::abs(beside[0]) + std::abs(beside[1]) < kFlatness * length;
    }
    return std::abs(a[0]) + std::abs(a[1]) + std::abs(b[0]) + std::abs(b[1]) < kFlatness;
}

/// Answers the second half and leaves the first in place. The order of the sums is the platform's.
inline Cubic SplitOffSecondHalf(Cubic& c)
{
    const auto middle = [](Pair a, Pair b) { return (a + b) * .5; };
    const Pair m = middle(c.p2, c.p3);
    Cubic second;
    second.p4 = c.p4;
    second.p3 = middle(c.p3, c.p4);
    second.p2 = middle(m, second.p3);
    c.p2 = middle(c.p1, c.p2);
    c.p3 = middle(c.p2, m);
    c.p4 = second.p1 = middle(c.p3, second.p2);
    return second;
}

/// Ends of the pieces of one cubic.
struct Pieces
{
    std::array<Pair, size_t{1} << kMostHalvings> ends;
    size_t count;
};

/// Splits a cubic into the pieces that the platform would make of it.
inline void SplitCubic(const Cubic& cubic, Pieces& pieces)
{
    std::array<Cubic, kMostHalvings> rest; // what comes next stands last
    std::array<size_t, kMostHalvings> restHalvings;
    size_t waiting = 0;
    Cubic part = cubic;
    size_t halvings = kMostHalvings;
    Pair* end = pieces.ends.data();
    while (true) {
        if (halvings > 0 && !IsFlat(part)) {
            --halvings;
            rest[waiting] = SplitOffSecondHalf(part);
            restHalvings[waiting] = halvings;
            ++waiting;
            continue;
        }
        *end++ = part.p4;
        if (waiting == 0)
            break;
        --waiting;
        part = rest[waiting];
        halvings = restHalvings[waiting];
    }
    pieces.count = static_cast<size_t>(end - pieces.ends.data());
}

} // namespace shapes
