#include "machine/ArcMoves.h"

#include "machine/Bulge.h"

#include <cmath>

namespace shapedocument {

namespace {

constexpr double kArcSteps = 1e4; ///< a ten-thousandth of a millimetre

double Rounded(double value)
{
    return std::round(value * kArcSteps) / kArcSteps + 0.0; // + 0.0: no "-0.0000"
}

QByteArray Number(double value)
{
    return QByteArray::number(Rounded(value), 'f', 4);
}

QPointF Rounded(QPointF point)
{
    return {Rounded(point.x()), Rounded(point.y())};
}

} // namespace

bool IsWrittenAsArc(QPointF from, QPointF to, double bulge)
{
    constexpr double kShortest = 0.001; // mm
    return bulge != 0 && std::hypot(to.x() - from.x(), to.y() - from.y()) >= kShortest;
}

QByteArray GcodeMoveText(QPointF from, QPointF to, double bulge)
{
    const QByteArray place = " X" + Number(to.x()) + " Y" + Number(to.y());
    if (!IsWrittenAsArc(from, to, bulge))
        return "G1" + place;
    // About the ends as they are written, or machines find the two radii too different.
    const QPointF center = ArcOf(Rounded(from), Rounded(to), bulge).center - Rounded(from);
    return (bulge < 0 ? "G2" : "G3") + place + " I" + Number(center.x()) + " J" + Number(center.y());
}

QByteArray SvgMoveText(QPointF from, QPointF to, double bulge)
{
    const QByteArray place = Number(to.x()) + "," + Number(to.y());
    if (!IsWrittenAsArc(from, to, bulge))
        return "L " + place;
    const QByteArray radius = Number(ArcOf(from, to, bulge).radius);
    return "A " + radius + "," + radius + " 0 0 " + (bulge < 0 ? "0 " : "1 ") + place;
}

} // namespace shapedocument
