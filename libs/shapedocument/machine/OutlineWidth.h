/// How wide an outline is where it is narrowest.
#pragma once

#include <QPointF>

#include <vector>

namespace shapedocument {

/// mm: the shorter side of the smallest rectangle, turned any way, around the outline; of one that is surely wider than
/// enough, some number that is not below enough.
double OutlineWidth(const std::vector<QPointF>& outline, double enough);

} // namespace shapedocument
