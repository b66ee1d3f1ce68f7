/// Tells the user when polylines were refitted on the way.
#pragma once

/// Prints a line to standard output when the curve-fitting plug-in is there and switched on; nothing otherwise.
void SayWhetherFitted();
