/// Refits outlines through the curve-fitting plug-in.
#pragma once

#include <QPointF>

#include <vector>

namespace shapes {

/// Appends the fitted form of an outline to the two lists; nothing while no plug-in is available.
void FitOutline(const std::vector<QPointF>& points, const std::vector<unsigned char>& types,
                std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes);

} // namespace shapes
