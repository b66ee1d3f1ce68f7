/// Paints the sheet on the machine's bed with its grid; steps of grids and rulers.
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
/// The finest grid that is not too dense at that scale (pixels per mm): 1, 10, 100 … mm or, where lengths are shown in
/// inches, halves, quarters and so on down to 64ths of an inch.
GridSteps GridOf(double scale);

/// The steps of a ruler, in the user's unit.
struct RulerSteps
{
    double number;   ///< units between two numbers
    int ticks;       ///< parts between two numbers
    double unit = 1; ///< mm
};
RulerSteps RulerOf(double scale);

/// The text of a ruler's number: inches with their fractions ("1 3/4").
QString RulerNumber(double units);

/// Paints the bed (mm) and its surroundings within that part of the canvas (pixels).
void PaintSheet(QPainter& painter, const QRectF& bed, const QTransform& toPixels, const QRectF& part, bool withGrid);
