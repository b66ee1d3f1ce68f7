/// Cuts outlines into the dashes of a dashed line.
#pragma once

#include <QPainterPath>

#include <vector>

namespace shapedocument::drawing {

/// Replaces path by its dashes: lengths holds lines and gaps alternately, in units of the path; each sub-path starts at
/// offset into them. Returns false, with path unchanged, where the lengths give no dashes, dots without length, or more
/// than 100,000 dashes.
bool CutIntoDashes(QPainterPath& path, std::vector<double> lengths, double offset);

} // namespace shapedocument::drawing
