/// The host's functions that were set, for those of the reference host that they replace.
#pragma once

#include "host/HostFunctions.h"

/// They do not change any more once they have been asked for.
const SHostFunctions& FunctionsInUse();
