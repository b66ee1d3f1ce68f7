/// Refits outlines through the curve-fitting plug-in.
#pragma once

#include <QPointF>

#include <vector>

namespace shapes {

/// Whether a plug-in is available. The first call looks for it, as in FitOutline.
bool IsCurveFitAvailable();

/// Appends the fitted form of an outline to outPoints and outTypes: every run between separators as the plug-in
/// rewrites it, one type per point, and the separators. A run keeps its points when the plug-in's result has
/// coordinates that are not finite or draws nothing. Appends nothing while no plug-in is available, when it throws, or
/// when the numbers of points and types differ.
///
/// The first call looks for the plug-in; calls of other threads wait for it. If that fails, it may show a message box
/// and wait for the user. One thread at a time uses the plug-in.
/// @param logFaults whether faults of the plug-in are logged
/// @return false for a fault of the plug-in: it threw, or its result for a run that draws something was unusable
bool FitOutline(const std::vector<QPointF>& points, const std::vector<unsigned char>& types,
                std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes, bool logFaults = true);

} // namespace shapes
