/// Refits outlines through the curve-fitting plug-in.
#pragma once

#include <QPointF>

#include <vector>

namespace shapes {

/// Whether there is a plug-in to fit with. Looks for it as FitOutline does.
bool IsCurveFitAvailable();

/// Appends the fitted form of an outline to the two lists: every run between separators as the plug-in rewrites it,
/// points and types in pairs, and the separators. A run keeps its points when what comes back for it has coordinates that
/// are not finite or draws nothing. Nothing while no plug-in is available, when it throws, or when there are not as many
/// types as points.
/// The first call looks for the plug-in, once also when several threads make it at the same time; where it fails, that
/// call may show a box and wait for the user. Threads that come later wait until the plug-in is done with the one before.
/// @param logFaults whether a fault of the plug-in goes to the log
/// @return false for a fault of the plug-in: it threw, or a run that draws something came back unusable
bool FitOutline(const std::vector<QPointF>& points, const std::vector<unsigned char>& types,
                std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes, bool logFaults = true);

} // namespace shapes
