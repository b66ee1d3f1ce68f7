/// Cutting outlines into the dashes that a line is drawn with.
#pragma once

#include <QPainterPath>

#include <vector>

namespace shapedocument::drawing {

/// Replaces path by its dashes: lengths of lines and gaps in turn, in units of the path, beginning offset into them
/// anew with each sub-path. False, and nothing changed, where the lengths give no dashes, dots without length, or more
/// of them than a path may have.
bool CutIntoDashes(QPainterPath& path, std::vector<double> lengths, double offset);

} // namespace shapedocument::drawing
