/// Turns outlines, painter paths and lines into literals and back, so that a failed comparison reads itself.
///
/// Numbers are rounded to six decimals. An outline is a list of points separated by blanks: "1,2" straight, "c1,2"
/// curve point, "f1,2" fill marker, "|" separator at (0, 0), "|1,2" separator elsewhere. A point without a type reads
/// "?1,2", a type without a point "+0".
#pragma once

#include "shape/Shape.h"

#include <string>

namespace test {

std::string Number(double value);
std::string Point(QPointF point);
/// "x,y,width,height"
std::string Rect(QRectF rect);

std::string Outline(CShape& shape);
void SetOutline(CShape& shape, const std::string& outline);

/// "M 0,0 L 10,0 C 1,1 2,2 3,3"
std::string PathText(const QPainterPath& path);
/// The painter path as GetPath(false) hands it out; "none" for null.
std::string PathText(CShape& shape);

/// The outline of the rectangle, as a painter path draws it.
std::string Frame(QRectF rect);

/// "0,0>10,0" per line; "null" for a null line.
std::string LinesText(const std::vector<QLineF>& lines);
/// "2:0,0>10,0" per micro line.
std::string LinesText(const std::vector<SHAPE_VECTOR_PATHDATA>& lines);

} // namespace test
