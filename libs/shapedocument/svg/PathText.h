/// Numbers, matrices and paths as a painted page writes them: absolute, with M, L, C and Z only.
#pragma once

#include <QPainterPath>
#include <QTransform>

#include <string_view>

namespace shapedocument::drawing {

/// The number that text begins with; removes it and the separators around it. 0 for none.
double ReadNumber(std::string_view& text);

/// matrix(a,b,c,d,e,f) or translate(x,y); the identity for anything else.
QTransform PlaceOf(std::string_view text);

/// Ends at the first command that is not known.
QPainterPath PathOf(std::string_view text);

/// How a path is painted.
enum class Ink
{
    Line,
    Area,
    LineAndArea
};

/// The path with every sub-path that encloses an area led back to its start where it is one, and without what no ink
/// shows of: positions that nothing is drawn from, and as an area a single straight line. An end that lies beside its
/// start by no more than the grid (units of the path) is put onto it.
QPainterPath MachineOutline(const QPainterPath& path, Ink ink, double grid);

} // namespace shapedocument::drawing
