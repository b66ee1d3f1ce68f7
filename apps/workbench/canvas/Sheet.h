/// The sheet on the machine's bed, with its grid.
#pragma once

#include <QRectF>
#include <QTransform>

class QPainter;

/// Lines of a grid, mm from one to the next.
struct GridSteps
{
    double fine;
    double coarse; ///< a multiple of fine
};
/// As fine as can be seen at that scale (pixels per mm): millimetres and their tens, or, where lengths are shown in
/// inches, halves, quarters and so on down to 64ths of an inch.
GridSteps GridOf(double scale);

/// The steps of a ruler at that scale, in the unit that lengths are shown in.
struct RulerSteps
{
    double number;   ///< from number to number, units
    int ticks;       ///< parts between two numbers
    double unit = 1; ///< mm
};
RulerSteps RulerOf(double scale);

/// What stands at a number of the ruler: inches with their fractions ("1 3/4").
QString RulerNumber(double units);

/// The bed (mm) and what lies around it, in that part of the canvas (pixels).
void PaintSheet(QPainter& painter, const QRectF& bed, const QTransform& toPixels, const QRectF& part, bool withGrid);
