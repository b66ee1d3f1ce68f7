/// Tells the user when polylines were refitted on the way.
#pragma once

#include <cstdio>

/// Prints a line to the stream when the curve-fitting plug-in is there and switched on; nothing otherwise.
void SayWhetherFitted(std::FILE* stream);
