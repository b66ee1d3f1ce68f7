/// What somebody may have meant who mistyped a name.
#pragma once

#include <string>
#include <vector>

/// "; the nearest is NAME" where one of the names is not far from the mistyped one; nothing else.
std::string Suggestion(const std::string& mistyped, const std::vector<std::string>& names);
