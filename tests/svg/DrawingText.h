/// Imported drawings as literals.
#pragma once

#include "svg/DrawingImport.h"

#include <string>

namespace test {

/// A drawing whose user unit is 1 mm, on a page of 100 mm.
QByteArray Drawing(const std::string& content);

/// The shapes, joined by "; ", with coordinates in mm rounded to 0.001: "M 0,0 L 10,0", then the colour where it is not
/// black, as "#ff0000". Pictures: "picture" and their corners.
std::string ShapesText(const shapedocument::DrawingImport& drawing);

/// The rectangles of the shapes, rounded to 0.01: "left,top,width,height; …".
std::string BoxesText(const shapedocument::DrawingImport& drawing);

/// What is not as painted, joined by ", ".
std::string ReportText(const shapedocument::DrawingImport& drawing);

} // namespace test
