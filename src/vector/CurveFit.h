/// Refits outlines through the curve-fitting plug-in.
#pragma once

#include <QPointF>

#include <vector>

namespace shapes {

/// Appends the fitted form of an outline to the two lists: every run between separators as the plug-in rewrites it,
/// points and types in pairs, and the separators. Nothing while no plug-in is available, when it throws or hands a run back
/// empty, or when there are not as many types as points.
/// The first call looks for the plug-in, once also when several threads make it at the same time; where it fails, that call
/// may show a box and wait for the user. Threads that come later wait until the plug-in is done with the one before.
void FitOutline(const std::vector<QPointF>& points, const std::vector<unsigned char>& types,
                std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes);

} // namespace shapes
