/// The best way of following each unit of a tour.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// Keeps the order of the units and takes that entry of each which gives the shortest way.
void ChooseEntries(const OrderPlan& plan, Tour& tour);

} // namespace shapedocument
