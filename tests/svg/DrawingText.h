/// Imported drawings as literals.
#pragma once

#include "svg/DrawingImport.h"

#include <string>

namespace test {

/// What only shows within an area.
#define WITHIN(area, content) "<clipPath id='c'>" area "</clipPath><g clip-path='url(#c)'>" content "</g>"

/// A drawing whose user unit is 1 mm, on a page of 100 mm.
QByteArray Drawing(const QByteArray& content);

/// What becomes of it.
shapedocument::DrawingImport Imported(const QByteArray& content, const shapedocument::DrawingOptions& options = {});

/// The shapes, joined by "; ", with coordinates in mm rounded to 0.001: "M 0,0 L 10,0", then the colour where it is not
/// black, as "#ff0000". Pictures: "picture" and their corners. The error where there is one.
std::string ShapesText(const shapedocument::DrawingImport& drawing);

/// What is not as painted, joined by ", ".
std::string ReportText(const shapedocument::DrawingImport& drawing);

/// What of expected, "this | that", is said; the first where none is. Renderers differ where a row allows for both.
std::string OneOf(const std::string& expected, const std::string& said);

} // namespace test
