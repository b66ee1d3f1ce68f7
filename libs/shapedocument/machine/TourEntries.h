/// Chooses the best entry of each unit of a tour.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// Keeps the order of the units and chooses the entries that make the tour shortest.
void ChooseEntries(const OrderPlan& plan, Tour& tour);

} // namespace shapedocument
