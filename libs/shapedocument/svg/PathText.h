/// Reads numbers, matrices and paths of a painted page; its paths are absolute, with M, L, C and Z only.
#pragma once

#include <QPainterPath>
#include <QTransform>

#include <string_view>

namespace shapedocument::drawing {

/// Takes the number at the start of text, and the separators around it, off text. 0 for none.
double ReadNumber(std::string_view& text);

/// matrix(a,b,c,d,e,f) or translate(x,y); the identity for anything else.
QTransform PlaceOf(std::string_view text);

/// Ends at the first unknown command.
QPainterPath PathOf(std::string_view text);

/// How a path is painted.
enum class Ink
{
    Line,
    Area,
    LineAndArea
};

/// The path as a machine needs it. As an area, every sub-path that encloses something is closed. Invisible parts are
/// left out: moves without a line, and in an area single straight lines. An end within grid (units of the path) of its
/// start is moved onto it.
QPainterPath MachineOutline(const QPainterPath& path, Ink ink, double grid);

} // namespace shapedocument::drawing
