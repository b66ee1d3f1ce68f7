/// Finds the known name nearest to a mistyped one.
#pragma once

#include <string>
#include <vector>

/// "; the nearest is NAME" if a name is close enough to the mistyped one, otherwise "".
std::string Suggestion(const std::string& mistyped, const std::vector<std::string>& names);
