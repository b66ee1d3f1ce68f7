/// The test programs' own host: it records what is logged and returns the theme that a test sets.
#pragma once

#include <string>

namespace test {

/// The lines logged since the last call as "level text", joined by "; ".
std::string TakeLog();

/// Theme name that the host returns from now on; "Etchwright" at start.
void SetTheme(const char* name);

} // namespace test
