#include "machine/Bulge.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace shapedocument {

namespace {

QPointF AtAngle(const CircleArc& arc, double angle)
{
    return arc.center + arc.radius * QPointF(std::cos(angle), std::sin(angle));
}

} // namespace

CircleArc ArcOf(QPointF from, QPointF to, double bulge)
{
    const QPointF chord = to - from;
    const QPointF left(-chord.y(), chord.x()); // towards the centre of an arc of positive bulge, the chord's length
    CircleArc arc;
    arc.center = (from + to) / 2 + left * ((1 - bulge * bulge) / (4 * bulge));
    arc.radius = std::hypot(chord.x(), chord.y()) * (1 + bulge * bulge) / (4 * std::abs(bulge));
    arc.begin = std::atan2(from.y() - arc.center.y(), from.x() - arc.center.x());
    arc.sweep = 4 * std::atan(bulge);
    return arc;
}

QPointF PointOnSegment(QPointF from, QPointF to, double bulge, double part)
{
    if (part <= 0 || part >= 1)
        return part <= 0 ? from : to;
    if (bulge == 0)
        return from + (to - from) * part;
    const CircleArc arc = ArcOf(from, to, bulge);
    return AtAngle(arc, arc.begin + arc.sweep * part);
}

double PartOfBulge(double bulge, double part)
{
    return bulge == 0 || part == 1 ? bulge : std::tan(std::atan(bulge) * part);
}

double SegmentLength(QPointF from, QPointF to, double bulge)
{
    if (bulge == 0)
        return std::hypot(to.x() - from.x(), to.y() - from.y());
    const CircleArc arc = ArcOf(from, to, bulge);
    return arc.radius * std::abs(arc.sweep);
}

QRectF SegmentRect(QPointF from, QPointF to, double bulge)
{
    double left = std::min(from.x(), to.x()), right = std::max(from.x(), to.x());
    double top = std::min(from.y(), to.y()), bottom = std::max(from.y(), to.y());
    if (bulge != 0) {
        const CircleArc arc = ArcOf(from, to, bulge);
        constexpr double kQuarter = std::numbers::pi / 2;
        const double low = std::min(arc.begin, arc.begin + arc.sweep), high = low + std::abs(arc.sweep);
        for (double angle = std::ceil(low / kQuarter) * kQuarter; angle < high; angle += kQuarter) {
            const QPointF extreme = AtAngle(arc, angle);
            left = std::min(left, extreme.x());
            right = std::max(right, extreme.x());
            top = std::min(top, extreme.y());
            bottom = std::max(bottom, extreme.y());
        }
    }
    return {QPointF(left, top), QPointF(right, bottom)};
}

int ChordCount(QPointF from, QPointF to, double bulge, double tolerance)
{
    if (bulge == 0)
        return 1;
    const CircleArc arc = ArcOf(from, to, bulge);
    constexpr double kMost = 512;
    const double ratio = std::clamp(1 - tolerance / arc.radius, 0.0, 1.0);
    const double step = 2 * std::acos(ratio); // the sagitta of a chord of this angle is the tolerance
    const double count = step > 0 ? std::ceil(std::abs(arc.sweep) / step) : kMost;
    return static_cast<int>(std::clamp(count, 1.0, kMost));
}

} // namespace shapedocument
