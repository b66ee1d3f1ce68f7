#include "canvas/Sheet.h"

#include "look/LengthUnit.h"
#include "look/Look.h"

#include "plane/RoundStep.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr double kLeastGrid = 7;    // pixels between grid lines
constexpr double kLeastNumber = 56; // pixels between numbers of rulers
constexpr double kFinestInch = 1 / 64.0;
constexpr int kTens = 10;

/// The smallest of 1/64, 1/32, … 1 inch that is not below least (inches); above an inch, as RoundStep.
double InchStep(double least)
{
    for (double step = kFinestInch; step <= 1; step *= 2)
        if (step >= least)
            return step;
    return shapedocument::RoundStep(least);
}

/// Paints the vertical (across) or horizontal lines of the grid within the part.
void PaintLines(QPainter& painter, const QRectF& part, const QTransform& toPixels, const GridSteps& grid, bool across)
{
    const double from = across ? part.left() : part.top(), to = across ? part.right() : part.bottom();
    const double finePerCoarse = std::round(grid.coarse / grid.fine);
    for (double line = std::ceil(from / grid.fine); line * grid.fine <= to; ++line) {
        const double at = line * grid.fine;
        const bool coarse = std::fmod(std::abs(line), finePerCoarse) < 0.5;
        painter.setPen(QPen(coarse ? look::CoarseGrid() : look::Grid(), 0));
        painter.drawLine(toPixels.map(across ? QLineF(at, part.top(), at, part.bottom())
                                             : QLineF(part.left(), at, part.right(), at)));
    }
}

} // namespace

GridSteps GridOf(double scale)
{
    const double least = kLeastGrid / scale;
    if (look::LengthUnit::Shown().IsInch()) {
        const double inch = look::LengthUnit::Shown().Millimetres();
        const double step = InchStep(least / inch);
        return {step * inch, step < 1 ? inch : step * kTens * inch};
    }
    double step = 1;
    while (step < least)
        step *= kTens;
    return {step, step * kTens};
}

RulerSteps RulerOf(double scale)
{
    constexpr int kHalves = 8;
    const double unit = look::LengthUnit::Shown().Millimetres();
    const double least = kLeastNumber / (scale * unit);
    if (!look::LengthUnit::Shown().IsInch())
        return {shapedocument::RoundStep(least), kTens, unit};
    const double step = InchStep(least);
    return {step, step <= 1 ? kHalves : kTens, unit};
}

QString RulerNumber(double units)
{
    const double whole = std::trunc(units);
    int above = static_cast<int>(std::round(std::abs(units - whole) / kFinestInch)), below = 64;
    if (!look::LengthUnit::Shown().IsInch() || above == 0)
        return QString::number(units + 0.0, 'g', 6);
    for (; above % 2 == 0; above /= 2)
        below /= 2;
    const QString sign = units < 0 && whole == 0 ? "-" : "";
    const QString number = whole == 0 ? QString() : QString::number(whole) + ' ';
    return QString("%1%2%3/%4").arg(sign, number).arg(above).arg(below);
}

void PaintSheet(QPainter& painter, const QRectF& bed, const QTransform& toPixels, const QRectF& part, bool withGrid)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(part, look::Outside());
    const QRectF sheet = toPixels.mapRect(bed);
    painter.fillRect(sheet, look::Bed());
    if (const QRectF seen = toPixels.inverted().mapRect(part) & bed; withGrid && !seen.isEmpty()) {
        const GridSteps grid = GridOf(toPixels.m11());
        PaintLines(painter, seen, toPixels, grid, true);
        PaintLines(painter, seen, toPixels, grid, false);
    }
    painter.setPen(QPen(look::BedEdge(), 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(sheet);
    painter.setRenderHint(QPainter::Antialiasing, true);
}
