/// The width of an outline across its narrow side.
#pragma once

#include <QPointF>

#include <vector>

namespace shapedocument {

/// The shorter side of the smallest enclosing rectangle at any angle, in mm; any value >= enough where the outline is
/// certainly wider than that.
double OutlineWidth(const std::vector<QPointF>& outline, double enough);

} // namespace shapedocument
