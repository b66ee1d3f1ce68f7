/// Qt's arithmetic, repeated. Documents, hit tests and machine files depend on the last bit of these results (a letter
/// is placed by the right edge of the one before it), so they must equal Qt's; but Qt computes them through paths,
/// polygons and lists allocated for every call, which costs most of the time of a flattening or a layout. What follows
/// therefore does the same operations in the same order on plain numbers. Tests compare it bit for bit with Qt;
/// FlatteningForPlatform also does so at run time, in case another Qt subdivides otherwise.
#pragma once

#include <QPointF>
#include <QRectF>

#include <array>
#include <cmath>
#include <cstddef>
#include <span>

class QTransform;

namespace shapes {

/// As QTransform::map for every point, in place.
void MapPoints(std::span<QPointF> points, const QTransform& transform);

/// As the bounding rectangle of a painter path that holds only this cubic: control points do not count.
QRectF CubicBounds(const std::array<QPointF, 4>& cubic);

/// What a rectangle covers of one axis.
struct AxisSpan
{
    double low, high;
};

/// @param extent width or height; may be negative
inline AxisSpan SpanOf(double from, double extent)
{
    return extent < 0 ? AxisSpan{from + extent, from} : AxisSpan{from, from + extent};
}

/// As QRectF::contains(QRectF) on one axis: spans without extent hold nothing and lie in nothing.
inline bool Holds(AxisSpan outer, AxisSpan inner)
{
    return outer.low != outer.high && inner.low != inner.high && !(inner.low < outer.low) && !(inner.high > outer.high);
}

/// As QRectF::contains(QPointF) on one axis, except that a NaN on either side is never held.
inline bool Holds(AxisSpan span, double p)
{
    return span.low != span.high && p >= span.low && p <= span.high;
}

// The subdivision of cubics that QPainterPath::toSubpathPolygons performs.

inline constexpr double kFlatness = 0.5;   ///< largest distance of control points from the chord, magnified units
inline constexpr size_t kMostHalvings = 9; ///< hence at most 512 pieces per cubic
inline constexpr double kShortChord = 1;   ///< up to this length of the chord, distances from its start count instead

/// x and y in one vector register.
using Pair [[gnu::vector_size(2 * sizeof(double))]] = double;

inline Pair ToPair(QPointF point)
{
    return Pair{point.x(), point.y()};
}

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

/// Returns the second half and leaves the first in c. The order of the additions is Qt's.
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

/// End points of the pieces of one cubic, in order.
struct Pieces
{
    std::array<Pair, size_t{1} << kMostHalvings> ends;
    size_t count;
};

inline void SplitCubic(const Cubic& cubic, Pieces& pieces)
{
    std::array<Cubic, kMostHalvings> rest; // a stack: the next piece is the last one
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
