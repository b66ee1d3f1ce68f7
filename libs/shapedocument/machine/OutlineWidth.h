/// How wide an outline is where it is narrowest.
#pragma once

#include <QPointF>

#include <vector>

namespace shapedocument {

/// The shorter side of the smallest enclosing rectangle at any angle, in mm; any value >= enough where the outline is
/// certainly wider than that.
double OutlineWidth(const std::vector<QPointF>& outline, double enough);

} // namespace shapedocument
